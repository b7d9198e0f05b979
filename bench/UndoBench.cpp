// What it costs a command to be kept for taking back, beside the same command unkept on a fresh
// copy of the same file; and what taking it back costs. Kept and unkept take turns, and the ratios
// are of the medians.

#include "BenchPorts.h"
#include "RawFile.h"
#include "Timing.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "roll/ScheduleEngine.h"
#include "setup/demo/DemoBusiness.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

namespace quillary::bench {
namespace {

constexpr int kRounds = 9;
constexpr int kClients = 1000;
constexpr int kMonths = 6;
constexpr double kMostOfAll = 1.15;

const QDate kToday(2026, 11, 2);

struct Command {
  const char* name;
  std::function<void(Business&)> run;
};

void OneByOne(Business& business, const char* select, const char* update) {
  Transaction all(business);
  for (const Record row : business.RunSQL(Sql(select))) {
    business.Write(Sql(update, row[size_t{0}]), Rows::Exactly(1));
  }
  all.Commit();
}

/// As the owner's command does it, with the days of the range.
void DeleteRecords(Business& business) {
  const QDate from = kToday.addYears(-10);
  const DateTime to = EndOfDay(kToday.addYears(10));
  Transaction all(business);
  for (const Record job : business.RunSQL(Sql(
           "SELECT * FROM Diary WHERE Schedule_Date >= {} AND Schedule_Date <= {}", from, to))) {
    const Value& key = job[u"Diary_ID"];
    business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", key));
    business.Write(Sql("DELETE FROM Diary WHERE Diary_ID = {}", key), Rows::Exactly(1));
  }
  for (const char* records :
       {"DELETE FROM Payments WHERE Payment_Date >= {} AND Payment_Date <= {}",
        "DELETE FROM Purchases WHERE Purchase_Date >= {} AND Purchase_Date <= {}",
        "DELETE FROM Invoices WHERE From_Date >= {} AND To_Date <= {}",
        "DELETE FROM Invoice_Items WHERE Item_Date >= {} AND Item_Date <= {}"}) {
    business.Write(Sql(records, from, to));
  }
  all.Commit();
}

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"roll of all clients over a year",
       [](Business& business) {
         business.values.daysToAdvanceSchedule = 365;
         roll::AdvanceScheduleGlobally(business);
       }},
      {"a status for each job, one by one",
       [](Business& business) {
         OneByOne(business, "SELECT Diary_ID FROM Diary",
                  "UPDATE Diary SET Status = 'JC' WHERE Diary_ID = {}");
       }},
      {"a client saved 200 times, commits and all",
       [](Business& business) {
         for (int count = 0; count < 200; ++count) {
           business.Write(Sql("UPDATE Clients SET Phone_1 = {}, Notes = {} WHERE Client_ID = {}",
                              count, QStringLiteral("Note %1").arg(count), count % 50 + 1));
         }
       }},
      {"the records of all days deleted", DeleteRecords},
  };
  return commands;
}

struct Cost {
  std::vector<double> unkept;
  std::vector<double> kept;
  std::vector<double> undone;
};

class Bench {
 public:
  Bench() {
    CreateEmptyBusiness(original_);
    Business business(ports_.Ports(), original_);
    setup::WriteDemoBusiness(business, {.clients = kClients, .months = kMonths});
  }

  void Run() {
    std::printf("Commands kept for taking back, in a business of %d clients (medians of %d)\n",
                kClients, kRounds);
    std::printf("%-54s %10s %10s %10s %8s\n", "", "unkept ms", "kept ms", "undo ms", "ratio");
    for (const Command& command : Commands()) {
      Cost cost;
      for (int round = 0; round < kRounds; ++round) Play(command, cost);
      const double ratio = Median(cost.kept) / Median(cost.unkept);
      std::printf("%-54s %10.1f %10.1f %10.1f %8.2f, at most %.2f: %s\n", command.name,
                  Median(cost.unkept) * 1e3, Median(cost.kept) * 1e3, Median(cost.undone) * 1e3,
                  ratio, kMostOfAll, ratio <= kMostOfAll ? "reached" : "MISSED");
    }
  }

 private:
  void Play(const Command& command, Cost& cost) {
    {
      Business business(ports_.Ports(), FreshCopy(folder_, original_));
      LoadSharedValues(business);
      cost.unkept.push_back(Seconds([&] { command.run(business); }));
    }
    Business business(ports_.Ports(), FreshCopy(folder_, original_));
    LoadSharedValues(business);
    cost.kept.push_back(Seconds([&] {
      const CommandScope scope(business, QStringLiteral("command"));
      command.run(business);
    }));
    cost.undone.push_back(Seconds([&] {
      if (business.PastCommands().Undo()) std::fprintf(stderr, "not undone\n");
    }));
  }

  BenchPorts ports_{kToday};
  QTemporaryDir folder_;
  QString original_ = folder_.filePath(QStringLiteral("DATA.MDB"));
};

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  quillary::bench::Bench().Run();
  return 0;
}
