#include "gui/GuiTest.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Dialog.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"
#include "kit/ShownList.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>

namespace quillary {
namespace {

struct Listed {
  QString words;
  qint64 id;
};

class FormTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }
};

/// A dialog with one field of every kind.
class Sample : public Dialog {
 public:
  explicit Sample(Prompter& prompter) : Dialog("frmSample", "Sample", prompter) {
    auto* column = new QVBoxLayout;
    auto* tabs = new QTabWidget;
    for (QWidget* field : std::initializer_list<QWidget*>{text, amount, day, choice, search, tick,
                                                          option, other, notes})
      column->addWidget(field);
    tabs->addTab(new QWidget, "First");
    tabs->addTab(code, "Second");
    column->addWidget(tabs);
    SetContent(column);
    AddActions({save, remove, cancel});
    FillCombo(choice, std::vector<Listed>{{"Mowing", 4}, {"Hedging", 7}});
    FillCombo(search, std::vector<Listed>{{"Abbott", 1}, {"Brown", 2}});
    state_.WatchFieldsOf(this);
    state_.ClearDataChanged();
  }
  FormState& State() { return state_; }

  QLineEdit* text = Named(new QLineEdit, "text");
  CurrencyField* amount = Named(new CurrencyField, "amount");
  DateField* day = Named(new DateField(QDate(2026, 11, 2)), "day");
  QComboBox* choice = Named(new QComboBox, "choice");
  ComboSearch* search = Named(new ComboSearch, "search");
  QCheckBox* tick = Named(new QCheckBox("Tick"), "tick");
  QRadioButton* option = Named(new QRadioButton("One"), "option");
  QRadioButton* other = Named(new QRadioButton("Two"), "other");
  QPlainTextEdit* notes = Named(new QPlainTextEdit, "notes");
  QLineEdit* code = Named(new QLineEdit, "code");
  QPushButton* save = MakeButton("cmdSave", "&Save", ButtonKind::Main);
  QPushButton* remove = MakeButton("cmdDelete", "&Delete", ButtonKind::Danger);
  QPushButton* cancel = MakeButton("cmdCancel", "&Cancel");
};

TEST_F(FormTest, NoticesAChangeOfEveryKindOfFieldAndItsTakingBack) {
  ScriptedPrompter prompter;
  Sample form(prompter);
  struct Case {
    const char* field;
    std::function<void()> change;
    std::function<void()> back;
  };
  const Case cases[] = {
      {"text box", [&] { form.text->setText("x"); }, [&] { form.text->clear(); }},
      {"amount", [&] { form.amount->SetAmount(Money::FromWhole(5)); },
       [&] { form.amount->SetAmount({}); }},
      {"date",
       [&] {
         form.day->SetDate({2026, 11, 3});
       },
       [&] { form.day->SetDate({}); }},
      {"combo", [&] { form.choice->setCurrentIndex(1); },
       [&] { form.choice->setCurrentIndex(-1); }},
      {"searched combo", [&] { SelectComboItem(form.search, 2); },
       [&] { SelectComboItem(form.search, {}); }},
      {"tick", [&] { form.tick->click(); }, [&] { form.tick->click(); }},
      {"notes", [&] { form.notes->setPlainText("x"); }, [&] { form.notes->clear(); }},
      {"field on a hidden tab", [&] { form.code->setText("x"); }, [&] { form.code->clear(); }},
  };
  int announced = 0;
  QObject::connect(&form.State(), &FormState::changed, [&] { ++announced; });
  for (const Case& at : cases) {
    at.change();
    EXPECT_TRUE(form.State().IsDataChanged()) << at.field;
    at.back();
    EXPECT_FALSE(form.State().IsDataChanged()) << at.field;
  }
  EXPECT_EQ(announced, 16) << "each change and each taking back once";
  form.option->click();
  EXPECT_TRUE(form.State().IsDataChanged()) << "a radio button";
  form.State().ClearDataChanged();
  EXPECT_FALSE(form.State().IsDataChanged());
  form.amount->setText(" ");
  EXPECT_FALSE(form.State().IsDataChanged()) << "a blank amount is the 0 that stood there";
}

TEST_F(FormTest, EmptiesTextBoxesAndEditableCombosOnly) {
  ScriptedPrompter prompter;
  Sample form(prompter);
  form.text->setText("x");
  form.choice->setCurrentIndex(1);
  form.tick->setChecked(true);
  SelectComboItem(form.search, 2);
  ClearControls(&form);
  EXPECT_EQ(form.text->text() + form.search->currentText(), "");
  EXPECT_EQ(form.search->currentIndex(), -1);
  EXPECT_EQ(form.choice->currentText(), "Hedging");
  EXPECT_TRUE(form.tick->isChecked());
}

TEST_F(FormTest, PicksEntriesByTheirKey) {
  QComboBox plain;
  ComboSearch search;
  for (QComboBox* combo : {&plain, static_cast<QComboBox*>(&search)}) {
    FillCombo(combo, std::vector<Listed>{{"Mowing", 4}, {"Hedging", 7}});
    EXPECT_FALSE(ComboKey(combo)) << "a filled list proposes nothing";
    EXPECT_TRUE(SelectComboItem(combo, 7));
    EXPECT_EQ(ComboKey(combo), 7);
    for (const QVariant& none : {QVariant(5), QVariant()}) {
      SelectComboItem(combo, 7);
      EXPECT_FALSE(SelectComboItem(combo, none));
      EXPECT_EQ(combo->currentIndex(), -1);
      EXPECT_EQ(combo->currentText(), "");
    }
  }
}

