// A backup as leaving the program takes it, beside `cp` and `sync` of the same file: a copy of 170
// MB that is proven page by page and row by row. They take turns; medians of the rounds.

#include "BenchPorts.h"
#include "Timing.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "maintenance/backups/Backups.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace quillary::bench {
namespace {

constexpr qint64 kBytes = 170'000'000;
constexpr int kRounds = 7;
constexpr double kMost = 1.3;

const QDate kToday(2026, 11, 2);

/// Jobs with their lines and a few words each, as a business of many years has them.
void Fill(const QString& path) {
  Connection file(path);
  file.Open(OpenMode::Existing);
  for (int job = 0; QFileInfo(path).size() < kBytes;) {
    file.Begin();
    for (const int end = job + 20'000; job < end; ++job) {
      file.Run(
          Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
              "Total_Price, Total_GST) VALUES ({}, 1, 'JD', {}, {}, 55, 5)",
              job % 900 + 1, kToday.addDays(-(job % 7000)),
              QStringLiteral("Lawn mowing, edges, job %1").arg(job)));
      file.Run(
          Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) "
              "VALUES ({}, 1, 55, 5)",
              job + 1));
    }
    file.Commit();
    file.Checkpoint();
  }
  file.Close();
}

void CopyAndSync(const QString& from, const QString& to) {
  QProcess copy;
  copy.start(QStringLiteral("sh"), {QStringLiteral("-c"),
                                    QStringLiteral("cp \"$0\" \"$1\" && sync "
                                                   "\"$1\""),
                                    from, to});
  if (!copy.waitForFinished(600'000) || copy.exitCode() != 0) std::exit(1);
}

int Run() {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  CreateEmptyBusiness(path);
  Fill(path);
  BenchPorts ports(kToday);
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  std::vector<double> copies;
  std::vector<double> backups;
  std::vector<double> thorough;
  int signs = 0;
  for (int round = 0; round < kRounds; ++round) {
    const QString by = folder.filePath(QStringLiteral("cp.mdb"));
    copies.push_back(Seconds([&] { CopyAndSync(path, by); }));
    QFile::remove(by);
    const QString backup = folder.filePath(QStringLiteral("backup.mdb"));
    signs = 0;
    for (const Proof proof : {Proof::Rows, Proof::Indexes}) {
      const double seconds = Seconds([&] {
        maintenance::BackupDatabaseTo(
            business, QStringLiteral("Bench"), backup, [&](int, int) { ++signs; }, proof);
      });
      (proof == Proof::Rows ? backups : thorough).push_back(seconds);
      QFile::remove(backup);
    }
  }
  const double ratio = Median(backups) / Median(copies);
  std::printf("Backup of %.0f MB, medians of %d rounds\n",
              static_cast<double>(QFileInfo(path).size()) / 1e6, kRounds);
  std::printf("  cp and sync %.0f ms, proven backup %.0f ms with %d signs of progress: %.2f\n",
              Median(copies) * 1e3, Median(backups) * 1e3, signs / 2, ratio);
  std::printf("  with every index held against its table %.0f ms\n", Median(thorough) * 1e3);
  std::printf("  at most %.1f: %s\n", kMost, ratio <= kMost ? "yes" : "NO");
  return ratio <= kMost && signs > 10 ? 0 : 1;
}

}  // namespace
}  // namespace quillary::bench

int main(int count, char** words) {
  const QCoreApplication application(count, words);
  return quillary::bench::Run();
}
