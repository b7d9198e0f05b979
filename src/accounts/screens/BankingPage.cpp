#include "accounts/screens/BankingPage.h"

#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include <set>

namespace quillary::accounts {

namespace {

constexpr int kTickColumn = 0;

/// What the controls of a page are called.
struct PageNames {
  const char* grid;
  const char* received;
  const char* deposited;
  const char* undeposited;
  const char* tickAll;
  const char* filter;
};

const PageNames& NamesOf(PaymentGroup kind) {
  static constexpr PageNames cash = {"grdCash",          "lblCashReceived",
                                     "lblCashTicked",    "txtCashAmountUnDeposited",
                                     "chkTickUntickAll", "txtCashFilter"};
  static constexpr PageNames cheques = {"grdCheques",
                                        "lblTotalChequeAmount",
                                        "txtChequeAmountDeposited",
                                        "txtChequeAmountUnDeposited",
                                        "chkTickUntickAll2",
                                        "txtChequeFilter"};
  static constexpr PageNames cards = {"grdVisa_Master",
                                      "lblVisa_and_Master_Received",
                                      "txtVisa_and_Master_Amount_Deposited",
                                      "txtVisa_and_Master_Amount_UnDeposited",
                                      "chkTickUntickAll3",
                                      "txtVisa_and_Master_Filter"};
  return kind == PaymentGroup::BankedAsCash     ? cash
         : kind == PaymentGroup::BankedAsCheque ? cheques
                                                : cards;
}

std::vector<GridColumn> PageColumns(PaymentGroup kind) {
  std::vector<GridColumn> columns = {{{}, ColumnKind::Tick, 40},
                                     {{}, ColumnKind::HiddenId},
                                     {QObject::tr("Date"), ColumnKind::Date, 112},
                                     {QObject::tr("Client"), ColumnKind::StrongText, 232}};
  if (kind == PaymentGroup::BankedAsCheque) {
    for (const QString& title : {QObject::tr("Cheque"), QObject::tr("Bank"), QObject::tr("Branch"),
                                 QObject::tr("Account name")})
      columns.push_back({title, ColumnKind::Text, 96});
  }
  columns.push_back({QObject::tr("Amount"), ColumnKind::Money, 104});
  return columns;
}

GridRow RowOfPayment(PaymentGroup kind, const BankablePayment& payment, bool ticked) {
  GridRow row;
  row.cells = {ticked, payment.payment, payment.paymentDate, payment.displayName};
  if (kind == PaymentGroup::BankedAsCheque) {
    for (const QString& text :
         {payment.chequeNumber, payment.bank, payment.bankBranch, payment.bankAccountName})
      row.cells.emplace_back(text);
  }
  row.cells.emplace_back(payment.amount);
  if (payment.lostItsDeposit) {
    row.hue = Hue::Yellow;
    row.note = QObject::tr("It was banked, but its deposit has been deleted.");
  }
  return row;
}

QWidget* Figure(const QString& words, QLabel* figure) {
  auto* widget = new QWidget;
  auto* pair = new QVBoxLayout(widget);
  pair->setContentsMargins(0, 0, 24, 0);
  pair->setSpacing(0);
  pair->addWidget(MakeLabel("", words, LabelRole::Muted));
  pair->addWidget(figure);
  return widget;
}

}  // namespace

BankingPage::BankingPage(PaymentGroup kind) : kind_(kind) {
  MakeControls();
  LayOut();
  connect(ticks_, &RowTicks::ticksChanged, this, [this] {
    ShowSums();
    emit ticksChanged();
  });
  setFocusProxy(grid_);
}

void BankingPage::MakeControls() {
  const PageNames& names = NamesOf(kind_);
  const auto figure = [](const char* name, const QString& heardAs) {
    return Named(MakeLabel("", {}, LabelRole::Figure), name, heardAs);
  };
  received = figure(names.received, tr("Received"));
  deposited = figure(names.deposited, tr("Ticked"));
  deposited->setProperty("tone", QStringLiteral("accent"));
  undeposited = figure(names.undeposited, tr("Left over"));
  tickAll = MakeTickAllBox(names.tickAll);
  filter = MakeFilterBox(this, names.filter);
  filter->setFixedWidth(160);
  grid_ = new Grid(QLatin1StringView(names.grid));
  grid_->setAccessibleName(tr("Payments to bank"));
  grid_->SetColumns(PageColumns(kind_));
  grid_->SetEmptyText(tr("There is nothing of this kind to bank."),
                      tr("What was banked before can be loaded from the list of deposits."));
  grid_->FilterBy(filter);
  grid_->setMinimumHeight(120);
  ticks_ = new RowTicks(grid_, kTickColumn, tickAll);
}

void BankingPage::LayOut() {
  commands_ = new FlowLayout;
  commands_->AddWidgets({Figure(tr("Received"), received), Figure(tr("Ticked"), deposited),
                         Figure(tr("Left over"), undeposited)});
  commands_->AddWidgets({filter, tickAll}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 12, 0, 0);
  column->setSpacing(12);
  column->addLayout(commands_);
  column->addWidget(grid_, 1);
}

void BankingPage::AddCommand(QPushButton* command) {
  commands_->AddWidget(command, Qt::AlignRight);
}

void BankingPage::RememberIn(SettingsStore& settings) {
  grid_->RememberIn(settings);
}

void BankingPage::ShowCurrent(const std::vector<BankablePayment>& payments, bool keepTicks) {
  Show(payments, keepTicks ? ticks_->AllTickedKeys() : std::vector<qint64>());
}

void BankingPage::ShowDeposited(const std::vector<BankablePayment>& payments) {
  std::vector<qint64> all;
  for (const BankablePayment& payment : payments) all.push_back(payment.payment.Number());
  Show(payments, all);
}

void BankingPage::Show(const std::vector<BankablePayment>& payments,
                       const std::vector<qint64>& ticked) {
  const auto selected = grid_->SelectedId<Payment>();
  payments_ = payments;
  received_ = SumOf(payments_);
  const std::set<qint64> on(ticked.begin(), ticked.end());
  std::vector<GridRow> rows;
  rows.reserve(payments_.size());
  for (const BankablePayment& payment : payments_)
    rows.push_back(RowOfPayment(kind_, payment, on.contains(payment.payment.Number())));
  grid_->SetRows(std::move(rows));
  ticks_->TakeRows();
  if (selected) grid_->SelectId(*selected);
  ShowSums();
}

BankedPayments BankingPage::Payments() const {
  BankedPayments banked;
  const auto keys = ticks_->AllTickedKeys();
  const std::set<qint64> on(keys.begin(), keys.end());
  for (const BankablePayment& payment : payments_)
    (on.contains(payment.payment.Number()) ? banked.ticked : banked.unticked)
        .push_back(payment.payment);
  return banked;
}

bool BankingPage::HasTicks() const {
  return !ticks_->AllTickedKeys().empty();
}

void BankingPage::ShowSums() {
  const auto keys = ticks_->AllTickedKeys();
  const std::set<qint64> on(keys.begin(), keys.end());
  ticked_ = {};
  for (const BankablePayment& payment : payments_)
    if (on.contains(payment.payment.Number())) ticked_ += payment.amount;
  received->setText(received_.ToCurrencyText());
  deposited->setText(ticked_.ToCurrencyText());
  ShowBanked(ticked_);
}

void BankingPage::ShowBanked(Money banked) {
  undeposited->setText((received_ - banked).ToCurrencyText());
}

}  // namespace quillary::accounts
