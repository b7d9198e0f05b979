#include "data/schema/Schema.h"
#include "gui/GuiTest.h"
#include "setup/firstday/FirstDay.h"
#include "shell/FirstDoors.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTimer>

#include <deque>

namespace quillary {
namespace {

/// The program on a machine where nothing is yet.
class FirstDayTest : public ::testing::Test {
 protected:
  void SetUp() override {
    TestApplication();
    qputenv("HOME", folder.path().toUtf8());
    settings = std::make_unique<LocalSettings>(folder.path(), outside.prompter);
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { UseNext(); });
    clock_.start(20);
  }
  void TearDown() override {
    clock_.stop();
    outside.prompter.CheckAllAsked();
    EXPECT_TRUE(steps_.empty()) << "a window has not opened: "
                                << (steps_.empty() ? "" : steps_[0].window);
    program.reset();
    for (const QString& report : outside.errors.TakeReports())
      ADD_FAILURE() << "Reported: " << report.toStdString();
  }
  /// What the user does in the windows, in the order in which they come.
  void Then(const char* window, std::function<void(QDialog&)> use) {
    steps_.push_back({window, std::move(use)});
  }
  bool Start(const QString& commandLine = {}) {
    program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
    return program->Start(commandLine);
  }
  QString Choice(const char* key) { return outside.settings.Read("Form", key, {}); }

  ScriptedOutside outside;
  QTemporaryDir folder;
  Navigator navigator;
  std::unique_ptr<LocalSettings> settings;
  std::unique_ptr<shell::Program> program;

 private:
  struct Step {
    const char* window;
    std::function<void(QDialog&)> use;
  };
  void UseNext() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible() || dialog == used_) return;
    // Without a window manager nobody gives the focus back.
    if (!dialog->isActiveWindow()) return dialog->activateWindow();
    if (steps_.empty() || dialog->objectName() != QLatin1StringView(steps_.front().window)) {
      if (++waited_ < 250) return;
      ADD_FAILURE() << "nobody expected " << dialog->objectName().toStdString();
      dialog->reject();
      return;
    }
    waited_ = 0;
    const Step step = steps_.front();
    steps_.pop_front();
    // Not from within this timer, which would stand still while a further window is open.
    QDialog* const before = std::exchange(used_, dialog);
    QTimer::singleShot(0, dialog, [this, step, dialog, before] {
      step.use(*dialog);
      used_ = before;
    });
  }
  std::deque<Step> steps_;
  QDialog* used_ = nullptr;
  int waited_ = 0;
  QTimer clock_;
};

TEST_F(FirstDayTest, FromNothingToTheMainWindowOfANewBusinessByKeyboard) {
  Then("frmWelcome", [](QDialog&) { PressKey(Qt::Key_Return); });
  Then("frmNewBusiness", [](QDialog& form) {
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(Find<QLineEdit>(&form, "txtCompany")->hasFocus()) << "the name is missing";
    TypeKeys("Ash and Oak");
    PressKey(Qt::Key_Return);
  });
  Then("frmFirstTime", [](QDialog& list) {
    EXPECT_FALSE(Find<QPushButton>(&list, "cmdServices")->accessibleDescription() != "done");
    EXPECT_EQ(Find<QPushButton>(&list, "cmdClientDetails")->accessibleDescription(),
              "not done yet");
    EXPECT_TRUE(Find<QPushButton>(&list, "cmdBegin")->hasFocus());
    PressKey(Qt::Key_Return);
  });
  ASSERT_TRUE(Start());
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please enter the name of your business."});
  EXPECT_FALSE(setup::SetUpIsDue(*settings));
  EXPECT_EQ(program->OpenBusiness().DatabaseFile(),
            folder.filePath("Documents/Ash and Oak/DATA.MDB"));
  EXPECT_EQ(outside.settings.Read("LastAccessedFile", "File", {}),
            program->OpenBusiness().DatabaseFile());
}

