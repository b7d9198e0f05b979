#include "session/StartUp.h"
#include "support/BusinessTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace quillary::session {
namespace {

class RecordedScreens : public StartUpScreens {
 public:
  std::function<std::unique_ptr<Business>()> select;
  QStringList shown;
  QStringList reached;
  int advances = 0;

  std::unique_ptr<Business> SelectDatabaseToAccess() override { return select(); }
  void ShowProgress() override {}
  void Advance() override { ++advances; }
  void ShowFirstTime(Business&) override { shown += "FirstTime"; }
  void ShowMainMenu(Business& business) override {
    shown += "MainMenu with " + business.values.taxName;
  }
  void CheckClientSchedules(Business&) override { shown += "Schedules"; }
  void OpenMonthlyInvoices(Business&) override { shown += "MonthlyInvoices"; }
  void RenameMenuCaptions(const QString& taxName) override { shown += "Tax " + taxName; }
  void Repaint() override {}
  void FillProgress() override { shown += "Full"; }
  void CloseProgress() override { shown += "Closed"; }
  void StepReached(const QString& activity) override { reached += activity; }
};

class StartUpTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    screens.select = [this] { return OpenDatabase(ports, file, folder.path()); };
  }
  /// Ends the fixture's own hold on the file and runs the sequence on it.
  std::unique_ptr<Business> Start(const QString& commandLine = {}) {
    file = business().DatabaseFile();
    business().CloseConnection();
    return StartUp(ports, settings, commandLine, screens);
  }

  QString file;
  Outside ports = outside.Ports();
  LocalSettings settings{folder.path(), outside.prompter};
  RecordedScreens screens;
};

TEST_F(StartUpTest, AnEmptyBusinessIsMadeReady) {
  Run(Sql("DELETE FROM infPersonalDetails"));
  const auto started = Start();
  ASSERT_TRUE(started);
  EXPECT_EQ(screens.advances, 17);
  EXPECT_EQ(screens.shown, QStringList({"FirstTime", "MainMenu with GST", "Schedules", "Full",
                                        "Tax GST", "Closed"}));
  EXPECT_EQ(screens.reached.last(), "ListOfClientsWithSchedulingProblem.CheckClientSchedules");
  const Recordset details = started->RunSQL(QStringLiteral("SELECT * FROM infPersonalDetails"));
  EXPECT_EQ(details.RowCount(), 1u);
  EXPECT_EQ(details.Field(u"FSE_CODE"), Value("FSECODE"));
  EXPECT_EQ(started->LookupField("Employees.Employee_Name"), Value("Default"));
  EXPECT_EQ(Value(started->values.defaultEmployee), started->LookupField("Employees.Employee_ID"));
  EXPECT_FALSE(started->values.defaultService);
  EXPECT_FLOAT_EQ(started->values.gstPercentage, 0.1F);
}

TEST_F(StartUpTest, UnknownMethodsBecomeCashAndKnownOnesStayAsStored) {
  const std::pair<const char*, const char*> cases[] = {
      {"accrual", "accrual"}, {"Bad", "Cash"}, {"", "Cash"}, {"CASH", "CASH"}};
  for (const auto& [stored, used] : cases) {
    Run(Sql("UPDATE infOptions SET Accounting_Method = {}", stored));
    const auto started = Start();
    ASSERT_TRUE(started);
    EXPECT_EQ(started->values.accountingMethod, used) << stored;
  }
}

TEST_F(StartUpTest, TheTaxIsNamedBeforeAScreenShows) {
  Run(
      Sql("UPDATE infPersonalDetails SET Country_ID = (SELECT Country_ID FROM Countries "
          "WHERE Country_Name = 'UK')"));
  ASSERT_TRUE(Start());
  EXPECT_TRUE(screens.shown.contains("MainMenu with VAT")) << screens.shown.join('|').toStdString();
  EXPECT_TRUE(screens.shown.contains("Tax VAT"));
}

TEST_F(StartUpTest, TheSetUpComesUnlessItRanOrIsAskedFor) {
  settings.WriteLocalSetting("PRE_DATABASE", "RAN_INITIAL_SETUP_8", "1");
  Start();
  EXPECT_FALSE(screens.shown.contains("FirstTime"));
  Start("-i");
  EXPECT_TRUE(screens.shown.contains("FirstTime"));
}

