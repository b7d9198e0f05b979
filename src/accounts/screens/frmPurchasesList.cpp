#include "accounts/screens/frmPurchasesList.h"

#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Documents.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"
#include "kit/ShownList.h"

namespace quillary::accounts {

namespace {

std::vector<GridColumn> PurchaseColumns(const QString& taxName) {
  return {{QObject::tr("Date"), ColumnKind::Date, 104},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Supplier"), ColumnKind::Text, 168},
          {QObject::tr("Item"), ColumnKind::StrongText, 184},
          {QObject::tr("Amount"), ColumnKind::Money, 96},
          {QObject::tr("%1 inc.").arg(taxName), ColumnKind::Money, 88},
          {QObject::tr("Method"), ColumnKind::Text, 112},
          {QObject::tr("Account"), ColumnKind::Text, 160},
          {QObject::tr("Booked"), ColumnKind::Money, 96},
          {QObject::tr("%1 booked").arg(taxName), ColumnKind::Money, 96}};
}

GridRow RowOfPurchase(const PurchaseRow& purchase) {
  GridRow row;
  row.cells = {purchase.purchaseDate,  purchase.purchase,    purchase.supplierName,
               purchase.description,   purchase.amount,      purchase.gst,
               purchase.paymentMethod, purchase.accountName, purchase.glAmount,
               purchase.glGst};
  if (purchase.IsMismatch()) {
    row.hue = Hue::Yellow;
    row.note = QObject::tr("The purchase and the accounts it is booked to differ by %1.")
                   .arg((purchase.amount - purchase.glAmount).ToCurrencyText());
  }
  return row;
}

}  // namespace

frmPurchasesList::frmPurchasesList(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmPurchasesList"), QStringLiteral("Purchases made")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(grdPurchases);
}

void frmPurchasesList::MakeControls() {
  dtpFrom = Named(new DateField(business_.Today()), "dtpFrom");
  dtpTo = Named(new DateField(business_.Today()), "dtpTo");
  for (DateField* field : {dtpFrom, dtpTo}) field->ShowWeekday(false);
  cmdShow = MakeButton("cmdShow", tr("Sho&w"), ButtonKind::Plain, "view-refresh");
  cmdShow->setToolTip(tr("Loads the list again (F5)"));
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdPurchases = new Grid(QStringLiteral("grdPurchases"));
  grdPurchases->setAccessibleName(tr("Purchases of the period"));
  grdPurchases->SetColumns(PurchaseColumns(business_.values.taxName));
  grdPurchases->SetEmptyText(tr("Nothing was bought in this time."),
                             tr("Choose other dates, or add a purchase."));
  grdPurchases->RememberIn(business_.World().settings);
  grdPurchases->FilterBy(txtFilter);
  grdPurchases->setMinimumHeight(120);
  const auto figure = [](const char* name, const QString& heardAs) {
    return Named(MakeLabel("", {}, LabelRole::Figure), name, heardAs);
  };
  txtTotalAmount = figure("txtTotalAmount", tr("Amount of all purchases"));
  txtTotalGST = figure("txtTotalGST", tr("Tax in all purchases"));
  cmdDeletePurchase = MakeButton("cmdDeletePurchase", tr("De&lete purchase…"), ButtonKind::Danger);
  cmdPrintPurchases =
      MakeButton("cmdPrintPurchases", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
  cmdAddPurchase = MakeButton("cmdAddPurchase", tr("Add p&urchase…"));
  cmdAddPurchase->setToolTip(tr("Ctrl+N"));
  cmdViewPurchase = MakeButton("cmdViewPurchase", tr("&View purchase…"), ButtonKind::Main);
}

void frmPurchasesList::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(ChoiceLine());
  column->addWidget(grdPurchases, 1);
  column->addWidget(MakeLabel("lblLegend",
                              QStringLiteral("Yellow - Amount/GST doesn't match with Account "
                                             "amount/GST"),
                              LabelRole::Hint));
  column->addLayout(TotalsLine());
  column->addLayout(CommandLine());
}

QLayout* frmPurchasesList::ChoiceLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabelFor(dtpFrom, tr("Purchases fro&m")), dtpFrom,
                    MakeLabelFor(dtpTo, tr("&to")), dtpTo});
  line->AddWidgets({txtFilter, cmdShow}, Qt::AlignRight);
  return line;
}

