#include "FaultFiles.h"
#include "data/access/ConvertAccessFile.h"
#include "data/schema/Upgrader.h"
#include "maintenance/CheckBusiness.h"
#include "maintenance/Salvage.h"
#include "roll/ScheduleEngine.h"
#include "setup/demo/DemoBusiness.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>

namespace quillary {
namespace {

const QString kWorker = QStringLiteral(QUILLARY_BIN "/fault_worker");

/// Kills a process of our own at points of its work spread by a seed. QUILLARY_FAULT_POINTS asks
/// for that many points of each work instead of six.
class KillTest : public FaultTest {
 protected:
  static int Points() { return std::max(6, qEnvironmentVariableIntValue("QUILLARY_FAULT_POINTS")); }
  static QString Sample(int version) {
    return QStringLiteral(QUILLARY_TEST_DATA "/access-v%1.mdb").arg(version);
  }

  QByteArray DemoBytes() {
    setup::WriteDemoBusiness(business(), {.clients = 25, .months = 2, .seed = 9});
    business().CloseConnection();
    return Bytes(business().DatabaseFile());
  }

  /// Whether it was killed; the number of operations when it lived.
  std::optional<int> Work(const QString& work, const QString& file, int operation) {
    QProcess process;
    process.start(kWorker, {work, file, QString::number(operation), Sample(44)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitStatus() == QProcess::CrashExit) return std::nullopt;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toInt();
  }

  /// Runs the work once unharmed and then kills it at the points, showing each remainder.
  void KillAtPoints(const QString& work, const QByteArray& before,
                    const std::function<void(const QString& file)>& check) {
    const QString file = folder.filePath("WORK.MDB");
    const auto begin = [&] {
      Remove(file);
      if (!before.isEmpty()) Write("WORK.MDB", before);
    };
    begin();
    const int operations = Work(work, file, 0).value_or(0);
    ASSERT_GT(operations, 30);
    QRandomGenerator random(17);
    int killed = 0;
    for (int point = 0; point < Points(); ++point) {
      const int operation = 1 + random.bounded(operations);
      SCOPED_TRACE(work.toStdString() + " killed at operation " + std::to_string(operation));
      begin();
      if (!Work(work, file, operation)) ++killed;
      ASSERT_NO_FATAL_FAILURE(check(file));
    }
    EXPECT_EQ(killed, Points());
    RecordProperty("operations", operations);
    RecordProperty("killed", killed);
  }

  void ExpectInOrder(const QString& file) {
    for (const maintenance::Finding& finding : maintenance::CheckBusiness(outside.Ports(), file)) {
      EXPECT_TRUE(finding.isNote) << finding.table.toStdString() << ": "
                                  << finding.what.toStdString();
    }
  }
  QStringList DumpOf(const QString& file) {
    Business opened(outside.Ports(), file);
    return Dump(opened);
  }
};

TEST_F(KillTest, ARollIsThereWholeOrNotAtAll) {
  const QByteArray before = DemoBytes();
  const QString whole = Write("WHOLE.MDB", before);
  const QStringList unrolled = DumpOf(whole);
  ASSERT_TRUE(Work("roll", whole, 0));
  const QStringList rolled = DumpOf(whole);
  ASSERT_NE(unrolled, rolled);
  KillAtPoints("roll", before, [&](const QString& file) {
    ExpectInOrder(file);
    const QStringList left = DumpOf(file);
    EXPECT_TRUE(left == unrolled || left == rolled);
  });
}

TEST_F(KillTest, EachSaveIsThereWholeOrNotAtAll) {
  business().RunSQL(Sql("UPDATE infOptions SET Days_To_Advance_Schedule = 60"));
  const QString rolled = Write("WHOLE.MDB", DemoBytes());
  ASSERT_TRUE(Work("roll", rolled, 0));
  KillAtPoints("save", Bytes(rolled), [&](const QString& file) {
    for (const maintenance::Finding& finding : maintenance::CheckBusiness(outside.Ports(), file)) {
      // A line is saved before its job, and until then the balance is that of before.
      const bool waits = finding.what.startsWith("Account_Balance");
      EXPECT_TRUE(finding.isNote) << finding.what.toStdString();
      EXPECT_TRUE(finding.what.startsWith("Invoice_ID") || waits) << finding.what.toStdString();
    }
  });
}

TEST_F(KillTest, ALadderGoesOnWhereItStood) {
  const QString old = folder.filePath("OLD.MDB");
  ConvertAccessFile(Sample(12), old);
  const QByteArray before = Bytes(old);
  ASSERT_TRUE(Work("ladder", old, 0));
  KillAtPoints("ladder", before, [&](const QString& file) {
    QDir(folder.filePath("Archive")).removeRecursively();
    ExpectInOrder(file);
    const qint64 version = [&] {
      Business opened(outside.Ports(), file);
      return opened.LookupField("infSystem.Database_Version").ToLong();
    }();
    EXPECT_GE(version, 12);
    EXPECT_LE(version, kSchemaVersion);
    ASSERT_TRUE(Work("ladder", file, 0));
    ExpectInOrder(file);
    Business opened(outside.Ports(), file);
    EXPECT_EQ(opened.LookupField("infSystem.Database_Version"), Value(kSchemaVersion));
    EXPECT_EQ(opened.FirstField(Sql("SELECT Sum(Amount) FROM Payments")).ToMoney(),
              Business(outside.Ports(), old)
                  .FirstField(Sql("SELECT Sum(Amount) FROM Payments"))
                  .ToMoney());
  });
}

TEST_F(KillTest, AConversionIsThereWholeOrNotAtAll) {
  const QByteArray original = Bytes(Sample(44));
  const QString whole = folder.filePath("WHOLE.MDB");
  ConvertAccessFile(Sample(44), whole);
  const QStringList converted = DumpOf(whole);
  KillAtPoints("convert", {}, [&](const QString& file) {
    EXPECT_EQ(Bytes(Sample(44)), original);
    if (!QFile::exists(file)) return;
    ExpectInOrder(file);
    EXPECT_EQ(DumpOf(file), converted);
  });
}

struct Replacing {
  const char* work;
  bool ofAccess;  // the file is converted, or else repaired
};

TEST_F(KillTest, AFileThatIsReplacedIsThereWholeAtEveryStep) {
  const Replacing cases[] = {{"repair", false},
                             {"repair-far", false},  // Archive on another file system
                             {"take-over", true},
                             {"take-over-far", true}};
  QByteArray damaged = DemoBytes();
  damaged.replace(damaged.size() / 2 / 4096 * 4096, 4096, QByteArray(4096, '\0'));
  const QString file = folder.filePath("WORK.MDB");
  for (const Replacing& each : cases) {
    const QByteArray old = each.ofAccess ? Bytes(Sample(57)) : damaged;
    const auto begin = [&] {
      QDir(folder.filePath("Archive")).removeRecursively();
      Remove(file);
      Write("WORK.MDB", old);
      // A log that no longer fits, as a power cut leaves; it must never meet the new file.
      if (!each.ofAccess) Write("WORK.MDB-wal", "stale");
    };
    begin();
    const int operations = Work(each.work, file, 0).value_or(0);
    ASSERT_GE(operations, 4);
    const QStringList whole = DumpOf(file);
    for (int operation = 1; operation <= operations; ++operation) {
      SCOPED_TRACE(std::string(each.work) + " killed at " + std::to_string(operation));
      begin();
      EXPECT_FALSE(Work(each.work, file, operation)) << "it lived";
      const QDir archive(folder.filePath("Archive"));
      const QStringList kept = archive.entryList({"WORK *.MDB"}, QDir::Files);
      for (const QString& name : kept) EXPECT_EQ(Bytes(archive.filePath(name)), old);
      if (Bytes(file) == old) continue;
      EXPECT_EQ(kept.size(), 1);
      EXPECT_FALSE(QFile::exists(file + "-wal"));
      EXPECT_EQ(DumpOf(file), whole);
    }
    RecordProperty(std::string(each.work) + "_operations", operations);
  }
}

TEST_F(KillTest, TheSecondProgramIsRefusedAndAKilledOneStopsNobody) {
  const QString file = business().DatabaseFile();
  business().CloseConnection();
  QProcess holder;
  holder.start(kWorker, {"hold", file, "0"});
  ASSERT_TRUE(holder.waitForReadyRead(30'000));
  const auto refusal = [&](const auto& act) -> QString {
    try {
      act();
      return {};
    } catch (const StorageFailure& failure) {
      EXPECT_EQ(failure.Fault(), StorageFault::InUse);
      return QString(failure.what());
    }
  };
  const QString inUse = file + " is in use by another program";
  EXPECT_TRUE(refusal([&] { business().ConnectToDatabase(); }).startsWith(inUse));
  EXPECT_NE(refusal([&] { maintenance::CheckBusiness(outside.Ports(), file); }), "");
  EXPECT_TRUE(refusal([&] {
                maintenance::SalvageFile(file, folder.filePath("NEW.MDB"));
              }).startsWith(inUse));
  holder.kill();
  ASSERT_TRUE(holder.waitForFinished(30'000));
  EXPECT_EQ(refusal([&] { business().ConnectToDatabase(); }), "");
  EXPECT_EQ(Count("infSystem"), 1);
}

}  // namespace
}  // namespace quillary
