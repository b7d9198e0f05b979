// Two reports over ten thousand clients: profit and loss of a year beside one set-based statement
// of the same sums, and the longest list, the work done for all clients, up to its pages. The first
// two take turns, and their ratio is of the medians.

#include "BenchPorts.h"
#include "Timing.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "reports/ProfitAndLoss.h"
#include "reports/ReportLayout.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace quillary::bench {
namespace {

constexpr int kClients = 10'000;
constexpr int kJobs = 400'000;
constexpr int kPayments = 200'000;
constexpr int kDays = 500;  // over which they are spread, up to today
constexpr int kRounds = 5;
constexpr double kMostTimesStatement = 2;
constexpr double kMostSecondsToProfit = 0.3;
constexpr double kMostSecondsToFirstPage = 0.5;
constexpr double kMostMemory = 200;  // MiB, for the pages of a year

const QDate kToday(2026, 11, 2);
const DateRange kYear{{2025, 11, 3}, kToday};

void WriteBusiness(const QString& path) {
  CreateEmptyBusiness(path);
  Connection file(path);
  file.Open(OpenMode::Existing);
  file.Begin();
  for (int account = 1; account <= 8; ++account)
    file.Run(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Number, "
            "GL_Account_Type) VALUES ({}, {}, {})",
            QStringLiteral("Account %1").arg(account), QString::number(account * 100),
            account > 4 ? "Expense" : "Revenue"));
  file.Run("DELETE FROM Services");
  for (int service = 1; service <= 8; ++service)
    file.Run(
        Sql("INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID) VALUES ({}, {}, "
            "{})",
            QStringLiteral("Service %1").arg(service), QStringLiteral("S%1").arg(service),
            service % 4 + 1));
  for (int client = 1; client <= kClients; ++client)
    file.Run(
        Sql("INSERT INTO Clients (Status, Display_Name, Street, Suburb, Billing_Client_ID, "
            "Is_Billed_To) VALUES ('Active', {}, 'High St', 'KEW', {}, 1)",
            QStringLiteral("Client %1").arg(client * 7919 % kClients, 6), client));
  for (int payment = 0; payment < kPayments; ++payment)
    file.Run(
        Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount, GST_Included, Payment_Method) "
            "VALUES ({}, {}, 110, 10, 'CASH')",
            payment % kClients + 1, kToday.addDays(-(payment % kDays))));
  const Value firstService = file.Run("SELECT MIN(Service_ID) FROM Services").Field(size_t{0});
  for (int job = 0; job < kJobs; ++job) {
    file.Run(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Total_GST, Payment_ID) VALUES ({}, 1, 'JD', {}, 'LM', 55, 5, {})",
            job % kClients + 1, kToday.addDays(-(job % kDays)), job % kPayments + 1));
    file.Run(
        Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, 55, 5)",
            job + 1, firstService.ToLong() + job % 8));
  }
  file.Commit();
}

/// In MiB, as the kernel counts them; 0 where it does not say.
double MostMemory() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith("VmHWM:"))
      return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
  return 0;
}

class Bench {
 public:
  Bench() : ports_(kToday), file_(folder_.filePath(QStringLiteral("DATA.MDB"))) {
    WriteBusiness(file_);
    business_ = std::make_unique<Business>(ports_.Ports(), file_);
    business_->ConnectToDatabase();
  }

  void Run() {
    ProfitAndLoss();
    WorkDone();
  }

 private:
  reports::LaidReport Make(const char* name, const reports::ReportCriteria& criteria) {
    const reports::ReportKind* kind = reports::FindReportKind(QString::fromLatin1(name));
    return reports::LayOutReport(*business_,
                                 {.places = documents::ReportPlacesUnder(folder_.path()),
                                  .file = QString::fromLatin1(kind->file)},
                                 reports::CollectReport(*business_, *kind, criteria));
  }

  void ProfitAndLoss() {
    std::vector<double> rows;
    std::vector<double> statement;
    std::vector<double> page;
    for (int round = 0; round < kRounds; ++round) {
      rows.push_back(Seconds([&] { reports::CollectProfitAndLoss(*business_, kYear); }));
      statement.push_back(Seconds([&] {
        business_->RunSQL(Sql(
            "SELECT Services.Default_GL_Account_ID, Sum(Diary_Services.Price) AS Amount, "
            "Sum(Diary_Services.GST) AS Tax FROM ((Payments INNER JOIN Diary ON "
            "Payments.Payment_ID = Diary.Payment_ID) INNER JOIN Diary_Services ON Diary.Diary_ID "
            "= Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = "
            "Services.Service_ID WHERE Payments.Payment_Date BETWEEN {} AND {} GROUP BY "
            "Services.Default_GL_Account_ID",
            kYear.from, EndOfDay(kYear.to)));
      }));
      page.push_back(Seconds([&] { Make("profit-loss", {.days = kYear}); }));
    }
    const double tax = Seconds([&] { Make("gst", {.days = kYear}); });
    const double ratio = Median(rows) / Median(statement);
    std::printf("profit and loss of a year, %d jobs, %d payments, medians of %d rounds\n", kJobs,
                kPayments, kRounds);
    std::printf("  its rows       %8.1f ms\n  one statement  %8.1f ms\n", 1000 * Median(rows),
                1000 * Median(statement));
    std::printf("rows / statement: %.2f, at most %.1f: %s\n", ratio, kMostTimesStatement,
                ratio <= kMostTimesStatement ? "reached" : "MISSED");
    std::printf("to its page, with the year before and the chart: %.0f ms, at most %.0f: %s\n",
                1000 * Median(page), 1000 * kMostSecondsToProfit,
                Median(page) <= kMostSecondsToProfit ? "reached" : "MISSED");
    std::printf("tax report of the year, to its page: %.0f ms\n", 1000 * tax);
  }

  void WorkDone() {
    constexpr int kAtATime = 25;  // milliseconds, as the preview does
    const double before = MostMemory();
    const reports::ReportKind* kind = reports::FindReportKind(QStringLiteral("work-done"));
    std::unique_ptr<reports::GrowingReport> report;
    const double first = Seconds([&] {
      report = std::make_unique<reports::GrowingReport>(
          *business_,
          reports::ReportTarget{.places = documents::ReportPlacesUnder(folder_.path()),
                                .file = QString::fromLatin1(kind->file)},
          reports::BeginReport(*business_, *kind, {.days = kYear}));
    });
    double longest = 0;
    const double rest = Seconds([&] {
      while (!report->IsDone())
        longest = std::max(longest, Seconds([&] { report->Grow(kAtATime); }));
    });
    const double memory = MostMemory() - before;
    std::printf(
        "work done for all clients, a year: %zu pages in %.1f s, of which %.0f ms at most "
        "without a pause\n",
        report->Document().pages.pages.size(), first + rest, 1000 * longest);
    std::printf("first page: %.0f ms, at most %.0f: %s\n", 1000 * first,
                1000 * kMostSecondsToFirstPage,
                first <= kMostSecondsToFirstPage ? "reached" : "MISSED");
    std::printf("memory: %.0f MiB more, at most %.0f: %s\n", memory, kMostMemory,
                memory <= kMostMemory ? "reached" : "MISSED");
  }

  QTemporaryDir folder_;
  BenchPorts ports_;
  QString file_;
  std::unique_ptr<Business> business_;
};

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    quillary::bench::Bench().Run();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
