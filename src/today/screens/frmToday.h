#pragma once

#include "kit/Screen.h"
#include "today/Attention.h"
#include "today/FridayRun.h"

#include <QTimer>

#include <functional>

class QGridLayout;
class QLabel;
class QPushButton;

namespace quillary::today {

class AgeBar;
class AttentionRow;
class MonthChart;
class StepRow;
class Swatch;

/// How the business stands at a glance: today's jobs, what is owed and since when, this month
/// beside the last twelve, what needs attention, and the week's run as a list to be worked off.
/// Every figure leads to the screen with its rows.
class frmToday : public Screen {
  Q_OBJECT

 public:
  frmToday(Business& business, const ScreenTools& tools, const AttentionPlaces& places);

  /// Loads as soon as the screen is in view and the program has nothing else to do, so that a start
  /// with this tab behind another waits for nothing.
  void Reload() override;
  Tables Shows() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeControls();
  void MakeAttention();
  void MakeRun();
  QWidget* DayCard();
  QWidget* OwedCard();
  QWidget* MonthCard();
  QWidget* ChartCard();
  QWidget* AgesCard();
  QWidget* AttentionCard();
  QWidget* RunCard();
  void LayOut();
  /// Side by side where there is room, otherwise below each other.
  void Arrange(bool narrow);
  void TakeColours();
  void OnClick(QPushButton* button, std::function<void()> command);
  void ConnectFigures();
  void ConnectAttention();
  void ConnectRun();

  void Load();
  void LookForSchedulingProblems();
  void ShowDay(const JobsFigures& day);
  void ShowOwed(const OwedFigures& owed);
  void ShowYear(const YearFigures& year);
  void ShowAttention();
  void ShowRun();
  void OpenAge(balances::DebtAge age);

  Business& business_;
  ScreenTools tools_;
  AttentionPlaces places_;
  AttentionFigures attention_;
  FridayRun run_;
  std::optional<int> problems_;  // clients; nothing before they were looked for
  bool isDue_ = true;            // to be loaded
  QTimer load_;
  QTimer lookForProblems_;
  std::optional<bool> narrow_;

  QGridLayout* grid_;
  std::vector<QWidget*> cards_;
  QLabel* lblToday;
  QPushButton* cmdDay;
  QLabel* lblDayParts;
  QPushButton* cmdOpenDay;
  QPushButton* cmdOwed;
  QLabel* lblOwedBy;
  QPushButton* cmdDebtors;
  QPushButton* cmdMonth;
  QLabel* lblGrowth;
  QPushButton* cmdReceived;
  QPushButton* cmdInvoiced;
  QPushButton* cmdDoneThisMonth;
  MonthChart* chart;
  std::array<Swatch*, 3> legend_;
  AgeBar* barAges;
  std::array<Swatch*, balances::kDebtAges.size()> ageColours_;
  std::array<QPushButton*, balances::kDebtAges.size()> cmdAges_;
  QLabel* lblNothing;
  AttentionRow* rowProblems;
  AttentionRow* rowNoEmployee;
  AttentionRow* rowDue;
  AttentionRow* rowOverdue;
  AttentionRow* rowToBank;
  AttentionRow* rowCheques;
  AttentionRow* rowMail;
  AttentionRow* rowBackup;
  StepRow* stepDone;
  StepRow* stepInvoice;
  StepRow* stepDocuments;
  StepRow* stepSend;
  StepRow* stepBank;
  QPushButton* cmdWeek;
  QPushButton* cmdMarkDone;
  QPushButton* cmdWaiting;
  QPushButton* cmdInvoiceJobs;
  QPushButton* cmdUnprinted;
  QPushButton* cmdMakeDocuments;
  QPushButton* cmdUnsent;
  QPushButton* cmdSend;
  QPushButton* cmdTakings;
  QPushButton* cmdBank;
};

}  // namespace quillary::today
