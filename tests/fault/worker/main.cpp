#include "data/Upgrader.h"
#include "data/access/ConvertAccessFile.h"
#include "scheduling/JobServices.h"
#include "scheduling/ScheduleEngine.h"
#include "support/FailingDisk.h"
#include "support/ScriptedOutside.h"

#include <QString>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

/// fault_worker WORK FILE OPERATION [ACCESS_FILE]
///
/// Does one piece of work on a business file and is killed at the given disk operation; with
/// operation 0 it lives, and prints how many there were.
namespace quillary {
namespace {

std::unique_ptr<Business> Open(ScriptedOutside& outside, const QString& work, const QString& file) {
  auto business = std::make_unique<Business>(outside.Ports(), file);
  // An old file has no holidays before its ladder makes them.
  if (work != u"ladder") LoadHolidaysIntoArray(*business);
  business->values.daysToAdvanceSchedule = 60;
  business->values.gstPercentage = 0.1F;
  return business;
}

/// What an hour at the desk stores: jobs that are done, lines that are added, services that change.
void SaveMuch(Business& business) {
  const Recordset jobs =
      business.RunSQL(Sql("SELECT TOP 12 Diary_ID FROM Diary WHERE Status = 'J'"));
  for (const Record row : jobs) {
    auto job = LoadJob(business, row[size_t{0}].ToLong());
    SaveService(business, *job, {{}, 1, Money::FromUnits(125000)}, SaveLine::AsNew);
    job->statusPosition = JobStatusPosition(QStringLiteral("JD"));
    SaveJob(business, *job);
  }
  for (qint64 client = 1; client <= 6; ++client) {
    business.RunSQL(
        Sql("UPDATE Client_Services SET Price = Price + 1 WHERE Client_ID = {}", client));
    AdvanceScheduleForClient(business, client);
  }
  DeleteJob(business, jobs.Row(0)[size_t{0}].ToLong());
}

void Upgrade(Business& business) {
  Upgrader::Options options;
  options.archiveFolder = business.DatabaseFolder() + QStringLiteral("/Archive");
  options.advanceScheduleForClient = [&](qint64 client) {
    AdvanceScheduleForClient(business, client);
  };
  Upgrader::Initialize(business, options);
}

int Run(const QString& work, const QString& file, int operation, const QString& accessFile) {
  ScriptedOutside outside;
  FailingDisk disk;
  disk.FailAt(operation, DiskFault::KillProcess);
  if (work == u"convert") {
    ConvertAccessFile(accessFile, file);
  } else {
    const auto business = Open(outside, work, file);
    if (work == u"roll") AdvanceScheduleGlobally(*business);
    if (work == u"save") SaveMuch(*business);
    if (work == u"ladder") Upgrade(*business);
    if (work == u"hold") {
      std::puts("open");
      std::fflush(stdout);
      pause();
    }
    business->CloseConnection();
  }
  std::printf("%d\n", disk.Operations());
  return 0;
}

}  // namespace
}  // namespace quillary

int main(int count, char** words) {
  if (count < 4) return 2;
  return quillary::Run(QString::fromLocal8Bit(words[1]), QString::fromLocal8Bit(words[2]),
                       std::atoi(words[3]),
                       count > 4 ? QString::fromLocal8Bit(words[4]) : QString());
}
