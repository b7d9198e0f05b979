#include "data/access/ConvertAccessFile.h"
#include "maintenance/CheckBusiness.h"
#include "roll/ScheduleEngine.h"
#include "session/StartUp.h"
#include "support/BusinessTest.h"

#include <random>

namespace quillary::session {
namespace {

class NoScreens : public StartUpScreens {
 public:
  std::function<std::unique_ptr<Business>()> select;
  std::unique_ptr<Business> SelectDatabaseToAccess() override { return select(); }
  void ShowProgress() override {}
  void Advance() override {}
  void ShowFirstTime(Business&) override {}
  void ShowMainMenu(Business&) override {}
  void CheckClientSchedules(Business&) override {}
  void OpenMonthlyInvoices(Business&) override {}
  void RenameMenuCaptions(const QString&) override {}
  void Repaint() override {}
  void FillProgress() override {}
  void CloseProgress() override {}
  void StepReached(const QString&) override {}
};

class HealthyBusinessTest : public BusinessTest {
 protected:
  std::unique_ptr<Business> Start(const QString& file) {
    NoScreens screens;
    screens.select = [&] {
      auto business = OpenDatabase(ports, file, folder.path());
      business->OnRefusedStatement([](const RefusedStatement&) {});  // the ladder's own
      return business;
    };
    auto started = StartUp(ports, settings, {}, screens);
    outside.prompter.TakeTold();
    return started;
  }
  QString Converted(int version, const QString& name) {
    const QString file = folder.filePath(name);
    ConvertAccessFile(
        QStringLiteral("%1/access-v%2.mdb").arg(QString(QUILLARY_TEST_DATA)).arg(version), file);
    return file;
  }
  static std::string WrongIn(Business& business) {
    QStringList wrong;
    for (const maintenance::Finding& finding : maintenance::CheckTables(business)) {
      if (!finding.isNote) wrong += finding.table + QStringLiteral(": ") + finding.what;
    }
    return wrong.join(u'\n').toStdString();
  }

  Outside ports = outside.Ports();
  LocalSettings settings{folder.path(), outside.prompter};
};

/// What happens to a business between two rolls: clients come, go and return, days pass.
class History {
 public:
  History(Business& business, PinnedClock& clock, unsigned seed)
      : business_(business), clock_(clock), random_(seed) {
    for (const Record row : business.RunSQL(Sql("SELECT Client_ID FROM Clients")))
      clients_.push_back(Id<Client>(row[size_t{0}].ToLong()));
  }

  void Step() {
    constexpr const char* kStatuses[] = {"ACTIVE", "CANCELLED", "TRANSFERRED", "QUOTE ONLY"};
    const Id<Client> client = clients_[Below(clients_.size())];
    switch (Below(3)) {
      case 0:
        business_.Write(Sql("UPDATE Clients SET Status = {} WHERE Client_ID = {}",
                            kStatuses[Below(std::size(kStatuses))], client),
                        Rows::Exactly(1));
        break;
      case 1:
        roll::AdvanceScheduleForClient(business_, client);
        break;
      default:
        clock_.now.date = clock_.now.date.addDays(static_cast<qint64>(1 + Below(9)));
        roll::AdvanceScheduleGlobally(business_);
    }
  }

 private:
  size_t Below(size_t end) { return std::uniform_int_distribution<size_t>(0, end - 1)(random_); }

  Business& business_;
  PinnedClock& clock_;
  std::mt19937 random_;
  std::vector<Id<Client>> clients_;
};

TEST_F(HealthyBusinessTest, NothingIsWrongAfterStartsRollsAndRebuilds) {
  const DateTime today = outside.clock.now;
  for (const int version : {12, 44, 57}) {
    SCOPED_TRACE(version);
    outside.clock.now = today;
    const QString file = Converted(version, QStringLiteral("V%1.MDB").arg(version));
    auto business = Start(file);
    ASSERT_TRUE(business);
    ASSERT_EQ(WrongIn(*business), "") << "after the first start";
    History history(*business, outside.clock, 41U + static_cast<unsigned>(version));
    for (int step = 1; step <= 40; ++step) {
      history.Step();
      if (step % 10 != 0) continue;
      ASSERT_EQ(WrongIn(*business), "") << "after step " << step;
    }
    business->CloseConnection();
    business = Start(file);
    ASSERT_TRUE(business);
    EXPECT_EQ(WrongIn(*business), "") << "after a later start";
  }
}

TEST_F(HealthyBusinessTest, LinesOfAClientThatHasLeftAreOnlyNoted) {
  const auto business = Start(Converted(44, "LEFT.MDB"));
  ASSERT_TRUE(business);
  const Value loose = business->FirstField(
      Sql("SELECT COUNT(*) FROM Diary_Services LEFT JOIN Diary "
          "ON Diary_Services.Diary_ID = Diary.Diary_ID WHERE Diary.Diary_ID IS NULL"));
  ASSERT_EQ(loose, Value(0));
  business->RunSQL(Sql("UPDATE Clients SET Status = 'CANCELLED' WHERE Status = 'ACTIVE'"));
  outside.clock.now.date = outside.clock.now.date.addDays(3);
  ASSERT_GT(roll::AdvanceScheduleGlobally(*business).entriesDeleted, 0);
  EXPECT_EQ(WrongIn(*business), "");
  const auto findings = maintenance::CheckTables(*business);
  EXPECT_TRUE(std::any_of(findings.begin(), findings.end(), [](const maintenance::Finding& each) {
    return each.isNote && each.table == u"Diary_Services";
  }));
}

}  // namespace
}  // namespace quillary::session
