#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Screens.h"
#include "base/ports/requests/Setup.h"
#include "gui/GuiTest.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

namespace quillary {
namespace {

struct Expected {
  int depth;
  const char* name;
  const char* caption;  // "" for a separator
};

// The command surface as owners know it.
const Expected kTree[] = {
    {0, "mnuDiary", "&Diary..."},
    {0, "mnuClientsAddClient", "&Add client..."},
    {0, "mnuClientFindClient", "&Clients..."},
    {0, "mnuQuote", "&Quotes..."},
    {0, "mnuFinancial", "&Financial"},
    {1, "mnuFinancialPaymentsReceived", "Payments received"},
    {1, "mnuFinancialDebtors", "Debtors/Creditors"},
    {1, "mnuFinancialBanking", "Banking"},
    {1, "mnuFinancialChequeReconciliation", "Che&que reconciliation"},
    {1, "mnuFinancialBreak1", ""},
    {1, "mnuFinancialEnterInvoices", "Enter invoices"},
    {1, "mnuInvoicesList", "Invoices, Statements, && Reminders"},
    {1, "mnuFinancialStatements", "Monthly Invoice && Statement"},
    {1, "mnuFinancialBreak2", ""},
    {1, "mnuFinancialPurchases", "Purchases made"},
    {1, "mnuFinancialSuppliers", "Suppliers"},
    {1, "mnuFinancialBreak3", ""},
    {1, "mmuJobsList", "Jobs"},
    {1, "mnuFinancialBreak4", ""},
    {1, "mnuFinancialBudgets", "Yearly budgets"},
    {0, "mnuReports", "&Reports"},
    {1, "mnuSentDocuments", "Sent Documents"},
    {1, "mnuOutbox", "Outbox"},
    {1, "mnuReportsBreak_0", ""},
    {1, "mnuReportsClients", "Clients"},
    {1, "mnuReportsQuotes", "Quotes"},
    {1, "mnuReportsBadDebtors", "Bad debtors"},
    {1, "mnuReportsBreak_1", ""},
    {1, "mnuInvoiceList", "Invoice list"},
    {1, "mnuReportsJobsList", "Jobs list"},
    {1, "mnuReportsOverdueJobs", "Overdue jobs"},
    {1, "mnuReportsWorkSummary", "Jobs summary"},
    {1, "mnuPaymentsReceived", "Payments received"},
    {1, "mnuWorkDoneForClient", "Work done for clients"},
    {1, "mnuReportsBreak0", ""},
    {1, "mnuReportsGST", "GST"},
    {1, "mnuReportsDebtors", "Debtors/Creditors"},
    {1, "mnuReportsPurchases", "Purchases made"},
    {1, "mnuReportsAssets", "Assets"},
    {1, "mnuReportsPL", "Ledger accounts (Profit/Loss)"},
    {2, "mnuPLWithGST", "With GST"},
    {2, "mnuPLWithoutGST", "Without GST"},
    {1, "mnuReportsUnpresentedCheques", "Unpresented cheques"},
    {1, "mnuReportsBreak2", ""},
    {1, "mnuReportsConversionRate", "Conversion rate"},
    {1, "mnuReportsBreak3", ""},
    {1, "mnuReportsAccountOfClient", "Account of a client"},
    {1, "mnuReportsAccountantPack", "Accountant's pack"},
    {1, "mnuReportsBreak4", ""},
    {1, "mnuToday", "Today at a glance"},
    {0, "mnuFunctions", "Fu&nctions"},
    {1, "mnuFunctionsAdjustPrices", "Adjust prices"},
    {1, "mnuBackup", "Backup"},
    {2, "mnuFunctionsRestoreBackup", "Restore backup"},
    {2, "mnuRestoreClient", "Restore one client"},
    {2, "mnuCreateBackup", "Create custom backup"},
    {2, "mnuSetupTechnicalBackups", "Automatic backups"},
    {2, "mnuSep", ""},
    {2, "mnuCreateDBOfAllTransferredClients", "Create new database of all transferred clients"},
    {1, "mnuFunctionsRecalculateBudgets", "Recalculate budgets"},
    {1, "mnuFunctionsReschedule", "Reschedule"},
    {1, "mnuFunctionsMailMergeClients", "Mail merge clients"},
    {1, "mnuFunctionsBreak1", ""},
    {1, "mnuSetDBVersion", "Set db version"},
    {1, "mnuClientsPastJobsAndPayments", "Client's Jobs and Payments"},
    {1, "mnuRecalculateGSTComponent", "Re-calculate GST component"},
    {1, "mnuRecomputeAmountOwing", "Re-calculate Amount Owing of all Clients"},
    {1, "mnuSortoutDatabaseRecords", "Sort-out database records"},
    {1, "mnuUpdateBillingName", "Update Billing Name/Display Name into"},
    {2, "mnuFirstnameSurnameFormat", "(Firstname Surname) format"},
    {2, "mnuSurnameFirstnameFormat", "(Surname, Firstname) format"},
    {1, "mnuTransferPaymentsToOtherClient", "Transfer client payments to another client"},
    {1, "mnuListOfClientsWithJobSchedulingProblem", "List of clients with job scheduling problem"},
    {1, "mnuDeletePreviousFinancialRecords", "Delete previous financial year records"},
    {1, "mnuUpdateRevenueAccountIntoDefault",
     "Update Revenue Account of Payments into its default"},
    {1, "mnuBreak", ""},
    {1, "mnuFunctionsDataEditing", "Data editing"},
    {2, "mnuFunctionsDataEditingFixClientDetails", "Fix client details"},
    {2, "mnuFunctionsDataEditingScheduleClients", "Schedule clients"},
    {2, "mnuFunctionsDataEditingAllocateClientsToOperator", "Allocate clients to operator"},
    {1, "mnuFunctionsImportDataFrom", "Import data from somewhere"},
    {2, "mnuFunctionsImportFromBravantiOne", "Import from Bravanti One"},
    {2, "mnuFunctionsImportFromVerdo", "Import from Verdo"},
    {1, "mnuFunctionsDebugTools", "Debug tools"},
    {2, "mnuFunctionsDebugTest1", "Test #1"},
    {1, "mnuRegisterComponents", "Register Components"},
    {1, "cmdReconnectToInternet", "Reconnect to Internet"},
    {1, "mnuUploadDatabase", "Upload database to Ostrel4 Server"},
    {1, "mnuCopyFromOstrel", "Download data from Bravanti's Online..."},
    {0, "mnuSetup", "&Setup"},
    {1, "mnuSetupPersonalInfo", "Your personal information"},
    {1, "mnuSetupServices", "Services provided"},
    {1, "mnuSetupPeople", "Employees"},
    {1, "mnuSetupMisc", "Miscellaneous settings"},
    {1, "mnuSetupBreak1", ""},
    {1, "mnuSetupFinancial", "Financial settings"},
    {2, "mnuSetupFinancialGLAccounts", "General Ledger Accounts"},
    {2, "mnuSetupFinancialBankAccounts", "Bank accounts"},
    {2, "mnuSetupFinancialBudgets", "Budgets"},
    {1, "mnuSetupTechnical", "Technical settings"},
    {2, "mnuSetupTechnicalODBC", "Database (ODBC) connection"},
    {1, "mnuSetupLists", "Miscellaneous lists"},
    {2, "mnuSetupListsBanks", "Banks to list"},
    {2, "mnuSetupListsScheduleFrequencies", "Schedule frequencies"},
    {2, "mnuSetupListsPaymentMethods", "Payment methods"},
    {2, "mnuDivisions", "Divisions"},
    {2, "mnuCountries", "Countries"},
    {2, "mnuHoliday", "Holiday"},
    {1, "mnuAppearance", "Appearance"},
    {2, "mnuAppearanceSystem", "As the system"},
    {2, "mnuAppearanceLight", "Light"},
    {2, "mnuAppearanceDark", "Dark"},
    {0, "mnuHelp", "&Help"},
    {1, "mnuHelpManual", "User manual"},
    {1, "mnuHelpFAQ", "FAQ"},
    {1, "mnuHelpShortcuts", "Shortcuts"},
    {1, "mnuHelpIndex", "User manual (on the internet)"},
    {1, "mnuHelpBreak1", ""},
    {1, "mnuHelpAboutQuillary", "About Quillary"},
    {0, "mnuExit", "E&xit"},
};

QString Line(int depth, const QString& name, const QString& caption) {
  return QString(2 * depth, u' ') + name + u'|' + caption;
}

void Collect(const QWidget* menu, int depth, QStringList& lines) {
  for (const QAction* action : menu->actions()) {
    lines += Line(depth, action->objectName(), action->text());
    if (action->menu()) Collect(action->menu(), depth + 1, lines);
  }
}

using MenuTest = ProgramTest;

TEST_F(MenuTest, TreeStandsInItsOrder) {
  Start();
  Window().RenameMenuCaptions("GST");
  QStringList shown;
  Collect(Window().menuBar(), 0, shown);
  QStringList expected;
  for (const Expected& entry : kTree) expected += Line(entry.depth, entry.name, entry.caption);
  ASSERT_EQ(shown.size(), expected.size());
  for (qsizetype at = 0; at < shown.size(); ++at) EXPECT_EQ(shown[at], expected[at]);
}

TEST_F(MenuTest, TaxTakesItsNameInFourCaptions) {
  Start();
  Window().RenameMenuCaptions("VAT");
  EXPECT_EQ(Command("mnuReportsGST")->text(), "VAT");
  EXPECT_EQ(Command("mnuPLWithGST")->text(), "With VAT");
  EXPECT_EQ(Command("mnuPLWithoutGST")->text(), "Without VAT");
  EXPECT_EQ(Command("mnuRecalculateGSTComponent")->text(), "Re-calculate VAT component");
}

TEST_F(MenuTest, ReservedPlacesDoNothing) {
  Start();
  outside.headOffice.sessionKey = "SESSION";
  outside.headOffice.activities.clear();
  const int tabs = Find<QTabWidget>(&Window(), "tabs")->count();
  int reserved = 0;
  for (const char* name :
       {"mnuFinancialEnterInvoices", "mnuFinancialStatements", "mnuFunctionsAdjustPrices",
        "mnuFunctionsMailMergeClients", "mnuFunctionsDataEditingAllocateClientsToOperator",
        "mnuFunctionsImportFromVerdo"}) {
    reserved += Command(name)->isEnabled();
    Command(name)->trigger();
  }
  EXPECT_EQ(reserved, 6) << "they stand there enabled";
  EXPECT_EQ(Find<QTabWidget>(&Window(), "tabs")->count(), tabs);
  EXPECT_TRUE(outside.headOffice.activities.isEmpty());
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
}

TEST_F(MenuTest, CommandsLogBeforeTheyOpen) {
  outside.headOffice.letsIn = true;
  Start();
  QStringList loggedWhenOpened;
  navigator.Register<UpdateBillingNames>([&](const UpdateBillingNames& request) {
    loggedWhenOpened = outside.headOffice.activities;
    EXPECT_FALSE(request.firstNameFirst);
  });
  outside.headOffice.activities.clear();
  Command("mnuSurnameFirstnameFormat")->trigger();
  EXPECT_EQ(loggedWhenOpened, QStringList{"Update Billing/Disply name fomrat (Surname/FirstName)"});
  Command("mnuDiary")->trigger();
  EXPECT_EQ(outside.headOffice.activities.last(), "Diary");
  Command("mnuRegisterComponents")->trigger();
  EXPECT_EQ(outside.headOffice.activities.last(), "Register Components");
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"The RegisterComponents.exe cannot be found in " +
                        QCoreApplication::applicationDirPath() + "."});
  Command("mnuFunctionsDebugTest1")->trigger();
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Test completed!"});
}