QLayout* frmPurchasesList::TotalsLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabel("lblTotalAmount", tr("Total"), LabelRole::Muted), txtTotalAmount});
  line->AddWidgets({MakeLabel("lblTotalGST", tr("    with %1 of").arg(business_.values.taxName),
                              LabelRole::Muted),
                    txtTotalGST});
  return line;
}

QLayout* frmPurchasesList::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdDeletePurchase, cmdPrintPurchases});
  line->AddWidgets({cmdClose, cmdAddPurchase, cmdViewPurchase}, Qt::AlignRight);
  return line;
}

void frmPurchasesList::ConnectControls() {
  const auto on = [this](QPushButton* button, void (frmPurchasesList::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdShow, &frmPurchasesList::LoadPurchases);
  on(cmdAddPurchase, &frmPurchasesList::Add);
  on(cmdViewPurchase, &frmPurchasesList::View);
  on(cmdDeletePurchase, &frmPurchasesList::DeleteSelected);
  tools_.runner.OnClick(cmdPrintPurchases, objectName(),
                        [this] { tools_.navigator.Open(ShownList(windowTitle(), grdPurchases)); });
  cmdPrintPurchases->setEnabled(tools_.navigator.CanOpen<PrintList>());
  AddShortcut(this, QKeySequence::New, cmdAddPurchase);
  for (DateField* field : {dtpFrom, dtpTo})
    connect(field, &DateField::dateChosen, this, &frmPurchasesList::LoadPurchases);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdPurchases, &Grid::rowOpened, cmdViewPurchase, &QPushButton::click);
}

void frmPurchasesList::ShowYourself() {
  const QDate today = business_.Today();
  dtpFrom->SetDate(QDate(today.year(), today.month(), 1));
  dtpTo->SetDate(QDate(today.year(), today.month(), today.daysInMonth()));
  LoadPurchases();
  grdPurchases->setFocus();
}

void frmPurchasesList::LoadPurchases() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadPurchases"), [this] {
    Show(quillary::accounts::LoadPurchases(business_, {dtpFrom->Date(), dtpTo->Date()}));
  });
}

void frmPurchasesList::Show(PurchasesList list) {
  const auto kept = grdPurchases->SelectedId<Purchase>();
  list_ = std::move(list);
  std::vector<GridRow> rows;
  for (const PurchaseRow& purchase : list_.rows) rows.push_back(RowOfPurchase(purchase));
  grdPurchases->SetRows(std::move(rows));
  if (!kept || !grdPurchases->SelectId(*kept)) grdPurchases->SelectFirst();
  txtTotalAmount->setText(list_.totalAmount.ToCurrencyText());
  txtTotalGST->setText(list_.totalGST.ToCurrencyText());
}

const PurchaseRow* frmPurchasesList::Selected() const {
  const auto row = grdPurchases->SelectedRow();
  return row ? &list_.rows[static_cast<size_t>(*row)] : nullptr;
}

void frmPurchasesList::Add() {
  tools_.navigator.Open(AddPurchase{});
  LoadPurchases();
}

void frmPurchasesList::View() {
  const PurchaseRow* purchase = Selected();
  if (!Accepted(business_.World().prompter, this, CheckPurchaseChosen(purchase))) return;
  tools_.navigator.Open(ViewPurchase{purchase->purchase});
  LoadPurchases();
}

void frmPurchasesList::DeleteSelected() {
  Prompter& prompter = business_.World().prompter;
  if (Accepted(prompter, this, DeletePurchase(business_, prompter, Selected()))) LoadPurchases();
}

}  // namespace quillary::accounts
