#include "ReportsFixture.h"

namespace quillary::reports {
namespace {

const QDate kMonday(2026, 11, 2);

/// Sheets of a handful of rows that are written here one by one.
class SheetsTest : public ReportsTest {
 protected:
  void SetUp() override {
    ReportsTest::SetUp();
    LoadSharedValues(business());
    Run(Sql("DELETE FROM Services"));
    mowing = Add(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Mowing', 'LM')"));
    hedging = Add(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Hedging', 'HT')"));
    Run(Sql("DELETE FROM Employees"));
    casey = Add(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Casey')"));
    robin = Add(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Robin')"));
  }
  qint64 Add(const Sql& insert) {
    return business().InsertReturningKey<Client>(insert).Number();  // of whatever table
  }
  qint64 AddClient(const QString& name, const char* status = "Active") {
    return Add(
        Sql("INSERT INTO Clients (Display_Name, Status, Street_Number, Street, Suburb, Post_Code) "
            "VALUES ({}, {}, '12', 'High St', 'KEW', '3101')",
            name, status));
  }
  qint64 AddEntry(qint64 client, QDate day, const char* status, qint64 employee = 0) {
    return Add(
        Sql("INSERT INTO Diary (Client_ID, Schedule_Date, Status, Employee_ID, Total_Price, "
            "Description) VALUES ({}, {}, {}, {}, 55, 'LM')",
            client, day, status, employee));
  }
  void AddLine(qint64 entry, qint64 service, double price) {
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, {}, 5)",
            entry, service, price));
  }
  /// The cells of a row, as text.
  static QString TextOf(const ReportRow& row) {
    QStringList cells;
    for (const Value& cell : row.cells)
      cells += cell.IsDate() ? cell.ToDate().toString(Qt::ISODate) : cell.ToText();
    return cells.join('|');
  }

  qint64 mowing = 0;
  qint64 hedging = 0;
  qint64 casey = 0;
  qint64 robin = 0;
};

TEST_F(SheetsTest, AQuoteNamesItsClientItsLinesAndItsFile) {
  const qint64 client = AddClient("Abel: A/B <Garden>", "Quote only");
  const qint64 quote =
      Add(Sql("INSERT INTO Quotes (Client_ID, Quote_Date) VALUES ({}, {})", client, kMonday));
  for (const auto& [service, price] : {std::pair{mowing, 55.5}, std::pair{hedging, 100.0}})
    Run(
        Sql("INSERT INTO Quote_Services (Quote_ID, Service_ID, Price, Notes) VALUES ({}, {}, {}, "
            "'front')",
            quote, service, price));
  const ReportData data = Collect("quote", {.record = quote});
  EXPECT_EQ(data.letterhead, "Quote");
  EXPECT_EQ(data.fileName, "Quote - Abel AB Garden.doc");
  EXPECT_EQ(TextOf(data.sections[0].groups[0].rows[0]), "QUOTATION|Issued : 02-Nov-2026");
  EXPECT_EQ(TextOf(data.sections[1].groups[0].rows[0]),
            "FOR: |Abel: A/B <Garden>\n12 High St\nKEW 3101");
  EXPECT_EQ(TextOf(data.sections[3].groups[0].rows[0]), "Hedging|front|100") << "by service";
  EXPECT_EQ(data.sections[3].totals[2].ToMoney(), Money::Parse(u"155.5"));

  EXPECT_EQ(Collect("quote").fileName, data.fileName) << "the newest one";
  const qint64 empty =
      Add(Sql("INSERT INTO Quotes (Client_ID, Quote_Date) VALUES ({}, {})", client, kMonday));
  const ReportData none = Collect("quote", {.record = empty});
  EXPECT_TRUE(none.sections[3].groups[0].rows.empty());
  EXPECT_EQ(none.sections[3].totals[2].ToMoney(), Money());
  EXPECT_EQ(Collect("quote", {.clients = {Id<Client>(client)}}).sections[3].totals[2].ToMoney(),
            Money())
      << "the newest of the client";
}

TEST_F(SheetsTest, TheWorkSheetHasEachEntryOnceWithItsNeighbours) {
  const qint64 client = AddClient("Abbott");
  AddEntry(client, kMonday.addDays(-21), "JD");
  AddEntry(client, kMonday.addDays(-7), "VC");
  AddEntry(client, kMonday.addDays(-3), "J");  // was never done: no visit before
  const qint64 entry = AddEntry(client, kMonday, "J", robin);
  AddLine(entry, mowing, 30);
  AddLine(entry, hedging, 25);
  AddEntry(client, kMonday.addDays(5), "JC");
  AddEntry(client, kMonday.addDays(14), "J");
  AddEntry(client, kMonday.addDays(28), "J");
  AddEntry(AddClient("Brown", "Cancelled"), kMonday, "J", casey);
  AddEntry(AddClient("Clark"), kMonday, "JC", casey);
  AddEntry(AddClient("Dunn"), kMonday, "V", casey);
  const ReportData data = Collect("diary-sheet", {.days = DateRange::Of(kMonday)});
  const ReportSection& entries = data.sections[1];
  ASSERT_EQ(entries.groups.size(), 2U);
  EXPECT_EQ(entries.groups[0].key, "Casey");
  EXPECT_EQ(TextOf(entries.groups[0].rows[0]).section('|', 2, 3), "Dunn|Visit");
  EXPECT_EQ(entries.groups[0].rows.size(), 1U) << "cancelled clients and jobs stay off";
  ASSERT_EQ(entries.groups[1].rows.size(), 1U) << "an entry of two services";
  const QString row = TextOf(entries.groups[1].rows[0]);
  EXPECT_EQ(row.section('|', 7, 7), "Mowing\nHedging");
  EXPECT_EQ(row.section('|', 11, 12), "2026-10-26|2026-11-16") << "last and next";
  EXPECT_EQ(TextOf(data.sections[0].groups[0].rows[0]), "Robin|Hedging|25|1");

  const ReportData ofCasey =
      Collect("diary-sheet", {.days = DateRange::Of(kMonday), .employee = Id<Employee>(casey)});
  EXPECT_EQ(ofCasey.sections[1].groups.size(), 1U);
  EXPECT_TRUE(ofCasey.scope.contains("Employee: Casey"));
}

TEST_F(SheetsTest, OverdueIsOpenFromTheDayOnAndBeforeToday) {
  const qint64 client = AddClient("Abbott");
  const QDate from = kMonday.addDays(-10);
  AddEntry(client, from.addDays(-1), "J");
  const qint64 first = AddEntry(client, from, "J");
  AddEntry(client, from, "JD");
  AddEntry(client, from, "V");
  const qint64 yesterday = AddEntry(client, kMonday.addDays(-1), "J");
  AddEntry(client, kMonday, "J");
  const ReportSection list =
      Collect("overdue-jobs", {.days = DateRange::Of(from)}).sections.front();
  std::vector<qint64> listed;
  for (const ReportGroup& group : list.groups)
    for (const ReportRow& row : group.rows) listed.push_back(row.link.id);
  EXPECT_EQ(listed, (std::vector{first, yesterday}));
  EXPECT_EQ(list.groups.size(), 2U) << "by day";
}

TEST_F(SheetsTest, AClientWithoutServicesIsOneRowAndCaseMakesNoGroup) {
  AddClient("Abbott", "Active");
  AddClient("Brown", "ACTIVE");
  AddClient("Clark", "Cancelled");
  const ReportSection list = Collect("clients-by-status").sections.front();
  ASSERT_EQ(list.groups.size(), 2U);
  EXPECT_EQ(list.groups[0].rows.size(), 2U);
  EXPECT_EQ(TextOf(list.groups[0].rows[0]), "Abbott|12 High St\nKEW 3101|||");
  EXPECT_EQ(TextOf({.cells = list.totals}), "||Grand Total|3|0");
  EXPECT_EQ(Collect("clients-by-status", {.option = "casual"}).sections.front().totals[3].ToLong(),
            0);
}

TEST_F(SheetsTest, QuotesAreCountedByWhatBecameOfTheirClients) {
  const std::pair<const char*, double> clients[] = {
      {"Quote only", 10}, {"Quote rejected", 20}, {"Active", 40}, {"Cancelled", 80}};
  for (const auto& [status, price] : clients) {
    const qint64 quote = Add(Sql("INSERT INTO Quotes (Client_ID, Quote_Date) VALUES ({}, {})",
                                 AddClient(status, status), kMonday));
    Run(Sql("INSERT INTO Quote_Services (Quote_ID, Service_ID, Price) VALUES ({}, 1, {})", quote,
            price));
  }
  const ReportSection section =
      Collect("conversion-rate", {.days = DateRange::MonthOf(kMonday)}).sections.front();
  EXPECT_EQ(TextOf(section.groups[0].rows[0]).section('|', 0, 8), "Nov 2026|4|150|2|120|1|20|1|10");
  EXPECT_NEAR(section.totals.back().ToDouble(), 66.7, 0.1);
}

}  // namespace
}  // namespace quillary::reports
