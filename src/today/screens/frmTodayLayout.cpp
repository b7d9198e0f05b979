#include "kit/FlowLayout.h"
#include "kit/Layouts.h"
#include "kit/Roles.h"
#include "today/screens/AgeBar.h"
#include "today/screens/Cards.h"
#include "today/screens/MonthChart.h"
#include "today/screens/frmToday.h"

#include <QEvent>
#include <QGridLayout>
#include <QResizeEvent>

/// Where the figures of the screen stand.
namespace quillary::today {

namespace {

constexpr int kGap = 14;
/// Below this width the cards stand below each other.
constexpr int kNarrow = 960;
/// From a swatch to the words beside it, less the edge of a go-button.
constexpr int kUnderWords = 8;

AttentionRow* MakeRow(const char* name, const char* goName, const QString& caption) {
  return new AttentionRow(name, MakeGo(goName, caption));
}

}  // namespace

void frmToday::MakeControls() {
  lblToday = MakeLabel("lblToday", {}, LabelRole::Hint);
  cmdDay = MakeHeadline("cmdDay", tr("Jobs of today"));
  lblDayParts = MakeLabel("lblDayParts", {}, LabelRole::Hint);
  cmdOpenDay = MakeGo("cmdOpenDay", tr("&Open the day →"));
  cmdOwed = MakeHeadline("cmdOwed", tr("Owed to you"));
  lblOwedBy = MakeLabel("lblOwedBy", {}, LabelRole::Hint);
  cmdDebtors = MakeGo("cmdDebtors", tr("De&btors →"));
  cmdMonth = MakeHeadline("cmdMonth", tr("Done this month so far"));
  lblGrowth = MakeLabel("lblGrowth", {});
  lblGrowth->setProperty("role", QStringLiteral("heading"));
  lblGrowth->setProperty("tone", QStringLiteral("accent"));
  cmdReceived = MakeGo("cmdReceived", {});
  cmdInvoiced = MakeGo("cmdInvoiced", {});
  cmdDoneThisMonth = MakeGo("cmdDoneThisMonth", tr("&Jobs →"));
  chart = new MonthChart("chart");
  for (Swatch*& swatch : legend_) swatch = new Swatch(&swatch == &legend_[0] ? 9 : 3);
  barAges = new AgeBar("barAges");
  const std::pair<const char*, QString> ages[] = {{"cmdAge30", tr("Owed up to 30 days")},
                                                  {"cmdAge60", tr("Owed 31 to 60 days")},
                                                  {"cmdAge90", tr("Owed 61 to 90 days")},
                                                  {"cmdAgeOver90", tr("Owed over 90 days")}};
  for (size_t age = 0; age < std::size(ages); ++age) {
    ageColours_[age] = new Swatch;
    cmdAges_[age] = MakeGo(ages[age].first, {});
    cmdAges_[age]->setAccessibleName(ages[age].second);
    cmdAges_[age]->setProperty("strong", true);
  }
  // They may begin a line: their words stand below those above them.
  for (QPushButton* button : {cmdOpenDay, cmdDebtors, cmdDoneThisMonth, cmdInvoiced, cmdReceived})
    button->setProperty("begins", true);
  MakeAttention();
  MakeRun();
}

void frmToday::MakeAttention() {
  lblNothing = MakeLabel("lblNothing", tr("Nothing else needs attention today."), LabelRole::Muted);
  rowProblems = MakeRow("rowProblems", "cmdProblems", tr("&Look →"));
  rowNoEmployee = MakeRow("rowNoEmployee", "cmdNoEmployee", tr("Assi&gn →"));
  rowDue = MakeRow("rowDue", "cmdDue", tr("&Show jobs →"));
  rowOverdue = MakeRow("rowOverdue", "cmdOverdue", tr("Re&mind →"));
  rowToBank = MakeRow("rowToBank", "cmdToBank", tr("Ban&k →"));
  rowCheques = MakeRow("rowCheques", "cmdCheques", tr("C&heques →"));
  rowMail = MakeRow("rowMail", "cmdMail", tr("O&utbox →"));
  rowBackup = MakeRow("rowBackup", "cmdBackup", tr("Back u&p →"));
}

void frmToday::MakeRun() {
  cmdWeek = MakeGo("cmdWeek", {});
  cmdMarkDone = MakeGo("cmdMarkDone", tr("Mark &done…"));
  cmdWaiting = MakeGo("cmdWaiting", {});
  cmdInvoiceJobs = MakeGo("cmdInvoiceJobs", tr("In&voice…"));
  cmdUnprinted = MakeGo("cmdUnprinted", {});
  cmdMakeDocuments = MakeGo("cmdMakeDocuments", tr("M&ake →"));
  cmdUnsent = MakeGo("cmdUnsent", {});
  cmdSend = MakeGo("cmdSend", tr("S&end…"));
  cmdTakings = MakeGo("cmdTakings", {});
  cmdBank = MakeGo("cmdBank", tr("Open ba&nking →"));
  stepDone = new StepRow(1, "stepDone", tr("Mark jobs done"), cmdWeek, cmdMarkDone);
  stepInvoice = new StepRow(2, "stepInvoice", tr("Invoice done jobs"), cmdWaiting, cmdInvoiceJobs);
  stepDocuments =
      new StepRow(3, "stepDocuments", tr("Make documents"), cmdUnprinted, cmdMakeDocuments);
  stepSend = new StepRow(4, "stepSend", tr("Send"), cmdUnsent, cmdSend);
  stepBank = new StepRow(5, "stepBank", tr("Bank"), cmdTakings, cmdBank);
}

QWidget* frmToday::DayCard() {
  const Card card = MakeCard("cardDay");
  auto* foot = new FlowLayout;
  foot->AddWidgets({lblDayParts});
  foot->AddWidgets({cmdOpenDay});
  card.column->addWidget(lblToday);
  card.column->addWidget(cmdDay, 0, Qt::AlignLeft);
  card.column->addLayout(foot);
  card.column->addStretch(1);
  return card.frame;
}

QWidget* frmToday::OwedCard() {
  const Card card = MakeCard("cardOwed");
  auto* foot = new FlowLayout;
  foot->AddWidgets({lblOwedBy});
  foot->AddWidgets({cmdDebtors});
  card.column->addWidget(MakeLabel("lblOwed", tr("Owed to you"), LabelRole::Hint));
  card.column->addWidget(cmdOwed, 0, Qt::AlignLeft);
  card.column->addLayout(foot);
  card.column->addStretch(1);
  return card.frame;
}

QWidget* frmToday::MonthCard() {
  const Card card = MakeCard("cardMonth");
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(cmdMonth);
  head->addWidget(lblGrowth);
  head->addStretch(1);
  auto* foot = new FlowLayout;
  foot->AddWidgets({cmdDoneThisMonth, cmdInvoiced, cmdReceived});
  card.column->addWidget(MakeLabel("lblMonth", tr("Done this month so far"), LabelRole::Hint));
  card.column->addLayout(head);
  card.column->addLayout(foot);
  card.column->addStretch(1);
  return card.frame;
}

QWidget* frmToday::ChartCard() {
  const Card card = MakeCard("cardChart");
  auto* head = new QHBoxLayout;
  head->setSpacing(6);
  head->addWidget(MakeHeading("lblChart", tr("By month")));
  const QString words[] = {tr("done"), tr("invoiced"), tr("received")};
  for (size_t at = 0; at < legend_.size(); ++at) {
    head->addSpacing(10);
    head->addWidget(legend_[at]);
    head->addWidget(MakeLabel("", words[at], LabelRole::Hint));
  }
  head->addStretch(1);
  card.column->addLayout(head);
  card.column->addWidget(chart, 1);
  return card.frame;
}

QWidget* frmToday::AgesCard() {
  const Card card = MakeCard("cardAges");
  card.column->addWidget(MakeHeading("lblAges", tr("What is owed, by age")));
  card.column->addSpacing(8);
  card.column->addWidget(barAges);
  card.column->addSpacing(8);
  auto* legend = new QGridLayout;
  legend->setHorizontalSpacing(4);
  legend->setVerticalSpacing(0);
  const QString words[] = {tr("to 30 days"), tr("31 to 60"), tr("61 to 90"), tr("over 90")};
  for (int age = 0; age < static_cast<int>(cmdAges_.size()); ++age) {
    auto* line = new QHBoxLayout;
    line->setSpacing(4);
    line->addWidget(ageColours_[static_cast<size_t>(age)]);
    line->addWidget(MakeLabel("", words[age], LabelRole::Hint), 1);
    legend->addLayout(line, 0, age);
    auto* amount = new QHBoxLayout;
    amount->setContentsMargins(kUnderWords, 0, 0, 0);
    amount->addWidget(cmdAges_[static_cast<size_t>(age)]);
    amount->addStretch(1);
    legend->addLayout(amount, 1, age);
    legend->setColumnStretch(age, 1);
  }
  card.column->addLayout(legend);
  card.column->addStretch(1);
  card.column->addWidget(
      MakeLabel("lblClickAnAge", tr("Choose an age to see whose."), LabelRole::Hint));
  return card.frame;
}

QWidget* frmToday::AttentionCard() {
  const Card card = MakeCard("cardAttention");
  card.column->setSpacing(0);
  card.column->addWidget(MakeHeading("lblAttention", tr("Needs attention")));
  card.column->addSpacing(4);
  for (AttentionRow* row :
       {rowProblems, rowNoEmployee, rowDue, rowOverdue, rowToBank, rowCheques, rowMail, rowBackup})
    card.column->addWidget(row);
  card.column->addSpacing(6);
  card.column->addWidget(lblNothing);
  card.column->addStretch(1);
  return card.frame;
}

QWidget* frmToday::RunCard() {
  const Card card = MakeCard("cardRun");
  card.column->setSpacing(0);
  auto* head = new QHBoxLayout;
  head->setSpacing(6);
  head->addWidget(MakeHeading("lblRun", tr("Friday run")));
  head->addWidget(MakeLabel("lblRunHint", tr("stop and go on at any time; nothing is done twice"),
                            LabelRole::Hint),
                  1);
  card.column->addLayout(head);
  card.column->addSpacing(4);
  for (StepRow* step : {stepDone, stepInvoice, stepDocuments, stepSend, stepBank})
    card.column->addWidget(step);
  card.column->addStretch(1);
  return card.frame;
}

void frmToday::LayOut() {
  cards_ = {DayCard(),  OwedCard(),      MonthCard(), ChartCard(),
            AgesCard(), AttentionCard(), RunCard()};
  grid_ = new QGridLayout(this);
  grid_->setContentsMargins(16, 14, 16, 14);
  grid_->setSpacing(kGap);
  Arrange(false);
}

void frmToday::Arrange(bool narrow) {
  if (narrow_ == narrow) return;
  narrow_ = narrow;
  for (QWidget* card : cards_) grid_->removeWidget(card);
  struct Place {
    int row, column, columns;
  };
  // In sixths of the width.
  constexpr Place kWide[] = {{0, 0, 2}, {0, 2, 2}, {0, 4, 2}, {1, 0, 4},
                             {1, 4, 2}, {2, 0, 3}, {2, 3, 3}};
  constexpr Place kBelowEachOther[] = {{0, 0, 2}, {0, 2, 2}, {0, 4, 2}, {1, 0, 6},
                                       {2, 0, 6}, {3, 0, 6}, {4, 0, 6}};
  for (size_t card = 0; card < cards_.size(); ++card) {
    const Place& at = narrow ? kBelowEachOther[card] : kWide[card];
    grid_->addWidget(cards_[card], at.row, at.column, 1, at.columns);
  }
  for (int column = 0; column < 6; ++column) grid_->setColumnStretch(column, 1);
  grid_->setRowStretch(1, 1);
}

void frmToday::resizeEvent(QResizeEvent* event) {
  Screen::resizeEvent(event);
  Arrange(width() < kNarrow);
}

void frmToday::changeEvent(QEvent* event) {
  Screen::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) TakeColours();
}

void frmToday::TakeColours() {
  const ChartColours colours = ColoursOfChart(palette());
  legend_[0]->SetColour(colours.done);
  legend_[1]->SetColour(colours.invoiced);
  legend_[2]->SetColour(colours.received);
  for (const balances::DebtAge age : balances::kDebtAges)
    ageColours_[static_cast<size_t>(age)]->SetColour(ColourOf(age, palette()));
}

}  // namespace quillary::today
