#include "link/CopyFromHeadOffice.h"

#include "base/OwnFiles.h"
#include "base/Text.h"
#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/JobType.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"

#include <QDir>

namespace quillary::link {
namespace {

using ServiceMap = std::map<QString, Id<Service>>;  // by the number that head office has for it

/// What head office holds of this franchisee; nothing of what was not asked for.
struct Fetched {
  std::optional<EasyXML> details;
  std::optional<EasyXML> services;
  std::optional<EasyXML> clients;
  QString fseId;
};

QString Text(const EasyXML& row, const char* field) {
  return row.Field(QString::fromLatin1(field)).trimmed();
}

bool Flag(const EasyXML& row, const char* field) {
  const QString text = Text(row, field);
  return text.compare(u"true", Qt::CaseInsensitive) == 0 || text == u"1" || text == u"-1";
}

/// The day that a text of the server begins with; null for none.
Value DayOf(const EasyXML& row, const char* field) {
  const QString text = Text(row, field);
  const auto moment = FromIsoText(text.left(10));
  return moment ? Value(*moment) : Value();
}

QString StreetNumber(const EasyXML& row) {
  const QString unit = Text(row, "Unit_Number");
  const QString number = Text(row, "Street_Number");
  return unit.isEmpty() ? number : unit + u'/' + number;
}

EasyXML Called(Wexor& session, const char* method, const Parameters& parameters) {
  const EasyXML reply =
      session.ExecuteXML(QString::fromLatin1(method), QStringLiteral("Quillary"), parameters);
  // Rows are deleted for what comes, so an answer that nobody can read must not pass for no rows.
  if (!reply.IsReady())
    throw LinkError("EasyHTTP", QStringLiteral("The answer of head office to %1 could not be read.")
                                    .arg(QString::fromLatin1(method)));
  return reply;
}

Fetched Fetch(Wexor& session, const CopyChoice& choice) {
  Fetched fetched;
  const EasyXML basic = Called(session, "GetBasicData",
                               {{QStringLiteral("UserName"), choice.userName},
                                {QStringLiteral("Password"), choice.password}});
  fetched.fseId = Text(basic, "FSE_ID");
  if (choice.details)
    fetched.details =
        Called(session, "CopyPersonalData", {{QStringLiteral("FSE_ID"), fetched.fseId}});
  if (choice.services)
    fetched.services =
        Called(session, "CopyServices",
               {{QStringLiteral("service_group_id"), Text(basic, "Service_Group_ID")}});
  if (choice.clients)
    fetched.clients =
        Called(session, "CopyClients", {{QStringLiteral("BusinessID"), fetched.fseId}});
  return fetched;
}

qint64 CountOf(Business& business, const Sql& counting) {
  return business.FirstField(counting).ToLong();
}

/// "Clients: 12 here, 40 at head office", a line each.
QString WhatIsReplaced(Business& business, const Fetched& fetched) {
  QStringList lines;
  const auto line = [&](const QString& what, qint64 here, int there) {
    lines += QStringLiteral("%1: %2 here, %3 at head office").arg(what).arg(here).arg(there);
  };
  if (fetched.details) lines += QStringLiteral("Your personal information");
  if (fetched.services)
    line(QStringLiteral("Services"), CountOf(business, Sql("SELECT COUNT(*) FROM Services")),
         fetched.services->RowCount());
  if (fetched.clients) {
    line(QStringLiteral("Clients"), CountOf(business, Sql("SELECT COUNT(*) FROM Clients")),
         fetched.clients->RowCount());
    const qint64 jobs = CountOf(business, Sql("SELECT COUNT(*) FROM Diary"));
    if (jobs > 0)
      lines += QStringLiteral("The %1 of the clients here will belong to nobody.")
                   .arg(Counted(static_cast<size_t>(jobs), "diary entry", "diary entries"));
  }
  return lines.join(u'\n');
}

void CopyPersonalDetails(Business& business, const EasyXML& reply, const QString& fseId) {
  const Recordset stored = business.RunSQL(Sql("SELECT * FROM infPersonalDetails"));
  // Head office does not know every field; what it does not send stays.
  const auto kept = [&](const char16_t* column, const char* field) {
    return reply.FieldIndex(QString::fromLatin1(field)) >= 0 ? Text(reply, field)
                                                             : stored.Field(column).ToText();
  };
  business.Write(
      Sql("UPDATE infPersonalDetails SET Company_Name = {}, ACN = {}, FSE_Code = {}, ABN = {}, "
          "Provider = {}, Street_Number = {}, Street = {}, Suburb = {}, Post_Code = {}, "
          "Phone_1 = {}, Phone_2 = {}, Email = {}, First_Name = {}, Surname = {}",
          Text(reply, "Company_Name"), kept(u"ACN", "ACN"), fseId, kept(u"ABN", "ABN"),
          kept(u"Provider", "Provider"), StreetNumber(reply), Text(reply, "Street_Name"),
          Text(reply, "Suburb_Name"), Text(reply, "Code"), Text(reply, "home_Phone"),
          Text(reply, "work_Phone"), Text(reply, "Email"), Text(reply, "First_Name"),
          Text(reply, "Surname")),
      Rows::AtLeast(1));
}

/// The number that the server has for a service, under either of its names.
QString ServerIdOf(const EasyXML& row) {
  const QString id = Text(row, "Service_ID");
  return id.isEmpty() ? Text(row, "ID") : id;
}

ServiceMap CopyServices(Business& business, EasyXML reply) {
  ServiceMap map;
  business.Write(Sql("DELETE FROM Services; "));
  for (int sequence = 1; reply.RowCount() > 0 && reply.Read(); ++sequence)
    map.insert_or_assign(
        ServerIdOf(reply),
        business.InsertReturningKey<Service>(Sql(
            "INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, Sequence_Number, "
            "Regular) Values({}, {}, {}, {}, {})",
            Text(reply, "Name"), Text(reply, "Code"), Value(), sequence, Flag(reply, "Regular"))));
  return map;
}

Id<Client> CopyClient(Business& business, const EasyXML& row) {
  const bool isCancelled = !Text(row, "Job_Cancel_Date").isEmpty();
  const Value status = isCancelled            ? ToValue(ClientStatus::Cancelled)
                       : Flag(row, "Regular") ? ToValue(ClientStatus::Active)
                                              : Value();
  const QString first = Text(row, "First_Name");
  const QString surname = Text(row, "Surname");
  return business.InsertReturningKey<Client>(
      Sql("INSERT INTO Clients (First_Name, Surname, Display_Name, Street_Number, Street, Suburb, "
          "Post_Code, Phone_1, Phone_2, Status, Cancelled_Date, Email, Fax, Is_Billed_To, "
          "Quote_Date, Last_Payment_Method, Statement_Type) "
          "VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, True, {}, {}, {})",
          first, surname, (surname + QStringLiteral(", ") + first), StreetNumber(row),
          Text(row, "Street_Name"), Text(row, "Suburb_Name"), Text(row, "Post_Code"),
          Text(row, "home_Phone"), Text(row, "work_Phone"), status, DayOf(row, "Date_Cancelled"),
          Text(row, "Email"), Text(row, "Fax"), DayOf(row, "Lead_Date"), QStringLiteral("Cash"),
          StatementType::WithJob));
}

void CopyClients(Business& business, EasyXML reply, const ServiceMap& services) {
  business.Write(Sql("DELETE FROM Clients"));
  business.Write(Sql("DELETE FROM Client_Services"));
  const Value employee =
      business.FirstField(Sql("SELECT TOP 1 Employee_ID FROM Employees ORDER BY Employee_ID"));
  while (reply.RowCount() > 0 && reply.Read()) {
    const Id<Client> client = CopyClient(business, reply);
    const auto service = services.find(Text(reply, "Current_Service_ID"));
    if (service == services.end()) continue;
    business.Write(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price) "
            "VALUES ({}, {}, {}, {}, {})",
            client, service->second, employee,
            Flag(reply, "Regular") ? JobType::Regular : JobType::Casual,
            Money::Parse(Text(reply, "Price")).value_or(Money())),
        Rows::Exactly(1));
  }
}

