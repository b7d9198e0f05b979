#include "balances/ClientBalance.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"
#include "diary/DiaryCommands.h"
#include "diary/OpenEntry.h"
#include "diary/screens/DiaryGrid.h"
#include "diary/screens/dlgMoveTo.h"
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
  on(cmdMoveTo, &frmDiary::MoveMarked);
  using Change = bool (*)(Business&, Prompter&, const Entries&);
  for (const auto& [button, change] : {std::pair{cmdCancelled, Change(CancelEntries)},
                                       std::pair{cmdDoneUnPaid, Change(MarkEntriesDone)}}) {
    tools_.runner.OnClick(button, objectName(), [this, change = change] {
      ChangeMarked([&](const Entries& marked) {
        // What becomes of a quote is decided on its own screen.
        if (marked.size() == 1 && KindOf(marked.front().status) == EntryKind::Quote &&
            CanOpenEntry(tools_.navigator, marked.front().status)) {
          OpenEntry(tools_.navigator, marked.front().status, marked.front().entry);
          return true;
        }
        return change(business_, business_.World().prompter, marked);
      });
    });
  }
  grdSchedule->OfferCommands({cmdEditJob, cmdClientDetails, cmdCreateInvoice, cmdViewCreatePayment,
                              cmdDonePaid, cmdDoneUnPaid, cmdMoveTo, cmdNext, cmdCancelled});
  grdSchedule->OfferChoices(
      tr("&Give to"),
      [this] {
        std::vector<GridChoice> choices = EmployeeChoices(lists::ListEmployeesByName(business_));
        choices.push_back({Value(), tr("Nobody")});
        return choices;
      },
      [this](const Value& employee) { GiveMarkedTo(employee); });
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
  ChangeMarked([this](const Entries& marked) {
    const DiaryRow& job = marked.front();
    if (marked.size() > 1)
      business_.World().prompter.Tell(
          Tone::Exclamation, tr("A payment is made for one job at a time. Please select one."));
    else if (job.payment)
      return tools_.navigator.Open(ViewPayment{*job.payment});
    else if (KindOf(job.status) == EntryKind::Job)
      return tools_.navigator.Open(PayForJob{job.payer, job.entry, job.totalPrice});
    else
      business_.World().prompter.Tell(
          Tone::Exclamation, tr("Only a job is paid for. Mark the visit done with Done Unpaid."));
    return false;
  });
}

void frmDiary::GiveMarkedTo(const Value& employee) {
  tools_.runner.Run(objectName(), QStringLiteral("grdSchedule_AfterEdit"),
                    [&] { GiveEntriesTo(business_, MarkedEntries(), employee.ToId<Employee>()); });
  LoadScheduleGrid();
}

void frmDiary::MoveMarked() {
  dlgMoveTo dialog(business_, tools_, MarkedEntries(), list_.rows);
  if (!dialog.HasSomethingToMove()) return;
  if (dialog.exec() != QDialog::Accepted) return;
  LoadScheduleGrid();
  grdSchedule->setFocus();
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
