#include "FaultFiles.h"
#include "data/store/Integrity.h"
#include "fault/worker/BookWork.h"
#include "support/FailingDisk.h"

#include <QProcess>

namespace quillary {
namespace {

/// A deposit, the deletion of a year's records and their sorting out are there whole or were never
/// begun, whatever the disk does and whenever the process dies.
class BookWorkTest : public FaultTest, public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    FillBooks();
    business().CloseConnection();
    start_ = Bytes(business().DatabaseFile());
    before_ = Look();
    ASSERT_TRUE(Work(0));
    after_ = Look();
    ASSERT_NE(before_, after_);
  }

  /// Something for each of the works, spread over the year.
  void FillBooks() {
    Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Business')"));
    const char* const methods[] = {"CASH", "CHEQUE", "EFT"};
    for (int number = 0; number < 240; ++number) {
      const QDate day = QDate(2026, 1, 1).addDays(number);
      Run(
          Sql("INSERT INTO Payments (Client_ID, Payment_Method, Amount, Payment_Date) "
              "VALUES (1, {}, {}, {})",
              methods[number % 3], number % 5 == 0 ? 0 : 10, day));
      Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES ({}, {})",
              number + 1, number % 7 == 0 ? 9 : 10));
      Run(Sql("INSERT INTO Purchases (Amount, Purchase_Date) VALUES ({}, {})", number % 4, day));
      Run(
          Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price) "
              "VALUES (1, 'JD', {}, 5)",
              day));
      Run(Sql("INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES ({}, 20, 2)", number + 1));
    }
  }

  void Begin() {
    Remove(business().DatabaseFile());
    Write("DATA.MDB", start_);
  }
  QStringList Look() {
    Business file(outside.Ports(), business().DatabaseFile());
    return Dump(file);
  }
  /// Whether it was done without a failure.
  bool DoHere() {
    try {
      Business file(outside.Ports(), business().DatabaseFile());
      BookWork(GetParam())(file);
      file.CloseConnection();
      return true;
    } catch (const StorageFailure&) {
      return false;
    }
  }
  /// The number of operations when the worker lived; nothing when it was killed.
  std::optional<int> Work(int operation) {
    QProcess process;
    process.start(QStringLiteral(QUILLARY_BIN "/fault_worker"),
                  {GetParam(), business().DatabaseFile(), QString::number(operation)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitStatus() == QProcess::CrashExit) return std::nullopt;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toInt();
  }

  QByteArray start_;
  QStringList before_;
  QStringList after_;
};

TEST_P(BookWorkTest, AFailingDiskLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  for (const DiskFault fault : {DiskFault::WriteOnce, DiskFault::SyncOnce, DiskFault::FullFromOn}) {
    int undone = 0;
    for (int operation = 1;; ++operation) {
      SCOPED_TRACE("operation " + std::to_string(operation));
      ASSERT_LT(operation, 2000);
      Begin();
      disk.FailAt(operation, fault);
      const bool done = DoHere();
      const bool failed = disk.HasFailed();
      disk.Mend();
      ASSERT_EQ(FindDamage(business().DatabaseFile()), QStringList());
      const QStringList left = Look();
      ASSERT_TRUE(left == before_ || left == after_) << "pieces of it";
      if (left == before_) {
        ++undone;
        ASSERT_FALSE(done) << "it was undone in silence";
      }
      if (!failed) break;
    }
    EXPECT_GT(undone, 0) << "no failure reached it";
  }
}

TEST_P(BookWorkTest, AKilledProcessLeavesTheStateBeforeOrAfter) {
  Begin();
  const int operations = Work(0).value_or(0);
  ASSERT_GT(operations, 5);
  int before = 0;
  int after = 0;
  for (int operation = 1; operation <= operations; ++operation) {
    SCOPED_TRACE("killed at operation " + std::to_string(operation));
    Begin();
    ASSERT_FALSE(Work(operation)) << "it lived";
    ASSERT_EQ(FindDamage(business().DatabaseFile()), QStringList());
    const QStringList left = Look();
    ASSERT_TRUE(left == before_ || left == after_) << "pieces of it";
    (left == before_ ? before : after) += 1;
  }
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

INSTANTIATE_TEST_SUITE_P(Whole, BookWorkTest,
                         ::testing::Values("deposit", "delete-previous", "sort-out"),
                         [](const auto& work) {
                           return QString(work.param).remove('-').toStdString();
                         });

}  // namespace
}  // namespace quillary
