#include "accounts/screens/frmPurchase.h"

#include "accounts/purchases/Suppliers.h"
#include "accounts/screens/ReceiptsFrame.h"
#include "base/ports/requests/Accounts.h"
#include "billing/payments/PaymentRecord.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/SplitLines.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>

/// What the purchase screen shows and stores.
namespace quillary::accounts {

namespace {

/// Picks the entry of those words, whatever their case; words that the list lacks stay to be seen.
void ShowWordsIn(ComboSearch* combo, const QString& words) {
  const int at = words.isEmpty() ? -1 : combo->findText(words, Qt::MatchFixedString);
  combo->SelectComboItem(at < 0 ? QVariant() : combo->itemData(at));
  if (at < 0) combo->setEditText(words);
}

std::optional<double> PercentageFrom(const QString& text) {
  bool isNumber = false;
  const double percent = text.trimmed().toDouble(&isNumber);
  return isNumber ? std::optional(percent) : std::nullopt;
}

}  // namespace

frmPurchase::frmPurchase(Business& business, const ScreenTools& tools, PurchaseForm purchase)
    : Dialog("frmPurchase", tr("Purchase"), business.World().prompter),
      business_(business),
      tools_(tools),
      form_(std::move(purchase)) {
  MakeControls();
  LayOut();
  state_.Watch({cmbSupplier, cmbItemPurchased, dtpPurchaseDate, txtCost, txtGST, chkTaxExempt,
                cmbPaymentMethod, txtChequeNumber, txtInvoiceNumber, txtNotes, chkCapital,
                txtSerialNumber, txtModel, txtDepreciation});
  ConnectFields();
  ConnectCommands();
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] {
    FillLists();
    ShowPurchase();
    LoadAccounts();
  });
}

void frmPurchase::FillLists() {
  FillSuppliers();
  FillComboWithWords(cmbPaymentMethod, billing::ListPaymentMethodWords(business_));
  lines_->FillAccounts(lists::ListExpenseAccountChoices(business_));
}

void frmPurchase::FillSuppliers() {
  FillCombo(cmbSupplier, ListSupplierChoices(business_));
}

void frmPurchase::ShowPurchase() {
  setWindowTitle(form_.IsNew() ? tr("New purchase") : tr("Purchase"));
  SelectComboItem(cmbSupplier, form_.supplierId);
  TakeSupplier();
  ShowWordsIn(cmbItemPurchased, form_.description);
  dtpPurchaseDate->SetDate(form_.purchaseDate);
  txtCost->SetAmount(form_.amount);
  txtGST->SetAmount(form_.gst);
  chkTaxExempt->setChecked(form_.taxExempt);
  ShowWordsIn(cmbPaymentMethod, form_.paymentMethod);
  txtChequeNumber->setText(form_.chequeNumber);
  txtInvoiceNumber->setText(form_.invoiceNumber);
  txtNotes->setPlainText(form_.notes);
  chkCapital->setChecked(form_.capital);
  txtSerialNumber->setText(form_.serialNumber);
  txtModel->setText(form_.model);
  txtDepreciation->setText(form_.depreciation ? QString::number(*form_.depreciation) : QString());
  lines_->SetWhole(form_.amount);
  DisplayChequeNumber();
  ShowCapital();
  receipts_->ShowReceiptsOf(form_.purchaseId);
  state_.ClearDataChanged();
}

void frmPurchase::LoadAccounts() {
  std::vector<SplitLine> lines;
  if (form_.purchaseId) {
    for (const billing::LedgerLine& line : billing::LoadAccounts(business_, *form_.purchaseId).rows)
      lines.push_back(
          {line.glEntryId.Number(), line.accountName, line.glAccountId, line.amount, line.gst});
  }
  lines_->Show(std::move(lines));
  if (form_.IsNew() && form_.supplierId)
    lines_->ProposeAccount(HabitsOf(business_, *form_.supplierId).glAccountId);
}

void frmPurchase::TakeSupplier() {
  const auto supplier = ComboId<Supplier>(cmbSupplier);
  const QString item = cmbItemPurchased->currentText();
  FillComboWithWords(cmbItemPurchased,
                     supplier ? ListItemsOf(business_, *supplier) : QStringList());
  ShowWordsIn(cmbItemPurchased, item);
  if (!form_.IsNew() || !supplier) return;
  const SupplierHabits habits = HabitsOf(business_, *supplier);
  lines_->ProposeAccount(habits.glAccountId);
  if (!habits.paymentMethod.isEmpty()) ShowWordsIn(cmbPaymentMethod, habits.paymentMethod);
  DisplayChequeNumber();
}

void frmPurchase::ShowTax() {
  txtGST->SetAmount(billing::TaxWithin(business_, txtCost->Amount(), chkTaxExempt->isChecked()));
}

void frmPurchase::DisplayChequeNumber() {
  const bool byCheque = billing::IsPaidByCheque(cmbPaymentMethod->currentText());
  lblChequeNumber->setVisible(byCheque);
  txtChequeNumber->setVisible(byCheque);
}

void frmPurchase::ShowCapital() {
  fraCapital->setVisible(chkCapital->isChecked());
}