TEST_F(MenuTest, HeadOfficeCommandsFollowTheSession) {
  navigator.Register<UploadDatabase>([](const UploadDatabase&) {});
  navigator.Register<OpenServices>([](const OpenServices&) {});
  Start();
  struct Step {
    bool connected;
    bool letsIn;
    const char* told;
    bool services;
    bool upload;
  };
  const Step steps[] = {
      {false, false, "Internet connection unavailable. Please try again later ", false, false},
      {true, false, "Unable to establish Session", true, false},
      {true, true, "Internet connection and Session established ", true, true},
      {true, false, "Unable to establish Session", true, true},
      {false, true, "Internet connection unavailable. Please try again later ", false, false}};
  EXPECT_FALSE(Command("mnuSetupServices")->isEnabled());
  EXPECT_FALSE(Command("mnuUploadDatabase")->isEnabled());
  for (const Step& step : steps) {
    outside.headOffice.connected = step.connected;
    outside.headOffice.letsIn = step.letsIn;
    Command("cmdReconnectToInternet")->trigger();
    EXPECT_EQ(outside.prompter.TakeTold(), QStringList{step.told});
    EXPECT_EQ(Command("mnuSetupServices")->isEnabled(), step.services) << step.told;
    EXPECT_EQ(Command("mnuUploadDatabase")->isEnabled(), step.upload) << step.told;
  }
}

