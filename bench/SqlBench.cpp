// What a statement costs through the dialect, beside the same work prepared by hand in SQLite and
// beside a fresh prepare of the same text. The three take turns, so that a machine that changes its
// speed changes it for all of them; the ratios are of the medians.

#include "BenchPorts.h"
#include "Timing.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace quillary::bench {
namespace {

constexpr int kRounds = 15;
constexpr int kStatements = 20000;
constexpr int kClients = 1000;

struct Contest {
  const char* name;
  const char* before;  // the dialect's text around the number
  const char* after;
  const char* prepared;  // SQLite's text with one place
  bool writes;
};

constexpr Contest kContests[] = {
    {"read one field by key", "SELECT Display_Name FROM Clients WHERE Client_ID = ", ";",
     "SELECT \"Display_Name\" FROM \"Clients\" WHERE \"Client_ID\" = ?1", false},
    {"read a whole row by key", "SELECT * FROM Clients WHERE Client_ID = ", "; ",
     "SELECT * FROM \"Clients\" WHERE \"Client_ID\" = ?1", false},
    {"write one field by key", "UPDATE Clients SET Status = 'Active' WHERE Client_ID = ", "; ",
     "UPDATE \"Clients\" SET \"Status\" = 'Active' WHERE \"Client_ID\" = ?1", true},
};

void Fill(Connection& file) {
  file.Begin();
  for (int client = 1; client <= kClients; ++client) {
    file.Run(
        Sql("INSERT INTO Clients (Display_Name, Status, Surname, Suburb, Account_Balance) "
            "VALUES ({}, 'Active', {}, 'KEW', {})",
            QStringLiteral("Client %1").arg(client), client, Money::FromWhole(client)));
  }
  file.Commit();
}

/// What a program that knows its statement would write: bind, step, look at each field.
void RunByHand(sqlite3_stmt* statement, int client) {
  sqlite3_bind_int(statement, 1, client);
  size_t bytes = 0;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    const int columns = sqlite3_column_count(statement);
    for (int column = 0; column < columns; ++column) {
      const unsigned char* text = sqlite3_column_text(statement, column);
      bytes += text != nullptr ? static_cast<size_t>(sqlite3_column_bytes(statement, column)) : 0;
    }
  }
  volatile size_t read = bytes;
  static_cast<void>(read);
  sqlite3_reset(statement);
}

sqlite3_stmt* PrepareByHand(sqlite3* database, const char* text) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, text, -1, &statement, nullptr);
  return statement;
}

struct Costs {
  double prepared;
  double dialect;
  double fresh;
};

Costs Measure(Business& business, const Contest& contest) {
  Connection& file = business.StoreConnection();
  sqlite3* database = file.Handle();
  const QString before = contest.before;
  const QString after = contest.after;
  std::vector<double> prepared;
  std::vector<double> dialect;
  std::vector<double> fresh;
  const auto forEach = [&](const auto& work) {
    if (contest.writes) file.Begin();
    const double seconds = Seconds([&] {
      for (int count = 0; count < kStatements; ++count) work(count % kClients + 1);
    });
    if (contest.writes) file.Commit();
    return seconds / kStatements * 1e6;
  };
  sqlite3_stmt* byHand = PrepareByHand(database, contest.prepared);
  for (int round = 0; round < kRounds; ++round) {
    prepared.push_back(forEach([&](int client) { RunByHand(byHand, client); }));
    dialect.push_back(
        forEach([&](int client) { business.RunSQL(before + QString::number(client) + after); }));
    fresh.push_back(forEach([&](int client) {
      sqlite3_stmt* statement = PrepareByHand(database, contest.prepared);
      RunByHand(statement, client);
      sqlite3_finalize(statement);
    }));
  }
  sqlite3_finalize(byHand);
  return {Median(prepared), Median(dialect), Median(fresh)};
}

void Run() {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  CreateEmptyBusiness(path);
  BenchPorts ports(QDate(2026, 11, 2));
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  Fill(business.StoreConnection());
  std::printf("A statement text through the dialect on a warm cache (medians of %d rounds of %d)\n",
              kRounds, kStatements);
  std::printf("%-26s %12s %12s %12s %12s %12s\n", "", "by hand us", "dialect us", "fresh us",
              "/ by hand", "/ fresh");
  for (const Contest& contest : kContests) {
    const Costs costs = Measure(business, contest);
    std::printf("%-26s %12.2f %12.2f %12.2f %12.2f %12.2f\n", contest.name, costs.prepared,
                costs.dialect, costs.fresh, costs.dialect / costs.prepared,
                costs.dialect / costs.fresh);
  }
}

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  quillary::bench::Run();
  return 0;
}
