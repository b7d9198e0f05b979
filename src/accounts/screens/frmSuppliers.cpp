#include "accounts/screens/frmSuppliers.h"

#include "accounts/purchases/Suppliers.h"
#include "base/ports/requests/Accounts.h"
#include "billing/payments/PaymentRecord.h"
#include "clients/ClientChoices.h"
#include "kit/Combos.h"
#include "kit/Layouts.h"
#include "kit/ScreenDialog.h"

namespace quillary::accounts {

namespace {

enum SupplierColumn {
  kSupplierName,
  kSupplierId,
  kSupplierContact,
  kSupplierPhone,
  kSupplierMethod,
  kAccountKey,
  kFirstUnlisted,  // fields that the list has no room for
};
constexpr int kStreetNumber = kFirstUnlisted;
constexpr int kStreet = kFirstUnlisted + 1;
constexpr int kSuburb = kFirstUnlisted + 2;
constexpr int kPostCode = kFirstUnlisted + 3;
constexpr int kFax = kFirstUnlisted + 4;
constexpr int kEmail = kFirstUnlisted + 5;
constexpr int kRegistration = kFirstUnlisted + 6;

std::vector<GridRow> SupplierRows(Business& business) {
  std::vector<GridRow> rows;
  for (const SupplierForm& supplier : ListSuppliers(business))
    rows.push_back(
        {{supplier.name, *supplier.supplierId, supplier.contactName, supplier.phone,
          supplier.paymentType, supplier.glAccountId, supplier.streetNumber, supplier.street,
          supplier.suburb, supplier.postCode, supplier.fax, supplier.email, supplier.abn}});
  return rows;
}

std::vector<GridColumn> SupplierColumns() {
  std::vector<GridColumn> columns = {{QObject::tr("Supplier"), ColumnKind::StrongText, 208},
                                     {{}, ColumnKind::HiddenId},
                                     {QObject::tr("Contact"), ColumnKind::Text, 136},
                                     {QObject::tr("Phone"), ColumnKind::Text, 112},
                                     {QObject::tr("Pays by"), ColumnKind::Text, 112}};
  while (columns.size() <= kRegistration) columns.push_back({{}, ColumnKind::HiddenId});
  return columns;
}

std::vector<RecordField> SupplierFields(Business& business) {
  const auto words = [&business](QStringList (*list)(Business&)) {
    return [&business, list](QComboBox* combo) { FillComboWithWords(combo, list(business)); };
  };
  const auto suburbs = [](Business& of) { return clients::ListSuburbChoices(of).suburbs; };
  const auto postCodes = [](Business& of) { return clients::ListSuburbChoices(of).postCodes; };
  return {
      {"txtSupplierName", "name", QObject::tr("Su&pplier"), FieldKind::Text, kSupplierName, 100},
      {"txtContactName", "contactName", QObject::tr("Con&tact"), FieldKind::Text, kSupplierContact,
       50},
      {"txtPhone", "phone", QObject::tr("Phone"), FieldKind::Text, kSupplierPhone, 20, {}, true},
      {"txtStreetNumber", "streetNumber", QObject::tr("Street no."), FieldKind::Text, kStreetNumber,
       20},
      {"txtStreet", "street", QObject::tr("Street"), FieldKind::Text, kStreet, 50, {}, true},
      {"cmbSuburb", "suburb", QObject::tr("Subur&b"), FieldKind::Words, kSuburb, 50,
       words(suburbs)},
      {"cmbPostCode", "postCode", QObject::tr("Post code"), FieldKind::Words, kPostCode, 10,
       words(postCodes), true},
      {"txtFax", "fax", QObject::tr("Fa&x"), FieldKind::Text, kFax, 20},
      {"txtEmail", "email", QObject::tr("Ema&il"), FieldKind::Text, kEmail, 100, {}, true},
      {"txtABN",
       "abn",
       SupplierRegistrationLabel(business),
       FieldKind::Text,
       kRegistration,
       20,
       {},
       false,
       "lblRegLabel"},
      {"cmbPaymentType", "paymentType", QObject::tr("Pa&yment method"), FieldKind::Words,
       kSupplierMethod, 20, words(billing::ListPaymentMethodWords), true},
      {"cmbGLAccount", "glAccountId", QObject::tr("Default led&ger account"), FieldKind::Choice,
       kAccountKey, 0, [&business](QComboBox* combo) {
         FillCombo(combo, lists::ListExpenseAccountChoices(business));
       }}};
}

SupplierForm SupplierFormOf(std::optional<qint64> key, const RecordFields& fields) {
  return {.supplierId = IdFrom<Supplier>(key),
          .name = fields.Text("txtSupplierName"),
          .contactName = fields.Text("txtContactName"),
          .streetNumber = fields.Text("txtStreetNumber"),
          .street = fields.Text("txtStreet"),
          .suburb = fields.Text("cmbSuburb"),
          .postCode = fields.Text("cmbPostCode"),
          .phone = fields.Text("txtPhone"),
          .fax = fields.Text("txtFax"),
          .email = fields.Text("txtEmail"),
          .abn = fields.Text("txtABN"),
          .paymentType = fields.Text("cmbPaymentType"),
          .glAccountId = fields.Choice<Account>("cmbGLAccount")};
}

RecordList SuppliersList(Business& business) {
  const auto save = [&business](std::optional<qint64> key, const RecordFields& fields) {
    SupplierForm form = SupplierFormOf(key, fields);
    return SaveSupplierDetails(business, form);
  };
  return {
      .name = "frmSuppliers",
      .title = QObject::tr("Suppliers"),
      .gridName = QStringLiteral("grdSuppliers"),
      .emptyWhat = QObject::tr("There are no suppliers yet."),
      .emptyNext = QObject::tr("Fill in a supplier and its ledger account, and add it."),
      .shows = {"Suppliers", "Purchases"},
      .columns = SupplierColumns(),
      .fields = SupplierFields(business),
      .load = [&business] { return SupplierRows(business); },
      .insert = [save](const RecordFields& fields) { return save(std::nullopt, fields); },
      .update = [save](std::optional<qint64> key,
                       const RecordFields& fields) -> std::optional<Refusal> {
        if (!key) return Refusal{QStringLiteral("Please choose a record to update."), {}};
        return save(key, fields);
      },
      .remove =
          [&business](std::optional<qint64> key) {
            return RemoveSupplier(business, business.World().prompter, IdFrom<Supplier>(key));
          },
      .insertCommand = {"cmdAdd", QObject::tr("Add as ne&w")},
      .deleteCommand = {"cmdRemove", QObject::tr("Remo&ve…")},
  };
}

}  // namespace

frmSuppliers::frmSuppliers(Business& business, const ScreenTools& tools)
    : RecordListScreen(SuppliersList(business), tools, business.World()),
      business_(business),
      tools_(tools) {
  MakePreviousPurchases();
  cmdAddPurchase = MakeButton("cmdAddPurchase", tr("Add purchase…"));
  AddCommand(cmdAddPurchase);
  cmdMore = MakeButton("cmdMore", tr("&More..."));
  cmdMore->setToolTip(tr("What was bought from the supplier before"));
  AddCommand(cmdMore);
  connect(cmdMore, &QPushButton::clicked, this, &frmSuppliers::ToggleMore);
  tools_.runner.OnClick(cmdAddPurchase, objectName(), [this] { AddPurchaseOfChosen(); });
  const auto show = [this] {
    tools_.runner.Run(objectName(), QStringLiteral("LoadPreviousPurchases"),
                      [this] { ShowPreviousPurchases(); });
  };
  connect(List(), &Grid::selectedRowChanged, this, show);
  connect(this, &RecordListScreen::loaded, this, show);
  connect(grdPreviousPurchases, &Grid::rowOpened, this, [this](int row) {
    tools_.runner.Run(objectName(), QStringLiteral("grdPreviousPurchases_DblClick"), [this, row] {
      tools_.navigator.Open(ViewPurchase{grdPreviousPurchases->IdAt<Purchase>(row)});
    });
  });
}

void frmSuppliers::MakePreviousPurchases() {
  grdPreviousPurchases = new Grid(QStringLiteral("grdPreviousPurchases"));
  grdPreviousPurchases->SetColumns({{tr("Date"), ColumnKind::Date, 104},
                                    {{}, ColumnKind::HiddenId},
                                    {tr("Item purchased"), ColumnKind::StrongText, 240},
                                    {tr("Amount"), ColumnKind::Money, 104}});
  grdPreviousPurchases->SetEmptyText(tr("Nothing was bought there yet."),
                                     tr("Choose a supplier to see its purchases."));
  grdPreviousPurchases->setMinimumHeight(104);
  fraPreviousPurchases = new QWidget;
  fraPreviousPurchases->setObjectName(QStringLiteral("fraPreviousPurchases"));
  auto* column = new QVBoxLayout(fraPreviousPurchases);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addWidget(MakeLabelFor(grdPreviousPurchases, tr("Previous purchases")));
  column->addWidget(grdPreviousPurchases, 1);
  fraPreviousPurchases->hide();
  AddBelowList(fraPreviousPurchases);
}

void frmSuppliers::ShowPreviousPurchases() {
  if (fraPreviousPurchases->isHidden()) return;
  std::vector<GridRow> rows;
  if (const auto supplier = IdFrom<Supplier>(ChosenKey()))
    for (const PreviousPurchase& purchase : ListPurchasesOf(business_, *supplier))
      rows.push_back(
          {{purchase.purchaseDate, purchase.purchase, purchase.description, purchase.amount}});
  grdPreviousPurchases->SetRows(std::move(rows));
}

void frmSuppliers::ToggleMore() {
  const bool show = fraPreviousPurchases->isHidden();
  fraPreviousPurchases->setVisible(show);
  cmdMore->setText(show ? tr("&Less...") : tr("&More..."));
  tools_.runner.Run(objectName(), QStringLiteral("cmdMore_Click"),
                    [this] { ShowPreviousPurchases(); });
}

void frmSuppliers::AddPurchaseOfChosen() {
  tools_.navigator.Open(AddPurchase{IdFrom<Supplier>(ChosenKey())});
  Reload();
}

void frmSuppliers::LetChoose() {
  cmdAddPurchase->hide();
  connect(List(), &Grid::rowOpened, this, [this](int row) { emit chosen(List()->Key(row)); });
}

std::optional<Id<Supplier>> PickSupplierFromList(Business& business, const ScreenTools& tools) {
  auto* list = new frmSuppliers(business, tools);
  list->LetChoose();
  ScreenDialog dialog(list);
  std::optional<Id<Supplier>> picked;
  QObject::connect(list, &frmSuppliers::chosen, &dialog, [&](qint64 supplier) {
    picked = Id<Supplier>(supplier);
    dialog.done(QDialog::Accepted);
  });
  dialog.exec();
  return picked;
}

}  // namespace quillary::accounts
