#include "balances/ClientBalance.h"
#include "balances/Debtors.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "diary/JobServices.h"
#include "diary/Jobs.h"
#include "domain/Payer.h"
#include "roll/ScheduleCheck.h"

namespace quillary::cli {
namespace {

ResultTable TableOf(const std::vector<balances::DebtorRow>& rows) {
  ResultTable table(
      {"Client_ID", "Display_Name", "Status", "Phone_1", "Amount_Owing", "Statement_Type"});
  for (const balances::DebtorRow& row : rows)
    table.AddRow(
        {row.client, row.displayName, row.status, row.phone1, row.amountOwing, row.statementType});
  return table;
}

void RequireClient(Business& business, Id<Client> client) {
  if (!PayerOf(business, client))
    throw CommandFailure(QStringLiteral("there is no client %1").arg(client.Number()));
}

void RunBalances(const Call& call) {
  const auto client = call.arguments.Key<Client>("client");
  const auto business = OpenCurrentBusiness(call);
  if (client) {
    RequireClient(*business, *client);
    balances::RecalculateClientBalance(*business, *client);
  } else {
    balances::RecalculateAmountOwingOfAllClients(*business);
  }
  const ResultTable debtors =
      TableOf(balances::ListDebtors(*business, balances::DebtorFilter::All));
  const ResultTable creditors =
      TableOf(balances::ListCreditors(*business, balances::DebtorFilter::All));
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"debtors\": ";
    debtors.PrintJson(call.out);
    call.out << ", \"creditors\": ";
    creditors.PrintJson(call.out);
    call.out << "}\n";
    return;
  }
  call.out << "debtors\n";
  debtors.PrintAligned(call.out);
  call.out << "\ncreditors\n";
  creditors.PrintAligned(call.out);
}

Value TextOrNull(const QString& text) {
  if (text.isEmpty()) return {};
  return text;
}

/// For people a day is a day; programs read every moment in one form.
Value DayOrNull(const Call& call, QDate day) {
  if (!day.isValid()) return {};
  if (call.json) return day;
  return day.toString(Qt::ISODate);
}

std::vector<std::pair<QString, Value>> FieldsOf(const Call& call, const diary::Job& job,
                                                const diary::JobServices& lines) {
  return {{"Diary_ID", job.entry},
          {"Client_ID", job.client},
          {"Schedule_Date", DayOrNull(call, job.date)},
          {"Employee_ID", job.employee},
          {"Description", job.description},
          {"Notes", job.notes},
          {"Status", TextOrNull(job.storedStatus.Text())},
          {"Total_Price", job.totalPrice},
          {"Total_GST", job.totalGST},
          {"Payment_ID", job.payment},
          {"Invoice_Number", TextOrNull(job.invoiceNumber)},
          {"Total_Of_Services", lines.total}};
}

void RunJob(const Call& call) {
  const auto entry = ParseId<Entry>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  const auto job = diary::LoadJob(*business, entry);
  if (!job) throw CommandFailure(QStringLiteral("there is no entry %1").arg(entry.Number()));
  const diary::JobServices lines = diary::LoadServices(*business, entry);
  business->CloseConnection();
  ResultTable services({"Diary_Service_ID", "Service_ID", "Service_Code", "Price", "Account"});
  for (const diary::JobService& line : lines.rows)
    services.AddRow({line.line, line.service, line.serviceCode, line.price, line.accountName});
  if (call.json) {
    QStringList fields;
    for (const auto& [name, value] : FieldsOf(call, *job, lines))
      fields += ToJson(name) + QStringLiteral(": ") + ToJson(value);
    call.out << '{' << fields.join(QStringLiteral(", ")) << ", \"services\": ";
    services.PrintJson(call.out);
    call.out << "}\n";
    return;
  }
  for (const auto& [name, value] : FieldsOf(call, *job, lines))
    call.out << (name + u':').leftJustified(20) << OneLine(value.ToText()) << '\n';
  call.out << "\nservices\n";
  services.PrintAligned(call.out);
}

void RunScheduleCheck(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  const auto problems = roll::CheckClientSchedules(*business);
  business->CloseConnection();
  ResultTable table({"Client_ID", "Status", "Display_Name", "Address", "Client_Service_ID",
                     "Service_ID", "Frequency", "Next_Visit", "Missing_On"});
  for (const roll::ScheduleProblem& problem : problems)
    table.AddRow({problem.client, problem.status, problem.displayName, problem.address,
                  problem.clientService, problem.service, problem.frequency,
                  DayOrNull(call, problem.nextVisit), DayOrNull(call, problem.missingOn)});
  if (call.json) {
    table.PrintJson(call.out);
    call.out << '\n';
  } else if (problems.empty()) {
    call.out << "every regular visit is in the diary\n";
  } else {
    table.PrintAligned(call.out);
  }
}

}  // namespace

std::vector<Command> BalanceCommands() {
  return {
      {"balances",
       "FILE [--client ID]",
       "Computes what all clients owe, or one, and lists debtors and creditors.",
       {{"client", "ID", "compute the balance of this client only"}},
       1,
       1,
       RunBalances},
      {"job", "FILE DIARY_ID", "Shows an entry of the diary with its services.", {}, 2, 2, RunJob},
      {"schedule-check",
       "FILE",
       "Lists clients whose regular visits might be missing from the diary.",
       {},
       1,
       1,
       RunScheduleCheck},
  };
}

}  // namespace quillary::cli
