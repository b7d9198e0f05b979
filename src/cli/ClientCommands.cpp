#include "balances/ClientBalance.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "clients/ClientChoices.h"
#include "clients/ClientColumns.h"
#include "clients/ClientJobs.h"
#include "clients/ClientList.h"
#include "clients/ClientRecord.h"
#include "clients/ClientServices.h"

#include <limits>

namespace quillary::cli {
namespace {

using TextMember = QString clients::ClientRecord::*;
using YesMember = bool clients::ClientRecord::*;

QString KnownStatus(const QString& typed) {
  for (const QString& status : clients::ClientListStatuses())
    if (status.compare(typed, Qt::CaseInsensitive) == 0) return status;
  throw CommandFailure(QStringLiteral("%1 is no status; there are %2")
                           .arg(typed, clients::ClientListStatuses().join(QStringLiteral(", "))));
}

void RunClients(const Call& call) {
  clients::ClientListQuery query;
  if (call.arguments.Has("status"))
    query.status = clients::ClientListStatusOf(
        KnownStatus(call.arguments.options.value(QStringLiteral("status"))));
  if (call.arguments.Has("regular")) query.kinds = clients::ClientKinds::RegularOnly;
  const auto business = OpenCurrentBusiness(call);
  const clients::ClientList list = clients::ClientList::Load(*business, query);
  business->CloseConnection();
  ResultTable table({"Client_ID", "Status", "Display_Name", "First_Name", "Surname",
                     "Street_Number", "Street", "Suburb", "Post_Code", "Phones", "Fax", "Email"});
  const QString searched = call.arguments.options.value(QStringLiteral("search"));
  const std::vector<size_t> found = list.Search(searched);
  for (const size_t at : found) {
    const clients::ClientListRow& row = list.Rows()[at];
    table.AddRow({row.client, row.status, row.displayName, row.firstName, row.surname,
                  row.streetNumber, row.street, row.suburb, row.postCode, row.phones, row.fax,
                  row.email});
  }
  if (call.json) {
    table.PrintJson(call.out);
    call.out << '\n';
    return;
  }
  table.PrintAligned(call.out);
  call.out << clients::ListCountWords(found.size()) << '\n';
}

clients::ClientRecord ClientOf(Business& business, Id<Client> clientId) {
  auto client = clients::LoadClientDetails(business, clientId);
  if (!client) throw CommandFailure(QStringLiteral("there is no client %1").arg(clientId.Number()));
  return *client;
}

Value DebtorSinceOf(const clients::ClientRecord& client) {
  if (!client.debtorSince) return {};
  return *client.debtorSince;
}

/// The record under the names of its columns, in the order in which it is stored.
std::vector<std::pair<QString, Value>> FieldsOf(const clients::ClientRecord& client) {
  std::vector<std::pair<QString, Value>> fields = {{"Client_ID", client.clientId},
                                                   {"Billing_Client_ID", client.Payer()}};
  for (const clients::ClientColumn& column : clients::ClientColumns())
    fields.emplace_back(QString::fromLatin1(column.column), column.Of(client));
  fields.emplace_back("Debtor_Since", DebtorSinceOf(client));
  fields.emplace_back("Account_Balance", client.accountBalance);
  return fields;
}

/// For people a day is a day; programs read every moment in one form.
ResultTable ServicesOf(const Call& call, Business& business, Id<Client> clientId) {
  ResultTable table({"Client_Service_ID", "Service", "Price", "Notes", "Status", "Frequency",
                     "Employee_Name", "Next_Visit", "Other_Schedule_Client_Service_ID"});
  for (const clients::ClientServiceRecord& service :
       clients::LoadClientServicesIntoArray(business, clientId)) {
    if (service.IsEmpty()) continue;
    table.AddRow({service.clientServiceId, service.service, service.price, service.notes,
                  service.status, service.frequency, service.employeeName,
                  DayCell(call, service.nextVisit), service.otherScheduleClientServiceId});
  }
  return table;
}

ResultTable SitesOf(Business& business, Id<Client> clientId) {
  ResultTable table({"Client_ID", "Display_Name", "First_Name", "Surname"});
  for (const clients::Site& site : clients::LoadSites(business, clientId))
    table.AddRow({site.client, site.displayName, site.firstName, site.surname});
  return table;
}

ResultTable TableOf(const Call& call, const std::vector<clients::ClientJob>& jobs) {
  ResultTable table({"Diary_ID", "Schedule_Date", "Display_Name", "Description", "Total_Price",
                     "Status", "Status_Words"});
  for (const clients::ClientJob& job : jobs)
    table.AddRow({job.entry, DayCell(call, job.scheduleDate), job.displayName, job.description,
                  job.totalPrice, job.status, WordsOf(job.status)});
  return table;
}

void PrintRecord(const Call& call, const clients::ClientRecord& client) {
  for (const auto& [name, value] : FieldsOf(client))
    call.out << (name + u':').leftJustified(28) << OneLine(value.ToText()) << '\n';
}

void PrintRecordJson(const Call& call, const clients::ClientRecord& client) {
  QStringList fields;
  for (const auto& [name, value] : FieldsOf(client))
    fields += ToJson(name) + QStringLiteral(": ") + ToJson(value);
  call.out << fields.join(QStringLiteral(", "));
}

void RunClient(const Call& call) {
  const auto clientId = ParseId<Client>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  const clients::ClientRecord client = ClientOf(*business, clientId);
  const std::pair<const char*, ResultTable> parts[] = {
      {"services", ServicesOf(call, *business, clientId)},
      {"sites", SitesOf(*business, clientId)},
      {"future_jobs", TableOf(call, clients::LoadFutureJobs(*business, client))},
      {"past_jobs", TableOf(call, clients::LoadPastJobs(*business, client))}};
  business->CloseConnection();
  if (call.json) {
    call.out << '{';
    PrintRecordJson(call, client);
    for (const auto& [name, table] : parts) {
      call.out << ", \"" << name << "\": ";
      table.PrintJson(call.out);
    }
    call.out << "}\n";
    return;
  }
  PrintRecord(call, client);
  for (const auto& [name, table] : parts) {
    call.out << '\n' << QString::fromLatin1(name).replace(u'_', u' ') << '\n';
    table.PrintAligned(call.out);
  }
}

void RunClientSet(const Call& call) {
  const auto clientId = ParseId<Client>(call.arguments.positional.at(1));
  const QStringList changes = call.arguments.positional.mid(2);
  for (const QString& change : changes)
    if (change.indexOf(u'=') < 1)
      throw WrongUsage(QStringLiteral("%1 is not of the form COLUMN=VALUE").arg(change));
  const auto business = OpenCurrentBusiness(call);
  if (call.json) call.world.prompter.BeQuiet();
  const clients::ClientRecord loaded = ClientOf(*business, clientId);
  clients::ClientRecord client = loaded;
  for (const QString& change : changes) {
    const qsizetype equals = change.indexOf(u'=');
    ThrowIf(
        clients::SetClientColumn(*business, client, change.left(equals), change.mid(equals + 1)));
  }
  Transaction all(*business);
  ThrowIf(clients::SaveClientDetails(*business, client, loaded));
  balances::RecalculateClientBalance(*business, *client.Payer());
  client = ClientOf(*business, clientId);
  all.Commit();
  business->CloseConnection();
  if (call.json) {
    call.out << '{';
    PrintRecordJson(call, client);
    call.out << "}\n";
  } else {
    PrintRecord(call, client);
  }
}

}  // namespace

std::vector<Command> ClientCommands() {
  return {
      {"clients",
       "FILE [--status S] [--regular] [--search TEXT]",
       "Lists clients; without a status all but prospects.",
       {{"status", "S", "only clients of this status"},
        {"regular", nullptr, "only clients with a service that repeats"},
        {"search", "TEXT", "only those with all these words in name, street, suburb or phone"}},
       1,
       1,
       RunClients},
      {"client",
       "FILE ID",
       "Shows a client with its services, sites, future and past jobs.",
       {},
       2,
       2,
       RunClient},
      {"client-set",
       "FILE ID COLUMN=VALUE...",
       "Writes columns of a client through the checks of the client screen.",
       {},
       3,
       std::numeric_limits<int>::max(),
       RunClientSet},
  };
}

}  // namespace quillary::cli
