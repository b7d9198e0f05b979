#include "balances/ClientBalance.h"
#include "domain/ClientStatus.h"
#include "domain/JobType.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ReportKinds.h"

/// The reports that list clients: by status and suburb, and those who owe or have paid too much.
namespace quillary::reports {
namespace {

Value Phones(const Record& row) {
  return TwoLines(row[u"Phone_1"].ToText(), row[u"Phone_2"].ToText());
}

// Clients with their services.

Sql ClientsWithServices(const Sql& where, const Sql& order) {
  return Sql("SELECT Clients.Client_ID, Clients.Suburb, Clients.Post_Code, "
             "Clients.Display_Name, Clients.Status, Clients.Street_Number, Clients.Street, "
             "Clients.Phone_1, Clients.Phone_2, Services.Service, Client_Services.Price "
             "FROM (Clients LEFT JOIN Client_Services ON Clients.Client_ID = "
             "Client_Services.Client_ID) LEFT JOIN Services ON Client_Services.Service_ID = "
             "Services.Service_ID ") +
         where + order;
}

Sql OfJobType(JobType type) {
  return Sql(
      "WHERE UCASE(Client_Services.Status) = UCASE({}) AND UCASE(Clients.Status) = "
      "UCASE({}) ",
      type, ClientStatus::Active);
}

/// A quote waits for its answer while its client is neither won nor lost.
Sql PendingQuotes(const Sql& order) {
  return Sql("SELECT Clients.Client_ID, Clients.Suburb, Clients.Post_Code, "
             "Clients.Display_Name, Clients.Status, Clients.Street_Number, Clients.Street, "
             "Clients.Phone_1, Clients.Phone_2, Services.Service, Quote_Services.Price "
             "FROM ((Clients INNER JOIN Quotes ON Clients.Client_ID = Quotes.Client_ID) "
             "LEFT JOIN Quote_Services ON Quotes.Quote_ID = Quote_Services.Quote_ID) "
             "LEFT JOIN Services ON Quote_Services.Service_ID = Services.Service_ID "
             "WHERE UCASE(Clients.Status) = UCASE({}) ",
             ClientStatus::QuoteOnly) +
         order;
}

Sql ClientSelection(const QString& option, const Sql& order) {
  if (option == u"regular") return ClientsWithServices(OfJobType(JobType::Regular), order);
  if (option == u"casual") return ClientsWithServices(OfJobType(JobType::Casual), order);
  if (option == u"quotes") return PendingQuotes(order);
  return ClientsWithServices(Sql(""), order);
}

ListReport ClientList(const char16_t* group, const char* none) {
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+2in", CellKind::Text, "Display_Name"),
      CellColumn("Address", "<+2in", CellKind::Text, AddressLines),
      CellColumn("Phone", "<+1in", CellKind::Text, Phones, Total::Word),
      FieldColumn("Service", "<+1.5in", CellKind::Text, "Service", Total::Count),
      FieldColumn("Price", ">+.75in", CellKind::Money, "Price", Total::Sum),
  };
  list.group = [group, none](const Record& row) {
    return GroupKey{row[group].ToText(QString::fromLatin1(none))};
  };
  list.link = LinkTo(ReportLink::To::Client, "Client_ID");
  return list;
}

ReportData ListClients(Business& business, const ReportCriteria& criteria, const char* title,
                       const Sql& order, const ListReport& list) {
  ReportData data{.title = QStringLiteral("Clients list")};
  data.scope = {SystemName(), QString::fromLatin1(title)};
  data.sections = {CollectList(list, business.RunSQL(ClientSelection(criteria.option, order)))};
  return data;
}

ReportData CollectByStatus(Business& business, const ReportCriteria& criteria) {
  return ListClients(business, criteria, "List Of Clients (By Status)",
                     Sql("ORDER BY Clients.Status, Clients.Display_Name, Clients.Client_ID, "
                         "Services.Service;"),
                     ClientList(u"Status", "(no status)"));
}

ReportData CollectBySuburb(Business& business, const ReportCriteria& criteria) {
  return ListClients(business, criteria, "List Of Clients (By Suburb)",
                     Sql("ORDER BY Clients.Suburb , Clients.Post_Code, Clients.Display_Name, "
                         "Clients.Client_ID, Services.Service;"),
                     ClientList(u"Suburb", "(no suburb)"));
}

// Balances. They are computed anew before they are listed.

Value AmountOwing(const Record& row) {
  return -row[u"Account_Balance"].ToMoney();
}

Sql BalanceOrder(const QString& sort) {
  if (sort == u"amount") return Sql("ORDER BY Account_Balance, Display_Name, Client_ID");
  if (sort == u"days") return Sql("ORDER BY Debtor_Since, Display_Name, Client_ID");
  return Sql("ORDER BY Display_Name, Client_ID");
}

ReportSection BalanceSection(Business& business, const char* sign, const Sql& order) {
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+1.5in", CellKind::Text, "Display_Name", Total::Word),
      CellColumn("Address", "<+1.75in", CellKind::Text, AddressLines),
      FieldColumn("Phone", "<+1.5in", CellKind::Text, "Phone_1"),
      CellColumn("Amount owing", ">+1.25in", CellKind::Money, AmountOwing, Total::Sum),
      CellColumn("# of days as debtor", "^+1.25in", CellKind::Count,
                 [today = business.Today()](const Record& row) {
                   const QDate since = row[u"Debtor_Since"].ToDate();
                   return since.isValid() ? Value(since.daysTo(today)) : Value();
                 }),
  };
  list.link = LinkTo(ReportLink::To::Client, "Client_ID");
  return CollectList(
      list, business.RunSQL(
                Sql("SELECT Client_ID, Display_Name, Street_Number, Street, Suburb, Post_Code, "
                    "Phone_1, Account_Balance, Debtor_Since FROM Clients WHERE  ") +
                Sql(sign) +
                Sql(" AND Account_Balance IS NOT NULL AND Status NOT IN {} ",
                    StatusesOf(ClientGroup::NotInDebtors)) +
                order));
}

