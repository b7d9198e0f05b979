#include "balances/screens/frmDebtors.h"

#include "balances/ClientBalance.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "kit/Combos.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/PageTabs.h"
#include "kit/RowTicks.h"
#include "kit/ShownList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

namespace quillary::balances {

namespace {

const char* const kNote =
    "Note: Amount owing of client is being calculated by subtracting the Total amount of Payments "
    "from Total amount of Jobs done.";

std::vector<GridColumn> Columns() {
  return {{{}, ColumnKind::Tick, 40},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Client"), ColumnKind::StrongText, 280},
          {QObject::tr("Status"), ColumnKind::Chip, 152},
          {QObject::tr("Phone"), ColumnKind::Text, 160},
          {QObject::tr("Invoice type"), ColumnKind::Text, 120},
          {QObject::tr("Since"), ColumnKind::Date, 104},
          {QObject::tr("Amount owing"), ColumnKind::Money, 136}};
}

GridRow RowOf(const DebtorRow& debtor) {
  GridRow row;
  row.cells = {false,         debtor.client,        debtor.displayName, debtor.status,
               debtor.phone1, debtor.statementType, debtor.since,       debtor.amountOwing};
  row.hue = HueOf(debtor.status);
  return row;
}

}  // namespace

frmDebtors::frmDebtors(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmDebtors"), QStringLiteral("Debtors/Creditors")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
}

Grid* frmDebtors::MakeGrid(const char* name, const QString& heardAs, QLineEdit* filter) {
  auto* grid = new Grid(QString::fromLatin1(name));
  grid->setAccessibleName(heardAs);
  grid->SetColumns(Columns());
  grid->RememberIn(business_.World().settings);
  grid->FilterBy(filter);
  grid->setMinimumHeight(120);
  filter->setFixedWidth(240);
  return grid;
}

void frmDebtors::MakeControls() {
  const bool canPrint = tools_.navigator.CanOpen<PrintList>();
  chkActiveClients = Named(new QCheckBox(tr("&Active clients only")), "chkActiveClients",
                           tr("Active clients only"));
  debtors_ = new QWidget;
  txtDebtorFilter = MakeFilterBox(debtors_, "txtDebtorFilter");
  grdDebtors = MakeGrid("grdDebtors", tr("Debtors"), txtDebtorFilter);
  grdDebtors->SetEmptyText(tr("Nobody owes anything."), {});
  cboAge = Named(new QComboBox, "cboAge");
  FillComboWithWords(cboAge, {tr("any time"), tr("up to 30 days"), tr("31 to 60 days"),
                              tr("61 to 90 days"), tr("over 90 days")});
  cboAge->setToolTip(tr("The newest jobs make up what is owed: payments go to the oldest first"));
  lblOwing = Named(MakeLabel("", {}, LabelRole::Figure), "lblOwing", tr("Owed by those listed"));
  chkTickUntickAll = MakeTickAllBox();
  ticks_ = new RowTicks(grdDebtors, 0, chkTickUntickAll);
  cmdRefreshDebtor =
      MakeButton("cmdRefreshDebtor", tr("R&efresh"), ButtonKind::Plain, "view-refresh");
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  txtNotes = Named(new QLineEdit, "txtNotes");
  chkShowPayment =
      Named(new QCheckBox(tr("Sho&w payments")), "chkShowPayment", tr("Show payments"));
  cmdPreview = MakeButton("cmdPreview", tr("Preview"));
  cmdPreview->setEnabled(false);  // reminders are printed from the invoices
  creditors_ = new QWidget;
  txtCreditorFilter = MakeFilterBox(creditors_, "txtCreditorFilter");
  grdCreditors = MakeGrid("grdCreditors", tr("Creditors"), txtCreditorFilter);
  grdCreditors->SetEmptyText(tr("Nobody has paid too much."), {});
  grdCreditors->setColumnHidden(0, true);  // there is nothing to tick them for
  cmdRefreshCreditor =
      MakeButton("cmdRefreshCreditor", tr("R&efresh"), ButtonKind::Plain, "view-refresh");
  cmdPrintGrid2 = MakeButton("cmdPrintGrid2", tr("&Print"), ButtonKind::Plain, "document-print");
  for (QPushButton* button : {cmdPrintGrid, cmdPrintGrid2}) button->setEnabled(canPrint);
  cmdClientsJobsAndPayments =
      MakeButton("cmdClientsJobsAndPayments", tr("Client's &jobs and payments..."));
  cmdClientsJobsAndPayments->setEnabled(tools_.navigator.CanOpen<OpenJobsAndPaymentChecker>());
  cmdAccountOfClient = MakeButton("cmdAccountOfClient", tr("Wh&y owing..."));
  cmdAccountOfClient->setToolTip(tr("Every job and payment, with what was owed after each"));
  cmdAccountOfClient->setEnabled(tools_.navigator.CanOpen<ShowAccountOfClient>());
  cmdRecalculateAmountOwing =
      MakeButton("cmdRecalculateAmountOwing", tr("Re-calculate amount &owing"));
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdViewClient = MakeButton("cmdViewClient", tr("Cl&ient details..."), ButtonKind::Main);
  cmdViewClient->setEnabled(tools_.navigator.CanOpen<OpenClient>());
}

QWidget* frmDebtors::ReminderFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Print reminder for ticked debtors"));
  frame->setObjectName(QStringLiteral("fraReminder"));
  auto* line = new QHBoxLayout(frame);
  line->setSpacing(8);
  line->addWidget(MakeLabelFor(txtNotes, tr("&Notes")));
  line->addWidget(txtNotes, 1);
  line->addWidget(chkShowPayment);
  line->addWidget(cmdPreview);
  return frame;
}

