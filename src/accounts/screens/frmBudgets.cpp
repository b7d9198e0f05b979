#include "accounts/screens/frmBudgets.h"

#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Documents.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/ShownList.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace quillary::accounts {

frmBudgets::frmBudgets(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmBudgets"), QStringLiteral("Yearly budgets")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(grdBudgets);
}

void frmBudgets::MakeControls() {
  cmbYear = Named(new QComboBox, "cmbYear");
  cmbDays = Named(new QComboBox, "cmbDays");
  grdBudgets = new Grid(QStringLiteral("grdBudgets"));
  grdBudgets->setAccessibleName(tr("Budgets"));
  grdBudgets->SetColumns({{{}, ColumnKind::HiddenId},
                          {tr("Account"), ColumnKind::StrongText, 240},
                          {tr("Number"), ColumnKind::Text, 88},
                          {tr("Kind"), ColumnKind::Text, 88},
                          {tr("Budget"), ColumnKind::Money, 112},
                          {tr("Actual"), ColumnKind::Money, 112},
                          {tr("Difference"), ColumnKind::Money, 112},
                          {tr("Used"), ColumnKind::Bar, 160}});
  grdBudgets->SetEmptyText(tr("There are no ledger accounts."),
                           tr("Add them under Set up, Financial settings."));
  grdBudgets->RememberIn(business_.World().settings);
  grdBudgets->setMinimumHeight(120);
  grdBudgets->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lblTotals = MakeLabel("lblTotals", {}, LabelRole::Muted);
  cmdEntries = MakeButton("cmdEntries", tr("&Entries of this account"), ButtonKind::Main);
  cmdEntries->setToolTip(tr("What the actual amount is made of; also a double click or Enter"));
  cmdEntries->setEnabled(tools_.navigator.CanOpen<ShowLedgerEntries>());
  cmdSetup = MakeButton("cmdSetup", tr("&Set budgets…"));
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdPrintGrid->setEnabled(tools_.navigator.CanOpen<PrintList>());
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

void frmBudgets::LayOut() {
  auto* head = InLine(
      {{LabelOver(cmbYear, tr("Financial &year")), 0}, {LabelOver(cmbDays, tr("&Months")), 0}});
  head->addStretch(1);
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdPrintGrid, cmdSetup});
  commands->AddWidgets({cmdClose, cmdEntries}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(head);
  column->addWidget(grdBudgets, 1);
  column->addWidget(lblTotals);
  column->addLayout(commands);
}

void frmBudgets::ConnectControls() {
  connect(cmbYear, &QComboBox::activated, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("cmbYear_Click"), [this] {
      FillDays();
      Load();
    });
  });
  connect(cmbDays, &QComboBox::activated, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("cmbDays_Click"), [this] { Load(); });
  });
  connect(grdBudgets, &Grid::rowOpened, this, &frmBudgets::ShowEntries);
  tools_.runner.OnClick(cmdEntries, objectName(), [this] {
    if (const auto row = grdBudgets->SelectedRow()) ShowEntries(*row);
  });
  tools_.runner.OnClick(cmdSetup, objectName(),
                        [this] { tools_.navigator.Open(OpenSetupBudgets{}); });
  tools_.runner.OnClick(cmdPrintGrid, objectName(),
                        [this] { tools_.navigator.Open(ShownList(windowTitle(), grdBudgets)); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  grdBudgets->OfferCommands({cmdEntries});
}

void frmBudgets::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] {
    FillYears();
    FillDays();
    Load();
  });
}

void frmBudgets::FillYears() {
  const QString shown = cmbYear->currentText();
  years_ = ListBudgetYears(business_);
  cmbYear->clear();
  for (const BudgetYear& year : years_) cmbYear->addItem(year.Words());
  cmbYear->setCurrentIndex(shown.isEmpty() ? 0 : std::max(0, cmbYear->findText(shown)));
}

void frmBudgets::FillDays() {
  const QString shown = cmbDays->currentText();
  const int year = cmbYear->currentIndex();
  days_.clear();
  cmbDays->clear();
  if (year < 0) return;
  days_ = BudgetDaysOf(years_[static_cast<size_t>(year)], business_.Today());
  for (const BudgetDays& days : days_) cmbDays->addItem(days.words);
  // The year so far, where there is such a choice.
  const int proposed = days_.size() > 1 && days_[1].days.from == days_[0].days.from &&
                               days_[1].days.Contains(business_.Today())
                           ? 1
                           : 0;
  const int again = cmbDays->findText(shown);
  cmbDays->setCurrentIndex(again >= 0 ? again : proposed);
}

void frmBudgets::Load() {
  const auto selected = grdBudgets->SelectedId<Account>();
  lines_.clear();
  std::vector<GridRow> rows;
  if (cmbYear->currentIndex() >= 0 && cmbDays->currentIndex() >= 0)
    lines_ = LoadBudgets(business_, years_[static_cast<size_t>(cmbYear->currentIndex())],
                         days_[static_cast<size_t>(cmbDays->currentIndex())].days);
  for (const BudgetLine& line : lines_) {
    const auto share = line.Share();
    const bool isOver = !line.isRevenue && share && *share > 1;
    rows.push_back({{line.account, line.name, line.number, line.kind, line.budget, line.actual,
                     line.Difference(), Value(share)},
                    isOver ? Hue::Red : Hue::None,
                    isOver ? tr("More was spent than budgeted.") : QString()});
  }
  grdBudgets->SetRows(std::move(rows));
  if (selected) grdBudgets->SelectId(*selected);
  lblTotals->setText(tr("Booked: %1").arg(TotalsByKind(lines_, &BudgetLine::actual)));
}

void frmBudgets::ShowEntries(int row) {
  if (!tools_.navigator.CanOpen<ShowLedgerEntries>()) return;
  tools_.navigator.Open(
      ShowLedgerEntries{lines_[static_cast<size_t>(row)].account,
                        days_[static_cast<size_t>(cmbDays->currentIndex())].days});
}

}  // namespace quillary::accounts
