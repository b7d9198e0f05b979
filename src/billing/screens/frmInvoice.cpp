#include "billing/screens/frmInvoice.h"

#include "base/ports/requests/Documents.h"
#include "billing/invoices/InvoiceNumbers.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/screens/frmInvoiceNotesSelection.h"
#include "billing/screens/frmListOfJobs.h"
#include "diary/DiaryDay.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

/// What the invoice screen shows and stores.
namespace quillary::billing {

frmInvoice::frmInvoice(Business& business, const ScreenTools& tools, const InvoiceForm& form)
    : Dialog("frmInvoice", form.IsNew() ? tr("New invoice") : tr("Invoice"),
             business.World().prompter),
      business_(business),
      tools_(tools),
      form_(form) {
  MakeControls();
  LayOut();
  state_.Watch({cmdBilledClient, dtInvoiceDate, cmbType, txtInvoiceDescription, txtInvoiceNumber,
                txtMadeOutTo, txtInvoiceNotes, chkShowOutstanding, chkShowNextJobdate,
                chkInvoiceWithPastJobs, chkIsPaid, txtInvoiceAmount, txtGSTIncluded});
  ConnectControls();
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] { ShowInvoice(); });
}

void frmInvoice::ConnectControls() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdGetLastNumber, [this] { txtInvoiceNumber->setText(GetNextInvoiceNumber(business_)); });
  on(cmdShowInvoiceNotes, [this] { SelectNote(); });
  on(cmdShowListOfJobs, [this] { ShowListOfJobs(); });
  on(cmdRemoveJob, [this] { RemoveSelectedJob(); });
  on(cmdPrintInvoice, [this] { Print(); });
  on(cmdEmailInvoice, [this] { tools_.navigator.Open(EmailLastDocument{}); });
  on(cmdSave, [this] {
    if (Save()) Close(Accepted);
  });
  on(cmdSaveAndClose, [this] { SaveAndClose(); });
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(chkActiveClients, &QCheckBox::toggled, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("LoadClientsIntoCombo"),
                      [this] { LoadClientsIntoCombo(); });
  });
  connect(cmdBilledClient, &ComboSearch::picked, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("cmdBilledClient_Click"),
                      [this] { ClientChosen(); });
  });
}

void frmInvoice::LoadClientsIntoCombo() {
  const auto chosen = ComboId<Client>(cmdBilledClient);
  FillCombo(cmdBilledClient, ListBilledClients(business_,
                                               chkActiveClients->isChecked() ? BilledClients::Active
                                                                             : BilledClients::All,
                                               form_.clientId));
  cmdBilledClient->SelectComboItem(chosen ? QVariant(chosen->Number()) : QVariant());
  if (!ComboKey(cmdBilledClient)) cmdBilledClient->clearEditText();
}

void frmInvoice::ShowInvoice() {
  FillComboWithWords(cmbType, TypesOfInvoice());
  const auto client = form_.clientId ? LoadBilledClient(business_, *form_.clientId) : std::nullopt;
  {
    // Whoever is billed has to be in the list, or the invoice could not be saved again.
    const QSignalBlocker quiet(chkActiveClients);
    chkActiveClients->setChecked(!client || client->isListedAsActive);
  }
  LoadClientsIntoCombo();
  cmdBilledClient->SelectComboItem(form_.clientId ? QVariant(form_.clientId->Number())
                                                  : QVariant());
  lblOutstanding->setText(client ? client->OutstandingWords() : QString());
  ShowOptions();
  dtInvoiceDate->SetDate(form_.date);
  txtInvoiceDescription->setText(form_.description);
  txtMadeOutTo->setPlainText(form_.madeOutTo);
  txtInvoiceNumber->setText(form_.number);
  txtInvoiceNotes->setPlainText(form_.notes);
  cmbType->setCurrentIndex(static_cast<int>(TypesOfInvoice().indexOf(form_.statementType)));
  chkIsPaid->setChecked(form_.isPaid);
  LoadAttachedJobs();
  state_.ClearDataChanged();
}

void frmInvoice::ShowOptions() {
  chkShowOutstanding->setChecked(form_.options.showOutstanding);
  chkShowNextJobdate->setChecked(form_.options.showNextJob);
  chkInvoiceWithPastJobs->setChecked(form_.options.withUnpaidPastJobs);
}

