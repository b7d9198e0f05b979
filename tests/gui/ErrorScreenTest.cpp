#include "base/Version.h"
#include "base/ports/requests/Mail.h"
#include "gui/GuiTest.h"
#include "kit/CommandRunner.h"
#include "shell/ErrorDump.h"
#include "shell/frmErrorHandler.h"

#include <QPlainTextEdit>
#include <QTimer>

#include <new>

namespace quillary {
namespace {

class ErrorScreenTest : public ::testing::Test {
 protected:
  void SetUp() override { TestApplication(); }
  void TearDown() override { outside.prompter.CheckAllAsked(); }

  ScriptedOutside outside;
  Navigator navigator;
  session::Support support{"support@example.org", {}, {}, "https://www.example.org/"};
};

TEST_F(ErrorScreenTest, DumpHasItsLinesInOrder) {
  shell::ErrorReport report;
  report.errorLine = "Error: 91 - The statement gave no recordset";
  report.form = "frmDiary";
  report.procedure = "LoadScheduleGrid";
  report.furtherInformation = "Diary 5";
  report.time = DateTime(QDate(2026, 11, 2), QTime(14, 7, 9));
  const QStringList lines = shell::BuildErrorDump(report).split(u'\n');
  EXPECT_EQ(lines.first(), shell::GetSystemVersion());
  EXPECT_TRUE(lines.first().contains(" (Build "));
  const QStringList expected = {"Version: " + VersionText(),
                                "Error: 91 - The statement gave no recordset",
                                "Form: frmDiary",
                                "Subroutine: LoadScheduleGrid",
                                "Activity: ",
                                "Screen.ActiveForm: ",
                                "    Name: ",
                                "Screen.ActiveControl: ",
                                "    Name: ",
                                "    Value: ",
                                "Time: 2 Nov 2026 2:07:09 PM",
                                "Further information: Diary 5",
                                "",
                                "Dump finished. "};
  EXPECT_EQ(lines.mid(1), expected);
}

TEST_F(ErrorScreenTest, DumpNamesWhatWasRefusedBefore) {
  shell::ScreenErrorReporter reporter(outside.clock, outside.prompter, outside.desktop,
                                      outside.settings, navigator, support);
  reporter.NoteRefused({"UPDATE Diary SET Nothing = 1", "no column Nothing", "Diary"});
  const auto reported = [&](const QString& further) {
    QString dump;
    QTimer::singleShot(0, [&] {
      QWidget* screen = QApplication::activeModalWidget();
      dump = screen->findChild<QPlainTextEdit*>("Text1")->toPlainText();
      EXPECT_EQ(screen->findChild<QLabel*>("lblFailure")->text(), "It did not work");
      screen->close();
    });
    reporter.ReportError("frmDiary", "Error: 5 - It did not work", "Save", further);
    return dump;
  };
  const QString first = reported({});
  EXPECT_TRUE(
      first.contains("Statement: UPDATE Diary SET Nothing = 1\nReason: no column Nothing\n"
                     "Table: Diary"))
      << first.toStdString();
  EXPECT_FALSE(reported({}).contains("UPDATE Diary")) << "told again";
}

TEST_F(ErrorScreenTest, DumpNamesScreenAndControl) {
  Screen screen("frmDiary", "Diary");
  QLineEdit field("some text", &screen);
  field.setObjectName("txtFilter");
  shell::ErrorReport report;
  shell::NoteActiveControl(report, &field, nullptr);
  EXPECT_EQ(report.activeForm, "frmDiary");
  EXPECT_EQ(report.activeControl, "txtFilter");
  EXPECT_EQ(report.activeValue, "some text");
}

TEST_F(ErrorScreenTest, ReportWaitsForContinue) {
  shell::ScreenErrorReporter reporter(outside.clock, outside.prompter, outside.desktop,
                                      outside.settings, navigator, support);
  QString dump;
  QTimer::singleShot(0, qApp, [&] {
    QWidget* screen = QApplication::activeModalWidget();
    dump = Find<QPlainTextEdit>(screen, "Text1")->toPlainText();
    EXPECT_EQ(screen->windowTitle(), "Ouch! An error has occured.");
    EXPECT_FALSE(Find<QPlainTextEdit>(screen, "Text1")->isVisible());
    ClickOn(screen, "cmdErrorDetails");
    EXPECT_TRUE(Find<QPlainTextEdit>(screen, "Text1")->isVisible());
    ClickOn(screen, "cmdContinue");
  });
  bool wentOn = false;
  CommandRunner runner(reporter, outside.busy);
  EXPECT_FALSE(runner.RunBusy("frmDiary", "cmdPrint_Click", [] { throw NoRecordset(); }));
  wentOn = true;
  EXPECT_TRUE(wentOn);
  EXPECT_TRUE(dump.contains("Form: frmDiary\nSubroutine: cmdPrint_Click\n"));
  EXPECT_EQ(outside.busy.depth, 0);
}

TEST_F(ErrorScreenTest, CopiesAndLeaves) {
  shell::frmErrorHandler screen(outside.prompter, outside.desktop, outside.settings, navigator,
                                support);
  screen.ShowDump("what happened", "the dump");
  ClickOn(&screen, "cmdCopy");
  EXPECT_EQ(outside.desktop.clipboard, "the dump");
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"The error dump has been copied to the clipboard, so you can paste it into "
                        "wherever you want."});
  ClickOn(&screen, "lblHere");
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
  EXPECT_EQ(outside.desktop.opened.size(), 1);
  ClickOn(&screen, "cmdQuit");
  EXPECT_TRUE(outside.desktop.endedWith.has_value()) << "at once, without a question";
}

