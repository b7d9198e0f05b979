#include "billing/screens/frmPayments.h"

#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/SplitLines.h"

#include <QCheckBox>
#include <QPlainTextEdit>

/// What the payment screen shows and stores.
namespace quillary::billing {

namespace {

/// Picks the entry of those words, whatever their case; words that the list lacks stay to be seen.
void ShowWords(ComboSearch* combo, const QString& words) {
  const int at = words.isEmpty() ? -1 : combo->findText(words, Qt::MatchFixedString);
  combo->SelectComboItem(at < 0 ? QVariant() : combo->itemData(at));
  if (at < 0) combo->setEditText(words);
}

}  // namespace

frmPayments::frmPayments(Business& business, const ScreenTools& tools,
                         const std::optional<PaymentForm>& payment)
    : Dialog("frmPayments", tr("Payment"), business.World().prompter),
      business_(business),
      tools_(tools),
      form_(payment.value_or(BlankPayment(business))),
      exists_(payment.has_value()) {
  MakeControls();
  LayOut();
  state_.Watch({cmbClient, dtpPaymentDate, txtAmount, txtGST, chkTaxExempt, cmbPaymentMethod,
                txtChequeNumber, cmbBank, txtBankBranch, txtBankAccountName, txtNotes,
                chkMarkInvoiceAsPaid});
  ConnectFields();
  ConnectCommands();
  tools_.runner.Run(objectName(), QStringLiteral("ShowPayment"), [this] {
    FillLists();
    ShowPayment();
    LoadAccounts();
    if (!exists_) ShowMissing();
  });
}

void frmPayments::FillLists() {
  FillCombo(cmbClient, ListPayerChoices(business_, form_.IsNew() ? std::nullopt : form_.clientId));
  FillMethods();
  FillComboWithWords(cmbBank, ListBankNames(business_));
  lines_->FillAccounts(lists::ListRevenueAccountChoices(business_));
}

void frmPayments::FillMethods() {
  FillComboWithWords(cmbPaymentMethod, ListPaymentMethodWords(business_));
}

void frmPayments::ShowPayment() {
  ShowPaymentID();
  SelectComboItem(cmbClient, form_.clientId ? QVariant(form_.clientId->Number()) : QVariant());
  dtpPaymentDate->SetDate(form_.paymentDate);
  txtAmount->SetAmount(form_.amount);
  txtGST->SetAmount(form_.gst);
  chkTaxExempt->setChecked(form_.taxExempt);
  ShowMethod(form_.paymentMethod);
  txtChequeNumber->setText(form_.chequeNumber);
  ShowBank(form_.bank);
  txtBankBranch->setText(form_.bankBranch);
  txtBankAccountName->setText(form_.bankAccountName);
  txtNotes->setPlainText(form_.description);
  fraJobsBeingPaidFor->setVisible(!form_.forJob);
  state_.ClearDataChanged();
  ShowJobs();
}

void frmPayments::ShowPaymentID() {
  setWindowTitle(form_.IsNew() ? tr("New payment") : tr("Payment"));
  lblPaymentID->setText(form_.IsNew() ? tr("New payment") : tr("Payment no."));
  txtPaymentID->setText(form_.IsNew() ? QString() : QString::number(form_.paymentId->Number()));
}

void frmPayments::ShowMethod(const QString& word) {
  ShowWords(cmbPaymentMethod, word);
  fraCheque->setVisible(IsPaidByCheque(cmbPaymentMethod->currentText()));
}

void frmPayments::ShowBank(const QString& name) {
  ShowWords(cmbBank, name);
}

void frmPayments::TakeHabits() {
  const auto client = ComboId<Client>(cmbClient);
  if (!form_.IsNew() || !client) return;
  const PaymentHabits habits = HabitsOf(business_, *client);
  ShowMethod(habits.paymentMethod);
  ShowBank(habits.bank);
  txtBankBranch->setText(habits.bankBranch);
  txtBankAccountName->setText(habits.bankAccountName);
}

void frmPayments::ShowTax() {
  txtGST->SetAmount(TaxWithin(business_, txtAmount->Amount(), chkTaxExempt->isChecked()));
}

void frmPayments::ShowJobs() {
  const PaidServices services =
      form_.paymentId ? LoadPaidServices(business_, *form_.paymentId) : PaidServices();
  std::vector<GridRow> rows;
  for (const PaidService& service : services.rows)
    rows.push_back({{service.scheduleDate, service.diaryId, service.service, service.accountName,
                     service.invoiceNumber, service.price}});
  grdJobsPaidFor->SetRows(std::move(rows));
  txtTotal->setText(tr("Total = %1").arg(services.total.ToCurrencyText()));
}

void frmPayments::ShowMissing() {
  lblCaption->setText(QStringLiteral("PAYMENT RECORD DOESN'T EXIST!"));
  lblCaption->show();
  lblPaymentID->hide();
  setWindowTitle(lblCaption->text());
  for (QWidget* widget : findChildren<QWidget*>())
    if (widget->focusPolicy() != Qt::NoFocus && widget != cmdCancel) widget->setEnabled(false);
  cmdCancel->setFocus();
}

void frmPayments::LoadAccounts() {
  std::vector<SplitLine> lines;
  if (form_.paymentId)
    for (const LedgerLine& line : quillary::billing::LoadAccounts(business_, *form_.paymentId).rows)
      lines.push_back(
          {line.glEntryId.Number(), line.accountName, line.glAccountId, line.amount, line.gst});
  lines_->Show(std::move(lines));
}

PaymentForm frmPayments::Typed() const {
  PaymentForm form = form_;
  form.clientId = ComboId<Client>(cmbClient);
  form.amount = txtAmount->Amount();
  form.gst = txtGST->Amount();
  form.taxExempt = chkTaxExempt->isChecked();
  form.paymentDate = dtpPaymentDate->Date();
  form.paymentMethod = ComboKey(cmbPaymentMethod) ? cmbPaymentMethod->currentText() : QString();
  form.chequeNumber = txtChequeNumber->text();
  form.bank = cmbBank->currentText();
  form.bankBranch = txtBankBranch->text();
  form.bankAccountName = txtBankAccountName->text();
  form.description = txtNotes->toPlainText();
  form.markInvoicesAsPaid = chkMarkInvoiceAsPaid->isChecked();
  return form;
}

bool frmPayments::IsDataChanged() const {
  return exists_ && (jobsChanged_ || state_.IsDataChanged() || lines_->IsDataChanged());
}

bool frmPayments::SavePaymentDetails() {
  PaymentForm form = Typed();
  if (!IsAccepted(quillary::billing::SavePaymentDetails(business_, form))) return false;
  form_ = form;
  saved_ = true;
  jobsChanged_ = false;
  ShowPaymentID();
  state_.ClearDataChanged();
  ShowJobs();
  return true;
}

bool frmPayments::HasItsJobs() {
  if (!RequiresJobs(business_, *form_.paymentId)) return true;
  business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(kRequiresJobs));
  tools_.navigator.Open(AllocatePayment{*form_.paymentId});
  fraJobsBeingPaidFor->show();  // what was ticked is to be seen, however the screen was opened
  ShowJobs();
  return false;
}

