#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "diary/screens/DiaryGrid.h"
#include "diary/screens/DiaryScreens.h"
#include "gui/GuiTest.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "lists/screens/ListScreens.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTimer>

namespace quillary {
namespace {

/// A day of four entries: two open jobs, a paid one, a visit; and a job of tomorrow.
class DiaryScreenTest : public BusinessTest {
 protected:
  void SetUp() override {
    TestApplication();
    BusinessTest::SetUp();
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Casey')"));
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Robin')"));
    for (const char* name : {"Abbott", "Brown", "Chen", "Diaz"}) {
      Run(Sql("INSERT INTO Clients (Status, Display_Name) VALUES ('Active', {})", name));
    }
    AddEntry(1, "J", 1, 55, 0);
    AddEntry(2, "J", 2, 60, 1);
    AddEntry(3, "JD", 3, 40, 2);
    Run(Sql("UPDATE Diary SET Payment_ID = 7 WHERE Diary_ID = 3"));
    AddEntry(4, "V", 4, 0, 2);
    AddEntry(1, "J", 1, 75, 1, QDate(2026, 11, 3));
  }

  void AddEntry(int client, const char* status, int sequence, double price, int employee,
                QDate day = QDate(2026, 11, 2)) {
    Build().Add<Entry>({{"Client_ID", client},
                        {"Employee_ID", employee},
                        {"Status", status},
                        {"Schedule_Date", day},
                        {"Total_Price", price},
                        {"Total_GST", 0},
                        {"Sequence", sequence}});
  }

  void Open() {
    lists::RegisterListScreens(business(), {navigator, host, runner});
    diary::RegisterDiaryScreens(business(), {navigator, host, runner});
    navigator.Open(OpenDiary{});
    screen = host.shown.get();
    grid = Find<Grid>(screen, "grdSchedule");
  }

  QString Shown(int row, diary::DiaryColumn column) {
    return grid->model()->index(row, column).data().toString();
  }
  QString Names() {
    QStringList names;
    for (int row = 0; row < grid->model()->rowCount(); ++row)
      names += Shown(row, diary::kDisplayName);
    return names.join(u' ');
  }
  QString Text(const char* label) { return Find<QLabel>(screen, label)->text(); }
  QString StatusOf(int diaryId) {
    return business()
        .FirstField(Sql("SELECT Status FROM Diary WHERE Diary_ID = {}", diaryId))
        .ToText();
  }
  QPoint Middle(int row, diary::DiaryColumn column) {
    return grid->visualRect(grid->model()->index(row, column)).center();
  }
  /// Opens the editor of a cell by keyboard, picks the entry and leaves.
  void Choose(int row, diary::DiaryColumn column, const QString& word) {
    grid->setCurrentIndex(grid->model()->index(row, column));
    QTest::keyClick(grid, Qt::Key_F2);
    auto* editor = Find<QComboBox>(grid->viewport(), "editor");
    editor->setCurrentIndex(editor->findText(word));
    emit editor->activated(editor->currentIndex());
    QTest::qWait(20);
  }