PurchaseForm frmPurchase::Typed() const {
  PurchaseForm form = form_;
  form.supplierId = ComboId<Supplier>(cmbSupplier);
  form.description = cmbItemPurchased->currentText();
  form.amount = txtCost->Amount();
  form.gst = txtGST->Amount();
  form.taxExempt = chkTaxExempt->isChecked();
  form.purchaseDate = dtpPurchaseDate->Date();
  form.notes = txtNotes->toPlainText();
  form.invoiceNumber = txtInvoiceNumber->text();
  form.paymentMethod = cmbPaymentMethod->currentText();
  form.chequeNumber = txtChequeNumber->text();
  form.capital = chkCapital->isChecked();
  form.serialNumber = txtSerialNumber->text();
  form.model = txtModel->text();
  form.depreciation = PercentageFrom(txtDepreciation->text());
  return form;
}

bool frmPurchase::IsDataChanged() const {
  return state_.IsDataChanged() || lines_->IsDataChanged();
}

bool frmPurchase::SavePurchase() {
  PurchaseForm form = Typed();
  if (!IsAccepted(quillary::accounts::SavePurchase(business_, form))) return false;
  form_ = form;
  saved_ = true;
  setWindowTitle(tr("Purchase"));
  receipts_->ShowReceiptsOf(form_.purchaseId);
  state_.ClearDataChanged();
  return true;
}

bool frmPurchase::LinesMatch() {
  billing::LedgerLines lines;
  lines.totalAmount = lines_->Total();
  if (IsTotalEqual(lines, txtCost->Amount())) return true;
  business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(kLinesMustMatch));
  lines_->FocusAccount();
  return false;
}

void frmPurchase::reject() {
  bool mayLeave = false;
  const bool ran = tools_.runner.Run(objectName(), QStringLiteral("cmdClose_Click"), [&] {
    mayLeave = (form_.IsNew() || LinesMatch()) && MayLeave();
  });
  // A screen that cannot even ask must not hold its user.
  if (mayLeave || !ran) Close(saved_ ? Accepted : Rejected);
}

void frmPurchase::StoreLine(billing::SaveLedgerLine as) {
  const billing::LedgerLineForm line{.glEntryId = IdFrom<LedgerEntry>(lines_->PickedKey()),
                                     .glAccountId = lines_->TypedAccount(),
                                     .amount = lines_->TypedAmount(),
                                     .gst = lines_->TypedTax()};
  if (form_.IsNew() && !SavePurchase()) {
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(kPurchaseNotSaved));
    return;
  }
  if (!IsAccepted(billing::SaveAccount(business_, *form_.purchaseId, line, as))) return;
  LoadAccounts();
  lines_->FocusAccount();
}

void frmPurchase::RemoveLine() {
  if (!IsAccepted(billing::RemoveAccount(business_, IdFrom<LedgerEntry>(lines_->PickedKey()))))
    return;
  LoadAccounts();
  lines_->FocusList();
}

void frmPurchase::ShowSuppliers() {
  const auto before = ComboId<Supplier>(cmbSupplier);
  const auto picked = tools_.navigator.Open(PickSupplier{});
  FillSuppliers();
  SelectComboItem(cmbSupplier, picked ? picked : before);
  if (picked && picked != before) TakeSupplier();
  cmbSupplier->setFocus();
}

void frmPurchase::PasteCost() {
  const auto amount = Money::Parse(QGuiApplication::clipboard()->text());
  if (amount) lines_->ProposeAmount(*amount);
}

void frmPurchase::ConnectFields() {
  connect(cmbSupplier, &ComboSearch::picked, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("cmbSupplier_Click"),
                      [this] { TakeSupplier(); });
  });
  connect(txtCost, &CurrencyField::amountChosen, this, [this] {
    ShowTax();
    lines_->SetWhole(txtCost->Amount());
  });
  connect(txtCost, &CurrencyField::amountRefused, this, [this] {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please enter a valid amount."));
  });
  connect(chkTaxExempt, &QCheckBox::clicked, this, &frmPurchase::ShowTax);
  connect(chkCapital, &QCheckBox::clicked, this, [this](bool on) {
    ShowCapital();
    if (on) txtSerialNumber->setFocus();
  });
  connect(cmbPaymentMethod, &QComboBox::currentTextChanged, this,
          &frmPurchase::DisplayChequeNumber);
  lines_->TakeTaxFrom([this](Money amount) {
    return billing::TaxWithin(business_, amount, chkTaxExempt->isChecked());
  });
}

void frmPurchase::ConnectCommands() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdShowSuppliers, [this] { ShowSuppliers(); });
  on(cmdCopy, [this] { business_.World().desktop.CopyToClipboard(txtCost->text()); });
  on(cmdPast, [this] { PasteCost(); });
  lines_->RunCommands(
      tools_.runner, objectName(),
      {[this] { StoreLine(billing::SaveLedgerLine::AsNew); },
       [this] { StoreLine(billing::SaveLedgerLine::Picked); }, [this] { RemoveLine(); }});
  on(cmdSaveOnly, [this] {
    if (SavePurchase()) Close(Accepted);
  });
  on(cmdSave, [this] {
    if (LinesMatch() && SavePurchase() && MayLeave()) Close(Accepted);
  });
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
}

}  // namespace quillary::accounts
