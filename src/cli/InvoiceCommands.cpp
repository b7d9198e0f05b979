#include "billing/invoices/InvoiceJobs.h"
#include "billing/invoices/InvoiceList.h"
#include "billing/runs/MonthlyRun.h"
#include "billing/runs/WithJobRun.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "clients/ClientMoney.h"
#include "diary/DiaryDay.h"
#include "diary/JobPicker.h"

#include <algorithm>

namespace quillary::cli {
namespace {

QDate Needed(const Call& call, const char* option) {
  if (const auto day = call.arguments.Date(option)) return *day;
  throw WrongUsage(QStringLiteral("--%1 is missing").arg(QLatin1String(option)));
}

DateRange DaysOf(const Call& call) {
  const DateRange days{Needed(call, "from"), Needed(call, "to")};
  if (days.from > days.to) throw CommandFailure(QString::fromLatin1(diary::kInvalidDateRange));
  return days;
}

/// The jobs named, each of which the list of the screen would offer for this client.
std::vector<Id<Entry>> JobsFor(Business& business, Id<Client> client, const QString& listed) {
  const DateRange always{QDate(1900, 1, 1), QDate(9999, 12, 31)};
  const auto offered = diary::ListPickableJobs(business, client, always);
  const auto jobs = ParseIds<Entry>(listed.split(u','));
  for (const Id<Entry> asked : jobs) {
    const auto isAsked = [&](const diary::PickableJob& job) { return job.entry == asked; };
    if (std::ranges::none_of(offered, isAsked))
      throw CommandFailure(QStringLiteral("entry %1 is no job that client %2 is billed for")
                               .arg(asked.Number())
                               .arg(client.Number()));
  }
  return jobs;
}

void RequireJobToInvoice(Business& business, Id<Entry> entry) {
  const auto job = billing::LoadJobToInvoice(business, entry);
  if (!job || KindOf(job->status) != EntryKind::Job)
    throw CommandFailure(QStringLiteral("entry %1 is no job").arg(entry.Number()));
  if (job->invoiceId)
    throw CommandFailure(QStringLiteral("entry %1 stands on invoice %2")
                             .arg(entry.Number())
                             .arg(job->invoiceId->Number()));
}

billing::InvoiceForm AskedFor(const Call& call, Business& business) {
  const auto job = call.arguments.Key<Entry>("job");
  const auto client = call.arguments.Key<Client>("client");
  if (job.has_value() == client.has_value())
    throw WrongUsage(QStringLiteral("invoice needs either --job or --client with --jobs"));
  if (client && !call.arguments.Has("jobs"))
    throw WrongUsage(QStringLiteral("--client needs --jobs"));
  if (job) RequireJobToInvoice(business, *job);
  billing::InvoiceForm form = billing::NewInvoice(business, client, job);
  if (client && form.clientId)
    form.jobsToAttach =
        JobsFor(business, *form.clientId, call.arguments.options.value(QStringLiteral("jobs")));
  if (call.arguments.Has("description"))
    form.description = call.arguments.options.value(QStringLiteral("description"));
  if (call.arguments.Has("number"))
    form.number = call.arguments.options.value(QStringLiteral("number"));
  if (form.description.size() > billing::kInvoiceDescriptionWidth ||
      form.number.size() > billing::kInvoiceNumberWidth)
    throw CommandFailure(QStringLiteral("a description has at most %1 characters, a number %2")
                             .arg(billing::kInvoiceDescriptionWidth)
                             .arg(billing::kInvoiceNumberWidth));
  return form;
}

void RunInvoice(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  Transaction all(*business);
  billing::InvoiceForm form = AskedFor(call, *business);
  const billing::AttachedJobs jobs = billing::LoadAttachedJobs(*business, form);
  form.totalAmount = jobs.totalAmount;
  form.totalGST = jobs.totalGST;
  ThrowIf(billing::SaveInvoices(*business, form));
  all.Commit();
  business->CloseConnection();
  ResultTable table({"Invoice_ID", "Invoice_Number", "Client_ID", "Generation_Date",
                     "Invoice_Description", "Total_Amount", "Total_GST", "Jobs"});
  table.AddRow({form.invoiceId, form.number, form.clientId, DayCell(call, form.date),
                form.description, form.totalAmount, form.totalGST, jobs.rows.size()});
  PrintTable(call, table);
}

void RunInvoiceRun(const Call& call) {
  const QString kind = call.arguments.positional.at(1);
  const bool monthly = kind == u"monthly";
  if (!monthly && kind != u"with-job")
    throw WrongUsage(QStringLiteral("invoice-run is either monthly or with-job"));
  if (!monthly && call.arguments.Has("generated"))
    throw WrongUsage(QStringLiteral("--generated goes with monthly"));
  const DateRange days = DaysOf(call);
  const auto business = OpenCurrentBusiness(call);
  const QDate generated = call.arguments.Date("generated").value_or(business->Today());
  const billing::InvoiceRunCount count =
      monthly ? billing::GenerateMonthlyInvoices(*business, {days, generated})
              : billing::GenerateWithJobInvoices(*business, days);
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"Invoices_Made\": " << count.invoicesMade
             << ", \"Total_Amount\": " << count.totalAmount.ToText()
             << ", \"Failed\": " << count.failed << "}\n";
  } else {
    call.out << "invoices made: " << count.invoicesMade << '\n'
             << "total amount:  " << count.totalAmount.ToCurrencyText() << '\n';
    if (count.failed > 0) call.out << "failed:        " << count.failed << '\n';
  }
}

void RunInvoices(const Call& call) {
  const DateRange days = DaysOf(call);
  const auto business = OpenCurrentBusiness(call);
  const auto invoices = billing::LoadInvoicesList(*business, {days, call.arguments.Has("monthly")});
  business->CloseConnection();
  ResultTable table({"Invoice_ID", "Client_ID", "Display_Name", "Generation_Date",
                     "Invoice_Description", "Total_Amount", "Invoice_Number", "Statement_Type",
                     "IsPaid"});
  for (const billing::InvoiceListRow& row : invoices)
    table.AddRow({row.invoiceId, row.clientId, row.displayName, DayCell(call, row.generationDate),
                  row.description, row.totalAmount, row.invoiceNumber, row.statementType,
                  row.isPaid});
  PrintTable(call, table);
}

void RunInvoiceDelete(const Call& call) {
  const auto invoiceId = ParseId<Invoice>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  if (!billing::LoadInvoiceDetails(*business, invoiceId))
    throw CommandFailure(QStringLiteral("there is no invoice %1").arg(invoiceId.Number()));
  call.world.prompter.BeQuiet();
  call.world.prompter.AnswerYes();
  if (call.arguments.Has("from-client"))
    ThrowIf(clients::DeleteClientInvoice(*business, call.world.prompter, invoiceId));
  else
    billing::DeleteInvoices(*business, {invoiceId});
  business->CloseConnection();
  ResultTable table({"Invoice_ID", "Deleted"});
  table.AddRow({invoiceId, true});
  PrintTable(call, table);
}

}  // namespace

