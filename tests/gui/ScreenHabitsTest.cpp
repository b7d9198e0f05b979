#include "accounts/screens/AccountScreens.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
#include "billing/screens/PaymentScreens.h"
#include "gui/ScreenFixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QTabWidget>
#include <QTimer>

namespace quillary {
namespace {

/// Letters that the menu bar takes with Alt, which a screen in a tab must leave alone.
constexpr char kMenuLetters[] = "DACQFRNSHE";

QChar MnemonicOf(const QString& caption) {
  for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != u'&') continue;
    if (caption[++at] != u'&') return caption[at].toUpper();
  }
  return {};
}

bool IsControl(const QWidget* widget) {
  return widget->focusPolicy() != Qt::NoFocus && widget->isVisible() &&
         (qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
          qobject_cast<const QComboBox*>(widget) || qobject_cast<const QTableView*>(widget));
}

/// What every screen owes to those who use it by keyboard or hear it.
class ScreenHabitsTest : public ScreenFixture {
 protected:
  static void Check(const QWidget& screen, const QString& taken) {
    const std::string name = screen.objectName().toStdString();
    QMap<QChar, QString> letters;
    for (const QChar letter : taken) letters.insert(letter, "the menu bar");
    const auto take = [&](const QString& caption) {
      const QChar letter = MnemonicOf(caption);
      if (letter.isNull()) return;
      EXPECT_FALSE(letters.contains(letter))
          << name << ": Alt+" << letter.toLatin1() << " stands for " << caption.toStdString()
          << " and for " << letters.value(letter).toStdString();
      letters.insert(letter, caption);
    };
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
      if (const auto* label = qobject_cast<const QLabel*>(widget);
          label && label->buddy() && label->isVisible())
        take(label->text());
      if (!IsControl(widget) || widget->objectName().startsWith("qt_")) continue;
      if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        if (button->inherits("QToolButton") || button->inherits("QTableCornerButton")) continue;
        take(button->text());
      }
      if (qobject_cast<const QComboBox*>(widget->parentWidget())) continue;
      EXPECT_FALSE(widget->accessibleName().isEmpty())
          << name << ": " << widget->objectName().toStdString() << " is not heard";
      EXPECT_FALSE(widget->objectName().isEmpty()) << name;
    }
    CheckTabOrder(screen);
  }

  /// Tab goes down the screen: it never climbs back to a control that stands above and to the left.
  static void CheckTabOrder(const QWidget& screen) {
    const QWidget* start = &screen;
    QPoint last(-1, -1);
    QString from;
    for (const QWidget* at = start->nextInFocusChain(); at != start; at = at->nextInFocusChain()) {
      if (!screen.isAncestorOf(at) || !IsControl(at) || !at->isEnabled()) continue;
      if (qobject_cast<const QComboBox*>(at->parentWidget())) continue;
      const QPoint place = at->mapTo(&screen, QPoint(0, 0));
      EXPECT_FALSE(place.y() + at->height() < last.y() && place.x() <= last.x())
          << screen.objectName().toStdString() << ": Tab climbs from " << from.toStdString()
          << " to " << at->objectName().toStdString();
      last = place;
      from = at->objectName();
    }
  }
};

TEST_F(ScreenHabitsTest, ScreensInTabs) {
  billing::RegisterPaymentScreens(business(), {navigator, host, runner});
  Check(OpenTab(OpenJobsList{}), kMenuLetters);
  Check(OpenTab(OpenJobsAndPaymentChecker{}), kMenuLetters);
  Check(OpenTab(OpenListOfClientsWithSchedulingProblem{}), kMenuLetters);
  Check(OpenTab(OpenHoliday{}), kMenuLetters);
  Check(OpenTab(OpenServices{}), kMenuLetters);
  Check(OpenTab(OpenVisitFrequencies{}), kMenuLetters);
  Check(OpenTab(OpenDivisions{}), kMenuLetters);
  billing::RegisterPaymentScreens(business(), {navigator, host, runner});
  accounts::RegisterAccountScreens(business(), {navigator, host, runner});
  Check(OpenTab(OpenPaymentsList{}), kMenuLetters);
  Check(OpenTab(OpenPaymentMethods{}), kMenuLetters);
  Check(OpenTab(OpenGeneralLedgerAccounts{}), kMenuLetters);
  Check(OpenTab(OpenCountries{}), kMenuLetters);
}

TEST_F(ScreenHabitsTest, Dialogs) {
  const auto check = [](Dialog& dialog) {
    Check(dialog, {});
    EXPECT_LE(dialog.width(), 1248) << dialog.objectName().toStdString();
    EXPECT_LE(dialog.height(), 664) << dialog.objectName().toStdString();
  };
  UseDialog(AddJob{Id<Client>(1)}, check);
  UseDialog(AddVisit{}, check);
  UseDialog(OpenReschedule{}, check);
  UseDialog(RescheduleFutureJobs{Id<Client>(1)}, check);
  UseDialog(EditSuburbPositions{}, check);
  billing::RegisterPaymentScreens(business(), {navigator, host, runner});
  UseDialog(AddPayment{}, check);
  UseDialog(PayForJob{1_client, 1_entry, {}}, check);
  UseDialog(AllocatePayment{1_payment}, check);
}

/// What the main window owes to the screens in its tabs.
class TabHabitsTest : public ProgramTest {
 protected:
  QTabWidget* Tabs() { return Find<QTabWidget>(&Window(), "tabs"); }
  QStringList OpenScreens() {
    QStringList names;
    for (const auto* screen : Tabs()->findChildren<Screen*>()) names += screen->objectName();
    names.sort();
    return names;
  }
  /// Begins the program anew on the same file.
  void StartAgain(const QString& tabs) {
    program.reset();
    outside.settings.Write("Main window", "Tabs", tabs);
    program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
    program->UseFile(File());
    ASSERT_TRUE(program->Start({}));
  }
};

