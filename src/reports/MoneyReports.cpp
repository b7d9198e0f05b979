#include "documents/reports/Report.h"
#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "reports/AccountOfClient.h"
#include "reports/ClientSelection.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ReportKinds.h"

#include <QHash>

/// The reports of what is billed and received.
namespace quillary::reports {
namespace {

// Payments received, in three forms: each payment, a line for each client or day, and what stands
// in the ledger accounts.

Value MethodAndNumber(const Record& row) {
  QString words = row[u"Payment_Method"].ToText();
  for (const auto* field : {u"Cheque_Number", u"Reference_Number"}) {
    const QString number = row[field].ToText();
    if (!number.isEmpty()) words += u' ' + number;
  }
  return words;
}

GroupKey DayOfPayment(const Record& row) {
  const QDate day = row[u"Payment_Date"].ToDate();
  return {documents::PrintDateText(day), day.toJulianDay()};
}

GroupKey AccountOfRow(const Record& row) {
  return {row[u"GL_Account_Name"].ToText(QStringLiteral("(No specific account)")),
          row[u"GL_Account_ID"].ToLong()};
}

const char* const kPaymentFields =
    "SELECT Payments.Payment_ID, Payments.Client_ID, Clients.Display_Name, Payments.Payment_Date, "
    "Payments.Payment_Method, Payments.Cheque_Number, Payments.Reference_Number, "
    "Payments.Description, ";

Sql PaymentOrder(const QString& sort) {
  if (sort == u"date")
    return Sql(" ORDER BY Payments.Payment_Date, Clients.Display_Name, Payments.Payment_ID;");
  return Sql(
      " ORDER BY Clients.Display_Name, Payments.Client_ID, Payments.Payment_Date, "
      "Payments.Payment_ID;");
}

Sql EachPayment(const Sql& from, const ReportCriteria& criteria) {
  return Sql(kPaymentFields) + Sql("Payments.Amount, Payments.GST_Included FROM ") + from +
         Sql("WHERE ") + Within("Payments.Payment_Date", criteria.days) +
         PaymentOrder(criteria.sort);
}

/// What the ledger says of the payments, which may be less or more than was paid.
Sql LedgerOfPayments(const Sql& from, const ReportCriteria& criteria) {
  return Sql(kPaymentFields) +
         Sql("General_Ledger_Entries.GL_Amount AS Amount, General_Ledger_Entries.GST_Included, "
             "General_Ledger_Entries.GL_Account_ID, General_Ledger_Accounts.GL_Account_Name FROM "
             "(") +
         from +
         Sql("INNER JOIN General_Ledger_Entries ON Payments.Payment_ID = "
             "General_Ledger_Entries.Payment_ID) LEFT JOIN General_Ledger_Accounts ON "
             "General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
             "WHERE ") +
         Within("Payments.Payment_Date", criteria.days) +
         Sql(" ORDER BY General_Ledger_Accounts.GL_Account_Name, "
             "General_Ledger_Entries.GL_Account_ID, Payments.Payment_Date, Payments.Payment_ID, "
             "General_Ledger_Entries.GL_Entry_ID;");
}

ReportData CollectPayments(Business& business, const ReportCriteria& criteria) {
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+2in", CellKind::Text, "Display_Name", Total::Word),
      FieldColumn("Date", "<+1in", CellKind::Day, "Payment_Date"),
      CellColumn(QStringLiteral("Payment method"), "<+1.5in", CellKind::Text, MethodAndNumber,
                 Total::Count),
      FieldColumn("Description", "<+1in", CellKind::Text, "Description"),
      FieldColumn("Amount", ">+1in", CellKind::Money, "Amount", Total::Sum),
      CellColumn(
          TaxHeading(business), ">+.75in", CellKind::Money,
          [](const Record& row) { return row[u"GST_Included"]; }, Total::Sum),
  };
  const bool byAccount = criteria.option == u"accounts";
  list.group = byAccount ? AccountOfRow : criteria.sort == u"date" ? DayOfPayment : ClientOfRow;
  list.link = LinkTo(ReportLink::To::Payment, "Payment_ID");
  list.summaryOnly = criteria.option == u"summary";
  const Sql from = ChosenClients(business, criteria.clients, "Payments");
  ReportData data{.title = QStringLiteral("Payments Received")};
  data.scope = {FromTo(criteria.days)};
  if (byAccount)
    data.scope += QStringLiteral(
        "This report is based on the Account amount and not the actual "
        "payment amount");
  data.sections = {CollectList(list, business.RunSQL(byAccount ? LedgerOfPayments(from, criteria)
                                                               : EachPayment(from, criteria)))};
  return data;
}

// Invoices.

/// Who had the work done that each invoice of the days bills. One pass: a statement for each
/// invoice would read the diary as often as there are rows.
QHash<qint64, QStringList> NamesOnInvoices(Business& business, const DateRange& days) {
  QHash<qint64, QStringList> names;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Invoice_ID, Clients.Display_Name FROM (Clients INNER JOIN Diary ON "
               "Clients.Client_ID = Diary.Client_ID) INNER JOIN Invoices ON Diary.Invoice_ID = "
               "Invoices.Invoice_ID WHERE ") +
           Within("Generation_Date", days) + Sql(" ORDER BY Display_Name;"))) {
    QStringList& of = names[row[u"Invoice_ID"].ToLong()];
    const QString name = row[u"Display_Name"].ToText();
    if (!of.contains(name)) of += name;
  }
  return names;
}

