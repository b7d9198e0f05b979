#include "FaultFiles.h"
#include "accounts/banking/Deposits.h"
#include "data/store/Integrity.h"
#include "support/FailingDisk.h"

#include <QProcess>

namespace quillary {
namespace {

/// A deposit of 300 payments is there whole or was never begun, whatever the disk does and whenever
/// the process dies.
class DepositTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Business')"));
    for (int payment = 0; payment < 300; ++payment)
      Run(
          Sql("INSERT INTO Payments (Payment_Method, Amount, Payment_Date) "
              "VALUES ({}, 10, #2026/10/30#)",
              payment % 3 == 0   ? "CASH"
              : payment % 3 == 1 ? "CHEQUE"
                                 : "EFT"));
    business().CloseConnection();
    start_ = Bytes(business().DatabaseFile());
    before_ = Look();
    ASSERT_TRUE(Work(0));
    after_ = Look();
    ASSERT_NE(before_, after_);
  }

  void Begin() {
    Remove(business().DatabaseFile());
    Write("DATA.MDB", start_);
  }
  QStringList Look() {
    Business file(outside.Ports(), business().DatabaseFile());
    return Dump(file);
  }
  /// Whether the deposit was made without a failure.
  bool Bank() {
    try {
      Business file(outside.Ports(), business().DatabaseFile());
      accounts::DepositForm form{.bankAccount = Id<BankAccount>(1),
                                 .bankingDate = QDate(2026, 11, 2)};
      const auto tick = [&](PaymentGroup kind, accounts::BankedPayments& tab) {
        for (const auto& payment : accounts::LoadUndeposited(file, kind))
          tab.ticked.push_back(payment.payment);
      };
      tick(PaymentGroup::BankedAsCash, form.cash);
      tick(PaymentGroup::BankedAsCheque, form.cheques);
      tick(PaymentGroup::BankedAsCard, form.others);
      form.cashBanked = Money::FromWhole(10 * static_cast<qint64>(form.cash.ticked.size()));
      accounts::SaveDeposit(file, outside.prompter, form);
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
                  {"deposit", business().DatabaseFile(), QString::number(operation)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitStatus() == QProcess::CrashExit) return std::nullopt;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toInt();
  }

  QByteArray start_;
  QStringList before_;
  QStringList after_;
};

TEST_F(DepositTest, AFailingDiskLeavesTheStateBeforeOrAfter) {
  FailingDisk disk;
  for (const DiskFault fault : {DiskFault::WriteOnce, DiskFault::SyncOnce, DiskFault::FullFromOn}) {
    int undone = 0;
    for (int operation = 1;; ++operation) {
      SCOPED_TRACE("operation " + std::to_string(operation));
      ASSERT_LT(operation, 2000);
      Begin();
      disk.FailAt(operation, fault);
      const bool done = Bank();
      const bool failed = disk.HasFailed();
      disk.Mend();
      ASSERT_EQ(FindDamage(business().DatabaseFile()), QStringList());
      const QStringList left = Look();
      ASSERT_TRUE(left == before_ || left == after_) << "pieces of a deposit";
      if (left == before_) {
        ++undone;
        ASSERT_FALSE(done) << "it was undone in silence";
      }
      if (!failed) break;
    }
    EXPECT_GT(undone, 0) << "no failure reached the deposit";
  }
}

TEST_F(DepositTest, AKilledProcessLeavesTheStateBeforeOrAfter) {
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
    ASSERT_TRUE(left == before_ || left == after_) << "pieces of a deposit";
    (left == before_ ? before : after) += 1;
  }
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

}  // namespace
}  // namespace quillary