void frmInvoice::ClientChosen() {
  const auto clientId = ComboId<Client>(cmdBilledClient);
  if (!clientId) {
    lblOutstanding->clear();
    return;
  }
  const auto client = ChooseBilledClient(business_, form_, *clientId);
  txtMadeOutTo->setPlainText(form_.madeOutTo);
  lblOutstanding->setText(client ? client->OutstandingWords() : QString());
  ShowOptions();
}

void frmInvoice::LoadAttachedJobs() {
  jobs_ = quillary::billing::LoadAttachedJobs(business_, form_);
  std::vector<GridRow> rows;
  for (const AttachedJob& job : jobs_.rows)
    rows.push_back(
        {{job.displayName, job.diaryId, job.description, job.scheduleDate, job.totalPrice,
          job.totalGST, GridCell(job.status, ListedWordsOf(job.status))}});
  fgJobs->SetRows(std::move(rows));
  txtInvoiceAmount->SetAmount(jobs_.totalAmount);
  txtGSTIncluded->SetAmount(jobs_.totalGST);
}

InvoiceForm frmInvoice::Typed() const {
  InvoiceForm form = form_;
  form.clientId = ComboId<Client>(cmdBilledClient);
  form.date = dtInvoiceDate->Date();
  form.number = txtInvoiceNumber->text();
  form.description = txtInvoiceDescription->text();
  form.madeOutTo = txtMadeOutTo->toPlainText();
  form.notes = txtInvoiceNotes->toPlainText();
  form.statementType = cmbType->currentText();
  form.isPaid = chkIsPaid->isChecked();
  form.totalAmount = txtInvoiceAmount->Amount();
  form.totalGST = txtGSTIncluded->Amount();
  form.options = {.showOutstanding = chkShowOutstanding->isChecked(),
                  .showNextJob = chkShowNextJobdate->isChecked(),
                  .withUnpaidPastJobs = chkInvoiceWithPastJobs->isChecked()};
  return form;
}

bool frmInvoice::Save() {
  InvoiceForm form = Typed();
  if (!IsAccepted(SaveInvoices(business_, form))) return false;
  form_ = form;
  wasSaved_ = true;
  state_.ClearDataChanged();
  return true;
}

void frmInvoice::SaveAndClose() {
  if (!Save()) return;
  if (!jobs_.rows.empty()) {
    Close(Accepted);
    return;
  }
  const Answer answer =
      business_.World().prompter.Ask(QStringLiteral("You did not attach a job to this invoice.\n\n"
                                                    "Do you want to attach a job first?"));
  if (answer == Answer::Yes)
    ShowListOfJobs();
  else
    Close(Accepted);
}

void frmInvoice::ShowListOfJobs() {
  const auto clientId = ComboId<Client>(cmdBilledClient);
  if (!clientId) {
    IsAccepted(Refusal{"Please select a client first.", "client"});
    return;
  }
  frmListOfJobs list(business_, tools_, form_.invoiceId, *clientId, form_.jobsToAttach);
  if (list.exec() != Accepted) return;
  if (form_.IsNew()) form_.jobsToAttach = list.Chosen();
  LoadAttachedJobs();
  fgJobs->SelectFirst();
}

void frmInvoice::RemoveSelectedJob() {
  if (!IsAccepted(RemoveJob(business_, form_, fgJobs->SelectedId<Entry>()))) return;
  LoadAttachedJobs();
  fgJobs->setFocus();
}

void frmInvoice::SelectNote() {
  frmInvoiceNotesSelection notes(business_, tools_);
  if (notes.exec() == Accepted && !notes.Note().trimmed().isEmpty())
    txtInvoiceNotes->setPlainText(notes.Note());
}

void frmInvoice::Print() {
  if (!IsAccepted(CheckInvoicePrint(jobs_.rows.size()))) {
    ShowListOfJobs();
    return;
  }
  if (!Save()) return;
  {
    const BusyWhile busy(business_.World().busy);
    PrepareInvoicePrint(business_);
  }
  tools_.navigator.Open(PrintInvoices{.invoices = {*form_.invoiceId},
                                      .fileNamePart = txtMadeOutTo->toPlainText(),
                                      .priceIncludesGST = !chkPriceExcludesGST->isChecked()});
  cmdEmailInvoice->setEnabled(tools_.navigator.CanOpen<EmailLastDocument>());
}

}  // namespace quillary::billing
