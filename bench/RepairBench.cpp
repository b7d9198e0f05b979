// The repair of all records, and the recalculation of budgets, each beside the same work as bare
// SQLite would do it: the repair's own statements in one transaction, and one set-based statement
// of the budgets' sums. They take turns on fresh copies; medians of the rounds.

#include "BenchPorts.h"
#include "RawFile.h"
#include "Timing.h"
#include "accounts/budgets/BudgetPeriods.h"
#include "accounts/yearend/SortOut.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QCoreApplication>

#include <cstdio>

namespace quillary::bench {
namespace {

constexpr int kJobs = 200'000;
constexpr int kEntries = 100'000;
constexpr int kRounds = 3;
constexpr double kMost = 3;

const QDate kToday(2026, 11, 2);

/// One in fifty jobs has a wrong total, one in fifty payments a split that does not add up.
void Fill(Connection& file) {
  file.Begin();
  for (int account = 1; account <= 20; ++account)
    file.Run(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
            "VALUES ({}, 'Expense')",
            QStringLiteral("Account %1").arg(account)));
  for (int job = 0; job < kJobs; ++job) {
    file.Run(
        Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price, Total_GST) "
            "VALUES ({}, 'JD', {}, {}, 5)",
            job % 900 + 1, kToday.addDays(-(job % 700)), job % 50 == 0 ? 54 : 55));
    file.Run(
        Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) "
            "VALUES ({}, 1, 55, 5)",
            job + 1));
  }
  for (int entry = 0; entry < kEntries; ++entry) {
    file.Run(Sql("INSERT INTO Payments (Client_ID, Amount, Payment_Date) VALUES ({}, 20, {})",
                 entry % 900 + 1, kToday.addDays(-(entry % 300))));
    file.Run(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Payment_ID, Entry_Date, "
            "GL_Amount) VALUES ({}, {}, {}, {})",
            entry % 20 + 1, entry + 1, kToday.addDays(-(entry % 300)), entry % 50 == 0 ? 19 : 20));
  }
  file.Commit();
}

void Execute(const Handle& file, const char* statement) {
  Check(sqlite3_exec(file.get(), statement, nullptr, nullptr, nullptr));
}

/// What the repair asks of the store, as one statement for each step.
void SortOutBare(const QString& path) {
  const Handle file = OpenRaw(path);
  Execute(file, "BEGIN");
  for (const char* statement :
       {"UPDATE Clients SET Display_Name = Surname || ', ' || First_Name WHERE Display_Name = '' "
        "OR Display_Name IS NULL",
        "UPDATE Clients SET First_Name = Display_Name WHERE (First_Name = '' OR First_Name IS "
        "NULL) AND (Surname = '' OR Surname IS NULL)",
        "DELETE FROM Payments WHERE Amount = 0 OR Amount IS NULL OR Client_ID = 0 OR Client_ID IS "
        "NULL",
        "DELETE FROM Purchases WHERE Amount = 0 OR Amount IS NULL",
        "DELETE FROM General_Ledger_Entries WHERE (Payment_ID IS NULL AND Purchase_ID IS NULL) OR "
        "GL_Amount = 0",
        "DELETE FROM General_Ledger_Entries WHERE Purchase_ID IS NULL AND Payment_ID NOT IN "
        "(SELECT Payment_ID FROM Payments)",
        "DELETE FROM Diary_Services WHERE Diary_ID IS NULL",
        "DELETE FROM General_Ledger_Entries WHERE Payment_ID IN (SELECT P.Payment_ID FROM Payments "
        "P JOIN General_Ledger_Entries E ON E.Payment_ID = P.Payment_ID GROUP BY P.Payment_ID "
        "HAVING SUM(E.GL_Amount) <> P.Amount)",
        "UPDATE Diary SET Payment_ID = NULL WHERE Payment_ID = 0",
        "DELETE FROM Diary WHERE Schedule_Date IS NULL",
        "DELETE FROM Diary_Services WHERE Diary_ID NOT IN (SELECT Diary_ID FROM Diary)",
        "UPDATE Invoices SET Invoice_Number = Trim(Invoice_Number)",
        "DELETE FROM Invoices WHERE Invoice_ID NOT IN (SELECT Invoice_ID FROM Diary WHERE "
        "Invoice_ID IS NOT NULL)",
        "UPDATE Diary SET Total_Price = (SELECT COALESCE(SUM(Price), 0) FROM Diary_Services S "
        "WHERE S.Diary_ID = Diary.Diary_ID), Total_GST = (SELECT COALESCE(SUM(GST), 0) FROM "
        "Diary_Services S WHERE S.Diary_ID = Diary.Diary_ID)"})
    Execute(file, statement);
  Execute(file, "COMMIT");
}

void SumBudgetsBare(const QString& path) {
  const Handle file = OpenRaw(path);
  Execute(file, "BEGIN");
  Execute(file,
          "UPDATE General_Ledger_Entries SET Budget_ID = (SELECT B.Budget_ID FROM Budgets B JOIN "
          "Budget_Periods P ON P.Budget_Period_ID = B.Budget_Period_ID WHERE B.GL_Account_ID = "
          "General_Ledger_Entries.GL_Account_ID AND Entry_Date BETWEEN Starting_Date AND "
          "Ending_Date)");
  Execute(file,
          "UPDATE Budgets SET Actual = COALESCE((SELECT SUM(GL_Amount) FROM "
          "General_Ledger_Entries E WHERE E.Budget_ID = Budgets.Budget_ID), 0)");
  Execute(file, "COMMIT");
}

class Bench {
 public:
  Bench() : ports_(kToday), original_(folder_.filePath(QStringLiteral("DATA.MDB"))) {
    CreateEmptyBusiness(original_);
    Business business(ports_.Ports(), original_);
    business.ConnectToDatabase();
    Fill(business.StoreConnection());
    accounts::InitializeBudgets(business);
  }

  bool Run() {
    const bool repair = Compare(
        "sort-out of 200,000 diary rows",
        [](Business& business) { accounts::SortOutRecords(business); }, SortOutBare);
    const bool budgets = Compare(
        "budgets recalculated over 100,000 entries",
        [](Business& business) { accounts::RecalculateBudgets(business); }, SumBudgetsBare);
    return repair && budgets;
  }

 private:
  template <typename Ours, typename Bare>
  bool Compare(const char* what, const Ours& ours, const Bare& bare) {
    std::vector<double> own;
    std::vector<double> floor;
    for (int round = 0; round < kRounds; ++round) {
      const QString copy = FreshCopy(folder_, original_);
      {
        Business business(ports_.Ports(), copy);
        business.ConnectToDatabase();
        own.push_back(Seconds([&] { ours(business); }));
      }
      const QString other = FreshCopy(folder_, original_);
      floor.push_back(Seconds([&] { bare(other); }));
    }
    const double ratio = Median(own) / Median(floor);
    std::printf("%-44s %8.0f ms, bare %8.0f ms: %.2f, at most %.0f: %s\n", what, 1000 * Median(own),
                1000 * Median(floor), ratio, kMost, ratio <= kMost ? "reached" : "MISSED");
    return ratio <= kMost;
  }

  QTemporaryDir folder_;
  BenchPorts ports_;
  QString original_;
};

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return quillary::bench::Bench().Run() ? 0 : 1;
}