TEST_F(TabHabitsTest, LeavingAsksForTheEditsOfEachTab) {
  Start();
  Command("mnuDivisions")->trigger();
  Find<QLineEdit>(Find<QWidget>(&Window(), "frmDivisions"), "txtDivisionName")->insert("new");
  Command("mnuHoliday")->trigger();
  Command("mnuDiary")->trigger();
  const auto leave = [&](Answer leaving, std::optional<Answer> dropping) {
    outside.prompter.Expect("Are you sure you want to exit from the system?", leaving);
    if (dropping) outside.prompter.Expect("Close without saving changes?", *dropping);
    Window().close();
    outside.prompter.CheckAllAsked();
    return !Window().isVisible();
  };
  EXPECT_FALSE(leave(Answer::No, std::nullopt));
  EXPECT_EQ(Tabs()->currentWidget()->findChild<Screen*>()->objectName(), "frmDiary");
  EXPECT_FALSE(leave(Answer::Yes, Answer::No));
  EXPECT_EQ(Tabs()->currentWidget()->findChild<Screen*>()->objectName(), "frmDivisions")
      << "the edits in question are seen";
  EXPECT_TRUE(program->OpenBusiness().IsConnected());
  Command("mnuDiary")->trigger();
  EXPECT_TRUE(leave(Answer::Yes, Answer::Yes));
  EXPECT_EQ(outside.settings.Read("Main window", "Tab", {}), "frmDiary");
}

TEST_F(TabHabitsTest, KeysGoToScreens) {
  Start();
  StartAgain("frmDiary,frmHoliday,frmDivisions");
  const auto shown = [&] {
    return Tabs()->currentWidget()->findChild<Screen*>()->objectName().toStdString();
  };
  if (auto* splash = Window().findChild<QWidget*>("MainMenuMDI_Splash")) splash->close();
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with) {
    QTest::keyClick(&Window(), key, with);
    EXPECT_TRUE(Tabs()->currentWidget()->isAncestorOf(QApplication::focusWidget())) << key;
    return shown();
  };
  EXPECT_EQ(press(Qt::Key_2, Qt::ControlModifier), "frmHoliday");
  EXPECT_EQ(press(Qt::Key_8, Qt::ControlModifier), "frmHoliday") << "there is no eighth";
  EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), "frmDivisions");
  EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), "frmDiary") << "round the end";
  EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier), "frmDivisions");
  EXPECT_EQ(press(Qt::Key_W, Qt::ControlModifier), "frmHoliday") << "and the keys stay there";
}

TEST_F(TabHabitsTest, RestoredTabsNameTheTaxOfTheCountryAndNeedTheirCommand) {
  Start();
  program->OpenBusiness().RunSQL(
      Sql("UPDATE infPersonalDetails SET Country_ID = (SELECT Country_ID FROM Countries "
          "WHERE Country_Name = 'UK')"));
  StartAgain("frmInvoicesList,frmServices");
  EXPECT_EQ(OpenScreens(), QStringList{"frmInvoicesList"}) << "services wait for head office";
  EXPECT_EQ(Find<QCheckBox>(&Window(), "chkPriceExcludesGST")->text(), "Prices e&xclude VAT");
  EXPECT_EQ(Command("mnuReportsGST")->text(), "VAT");
  outside.headOffice.letsIn = true;
  StartAgain("frmInvoicesList,frmServices");
  EXPECT_EQ(OpenScreens(), (QStringList{"frmInvoicesList", "frmServices"}));
}

struct AskingCommand {
  const char* name;
  const char* activity;
  std::function<void(ScriptedPrompter&)> agree;
};

TEST_F(TabHabitsTest, RepairsAreLoggedOnceAndOnlyAfterYes) {
  outside.headOffice.letsIn = true;
  Start();
  const AskingCommand cases[] = {
      {"mnuRecomputeAmountOwing", "Recalculate Amount Owing of All Clients",
       [](auto& prompter) { prompter.Expect("Are you sure", Answer::Yes); }},
      {"mnuRecalculateGSTComponent", "Recalculate GST Component",
       [](auto& prompter) { prompter.Expect("Are you sure", Answer::Yes); }},
      {"mnuSetDBVersion", "Set DB Version",
       [](auto& prompter) {
         prompter.Expect("Are you sure", Answer::Yes);
         prompter.Expect("Continue?", Answer::Yes);
         prompter.ExpectText("Please enter DB Version", "57");
         prompter.Expect("Restart?", Answer::No);
       }},
  };
  for (const AskingCommand& each : cases) {
    outside.headOffice.activities.clear();
    outside.prompter.Expect("Are you sure", Answer::No);
    Command(each.name)->trigger();
    EXPECT_EQ(outside.headOffice.activities, QStringList()) << each.name;
    each.agree(outside.prompter);
    Command(each.name)->trigger();
    EXPECT_EQ(outside.headOffice.activities, QStringList{each.activity});
    outside.prompter.TakeTold();
  }
}

TEST_F(TabHabitsTest, LeavingTheChoiceOfAFileIsNoFailure) {
  program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
  QTimer::singleShot(0, qApp, [] { ClickOn(QApplication::activeModalWidget(), "cmdExit"); });
  EXPECT_FALSE(program->Start({}));
  EXPECT_TRUE(program->UserLeft());
  program->UseFile(folder.filePath("GONE.MDB"));
  EXPECT_FALSE(program->Start({}));
  EXPECT_FALSE(program->UserLeft()) << "a file that is not there is a failure";
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
}

}  // namespace
}  // namespace quillary
