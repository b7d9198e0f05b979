#include "InvoiceTest.h"
#include "billing/runs/MonthlyRun.h"
#include "data/store/Connection.h"

namespace quillary::billing {
namespace {

const MonthlyPeriod kFaultyOctober{{{2026, 10, 1}, {2026, 10, 31}}, {2026, 11, 2}};

/// Counts the writes to a file and spoils one of them.
struct Fault {
  int at = 0;      // the write that fails, from 1; 0 for none
  int writes = 0;  // so far
  int code = 0;    // how it fails; SQLITE_ERROR is an ordinary error of one statement
};

void Write(sqlite3_context* context, int, sqlite3_value**) {
  auto* fault = static_cast<Fault*>(sqlite3_user_data(context));
  if (++fault->writes != fault->at) return;
  if (fault->code == SQLITE_ERROR)
    sqlite3_result_error(context, "spoilt", -1);
  else
    sqlite3_result_error_code(context, fault->code);
}

class MonthlyFaultTest : public InvoiceTest {
 protected:
  void SetUp() override {
    InvoiceTest::SetUp();
    AddClient("Zoe", "Active", "Monthly", 4);
    AddClient("Yan", "Active", "Monthly", 5);
    for (const qint64 client : {2, 3, 4, 4, 5}) AddJob(client, "JD", QDate(2026, 10, 9));
    AddJob(3, "JD", QDate(2026, 10, 20), 0, 0);
    sqlite3* file = business().StoreConnection().Handle();
    sqlite3_create_function(file, "SpoilWrite", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, &fault, Write,
                            nullptr, nullptr);
    for (const char* trigger : {"a BEFORE INSERT ON Invoices", "b BEFORE UPDATE ON Diary",
                                "c BEFORE UPDATE ON infSystem", "d BEFORE UPDATE ON Invoices"}) {
      const std::string text =
          std::string("CREATE TEMP TRIGGER ") + trigger + " BEGIN SELECT SpoilWrite(); END";
      ASSERT_EQ(sqlite3_exec(file, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    }
  }
  QString Everything() {
    return Rows(Sql("SELECT * FROM Invoices")) + Rows(Sql("SELECT * FROM Diary")) +
           Rows(Sql("SELECT * FROM infSystem"));
  }
  void SpoilWrite(int at, int code) { fault = {at, 0, code}; }

  Fault fault;
};

TEST_F(MonthlyFaultTest, AFailureOfTheStoreAtAnyWriteLeavesNothingOfTheRun) {
  const QString before = Everything();
  {
    Transaction trial(business());
    GenerateMonthlyInvoices(business(), kFaultyOctober);
  }
  const int writes = fault.writes;
  ASSERT_GE(writes, 3 + 3 + 6) << "numbers, invoices and jobs";
  EXPECT_EQ(Everything(), before) << "the run goes with the work it is a part of";
  for (const int code : {SQLITE_FULL, SQLITE_IOERR_WRITE}) {
    for (int at = 1; at <= writes; ++at) {
      SpoilWrite(at, code);
      EXPECT_THROW(GenerateMonthlyInvoices(business(), kFaultyOctober), StorageFailure) << at;
      EXPECT_EQ(Everything(), before) << "write " << at;
      EXPECT_EQ(outside.busy.depth, 0);
    }
  }
  SpoilWrite(0, 0);
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kFaultyOctober).invoicesMade, 3);
  EXPECT_EQ(JobStates(), "JD 1,JD 1,JD 3,JD 3,JD 2,JD 1");
}

TEST_F(MonthlyFaultTest, AnErrorAtAnyWriteCostsOneClientAndARepeatMakesItUp) {
  int reported = 0;
  int undone = 0;
  for (int at = 1;; ++at) {
    Transaction trial(business());
    SpoilWrite(at, SQLITE_ERROR);
    InvoiceRunCount first;
    try {
      first = GenerateMonthlyInvoices(business(), kFaultyOctober);
    } catch (const WriteFailed&) {
      // The day up to which all is billed belongs to no client: without it the run is none.
      EXPECT_EQ(Count("Invoices"), 0) << "write " << at;
      ++undone;
      continue;
    }
    if (fault.writes < at) break;
    EXPECT_EQ(first.failed, outside.errors.TakeReports().size()) << "write " << at;
    EXPECT_LE(first.failed, 1);
    reported += first.failed;
    EXPECT_EQ(Number(Sql("SELECT Count(*) FROM Diary WHERE Invoice_ID IN "
                         "(SELECT Invoice_ID FROM Invoices)")),
              Number(Sql("SELECT Count(*) FROM Diary WHERE Invoice_ID IS NOT NULL")))
        << "a job points at an invoice that is not there, write " << at;
    SpoilWrite(0, 0);
    const InvoiceRunCount second = GenerateMonthlyInvoices(business(), kFaultyOctober);
    EXPECT_EQ(first.invoicesMade + second.invoicesMade, 3) << "write " << at;
    EXPECT_EQ(Rows(Sql("SELECT SUM(Total_Amount) FROM Invoices")), "550");
  }
  EXPECT_GE(reported, 3 + 6);
  EXPECT_EQ(undone, 1);
}

TEST_F(MonthlyFaultTest, ARealFullDiskEndsTheRunToo) {
  for (int client = 0; client < 200; ++client) {
    const qint64 id = AddClient("More", "Active", "Monthly", 6 + client);
    AddJob(id, "JD", QDate(2026, 10, 9));
  }
  const QString before = Everything();
  const auto allowPages = [&](int more) {
    sqlite3* file = business().StoreConnection().Handle();
    sqlite3_stmt* query = nullptr;
    sqlite3_prepare_v2(file, "PRAGMA page_count", -1, &query, nullptr);
    sqlite3_step(query);
    const int pages = sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    const std::string limit = "PRAGMA max_page_count = " + std::to_string(pages + more);
    sqlite3_exec(file, limit.c_str(), nullptr, nullptr, nullptr);
  };
  for (const int pages : {0, 2, 5}) {
    allowPages(pages);
    EXPECT_THROW(GenerateMonthlyInvoices(business(), kFaultyOctober), StorageFailure) << pages;
    EXPECT_EQ(Everything(), before) << pages;
  }
  allowPages(10000);
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kFaultyOctober).invoicesMade, 203);
}

}  // namespace
}  // namespace quillary::billing
