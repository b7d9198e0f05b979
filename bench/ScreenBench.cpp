// From the command to the first paint of the two lists that an owner opens all day: the client list
// of 10,000 clients, and today's page of a diary of 200,000 rows. Beside each the bare reading of
// the same rows, which is the floor: what is above it goes into the screen itself.

#include "BenchPorts.h"
#include "Timing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Screens.h"
#include "clients/ClientList.h"
#include "clients/screens/ClientScreens.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "diary/DiaryDay.h"
#include "diary/screens/DiaryScreens.h"
#include "kit/Theme.h"
#include "lists/screens/ListScreens.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <cstdlib>
#include <memory>

namespace quillary::bench {
namespace {

constexpr int kClients = 10000;
constexpr int kDiaryRows = 200000;
constexpr int kDays = 2000;  // so that a day has 100 jobs
constexpr int kRounds = 9;
constexpr double kMostMillisecondsOfDay = 100;

const QDate kToday(2026, 11, 2);

void Fill(Connection& file) {
  constexpr const char* kStreets[] = {"High St", "Station Rd", "Wattle Gr", "Correa Ct"};
  constexpr const char* kSuburbs[] = {"KEW", "HAWTHORN", "RICHMOND", "BALWYN", "CAMBERWELL"};
  file.Begin();
  for (int client = 1; client <= kClients; ++client) {
    file.Run(
        Sql("INSERT INTO Clients (Display_Name, Surname, Status, Billing_Client_ID, Is_Billed_To, "
            "Street_Number, Street, Suburb, Post_Code, Phone_1) "
            "VALUES ({}, {}, 'Active', {}, True, {}, {}, {}, '3101', {})",
            QStringLiteral("Client %1").arg(client * 7919 % kClients),
            QStringLiteral("Family %1").arg(client % 900), client, QString::number(client % 180),
            kStreets[client % 4], kSuburbs[client % 5],
            QStringLiteral("0400 %1").arg(100000 + client)));
  }
  for (int row = 0; row < kDiaryRows; ++row) {
    file.Run(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Sequence) VALUES ({}, 1, {}, {}, 'Lawn mowing', {}, {})",
            static_cast<int>(row * 7919LL % kClients) + 1, row % kDays < kDays / 2 ? "JD" : "J",
            kToday.addDays(row % kDays - kDays / 2), Money::FromWhole(40 + row % 60), row / kDays));
  }
  file.Commit();
}

/// Shows one screen at the size of a window, and notes when it is painted.
class PaintHost : public ScreenHost, public QObject {
 public:
  void ShowScreen(Screen* screen) override {
    screen_.reset(screen);
    isPainted_ = false;
    screen->installEventFilter(this);
    screen->resize(1280, 640);
    screen->show();
  }
  Screen* BringToFront(const QString&) override { return nullptr; }
  void UntilPainted() {
    while (!isPainted_) QCoreApplication::processEvents(QEventLoop::AllEvents);
    QCoreApplication::processEvents(QEventLoop::AllEvents);  // the lists within it
  }
  Screen* Shown() const { return screen_.get(); }

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) isPainted_ = true;
    return false;
  }

  std::unique_ptr<Screen> screen_;
  bool isPainted_ = false;
};

void PrintLine(const char* what, double seconds) {
  std::printf("%-52s %10.1f ms\n", what, seconds * 1000);
}

/// Median seconds from the request to the first paint.
template <typename Request>
double FirstPaint(Navigator& navigator, PaintHost& host, const Request& request) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    times.push_back(Seconds([&] {
      navigator.Open(request);
      host.UntilPainted();
    }));
  }
  return Median(times);
}

template <typename Work>
double MedianSeconds(const Work& work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) times.push_back(Seconds(work));
  return Median(times);
}

/// Median seconds from a key in the search box to the list's new paint.
double KeyToPaint(const PaintHost& host) {
  auto* search = host.Shown()->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
  if (!search) std::abort();
  std::vector<double> times;
  for (const char* typed : {"c", "cl", "cli", "clie", "clien", "client", "client 77", "kew", ""}) {
    times.push_back(Seconds([&] {
      search->setText(QString::fromLatin1(typed));
      QCoreApplication::processEvents(QEventLoop::AllEvents);
    }));
  }
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
  PaintHost host;
  CommandRunner runner(ports, ports);
  const ScreenTools tools{navigator, host, runner};
  lists::RegisterListScreens(business, tools);
  diary::RegisterDiaryScreens(business, tools);
  clients::RegisterClientScreens(business, tools);

  std::printf("From the command to the first paint (medians of %d)\n", kRounds);
  const double list = FirstPaint(navigator, host, OpenClientList{});
  const double key = KeyToPaint(host);
  const double rows = MedianSeconds([&] { clients::ClientList::Load(business); });
  std::printf("%d clients\n", kClients);
  PrintLine("  client list", list);
  PrintLine("  its rows alone", rows);
  std::printf("%-52s %10.2f\n", "  client list / its rows alone", list / rows);
  PrintLine("  a key in its search box, to the new list", key);

  const diary::DiaryQuery today{.days = DateRange::Of(business.Today())};
  const double day = FirstPaint(navigator, host, OpenDiary{});
  const double entries = MedianSeconds([&] { diary::LoadDiary(business, today); });
  const bool isReached = day * 1000 <= kMostMillisecondsOfDay;
  std::printf("%d rows of diary, %d of them today\n", kDiaryRows, kDiaryRows / kDays);
  PrintLine("  today in the diary screen", day);
  PrintLine("  its rows alone", entries);
  std::printf("%-52s %10.2f\n", "  today in the diary screen / its rows alone", day / entries);
  std::printf("%-52s %10s    at most 100 ms: %s\n", "  within sight", "",
              isReached ? "reached" : "MISSED");
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
