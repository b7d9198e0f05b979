#include "diary/screens/frmListOfClientsWithSchedulingProblem.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/ShownList.h"

#include <QCheckBox>

namespace quillary::diary {

namespace {

std::vector<GridColumn> ProblemColumns() {
  return {{QObject::tr("Client"), ColumnKind::StrongText, 192},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Status"), ColumnKind::Text, 96},
          {QObject::tr("Address"), ColumnKind::Text, 288},
          {QObject::tr("Days"), ColumnKind::Number, 72},
          {QObject::tr("Next visit"), ColumnKind::Date, 120},
          {QObject::tr("Missing on"), ColumnKind::Date, 120}};
}

GridCell DayOr(QDate day, const QString& words) {
  if (!day.isValid()) return GridCell(Value(), words);
  return GridCell(day);
}

GridRow RowOf(qint64 place, const roll::ScheduleProblem& problem) {
  GridRow row;
  row.cells = {problem.displayName,
               place,
               problem.status,
               problem.address.simplified(),
               problem.frequency,
               DayOr(problem.nextVisit, QStringLiteral("—")),
               DayOr(problem.missingOn, QObject::tr("no rhythm"))};
  row.hue = Hue::Yellow;
  return row;
}

}  // namespace

frmListOfClientsWithSchedulingProblem::frmListOfClientsWithSchedulingProblem(
    Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmListOfClientsWithSchedulingProblem"), tr("Scheduling problems")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
}

void frmListOfClientsWithSchedulingProblem::MakeControls() {
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  cmdRefresh = MakeButton("cmdRefresh", tr("Check a&gain"), ButtonKind::Plain, "view-refresh");
  grdClients = new Grid(QStringLiteral("grdClients"));
  grdClients->setAccessibleName(
      QStringLiteral("List of clients that might have scheduling problem"));
  grdClients->SetColumns(ProblemColumns());
  grdClients->SetEmptyText(tr("Every regular visit is in the diary."),
                           tr("There is nothing to do here."));
  grdClients->RememberIn(business_.World().settings);
  grdClients->FilterBy(txtFilter);
  grdClients->setMinimumHeight(120);
  chkShowAfterStartup =
      Named(new QCheckBox(QStringLiteral("Show this screen at star&t up")), "chkShowAfterStartup",
            QStringLiteral("Show this screen at start up"));
  chkShowAfterStartup->setChecked(roll::ShowsScheduleProblemsAtStartUp(business_.World().settings));
  cmdClientDetails = MakeButton("cmdClientDetails", tr("Cl&ient details…"));
  cmdReschedule = MakeButton("cmdReschedule", tr("Resched&ule…"));
  cmdPrint = MakeButton("cmdPrint", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

void frmListOfClientsWithSchedulingProblem::LayOut() {
  auto* head = new FlowLayout;
  head->AddWidget(MakeLabel("lblPlease",
                            QStringLiteral("Please check the job schedule of each client ..."),
                            LabelRole::Plain));
  head->AddWidgets({txtFilter, cmdRefresh}, Qt::AlignRight);
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdReschedule, cmdPrint});
  commands->AddWidgets({cmdClose, cmdClientDetails}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblTitle", QStringLiteral("List of clients that might have scheduling problem"),
      LabelRole::Title));
  column->addLayout(head);
  column->addWidget(grdClients, 1);
  column->addWidget(chkShowAfterStartup);
  column->addWidget(MakeParagraph(
      "lblYouCan",
      QStringLiteral("You can still check this list by going to Functions -> List of clients with "
                     "scheduling problem"),
      LabelRole::Hint));
  column->addLayout(commands);
}

void frmListOfClientsWithSchedulingProblem::ConnectControls() {
  const Navigator& navigator = tools_.navigator;
  cmdClientDetails->setEnabled(navigator.CanOpen<OpenClient>());
  cmdPrint->setEnabled(navigator.CanOpen<PrintList>());
  connect(cmdRefresh, &QPushButton::clicked, this, &frmListOfClientsWithSchedulingProblem::Reload);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdClients, &Grid::rowOpened, cmdClientDetails, &QPushButton::click);
  connect(chkShowAfterStartup, &QCheckBox::toggled, this, [this](bool show) {
    roll::ShowScheduleProblemsAtStartUp(business_.World().settings, show);
  });
  tools_.runner.OnClick(cmdClientDetails, objectName(), [this] { OpenSelectedClient(); });
  tools_.runner.OnClick(cmdReschedule, objectName(), [this] {
    tools_.navigator.Open(OpenReschedule{});
    Reload();
  });
  tools_.runner.OnClick(cmdPrint, objectName(), [this] {
    tools_.navigator.Open(
        ShownList(QStringLiteral("List of clients with job scheduling problem"), grdClients));
  });
}

void frmListOfClientsWithSchedulingProblem::ShowFound(
    const std::vector<roll::ScheduleProblem>& found) {
  found_ = found;
  std::vector<GridRow> rows;
  for (const roll::ScheduleProblem& problem : found_)
    rows.push_back(RowOf(static_cast<qint64>(rows.size()), problem));
  grdClients->SetRows(std::move(rows));
  grdClients->SelectFirst();
  grdClients->setFocus();
}

void frmListOfClientsWithSchedulingProblem::Reload() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("CheckClientSchedules"),
                        [this] { ShowFound(roll::CheckClientSchedules(business_)); });
}

void frmListOfClientsWithSchedulingProblem::OpenSelectedClient() {
  if (const auto row = grdClients->SelectedRow())
    tools_.navigator.Open(OpenClient{found_[static_cast<size_t>(*row)].client});
  else
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please select a client to view/edit."));
}

}  // namespace quillary::diary