TEST_F(MenuTest, ABusinessOnItsOwnKeepsItsServices) {
  navigator.Register<UploadDatabase>([](const UploadDatabase&) {});
  navigator.Register<OpenServices>([](const OpenServices&) {});
  Start();
  program->OpenBusiness().values.enableOstrel4WebServices = false;
  Command("cmdReconnectToInternet")->trigger();
  outside.prompter.TakeTold();
  EXPECT_TRUE(Command("mnuSetupServices")->isEnabled());
  EXPECT_FALSE(Command("mnuUploadDatabase")->isEnabled());
}

TEST_F(MenuTest, LeavingAsksFirst) {
  outside.headOffice.letsIn = true;
  Start();
  outside.headOffice.activities.clear();
  outside.prompter.Expect("Are you sure you want to exit from the system?", Answer::No);
  Command("mnuExit")->trigger();
  EXPECT_TRUE(Window().isVisible());
  EXPECT_TRUE(program->OpenBusiness().IsConnected());
  EXPECT_TRUE(outside.headOffice.activities.isEmpty());
  EXPECT_FALSE(QDir(folder.path()).exists("Archive"));

  outside.prompter.Expect("Are you sure you want to exit from the system?", Answer::Yes);
  Window().close();
  EXPECT_FALSE(Window().isVisible());
  EXPECT_FALSE(program->OpenBusiness().IsConnected());
  EXPECT_EQ(outside.headOffice.activities, QStringList{"Logoff"});
  EXPECT_TRUE(QDir(folder.path()).exists("Archive"));
}

