#include "gui/GuiTest.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/InputHabits.h"
#include "kit/Keys.h"
#include "kit/Roles.h"
#include "kit/Screen.h"
#include "kit/Theme.h"
#include "shell/MainMenuMDI_Splash.h"
#include "support/ScriptedOutside.h"

#include <QHeaderView>
#include <QToolTip>

#include <cmath>

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

TEST_F(KitTest, APauseEndsWithTheMinute) {
  struct Case {
    QTime begun;
    int seconds;
    int lasts;
  };
  const Case cases[] = {
      {{9, 30, 10}, 5, 5000},   {{9, 30, 57}, 5, 2000},  {{9, 30, 59}, 5, 0},
      {{9, 30, 59, 500}, 1, 0}, {{9, 30, 0}, 90, 59000}, {{9, 30, 10, 400}, 2, 1600},
      {{9, 30, 10, 400}, 0, 0},
  };
  for (const Case& c : cases)
    EXPECT_EQ(shell::MillisecondsOfPause(c.begun, c.seconds), c.lasts)
        << c.seconds << " from " << c.begun.toString("mm:ss.zzz").toStdString();
}

TEST_F(KitTest, ComboFindsAsOneTypes) {
  ComboSearch combo;
  combo.addItem("Casey O'Hara", 1);
  combo.addItem("Robin Vale", 2);
  combo.addItem("Rowan", 3);
  combo.SelectComboItem(QVariant());
  EXPECT_EQ(combo.currentIndex(), -1);
  combo.show();
  const QLineEdit* line = combo.lineEdit();
  EnterField(&combo);
  TypeKeys("RO");
  EXPECT_EQ(line->text(), "Robin Vale");
  EXPECT_EQ(line->selectedText(), "bin Vale") << "typing on replaces the proposed rest";
  TypeKeys("w");
  EXPECT_EQ(combo.currentData(), 3);
  PressKey(Qt::Key_Backspace);
  EXPECT_EQ(line->text(), "Robin Vale") << "a backspace takes the last typed letter";
  TypeKeys("x");
  EXPECT_EQ(line->text(), "Rox");
  EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(KitTest, ComboFindsTheStartOfAnyWordWhateverItsAccents) {
  const struct {
    const char* fault;
    QString typed;
    int key;  // -1: none
  } cases[] = {
      {"a surname that stands last", "har", 2},
      {"two words", "old m", 3},
      {"the words the other way round", "mill old", 3},
      {"an accent that is not typed", "muller", 4},
      {"an accent that is", "Mü", 4},
      {"an entry that begins so comes before a word that does", "va", 5},
      {"the middle of a word is no start", "ale", -1},
  };
  for (const auto& c : cases) {
    ComboSearch combo;
    int key = 1;
    for (const char* words : {"Casey Vale", "Rob Hartley", "Old Mill Road", "Anna Müller", "Vance"})
      combo.addItem(QString::fromUtf8(words), key++);
    combo.SelectComboItem(QVariant());
    combo.show();
    EnterField(&combo);
    TypeKeys(c.typed);
    const auto* matches = combo.findChild<QListView*>("matches");
    EXPECT_EQ(matches->isVisible(), c.key > 0) << c.fault;
    PressKey(Qt::Key_Return);
    EXPECT_EQ(ComboKey(&combo).value_or(-1), c.key) << c.fault;
    EXPECT_EQ(combo.currentText().toLower(),
              (c.key > 0 ? combo.itemText(c.key - 1) : c.typed).toLower())
        << c.fault;
    EXPECT_FALSE(matches->isVisible()) << c.fault;
  }
}

TEST_F(KitTest, NamesakesAreToldApartAndEscapeGoesBack) {
  ComboSearch combo;
  combo.addItem("Abbott, Paula", 1);
  combo.addItem("Smith, John", 2);
  combo.addItem("Smith, John", 3);
  combo.setItemData(1, "12 Elm St, KEW", ComboSearch::kBesideRole);
  combo.setItemData(2, "4 Oak Rd, RICHMOND", ComboSearch::kBesideRole);
  combo.SelectComboItem(1);
  combo.show();
  EnterField(&combo);
  TypeKeys("smi");
  const QAbstractItemModel* rows = combo.findChild<QListView*>("matches")->model();
  EXPECT_EQ(rows->index(1, 0).data().toString(), "Smith, John  ·  4 Oak Rd, RICHMOND");
  PressKey(Qt::Key_Escape);
  EXPECT_EQ(combo.currentText(), "Abbott, Paula");
  TypeKeys("smi");
  PressKey(Qt::Key_Down);
  PressKey(Qt::Key_Return);
  EXPECT_EQ(ComboKey(&combo), 3);
}

TEST_F(KitTest, TheWheelChangesNothingAndAStrayMnemonicTypesNothing) {
  InputHabits::Install();
  QWidget form;
  auto* column = new QVBoxLayout(&form);
  auto* combo = new QComboBox;
  combo->addItems({"one", "two", "three"});
  auto* amount = new CurrencyField;
  column->addWidget(combo);
  column->addWidget(amount);
  form.show();
  EnterField(combo);
  QWheelEvent notch(QPointF(5, 5), combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(combo, &notch);
  EXPECT_EQ(combo->currentText(), "one");
  EnterField(amount);
  PressKey(Qt::Key_M, Qt::AltModifier);
  EXPECT_EQ(amount->text(), "$0.00");
}

TEST_F(KitTest, AnAmountTypedOverASelectedOneIsTheAmountTyped) {
  QWidget form;
  auto* column = new QVBoxLayout(&form);
  auto* amount = new CurrencyField;
  new KeyFilter(amount, KeyMode::Number);
  column->addWidget(amount);
  column->addWidget(MakeLabelFor(amount, "&Price"));
  auto* after = new QLineEdit;
  column->addWidget(after);
  form.show();
  amount->SetAmount(Money::FromUnits(1234500));
  EnterField(amount);
  TypeKeys(".50");
  // The mnemonic of a field that has the focus already selects what it holds.
  QTest::keyClick(&form, Qt::Key_P, Qt::AltModifier);
  EXPECT_EQ(amount->selectedText(), ".50");
  PressKey(Qt::Key_Tab);
  EXPECT_EQ(amount->Amount(), Money::FromUnits(5000));
}

TEST_F(KitTest, ComboPicksNoneUnderATextThatIsNoEntry) {
  struct Case {
    const char* fault;
    std::function<void(QLineEdit*)> edit;
    const char* text;
    int key;  // -1: none picked
  };
  const auto key = [](QLineEdit*, Qt::Key code) { PressKey(code); };
  const Case cases[] = {
      {"all selected, then a backspace",
       [&](QLineEdit* line) {
         line->selectAll();
         key(line, Qt::Key_Backspace);
       },
       "", -1},
      {"all cut",
       [](QLineEdit* line) {
         line->selectAll();
         line->cut();
       },
       "", -1},
      {"a letter deleted",
       [&](QLineEdit* line) {
         line->setCursorPosition(0);
         key(line, Qt::Key_Delete);
       },
       "obin Vale", -1},
      {"pasted over",
       [](QLineEdit* line) {
         line->selectAll();
         line->insert("Nobody");
       },
       "Nobody", -1},
      {"a letter in the middle",
       [&](QLineEdit* line) {
         line->setCursorPosition(3);
         TypeKeys("x");
       },
       "Robxin Vale", -1},
      {"a backspace in the middle",
       [&](QLineEdit* line) {
         line->setCursorPosition(3);
         key(line, Qt::Key_Backspace);
       },
       "Roin Vale", -1},
      {"a part selected, then a backspace",
       [&](QLineEdit* line) {
         line->setSelection(5, 5);
         key(line, Qt::Key_Backspace);
       },
       "Robin", -1},
      {"the last letter taken and typed again",
       [&](QLineEdit* line) {
         line->end(false);
         key(line, Qt::Key_Backspace);
         TypeKeys("e");
       },
       "Robin Vale", 2},
      {"typed to another in the middle",
       [&](QLineEdit* line) {
         line->setCursorPosition(5);
         TypeKeys("a");
       },
       "Robina Vale", 4},
  };
  for (const Case& c : cases) {
    ComboSearch combo;
    combo.addItem("Casey O'Hara", 1);
    combo.addItem("Robin Vale", 2);
    combo.addItem("Rowan", 3);
    combo.addItem("Robina Vale", 4);
    combo.SelectComboItem(2);
    combo.show();
    EnterField(&combo);
    c.edit(combo.lineEdit());
    EXPECT_EQ(combo.currentText(), c.text) << c.fault;
    EXPECT_EQ(ComboKey(&combo).value_or(-1), c.key) << c.fault;
  }
}

TEST_F(KitTest, DateFieldTakesWhatAnOwnerTypes) {
  struct Case {
    const char* typed;
    QDate date;
    const char* told = "";
  };
  const QDate today(2026, 11, 2);
  const Case cases[] = {{"5/12", {2026, 12, 5}},
                        {"2026-11-30", {2026, 11, 30}},
                        {"Tue 3 Nov 2026", {2026, 11, 3}},
                        {"31/11/2026", today, "\"31/11/2026\" is no day. Mon 2 Nov 2026 stays."},
                        {"soon", today, "\"soon\" is no day. Mon 2 Nov 2026 stays."},
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
    EXPECT_EQ(QToolTip::text(), c.told) << c.typed;
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
  }
}

TEST_F(KitTest, DateFieldMovesByKeys) {
  const std::pair<Qt::Key, QDate> cases[] = {{Qt::Key_Up, {2026, 12, 1}},
                                             {Qt::Key_Down, {2026, 11, 29}},
                                             {Qt::Key_PageUp, {2026, 12, 30}},
                                             {Qt::Key_PageDown, {2026, 10, 30}}};
  for (const auto& [key, date] : cases) {
    DateField field(QDate(2026, 11, 2));
    field.SetDate({2026, 11, 30});
    QTest::keyClick(&field, key);
    EXPECT_EQ(field.Date(), date) << key;
  }
}

double Luminance(const QColor& colour) {
  const auto part = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
         0.0722 * part(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double first = Luminance(one);
  const double second = Luminance(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

TEST_F(KitTest, WordsAndFieldsStandOutInBothThemes) {
  for (const Roles* roles : {&LightRoles(), &DarkRoles()}) {
    SCOPED_TRACE(roles->dark ? "dark" : "light");
    for (const QColor& behind : {roles->surface, roles->strip, roles->raised}) {
      for (const QColor& words :
           {roles->text, roles->muted, roles->accent, roles->warning, roles->danger})
        EXPECT_GE(Contrast(words, behind), 4.5) << words.name().toStdString();
      EXPECT_GE(Contrast(roles->edge, behind), 3);
    }
    for (const QColor& words : {roles->text, roles->muted})
      EXPECT_GE(Contrast(words, roles->selection), 4.5) << words.name().toStdString();
    EXPECT_GE(Contrast(roles->onAccent, roles->accent), 4.5);
    for (const HueColours& hue : roles->hues)
      EXPECT_GE(Contrast(hue.words, hue.fill), 4.5) << hue.words.name().toStdString();
  }
}

TEST_F(KitTest, TheThemeIsKeptUnlessTheEnvironmentForcesOne) {
  const QByteArray forced = qgetenv("QUILLARY_THEME");
  qunsetenv("QUILLARY_THEME");
  MemorySettings settings;
  EXPECT_EQ(ReadThemeChoice(settings), ThemeChoice::System);
  for (const ThemeChoice choice : {ThemeChoice::Dark, ThemeChoice::Light, ThemeChoice::System}) {
    WriteThemeChoice(settings, choice);
    EXPECT_EQ(ReadThemeChoice(settings), choice);
  }
  qputenv("QUILLARY_THEME", "dark");
  EXPECT_EQ(ReadThemeChoice(settings), ThemeChoice::Dark);
  forced.isNull() ? qunsetenv("QUILLARY_THEME") : qputenv("QUILLARY_THEME", forced);
}

TEST_F(KitTest, CurrencyFieldFormatsOnLeaving) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"1234.5", "$1,234.50", "1234.5"},
      {"(5)", "-$5.00", "-5"},
      {"", "$0.00", "0"},
      {"nine", "$7.00", "7"},
      {"10.005", "$10.00", "10"},
      {"10.0151", "$10.02", "10.02"}};
  for (const auto& [typed, shown, amount] : cases) {
    CurrencyField field;
    field.SetAmount(Money::FromWhole(7));
    field.show();
    field.setText(typed);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.text(), shown) << typed;
    EXPECT_EQ(field.Amount().ToText(), amount) << typed << ": no more than what shows";
  }
  CurrencyField field;
  field.SetAmount(Money::FromDouble(7.0051));
  EXPECT_EQ(field.Amount().ToText(), "7.01");
}

TEST_F(KitTest, GridSortsByValueAndRemembersIt) {
  MemorySettings settings;
  struct Kept : Screen {
    explicit Kept(const char* name) : Screen(name, name) {
      grid.setParent(this);
      grid.resize(400, 200);
    }
    Grid grid{"grdPrices"};
  };
  const auto fill = [&](Kept& screen) {
    Grid& grid = screen.grid;
    grid.SetColumns({{"", ColumnKind::HiddenId},
                     {"Name", ColumnKind::Text, 200},
                     {"Price", ColumnKind::Money, 90}});
    grid.RememberIn(settings);
    std::vector<GridRow> rows(3);
    rows[0].cells = {1, "A", Money::FromWhole(100)};
    rows[1].cells = {2, "B", Money::FromWhole(20)};
    rows[2].cells = {3, "C", Money::FromWhole(3)};
    grid.SetRows(std::move(rows));
    screen.show();
  };
  const auto first = [](const Grid& grid) { return grid.model()->index(0, 1).data().toString(); };
  Kept screen("frmPrices");
  fill(screen);
  const Grid& grid = screen.grid;
  EXPECT_EQ(first(grid), "A") << "as loaded until the user sorts";
  grid.horizontalHeader()->setSortIndicator(2, Qt::AscendingOrder);
  EXPECT_EQ(first(grid), "C") << "by amount, not by its text";
  EXPECT_EQ(grid.Key(0), 1) << "rows are numbered as they were loaded";
  Kept again("frmPrices");
  fill(again);
  EXPECT_EQ(first(again.grid), "C");
  Kept other("frmCosts");
  fill(other);
  EXPECT_EQ(first(other.grid), "A") << "a list of that name on another screen is another list";
}

TEST_F(KitTest, PlainCaptions) {
  EXPECT_EQ(PlainCaption("&Diary..."), "Diary");
  EXPECT_EQ(PlainCaption("Invoices, Statements, && Reminders"),
            "Invoices, Statements, & Reminders");
}

}  // namespace
}  // namespace quillary