void Store(Business& business, const Fetched& fetched) {
  Transaction all(business);
  if (fetched.details) CopyPersonalDetails(business, *fetched.details, fetched.fseId);
  const ServiceMap services =
      fetched.services ? CopyServices(business, *fetched.services) : ServiceMap();
  if (fetched.clients) CopyClients(business, *fetched.clients, services);
  all.Commit();
}

void BackupBeforeDownload(Business& business, const QString& archive) {
  const DateTime now = business.Now();
  MakeOwnFolder(archive);
  maintenance::BackupDatabaseTo(
      business, maintenance::BeforeRestorationDescription(now),
      QDir(archive).filePath(QStringLiteral("DATA_Before_Ostrel_Download_%1.MDB")
                                 .arg(now.date.toString(QStringLiteral("yyyy-MM-dd ")) +
                                      now.time.toString(QStringLiteral("HHmmss")))));
}

}  // namespace

std::optional<Refusal> CheckCopyChoice(const CopyChoice& choice) {
  if (choice.userName.trimmed().isEmpty())
    return Refusal{QStringLiteral("Please enter your franchisee id."), QStringLiteral("userName")};
  if (choice.password.isEmpty())
    return Refusal{QStringLiteral("Please enter your password."), QStringLiteral("password")};
  return std::nullopt;
}

bool CopyFromHeadOffice(Business& business, const HeadOfficeAccount& account,
                        const CopyChoice& choice, const QString& archive) {
  Prompter& prompter = business.World().prompter;
  BackupBeforeDownload(business, archive);
  Wexor session(business.World().clock, account.authorities);
  session.Login(choice.userName, choice.password, account.url, ServerDatabase(), ServerData());
  if (!session.IsLoggedOn()) {
    prompter.Tell(Tone::Exclamation, session.LastError());
    return false;
  }
  Fetched fetched;
  try {
    fetched = Fetch(session, choice);
  } catch (const LinkError& error) {
    prompter.Tell(Tone::Stop, QString::fromUtf8(error.what()) +
                                  QStringLiteral("\n\nNothing was changed in your business."));
    return false;
  }
  const QString replaced = WhatIsReplaced(business, fetched);
  if (!replaced.isEmpty() &&
      prompter.AskBeforeLosing(QStringLiteral("This will be replaced:\n\n%1\n\nDo you want to go "
                                              "on? A copy of your business as it is lies in %2.")
                                   .arg(replaced, archive)) != Answer::Yes)
    return false;
  Store(business, fetched);
  LoadSharedValues(business);
  prompter.Tell(Tone::Information, QStringLiteral("Finished copying data!"));
  return true;
}

}  // namespace quillary::link