TEST_F(FirstDayTest, GivingUpANewBusinessComesBackToTheDoorsAndLeavingThemIsNoFailure) {
  Then("frmWelcome", [](QDialog& doors) { ClickOn(&doors, "cmdNewBusiness"); });
  Then("frmNewBusiness", [](QDialog& form) { ClickOn(&form, "cmdClose"); });
  Then("frmWelcome", [](QDialog& doors) { ClickOn(&doors, "cmdOpenFile"); });
  Then("frmSelectDatabaseToAccess", [](QDialog& dialog) { ClickOn(&dialog, "cmdExit"); });
  Then("frmWelcome", [](QDialog&) { PressKey(Qt::Key_Escape); });
  EXPECT_FALSE(Start());
  EXPECT_TRUE(program->UserLeft());
  EXPECT_FALSE(QDir(folder.filePath("Documents")).exists()) << "nothing was made";
}

TEST_F(FirstDayTest, TheDemoNeedsNoChecklistAndIsMadeOnce) {
  Then("frmWelcome", [](QDialog& doors) { ClickOn(&doors, "cmdDemo"); });
  ASSERT_TRUE(Start());
  EXPECT_EQ(program->OpenBusiness().DatabaseFile(),
            folder.filePath("Documents/Quillary demo/DATA.MDB"));
  EXPECT_FALSE(setup::SetUpIsDue(*settings));
}

TEST_F(FirstDayTest, TheChecklistComesAgainUntilItIsEndedByItsCommandAndWhenAskedFor) {
  CreateEmptyBusiness(folder.filePath("DATA.MDB"));
  outside.settings.Write("Form", "Show DB Selection", "0");
  Then("frmFirstTime", [](QDialog&) { PressKey(Qt::Key_Escape); });
  ASSERT_TRUE(Start());
  EXPECT_TRUE(setup::SetUpIsDue(*settings)) << "closed by its frame";
  Then("frmFirstTime", [](QDialog& list) { ClickOn(&list, "cmdBegin"); });
  ASSERT_TRUE(Start());
  EXPECT_FALSE(setup::SetUpIsDue(*settings));
  ASSERT_TRUE(Start());
  Then("frmFirstTime", [](QDialog& list) { ClickOn(&list, "cmdBegin"); });
  ASSERT_TRUE(Start("-i"));
}

TEST_F(FirstDayTest, EachLineOfTheChecklistOpensItsScreenOverIt) {
  CreateEmptyBusiness(folder.filePath("DATA.MDB"));
  outside.settings.Write("Form", "Show DB Selection", "0");
  const std::pair<const char*, const char*> lines[] = {
      {"cmdYourInformation", "frmPersonalInformation"},
      {"cmdLedgerAccounts", "frmGeneralLedgerAccountsDialog"},
      {"cmdEmployees", "frmEmployeesDialog"},
      {"cmdMiscellaneous", "frmMiscellaneousSettings"},
  };
  for (const auto& [command, screen] : lines) {
    Then("frmFirstTime",
         [command = command](QDialog& list) { Find<QPushButton>(&list, command)->click(); });
    Then(screen, [](QDialog& dialog) { dialog.reject(); });
  }
  Then("frmFirstTime", [](QDialog& list) { ClickOn(&list, "cmdBegin"); });
  ASSERT_TRUE(Start());
}

TEST_F(FirstDayTest, ADamagedFileIsToldAndTheNextStartWaitsForAnother) {
  const QString damaged = folder.filePath("DATA.MDB");
  QFile file(damaged);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(QByteArray(8192, 'x')) == 8192);
  file.close();
  outside.settings.Write("LastAccessedFile", "File", damaged);
  outside.settings.Write("Form", "Show DB Selection", "0");
  settings->WriteLocalSetting("PRE_DATABASE", "RAN_INITIAL_SETUP_8", "1");
  EXPECT_FALSE(Start());
  EXPECT_TRUE(outside.prompter.TakeTold().join("").contains("might be corrupted"));
  const QString sound = folder.filePath("SOUND.MDB");
  CreateEmptyBusiness(sound);
  Then("frmSelectDatabaseToAccess", [&](QDialog& dialog) {
    Find<QLineEdit>(&dialog, "txtPath")->setText(sound);
    ClickOn(&dialog, "cmdOK");
  });
  ASSERT_TRUE(Start());
  EXPECT_EQ(program->OpenBusiness().DatabaseFile(), sound);
}

}  // namespace
}  // namespace quillary
