#include "diary/screens/frmDiary.h"

#include "diary/DiaryCommands.h"
#include "diary/screens/DiaryGrid.h"
#include "diary/screens/RowButtons.h"
#include "kit/Combos.h"

#include <algorithm>
#include <stdexcept>

/// What the diary shows: loading, totals, the order and edits in its table.
namespace quillary::diary {

namespace {

/// Of the entry " All" in the list.
constexpr int kAllEmployees = -1;

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
  grdSchedule->AllowMarking();
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

void frmDiary::ShowDays(const DateRange& days) {
  dtJobDate->SetDate(days.to);
  dtFrom->SetDate(days.from);
  dtTo->SetDate(days.to);
  (days.IsOneDay() ? optShowJobsOn : optShowJobsBetween)->setChecked(true);
  tools_.runner.Run(objectName(), QStringLiteral("ShowDays"), [this] { LoadEmployees(); });
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

DateRange frmDiary::Days() const {
  if (optShowJobsOn->isChecked()) return DateRange::Of(dtJobDate->Date());
  return {dtFrom->Date(), dtTo->Date()};
}

std::optional<DiaryQuery> frmDiary::Query() const {
  if (cmbEmployees->currentIndex() < 0) return std::nullopt;
  DiaryQuery query{.days = Days(), .bySuburbPosition = chkSort->isChecked()};
  if (cmbEmployees->currentIndex() > 0) query.employee = ComboId<Employee>(cmbEmployees);
  return query;
}

void frmDiary::LoadScheduleGrid() {
  tools_.runner.Run(objectName(), QStringLiteral("LoadScheduleGrid"), [this] {
    try {
      const auto query = Query();
      Show(query ? LoadDiary(business_, *query) : DiaryList());
    } catch (const std::invalid_argument& refusal) {
      business_.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(refusal.what()));
      dtFrom->setFocus();
    }
  });
}

void frmDiary::Show(const DiaryList& list) {
  const auto kept = grdSchedule->SelectedId<Entry>();
  std::vector<qint64> marked;
  for (const int row : grdSchedule->MarkedRows()) marked.push_back(grdSchedule->Key(row));
  list_ = list;

  std::vector<GridRow> rows;
  for (const DiaryRow& row : list_.rows) {
    rows.push_back(DiaryGridRow(row));
    rows.back().cells.resize(static_cast<size_t>(grdSchedule->model()->columnCount()), Value());
  }
  grdSchedule->SetChoices(kEmployee, EmployeeChoices(lists::ListEmployeesByName(business_)));
  grdSchedule->ShowColumn(kDate, optShowJobsBetween->isChecked());
  grdSchedule->SetRows(std::move(rows));
  const bool several = marked.size() > 1 && grdSchedule->MarkKeys(marked);
  if (!several && (!kept || !grdSchedule->SelectId(*kept))) grdSchedule->SelectFirst();
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
  const auto entry = grdSchedule->IdAt<Entry>(row);
  const std::vector<Id<Entry>> marked = grdSchedule->MarkedIds<Entry>();
  if (column == kEmployee && marked.size() > 1 && std::ranges::find(marked, entry) != marked.end())
    return GiveMarkedTo(value);
  tools_.runner.Run(objectName(), QStringLiteral("grdSchedule_AfterEdit"), [&] {
    if (column == kSequence) ChangeSequence(business_, entry, static_cast<int>(value.ToLong()));
    // What the list cannot choose is what the entry has already.
    const auto status = EntryStatusFromCode(value.ToText());
    if (column == kStatus && status) ChangeJobStatus(business_, entry, *status);
    if (column == kEmployee) ChangeEmployee(business_, entry, value.ToId<Employee>());
  });
  LoadScheduleGrid();
}

const DiaryRow* frmDiary::FindSelected() const {
  const auto entry = grdSchedule->SelectedId<Entry>();
  for (const DiaryRow& job : list_.rows)
    if (job.entry == entry) return &job;
  return nullptr;
}

const DiaryRow* frmDiary::SelectedJob(const char* noneSelected) {
  const DiaryRow* selected = FindSelected();
  if (!selected)
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(noneSelected));
  return selected;
}

Entries frmDiary::MarkedEntries() {
  Entries marked;
  if (!SelectedJob()) return marked;
  for (const Id<Entry> entry : grdSchedule->MarkedIds<Entry>())
    for (const DiaryRow& row : list_.rows)
      if (row.entry == entry) marked.push_back(row);
  return marked;
}

void frmDiary::ChangeMarked(const std::function<bool(const Entries&)>& change) {
  const Entries marked = MarkedEntries();
  if (marked.empty()) return;
  const int row = *grdSchedule->SelectedRow();
  const bool changed = change(marked);
  LoadScheduleGrid();
  if (changed) grdSchedule->ClearSelectionAt(row);
  grdSchedule->setFocus();
}

}  // namespace quillary::diary