QWidget* frmDebtors::DebtorPage() {
  auto* over = new QHBoxLayout;
  over->setSpacing(8);
  over->addWidget(chkTickUntickAll);
  over->addSpacing(16);
  over->addWidget(MakeLabelFor(cboAge, tr("Owed &for")));
  over->addWidget(cboAge);
  over->addSpacing(16);
  over->addWidget(lblOwing);
  over->addStretch(1);
  over->addWidget(txtDebtorFilter);
  over->addWidget(cmdPrintGrid);
  over->addWidget(cmdRefreshDebtor);
  auto* column = new QVBoxLayout(debtors_);
  column->setContentsMargins(0, 12, 0, 0);
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grdDebtors, 1);
  column->addWidget(ReminderFrame());
  return debtors_;
}

QWidget* frmDebtors::CreditorPage() {
  auto* over = new QHBoxLayout;
  over->setSpacing(8);
  over->addStretch(1);
  over->addWidget(txtCreditorFilter);
  over->addWidget(cmdPrintGrid2);
  over->addWidget(cmdRefreshCreditor);
  auto* column = new QVBoxLayout(creditors_);
  column->setContentsMargins(0, 12, 0, 0);
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grdCreditors, 1);
  return creditors_;
}

QLayout* frmDebtors::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdAccountOfClient, cmdClientsJobsAndPayments, cmdRecalculateAmountOwing});
  line->AddWidgets({cmdClose, cmdViewClient}, Qt::AlignRight);
  return line;
}

void frmDebtors::LayOut() {
  pages_ = new PageTabs("pages", tr("Debtors and creditors"));
  pages_->AddPage(DebtorPage(), tr("Debtors"));
  pages_->AddPage(CreditorPage(), tr("Creditors"));
  auto* note = new QHBoxLayout;
  note->setSpacing(16);
  note->addWidget(MakeParagraph("lblNote", QString::fromLatin1(kNote)), 1);
  note->addWidget(chkActiveClients);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 16);
  column->setSpacing(12);
  column->addLayout(note);
  column->addWidget(pages_, 1);
  column->addLayout(CommandLine());
}

