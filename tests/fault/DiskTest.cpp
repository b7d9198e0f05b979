#include "FaultFiles.h"
#include "data/store/Integrity.h"
#include "roll/ScheduleEngine.h"
#include "support/FailingDisk.h"

namespace quillary {
namespace {

/// A small roll on a disk that fails at each of its operations in turn.
class DiskTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    Run(Sql("INSERT INTO Services (Service_Code) VALUES ('LM')"));
    for (int client = 1; client <= 8; ++client) {
      Run(Sql("INSERT INTO Clients (Status) VALUES ('Active')"));
      Run(
          Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Status, Frequency, Next_Visit, "
              "Price, Employee_ID) VALUES ({}, 1, 'Regular', {}, #2026/11/01#, 35.5, 1)",
              client, client));
    }
    business().CloseConnection();
    start_ = Bytes(business().DatabaseFile());
    before_ = Look();
    Roll();
    after_ = Look();
    ASSERT_NE(before_, after_);
  }

  QStringList Look() {
    Business file(outside.Ports(), business().DatabaseFile());
    return Dump(file);
  }

  /// Opens, rolls and closes; what the user was told.
  QStringList Roll() {
    QStringList told;
    try {
      Business file(outside.Ports(), business().DatabaseFile());
      file.values.daysToAdvanceSchedule = 21;
      file.ConnectToDatabase();
      roll::AdvanceScheduleGlobally(file);
      told = outside.prompter.TakeTold();
      file.CloseConnection();
    } catch (const StorageFailure& failure) {
      told += QString(failure.what());
    }
    return told + outside.prompter.TakeTold();
  }

  void FailAtEach(DiskFault fault, FailingDisk& disk) {
    int operation = 1;
    int undone = 0;
    for (;; ++operation) {
      SCOPED_TRACE("operation " + std::to_string(operation));
      ASSERT_LT(operation, 2000);
      Remove(business().DatabaseFile());
      Write("DATA.MDB", start_);
      disk.FailAt(operation, fault);
      const QStringList told = Roll();
      const bool failed = disk.HasFailed();
      disk.Mend();
      ASSERT_EQ(FindDamage(business().DatabaseFile()), QStringList());
      const QStringList left = Look();
      ASSERT_TRUE(left == before_ || left == after_) << "pieces of a roll";
      // Folding the log back may fail after the roll is safe; then there is nothing to tell.
      if (left == before_) {
        ++undone;
        ASSERT_FALSE(told.isEmpty()) << "the roll was undone in silence";
      }
      if (!failed) {
        EXPECT_EQ(told, QStringList());
        break;
      }
    }
    EXPECT_GT(undone, 0) << "no failure reached the roll";
    RecordProperty("operations", operation - 1);
    RecordProperty("undone", undone);
  }

  QByteArray start_;
  QStringList before_;
  QStringList after_;
};

TEST_F(DiskTest, AFailedWriteLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  FailAtEach(DiskFault::WriteOnce, disk);
}
TEST_F(DiskTest, AFailedSyncLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  FailAtEach(DiskFault::SyncOnce, disk);
}
TEST_F(DiskTest, AFileThatCannotBeOpenedLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  FailAtEach(DiskFault::CannotOpen, disk);
}
TEST_F(DiskTest, AFullDiskLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  FailAtEach(DiskFault::FullFromOn, disk);
}

}  // namespace
}  // namespace quillary
