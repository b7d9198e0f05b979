// Recomputing what all clients owe, beside one statement of SQLite's that computes and stores the
// same figures from whole tables, and beside Debian's ledger program summing the same amounts. The
// contestants take turns in one run; the ratios are of the medians. All begin with no balance in
// the file, so each has every figure to write.

#include "BenchPorts.h"
#include "Timing.h"
#include "balances/ClientBalance.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace quillary::bench {
namespace {

constexpr int kClients = 10000;
constexpr int kJobs = 100000;
constexpr int kPayments = 100000;
constexpr int kRounds = 7;
constexpr double kMostTimesStatement = 6;
constexpr double kLeastTimesFaster = 20;
constexpr char kLedger[] = "/usr/bin/ledger";

const QDate kToday(2026, 11, 2);

/// Every fifth client is billed to the one before it.
int BilledTo(int client) {
  return client % 5 == 0 ? client - 1 : client;
}
int ClientOf(int row) {
  return static_cast<int>(row * 7919LL % kClients) + 1;
}
Money PriceOf(int job) {
  return Money::FromUnits((4000 + job % 6100) * 100LL);
}
Money AmountOf(int payment) {
  return Money::FromUnits((3000 + payment % 7300) * 100LL);
}
bool IsDone(int job) {
  return job / 7 % 5 != 0;
}

void Fill(Connection& file) {
  constexpr const char* kDone[] = {"JD", "JI", "JD", "JU"};
  file.Begin();
  for (int client = 1; client <= kClients; ++client) {
    file.Run(
        Sql("INSERT INTO Clients (Display_Name, Status, Billing_Client_ID, Is_Billed_To) "
            "VALUES ({}, 'Active', {}, {})",
            QStringLiteral("Client %1").arg(client), BilledTo(client), BilledTo(client) == client));
  }
  for (int job = 0; job < kJobs; ++job) {
    file.Run(
        Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price, Payment_ID) "
            "VALUES ({}, {}, {}, {}, {})",
            ClientOf(job), IsDone(job) ? kDone[job % 4] : "J", kToday.addDays(-(job % 700)),
            PriceOf(job), job % 3 == 0 ? Value() : Value(job)));
  }
  for (int payment = 0; payment < kPayments; ++payment) {
    file.Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, {})",
                 BilledTo(ClientOf(payment)), kToday.addDays(-(payment % 700)), AmountOf(payment)));
  }
  file.Commit();
}

void WriteJournal(const QString& path) {
  QFile journal(path);
  if (!journal.open(QIODevice::WriteOnly)) std::abort();
  const auto write = [&](int day, const char* what, int client, Money amount, const char* against) {
    journal.write(QStringLiteral("%1 %2\n    Clients:C%3  %4\n    %5\n\n")
                      .arg(kToday.addDays(-day).toString(QStringLiteral("yyyy/MM/dd")), what)
                      .arg(client)
                      .arg(amount.ToText(), against)
                      .toUtf8());
  };
  for (int job = 0; job < kJobs; ++job) {
    if (!IsDone(job)) continue;
    write(job % 700, "Job", BilledTo(ClientOf(job)), -PriceOf(job), "Income");
  }
  for (int payment = 0; payment < kPayments; ++payment) {
    write(payment % 700, "Payment", BilledTo(ClientOf(payment)), AmountOf(payment), "Bank");
  }
}

void RunRaw(Connection& file, const char* statement) {
  char* error = nullptr;
  if (sqlite3_exec(file.Handle(), statement, nullptr, nullptr, &error) == SQLITE_OK) return;
  std::fprintf(stderr, "%s\n", error);
  std::abort();
}

void ForgetBalances(Connection& file) {
  RunRaw(file, "UPDATE Clients SET Account_Balance = NULL, Debtor_Since = NULL");
}

/// Who pays for itself, with the jobs of its group and the payments of its own.
constexpr char kOneStatement[] =
    "UPDATE Clients SET Account_Balance = figures.balance FROM ("
    "  SELECT c.Client_ID AS id,"
    "    round(ifnull(p.paid, 0), 2) - round(ifnull(j.jobs, 0), 2) AS balance"
    "  FROM Clients c"
    "  LEFT JOIN (SELECT Client_ID, sum(Amount) AS paid FROM Payments GROUP BY Client_ID) p"
    "    ON p.Client_ID = c.Client_ID"
    "  LEFT JOIN (SELECT m.Billing_Client_ID AS billed, sum(d.Total_Price) AS jobs"
    "    FROM Diary d JOIN Clients m ON d.Client_ID = m.Client_ID"
    "    WHERE d.Status IN ('JP', 'JU', 'JD', 'JI') GROUP BY m.Billing_Client_ID) j"
    "    ON j.billed = c.Client_ID"
    "  WHERE c.Is_Billed_To) AS figures "
    "WHERE Clients.Client_ID = figures.id";