void frmDebtors::ConnectControls() {
  const auto onClick = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  onClick(cmdRefreshDebtor, [this] { LoadDebtorsIntoGrid(); });
  onClick(cmdRefreshCreditor, [this] { LoadCreditorsIntoGrid(); });
  onClick(cmdRecalculateAmountOwing, [this] { Recalculate(); });
  onClick(cmdPrintGrid, [this] { tools_.navigator.Open(ShownList(tr("Debtors"), grdDebtors)); });
  onClick(cmdPrintGrid2,
          [this] { tools_.navigator.Open(ShownList(tr("Creditors"), grdCreditors)); });
  onClick(cmdClientsJobsAndPayments,
          [this] { tools_.navigator.Open(OpenJobsAndPaymentChecker{}); });
  onClick(cmdAccountOfClient, [this] {
    const Grid* grid = pages_->IsShown(debtors_) ? grdDebtors : grdCreditors;
    if (const auto client = grid->SelectedId<Client>())
      tools_.navigator.Open(ShowAccountOfClient{client});
  });
  onClick(cmdViewClient,
          [this] { OpenClientOf(pages_->IsShown(debtors_) ? grdDebtors : grdCreditors); });
  connect(cboAge, &QComboBox::activated, this, &frmDebtors::Reload);
  connect(chkActiveClients, &QCheckBox::toggled, this, &frmDebtors::Reload);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  for (const Grid* grid : {grdDebtors, grdCreditors})
    connect(grid, &Grid::rowOpened, cmdViewClient, &QPushButton::click);
}

void frmDebtors::ShowYourself(std::optional<DebtAge> age) {
  SelectComboItem(cboAge, age ? static_cast<int>(*age) + 1 : 0);
  if (age) pages_->ShowPage(debtors_);
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] { Recalculate(); });
  grdDebtors->setFocus();
}

DebtorFilter frmDebtors::Filter() const {
  return chkActiveClients->isChecked() ? DebtorFilter::Active : DebtorFilter::All;
}

std::optional<DebtAge> frmDebtors::Age() const {
  const auto chosen = static_cast<int>(ComboKey(cboAge).value_or(0));
  if (chosen == 0) return std::nullopt;
  return static_cast<DebtAge>(chosen - 1);
}

size_t frmDebtors::Fill(Grid* grid, const std::vector<DebtorRow>& debtors) {
  const auto kept = grid->SelectedId<Client>();
  std::vector<GridRow> rows;
  for (const DebtorRow& debtor : debtors) rows.push_back(RowOf(debtor));
  grid->SetRows(std::move(rows));
  if (!kept || !grid->SelectId(*kept)) grid->SelectFirst();
  return debtors.size();
}

void frmDebtors::LoadDebtorsIntoGrid() {
  const auto age = Age();
  const std::vector<DebtorRow> debtors =
      age ? ListDebtors(business_, Filter(), *age) : ListDebtors(business_, Filter());
  pages_->SetCount(debtors_, Fill(grdDebtors, debtors));
  Money owing;
  for (const DebtorRow& debtor : debtors) owing += debtor.amountOwing;
  lblOwing->setText(tr("%1 owed").arg(owing.ToCurrencyText()));
  ticks_->TakeRows();
}

void frmDebtors::LoadCreditorsIntoGrid() {
  pages_->SetCount(creditors_, Fill(grdCreditors, ListCreditors(business_, Filter())));
}

void frmDebtors::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("LoadDebtorsIntoGrid"), [this] {
    LoadDebtorsIntoGrid();
    LoadCreditorsIntoGrid();
  });
}

void frmDebtors::OpenClientOf(const Grid* grid) {
  if (const auto client = grid->SelectedId<Client>()) tools_.navigator.Open(OpenClient{*client});
}

void frmDebtors::Recalculate() {
  const BusyWhile busy(business_.World().busy);
  RecalculateAmountOwingOfAllClients(business_);
  LoadDebtorsIntoGrid();
  LoadCreditorsIntoGrid();
}

}  // namespace quillary::balances