void frmPayments::reject() {
  bool mayLeave = false;
  const bool ran = tools_.runner.Run(objectName(), QStringLiteral("cmdCancel_Click"), [&] {
    mayLeave = (form_.IsNew() || HasItsJobs()) && MayLeave();
  });
  // A screen that cannot even ask must not hold its user.
  if (mayLeave || !ran) Close(saved_ ? Accepted : Rejected);
}

void frmPayments::ChangeJobsPaidFor() {
  if (!SavePaymentDetails()) return;
  tools_.navigator.Open(AllocatePayment{*form_.paymentId});
  ShowJobs();
  jobsChanged_ = true;
}

void frmPayments::OpenPickedJob() {
  const auto row = grdJobsPaidFor->SelectedRow();
  if (!row || !tools_.navigator.CanOpen<EditJob>()) return;
  tools_.navigator.Open(EditJob{grdJobsPaidFor->IdAt<Entry>(*row)});
  ShowJobs();
}

void frmPayments::StoreLine(SaveLedgerLine as) {
  const LedgerLineForm line{.glEntryId = IdFrom<LedgerEntry>(lines_->PickedKey()),
                            .glAccountId = lines_->TypedAccount(),
                            .amount = lines_->TypedAmount(),
                            .gst = lines_->TypedTax()};
  if (!IsAccepted(CheckRevenueAccount(business_, line))) return;
  if (form_.IsNew() && !SavePaymentDetails()) {
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(kPaymentNotSaved));
    return;
  }
  if (!IsAccepted(SaveAccount(business_, *form_.paymentId, line, as))) return;
  LoadAccounts();
  lines_->FocusAccount();
}

void frmPayments::RemoveLine() {
  if (!IsAccepted(RemoveAccount(business_, IdFrom<LedgerEntry>(lines_->PickedKey())))) return;
  LoadAccounts();
  lines_->FocusList();
}

void frmPayments::ConnectFields() {
  connect(cmbClient, &ComboSearch::picked, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("cmbClient_Click"), [this] { TakeHabits(); });
  });
  connect(txtAmount, &CurrencyField::amountChosen, this, &frmPayments::ShowTax);
  connect(chkTaxExempt, &QCheckBox::clicked, this, &frmPayments::ShowTax);
  lines_->TakeTaxFrom(
      [this](Money amount) { return TaxWithin(business_, amount, chkTaxExempt->isChecked()); });
  connect(cmbPaymentMethod, &QComboBox::currentTextChanged, this,
          [this](const QString& word) { fraCheque->setVisible(IsPaidByCheque(word)); });
}

void frmPayments::ConnectCommands() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdShowPaymentMethods, [this] {
    const QString word = cmbPaymentMethod->currentText();
    tools_.navigator.Open(OpenPaymentMethods{});
    FillMethods();
    ShowMethod(word);
  });
  on(cmdChangeJobsPaidFor, [this] { ChangeJobsPaidFor(); });
  lines_->RunCommands(tools_.runner, objectName(),
                      {[this] { StoreLine(SaveLedgerLine::AsNew); },
                       [this] { StoreLine(SaveLedgerLine::Picked); }, [this] { RemoveLine(); }});
  on(cmdSaveOnly, [this] {
    if (SavePaymentDetails()) Close(Accepted);
  });
  on(cmdSave, [this] {
    // A line may be typed and not stored.
    if (SavePaymentDetails() && HasItsJobs() && MayLeave()) Close(Accepted);
  });
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(grdJobsPaidFor, &Grid::rowOpened, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("grdJobsPaidFor_DblClick"),
                      [this] { OpenPickedJob(); });
  });
}

}  // namespace quillary::billing
