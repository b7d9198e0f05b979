#include "FaultFiles.h"
#include "data/settings/LocalSettings.h"
#include "data/store/Integrity.h"
#include "maintenance/Compaction.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/backups/ExitBackups.h"
#include "setup/demo/DemoBusiness.h"
#include "support/FailingDisk.h"
#include "support/SpoiltFile.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>

#include <signal.h>
#include <sys/resource.h>

namespace quillary {
namespace {

/// Gives up at every question.
class Declining : public Prompter {
 public:
  Answer Ask(const QString& text, const QString&) override {
    told += text;
    return Answer::No;
  }
  void Tell(Tone tone, const QString& text, const QString&) override {
    if (tone != Tone::Information) told += text;
  }
  std::optional<QString> AskText(const QString&, const QString&, const QString&) override {
    return std::nullopt;
  }
  QString told;
};

/// Backup, restoration, compaction and the backups at exit, whatever becomes of the process and the
/// disk: the business is there whole, as it was or as the backup has it, and there is always a good
/// backup. QUILLARY_FAULT_POINTS asks for that many kills of each work.
class WholeFileFaultTest : public FaultTest {
 protected:
  void SetUp() override {
    FaultTest::SetUp();
    setup::WriteDemoBusiness(business(), {.clients = 8, .months = 1, .seed = 5});
    Run(Sql("UPDATE infSystem SET Backup_Description = 'the old one'"));
    business().CloseConnection();
    older_ = Bytes(business().DatabaseFile());
    Run(Sql("UPDATE Clients SET Notes = 'written since'"));
    // Room that compaction can win.
    Run(Sql("CREATE TABLE Heap (Words MEMO)"));
    for (int row = 0; row < 40; ++row)
      Run(Sql("INSERT INTO Heap (Words) VALUES ({})", QString(4000, 'x')));
    Run(Sql("DROP TABLE Heap"));
    business().CloseConnection();
    now_ = Bytes(business().DatabaseFile());
    oldRows_ = RowsOf("OLDER.MDB", older_);
    nowRows_ = RowsOf("NOW.MDB", now_);
    ASSERT_NE(oldRows_, nowRows_);
    LocalSettings settings(Place("work"), outside.prompter);
    for (const char* flag : {"DO_DAILY_BACKUP", "DO_WEEKLY_BACKUP", "DO_MONTHLY_BACKUP"})
      settings.WriteLocalSetting("BACKUPS", flag, "1");
    settings_ = Bytes(Place("work/qy.ini"));
  }

  QString Place(const QString& name) const {
    QDir(folder.path()).mkpath("work/Archive");
    return folder.filePath(name);
  }
  QString File() const { return Place("work/WORK.MDB"); }
  QString Backup() const { return Place("work/BACKUP.MDB"); }
  QString Daily() const { return Place("work/Archive/Data1Mon.mdb"); }

  /// The business as it is now, and an older backup of it, also as the day's one.
  void Begin() {
    QDir(Place("work")).removeRecursively();
    Place("work");
    Write("work/WORK.MDB", now_);
    Write("work/BACKUP.MDB", older_);
    Write("work/Archive/Data1Mon.mdb", older_);
    SetDay(Daily(), QDate(2026, 10, 26));
    Write("work/qy.ini", settings_);
  }
  static void SetDay(const QString& path, QDate day) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(day.startOfDay(), QFileDevice::FileModificationTime);
  }
  QStringList RowsOf(const QString& name, const QByteArray& bytes) {
    const QStringList rows = RowsIn(Write(name, bytes));
    Remove(folder.filePath(name));
    return rows;
  }
  /// All rows but the description, which is written before anything is copied.
  QStringList RowsIn(const QString& file) {
    Business opened(outside.Ports(), file);
    QStringList rows = Dump(opened);
    opened.CloseConnection();
    rows.removeIf([](const QString& row) { return row.startsWith("infSystem|"); });
    return rows;
  }