TEST_F(FormTest, LimitsFieldsToTheirColumns) {
  QLineEdit line;
  QPlainTextEdit notes;
  ComboSearch combo;
  for (QWidget* field : std::initializer_list<QWidget*>{&line, &notes, &combo}) LimitTo(field, 5);
  LimitTo(&line, 0);
  QTest::keyClicks(&line, "1234567");
  QTest::keyClicks(&notes, "1234567");
  EXPECT_EQ(line.text() + '|' + notes.toPlainText(), "12345|12345");
  EXPECT_EQ(combo.lineEdit()->maxLength(), 5);
}

TEST_F(FormTest, ShowsARefusalAtItsField) {
  ScriptedPrompter prompter;
  Sample form(prompter);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  EXPECT_TRUE(Accepted(prompter, &form, std::nullopt));
  EXPECT_FALSE(Accepted(prompter, &form, Refusal{"Please enter a code.", "code"}));
  EXPECT_EQ(prompter.TakeTold(), QStringList{"Please enter a code."});
  EXPECT_TRUE(form.code->hasFocus()) << "also when it stands on another tab";
  EXPECT_FALSE(FocusField(&form, "nothing"));
}

TEST_F(FormTest, DialogAsksOnceBeforeAChangeIsLost) {
  ScriptedPrompter prompter;
  Sample form(prompter);
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QTest::keyClicks(form.text, "x");
  prompter.Expect("Close without saving changes?", Answer::No);
  QTest::keyClick(form.text, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
  prompter.Expect("Close without saving changes?", Answer::Yes);
  EXPECT_TRUE(form.close());
  EXPECT_FALSE(form.isVisible());
  prompter.CheckAllAsked();

  form.State().ClearDataChanged();
  form.show();
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible()) << "nothing to lose, nothing asked";
}

TEST_F(FormTest, DialogPutsEachCommandInItsPlace) {
  ScriptedPrompter prompter;
  Sample form(prompter);
  form.show();
  EXPECT_LT(form.remove->x(), form.cancel->x()) << "what destroys stands apart at the left";
  EXPECT_LT(form.cancel->x(), form.save->x()) << "the main command stands at the right";
  EXPECT_TRUE(form.save->isDefault());
}

class TicksTest : public FormTest {
 protected:
  void SetUp() override {
    grid.SetColumns({{"", ColumnKind::Tick, 40}, {"", ColumnKind::HiddenId}, {"Client"}});
    grid.SetRows({{{false, 11, "Abbott"}}, {{true, 12, "Brown"}}, {{false, 13, "Chen"}}});
    grid.FilterBy(&filter);
    ticks.TakeRows();
    grid.resize(400, 300);
    grid.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&grid));
  }
  using Keys = std::vector<qint64>;

  Grid grid{"fgJobs"};
  QLineEdit filter;
  QCheckBox* all = MakeTickAllBox();
  RowTicks ticks{&grid, 0, all};
};

TEST_F(TicksTest, TicksByClickAndBySpace) {
  EXPECT_EQ(ticks.TickedKeys(), Keys{12}) << "as loaded";
  const QPoint tick = grid.visualRect(grid.model()->index(0, 0)).center();
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, tick);
  QTest::qWait(20);
  EXPECT_EQ(ticks.TickedKeys(), (Keys{11, 12}));
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                    grid.visualRect(grid.model()->index(2, 2)).center());
  QTest::qWait(20);
  EXPECT_EQ(ticks.TickedKeys(), (Keys{11, 12})) << "a click on the name only selects";
  QTest::keyClick(&grid, Qt::Key_Space);
  EXPECT_EQ(ticks.TickedKeys(), (Keys{11, 12, 13})) << "the space bar works in every column";
  EXPECT_TRUE(all->isChecked());
  EXPECT_EQ(grid.SelectedRow(), 2) << "the row stays selected";
  QTest::keyClick(&grid, Qt::Key_Space);
  EXPECT_FALSE(all->isChecked());
}

TEST_F(TicksTest, TicksAllThatShows) {
  all->click();
  EXPECT_EQ(ticks.TickedKeys().size(), 3U);
  all->click();
  EXPECT_TRUE(ticks.TickedKeys().empty());
  filter.setText("ch");
  all->click();
  EXPECT_EQ(ticks.TickedKeys(), Keys{13}) << "what a filter hides keeps its tick";
}

TEST_F(TicksTest, ShownListIsWhatOneSees) {
  filter.setText("b");
  const PrintList list = ShownList("Clients", &grid);
  EXPECT_EQ(list.headings, QStringList{"Client"}) << "ticks only choose rows";
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_EQ(list.rows[1], QStringList{"Brown"});
  EXPECT_EQ(list.isAmount, std::vector<bool>{false});
  const PrintList covered = ShownList("Jobs", &grid, "Covered");
  EXPECT_EQ(covered.headings, (QStringList{"Covered", "Client"}));
  EXPECT_EQ(covered.rows[1], (QStringList{"Yes", "Brown"}));
}

}  // namespace
}  // namespace quillary