TEST_F(StartUpTest, MonthlyInvoicesAreRememberedOnTheDay) {
  Run(Sql("UPDATE infOptions SET Monthly_Invoices_Reminder = {}", QDate(2026, 11, 3)));
  Start();
  EXPECT_FALSE(screens.shown.contains("MonthlyInvoices"));
  Run(Sql("UPDATE infOptions SET Monthly_Invoices_Reminder = {}", QDate(2026, 11, 2)));
  outside.prompter.Expect("Reminder! You need to run your monthly invoices.", Answer::Yes);
  Start();
  EXPECT_TRUE(screens.shown.contains("MonthlyInvoices"));
}

TEST_F(StartUpTest, TemporaryFilesOfTheProgramsFolderGo) {
  QDir(folder.path()).mkdir("sub");
  for (const char* name : {"a.tmp", "b.tmp", "keep.txt", "sub/c.tmp"}) {
    QFile empty(folder.filePath(name));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));
  }
  Start();
  EXPECT_FALSE(QFile::exists(folder.filePath("a.tmp")));
  EXPECT_FALSE(QFile::exists(folder.filePath("b.tmp")));
  EXPECT_TRUE(QFile::exists(folder.filePath("keep.txt")));
  EXPECT_TRUE(QFile::exists(folder.filePath("sub/c.tmp")));
}

TEST_F(StartUpTest, AFailureTellsWhereItHadBeen) {
  Run(Sql("DROP TABLE infPersonalDetails"));
  const auto started = Start();
  EXPECT_FALSE(started);
  const QStringList told = outside.prompter.TakeTold();
  ASSERT_EQ(told.size(), 1);
  EXPECT_TRUE(told.first().endsWith("I've already been to LoadHolidaysIntoArray."))
      << "this installation names nobody to turn to: " << told.first().toStdString();

  settings.WriteLocalSetting("SUPPORT", "Address", "help@example.org");
  settings.WriteLocalSetting("SUPPORT", "FAQ", "https://example.org/faq");
  EXPECT_FALSE(Start());
  const QString pointed = outside.prompter.TakeTold().value(0);
  EXPECT_TRUE(pointed.contains("Please email this message to me at help@example.org.\n\nYou can"))
      << pointed.toStdString();
  EXPECT_TRUE(pointed.contains("under FAQ section (https://example.org/faq)"));
}

TEST_F(StartUpTest, AFileThatWillNotOpenIsToldWithBothFolders) {
  char name[] = QUILLARY_BIN "/quillary";
  char* words[] = {name};
  int count = 1;
  const QCoreApplication application(count, words);
  screens.select = [this] {
    return OpenDatabase(ports, folder.filePath("MISSING.MDB"), folder.path());
  };
  EXPECT_FALSE(Start());
  const QStringList told = outside.prompter.TakeTold();
  ASSERT_EQ(told.size(), 1);
  EXPECT_TRUE(told.first().startsWith("I couldn't connect to the Quillary database. \n"));
  EXPECT_TRUE(told.first().contains("an existing file DATA.MDB in " + folder.path() + "\n"));
  EXPECT_TRUE(told.first().contains("to repair your database also in " +
                                    QCoreApplication::applicationDirPath() + ".\n"));
  EXPECT_NE(QCoreApplication::applicationDirPath(), folder.path());
}

TEST_F(StartUpTest, OptionsOfOldFilesMayBeMissing) {
  Run(Sql("ALTER TABLE infOptions DROP COLUMN CompactDatabaseBeforeUpload"));
  Run(Sql("ALTER TABLE infOptions DROP COLUMN EnableOstrel4WebServices"));
  Run(Sql("UPDATE infOptions SET CCEmailAddress = 'me@example.com', EnableLogging = True"));
  const auto started = Start();
  ASSERT_TRUE(started);
  EXPECT_FALSE(started->values.compactDatabaseBeforeUpload);
  EXPECT_TRUE(started->values.enableOstrel4WebServices);
  EXPECT_EQ(started->values.ccEmailAddress, "me@example.com");
  EXPECT_EQ(outside.headOffice.logFile, folder.filePath("Log.txt"));
}

TEST_F(StartUpTest, ActivitiesAreLoggedOnlyInASession) {
  Start();
  EXPECT_TRUE(outside.headOffice.activities.isEmpty());
  outside.headOffice.letsIn = true;
  const auto started = Start();
  EXPECT_EQ(outside.headOffice.activities, QStringList{"Logon"});
}

TEST_F(StartUpTest, ABusinessOnItsOwnAsksForNoNetwork) {
  Run(Sql("UPDATE infOptions SET EnableOstrel4WebServices = False"));
  outside.headOffice.connected = outside.headOffice.letsIn = true;
  Start();
  EXPECT_EQ(outside.headOffice.sessionKey, "");
}

}  // namespace
}  // namespace quillary::session
