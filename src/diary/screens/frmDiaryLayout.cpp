#include "diary/DiaryCommands.h"
#include "diary/screens/DiaryGrid.h"
#include "diary/screens/RowButtons.h"
#include "diary/screens/frmDiary.h"
#include "kit/Controls.h"
#include "kit/FlowLayout.h"
#include "kit/Shortcuts.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

/// How the diary looks, and which key and click leads where.
namespace quillary::diary {

namespace {

template <typename Control>
Control* Heard(Control* control, const char* name, const QString& heardAs) {
  control->setObjectName(QLatin1StringView(name));
  control->setAccessibleName(heardAs);
  return control;
}

/// Controls that belong together and never part at the end of a line.
QWidget* Together(const QList<QWidget*>& controls) {
  auto* group = new QWidget;
  auto* line = new QHBoxLayout(group);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(8);
  for (QWidget* control : controls) line->addWidget(control);
  return group;
}

/// A square in the hue, beside its meaning.
class LegendMark : public QWidget {
 public:
  explicit LegendMark(Hue hue) : hue_(hue) { setFixedSize(10, 10); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RolesOf(palette()).Of(hue_).bar);
    painter.drawRoundedRect(rect(), 2, 2);
  }

 private:
  Hue hue_;
};

}  // namespace

void frmDiary::MakeControls() {
  const QDate today = business_.Today();
  optShowJobsOn = Heard(new QRadioButton(tr("Sho&w jobs/visits on")), "optShowJobsOn",
                        tr("Show jobs/visits on"));
  optShowJobsOn->setChecked(true);
  dtJobDate = Heard(new DateField(today), "dtJobDate", tr("Day to show"));
  cmdPreviousDay = MakeButton("cmdPreviousDay", {}, ButtonKind::Plain, "go-previous");
  cmdPreviousDay->setAccessibleName(tr("Previous day"));
  cmdPreviousDay->setToolTip(tr("Previous day (Alt+Left)"));
  cmdNextDay = MakeButton("cmdNextDay", {}, ButtonKind::Plain, "go-next");
  cmdNextDay->setAccessibleName(tr("Next day"));
  cmdNextDay->setToolTip(tr("Next day (Alt+Right)"));
  cmdToday = MakeButton("cmdToday", tr("Toda&y"));
  cmdToday->setToolTip(tr("Back to today (Alt+Home)"));
  optShowJobsBetween = Heard(new QRadioButton(tr("Show jobs/visits &between")),
                             "optShowJobsBetween", tr("Show jobs/visits between"));
  auto* days = new QButtonGroup(this);
  days->addButton(optShowJobsOn);
  days->addButton(optShowJobsBetween);
  dtFrom = Heard(new DateField(today), "dtFrom", tr("First day of the range"));
  dtTo = Heard(new DateField(today), "dtTo", tr("Last day of the range"));
  for (DateField* field : {dtFrom, dtTo}) field->ShowWeekday(false);
  cmdList = MakeButton("cmdList", tr("&List"));
  cmdList->setToolTip(tr("Lists the days of the range"));
  cmbEmployees = Heard(new ComboSearch, "cmbEmployees", tr("Employee"));
  cmbEmployees->setFixedWidth(132);
  cmbEmployees->GoBackWhenNothingMatches();
  chkSort = Heard(new QCheckBox(tr("Sor&t the list based on suburb position definition")),
                  "chkSort", tr("Sort the list based on suburb position definition"));
  cmdShowSuburbDefinition =
      MakeButton("cmdShowSuburbDefinition", tr("Suburb sequence…"), ButtonKind::Link);
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  cmdRefreshList = MakeButton("cmdRefreshList", tr("Refresh"), ButtonKind::Plain, "view-refresh");
  cmdRefreshList->setToolTip(tr("Loads the list again (F5)"));
  grdSchedule = new Grid(QStringLiteral("grdSchedule"));
  grdSchedule->setAccessibleName(tr("Jobs and visits"));
  grdSchedule->SetEmptyText(tr("Nothing is in the diary for this choice."),
                            tr("Choose another day, or another employee. Jobs come into the diary "
                               "from the services of your clients."));
  txtTotalNoOfJobs = MakeLabel("txtTotalNoOfJobs", QStringLiteral("0"), LabelRole::Figure);
  txtTotalNoOfJobs->setAccessibleName(tr("Number of jobs"));
  txtTotalAmountOfJobs =
      MakeLabel("txtTotalAmountOfJobs", Money().ToCurrencyText(), LabelRole::Figure);
  txtTotalAmountOfJobs->setAccessibleName(tr("Amount of all jobs"));
  lblWarningSign = MakeLabel("lblWarningSign", QStringLiteral("⚠"), LabelRole::Warning);
  lblNoEmployee =
      MakeLabel("lblNoEmployee", tr("Some jobs have no assigned employee."), LabelRole::Warning);
  cmdEditJob = MakeButton("cmdEditJob", tr("Edit &job…"));
  cmdClientDetails = MakeButton("cmdClientDetails", tr("Cl&ient details…"));
  cmdCreateInvoice = MakeButton("cmdCreateInvoice", tr("Create in&voice…"));
  cmdViewCreatePayment = MakeButton("cmdViewCreatePayment", tr("Pay&ment…"));
  cmdPrint = MakeButton("cmdPrint", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdPrint->setShortcut(QKeySequence::Print);
  cmdPrintDailyTotals = MakeButton("cmdPrintDailyTotals", tr("Daily totals"));
  cmdCancelled = MakeButton("cmdCancelled", tr("Canc."), ButtonKind::Danger);
  cmdCancelled->setToolTip(tr("Marks the selected job cancelled (Ctrl+Shift+C)"));
  cmdCancelled->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
  cmdMoveTo = MakeButton("cmdMoveTo", tr("Move to…"));
  cmdMoveTo->setToolTip(tr("Moves the marked jobs and visits to another day (Ctrl+M)"));
  cmdMoveTo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
  cmdNext = MakeButton("cmdNext", tr("R&eschedule"));
  cmdDoneUnPaid = MakeButton("cmdDoneUnPaid", tr("Done &Unpaid"));
  cmdDonePaid = MakeButton("cmdDonePaid", tr("D&one Paid"), ButtonKind::Main);
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
}

void frmDiary::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(0);
  column->addLayout(DateLine());
  column->addSpacing(12);
  column->addLayout(ListLine());
  column->addSpacing(12);
  column->addWidget(grdSchedule, 1);
  column->addSpacing(8);
  column->addLayout(LegendLine());
  column->addSpacing(8);
  column->addLayout(TotalsLine());
  column->addSpacing(12);
  column->addLayout(CommandLine());
  grdSchedule->setMinimumHeight(120);
}