  /// What must hold after any end of any of the works.
  void ExpectNothingLost(const QString& work) {
    ASSERT_EQ(FindDamage(File()), QStringList());
    const QStringList left = RowsIn(File());
    const bool isRestored = left == oldRows_;
    ASSERT_TRUE(left == nowRows_ || (isRestored && work.startsWith("restore"))) << "pieces of it";
    for (const QString& backup : {Backup(), Daily()}) {
      ASSERT_EQ(FindDamage(backup), QStringList());
      const bool isOld = Bytes(backup) == older_;
      ASSERT_TRUE(isOld || RowsIn(backup) == nowRows_) << backup.toStdString() << " is neither";
    }
    ASSERT_TRUE(!isRestored || IsKept(nowRows_)) << "what was is not in Archive";
    for (const maintenance::BackupFacts& listed : maintenance::ListBackups(Place("work/Archive")))
      ASSERT_EQ(FindDamage(listed.file), QStringList()) << "half a backup is offered";
  }
  bool IsKept(const QStringList& rows) {
    const QDir archive(Place("work/Archive"));
    for (const QString& name : archive.entryList({"DATA *.MDB", "*.BAK"}, QDir::Files))
      if (RowsIn(archive.filePath(name)) == rows) return true;
    return false;
  }

  std::optional<int> Work(const QString& work, int operation) {
    QProcess process;
    process.start(QStringLiteral(QUILLARY_BIN "/fault_worker"),
                  {work, File(), QString::number(operation)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitStatus() == QProcess::CrashExit) return std::nullopt;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toInt();
  }

  /// Does the work here; what the user was told when it could not be done.
  QString DoHere(const QString& work) {
    try {
      if (work == u"compact") {
        Declining user;
        const auto area = [this] { return std::optional(Place("work")); };
        const bool done =
            maintenance::CompactDatabase(File(), {Place("work/Archive"), area}, user).done;
        EXPECT_TRUE(done || !user.told.isEmpty()) << "it was given up in silence";
        return done ? QString() : user.told;
      }
      Business opened(outside.Ports(), File());
      if (work == u"backup") maintenance::BackupDatabaseTo(opened, "the new one", Backup());
      if (work == u"restore") maintenance::RestoreBackup(opened, Backup(), Place("work/Archive"));
      if (work == u"exit") {
        LocalSettings settings(Place("work"), outside.prompter);
        maintenance::TakeExitBackups(opened, settings, Place("work/Archive"));
      }
      opened.CloseConnection();
      return {};
    } catch (const std::exception& failure) {
      return QString::fromUtf8(failure.what());
    }
  }

  QByteArray older_;
  QByteArray now_;
  QByteArray settings_;
  QStringList oldRows_;
  QStringList nowRows_;
};

class WholeFileWorkTest : public WholeFileFaultTest,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(WholeFileWorkTest, AKilledProcessLosesNothing) {
  const int points = std::max(10, qEnvironmentVariableIntValue("QUILLARY_FAULT_POINTS"));
  QRandomGenerator random(29);
  int killed = 0;
  for (const QString& work : {QString(GetParam()), QString(GetParam()) + "-names"}) {
    Begin();
    const int operations = Work(work, 0).value_or(0);
    ASSERT_GT(operations, 1) << work.toStdString();
    RecordProperty(work.toStdString(), operations);
    const bool each = operations <= points;
    for (int point = 1; point <= (each ? operations : points); ++point) {
      const int operation = each ? point : 1 + random.bounded(operations);
      SCOPED_TRACE(work.toStdString() + " killed at operation " + std::to_string(operation));
      Begin();
      ASSERT_FALSE(Work(work, operation)) << "it lived";
      ++killed;
      ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(work));
      // The next start goes on as if nothing had been.
      ASSERT_TRUE(Work(GetParam(), 0));
      ASSERT_EQ(FindDamage(File()), QStringList());
    }
  }
  RecordProperty("killed", killed);
}

TEST_P(WholeFileWorkTest, AFailingDiskLosesNothingAndIsTold) {
  FailingDisk disk;
  // The three copies at exit are made as one is; there it matters which of them fails.
  const int stride = GetParam() == std::string_view("exit") ? 5 : 1;
  for (const DiskFault fault : {DiskFault::WriteOnce, DiskFault::SyncOnce, DiskFault::FullFromOn}) {
    int told = 0;
    for (int operation = 1;; operation += stride) {
      SCOPED_TRACE("operation " + std::to_string(operation));
      ASSERT_LT(operation, 3000);
      Begin();
      disk.FailAt(operation, fault);
      const QString failure = DoHere(GetParam());
      const bool failed = disk.HasFailed();
      disk.Mend();
      ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(GetParam()));
      told += !failure.isEmpty();
      if (!failed) {
        EXPECT_EQ(failure, "");
        break;
      }
    }
    EXPECT_GT(told, 3) << "hardly a failure reached it";
  }
}

