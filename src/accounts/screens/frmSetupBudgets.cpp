#include "accounts/screens/frmSetupBudgets.h"

#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QComboBox>

namespace quillary::accounts {

frmSetupBudgets::frmSetupBudgets(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmSetupBudgets"), QStringLiteral("Budgets")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(grdBudgets);
}

void frmSetupBudgets::MakeControls() {
  cmbYear = Named(new QComboBox, "cmbYear");
  grdBudgets = new Grid(QStringLiteral("grdSetupBudgets"));
  grdBudgets->setAccessibleName(tr("Budgets"));
  grdBudgets->SetColumns({{{}, ColumnKind::HiddenId},
                          {tr("Account"), ColumnKind::StrongText, 240},
                          {tr("Number"), ColumnKind::Text, 96},
                          {tr("Kind"), ColumnKind::Text, 96},
                          {tr("Budget of the year"), ColumnKind::Money, 144, true},
                          {tr("A month"), ColumnKind::Money, 112},
                          {tr("Budget last year"), ColumnKind::Money, 128},
                          {tr("Actual last year"), ColumnKind::Money, 128}});
  grdBudgets->SetEmptyText(tr("There are no ledger accounts."),
                           tr("Add them under Set up, Financial settings."));
  grdBudgets->RememberIn(business_.World().settings);
  grdBudgets->setMinimumHeight(120);
  grdBudgets->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lblTotals = MakeLabel("lblTotals", {}, LabelRole::Muted);
  txtPercent = ForField("percent", Named(new QLineEdit, "txtPercent"));
  txtPercent->setText(QStringLiteral("0"));
  txtPercent->setFixedWidth(72);
  txtPercent->setAlignment(Qt::AlignRight);
  SelectAllText(txtPercent);
  new KeyFilter(txtPercent, KeyMode::Number);
  cmdCopyLastYear = MakeButton("cmdCopyLastYear", tr("From last year's &budgets"));
  cmdFromActuals = MakeButton("cmdFromActuals", tr("From last year's &actuals"));
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

void frmSetupBudgets::LayOut() {
  auto* head = InLine({{LabelOver(cmbYear, tr("Financial &year")), 0}});
  head->addWidget(
      MakeParagraph("lblNote", tr("Type the amount of a year into its row. The latest year's "
                                  "amounts are those with which the next one opens.")),
      1, Qt::AlignBottom);
  auto* commands = new FlowLayout;
  commands->AddWidgets(
      {MakeLabelFor(txtPercent, tr("&Percent more")), txtPercent, cmdCopyLastYear, cmdFromActuals});
  commands->AddWidgets({cmdClose}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(head);
  column->addWidget(grdBudgets, 1);
  column->addWidget(lblTotals);
  column->addLayout(commands);
}

void frmSetupBudgets::ConnectControls() {
  connect(cmbYear, &QComboBox::activated, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("cmbYear_Click"), [this] { Load(); });
  });
  connect(grdBudgets, &Grid::edited, this, [this](int row, int, const Value& value) {
    tools_.runner.Run(objectName(), QStringLiteral("TakeAmount"), [&] { TakeAmount(row, value); });
  });
  tools_.runner.OnClick(cmdCopyLastYear, objectName(),
                        [this] { Fill(BudgetSource::LastYearsBudget); });
  tools_.runner.OnClick(cmdFromActuals, objectName(),
                        [this] { Fill(BudgetSource::LastYearsActuals); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
}

const BudgetYear* frmSetupBudgets::Year() const {
  const int at = cmbYear->currentIndex();
  return at < 0 ? nullptr : &years_[static_cast<size_t>(at)];
}

void frmSetupBudgets::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] {
    const QString shown = cmbYear->currentText();
    years_ = ListBudgetYears(business_);
    cmbYear->clear();
    for (const BudgetYear& year : years_) cmbYear->addItem(year.Words());
    cmbYear->setCurrentIndex(shown.isEmpty() ? 0 : std::max(0, cmbYear->findText(shown)));
    Load();
  });
}

void frmSetupBudgets::Load() {
  constexpr double kMonths = 12;
  const auto selected = grdBudgets->SelectedId<Account>();
  lines_.clear();
  std::vector<BudgetLine> before;
  if (const BudgetYear* year = Year()) {
    lines_ = LoadBudgets(business_, *year, year->days);
    if (const auto last = BudgetYearOf(business_, year->days.from.addDays(-1)))
      before = LoadBudgets(business_, *last, last->days);
  }
  std::vector<GridRow> rows;
  for (size_t at = 0; at < lines_.size(); ++at) {
    const BudgetLine& line = lines_[at];
    const auto lastYears = [&](Money BudgetLine::*amount) {
      return Value(before.empty() ? std::optional<Money>() : std::optional(before[at].*amount));
    };
    rows.push_back({{line.account, line.name, line.number, line.kind, line.yearly,
                     Money::FromDouble(line.yearly.ToDouble() / kMonths).Rounded(2),
                     lastYears(&BudgetLine::yearly), lastYears(&BudgetLine::actual)}});
  }
  grdBudgets->SetRows(std::move(rows));
  if (selected) grdBudgets->SelectId(*selected);
  for (QPushButton* fill : {cmdCopyLastYear, cmdFromActuals}) {
    fill->setEnabled(!before.empty());
    fill->setToolTip(before.empty() ? tr("There is no financial year before this one.")
                                    : QString());
  }
  lblTotals->setText(tr("Budgeted: %1").arg(TotalsByKind(lines_, &BudgetLine::yearly)));
}

void frmSetupBudgets::TakeAmount(int row, const Value& value) {
  const BudgetYear* year = Year();
  if (year == nullptr) return;
  const auto amount = Money::Parse(value.ToText());
  const std::optional<Refusal> refusal =
      amount ? SetBudget(business_, *year, lines_[static_cast<size_t>(row)].account, *amount)
             : Refusal{QStringLiteral("Please enter a valid amount."), {}};
  Load();
  Accepted(business_.World().prompter, this, refusal);
}

void frmSetupBudgets::Fill(BudgetSource source) {
  const BudgetYear* year = Year();
  if (year == nullptr) return;
  bool isNumber = false;
  const double percent = txtPercent->text().trimmed().toDouble(&isNumber);
  const std::optional<Refusal> refusal =
      isNumber || txtPercent->text().trimmed().isEmpty()
          ? FillBudgets(business_, *year, source, percent)
          : Refusal{QStringLiteral("Please enter a percentage."), QStringLiteral("percent")};
  if (Accepted(business_.World().prompter, this, refusal)) Load();
}

}  // namespace quillary::accounts