std::vector<Command> InvoiceCommands() {
  return {
      {"invoice",
       "FILE --job DIARY_ID | --client ID --jobs ID,... [--description T] [--number N]",
       "Makes an invoice for one job, which then counts as invoiced, or for several jobs of a "
       "client, whose status stays.",
       {{"job", "DIARY_ID", "the one job"},
        {"client", "ID", "who is billed, or any client billed to it"},
        {"jobs", "ID,...", "jobs of the client and of all who are billed to it"},
        {"description", "T", "the heading; TAX INVOICE when missing"},
        {"number", "N", "the next number when missing"}},
       1,
       1,
       RunInvoice},
      {"invoice-run",
       "FILE monthly|with-job --from DATE --to DATE [--generated DATE]",
       "Makes the invoices of clients who are billed by the month, or with each job.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"},
        {"to", "DATE", "the last day"},
        {"generated", "DATE", "the date on monthly invoices; today when missing"}},
       2,
       2,
       RunInvoiceRun},
      {"invoices",
       "FILE --from DATE --to DATE [--monthly]",
       "Lists the invoices of a period, the newest first.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"},
        {"to", "DATE", "the last day"},
        {"monthly", nullptr, "only monthly ones, of clients still billed so"}},
       1,
       1,
       RunInvoices},
      {"invoice-delete",
       "FILE ID [--from-client]",
       "Deletes an invoice and takes it off its jobs, whose status stays.",
       {{"from-client", nullptr, "as on the client's screen: its jobs become done, not invoiced"}},
       2,
       2,
       RunInvoiceDelete},
  };
}

}  // namespace quillary::cli
