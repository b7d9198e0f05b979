// The monthly run of invoices, beside a plain loop of prepared statements that writes the same rows
// into the same file: the number spent, the invoice, its key in each job. Same tables and indexes,
// same settings, one transaction. The two take turns on fresh copies, the ratios are of medians.

#include "BenchPorts.h"
#include "RawFile.h"
#include "Timing.h"
#include "billing/runs/MonthlyRun.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace quillary::bench {
namespace {

constexpr int kJobsEach = 4;
constexpr double kMostTimesRaw = 4;
constexpr double kMostGrowth = 1.3;

const QDate kToday(2026, 11, 2);
const billing::MonthlyPeriod kOctober{{2026, 10, 1}, {2026, 10, 31}, kToday};

struct Size {
  int clients;
  int rounds;
};
constexpr Size kSizes[] = {{625, 9}, {5000, 5}};

struct Cost {
  double run = 0;  // seconds
  double raw = 0;
  bool areSame = true;  // whether both wrote the same
  double PerClient(int clients) const { return run / clients * 1e6; }
};

/// Clients who are billed by the month, each with its jobs done in October among those of a year.
void WriteBusiness(const QString& path, int clients) {
  CreateEmptyBusiness(path);
  Connection file(path);
  file.Open(OpenMode::Existing);
  file.Begin();
  for (int client = 1; client <= clients; ++client) {
    file.Run(
        Sql("INSERT INTO Clients (Status, Display_Name, Street, Suburb, Billing_Client_ID, "
            "Is_Billed_To, Statement_Type) "
            "VALUES ('Active', {}, 'High St', 'KEW', {}, 1, 'Monthly')",
            QStringLiteral("Client %1").arg(client * 7919 % clients, 6), client));
  }
  for (int month = 0; month < 12; ++month) {
    for (int job = 0; job < clients * kJobsEach; ++job) {
      file.Run(
          Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
              "Total_Price, Total_GST, Invoice_ID) VALUES ({}, 1, {}, {}, 'LM', {}, {}, {})",
              job % clients + 1, month == 0 ? "JD" : "JI",
              kOctober.from.addMonths(-month).addDays(job % 28), Money::FromWhole(40 + job % 50),
              Money::FromWhole(4), month == 0 ? Value() : Value(1'000'000 + job)));
    }
  }
  file.Commit();
}

/// What the run wrote, as the raw loop is to write it again.
struct Written {
  std::vector<Row> invoices;  // by key
  std::vector<Row> jobs;      // key of the invoice and of the job, by both
};

Written ReadWritten(const QString& path) {
  return {ReadRows(path,
                   "SELECT Client_ID, Made_Out_To, Done_For, From_Date, To_Date, Generation_Date, "
                   "Invoice_Description, Total_Amount, Total_GST, Balance_Carried_Across, "
                   "Statement_Type, Invoice_Number FROM Invoices ORDER BY Invoice_ID"),
          ReadRows(path,
                   "SELECT Invoice_ID, Diary_ID FROM Diary WHERE Invoice_ID < 1000000 "
                   "ORDER BY Invoice_ID, Diary_ID")};
}

double TimeRaw(const QString& path, const Written& written) {
  const Handle database = OpenRaw(path);
  return Seconds([&] {
    Check(sqlite3_exec(database.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
    const Prepared number =
        Prepare(database.get(), "UPDATE infSystem SET Invoice_Number = Invoice_Number + 1");
    const Prepared invoice =
        Prepare(database.get(),
                "INSERT INTO Invoices (Client_ID, Made_Out_To, Done_For, From_Date, To_Date, "
                "Generation_Date, Invoice_Description, Total_Amount, Total_GST, "
                "Balance_Carried_Across, Statement_Type, Invoice_Number) "
                "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    const Prepared job =
        Prepare(database.get(), "UPDATE Diary SET Invoice_ID = ? WHERE Diary_ID = ?");
    size_t nextJob = 0;
    for (size_t at = 0; at < written.invoices.size(); ++at) {
      Execute(number.get(), {});
      Execute(invoice.get(), written.invoices[at]);
      for (int each = 0; each < kJobsEach; ++each) Execute(job.get(), written.jobs[nextJob++]);
    }
    Check(sqlite3_exec(database.get(), "COMMIT", nullptr, nullptr, nullptr));
  });
}

double TimeRun(const QString& path, int clients, Cost& cost) {
  BenchPorts ports(kToday);
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  business.RunSQL(Sql("UPDATE infSystem SET Invoice_Number = 0"));
  billing::InvoiceRunCount count;
  const double seconds =
      Seconds([&] { count = billing::GenerateMonthlyInvoices(business, kOctober); });
  cost.areSame &= count.invoicesMade == clients && count.failed == 0;
  return seconds;
}

Cost Measure(const Size& size) {
  const QTemporaryDir folder;
  const QString original = folder.filePath(QStringLiteral("DATA.MDB"));
  WriteBusiness(original, size.clients);
  Cost cost;
  std::vector<double> run;
  std::vector<double> raw;
  Written written;
  for (int round = 0; round < size.rounds; ++round) {
    run.push_back(TimeRun(FreshCopy(folder, original), size.clients, cost));
    const QString copy = folder.filePath(QStringLiteral("COPY.MDB"));
    if (round == 0) written = ReadWritten(copy);
    raw.push_back(TimeRaw(FreshCopy(folder, original), written));
    cost.areSame &= ReadWritten(copy).jobs.size() == written.jobs.size();
  }
  cost.areSame &= written.jobs.size() == static_cast<size_t>(size.clients * kJobsEach);
  cost.run = Median(run);
  cost.raw = Median(raw);
  return cost;
}

bool Verdict(const char* what, double reached, double most) {
  const bool isReached = reached <= most;
  std::printf("%s: %.2f, at most %.1f: %s\n", what, reached, most,
              isReached ? "reached" : "MISSED");
  return isReached;
}

bool Run() {
  std::printf("Monthly run, %d jobs a client, beside a raw prepared loop (medians)\n", kJobsEach);
  std::printf("%8s %10s %10s %10s %12s\n", "clients", "run s", "raw s", "run/raw", "us a client");
  Cost costs[std::size(kSizes)];
  bool areSame = true;
  for (size_t index = 0; index < std::size(kSizes); ++index) {
    const int clients = kSizes[index].clients;
    Cost& cost = costs[index] = Measure(kSizes[index]);
    std::printf("%8d %10.3f %10.3f %10.2f %12.2f\n", clients, cost.run, cost.raw,
                cost.run / cost.raw, cost.PerClient(clients));
    areSame &= cost.areSame;
  }
  if (!areSame) std::printf("WHAT WAS WRITTEN DIFFERS\n");
  const double growth =
      costs[1].PerClient(kSizes[1].clients) / costs[0].PerClient(kSizes[0].clients);
  const bool fast =
      Verdict("run at 5000 clients / raw loop", costs[1].run / costs[1].raw, kMostTimesRaw);
  const bool level = Verdict("cost a client at 5000 / at 625 clients", growth, kMostGrowth);
  return areSame && fast && level;
}

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return quillary::bench::Run() ? 0 : 1;
}