Sql InvoiceOrder(const QString& sort) {
  if (sort == u"number") return Sql(" ORDER BY Invoice_Number, Display_Name ");
  if (sort == u"date") return Sql(" ORDER BY From_Date, Display_Name ");
  return Sql(" ORDER BY Display_Name, Invoice_Number ");
}

ReportData CollectInvoices(Business& business, const ReportCriteria& criteria) {
  const auto names = NamesOnInvoices(business, criteria.days);
  ListReport list;
  list.columns = {
      FieldColumn("Invoice #", "<+.65in", CellKind::Text, "Invoice_Number", Total::Word),
      FieldColumn("Client", "<+1.5in", CellKind::Text, "Display_Name", Total::Count),
      FieldColumn("Date", "^+.85in", CellKind::Day, "Generation_Date"),
      CellColumn(QStringLiteral("Done for"), "<+1.5in", CellKind::Text,
                 [names](const Record& row) {
                   return names.value(row[u"Invoice_ID"].ToLong()).join(u'\n');
                 }),
      FieldColumn("Amount", ">+.9in", CellKind::Money, "Total_Amount", Total::Sum),
      CellColumn(
          TaxHeading(business), ">+.75in", CellKind::Money,
          [](const Record& row) { return row[u"Total_GST"]; }, Total::Sum),
      CellColumn(
          QStringLiteral("Paid"), "<+1.1in", CellKind::Text,
          [](const Record& row) -> Value { return row[u"IsPaid"].ToBool() ? "Paid" : "Not paid"; }),
  };
  list.link = LinkTo(ReportLink::To::Invoice, "Invoice_ID");
  ReportData data{.title = QStringLiteral("Invoice List")};
  data.scope = {FromTo(criteria.days)};
  data.sections = {CollectList(
      list, business.RunSQL(
                Sql("SELECT Invoices.Invoice_ID, Invoice_Number, Clients.Display_Name, "
                    "Generation_Date, From_Date, Total_Amount, Total_GST, IsPaid FROM Invoices "
                    "LEFT JOIN Clients ON Invoices.Client_ID = Clients.Client_ID "
                    "WHERE Invoices.Statement_Type <> {} AND ",
                    StatementType::Statement) +
                Within("Generation_Date", criteria.days) + InvoiceOrder(criteria.sort)))};
  return data;
}

// Conversion: what became of the quotes of each month.

enum Outcome { Made, Accepted, Rejected, Pending, kOutcomes };

struct Quoted {
  std::array<qint64, kOutcomes> count = {};
  std::array<Money, kOutcomes> amount = {};

  void Add(Outcome outcome, Money price) {
    ++count[outcome];
    amount[outcome] += price;
  }
  std::vector<Value> Cells(const Value& month) const {
    std::vector<Value> cells{month};
    for (size_t at = 0; at < kOutcomes; ++at) {
      cells.emplace_back(count[at]);
      cells.emplace_back(amount[at]);
    }
    const qint64 decided = count[Accepted] + count[Rejected];
    cells.push_back(decided == 0 ? Value()
                                 : Value(100.0 * static_cast<double>(count[Accepted]) /
                                         static_cast<double>(decided)));
    return cells;
  }
};