INSTANTIATE_TEST_SUITE_P(Each, WholeFileWorkTest,
                         ::testing::Values("backup", "restore", "compact", "exit"));

/// Files of this process cannot grow beyond so many bytes, whoever writes them.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
};

TEST_F(WholeFileFaultTest, NoRoomForACopyThatIsNotMadeBySQLite) {
  // The backup is the larger file, so that there is room for what is kept and none for the copy.
  std::swap(older_, now_);
  std::swap(oldRows_, nowRows_);
  int told = 0;
  for (qsizetype room = now_.size() + 4096; room < older_.size(); room += 16'384) {
    Begin();
    QString failure;
    {
      const FileSizeLimit limit(static_cast<rlim_t>(room));
      failure = DoHere("restore");
    }
    EXPECT_TRUE(failure.contains("Your database is as it was")) << failure.toStdString();
    EXPECT_EQ(RowsIn(File()), nowRows_);
    ASSERT_NO_FATAL_FAILURE(ExpectNothingLost("restore"));
    ++told;
  }
  EXPECT_GT(told, 3);
}

TEST_F(WholeFileFaultTest, WhatIsDamagedNeverReplacesWhatIsWhole) {
  const int rounds = std::max(25, qEnvironmentVariableIntValue("QUILLARY_FAULT_POINTS"));
  QRandomGenerator random(41);
  int refused = 0;
  int restored = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    Begin();
    const QByteArray spoilt = Spoil(now_, random);
    Write("work/WORK.MDB", spoilt);
    for (const char* work : {"backup", "exit", "compact"}) {
      const QString failure = DoHere(work);
      refused += !failure.isEmpty();
      for (const QString& backup : {Backup(), Daily()})
        ASSERT_TRUE(Bytes(backup) == older_ || FindDamage(backup).isEmpty())
            << work << " put a damaged backup into the place of a good one";
    }
    // Nor does it keep the backup out.
    Begin();
    Write("work/WORK.MDB", spoilt);
    if (DoHere("restore").isEmpty()) {
      EXPECT_EQ(RowsIn(File()), oldRows_);
      ++restored;
    }
    // And a damaged backup never takes the place of the business.
    Begin();
    Write("work/BACKUP.MDB", Spoil(older_, random));
    Business opened(outside.Ports(), File());
    const auto refusal = maintenance::CheckRestorable(opened, Backup());
    opened.CloseConnection();
    if (refusal) {
      ++refused;
      continue;
    }
    EXPECT_EQ(DoHere("restore"), "");
    ASSERT_EQ(FindDamage(File()), QStringList());
  }
  EXPECT_GT(restored, rounds / 2) << "a damaged business cannot be replaced";
  EXPECT_GT(refused, rounds) << "hardly any damage was noticed";
}

}  // namespace
}  // namespace quillary
