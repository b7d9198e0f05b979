#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"
#include "kit/ComboSearch.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/screens/MaintenanceScreens.h"
#include "setup/screens/SetupScreens.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QRadioButton>

namespace quillary {
namespace {

/// The screens that tell the business about itself, and those of its backups.
class SetupScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    settings_ = std::make_unique<LocalSettings>(folder.path(), outside.prompter);
    archive_ = folder.filePath("Archive");
    QDir().mkpath(archive_);
    setup::RegisterSetupScreens(business(), {navigator, host, runner}, folder.path());
    maintenance::RegisterMaintenanceScreens(business(), *settings_, {navigator, host, runner},
                                            archive_);
  }
  Value Option(const char* column) {
    return Run(Sql(QStringLiteral("SELECT %1 FROM infOptions")
                       .arg(QLatin1StringView(column))
                       .toUtf8()
                       .constData()))
        .Field(size_t{0});
  }

  std::unique_ptr<LocalSettings> settings_;
  QString archive_;
};

TEST_F(SetupScreensTest, MiscellaneousSettingsAreCheckedStoredAndInForceAtOnce) {
  UseDialog(OpenMiscellaneousSettings{}, [&](Dialog& form) {
    for (const char* days : {"0", "366", "soon"}) {
      Find<QLineEdit>(&form, "txtAutoScheduleDays")->setText(days);
      ClickOn(&form, "cmdCloseAndSave");
      EXPECT_TRUE(Told().startsWith("Please enter a v")) << days;
      EXPECT_TRUE(Find<QWidget>(&form, "txtAutoScheduleDays")->hasFocus()) << days;
    }
    Find<QLineEdit>(&form, "txtAutoScheduleDays")->setText("365");
    Find<QLineEdit>(&form, "txtGSTPercentage")->setText("12.5");
    Find<QRadioButton>(&form, "optAccrual")->click();
    Find<QLineEdit>(&form, "txtAdobePath")->setText("/opt/O'Reader");
    Find<QLineEdit>(&form, "txtCCEmailAddress")->setText("books@example.com");
    Find<QCheckBox>(&form, "chkUseButtonsInDiary")->click();
    Find<QRadioButton>(&form, "optPDF")->click();
    EXPECT_TRUE(Find<QRadioButton>(&form, "optClassic")->isChecked());
    Find<QRadioButton>(&form, "optClean")->click();
    ClickOn(&form, "cmdCloseAndSave");
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_TRUE(Told().startsWith("AdobePath holds an apostrophe and was not stored"));
  EXPECT_EQ(Option("Days_To_Advance_Schedule").ToLong(), 365);
  EXPECT_NEAR(Option("GST_Percentage").ToDouble(), 0.125, 1e-6);
  EXPECT_EQ(Option("Accounting_Method").ToText(), "Accrual");
  EXPECT_EQ(Option("AdobePath").ToText(), "");
  EXPECT_EQ(Option("CCEmailAddress").ToText(), "books@example.com");
  EXPECT_EQ(business().values.daysToAdvanceSchedule, 365);
  EXPECT_EQ(business().values.accountingMethod, "Accrual");
  EXPECT_EQ(business().values.invoicePrintingFormat, "PDF");
  EXPECT_EQ(business().values.documentDesign, "CLEAN");
  EXPECT_EQ(outside.settings.Read("Invoices", "Document Design", {}), "CLEAN");
  EXPECT_EQ(outside.settings.Read("Form", "Use Buttons In Diary", {}), "1");
}

TEST_F(SetupScreensTest, LeavingSettingsAsksOnlyAboutAChange) {
  UseDialog(OpenMiscellaneousSettings{}, [&](Dialog& form) { form.reject(); });
  UseDialog(OpenMiscellaneousSettings{}, [&](Dialog& form) {
    Find<QLineEdit>(&form, "txtGSTPercentage")->setText("20");
    outside.prompter.Expect("Close without saving changes?", Answer::No);
    form.reject();
    EXPECT_TRUE(form.isVisible());
    outside.prompter.Expect("Close without saving changes?", Answer::Yes);
    form.reject();
  });
}

TEST_F(SetupScreensTest, ABusinessNeedsItsDivisionAndItsCode) {
  Run(Sql("INSERT INTO Divisions (Division_ID, Division_Name) VALUES (900, 'Test works')"));
  Run(Sql("DELETE FROM infPersonalDetails"));
  UseDialog(OpenPersonalInformation{}, [&](Dialog& form) {
    ClickOn(&form, "cmdSave");
    EXPECT_EQ(Told(), "Please select a division.");
    EXPECT_TRUE(Find<QWidget>(&form, "cboDivision")->hasFocus());
    auto* division = Find<QComboBox>(&form, "cboDivision");
    division->setCurrentText("Test works");
    ClickOn(&form, "cmdSave");
    EXPECT_EQ(Told(), "Please enter a Franchisee Code.");
    Find<QLineEdit>(&form, "txtFSECode")->setText("G042");
    Find<QLineEdit>(&form, "txtCompany")->setText("O'Hara's Gardens");
    ClickOn(&form, "cmdCloseAndSave");
    EXPECT_FALSE(form.isVisible());
  });
  const Recordset row = Run(Sql("SELECT * FROM infPersonalDetails"));
  EXPECT_EQ(row.Field(u"Company_Name").ToText(), "O'Hara's Gardens");
  EXPECT_EQ(row.Field(u"Division_ID").ToLong(), 900);
  EXPECT_EQ(business().values.divisionName, "Test works");
}

TEST_F(SetupScreensTest, EmployeesComeAndGoButForTheLast) {
  Run(Sql("DELETE FROM Employees"));
  Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Casey')"));
  Screen& screen = OpenTab(OpenEmployees{});
  auto* list = Find<Grid>(&screen, "lstEmployees");
  list->SelectFirst();
  ClickOn(&screen, "cmdRemove");
  EXPECT_EQ(Told(), "You cannot remove the last employee on the list.");
  TypeOver(&screen, "txtNewPerson", " ");
  ClickOn(&screen, "cmdAdd");
  EXPECT_EQ(Told(), "Please enter the name of the person!");
  TypeOver(&screen, "txtNewPerson", "Robin");
  ClickOn(&screen, "cmdAdd");
  ASSERT_EQ(list->model()->rowCount(), 2);
  outside.prompter.Expect("Removing an employee can have serious effects", Answer::Yes);
  outside.prompter.Expect("Are you REALLY sure", Answer::No);
  ClickOn(&screen, "cmdRemove");
  EXPECT_EQ(Count("Employees"), 2);
  outside.prompter.Expect("Removing an employee can have serious effects", Answer::Yes);
  outside.prompter.Expect("Are you REALLY sure", Answer::Yes);
  ClickOn(&screen, "cmdRemove");
  EXPECT_EQ(Run(Sql("SELECT Employee_Name FROM Employees")).Field(size_t{0}).ToText(), "Casey");
}

TEST_F(SetupScreensTest, ChoicesOfBackupsAreKeptAtOnce) {
  UseDialog(OpenAutomaticBackups{}, [&](Dialog& form) {
    Find<QCheckBox>(&form, "chkWeeklyBackup")->click();
    EXPECT_EQ(settings_->ReadLocalSetting("BACKUPS", "DO_WEEKLY_BACKUP"), "1");
    TypeOver(&form, "Folder", business().DatabaseFolder());
    EXPECT_TRUE(Told().startsWith("WARNING: This is the folder of your main database."));
    EXPECT_EQ(settings_->ReadLocalSetting("BACKUPS", "CUSTOM_PATH"), business().DatabaseFolder());
    form.reject();
  });
}

TEST_F(SetupScreensTest, ABackupIsMadeListedAndRestored) {
  UseDialog(OpenCreateCustomBackup{}, [&](Dialog& form) {
    Find<QLineEdit>(&form, "txtFilename")->clear();
    ClickOn(&form, "cmdCreateBackup");
    EXPECT_EQ(Told(), "Please enter a valid filename.");
    Find<QLineEdit>(&form, "txtFilename")->setText("Mine");
    outside.prompter.Expect("Do you want to back-up your database to", Answer::Yes);
    ClickOn(&form, "cmdCreateBackup");
    EXPECT_EQ(Told(), "Backup successfully created.");
    form.reject();
  });
  Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Since the backup')"));
  UseDialog(OpenRestoreBackup{}, [&](Dialog& form) {
    auto* list = Find<Grid>(&form, "lstBackups");
    ASSERT_EQ(list->model()->rowCount(), 1);
    ClickOn(&form, "cmdRestore");
    EXPECT_EQ(Told(), "You must select which backup you want to restore.");
    list->SelectFirst();
    ClickOn(&form, "cmdRestore");
  });
  EXPECT_TRUE(Told().contains("Backup restored!"));
  EXPECT_EQ(outside.desktop.endedWith, 0) << "no screen keeps rows of the old file";
  EXPECT_EQ(Run(Sql("SELECT * FROM Employees WHERE Employee_Name = 'Since the backup'")).RowCount(),
            0u);
}

TEST_F(SetupScreensTest, TickedRowsOfAClientComeBackAndTheListFollows) {
  Run(Sql("UPDATE Clients SET Notes = 'The gate sticks', Phone_1 = '555' WHERE Client_ID = 1"));
  maintenance::BackupDatabaseTo(business(), "Mine", archive_ + "/Mine.mdb");
  Run(Sql("UPDATE Clients SET Notes = 'gone', Phone_1 = '777' WHERE Client_ID = 1"));
  Screen& screen = OpenTab(OpenRestoreClient{Id<Client>(1)});
  auto* grid = Find<Grid>(&screen, "grdDifferences");
  ASSERT_EQ(grid->Rows().size(), 2u);
  ClickOn(&screen, "cmdBringBack");
  EXPECT_EQ(Told(), "Please tick what is to be brought back.");
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_Space);
  outside.prompter.Expect("1 row of what you ticked was changed", Answer::Yes);
  ClickOn(&screen, "cmdBringBack");
  EXPECT_TRUE(Told().startsWith("Brought back for"));
  EXPECT_EQ(grid->Rows().size(), 1u);
  EXPECT_EQ(Word(Sql("SELECT Phone_1 FROM Clients WHERE Client_ID = 1")), "555");
  EXPECT_EQ(Word(Sql("SELECT Notes FROM Clients WHERE Client_ID = 1")), "gone");
  // A client that is gone is picked by typing.
  Run(Sql("INSERT INTO Clients (Display_Name, Status) VALUES ('Zeller', 'Active')"));
  maintenance::BackupDatabaseTo(business(), "Later", archive_ + "/Later.mdb");
  Run(Sql("DELETE FROM Clients WHERE Display_Name = 'Zeller'"));
  navigator.Open(OpenRestoreClient{{}, archive_ + "/Later.mdb"});
  TypeChoice(&screen, "cboClient", "Zel");
  ASSERT_EQ(grid->Rows().size(), 1u);
  EXPECT_EQ(Find<QLabel>(&screen, "lblNames")->text(), "Zeller is no longer there.");
}

}  // namespace
}  // namespace quillary
