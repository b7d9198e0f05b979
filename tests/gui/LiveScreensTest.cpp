#include "diary/screens/DiaryGrid.h"
#include "gui/DeskTest.h"
#include "kit/Grid.h"

#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

#include <algorithm>

namespace quillary {
namespace {

/// Open screens follow what others write, and what was done can be taken back.
class LiveScreensTest : public DeskTest {
 protected:
  Screen* Open(const char* command, const char* screen) {
    Command(command)->trigger();
    return Find<Screen>(&Window(), screen);
  }
  qint64 FirstOpenJob() {
    return Run(Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Schedule_Date = {} AND Status = 'J' "
                   "ORDER BY Sequence",
                   QDate(2026, 11, 2)))
        .Field(size_t{0})
        .ToLong();
  }
  QString StatusOf(qint64 job) {
    return Run(Sql("SELECT Status FROM Diary WHERE Diary_ID = {}", job)).Field(size_t{0}).ToText();
  }
  static QString Shown(const Grid* grid, qint64 key, int column) {
    for (const GridRow& row : grid->Rows())
      if (row.cells[diary::kEntry].value == Value(key))
        return row.cells[static_cast<size_t>(column)].value.ToText();
    return {};
  }
};

TEST_F(LiveScreensTest, TheDiaryFollowsWhatIsWrittenBehindIt) {
  Screen* diary = Open("mnuDiary", "frmDiary");
  auto* grid = Find<Grid>(diary, "grdSchedule");
  const qint64 job = FirstOpenJob();
  ASSERT_TRUE(grid->SelectKey(job));
  const int scrolled = grid->verticalScrollBar()->value();
  Run(Sql("UPDATE Diary SET Total_Price = 123.45 WHERE Diary_ID = {}", job));
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(grid, job, diary::kPrice) == "123.45"; }))
      << "it is in view, so it loads at once";
  EXPECT_EQ(grid->Key(*grid->SelectedRow()), job) << "the selection stays";
  EXPECT_EQ(grid->verticalScrollBar()->value(), scrolled);

  Open("mnuClientFindClient", "frmClientList");
  Run(Sql("UPDATE Diary SET Total_Price = 67.89 WHERE Diary_ID = {}", job));
  QTest::qWait(20);
  EXPECT_EQ(Shown(grid, job, diary::kPrice), "123.45") << "nobody looks at it";
  Open("mnuDiary", "frmDiary");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(grid, job, diary::kPrice) == "67.89"; }));
}

TEST_F(LiveScreensTest, AnotherCountryRewritesWhatIsOpen) {
  Screen* diary = Open("mnuDiary", "frmDiary");
  const auto shows = [&](QChar sign) {
    return std::ranges::any_of(diary->findChildren<QLabel*>(), [&](const QLabel* label) {
      return label->isVisible() && label->text().contains(sign);
    });
  };
  ASSERT_TRUE(shows(u'$'));
  Run(Sql("UPDATE infPersonalDetails SET Country_ID = 3"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(u'£') && !shows(u'$'); }));
  Run(Sql("UPDATE infPersonalDetails SET Country_ID = 1"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(u'$') && !shows(u'£'); }));
}

TEST_F(LiveScreensTest, TypedFieldsOutlastAChangeElsewhere) {
  NewClientByKeyboard();
  TypeInto("txtPhone1", "0412");
  Run(Sql("UPDATE Clients SET Fax = '03 9' WHERE Client_ID = {}", Number()));
  QWidget* bar = nullptr;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return (bar = client->findChild<QWidget*>("barChanged")) && bar->isVisible(); }));
  EXPECT_EQ(On<QLineEdit>("txtPhone1")->text(), "0412");
  ClickOn(client, "cmdKeepTyped");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !client->findChild<QWidget*>("barChanged"); }));
  EXPECT_EQ(On<QLineEdit>("txtPhone1")->text(), "0412");
}

TEST_F(LiveScreensTest, ACommandIsTakenBackByOneKeyAndMadeAgain) {
  Screen* diary = Open("mnuDiary", "frmDiary");
  auto* grid = Find<Grid>(diary, "grdSchedule");
  const qint64 job = FirstOpenJob();
  ASSERT_TRUE(grid->SelectKey(job));
  EXPECT_FALSE(Find<QToolButton>(&Window(), "tool_undo")->isEnabled());
  ClickOn(diary, "cmdDoneUnPaid");
  EXPECT_EQ(StatusOf(job), "JD");
  EXPECT_TRUE(Find<QToolButton>(&Window(), "tool_undo")->isEnabled());
  EXPECT_EQ(Find<QLabel>(&Window(), "lblLastDone")->text(), "Done: 1 job");
  QTest::keyClick(grid, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(StatusOf(job), "J");
  EXPECT_EQ(Find<QLabel>(&Window(), "lblLastDone")->text(), "Taken back: Done: 1 job");
  QTest::keyClick(grid, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(StatusOf(job), "JD");
  ClickOn(&Window(), "cmdUndoLast");
  EXPECT_EQ(StatusOf(job), "J");

  ClickOn(diary, "cmdDoneUnPaid");
  Run(Sql("UPDATE Diary SET Status = 'JC' WHERE Diary_ID = {}", job));
  ClickOn(&Window(), "cmdUndoLast");
  EXPECT_EQ(StatusOf(job), "JC") << "what was written since is not overwritten";
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
}

}  // namespace
}  // namespace quillary
