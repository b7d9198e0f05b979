#include "diary/screens/frmDiary.h"

#include "diary/DiaryCommands.h"
#include "diary/screens/DiaryGrid.h"
#include "diary/screens/RowButtons.h"

#include <stdexcept>

/// What the diary shows: loading, totals, the order and edits in its table.
namespace quillary::diary {

namespace {

/// Of the entry " All" and of a text that is nobody's name.
constexpr qint64 kAllEmployees = -1;
constexpr qint64 kNobody = -1;

bool UsesRowButtons(const SettingsStore& settings) {
  const QString kept =
      settings.Read(QStringLiteral("Form"), QStringLiteral("Use Buttons In Diary"));
  return kept.compare(u"true", Qt::CaseInsensitive) == 0 || kept.toInt() != 0;
}

}  // namespace

frmDiary::frmDiary(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmDiary"), tr("Diary")), business_(business), tools_(tools) {
  const bool rowCommands = UsesRowButtons(business.World().settings);
  MakeControls();
  grdSchedule->SetColumns(DiaryColumns(rowCommands));
  grdSchedule->SetChoices(kStatus, DiaryStatusChoices());
  grdSchedule->RememberIn(business.World().settings);
  grdSchedule->AllowReordering();
  grdSchedule->FilterBy(txtFilter);
  LayOut();
  ConnectControls();
  ConnectCommands();
  EnableCommands();
  if (rowCommands)
    rowButtons_ = std::make_unique<RowButtons>(
        grdSchedule, std::vector<QPushButton*>{cmdCancelled, cmdDoneUnPaid, cmdDonePaid, cmdNext});
}

frmDiary::~frmDiary() = default;

void frmDiary::ShowYourself() {
  const QDate today = business_.Today();
  for (DateField* field : {dtJobDate, dtFrom, dtTo}) field->SetDate(today);
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] { LoadEmployees(); });
  LoadScheduleGrid();
  grdSchedule->setFocus();
}

void frmDiary::LoadEmployees() {
  const QVariant kept = cmbEmployees->currentData();
  const auto employees = lists::ListEmployeesByName(business_);
  cmbEmployees->clear();
  cmbEmployees->addItem(QStringLiteral(" All"), kAllEmployees);
  for (const auto& employee : employees)
    cmbEmployees->addItem(employee.words, employee.id.Number());
  cmbEmployees->SelectComboItem(cmbEmployees->findData(kept) < 0 ? QVariant(kAllEmployees) : kept);
}

DiaryQuery frmDiary::Query() const {
  DiaryQuery query;
  const bool range = optShowJobsBetween->isChecked();
  query.from = range ? dtFrom->Date() : dtJobDate->Date();
  query.to = range ? dtTo->Date() : dtJobDate->Date();
  if (cmbEmployees->currentIndex() < 0)
    query.employeeId = kNobody;
  else if (cmbEmployees->currentIndex() > 0)
    query.employeeId = cmbEmployees->currentData().toLongLong();
  query.bySuburbPosition = chkSort->isChecked();
  return query;
}

void frmDiary::LoadScheduleGrid() {
  tools_.runner.Run(objectName(), QStringLiteral("LoadScheduleGrid"), [this] {
    try {
      Show(LoadDiary(business_, Query()));
    } catch (const std::invalid_argument& refusal) {
      business_.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(refusal.what()));
      dtFrom->setFocus();
    }
  });
}

void frmDiary::Show(const DiaryList& list) {
  const auto selected = grdSchedule->SelectedRow();
  const qint64 kept = selected ? grdSchedule->Key(*selected) : 0;
  list_ = list;

  std::vector<GridRow> rows;
  for (const DiaryRow& row : list_.rows) {
    rows.push_back(DiaryGridRow(row));
    rows.back().cells.resize(static_cast<size_t>(grdSchedule->model()->columnCount()), Value());
  }
  grdSchedule->SetChoices(kEmployee, EmployeeChoices(lists::ListEmployeesByName(business_)));
  grdSchedule->ShowColumn(kDate, optShowJobsBetween->isChecked());
  grdSchedule->SetRows(std::move(rows));
  if (!grdSchedule->SelectKey(kept)) grdSchedule->SelectFirst();
  if (rowButtons_) rowButtons_->MoveButtons();
  EnableEditJob();

  txtTotalNoOfJobs->setText(QString::number(list_.totalNoOfJobs));
  txtTotalAmountOfJobs->setText(list_.totalAmountOfJobs.ToCurrencyText());
  for (QLabel* part : {lblWarningSign, lblNoEmployee}) part->setVisible(list_.someHaveNoEmployee);
}

void frmDiary::MoveDay(int days) {
  // The range begins with the day shown, so that changing over to it starts from here.
  if (optShowJobsOn->isChecked()) dtJobDate->SetDate(dtJobDate->Date().addDays(days));
  dtFrom->SetDate(dtFrom->Date().addDays(days));
  LoadScheduleGrid();
}

void frmDiary::ShowRange() {
  optShowJobsBetween->setChecked(true);
  LoadScheduleGrid();
}

void frmDiary::AfterEdit(int row, int column, const Value& value) {
  // A command takes the selection away and leaves the cursor, in whose cell one can still type.
  if (!SelectedJob("Please select a job to update.")) return;
  const qint64 diaryId = grdSchedule->Key(row);
  tools_.runner.Run(objectName(), QStringLiteral("grdSchedule_AfterEdit"), [&] {
    if (column == kSequence)
      ChangeSequence(business_, diaryId, static_cast<int>(value.ToLong()));
    else if (column == kStatus)
      ChangeJobStatusAndBalance(business_, diaryId, value.ToText());
    else if (column == kEmployee)
      ChangeEmployee(business_, diaryId, value.ToLong());
  });
  LoadScheduleGrid();
}

const DiaryRow* frmDiary::FindSelected() const {
  const auto row = grdSchedule->SelectedRow();
  if (!row) return nullptr;
  const qint64 diaryId = grdSchedule->Key(*row);
  for (const DiaryRow& job : list_.rows)
    if (job.diaryId == diaryId) return &job;
  return nullptr;
}

const DiaryRow* frmDiary::SelectedJob(const char* noneSelected) {
  const DiaryRow* selected = FindSelected();
  if (!selected)
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(noneSelected));
  return selected;
}

void frmDiary::ChangeSelected(const std::function<void(const DiaryRow&)>& change) {
  const DiaryRow* job = SelectedJob();
  if (!job) return;
  const int row = *grdSchedule->SelectedRow();
  change(DiaryRow(*job));
  LoadScheduleGrid();
  grdSchedule->ClearSelectionAt(row);
  grdSchedule->setFocus();
}

}  // namespace quillary::diary
