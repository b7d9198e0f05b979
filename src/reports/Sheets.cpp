#include "documents/reports/Report.h"
#include "documents/reports/ReportFiles.h"
#include "domain/BillingWords.h"
#include "domain/EntryStatus.h"
#include "domain/TaxRate.h"
#include "reports/DiarySheet.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ReportKinds.h"

#include <stdexcept>

/// The sheets with a place for each thing: the quote, the pay-in slip, the week's totals.
namespace quillary::reports {
namespace {

/// A table of labels and texts, without headings and totals.
ReportSection Block(const QStringList& places, std::vector<ReportRow> rows, bool strong = false) {
  ReportSection block;
  for (const QString& place : places)
    block.columns.push_back({.heading = {}, .place = place, .kind = CellKind::Text});
  for (ReportRow& row : rows) row.strong = row.strong || strong;
  block.groups = {{.key = {}, .rows = std::move(rows), .totals = {}, .showsKey = false}};
  block.showsHeadings = false;
  return block;
}

/// The record asked for, or else the newest one.
qint64 RecordAskedFor(Business& business, const ReportCriteria& criteria, const Sql& newest,
                      const char* ifNone) {
  if (criteria.record) return *criteria.record;
  const Value found = business.FirstField(newest);
  if (found.IsNull()) throw std::invalid_argument(ifNone);
  return found.ToLong();
}

Sql NewestQuote(const std::vector<Id<Client>>& clients) {
  Sql statement("SELECT TOP 1 Quote_ID FROM Quotes ");
  if (!clients.empty()) statement = statement + Sql("WHERE Client_ID = {} ", clients.front());
  return statement + Sql("ORDER BY Quote_Date DESC, Quote_ID DESC");
}

// The quote.

/// `net` takes the tax out of each price.
ReportSection QuoteServices(Business& business, const Recordset& lines, bool net) {
  const TaxRate rate = TaxRate::Of(business);
  const QString taxHeading =
      net ? QStringLiteral("%1 exc.").arg(business.values.taxName) : TaxHeading(business);
  ReportSection section;
  section.columns = {
      {"Service", "<+2in", CellKind::Text, Total::Word},
      {"Notes", "<+3.5in", CellKind::Text},
      {QStringLiteral("Price (%1)").arg(taxHeading), ">+1.5in", CellKind::Money, Total::Sum}};
  ReportGroup& group = section.groups.emplace_back();
  group.showsKey = false;
  RunningTotals totals(section.columns);
  for (const Record row : lines) {
    // A quote without services is one row of the joined tables, without a line.
    if (row[u"Quote_Service_ID"].IsNull()) continue;
    Money price = row[u"Price"].ToMoney();
    if (net) price -= rate.CalculateGSTComponent(price);
    group.rows.push_back({.cells = {row[u"Service"].ToText(), row[u"Line_Notes"].ToText(),
                                    row[u"Price"].IsNull() ? Value() : Value(price)}});
    totals.Add(group.rows.back().cells);
  }
  section.totals = totals.Under(QStringLiteral("Total"));
  return section;
}

Money TotalOfQuote(const Recordset& lines) {
  Money total;
  for (const Record row : lines) total += row[u"Price"].ToMoney();
  return total;
}

ReportData CollectQuote(Business& business, const ReportCriteria& criteria) {
  const qint64 quote = RecordAskedFor(business, criteria, NewestQuote(criteria.clients),
                                      "Please select and load a quote to print.");
  const Recordset lines = business.RunSQL(
      Sql("SELECT Quotes.Quote_ID, Quotes.Client_ID, Quotes.Quote_Date, "
          "Quote_Services.Quote_Service_ID, Quote_Services.Price, "
          "Quote_Services.Notes AS Line_Notes, Services.Service "
          " FROM (Quotes LEFT JOIN Quote_Services ON Quotes.Quote_ID = Quote_Services.Quote_ID) "
          "LEFT JOIN Services ON Quote_Services.Service_ID = Services.Service_ID "
          " WHERE Quotes.Quote_ID = {} ORDER BY Services.Service;",
          quote));
  if (lines.EndOfFile()) throw std::invalid_argument("This quote is no longer there.");
  ReportData data{.title = QStringLiteral("Quote")};
  data.letterhead = QStringLiteral("Quote");
  data.sections.push_back(
      Block({"<+3.5in", ">+3.5in"},
            {{.cells = {QStringLiteral("QUOTATION"),
                        QStringLiteral("Issued : ") +
                            documents::ReportDateText(lines.Field(u"Quote_Date").ToDate())}}},
            true));
  const Recordset client = business.RunSQL(
      Sql("SELECT Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, "
          "Clients.Post_Code FROM Clients  WHERE Client_ID = {}",
          lines.Field(u"Client_ID")));
  data.fileName =
      QStringLiteral("Quote - %1.doc")
          .arg(documents::CleanFileName(client.HasRows() ? client.Field(u"Display_Name").ToText()
                                                         : QString::number(quote)));
  if (client.HasRows())
    data.sections.push_back(
        Block({"<+.75in", "<+6.25in"},
              {{.cells = {QStringLiteral("FOR: "), client.Field(u"Display_Name").ToText() + u'\n' +
                                                       AddressLines(client.Row(0))}}}));
  data.sections.push_back(Block({"<+7in"}, {{.cells = {QStringLiteral("QUOTE DETAILS: ")}}}, true));
  const bool net = criteria.option == u"without-tax";
  data.sections.push_back(QuoteServices(business, lines, net));
  if (net) {
    const Money total = TotalOfQuote(lines);
    const Money tax = total - data.sections.back().totals.back().ToMoney();
    data.notes = {QStringLiteral("%1: %2    Total with %1: %3")
                      .arg(business.values.taxName, tax.ToCurrencyText(), total.ToCurrencyText())};
  }
  return data;
}

// The pay-in slip.

ReportSection DepositedPayments(Business& business, qint64 banking, PaymentGroup group,
                                const char* title, const char* total) {
  ListReport list;
  list.columns = {
      FieldColumn("Cheque No.", "<+1in", CellKind::Text, "Cheque_Number", Total::Word),
      FieldColumn("Bank", "<+1in", CellKind::Text, "Bank"),
      FieldColumn("Branch", "<+1in", CellKind::Text, "Bank_Branch"),
      FieldColumn("Account", "<+1in", CellKind::Text, "Bank_Account_Name"),
      FieldColumn("Amount", ">+1in", CellKind::Money, "Amount", Total::Sum),
  };
  if (group == PaymentGroup::BankedAsCard) {
    list.columns[0].column.heading = QStringLiteral("Method");
    list.columns[0].cell = [](const Record& row) { return row[u"Payment_Method"]; };
  }
  list.link = LinkTo(ReportLink::To::Payment, "Payment_ID");
  ReportSection section = CollectList(
      list, business.RunSQL(Sql("SELECT * FROM Payments WHERE UCASE(Payment_Method) IN {} AND "
                                "Banking_ID = {} ORDER BY Payment_ID",
                                MethodsOf(group), banking)));
  section.title = QString::fromLatin1(title);
  section.totals.front() = QString::fromLatin1(total);
  return section;
}

ReportData CollectPayInSlip(Business& business, const ReportCriteria& criteria) {
  const qint64 banking = RecordAskedFor(
      business, criteria,
      Sql("SELECT TOP 1 Banking_ID FROM Bankings ORDER BY Banking_Date DESC, Banking_ID DESC"),
      "Please select a record to print.");
  const Recordset deposit = business.RunSQL(
      Sql("SELECT * FROM Bankings INNER JOIN Bank_Accounts ON Bankings.Bank_Account_ID = "
          "Bank_Accounts.Bank_Account_ID  WHERE Banking_ID = {}",
          banking));
  if (deposit.EndOfFile())
    throw std::invalid_argument("This deposit or its bank account is no longer there.");
  ReportData data{.title = QStringLiteral("PayIn Slip")};
  data.scope = {SystemName(),
                QStringLiteral("Pay-in slip for ") +
                    documents::ReportDateText(deposit.Field(u"Banking_Date").ToDate())};
  const Money cash = deposit.Field(u"Cash_Banked").ToMoney();
  ReportSection head = Block({"<+2.5in", ">+2.5in"},
                             {{.cells = {QStringLiteral("Account: "),
                                         deposit.Field(u"Bank_Account_Name").ToText() + u'\n' +
                                             deposit.Field(u"Bank_Account_Number").ToText()}},
                              {.cells = {QStringLiteral("Cash: "), cash}}});
  head.columns.back().kind = CellKind::Money;
  ReportSection cheques = DepositedPayments(business, banking, PaymentGroup::BankedAsCheque,
                                            "CHEQUES DEPOSITED", "Total Cheque Amount");
  ReportSection cards = DepositedPayments(business, banking, PaymentGroup::BankedAsCard,
                                          "CARDS AND OTHERS DEPOSITED", "Total Card Amount");
  const Money all = cash + cheques.totals.back().ToMoney() + cards.totals.back().ToMoney();
  ReportSection total =
      Block({"<+2.5in", ">+2.5in"}, {{.cells = {QStringLiteral("Total deposited"), all}}}, true);
  total.columns.back().kind = CellKind::Money;
  data.sections = {std::move(head), std::move(cheques), std::move(cards), std::move(total)};
  return data;
}

// The totals of each day, as a calendar of weeks.

constexpr int kDaysOfWeek = 7;

ReportSection Calendar(const ReportSection& days) {
  ReportSection calendar;
  for (const char* day :
       {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"})
    calendar.columns.push_back({QString::fromLatin1(day), "^+1in", CellKind::Text});
  ReportGroup& weeks = calendar.groups.emplace_back();
  weeks.showsKey = false;
  QDate monday;
  for (const ReportRow& row : days.groups.front().rows) {
    const QDate day = row.cells[0].ToDate();
    const QDate begin = day.addDays(1 - day.dayOfWeek());
    if (begin != monday) weeks.rows.push_back({.cells = std::vector<Value>(kDaysOfWeek)});
    monday = begin;
    const qint64 jobs = row.cells[1].ToLong();
    weeks.rows.back().cells[static_cast<size_t>(day.dayOfWeek() - 1)] =
        QStringLiteral("%1\n%2 %3\n%4")
            .arg(documents::ReportDateText(day), QString::number(jobs),
                 jobs == 1 ? QStringLiteral("job") : QStringLiteral("jobs"),
                 row.cells[2].ToMoney().ToCurrencyText());
  }
  return calendar;
}

ReportData CollectDiaryTotals(Business& business, const ReportCriteria& criteria) {
  ReportSection section;
  section.columns = {{"Date", "<+2in", CellKind::Day, Total::Word},
                     {"Jobs", ">+1in", CellKind::Count, Total::Sum},
                     {"Amount", ">+1.5in", CellKind::Money, Total::Sum}};
  ReportGroup& group = section.groups.emplace_back();
  group.showsKey = false;
  RunningTotals totals(section.columns);
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Schedule_Date, Count(Diary_ID) AS CountOfDiary_ID, "
               "Sum(Diary.Total_Price) AS SumOfTotal_Price  FROM Clients INNER JOIN Diary ON "
               "Clients.Client_ID = Diary.Client_ID  WHERE Diary.Status IN {}  AND ",
               CodesOf(EntryGroup::LiveJobs)) +
           Within("Diary.Schedule_Date", criteria.days) +
           Sql(" GROUP BY Diary.Schedule_Date ORDER BY Diary.Schedule_Date;"))) {
    group.rows.push_back(
        {.cells = {row[u"Schedule_Date"].ToDate(), row[u"CountOfDiary_ID"].ToLong(),
                   row[u"SumOfTotal_Price"].ToMoney()}});
    totals.Add(group.rows.back().cells);
  }
  section.totals = totals.Under(QStringLiteral("Total"));
  ReportData data{.title = QStringLiteral("Diary Totals")};
  data.scope = {FromTo(criteria.days), QStringLiteral("%1 jobs, %2")
                                           .arg(section.totals[1].ToLong())
                                           .arg(section.totals[2].ToMoney().ToCurrencyText())};
  data.printed = {Calendar(section)};
  data.sections = {std::move(section)};
  return data;
}

}  // namespace

std::vector<ReportKind> SheetKinds() {
  return {
      {"quote",
       "Quote",
       "Quote.doc",
       Asks::Quote,
       CollectQuote,
       {},
       {{"with-tax", "Prices include tax"}, {"without-tax", "Prices exclude tax"}}},
      {"pay-in-slip", "Pay-in slip", "PayIn Slip.doc", Asks::Deposit, CollectPayInSlip},
      {"diary-totals", "Diary totals", "Diary Totals.doc", Asks::Days, CollectDiaryTotals},
      {"diary-sheet",
       "Work sheet",
       "Diary.doc",
       Asks::DaysAndEmployee,
       CollectDiarySheet,
       {{"sequence", "As in the diary"}, {"suburb", "By suburb position"}}},
  };
}

}  // namespace quillary::reports
