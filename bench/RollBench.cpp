// The roll of the whole diary, beside a plain loop of two prepared statements that writes the same
// rows into the same file: same tables and indexes, same settings, one transaction. The two take
// turns on fresh copies of the file, and the ratios are of the medians.

#include "BenchPorts.h"
#include "RawFile.h"
#include "Timing.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "roll/ScheduleEngine.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

namespace quillary::bench {
namespace {

constexpr int kDays = 365;
constexpr double kMostTimesRaw = 4;
constexpr double kMostGrowth = 1.3;
constexpr double kMostMemory = 64;  // MiB

const QDate kToday(2026, 11, 2);

struct Size {
  int clients;
  int roundsATurn;
};
constexpr Size kSizes[] = {{250, 4}, {1000, 2}, {4000, 1}};
constexpr int kTurns = 5;

struct Cost {
  int visits = 0;
  double roll = 0;  // seconds
  double raw = 0;
  double memory = 0;  // MiB
  double PerVisit() const { return roll / visits * 1e6; }
};

/// A business whose clients each have one weekly service, spread over the days of the week.
void WriteBusiness(const QString& path, int clients) {
  CreateEmptyBusiness(path);
  Connection file(path);
  file.Open(OpenMode::Existing);
  file.Begin();
  file.Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Lawn mowing', 'LM')"));
  for (int client = 1; client <= clients; ++client) {
    file.Run(Sql("INSERT INTO Clients (Status, Display_Name) VALUES ('Active', {})",
                 QStringLiteral("Client %1").arg(client)));
    file.Run(Sql(
        "INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
        "Frequency, Next_Visit) VALUES ({}, 1, {}, 'Regular', {}, 7, {})",
        client, client % 3 + 1, Money::FromWhole(40 + client % 50), kToday.addDays(client % 7)));
  }
  file.Commit();
}

/// A figure of /proc/self/status in MiB.
double StatusMiB(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(name, 0) == 0) return std::atof(line.c_str() + name.size()) / 1024;
  }
  return 0;
}

void RestartPeakMemory() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

constexpr char kEntryColumns[] =
    "Client_ID, Employee_ID, Status, Schedule_Date, Description, Total_Price, Total_GST, "
    "Time_Requested, Estimated_Minutes, Sequence, Notes";
constexpr char kLineColumns[] = "Diary_ID, Service_ID, Price, GST, Frequency";

/// What the roll wrote, as the raw loop is to write it again.
struct Written {
  std::vector<Row> entries;
  std::vector<Row> lines;
};

std::string Select(const char* columns, const char* table, const char* key) {
  return std::string("SELECT ") + columns + " FROM " + table + " ORDER BY " + key;
}

Written ReadWritten(const QString& path) {
  return {ReadRows(path, Select(kEntryColumns, "Diary", "Diary_ID").c_str()),
          ReadRows(path, Select(kLineColumns, "Diary_Services", "Diary_Service_ID").c_str())};
}

double TimeRaw(const QString& path, const Written& written) {
  const Handle database = OpenRaw(path);
  return Seconds([&] {
    Check(sqlite3_exec(database.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
    const Prepared entry =
        Prepare(database.get(), (std::string("INSERT INTO Diary (") + kEntryColumns +
                                 ") VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                                    .c_str());
    const Prepared line = Prepare(database.get(), (std::string("INSERT INTO Diary_Services (") +
                                                   kLineColumns + ") VALUES (?, ?, ?, ?, ?)")
                                                      .c_str());
    for (size_t row = 0; row < written.entries.size(); ++row) {
      Execute(entry.get(), written.entries[row]);
      Execute(line.get(), written.lines[row]);
    }
    Check(sqlite3_exec(database.get(), "COMMIT", nullptr, nullptr, nullptr));
  });
}

double TimeRoll(const QString& path, Cost& cost) {
  BenchPorts ports(kToday);
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  business.values.daysToAdvanceSchedule = kDays;
  business.values.gstPercentage = 0.1F;
  LoadHolidaysIntoArray(business);
  RestartPeakMemory();
  const double before = StatusMiB("VmRSS:");
  const double seconds =
      Seconds([&] { cost.visits = roll::AdvanceScheduleGlobally(business).entriesMade; });
  cost.memory = std::max(cost.memory, StatusMiB("VmHWM:") - before);
  return seconds;
}

/// One size and what its rounds took. The sizes take turns, so that a machine that slows down
/// meanwhile slows all of them.
class Contest {
 public:
  explicit Contest(int clients)
      : clients_(clients), original_(folder_.filePath(QStringLiteral("DATA.MDB"))) {
    WriteBusiness(original_, clients);
  }

  void Play(int rounds) {
    for (int round = 0; round < rounds; ++round) {
      roll_.push_back(TimeRoll(FreshCopy(folder_, original_), cost_));
      if (written_.entries.empty())
        written_ = ReadWritten(folder_.filePath(QStringLiteral("COPY.MDB")));
      raw_.push_back(TimeRaw(FreshCopy(folder_, original_), written_));
    }
  }
  int Clients() const { return clients_; }
  Cost Result() {
    cost_.roll = Median(roll_);
    cost_.raw = Median(raw_);
    return cost_;
  }

 private:
  int clients_;
  QTemporaryDir folder_;
  QString original_;
  Written written_;
  std::vector<double> roll_;
  std::vector<double> raw_;
  Cost cost_;
};

const char* Verdict(bool reached) {
  return reached ? "reached" : "MISSED";
}

void Run() {
  std::printf("Roll of weekly services over %d days, beside a raw prepared loop (medians)\n",
              kDays);
  std::printf("%8s %8s %10s %10s %10s %12s %10s\n", "clients", "visits", "roll s", "raw s",
              "roll/raw", "us a visit", "MiB added");
  std::vector<std::unique_ptr<Contest>> contests;
  for (const Size& size : kSizes) contests.push_back(std::make_unique<Contest>(size.clients));
  for (int turn = 0; turn < kTurns; ++turn) {
    for (size_t index = 0; index < contests.size(); ++index)
      contests[index]->Play(kSizes[index].roundsATurn);
  }
  std::vector<Cost> costs;
  for (const auto& contest : contests) {
    const Cost& cost = costs.emplace_back(contest->Result());
    std::printf("%8d %8d %10.3f %10.3f %10.2f %12.2f %10.1f\n", contest->Clients(), cost.visits,
                cost.roll, cost.raw, cost.roll / cost.raw, cost.PerVisit(), cost.memory);
  }
  const double timesRaw = costs[1].roll / costs[1].raw;
  const double growth = costs[2].PerVisit() / costs[0].PerVisit();
  std::printf("roll at 1000 clients / raw loop: %.2f, at most %.1f: %s\n", timesRaw, kMostTimesRaw,
              Verdict(timesRaw <= kMostTimesRaw));
  std::printf("cost a visit at 4000 / at 250 clients: %.2f, at most %.1f: %s\n", growth,
              kMostGrowth, Verdict(growth <= kMostGrowth));
  std::printf("memory added at 1000 clients: %.1f MiB, at most %.0f: %s\n", costs[1].memory,
              kMostMemory, Verdict(costs[1].memory <= kMostMemory));
}

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  quillary::bench::Run();
  return 0;
}