ReportData Balances(Business& business, const ReportCriteria& criteria, const char* title,
                    bool debtors, bool creditors) {
  balances::RecalculateAmountOwingOfAllClients(business);
  ReportData data{.title = QString::fromLatin1(title)};
  data.scope = {SystemName()};
  const Sql order = BalanceOrder(criteria.sort);
  if (debtors) data.sections.push_back(BalanceSection(business, "Account_Balance < 0", order));
  if (creditors) data.sections.push_back(BalanceSection(business, "Account_Balance > 0", order));
  if (debtors && creditors) {
    data.sections.front().title = QStringLiteral("Debtors");
    data.sections.back().title = QStringLiteral("Creditors");
  }
  return data;
}

ReportData CollectDebtors(Business& business, const ReportCriteria& criteria) {
  return Balances(business, criteria, "List Of Debtors", true, false);
}
ReportData CollectCreditors(Business& business, const ReportCriteria& criteria) {
  return Balances(business, criteria, "List Of Creditors", false, true);
}
ReportData CollectDebtorCreditor(Business& business, const ReportCriteria& criteria) {
  return Balances(business, criteria, "List Of Debtors/Creditors", true, true);
}

ReportData CollectBadDebtors(Business& business, const ReportCriteria&) {
  balances::RecalculateAmountOwingOfAllClients(business);
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+2in", CellKind::Text, "Display_Name", Total::Word),
      CellColumn("Address", "<+2in", CellKind::Text, AddressLines),
      CellColumn("Phone", "<+2in", CellKind::Text, Phones),
      CellColumn("Amount owing", ">+1in", CellKind::Money, AmountOwing, Total::Sum),
  };
  list.link = LinkTo(ReportLink::To::Client, "Client_ID");
  ReportData data{.title = QStringLiteral("List Of Bad Debtors")};
  data.scope = {SystemName()};
  data.sections = {CollectList(
      list, business.RunSQL(Sql("SELECT Client_ID, Suburb, Post_Code, Display_Name, Status, "
                                "Street_Number, Street, Phone_1, Phone_2, Account_Balance "
                                "FROM Clients  WHERE UCASE(Status) = UCASE({}) "
                                "ORDER BY Display_Name, Client_ID;",
                                ClientStatus::BadDebtor)))};
  return data;
}

const std::vector<ReportChoice> kWhichClients = {{"all", "All clients"},
                                                 {"regular", "Regular"},
                                                 {"casual", "Casual"},
                                                 {"quotes", "Pending quotes"}};
const std::vector<ReportChoice> kBalanceSorts = {
    {"name", "Client"}, {"amount", "Amount owing"}, {"days", "Days as debtor"}};

}  // namespace

std::vector<ReportKind> ClientReportKinds() {
  return {
      {"debtors", "Debtors", "Debtor Creditor.doc", Asks::Nothing, CollectDebtors, kBalanceSorts},
      {"creditors", "Creditors", "Debtor Creditor.doc", Asks::Nothing, CollectCreditors,
       kBalanceSorts},
      {"debtors-creditors", "Debtors/Creditors", "Debtor Creditor.doc", Asks::Nothing,
       CollectDebtorCreditor, kBalanceSorts},
      {"bad-debtors", "Bad debtors", "Bad Debtor.doc", Asks::Nothing, CollectBadDebtors},
      {"clients-by-status",
       "Clients by status",
       "Client List.doc",
       Asks::Nothing,
       CollectByStatus,
       {},
       kWhichClients},
      {"clients-by-suburb",
       "Clients by suburb",
       "Client List.doc",
       Asks::Nothing,
       CollectBySuburb,
       {},
       kWhichClients},
  };
}

}  // namespace quillary::reports