/// In cents, since a sum of doubles may be off behind them.
std::vector<Money> Figures(Business& business) {
  std::vector<Money> figures;
  for (const Record row : business.RunSQL(Sql("SELECT Account_Balance FROM Clients"))) {
    figures.push_back(row[u"Account_Balance"].ToMoney().Rounded(2));
  }
  return figures;
}

double TimeLedger(const QString& journal) {
  return Seconds([&] {
    QProcess ledger;
    ledger.setStandardOutputFile(QProcess::nullDevice());
    ledger.start(kLedger, {"--init-file", "/dev/null", "-f", journal, "balance", "--flat"});
    ledger.waitForFinished(-1);
    if (ledger.exitStatus() != QProcess::NormalExit || ledger.exitCode() != 0) std::abort();
  });
}

struct Times {
  std::vector<double> all;
  std::vector<double> again;
  std::vector<double> statement;
  std::vector<double> ledger;  // empty when the program is not there
  double one = 0;
  bool areSame = true;
};

Times Measure(Business& business, const QString& journal) {
  Connection& file = business.StoreConnection();
  Times times;
  for (int round = 0; round < kRounds; ++round) {
    ForgetBalances(file);
    times.all.push_back(Seconds([&] { balances::RecalculateAmountOwingOfAllClients(business); }));
    times.again.push_back(Seconds([&] { balances::RecalculateAmountOwingOfAllClients(business); }));
    const std::vector<Money> figures = Figures(business);
    ForgetBalances(file);
    times.statement.push_back(Seconds([&] { RunRaw(file, kOneStatement); }));
    times.areSame &= Figures(business) == figures;
    if (QFile::exists(kLedger)) times.ledger.push_back(TimeLedger(journal));
  }
  constexpr int kSingles = 200;
  times.one = Seconds([&] {
                for (int client = 1; client <= kSingles; ++client) {
                  balances::RecalculateClientBalance(business, Id<Client>(client));
                }
              }) /
              kSingles;
  return times;
}

/// Prints a ratio and whether it is reached.
bool Verdict(const char* what, double ratio, bool reached, const char* limit) {
  std::printf("%-52s %10.2f    %s: %s\n", what, ratio, limit, reached ? "reached" : "MISSED");
  return reached;
}

/// False when a ratio is missed or the figures differ.
bool Print(const Times& times) {
  std::printf("What %d clients owe, from %d jobs and %d payments (medians of %d rounds)\n",
              kClients, kJobs, kPayments, kRounds);
  const auto line = [](const char* what, double seconds) {
    std::printf("%-52s %10.1f ms\n", what, seconds * 1000);
  };
  const double all = Median(times.all);
  line("all clients, every balance and date to write", all);
  line("all clients again, the oldest unpaid job to find", Median(times.again));
  line("one statement, every balance to write, no dates", Median(times.statement));
  line("one client by itself, committed", times.one);
  const double timesStatement = all / Median(times.statement);
  bool reached = Verdict("all clients / one statement", timesStatement,
                         timesStatement <= kMostTimesStatement, "at most 6");
  if (times.ledger.empty()) {
    std::printf("%s is not installed: not compared\n", kLedger);
  } else {
    line("ledger, summing the same amounts", Median(times.ledger));
    const double timesFaster = Median(times.ledger) / all;
    reached &= Verdict("ledger / all clients", timesFaster, timesFaster >= kLeastTimesFaster,
                       "at least 20");
  }
  if (!times.areSame) std::printf("THE FIGURES DIFFER\n");
  return reached && times.areSame;
}

bool Run() {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  const QString journal = folder.filePath(QStringLiteral("clients.ledger"));
  CreateEmptyBusiness(path);
  BenchPorts ports(kToday);
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  Fill(business.StoreConnection());
  WriteJournal(journal);
  return Print(Measure(business, journal));
}

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return quillary::bench::Run() ? 0 : 1;
}
