#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

namespace quillary {
namespace {

/// Over the lists that the owner keeps for the schedule.
class ListScreensTest : public ScreenFixture {
 protected:
  static int RowsOf(const Grid* grid) { return grid->model()->rowCount(); }
  /// Whether typing would go into the control.
  static bool IsAt(const Screen& screen, const char* name) {
    return Find<QWidget>(&screen, name)->hasFocus();
  }
};

TEST_F(ListScreensTest, KeepsDivisions) {
  Run(Sql("DELETE FROM Divisions"));
  Screen& screen = OpenTab(OpenDivisions{});
  auto* grid = Find<Grid>(&screen, "fgDivisions");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter the division name.");
  EXPECT_TRUE(IsAt(screen, "txtDivisionName"));

  TypeOver(&screen, "txtDivisionName", QString(40, 'x'));
  EXPECT_EQ(Find<QLineEdit>(&screen, "txtDivisionName")->text().size(), 30)
      << "no letter is typed that the column would refuse";
  TypeOver(&screen, "txtDivisionName", "Pools");
  QTest::keyClick(&screen, Qt::Key_N, Qt::ControlModifier);
  ASSERT_EQ(RowsOf(grid), 1);
  EXPECT_EQ(grid->SelectedRow(), 0) << "the added record is the chosen one";

  TypeOver(&screen, "txtNatureOfBusiness", "Cleaning");
  QTest::keyClick(&screen, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(RowText(grid, 0), "Pools|Cleaning");
  ClickOn(&screen, "cmdDelete");
  EXPECT_EQ(RowsOf(grid), 0);
  EXPECT_EQ(Find<QLineEdit>(&screen, "txtDivisionName")->text(), "");
  TypeOver(&screen, "txtDivisionName", "Pools");
  ClickOn(&screen, "cmdUpdate");
  ClickOn(&screen, "cmdDelete");
  EXPECT_EQ(Told(), "Please choose a record to update.|Please choose a record to delete.");
}

TEST_F(ListScreensTest, AsksBeforeTypedFieldsAreLost) {
  Screen& screen = OpenTab(OpenDivisions{});
  EXPECT_TRUE(screen.MayClose());
  TypeOver(&screen, "txtDivisionName", "Pools");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("Close without saving changes?", answer);
    EXPECT_EQ(screen.MayClose(), answer == Answer::Yes);
  }
  screen.Reload();
  EXPECT_EQ(Find<QLineEdit>(&screen, "txtDivisionName")->text(), "Pools")
      << "loading again takes nothing away that is being typed";
}

TEST_F(ListScreensTest, KeepsServicesByTheGivenChecks) {
  Screen& screen = OpenTab(OpenServices{});
  auto* grid = Find<Grid>(&screen, "fgServices");
  EXPECT_FALSE(Find<QPushButton>(&screen, "cmdDownloadServices")->isEnabled());
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter a value for the service.");
  ClickOn(&screen, "cmdUpdate");
  EXPECT_EQ(Told(), "Please enter a value the service.");
  EXPECT_TRUE(IsAt(screen, "txtService"));
  TypeOver(&screen, "txtService", "Weeding");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter a service code.");
  EXPECT_TRUE(IsAt(screen, "txtServiceCode"));
  TypeOver(&screen, "txtServiceCode", "WE");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please select the default ledger account for this service.");
  TypeChoice(&screen, "cboDefaultGLAccountID", "gard");
  Find<QCheckBox>(&screen, "chkDefault")->click();
  ClickOn(&screen, "cmdInsert");
  ASSERT_EQ(RowsOf(grid), 3);
  EXPECT_EQ(RowText(grid, 2).section('|', 0, 2), "Weeding|WE|Garden income");
  EXPECT_TRUE(Find<QCheckBox>(&screen, "chkDefault")->isChecked()) << "as it was stored";

  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("Are you sure you want to remove this service?", answer);
    ClickOn(&screen, "cmdDelete");
    EXPECT_EQ(RowsOf(grid), answer == Answer::Yes ? 2 : 3);
  }
}

TEST_F(ListScreensTest, KeepsHolidaysOfAYear) {
  Run(Sql("DELETE FROM Holiday"));
  Screen& screen = OpenTab(OpenHoliday{});
  auto* grid = Find<Grid>(&screen, "fgHoliday");
  auto* year = Find<QLineEdit>(&screen, "txtYear");
  TypeOver(&screen, "txtDayMonth", "31/2");
  TypeOver(&screen, "txtYear", "2026");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter a valid day/month.");
  EXPECT_TRUE(IsAt(screen, "txtDayMonth"));
  TypeOver(&screen, "txtDayMonth", "3/11");
  TypeOver(&screen, "txtYear", "0");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter a valid year.");
  EXPECT_TRUE(IsAt(screen, "txtYear"));
  TypeOver(&screen, "txtYear", "2027");
  ClickOn(&screen, "cmdInsert");
  EXPECT_EQ(RowsOf(grid), 0) << "2026 shows";

  auto* years = Find<QComboBox>(&screen, "cboYear");
  years->setCurrentIndex(years->findText("2027"));
  emit years->activated(years->currentIndex());
  ASSERT_EQ(RowsOf(grid), 1);
  grid->SelectFirst();
  Find<QCheckBox>(&screen, "chkRecurring")->click();
  EXPECT_FALSE(year->isEnabled());
  ClickOn(&screen, "cmdUpdate");
  EXPECT_EQ(RowText(grid, 0).section('|', 0, 1), "03/11|Every year");
  EXPECT_TRUE(IsHoliday(business().holidays, QDate(2030, 11, 3)))
      << "the roll sees the change at once";

  Run(Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring) VALUES ('25/12', 2026, False)"));
  TypeOver(&screen, "txtDayMonth", "26/12");
  years->setCurrentIndex(years->findText("2026"));
  emit years->activated(years->currentIndex());
  EXPECT_EQ(RowsOf(grid), 2) << "the list follows the year while a holiday is being typed";
  EXPECT_EQ(Find<QLineEdit>(&screen, "txtDayMonth")->text(), "26/12");
}

TEST_F(ListScreensTest, KeepsFrequenciesInTheirCells) {
  Run(Sql("DELETE FROM lstFrequencies"));
  Screen& screen = OpenTab(OpenVisitFrequencies{});
  auto* grid = Find<Grid>(&screen, "grdFreq");
  ClickOn(&screen, "cmdAdd");
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_TRUE(editor) << "the new number is typed at once";
  QTest::keyClicks(editor, "366");
  QTest::keyClick(editor, Qt::Key_Return);
  QTest::qWait(10);
  EXPECT_EQ(Told(), "Please enter a value between 1 - 365.");
  EXPECT_EQ(Number(Sql("SELECT Frequency_Days FROM lstFrequencies")), 0);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  TypeInto(grid, 0, 0, "14");
  EXPECT_EQ(Number(Sql("SELECT Frequency_Days FROM lstFrequencies")), 14);
  ClickOn(&screen, "cmdRemove");
  EXPECT_EQ(RowsOf(grid), 0);
  ClickOn(&screen, "cmdRemove");
  EXPECT_EQ(Told(), "Please select a record to delete.");
}

TEST_F(ListScreensTest, OrdersSuburbsByDragKeysAndCells) {
  const auto order = [&] {
    QStringList names;
    for (const Record row : Run(Sql("SELECT Suburb_Name FROM Suburb_Position ORDER BY Position")))
      names += row[u"Suburb_Name"].ToText();
    return names.join(' ');
  };
  Run(Sql("DELETE FROM Suburb_Position"));
  for (const char* suburb : {"BALWYN", "CAMBERWELL"})
    Run(Sql("INSERT INTO Suburb_Position (Suburb_Name, Position) VALUES ({}, 5)", suburb));
  UseDialog(EditSuburbPositions{}, [&](Dialog& suburbs) {
    auto* grid = Find<Grid>(&suburbs, "grdSuburbs");
    ClickOn(&suburbs, "cmdAcquireSuburbsFromClient");
    EXPECT_EQ(RowsOf(grid), 3) << "KEW has clients";
    EXPECT_EQ(Find<QLabel>(&suburbs, "lblCount")->text(), "3 suburbs");
    grid->SelectKey(2);
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(grid, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(order(), "KEW BALWYN CAMBERWELL");
    TypeInto(grid, 0, 0, "9");
    EXPECT_EQ(order(), "BALWYN CAMBERWELL KEW");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      outside.prompter.Expect("KEW", answer);
      grid->SelectKey(2);
      ClickOn(&suburbs, "cmdRemove");
    }
    EXPECT_EQ(order(), "BALWYN CAMBERWELL");
    grid->clearSelection();
    ClickOn(&suburbs, "cmdRemove");
    EXPECT_EQ(Told(), "Please select the suburb you want to remove.");
  });
}

}  // namespace
}  // namespace quillary