  Navigator navigator;
  SingleHost host;
  CommandRunner runner{outside.errors, outside.busy};
  Screen* screen = nullptr;
  Grid* grid = nullptr;
};

TEST_F(DiaryScreenTest, ShowsTheDayWithItsTotals) {
  Open();
  EXPECT_EQ(Names(), "Abbott Brown Chen Diaz");
  EXPECT_EQ(Shown(0, diary::kStatus), "Job NOT DONE");
  EXPECT_EQ(Shown(2, diary::kStatus), "Job DONE · paid") << "colour is never the only sign";
  EXPECT_EQ(Shown(0, diary::kPrice), "$55.00");
  EXPECT_EQ(Shown(3, diary::kPrice), "") << "a visit has no price";
  EXPECT_EQ(Shown(0, diary::kEmployee), "—");
  EXPECT_EQ(Text("txtTotalNoOfJobs"), "3");
  EXPECT_EQ(Text("txtTotalAmountOfJobs"), "$155.00");
  EXPECT_TRUE(Find<QLabel>(screen, "lblNoEmployee")->isVisible());
}

TEST_F(DiaryScreenTest, MarksDoneByMouse) {
  Open();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, Middle(1, diary::kDisplayName));
  ClickOn(screen, "cmdDoneUnPaid");
  EXPECT_EQ(StatusOf(2), "JD");
  EXPECT_EQ(Shown(1, diary::kStatus), "Job DONE");
  EXPECT_EQ(grid->model()->index(1, 0).data(kHueRole).toInt(), static_cast<int>(Hue::Green));
  EXPECT_EQ(Text("txtTotalAmountOfJobs"), "$155.00") << "a done job still counts";
  EXPECT_FALSE(grid->SelectedRow()) << "the next click must not hit the same job";
}

TEST_F(DiaryScreenTest, MarksDoneAndCancelsByKeyboard) {
  Open();
  QTest::keyClick(grid, Qt::Key_Down);
  QTest::keyClick(screen, Qt::Key_U, Qt::AltModifier);
  // A button pressed by its key is seen to go down before it acts.
  EXPECT_TRUE(QTest::qWaitFor([&] { return StatusOf(2) == "JD"; }));
  QTest::keyClick(grid, Qt::Key_Up);
  QTest::keyClick(screen, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return StatusOf(1) == "JC"; }));
  EXPECT_EQ(Text("txtTotalNoOfJobs"), "2") << "a cancelled job does not count";
  EXPECT_EQ(Text("txtTotalAmountOfJobs"), "$100.00");
  QTest::keyClick(screen, Qt::Key_U, Qt::AltModifier);
  QStringList told;
  EXPECT_TRUE(QTest::qWaitFor([&] { return !(told = outside.prompter.TakeTold()).isEmpty(); }));
  EXPECT_EQ(told, QStringList{"Please select a job."});
}

TEST_F(DiaryScreenTest, AsksBeforeAPaidJobLeavesItsPayment) {
  Open();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("This job has been paid.", answer);
    grid->SelectKey(3);
    ClickOn(screen, "cmdDoneUnPaid");
    const bool paid = Shown(2, diary::kStatus) == "Job DONE · paid";
    EXPECT_EQ(paid, answer == Answer::No);
  }
}

TEST_F(DiaryScreenTest, RefusesARangeThatEndsBeforeItBegins) {
  Open();
  Find<DateField>(screen, "dtFrom")->SetDate(QDate(2026, 11, 5));
  Find<DateField>(screen, "dtTo")->SetDate(QDate(2026, 11, 4));
  Click(Find<QRadioButton>(screen, "optShowJobsBetween"));
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please enter a valid date range."});
  EXPECT_EQ(Names(), "Abbott Brown Chen Diaz") << "the list stays as it was";
  EXPECT_TRUE(Find<DateField>(screen, "dtFrom")->hasFocus());

  auto* to = Find<DateField>(screen, "dtTo");
  Find<DateField>(screen, "dtFrom")->SetDate(QDate(2026, 11, 2));
  to->selectAll();
  QTest::keyClicks(to, "3/11");
  QTest::keyClick(to, Qt::Key_Return);
  ClickOn(screen, "cmdList");
  EXPECT_EQ(grid->model()->rowCount(), 5);
}

TEST_F(DiaryScreenTest, MovesThroughTheDays) {
  Open();
  struct Step {
    Qt::Key key;
    const char* names;
    QDate from;
  };
  const Step steps[] = {{Qt::Key_Right, "Abbott", {2026, 11, 3}},
                        {Qt::Key_Right, "", {2026, 11, 4}},
                        {Qt::Key_Left, "Abbott", {2026, 11, 3}},
                        {Qt::Key_Home, "Abbott Brown Chen Diaz", {2026, 11, 2}}};
  for (const Step& step : steps) {
    QTest::keyClick(screen, step.key, Qt::AltModifier);
    EXPECT_EQ(Names(), step.names);
    EXPECT_EQ(Find<DateField>(screen, "dtFrom")->Date(), step.from);
  }
}

