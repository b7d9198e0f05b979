#include "gui/GuiTest.h"
#include "kit/ComboSearch.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Keys.h"

#include <QHeaderView>

namespace quillary {
namespace {

class KitTest : public ::testing::Test {
 protected:
  void SetUp() override { TestApplication(); }
};

TEST_F(KitTest, FilterKey) {
  struct Case {
    int key;
    const char* text;
    KeyMode mode;
    bool passes;
  };
  const Case cases[] = {
      {'5', "", KeyMode::Digits, true},          {'/', "", KeyMode::Digits, false},
      {'/', "1", KeyMode::DigitsAndSlash, true}, {'.', "1.5", KeyMode::Number, false},
      {'-', "1.5", KeyMode::Number, true},       {'-', "-1", KeyMode::Number, false},
      {'a', "", KeyMode::Number, false},         {8, "12", KeyMode::Digits, true},
      {13, "12", KeyMode::Digits, false},        {13, "", KeyMode::Number, false},
      {'.', "", KeyMode::DigitsOnly, false},     {'7', "", KeyMode::DigitsOnly, true},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FilterKey(c.key, c.text, c.mode), c.passes ? c.key : 0)
        << c.key << " after \"" << c.text << "\"";
}

TEST_F(KitTest, ComboFindsAsOneTypes) {
  ComboSearch combo;
  combo.addItem("Casey O'Hara", 1);
  combo.addItem("Robin Vale", 2);
  combo.addItem("Rowan", 3);
  combo.SelectComboItem(QVariant());
  EXPECT_EQ(combo.currentIndex(), -1);
  combo.show();
  QLineEdit* line = combo.lineEdit();
  QTest::keyClicks(line, "RO");
  EXPECT_EQ(line->text(), "Robin Vale");
  EXPECT_EQ(line->selectedText(), "bin Vale") << "typing on replaces the proposed rest";
  QTest::keyClicks(line, "w");
  EXPECT_EQ(combo.currentData(), 3);
  QTest::keyClick(line, Qt::Key_Backspace);
  EXPECT_EQ(line->text(), "Robin Vale") << "a backspace takes the last typed letter";
  QTest::keyClicks(line, "x");
  EXPECT_EQ(line->text(), "Rox");
  EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(KitTest, DateFieldTakesWhatAnOwnerTypes) {
  struct Case {
    const char* typed;
    QDate date;
  };
  const QDate today(2026, 11, 2);
  const Case cases[] = {{"5/12", {2026, 12, 5}},
                        {"2026-11-30", {2026, 11, 30}},
                        {"Tue 3 Nov 2026", {2026, 11, 3}},
                        {"31/11/2026", today},
                        {"soon", today},
                        {"", today}};
  for (const Case& c : cases) {
    DateField field(today);
    field.SetDate(today);
    field.show();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, c.typed);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.Date(), c.date) << c.typed;
    EXPECT_EQ(field.text(), c.date.toString("ddd d MMM yyyy")) << c.typed;
  }
}

TEST_F(KitTest, CurrencyFieldFormatsOnLeaving) {
  const std::pair<const char*, const char*> cases[] = {
      {"1234.5", "$1,234.50"}, {"(5)", "-$5.00"}, {"", "$0.00"}, {"nine", "$7.00"}};
  for (const auto& [typed, shown] : cases) {
    CurrencyField field;
    field.SetAmount(Money::FromWhole(7));
    field.show();
    field.setText(typed);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.text(), shown) << typed;
  }
}

TEST_F(KitTest, GridSortsByValueAndRemembersIt) {
  MemorySettings settings;
  const auto fill = [&](Grid& grid) {
    grid.SetColumns({{"", ColumnKind::HiddenId},
                     {"Name", ColumnKind::Text, 200},
                     {"Price", ColumnKind::Money, 90}});
    grid.RememberIn(settings);
    std::vector<GridRow> rows(3);
    rows[0].cells = {1, "A", Money::FromWhole(100)};
    rows[1].cells = {2, "B", Money::FromWhole(20)};
    rows[2].cells = {3, "C", Money::FromWhole(3)};
    grid.SetRows(std::move(rows));
  };
  const auto first = [](const Grid& grid) { return grid.model()->index(0, 1).data().toString(); };
  Grid grid("grdPrices");
  fill(grid);
  EXPECT_EQ(first(grid), "A") << "as loaded until the user sorts";
  grid.horizontalHeader()->setSortIndicator(2, Qt::AscendingOrder);
  EXPECT_EQ(first(grid), "C") << "by amount, not by its text";
  EXPECT_EQ(grid.Key(0), 1) << "rows are numbered as they were loaded";
  Grid again("grdPrices");
  fill(again);
  EXPECT_EQ(first(again), "C");
}

TEST_F(KitTest, PlainCaptions) {
  EXPECT_EQ(PlainCaption("&Diary..."), "Diary");
  EXPECT_EQ(PlainCaption("Invoices, Statements, && Reminders"),
            "Invoices, Statements, & Reminders");
}

}  // namespace
}  // namespace quillary
