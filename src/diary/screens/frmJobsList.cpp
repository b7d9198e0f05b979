#include "diary/screens/frmJobsList.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "diary/DiaryCommands.h"
#include "diary/OpenEntry.h"
#include "diary/screens/DiaryGrid.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/ShownList.h"

namespace quillary::diary {

namespace {

enum JobsListColumn {
  kListedDate,
  kListedId,
  kListedClient,
  kListedAddress,
  kListedServices,
  kListedPrice,
  kListedGST,
  kListedStatus,
  kListedSequence,
};

std::vector<GridColumn> JobsListColumns() {
  return {{QObject::tr("Date"), ColumnKind::Date, 104},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Client"), ColumnKind::StrongText, 192},
          {QObject::tr("Address"), ColumnKind::Text, 256},
          {QObject::tr("Services"), ColumnKind::Text, 136},
          {QObject::tr("Price"), ColumnKind::Money, 96},
          {QObject::tr("GST"), ColumnKind::Money, 88},
          {QObject::tr("Status"), ColumnKind::Chip, 160, true},
          {QObject::tr("Sequence"), ColumnKind::Number, 88, true}};
}

/// Entries that are no jobs show the words of the diary's own list.
QString StatusWords(const StoredEntryStatus& status) {
  return KindOf(status) == EntryKind::Job ? FoldedWordsOf(status) : ListedWordsOf(status);
}

GridRow JobsListGridRow(const JobsListRow& job) {
  const QString words = StatusWords(job.status);
  GridRow row;
  row.cells = {
      job.scheduleDate,
      job.entry,
      job.displayName,
      job.address.simplified(),
      job.description,
      job.totalPrice,
      job.totalGST,
      GridCell(Folded(job.status), job.isPaid ? QObject::tr("%1 · paid").arg(words) : words),
      job.sequence};
  row.hue = HueOf(job.status, job.isPaid);
  return row;
}

}  // namespace

frmJobsList::frmJobsList(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmJobsList"), tr("Jobs")), business_(business), tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
}

void frmJobsList::MakeControls() {
  dtFrom = Named(new DateField(business_.Today()), "dtFrom");
  dtTo = Named(new DateField(business_.Today()), "dtTo");
  for (DateField* field : {dtFrom, dtTo}) field->ShowWeekday(false);
  cboJobStatus = Named(new QComboBox, "cboJobStatus");
  FillComboWithWords(cboJobStatus, JobFilterWords());
  cmdList = MakeButton("cmdList", tr("&List"), ButtonKind::Plain, "view-refresh");
  cmdList->setToolTip(tr("Loads the list again (F5)"));
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdSchedule = new Grid(QStringLiteral("grdSchedule"));
  grdSchedule->setAccessibleName(tr("Jobs of the period"));
  grdSchedule->SetColumns(JobsListColumns());
  grdSchedule->SetChoices(kListedStatus, DiaryStatusChoices(EntryKind::Job));
  grdSchedule->SetEmptyText(tr("There are no jobs for this choice."),
                            tr("Choose other dates, or another status."));
  grdSchedule->RememberIn(business_.World().settings);
  grdSchedule->FilterBy(txtFilter);
  grdSchedule->setMinimumHeight(120);
  txtTotalNoOfJobs =
      Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalNoOfJobs", tr("Number of jobs"));
  txtTotalAmountOfJobs =
      Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalAmountOfJobs", tr("Amount of all jobs"));
  txtTotalAmountOfGST =
      Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalAmountOfGST", tr("GST of all jobs"));
  cmdEditJob = MakeButton("cmdEditJob", QStringLiteral("&View Job"), ButtonKind::Main);
  cmdClientDetails = MakeButton("cmdClientDetails", tr("Cl&ient details…"));
  cmdPrintJobs = MakeButton("cmdPrintJobs", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdDeleteJob = MakeButton("cmdDeleteJob", tr("Delete &job…"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

void frmJobsList::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(ChoiceLine());
  column->addWidget(grdSchedule, 1);
  column->addLayout(TotalsLine());
  column->addLayout(CommandLine());
}

QLayout* frmJobsList::ChoiceLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabelFor(dtFrom, tr("Jobs fro&m")), dtFrom, MakeLabelFor(dtTo, tr("&to")),
                    dtTo, MakeLabelFor(cboJobStatus, tr("Stat&us")), cboJobStatus});
  line->AddWidgets({txtFilter, cmdList}, Qt::AlignRight);
  return line;
}

QLayout* frmJobsList::TotalsLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({txtTotalNoOfJobs, MakeLabel("lblJobs", tr("jobs"), LabelRole::Muted)});
  line->AddWidgets({MakeLabel("lblAmount", tr("    worth"), LabelRole::Muted), txtTotalAmountOfJobs,
                    MakeLabel("lblGST", tr("    GST within"), LabelRole::Muted),
                    txtTotalAmountOfGST});
  return line;
}

QLayout* frmJobsList::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdDeleteJob, cmdClientDetails, cmdPrintJobs});
  line->AddWidgets({cmdClose, cmdEditJob}, Qt::AlignRight);
  return line;
}

