#include "balances/ClientBalance.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"
#include "diary/DiaryCommands.h"
#include "diary/OpenEntry.h"
#include "diary/screens/frmDiary.h"

/// The diary's commands. Those that open another screen ask the navigator for it.
namespace quillary::diary {

void frmDiary::ConnectCommands() {
  const auto on = [this](QPushButton* button, void (frmDiary::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdEditJob, &frmDiary::EditSelected);
  on(cmdClientDetails, &frmDiary::OpenClientOfSelected);
  on(cmdCreateInvoice, &frmDiary::CreateInvoiceForSelected);
  on(cmdViewCreatePayment, &frmDiary::PayForSelected);
  on(cmdDonePaid, &frmDiary::PayAndMarkDone);
  on(cmdNext, &frmDiary::RescheduleSelected);
  on(cmdPrint, &frmDiary::PrintSheet);
  on(cmdPrintDailyTotals, &frmDiary::PrintTotals);
  tools_.runner.OnClick(cmdCancelled, objectName(), [this] {
    ChangeSelected([this](const DiaryRow& job) { CancelJob(business_, job.entry); });
  });
  tools_.runner.OnClick(cmdDoneUnPaid, objectName(), [this] {
    ChangeSelected([this](const DiaryRow& job) {
      MarkDoneUnpaid(business_, business_.World().prompter, job.entry);
    });
  });
  tools_.runner.OnClick(cmdShowSuburbDefinition, objectName(), [this] {
    tools_.navigator.Open(EditSuburbPositions{});
    LoadScheduleGrid();
  });
  connect(grdSchedule, &Grid::selectedRowChanged, this, &frmDiary::EnableEditJob);
  connect(grdSchedule, &Grid::rowOpened, this, [this] {
    if (cmdEditJob->isEnabled()) cmdEditJob->click();
  });
}

void frmDiary::EnableCommands() {
  const Navigator& to = tools_.navigator;
  EnableEditJob();
  cmdClientDetails->setEnabled(to.CanOpen<OpenClient>());
  cmdCreateInvoice->setEnabled(to.CanOpen<ChooseInvoiceFor>());
  cmdViewCreatePayment->setEnabled(to.CanOpen<PayForJob>());
  cmdDonePaid->setEnabled(to.CanOpen<PayForJob>());
  cmdNext->setEnabled(to.CanOpen<RescheduleFutureJobs>());
  cmdPrint->setEnabled(to.CanOpen<PrintWorkSheet>());
  cmdPrintDailyTotals->setEnabled(to.CanOpen<PrintDailyTotals>());
  cmdShowSuburbDefinition->setEnabled(to.CanOpen<EditSuburbPositions>());
}

void frmDiary::EnableEditJob() {
  const DiaryRow* job = FindSelected();
  const Navigator& to = tools_.navigator;
  cmdEditJob->setEnabled(job ? CanOpenEntry(to, job->status) : to.CanOpen<EditJob>());
}

void frmDiary::EditSelected() {
  const DiaryRow* job = SelectedJob();
  if (!job) return;
  OpenEntry(tools_.navigator, job->status, job->entry);
  LoadScheduleGrid();
}

void frmDiary::OpenClientOfSelected() {
  if (const DiaryRow* job = SelectedJob()) tools_.navigator.Open(OpenClient{job->client});
}

void frmDiary::CreateInvoiceForSelected() {
  const DiaryRow* job = SelectedJob();
  if (!job) return;
  const QDate day = optShowJobsOn->isChecked() ? dtJobDate->Date() : job->scheduleDate;
  tools_.navigator.Open(ChooseInvoiceFor{job->payer, job->entry, DateRange::Of(day)});
  LoadScheduleGrid();
}

void frmDiary::PayForSelected() {
  const DiaryRow* job = SelectedJob();
  if (!job) return;
  if (job->payment)
    tools_.navigator.Open(ViewPayment{*job->payment});
  else
    tools_.navigator.Open(PayForJob{job->payer, job->entry, job->totalPrice});
  LoadScheduleGrid();
}

void frmDiary::PayAndMarkDone() {
  ChangeSelected([this](const DiaryRow& job) {
    tools_.navigator.Open(PayForJob{job.payer, job.entry, job.totalPrice});
  });
}

void frmDiary::RescheduleSelected() {
  const DiaryRow* selected = SelectedJob();
  if (!selected) return;
  const DiaryRow job = *selected;
  OfferToCancelJob(business_, business_.World().prompter, job.entry);
  tools_.navigator.Open(RescheduleFutureJobs{job.client});
  LoadScheduleGrid();
}

void frmDiary::PrintSheet() {
  if (const DiaryRow* job = FindSelected())
    balances::RecalculateClientBalance(business_, job->payer);
  if (const auto query = Query())
    tools_.navigator.Open(PrintWorkSheet{query->days, query->employee, query->bySuburbPosition});
}

void frmDiary::PrintTotals() {
  tools_.navigator.Open(PrintDailyTotals{Days()});
}

}  // namespace quillary::diary
