#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "today/screens/AgeBar.h"
#include "today/screens/Cards.h"
#include "today/screens/MonthChart.h"
#include "today/screens/frmToday.h"

/// Where the figures of the screen lead, and what the steps of the run do.
namespace quillary::today {

namespace {

/// A figure that counts nothing has no days; its list opens on the days it shows by itself.
std::optional<DateRange> IfAny(const DateRange& days) {
  return days.IsValid() ? std::optional(days) : std::nullopt;
}

}  // namespace

void frmToday::OnClick(QPushButton* button, std::function<void()> command) {
  tools_.runner.OnClick(button, objectName(), [this, command = std::move(command)] {
    command();
    Reload();  // nobody tells a screen of what its own command wrote
  });
}

void frmToday::ConnectFigures() {
  const Navigator& to = tools_.navigator;
  for (QPushButton* button : {cmdDay, cmdOpenDay})
    OnClick(button, [this, &to] { to.Open(OpenDiary{DateRange::Of(business_.Today())}); });
  for (QPushButton* button : {cmdOwed, cmdDebtors})
    OnClick(button, [&to] { to.Open(OpenDebtors{}); });
  const auto month = [this] { return DateRange::MonthOf(business_.Today()); };
  for (QPushButton* button : {cmdMonth, cmdDoneThisMonth})
    OnClick(button, [&to, month] { to.Open(OpenJobsList{month(), OpenJobsList::Which::Done}); });
  OnClick(cmdInvoiced, [&to, month] { to.Open(OpenInvoicesList{.days = month()}); });
  OnClick(cmdReceived, [&to, month] { to.Open(OpenPaymentsList{month()}); });
  connect(chart, &MonthChart::monthOpened, this, [this](const DateRange& chosen) {
    tools_.runner.Run(objectName(), QStringLiteral("chart_Click"), [&] {
      tools_.navigator.Open(OpenJobsList{chosen, OpenJobsList::Which::Done});
    });
  });
  for (const balances::DebtAge age : balances::kDebtAges)
    OnClick(cmdAges_[static_cast<size_t>(age)], [this, age] { OpenAge(age); });
  connect(barAges, &AgeBar::ageOpened, this, [this](balances::DebtAge age) {
    tools_.runner.Run(objectName(), QStringLiteral("barAges_Click"), [&] { OpenAge(age); });
  });
}

void frmToday::OpenAge(balances::DebtAge age) {
  tools_.navigator.Open(OpenDebtors{static_cast<int>(age)});
}

void frmToday::ConnectAttention() {
  const Navigator& to = tools_.navigator;
  const auto on = [this](const AttentionRow* row, std::function<void()> command) {
    OnClick(row->Go(), std::move(command));
  };
  on(rowProblems, [&to] { to.Open(OpenListOfClientsWithSchedulingProblem{}); });
  on(rowNoEmployee, [this, &to] { to.Open(OpenDiary{DateRange::Of(business_.Today())}); });
  on(rowDue, [this, &to] {
    to.Open(OpenJobsList{IfAny(attention_.daysOfDue), OpenJobsList::Which::DueForInvoice});
  });
  on(rowOverdue, [this, &to] {
    to.Open(OpenInvoicesList{.days = IfAny(attention_.daysOfOverdue),
                             .ticked = attention_.overdueInvoices});
  });
  on(rowToBank, [&to] { to.Open(OpenBanking{}); });
  on(rowCheques, [&to] { to.Open(OpenChequeReconciliation{}); });
  on(rowMail, [&to] { to.Open(OpenOutbox{}); });
  on(rowBackup, [&to] { to.Open(OpenCreateCustomBackup{}); });
}

void frmToday::ConnectRun() {
  const Navigator& to = tools_.navigator;
  Prompter& prompter = business_.World().prompter;
  OnClick(cmdWeek, [this, &to] { to.Open(OpenDiary{IfAny(run_.week.days)}); });
  OnClick(cmdMarkDone, [this, &prompter] { MarkWeekDone(business_, prompter); });
  OnClick(cmdWaiting, [this, &to] {
    to.Open(OpenJobsList{IfAny(run_.waiting.days), OpenJobsList::Which::DueForInvoice});
  });
  OnClick(cmdInvoiceJobs, [this, &prompter] { InvoiceWeek(business_, prompter); });
  OnClick(cmdUnprinted, [this, &to] {
    to.Open(OpenInvoicesList{.days = IfAny(run_.week.days), .ticked = run_.toPrint});
  });
  OnClick(cmdMakeDocuments, [this, &to] {
    to.Open(PrintInvoices{.invoices = run_.toPrint, .fileNamePart = tr("of the week")});
  });
  OnClick(cmdUnsent, [this, &to] {
    to.Open(OpenInvoicesList{.days = IfAny(run_.week.days), .ticked = run_.toMail});
  });
  OnClick(cmdSend, [this, &to] { to.Open(EmailDocuments{.invoices = run_.toMail, .days = {}}); });
  for (QPushButton* button : {cmdTakings, cmdBank})
    OnClick(button, [&to] { to.Open(OpenBanking{}); });
}

}  // namespace quillary::today