TEST_F(DiaryScreenTest, FiltersByEmployeeAndByWords) {
  Open();
  auto* employees = Find<QComboBox>(screen, "cmbEmployees");
  EXPECT_EQ(employees->itemText(0), " All");
  EnterField(employees);
  TypeKeys("ro");
  EXPECT_EQ(employees->currentText(), "Robin");
  PressKey(Qt::Key_Return);
  EXPECT_EQ(Names(), "Chen Diaz");
  EnterField(employees);
  TypeKeys("nobody");
  PressKey(Qt::Key_Tab);
  EXPECT_EQ(Names(), "Chen Diaz") << "a name that is nobody's empties no list";
  EXPECT_EQ(employees->currentText(), "Robin");
  employees->setCurrentIndex(0);
  emit employees->activated(0);

  auto* filter = Find<QLineEdit>(screen, "txtFilter");
  QTest::keyClicks(filter, "job not");
  EXPECT_EQ(Names(), "Abbott Brown");
  grid->SelectKey(2);
  EXPECT_EQ(grid->SelectedRow(), 1) << "rows keep their number while others are hidden";
}

TEST_F(DiaryScreenTest, EditsInItsCells) {
  Open();
  Choose(0, diary::kStatus, "Job CANCELLED");
  EXPECT_EQ(StatusOf(1), "JC");
  Choose(0, diary::kEmployee, "Robin");
  EXPECT_EQ(business().FirstField(Sql("SELECT Employee_ID FROM Diary WHERE Diary_ID = 1")).ToLong(),
            2);
  EXPECT_FALSE(Find<QLabel>(screen, "lblNoEmployee")->isVisible());

  grid->setCurrentIndex(grid->model()->index(0, diary::kSequence));
  QTest::keyClick(grid, Qt::Key_F2);
  auto* editor = Find<QLineEdit>(grid->viewport(), "editor");
  QTest::keyClicks(editor, "x9");
  QTest::keyClick(editor, Qt::Key_Return);
  QTest::qWait(20);
  EXPECT_EQ(Names(), "Brown Chen Diaz Abbott") << "letters are no sequence, 9 is the last place";
}

TEST_F(DiaryScreenTest, ACellThatHoldsNoChoiceKeepsWhatItHolds) {
  AddEntry(2, "Q", 5, 0, 9);
  Open();
  for (const diary::DiaryColumn column : {diary::kStatus, diary::kEmployee}) {
    grid->setCurrentIndex(grid->model()->index(4, column));
    QTest::keyClick(grid, Qt::Key_F2);
    EXPECT_EQ(Find<QComboBox>(grid->viewport(), "editor")->currentIndex(), -1);
    Find<QLineEdit>(screen, "txtFilter")->setFocus();  // leaving an editor stores what it holds
    QTest::qWait(20);
  }
  EXPECT_EQ(StatusOf(6), "Q");
  EXPECT_EQ(business().FirstField(Sql("SELECT Employee_ID FROM Diary WHERE Diary_ID = 6")).ToLong(),
            9);
  Choose(4, diary::kStatus, "Job NOT DONE");
  EXPECT_EQ(StatusOf(6), "J") << "what is chosen is stored";
}

TEST_F(DiaryScreenTest, CommandsReachAllThatIsMarked) {
  Open();
  PressKey(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid->MarkedRows(), (std::vector<int>{0, 1}));
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, Middle(3, diary::kMark));
  EXPECT_EQ(grid->MarkedRows(), (std::vector<int>{0, 1, 3})) << "its box marks a row beside others";
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, Middle(1, diary::kMark));
  ClickOn(screen, "cmdDoneUnPaid");
  EXPECT_EQ(StatusOf(1) + StatusOf(2) + StatusOf(4), "JDJVD");
  grid->setFocus();
  PressKey(Qt::Key_A, Qt::ControlModifier);
  ASSERT_EQ(grid->MarkedRows().size(), 4U);
  screen->Reload();
  EXPECT_EQ(grid->MarkedRows().size(), 4U) << "loading again takes no mark away";
  PressKey(Qt::Key_C, Qt::ControlModifier);
  const QStringList copied = QGuiApplication::clipboard()->text().split(u'\n');
  ASSERT_EQ(copied.size(), 6);
  EXPECT_TRUE(copied[0].startsWith(u"#\tClient\tAddress"));
  EXPECT_TRUE(copied[2].contains(u"Brown"));
}