void frmJobsList::ConnectControls() {
  const auto on = [this](QPushButton* button, void (frmJobsList::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdEditJob, &frmJobsList::ViewJob);
  on(cmdClientDetails, &frmJobsList::OpenClientOfJob);
  on(cmdDeleteJob, &frmJobsList::DeleteSelected);
  tools_.runner.OnClick(cmdPrintJobs, objectName(),
                        [this] { tools_.navigator.Open(ShownList(windowTitle(), grdSchedule)); });
  EnableViewJob();
  cmdClientDetails->setEnabled(tools_.navigator.CanOpen<OpenClient>());
  cmdPrintJobs->setEnabled(tools_.navigator.CanOpen<PrintList>());
  connect(cmdList, &QPushButton::clicked, this, &frmJobsList::LoadScheduleGrid);
  for (DateField* field : {dtFrom, dtTo})
    connect(field, &DateField::dateChosen, this, &frmJobsList::LoadScheduleGrid);
  connect(cboJobStatus, &QComboBox::activated, this, &frmJobsList::LoadScheduleGrid);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdSchedule, &Grid::selectedRowChanged, this, &frmJobsList::EnableViewJob);
  connect(grdSchedule, &Grid::rowOpened, cmdEditJob, &QPushButton::click);
  // Queued, because the editor that made the change is still open and goes with the old rows.
  connect(grdSchedule, &Grid::edited, this, &frmJobsList::AfterEdit, Qt::QueuedConnection);
}

void frmJobsList::ShowYourself() {
  ShowJobs(JobsOfMonth(business_.Today()));
}

void frmJobsList::ShowJobs(const JobsListQuery& query) {
  dtFrom->SetDate(query.days.from);
  dtTo->SetDate(query.days.to);
  SelectComboItem(cboJobStatus, static_cast<int>(query.filter));
  LoadScheduleGrid();
  grdSchedule->setFocus();
}

void frmJobsList::LoadScheduleGrid() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadScheduleGrid"), [this] {
    const auto filter = static_cast<JobFilter>(ComboKey(cboJobStatus).value_or(0));
    Show(LoadJobsList(business_, {{dtFrom->Date(), dtTo->Date()}, filter}));
  });
}

void frmJobsList::Show(const JobsList& list) {
  const auto kept = grdSchedule->SelectedId<Entry>();
  list_ = list;
  std::vector<GridRow> rows;
  for (const JobsListRow& job : list_.rows) rows.push_back(JobsListGridRow(job));
  grdSchedule->SetRows(std::move(rows));
  if (!kept || !grdSchedule->SelectId(*kept)) grdSchedule->SelectFirst();
  EnableViewJob();
  txtTotalNoOfJobs->setText(QString::number(list_.totalNoOfJobs));
  txtTotalAmountOfJobs->setText(list_.totalAmountOfJobs.ToCurrencyText());
  txtTotalAmountOfGST->setText(list_.totalAmountOfGST.ToCurrencyText());
}

void frmJobsList::EnableViewJob() {
  const auto row = grdSchedule->SelectedRow();
  const Navigator& to = tools_.navigator;
  cmdEditJob->setEnabled(row ? CanOpenEntry(to, list_.rows[static_cast<size_t>(*row)].status)
                             : to.CanOpen<EditJob>());
}

void frmJobsList::AfterEdit(int row, int column, const Value& value) {
  const auto entry = grdSchedule->IdAt<Entry>(row);
  tools_.runner.Run(objectName(), QStringLiteral("grdSchedule_AfterEdit"), [&] {
    if (!Selected(JobsListCommand::EditCell)) return;
    // What the list cannot choose is what the entry has already.
    const auto status = EntryStatusFromCode(value.ToText());
    if (column == kListedStatus && status) ChangeJobStatus(business_, entry, *status);
    if (column == kListedSequence)
      ChangeSequence(business_, entry, static_cast<int>(value.ToLong()));
  });
  LoadScheduleGrid();
}

const JobsListRow* frmJobsList::Selected(JobsListCommand command) {
  const auto row = grdSchedule->SelectedRow();
  const auto entry = grdSchedule->SelectedId<Entry>();
  if (!Accepted(business_.World().prompter, this, CheckJobSelected(command, entry))) return nullptr;
  return &list_.rows[static_cast<size_t>(*row)];
}

void frmJobsList::ViewJob() {
  const JobsListRow* job = Selected(JobsListCommand::ViewJob);
  if (!job) return;
  OpenEntry(tools_.navigator, job->status, job->entry);
  LoadScheduleGrid();
}

void frmJobsList::OpenClientOfJob() {
  if (const JobsListRow* job = Selected(JobsListCommand::ClientDetails))
    tools_.navigator.Open(OpenClient{job->client});
}

void frmJobsList::DeleteSelected() {
  const JobsListRow* job = Selected(JobsListCommand::Delete);
  if (job && DeleteJobAfterAsking(business_, business_.World().prompter, job->entry))
    LoadScheduleGrid();
}

}  // namespace quillary::diary
