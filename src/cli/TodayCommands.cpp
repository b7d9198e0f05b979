#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "mail/MailsUnderWay.h"
#include "session/ProgramFolder.h"
#include "today/Attention.h"
#include "today/FridayRun.h"

/// How the business stands, for scripts: the figures of the screen "Today".
namespace quillary::cli {
namespace {

using today::AttentionFigures;

/// Name and value of every figure, in the order of the screen.
class Figures {
 public:
  void Add(const QString& name, Value value) { all_.push_back({name, std::move(value)}); }
  void Add(const QString& name, const today::CountedMoney& counted) {
    Add(name, counted.count);
    Add(name + QStringLiteral("_Amount"), counted.amount);
  }
  void Print(const Call& call) const {
    if (call.json) {
      QStringList members;
      for (const auto& [name, value] : all_)
        members += QStringLiteral("\"%1\": %2").arg(name, ToJson(value));
      call.out << '{' << members.join(QStringLiteral(", ")) << '}';
      return;
    }
    ResultTable table({QStringLiteral("Figure"), QStringLiteral("Value")});
    for (const auto& [name, value] : all_) table.AddRow({name, value});
    table.PrintAligned(call.out);
  }

 private:
  std::vector<std::pair<QString, Value>> all_;
};

void AddJobs(Figures& figures, const QString& prefix, const today::JobsFigures& jobs) {
  figures.Add(prefix + "Jobs", jobs.jobs);
  figures.Add(prefix + "Jobs_Amount", jobs.amount);
  figures.Add(prefix + "Open", jobs.open);
  figures.Add(prefix + "Done", jobs.done);
  figures.Add(prefix + "Invoiced", jobs.invoiced);
  figures.Add(prefix + "Without_Employee", jobs.withoutEmployee);
}

void AddOwed(Figures& figures, const Call& call, const today::OwedFigures& owed) {
  figures.Add("Owed", owed.total);
  figures.Add("Owed_By_Clients", owed.clients);
  figures.Add("Owed_Since", DayCell(call, owed.since.value_or(QDate())));
  constexpr const char* kAges[] = {"Owed_To_30_Days", "Owed_31_To_60_Days", "Owed_61_To_90_Days",
                                   "Owed_Over_90_Days"};
  for (const balances::DebtAge age : balances::kDebtAges)
    figures.Add(kAges[static_cast<size_t>(age)], owed.ages[static_cast<size_t>(age)]);
}

void AddAttention(Figures& figures, const AttentionFigures& attention, int problems) {
  figures.Add("Clients_With_Scheduling_Problem", problems);
  figures.Add("Due_For_Invoice", attention.dueForInvoice);
  figures.Add("Unpaid_Over_30_Days", attention.overdue);
  const auto& [cash, cheques, cards] = attention.toBank;
  figures.Add("Cash_To_Bank", cash.total);
  figures.Add("Cheques_To_Bank", today::CountedMoney{cheques.count, cheques.total});
  figures.Add("Cards_To_Bank", today::CountedMoney{cards.count, cards.total});
  figures.Add("Cheques_Not_Cleared", attention.chequesWritten);
  figures.Add("Mails_In_Doubt", attention.mailsInDoubt);
  figures.Add("Last_Backup", attention.lastBackup ? Value(*attention.lastBackup) : Value());
}

void AddRun(Figures& figures, const today::FridayRun& run) {
  AddJobs(figures, QStringLiteral("Week_"), run.week);
  figures.Add("Week_To_Invoice", run.waiting.jobs);
  figures.Add("Week_To_Invoice_Amount", run.waiting.total);
  figures.Add("Week_Without_Document", static_cast<int>(run.toPrint.size()));
  figures.Add("Week_To_Mail", static_cast<int>(run.toMail.size()));
  figures.Add("Week_To_Bank", run.ToBank());
}

/// The months as rows of their own.
void PrintMonths(const Call& call, const today::YearFigures& year) {
  ResultTable table({"Month", "Done", "Invoiced", "Received"});
  for (const today::MonthFigures& month : year.months)
    table.AddRow({month.month.from.toString(QStringLiteral("yyyy-MM")), month.done, month.invoiced,
                  month.received});
  if (call.json)
    table.PrintJson(call.out);
  else
    table.PrintAligned(call.out);
}

void RunToday(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  Figures figures;
  figures.Add("Today", DayCell(call, business->Today()));
  AddJobs(figures, {}, today::LoadJobsFigures(*business, DateRange::Of(business->Today())));
  AddOwed(figures, call, today::LoadOwed(*business));
  const today::YearFigures year = today::LoadYear(*business);
  figures.Add("Month_So_Far", year.soFar);
  figures.Add("Month_So_Far_Last_Year", year.soFarLastYear);
  const QString archive = session::ArchiveUnder(session::ProgramFolder());
  mail::MailsUnderWay mails(*business);
  const AttentionFigures attention =
      today::LoadAttention(*business, {.archive = archive, .mail = &mails});
  AddAttention(figures, attention, today::CountClientsWithSchedulingProblem(*business));
  AddRun(figures, today::LoadFridayRun(*business, attention, &mails));
  business->CloseConnection();
  if (call.json) call.out << "{\"figures\": ";
  figures.Print(call);
  call.out << (call.json ? ", \"months\": " : "\n");
  PrintMonths(call, year);
  if (call.json) call.out << "}\n";
}

}  // namespace

std::vector<Command> TodayCommands() {
  return {{"today",
           "FILE",
           "Tells how the business stands: today's jobs, what is owed and for how long, this month "
           "and the last twelve, what needs attention, and what is left of the week's run.",
           {},
           1,
           1,
           RunToday}};
}

}  // namespace quillary::cli