TEST_F(ErrorScreenTest, OffersNoAddressThatTheInstallationDoesNotName) {
  struct Case {
    session::Support support;
    bool mail;
    bool web;
  };
  const Case cases[] = {{{}, false, false},
                        {{"help@example.org", {}, {}, {}}, true, false},
                        {{{}, {}, {}, "https://example.org/"}, false, true}};
  for (const Case& given : cases) {
    shell::frmErrorHandler screen(outside.prompter, outside.desktop, outside.settings, navigator,
                                  given.support);
    screen.ShowDump("what happened", "the dump");
    screen.show();
    EXPECT_EQ(Find<QPushButton>(&screen, "cmdEmail")->isVisible(), given.mail);
    EXPECT_EQ(Find<QLabel>(&screen, "Label2")->isVisible(), given.mail);
    EXPECT_EQ(Find<QPushButton>(&screen, "lblHere")->isVisible(), given.web);
    EXPECT_EQ(Find<QLabel>(&screen, "Label5")->isVisible(), given.web);
  }
}

TEST_F(ErrorScreenTest, MailsOnlyThroughItsOwnSender) {
  QStringList sent;
  navigator.Register<SendMail>([&](const SendMail& mail) {
    sent += mail.subject + u'|' + mail.body;
    return true;
  });
  const std::pair<const char*, const char*> cases[] = {
      {"MAPI", "This option is not avaliable on this version."},
      {"vbSendMail", "Error report successfully sent via email!"}};
  for (const auto& [option, told] : cases) {
    outside.settings.Write("Email", "Email Option", option);
    shell::frmErrorHandler screen(outside.prompter, outside.desktop, outside.settings, navigator,
                                  support);
    screen.ShowDump("what happened", "the dump");
    ClickOn(&screen, "cmdEmail");
    EXPECT_EQ(outside.prompter.TakeTold(), QStringList{told});
  }
  EXPECT_EQ(sent, QStringList{"Quillary v" + VersionText() + "|the dump"});
}

TEST_F(ErrorScreenTest, LastChanceTellsMemoryFromTheRest) {
  ReportMemoryOrCrash(outside.prompter, std::bad_alloc());
  ReportMemoryOrCrash(outside.prompter, NoRecordset());
  const QStringList told = outside.prompter.TakeTold();
  ASSERT_EQ(told.size(), 2);
  EXPECT_TRUE(told[0].startsWith("Your computer is running VERY low on memory - Please close"));
  EXPECT_TRUE(told[1].startsWith("Attention! An error that would have crashed the system"));
}

}  // namespace
}  // namespace quillary