TEST_F(DiaryScreenTest, MovesMarkedJobsToTheNextFreeDay) {
  Open();
  PressKey(Qt::Key_Down, Qt::ShiftModifier);
  QTimer::singleShot(0, qApp, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    const auto leave = qScopeGuard([&] {
      if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    EXPECT_EQ(dialog->findChild<QRadioButton*>("optMarked")->text(), "The &marked: 2 jobs");
    EXPECT_EQ(dialog->findChild<QRadioButton*>("optUndone")->text(),
              "&All of today that are not done: 2 jobs, 1 visit");
    Find<Grid>(dialog, "grdDays")->SelectKey(1);
    ClickOn(dialog, "cmdMove");
  });
  ClickOn(screen, "cmdMoveTo");
  EXPECT_EQ(Names(), "Chen Diaz");
  EXPECT_EQ(business()
                .FirstField(
                    Sql("SELECT COUNT(*) FROM Diary WHERE Schedule_Date = {}", QDate(2026, 11, 4)))
                .ToLong(),
            2);
}

TEST_F(DiaryScreenTest, AnEditNeedsASelectedJob) {
  Open();
  grid->SelectKey(2);
  ClickOn(screen, "cmdDoneUnPaid");
  ASSERT_FALSE(grid->SelectedRow());
  QTest::keyClick(grid, Qt::Key_F2);
  auto* editor = Find<QWidget>(grid->viewport(), "editor");
  if (auto* line = qobject_cast<QLineEdit*>(editor)) line->setText("9");
  QTest::keyClick(editor, Qt::Key_Return);
  QTest::qWait(20);
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please select a job to update."});
  EXPECT_EQ(business().FirstField(Sql("SELECT [Sequence] FROM Diary WHERE Diary_ID = 2")).ToLong(),
            2);
}

TEST_F(DiaryScreenTest, OpeningItAgainShowsToday) {
  Open();
  QTest::keyClick(screen, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Names(), "Abbott");
  navigator.Open(OpenDiary{});
  EXPECT_EQ(Names(), "Abbott Brown Chen Diaz");
  for (const char* field : {"dtJobDate", "dtFrom", "dtTo"})
    EXPECT_EQ(Find<DateField>(screen, field)->Date(), QDate(2026, 11, 2)) << field;
}

TEST_F(DiaryScreenTest, ThePickedRangeAndItsOptionAgreeWithTheList) {
  Open();
  struct Step {
    const char* field;
    const char* typed;
    bool range;
    int rows;
  };
  const Step steps[] = {{"dtFrom", "3/11", false, 4},  // it ends before it begins, so far
                        {"dtTo", "4/11", true, 1},
                        {"dtJobDate", "4/11", false, 0},
                        {"dtFrom", "2/11", true, 5}};
  for (const Step& step : steps) {
    auto* field = Find<DateField>(screen, step.field);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, step.typed);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(Find<QRadioButton>(screen, "optShowJobsBetween")->isChecked(), step.range)
        << step.field;
    EXPECT_EQ(grid->model()->rowCount(), step.rows) << step.field << step.typed;
  }
}