TEST_F(MenuTest, SearchOpensACommandAClientAndAJob) {
  Start();
  Business& business = program->OpenBusiness();
  business.RunSQL(
      Sql("INSERT INTO Clients (Display_Name, Status, Suburb, Street_Number, Street) "
          "VALUES ('Zelda Zimmer', 'Active', 'KEW', '7', 'Correa Ct')"));
  const qint64 client = business.FirstField(Sql("SELECT MAX(Client_ID) FROM Clients")).ToLong();
  business.RunSQL(
      Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
          "Total_Price) VALUES ({}, 1, 'J', #2026/11/5#, 'LM', 55)",
          client));
  auto* find = Find<QLineEdit>(&Window(), "txtFind");
  Find<QWidget>(&Window(), "MainMenuMDI_Splash")->close();
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  QTest::keyClick(&Window(), Qt::Key_K, Qt::ControlModifier);
  EXPECT_TRUE(find->hasFocus());
  find->setText("on the internet");
  QTest::keyClick(find, Qt::Key_Return);
  QTest::qWait(10);
  EXPECT_EQ(outside.desktop.opened.size(), 1) << "the manual";

  QTest::keyClicks(find, "correa zelda");
  const QAbstractItemModel* offered = find->completer()->model();
  ASSERT_EQ(offered->rowCount(), 2);
  EXPECT_EQ(offered->index(0, 0).data().toString(), "Zelda Zimmer  –  7 Correa Ct, KEW");
  EXPECT_EQ(offered->index(1, 0).data().toString(),
            "Zelda Zimmer  –  Job on 5 Nov 2026: LM, $55.00");
  QWidget* popup = find->completer()->popup();
  EXPECT_TRUE(popup->isVisible());
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(popup, Qt::Key_Return);
  QTest::qWait(20);
  EXPECT_EQ(Find<Screen>(&Window(), "frmClients")->windowTitle(), "Client: Zelda Zimmer");

  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  find->setFocus();
  QTest::keyClicks(find, "zelda");
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(popup, Qt::Key_Down);
  QTimer::singleShot(400, qApp, [] {
    auto* job = QApplication::activeModalWidget();
    ASSERT_NE(job, nullptr);
    EXPECT_EQ(job->objectName(), "frmJobs");
    job->close();
  });
  QTest::keyClick(popup, Qt::Key_Return);
  QTest::qWait(500);
}

TEST_F(MenuTest, WindowTellsItsBusinessAndRemembersItsTabs) {
  Start();
  EXPECT_TRUE(Window().windowTitle().startsWith("Quillary version "));
  EXPECT_TRUE(Window().windowTitle().endsWith(" -> [Database = " + File() + "]"));
  const auto status = Window().statusBar();
  EXPECT_EQ(Find<QLabel>(status, "lblDatabase")->text(), "DATA.MDB");
  EXPECT_FALSE(Find<QLabel>(status, "lblBusiness")->text().isEmpty());
  EXPECT_TRUE(Find<QLabel>(status, "lblScheduleFilledTo")->text().startsWith("Schedule filled"));
  auto* tabs = Find<QTabWidget>(&Window(), "tabs");
  EXPECT_EQ(tabs->count(), 2) << "a first start opens today and the diary";
  EXPECT_EQ(tabs->tabText(tabs->currentIndex()), "Diary") << "where the day's work is";
  EXPECT_TRUE(tabs->currentWidget()->isAncestorOf(Window().focusWidget())) << "and the keys";
  Command("mnuDiary")->trigger();
  EXPECT_EQ(tabs->count(), 2) << "one tab a screen";

  ClickOn(Find<Screen>(&Window(), "frmDiary"), "cmdClose");
  QTest::qWait(20);
  emit tabs->tabCloseRequested(0);
  QTest::qWait(20);
  program.reset();
  program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
  program->UseFile(File());
  ASSERT_TRUE(program->Start({}));
  EXPECT_EQ(Find<QTabWidget>(&Window(), "tabs")->count(), 0) << "as it was left";
}

}  // namespace
}  // namespace quillary