QLayout* frmDiary::DateLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({Together({optShowJobsOn, cmdPreviousDay, dtJobDate, cmdNextDay, cmdToday}),
                    Together({optShowJobsBetween, dtFrom,
                              MakeLabel("lblAnd", tr("and"), LabelRole::Muted), dtTo, cmdList})});
  line->AddWidget(Together({MakeLabelFor(cmbEmployees, tr("Employee")), cmbEmployees}),
                  Qt::AlignRight);
  return line;
}

QLayout* frmDiary::ListLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({chkSort, cmdShowSuburbDefinition});
  line->AddWidgets({txtFilter, cmdRefreshList}, Qt::AlignRight);
  return line;
}

QLayout* frmDiary::LegendLine() {
  auto* line = new FlowLayout(16);
  for (const DiaryLegend& entry : DiaryLegends()) {
    QWidget* legend =
        Together({new LegendMark(entry.hue), MakeLabel("", entry.meaning, LabelRole::Hint)});
    line->AddWidget(legend);
  }
  QLabel* hint = MakeLabel(
      "lblDragHint",
      QStringLiteral("To sort the jobs, just click and drag them to where you want them to be..."),
      LabelRole::Hint);
  hint->setToolTip(
      tr("Alt+Up and Alt+Down move the selected job. Not while the list is filtered, "
         "or sorted by one of its columns."));
  line->AddWidget(hint, Qt::AlignRight);
  return line;
}

QLayout* frmDiary::TotalsLine() {
  auto* line = new FlowLayout(24);
  line->AddWidgets(
      {Together({txtTotalNoOfJobs, MakeLabel("lblJobs", tr("jobs"), LabelRole::Muted)}),
       txtTotalAmountOfJobs, Together({lblWarningSign, lblNoEmployee})});
  return line;
}

QLayout* frmDiary::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdEditJob, cmdClientDetails, cmdCreateInvoice, cmdViewCreatePayment, cmdPrint,
                    cmdPrintDailyTotals});
  line->AddWidgets({cmdClose, cmdCancelled, cmdMoveTo, cmdNext, cmdDoneUnPaid, cmdDonePaid},
                   Qt::AlignRight);
  return line;
}

void frmDiary::ConnectControls() {
  AddShortcut(this, QKeySequence(Qt::ALT | Qt::Key_Left), cmdPreviousDay);
  AddShortcut(this, QKeySequence(Qt::ALT | Qt::Key_Right), cmdNextDay);
  AddShortcut(this, QKeySequence(Qt::ALT | Qt::Key_Home), cmdToday);

  connect(cmdPreviousDay, &QPushButton::clicked, this, [this] { MoveDay(-1); });
  connect(cmdNextDay, &QPushButton::clicked, this, [this] { MoveDay(1); });
  connect(cmdToday, &QPushButton::clicked, this, [this] {
    for (DateField* field : {dtJobDate, dtFrom, dtTo}) field->SetDate(business_.Today());
    LoadScheduleGrid();
  });
  connect(cmdRefreshList, &QPushButton::clicked, this, [this] { LoadScheduleGrid(); });
  connect(cmdList, &QPushButton::clicked, this, &frmDiary::ShowRange);
  for (QRadioButton* option : {optShowJobsOn, optShowJobsBetween})
    connect(option, &QRadioButton::clicked, this, [this] { LoadScheduleGrid(); });
  connect(dtJobDate, &DateField::dateChosen, this, [this] {
    optShowJobsOn->setChecked(true);
    LoadScheduleGrid();
  });
  // The option turns together with the list, and waits for the second day of a range.
  for (DateField* field : {dtFrom, dtTo})
    connect(field, &DateField::dateChosen, this, [this] {
      if (dtFrom->Date() <= dtTo->Date()) ShowRange();
    });
  connect(cmbEmployees, &ComboSearch::picked, this, [this] { LoadScheduleGrid(); });
  connect(chkSort, &QCheckBox::toggled, this, [this] { LoadScheduleGrid(); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  // Queued, because the editor that made the change is still open and goes with the old rows.
  connect(grdSchedule, &Grid::edited, this, &frmDiary::AfterEdit, Qt::QueuedConnection);
  connect(grdSchedule, &Grid::reordered, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("grdSchedule_AfterMoveRow"),
                      [this] { StoreSequence(business_, IdsFrom<Entry>(grdSchedule->Keys())); });
    if (rowButtons_) rowButtons_->MoveButtons();
  });
}

}  // namespace quillary::diary
