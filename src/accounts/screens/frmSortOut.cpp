#include "accounts/screens/frmSortOut.h"

#include "accounts/yearend/SortOut.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/ShownList.h"

#include <QProgressBar>

#include <numeric>

namespace quillary::accounts {
namespace {

int RowsOf(const std::vector<RepairCount>& counts) {
  return std::accumulate(counts.begin(), counts.end(), 0,
                         [](int sum, const RepairCount& count) { return sum + count.rows; });
}

}  // namespace

frmSortOut::frmSortOut(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmSortOut"), QStringLiteral("Sort-out database records")),
      business_(business) {
  MakeControls(tools);
  LayOut();
  setFocusProxy(grdSteps);
}

void frmSortOut::MakeControls(const ScreenTools& tools) {
  pb = Named(new QProgressBar, "pb", tr("Progress of the repair"));
  pb->setTextVisible(false);
  grdSteps = new Grid(QStringLiteral("grdSteps"));
  grdSteps->setAccessibleName(tr("Steps"));
  grdSteps->SetColumns({{{}, ColumnKind::HiddenId},
                        {tr("Step"), ColumnKind::StrongText, 400},
                        {tr("Before"), ColumnKind::Number, 96},
                        {tr("After"), ColumnKind::Number, 96}});
  grdSteps->SetEmptyText(tr("Nothing has been sorted out yet."),
                         tr("Choose Functions, Sort-out database records."));
  grdSteps->RememberIn(business_.World().settings);
  grdSteps->setMinimumHeight(120);
  grdSteps->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lblTotals = MakeLabel("lblTotals", {}, LabelRole::Muted);
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdPrintGrid->setEnabled(tools.navigator.CanOpen<PrintList>());
  tools.runner.OnClick(cmdPrintGrid, objectName(),
                       [this, tools] { tools.navigator.Open(ShownList(windowTitle(), grdSteps)); });
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"), ButtonKind::Main);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
}

void frmSortOut::LayOut() {
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdPrintGrid});
  commands->AddWidgets({cmdClose}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblNote", tr("How many rows each step found, and how many it would find again.")));
  column->addWidget(pb);
  column->addWidget(grdSteps, 1);
  column->addWidget(lblTotals);
  column->addLayout(commands);
}

void frmSortOut::Begin(const std::vector<RepairCount>& before) {
  before_ = before;
  after_.clear();
  pb->setRange(0, static_cast<int>(before_.size()));
  pb->setValue(0);
  pb->show();
  ShowRows();
  repaint();
}

void frmSortOut::ShowStep(int step) {
  pb->setValue(step);
  pb->repaint();  // without a turn of the event loop: the repair is not to be disturbed
}

void frmSortOut::End(const std::vector<RepairCount>& after) {
  after_ = after;
  pb->hide();
  ShowRows();
}

void frmSortOut::Reload() {
  if (!before_.empty()) End(CountWhatToSortOut(business_));
}

void frmSortOut::ShowRows() {
  std::vector<GridRow> rows;
  for (size_t at = 0; at < before_.size(); ++at) {
    const QString& what = before_[at].what;
    const Value left = after_.empty() ? Value() : Value(after_[at].rows);
    rows.push_back({{static_cast<qint64>(at) + 1, what.left(1).toUpper() + what.mid(1),
                     before_[at].rows, left}});
  }
  grdSteps->SetRows(std::move(rows));
  lblTotals->setText(after_.empty()
                         ? QString()
                         : tr("%1 before, %2 after").arg(RowsOf(before_)).arg(RowsOf(after_)));
}

}  // namespace quillary::accounts
