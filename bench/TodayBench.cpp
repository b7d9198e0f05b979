// The figures of the screen "Today" over a diary of 200,000 entries, beside one statement that sums
// the same diary by month without their rules: the least that a screen with a year on it has to
// read. Both take turns.

#include "BenchPorts.h"
#include "Timing.h"
#include "base/ports/requests/Screens.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "kit/Theme.h"
#include "today/FridayRun.h"
#include "today/screens/TodayScreens.h"

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

namespace quillary::bench {
namespace {

constexpr int kClients = 1000;
constexpr int kEntries = 200'000;
constexpr int kDays = 2000;  // so that a day has 100 jobs
constexpr int kDaysPast = 1900;
constexpr int kRounds = 15;
constexpr double kMostMilliseconds = 50;

const QDate kToday(2026, 11, 2);

/// Every second client is billed with each job, the others by the month; jobs older than a month
/// are billed and paid.
void Fill(Connection& file) {
  file.Begin();
  for (int client = 1; client <= kClients; ++client)
    file.Run(Sql(
        "INSERT INTO Clients (Display_Name, Status, Billing_Client_ID, Is_Billed_To, "
        "Statement_Type, Account_Balance, Debtor_Since) VALUES ({}, 'Active', {}, True, {}, {}, "
        "{})",
        QStringLiteral("Client %1").arg(client), client, client % 2 == 0 ? "With Job" : "Monthly",
        client % 3 == 0 ? -150 : 0, kToday.addDays(-20)));
  int paid = 0;
  for (int row = 0; row < kEntries; ++row) {
    const QDate day = kToday.addDays(row % kDays - kDaysPast);
    const bool isDone = day < kToday;
    const bool isPaid = day < kToday.addDays(-30);
    if (isPaid) ++paid;
    const Money price = Money::FromWhole(40 + row % 60);
    if (isPaid) {
      file.Run(
          Sql("INSERT INTO Invoices (Client_ID, Generation_Date, Total_Amount, "
              "Statement_Type, IsPaid) VALUES ({}, {}, {}, 'With Job', {})",
              row % kClients + 1, day, price, paid % 50 != 0));
      file.Run(
          Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount, Payment_Method, "
              "Banking_ID) VALUES ({}, {}, {}, 'CASH', 1)",
              row % kClients + 1, day, price));
    }
    file.Run(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Sequence, Invoice_ID, Payment_ID) "
            "VALUES ({}, 1, {}, {}, 'Lawn mowing', {}, {}, {}, {})",
            row % kClients + 1, isDone ? "JD" : "J", day, price, row / kDays,
            isPaid ? Value(paid) : Value(), isPaid ? Value(paid) : Value()));
  }
  file.Run("INSERT INTO Bankings (Total_Banked) VALUES (1)");
  file.Commit();
}

void SumTheYear(Business& business) {
  business.RunSQL(
      Sql("SELECT Schedule_Date, SUM(Total_Price) AS Total FROM Diary "
          "WHERE Schedule_Date >= {} GROUP BY Schedule_Date",
          kToday.addYears(-1)));
}

struct TabHost : ScreenHost {
  void ShowScreen(Screen* screen) override {
    shown.reset(screen);
    screen->resize(1280, 640);
    screen->show();
  }
  Screen* BringToFront(const QString&) override { return shown.get(); }
  std::unique_ptr<Screen> shown;
};

void PrintMilliseconds(const char* what, double seconds) {
  std::printf("%-44s %8.1f ms\n", what, seconds * 1000);
}

template <typename Work>
double MedianOf(const Work& work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) times.push_back(Seconds(work));
  return Median(times);
}

bool Run() {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("DATA.MDB"));
  CreateEmptyBusiness(path);
  BenchPorts ports(kToday);
  Business business(ports.Ports(), path);
  business.ConnectToDatabase();
  Fill(business.StoreConnection());

  Navigator navigator;
  TabHost host;
  CommandRunner runner(ports, ports);
  today::RegisterTodayScreens(business, {navigator, host, runner}, {.archive = folder.path()});
  navigator.Open(OpenToday{});
  const auto untilLoaded = [&] { QCoreApplication::processEvents(QEventLoop::AllEvents); };
  untilLoaded();

  std::vector<double> screen;
  std::vector<double> floor;
  for (int round = 0; round < kRounds; ++round) {
    screen.push_back(Seconds([&] {
      host.shown->Reload();
      untilLoaded();
    }));
    floor.push_back(Seconds([&] { SumTheYear(business); }));
  }
  const double loaded = Median(screen);
  const bool isReached = loaded * 1000 <= kMostMilliseconds;
  std::printf("Today over %d entries of the diary (medians of %d)\n", kEntries, kRounds);
  const DateRange today = DateRange::Of(kToday);
  const auto attention = today::LoadAttention(business, {.archive = folder.path()});
  PrintMilliseconds("  today's jobs", MedianOf([&] { today::LoadJobsFigures(business, today); }));
  PrintMilliseconds("  what is owed, by age", MedianOf([&] { today::LoadOwed(business); }));
  PrintMilliseconds("  thirteen months", MedianOf([&] { today::LoadYear(business); }));
  PrintMilliseconds("  what needs attention",
                    MedianOf([&] { today::LoadAttention(business, {.archive = folder.path()}); }));
  PrintMilliseconds("  the week's run",
                    MedianOf([&] { today::LoadFridayRun(business, attention, nullptr); }));
  PrintMilliseconds("  one statement over the year", Median(floor));
  std::printf("%-44s %8.1f ms  at most 50 ms: %s\n", "  all of it, to its paint", loaded * 1000,
              isReached ? "reached" : "MISSED");
  std::printf("%-44s %8.2f\n", "  all of it / one statement over the year", loaded / Median(floor));
  return isReached;
}

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  quillary::ApplyTheme(application, quillary::ThemeChoice::Light);
  return quillary::bench::Run() ? 0 : 1;
}
