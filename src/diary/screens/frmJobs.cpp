#include "diary/screens/frmJobs.h"

#include "base/ports/requests/Billing.h"
#include "domain/Payer.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "lists/Choices.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

/// What the job screen shows and stores.
namespace quillary::diary {

frmJobs::frmJobs(Business& business, const ScreenTools& tools, const Job& job)
    : Dialog("frmJobs", job.IsNew() ? tr("New job") : tr("Job"), business.World().prompter),
      business_(business),
      tools_(tools),
      job_(job) {
  MakeControls();
  LayOut();
  state_.Watch({cmbClient, dtpDate, cmbEmployee, cmbStatus, txtJobDescription, txtNotes});
  line_.Watch({cmbService, txtPrice});
  ConnectControls();
  tools_.runner.Run(objectName(), QStringLiteral("ShowJob"), [this] {
    FillCombo(cmbClient, lists::ListClientChoices(business_));
    FillCombo(cmbService, lists::ListServiceChoices(business_));
    FillCombo(cmbEmployee, lists::ListEmployeeChoices(business_));
    for (const EntryStatus status : kJobStatuses) cmbStatus->addItem(WordsOf(status));
    ShowJob();
    ShowServices();
  });
}

void frmJobs::ConnectControls() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdSetDescriptionBasedOnServices,
     [this] { txtJobDescription->setText(services_.Description()); });
  on(cmdExtraWork, [this] { StoreLine(SaveLine::AsNew); });
  on(cmdUpdate, [this] { StoreLine(SaveLine::Selected); });
  on(cmdRemoveService, [this] { RemoveLine(); });
  on(cmdAddPayment, [this] { Pay(); });
  on(cmdSaveOnly, [this] { SaveJob(); });
  on(cmdSaveAndClose, [this] {
    if (SaveJob() && MayLeave()) Close(Accepted);  // a line may be typed and not stored
  });
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  txtPrice->installEventFilter(this);
  cmbService->installEventFilter(this);  // the list keeps the focus, not its line
  connect(grdServices, &Grid::selectedRowChanged, this, &frmJobs::ShowSelectedLine);
}

bool frmJobs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return Dialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return Dialog::eventFilter(watched, event);
  // Enter stores the line that is being typed; it must not save and close over it.
  grdServices->setFocus();
  (grdServices->SelectedRow() ? cmdUpdate : cmdExtraWork)->click();
  return true;
}

bool frmJobs::IsDataChanged() const {
  return state_.IsDataChanged() || line_.IsDataChanged();
}

void frmJobs::ShowJob() {
  SelectComboItem(cmbClient, job_.client);
  SelectComboItem(cmbEmployee, job_.employee);
  cmbStatus->setCurrentIndex(job_.status ? cmbStatus->findText(WordsOf(*job_.status)) : -1);
  dtpDate->SetDate(job_.date);
  txtJobDescription->setText(job_.description);
  txtNotes->setPlainText(job_.notes);
  state_.ClearDataChanged();
  ShowBilling();
}

void frmJobs::ShowBilling() {
  const bool paid = job_.payment.has_value();
  lblHasBeenPaid->setVisible(paid);
  lblInvoice_ID->setText(job_.InvoiceWords());
  lblInvoice_ID->setVisible(!job_.InvoiceWords().isEmpty());
  cmdAddPayment->setText(paid ? QStringLiteral("View pa&yment") : QStringLiteral("Add pa&yment"));
  cmdAddPayment->setAccessibleName(PlainCaption(cmdAddPayment->text()));
  cmdAddPayment->setToolTip(paid ? QString() : QStringLiteral("Create payment for this job"));
  cmdAddPayment->setEnabled(paid ? tools_.navigator.CanOpen<ViewPayment>()
                                 : tools_.navigator.CanOpen<PayForJob>());
}

void frmJobs::ShowServices() {
  services_ = job_.entry ? LoadServices(business_, *job_.entry) : JobServices();
  std::vector<GridRow> rows;
  for (const JobService& line : services_.rows)
    rows.push_back({{line.serviceCode, line.line, line.price, line.accountName}});
  grdServices->SetRows(std::move(rows));
  lblServicesTotal->setText(services_.TotalWords());
  ShowSelectedLine();
}

void frmJobs::ShowSelectedLine() {
  const auto row = grdServices->SelectedRow();
  const JobService* line = row ? &services_.rows[static_cast<size_t>(*row)] : nullptr;
  SelectComboItem(cmbService, line ? line->service : std::nullopt);
  txtPrice->SetAmount(line ? line->price : Money());
  line_.ClearDataChanged();
}

Job frmJobs::Typed() const {
  Job job = job_;
  job.client = ComboId<Client>(cmbClient);
  job.date = dtpDate->Date();
  job.employee = ComboId<Employee>(cmbEmployee);
  const int status = cmbStatus->currentIndex();
  job.status = status < 0 ? std::nullopt : std::optional(kJobStatuses[static_cast<size_t>(status)]);
  job.description = txtJobDescription->text();
  job.notes = txtNotes->toPlainText();
  return job;
}

bool frmJobs::SaveJob() {
  Job job = Typed();
  if (!IsAccepted(quillary::diary::SaveJob(business_, job))) return false;
  job_ = job;
  state_.ClearDataChanged();
  return true;
}

void frmJobs::StoreLine(SaveLine as) {
  const JobServiceForm form{grdServices->SelectedId<EntryLine>(), ComboId<Service>(cmbService),
                            txtPrice->Amount()};
  const bool isNew = job_.IsNew();
  Job job = Typed();
  if (!IsAccepted(SaveService(business_, job, form, as))) return;
  if (isNew) {
    job_ = job;  // it was stored with its first line
    state_.ClearDataChanged();
  }
  ShowServices();
  if (as == SaveLine::Selected) grdServices->SelectId(*form.line);
  cmbService->setFocus();
}

void frmJobs::RemoveLine() {
  const auto line = grdServices->SelectedId<EntryLine>();
  if (!IsAccepted(RemoveService(business_, job_.entry, line))) return;
  ShowServices();
  grdServices->setFocus();
}

void frmJobs::Pay() {
  if (!SaveJob()) return;
  ShowStored();
  const Id<Entry> entry = *job_.entry;
  const auto payer = PayerOf(business_, entry);
  if (job_.payment)
    tools_.navigator.Open(ViewPayment{*job_.payment});
  else if (payer)
    // A job can have a price without a line.
    tools_.navigator.Open(PayForJob{*payer, entry, job_.totalPrice});
  ShowStored();
}

void frmJobs::ShowStored() {
  if (const auto stored = LoadJob(business_, *job_.entry)) job_ = *stored;
  ShowJob();
}

}  // namespace quillary::diary
