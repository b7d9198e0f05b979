#include "accounts/screens/frmChequeReconciliation.h"

#include "base/Text.h"
#include "base/ports/requests/Documents.h"
#include "kit/CurrencyField.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"
#include "kit/ShownList.h"

#include <QCheckBox>

#include <set>

namespace quillary::accounts {

namespace {

constexpr int kTickOfCheque = 0;
constexpr int kStatementWidth = 128;

}  // namespace

frmChequeReconciliation::frmChequeReconciliation(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmChequeReconciliation"), QStringLiteral("Cheque reconciliation")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(grdCheques);
}

void frmChequeReconciliation::MakeControls() {
  chkTickUntickAll = MakeTickAllBox();
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdCheques = new Grid(QStringLiteral("grdCheques"));
  grdCheques->setAccessibleName(tr("Cheques that are not cleared"));
  grdCheques->SetColumns({{{}, ColumnKind::Tick, 40},
                          {{}, ColumnKind::HiddenId},
                          {tr("Cheque"), ColumnKind::StrongText, 128},
                          {tr("Supplier"), ColumnKind::Text, 280},
                          {tr("Date"), ColumnKind::Date, 120},
                          {tr("Amount"), ColumnKind::Money, 120}});
  grdCheques->SetEmptyText(tr("Every cheque has been cleared."),
                           tr("Purchases paid by cheque are listed here until they are."));
  grdCheques->RememberIn(business_.World().settings);
  grdCheques->FilterBy(txtFilter);
  grdCheques->setMinimumHeight(120);
  ticks_ = new RowTicks(grdCheques, kTickOfCheque, chkTickUntickAll);
  lblTicked = Named(MakeLabel("", {}, LabelRole::Figure), "lblTicked", tr("Sum of the ticked"));
  txtStatement = Named(new CurrencyField, "txtStatement");
  txtStatement->setFixedWidth(kStatementWidth);
  lblDifference = MakeLabel("lblDifference", {}, LabelRole::Muted);
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
  cmdBank = MakeButton("cmdBank", tr("C&leared"), ButtonKind::Main);
}

QLayout* frmChequeReconciliation::SumsLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabel("lblTickedWords", tr("Ticked"), LabelRole::Muted), lblTicked});
  line->AddWidgets(
      {MakeLabelFor(txtStatement, tr("    &Bank statement says")), txtStatement, lblDifference});
  return line;
}

QLayout* frmChequeReconciliation::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdPrintGrid});
  line->AddWidgets({cmdClose, cmdBank}, Qt::AlignRight);
  return line;
}

void frmChequeReconciliation::LayOut() {
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(MakeLabel(
      "lblNote",
      QStringLiteral("Tick cheques that appear on your bank statement and click \"Cleared\"..."),
      LabelRole::Muted));
  head->addStretch(1);
  head->addWidget(txtFilter);
  head->addWidget(chkTickUntickAll);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(head);
  column->addWidget(grdCheques, 1);
  column->addLayout(SumsLine());
  column->addLayout(CommandLine());
}

void frmChequeReconciliation::ConnectControls() {
  tools_.runner.OnClick(cmdBank, objectName(), [this] { ClearTicked(); });
  tools_.runner.OnClick(cmdPrintGrid, objectName(),
                        [this] { tools_.navigator.Open(ShownList(windowTitle(), grdCheques)); });
  cmdPrintGrid->setEnabled(tools_.navigator.CanOpen<PrintList>());
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(ticks_, &RowTicks::ticksChanged, this, &frmChequeReconciliation::ShowSums);
  connect(txtStatement, &CurrencyField::amountChosen, this, &frmChequeReconciliation::ShowSums);
}

void frmChequeReconciliation::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] { Load(); });
}

void frmChequeReconciliation::Load() {
  const auto ticked = ticks_->AllTickedKeys();
  const std::set<qint64> on(ticked.begin(), ticked.end());
  const auto selected = grdCheques->SelectedId<Purchase>();
  cheques_ = ListUnpresentedCheques(business_);
  std::vector<GridRow> rows;
  for (const UnpresentedCheque& cheque : cheques_)
    rows.push_back({{on.contains(cheque.purchase.Number()), cheque.purchase, cheque.chequeNumber,
                     cheque.supplierName, cheque.purchaseDate, cheque.amount}});
  grdCheques->SetRows(std::move(rows));
  ticks_->TakeRows();
  if (selected) grdCheques->SelectId(*selected);
  cmdBank->setEnabled(!cheques_.empty());
  ShowSums();
}

void frmChequeReconciliation::ShowSums() {
  const auto keys = ticks_->TickedKeys();
  const std::set<qint64> on(keys.begin(), keys.end());
  Money ticked;
  for (const UnpresentedCheque& cheque : cheques_)
    if (on.contains(cheque.purchase.Number())) ticked += cheque.amount;
  lblTicked->setText(tr("%1 in %2").arg(ticked.ToCurrencyText(), Counted(on.size(), "cheque")));
  const Money difference = txtStatement->Amount() - ticked;
  lblDifference->setText(difference == Money()
                             ? tr("they agree")
                             : tr("they differ by %1").arg(difference.ToCurrencyText()));
  lblDifference->setVisible(txtStatement->Amount() != Money());
}

void frmChequeReconciliation::ClearTicked() {
  ClearCheques(business_, ticks_->TickedIds<Purchase>());
  Load();
}

bool frmChequeReconciliation::MayClose() {
  return MayLeaveTicked(business_.World().prompter, ticks_->AllTickedKeys().size());
}

}  // namespace quillary::accounts