TEST_F(DiaryScreenTest, EachKindOfEntryOpensItsOwnScreen) {
  AddEntry(2, "Q", 5, 0, 1);
  Open();
  for (const auto& [key, name] : {std::pair{1, "frmJobs"}, {4, "frmVisit"}, {6, "frmQuote"}}) {
    grid->SelectKey(key);
    QString opened;
    QTimer::singleShot(0, screen, [&] {
      opened = QApplication::activeModalWidget()->objectName();
      static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    });
    ClickOn(screen, "cmdEditJob");
    EXPECT_EQ(opened, name);
  }
}

TEST_F(DiaryScreenTest, PrintingRecomputesWhatTheClientOwes) {
  int printed = 0;
  navigator.Register<PrintWorkSheet>([&](const PrintWorkSheet&) {
    ++printed;
    EXPECT_EQ(Run(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 3"))
                  .Field(size_t{0})
                  .ToMoney(),
              Money::FromWhole(-40));
  });
  Run(Sql("UPDATE Clients SET Billing_Client_ID = Client_ID, Is_Billed_To = True"));
  Open();
  grid->SelectKey(3);
  ClickOn(screen, "cmdPrint");
  EXPECT_EQ(printed, 1);
}

TEST_F(DiaryScreenTest, ReordersByDragAndByKeys) {
  Open();
  const auto order = [&] {
    QStringList clients;
    for (const Record row : Run(Sql("SELECT Client_ID FROM Diary WHERE Schedule_Date = {} "
                                    "ORDER BY [Sequence]",
                                    QDate(2026, 11, 2))))
      clients += row[u"Client_ID"].ToText();
    return clients.join(u' ');
  };
  QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, Middle(0, diary::kDisplayName));
  QTest::mouseMove(grid->viewport(), Middle(1, diary::kDisplayName));
  QMouseEvent move(QEvent::MouseMove, Middle(2, diary::kDisplayName),
                   grid->viewport()->mapToGlobal(Middle(2, diary::kDisplayName)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(grid->viewport(), &move);
  QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, Middle(2, diary::kDisplayName));
  EXPECT_EQ(Names(), "Brown Chen Abbott Diaz");
  EXPECT_EQ(order(), "2 3 1 4");
  QTest::keyClick(grid, Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(order(), "2 1 3 4");
  Find<QLineEdit>(screen, "txtFilter")->setText("a");
  QTest::keyClick(grid, Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(order(), "2 1 3 4") << "a place among some of the rows means nothing";
}

TEST_F(DiaryScreenTest, CommandsOfOtherScreensFollowTheNavigator) {
  qint64 opened = 0;
  navigator.Register<OpenClient>(
      [&](const OpenClient& request) { opened = request.client.Number(); });
  Open();
  EXPECT_FALSE(Find<QPushButton>(screen, "cmdDonePaid")->isEnabled());
  EXPECT_FALSE(Find<QPushButton>(screen, "cmdCreateInvoice")->isEnabled());
  grid->SelectKey(2);
  ClickOn(screen, "cmdClientDetails");
  EXPECT_EQ(opened, 2);
}

TEST_F(DiaryScreenTest, ButtonsOnTheRowsPressTheCommand) {
  outside.settings.Write("Form", "Use Buttons In Diary", "1");
  Open();
  QTest::qWait(20);
  const auto buttons = grid->viewport()->findChildren<QPushButton*>("cmdDoneUnPaidOnRow");
  ASSERT_EQ(buttons.size(), 4);
  for (QPushButton* button : buttons)
    if (button->parentWidget()->property("row").toInt() == 1) Click(button);
  EXPECT_EQ(StatusOf(2), "JD");
}

TEST_F(DiaryScreenTest, AFailureReachesTheErrorScreenUnderItsNames) {
  Open();
  ExpectRefused("SELECT Diary.Sequence");
  Run(Sql("DROP TABLE Diary_Services"));
  ClickOn(screen, "cmdRefreshList");
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 1);
  EXPECT_TRUE(reports.first().startsWith("frmDiary|LoadScheduleGrid|Error: 91 - "));
  EXPECT_EQ(outside.busy.depth, 0) << "the pointer is given back";
}

}  // namespace
}  // namespace quillary
