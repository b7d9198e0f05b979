#include "clients/screens/ClientJobsPage.h"

#include "base/ports/requests/Scheduling.h"
#include "clients/screens/ClientGrids.h"
#include "diary/OpenEntry.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <algorithm>

namespace quillary::clients {

namespace {

struct Names {
  const char* grid;
  const char* filter;
  const char* edit;
  const char* remove;
  const char* add;
};

constexpr Names kFutureNames{"grdFutureJobs", "txtFutureFilter", "cmdEditJobVisit",
                             "cmdDeleteFutureJob", "cmdAddFutureJob"};
constexpr Names kPastNames{"grdPastJobs", "txtPastFilter", "cmdEditPastJob", "cmdDeletePastJob",
                           "cmdAddPastJob"};

}  // namespace

ClientJobsPage::ClientJobsPage(ClientDesk& desk, JobsWhen when) : desk_(desk), when_(when) {
  MakeControls();
  LayOut();
  desk_.OnClick(cmdEdit_, [this] { EditSelected(); });
  desk_.OnClick(cmdDelete_, [this] { DeleteSelected(); });
  connect(cmdAdd_, &QPushButton::clicked, this, &ClientJobsPage::addWanted);
  connect(grid_, &Grid::selectedRowChanged, this, &ClientJobsPage::EnableCommands);
  connect(grid_, &Grid::rowOpened, this, [this] {
    if (cmdEdit_->isEnabled()) cmdEdit_->click();
  });
  EnableCommands();
}

void ClientJobsPage::MakeControls() {
  const bool future = when_ == JobsWhen::Future;
  const Names& names = future ? kFutureNames : kPastNames;
  txtFilter = MakeFilterBox(this, names.filter);
  txtFilter->setFixedWidth(240);
  grid_ = new Grid(QString::fromLatin1(names.grid));
  grid_->setAccessibleName(future ? tr("Future jobs") : tr("Past jobs"));
  grid_->SetColumns(ClientJobColumns());
  grid_->RememberIn(desk_.business.World().settings);
  grid_->FilterBy(txtFilter);
  grid_->SetEmptyText(
      future ? tr("Nothing is planned for this client.") : tr("Nothing was done for this client."),
      future ? tr("Give the client a service and create its schedule, or add a job.")
             : tr("Jobs come here when their day is over or when they are done."));
  grid_->setMinimumHeight(140);
  cmdEdit_ = MakeButton(names.edit, tr("&Edit job/visit..."), ButtonKind::Main);
  cmdDelete_ = MakeButton(names.remove, tr("De&lete job"), ButtonKind::Danger);
  cmdAdd_ = MakeButton(names.add, tr("Add &job"));
}

void ClientJobsPage::LayOut() {
  auto* over = new QHBoxLayout;
  over->addWidget(txtFilter);
  over->addStretch(1);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdDelete_);
  commands->addStretch(1);
  commands->addWidget(cmdAdd_);
  commands->addWidget(cmdEdit_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 12, 0, 8);
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grid_, 1);
  column->addLayout(commands);
}

void ClientJobsPage::LoadJobs() {
  const auto kept = grid_->SelectedId<Entry>();
  const ClientRecord& client = desk_.edit.client;
  jobs_ = when_ == JobsWhen::Future ? LoadFutureJobs(desk_.business, client)
                                    : LoadPastJobs(desk_.business, client);
  grid_->SetRows(ClientJobRows(jobs_));
  if (kept) grid_->SelectId(*kept);
  EnableCommands();
}

void ClientJobsPage::EnableCommands() {
  const auto row = grid_->SelectedRow();
  cmdEdit_->setEnabled(
      row && diary::CanOpenEntry(desk_.tools.navigator, jobs_[static_cast<size_t>(*row)].status));
  cmdAdd_->setEnabled(desk_.tools.navigator.CanOpen<AddJob>());
}

void ClientJobsPage::OpenJob(Id<Entry> entry) {
  const auto job = std::ranges::find(jobs_, entry, &ClientJob::entry);
  if (job == jobs_.end() || !diary::CanOpenEntry(desk_.tools.navigator, job->status)) return;
  diary::OpenEntry(desk_.tools.navigator, StoredEntryStatus(job->status), entry);
  desk_.loadJobs();
  desk_.showBalance();
}

void ClientJobsPage::EditSelected() {
  if (const auto job = grid_->SelectedId<Entry>()) OpenJob(*job);
}

void ClientJobsPage::DeleteSelected() {
  if (!desk_.accepted(DeleteClientJob(desk_.business, desk_.Prompt(), grid_->SelectedId<Entry>())))
    return;
  desk_.loadJobs();
  desk_.showBalance();
}

}  // namespace quillary::clients