/// A quote is what became of its client: still a prospect, lost, or a client by now.
Outcome OutcomeOf(const StoredClientStatus& status) {
  if (status.Is(ClientStatus::QuoteOnly)) return Pending;
  if (status.Is(ClientStatus::QuoteRejected)) return Rejected;
  return Accepted;
}

std::vector<ReportColumn> ConversionColumns() {
  std::vector<ReportColumn> columns{{"Month", "<+1.1in", CellKind::Text, Total::Word}};
  for (const char* outcome : {"Made", "Accepted", "Rejected", "Pending"}) {
    columns.push_back({QString::fromLatin1(outcome), ">+.7in", CellKind::Count, Total::Sum});
    columns.push_back({QStringLiteral("Amount"), ">+1.05in", CellKind::Money, Total::Sum});
  }
  columns.push_back({QStringLiteral("Conversion rate"), ">+1.2in", CellKind::Percent});
  return columns;
}

ReportData CollectConversion(Business& business, const ReportCriteria& criteria) {
  std::map<QDate, Quoted> months;
  Quoted all;
  for (const Record row : business.RunSQL(
           Sql("SELECT Quotes.Quote_ID, Quotes.Quote_Date, Clients.Status, "
               "Sum(Quote_Services.Price) AS SumOfPrice FROM (Quotes INNER JOIN Clients ON "
               "Quotes.Client_ID = Clients.Client_ID) LEFT JOIN Quote_Services ON "
               "Quotes.Quote_ID = Quote_Services.Quote_ID WHERE ") +
           Within("Quotes.Quote_Date", criteria.days) +
           Sql(" GROUP BY Quotes.Quote_ID, Quotes.Quote_Date, Clients.Status"))) {
    const Outcome outcome = OutcomeOf(StoredClientStatus(row[u"Status"].ToText()));
    const Money price = row[u"SumOfPrice"].ToMoney();
    const QDate month = DateRange::MonthOf(row[u"Quote_Date"].ToDate()).from;
    for (Quoted* quoted : {&months[month], &all}) {
      quoted->Add(Made, price);
      quoted->Add(outcome, price);
    }
  }
  ReportSection section{.title = {}, .columns = ConversionColumns(), .groups = {}, .totals = {}};
  ReportGroup& group = section.groups.emplace_back();
  group.showsKey = false;
  ReportData data{.title = QStringLiteral("Conversion Rate")};
  for (const auto& [month, quoted] : months) {
    const QString name = QLocale::c().toString(month, QStringLiteral("MMM yyyy"));
    group.rows.push_back({.cells = quoted.Cells(name)});
    data.chart.push_back({name, quoted.amount[Accepted], Money()});
  }
  section.totals = all.Cells(QStringLiteral("Total"));
  data.scope = {FromTo(criteria.days)};
  data.landscape = true;
  data.notes = {
      QStringLiteral("The rate is of the quotes that were decided: accepted ones are "
                     "those of clients who are no prospects any more.")};
  data.sections = {std::move(section)};
  return data;
}

}  // namespace

std::vector<ReportKind> MoneyReportKinds() {
  return {
      {"payments",
       "Payments received",
       "Payments.doc",
       Asks::DaysAndClients,
       CollectPayments,
       {{"client", "Client"}, {"date", "Date"}},
       {{"rows", "All payments"}, {"summary", "Summary only"}, {"accounts", "Ledger account"}}},
      {"invoice-list",
       "Invoice list",
       "Invoice List.doc",
       Asks::Days,
       CollectInvoices,
       {{"name", "Client name"}, {"number", "Invoice number"}, {"date", "Date"}}},
      {"conversion-rate", "Conversion rate", "Conversion Rate.doc", Asks::Days, CollectConversion},
      {"account-of-client", "Account of a client", "Account Of Client.doc", Asks::Client,
       CollectAccountOfClient},
  };
}

}  // namespace quillary::reports
