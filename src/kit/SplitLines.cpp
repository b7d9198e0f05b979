#include "kit/SplitLines.h"

#include "kit/ComboSearch.h"
#include "kit/CommandRunner.h"
#include "kit/CurrencyField.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QKeyEvent>

namespace quillary {

namespace {

constexpr int kLeastListHeight = 96;

QByteArray NameOf(const char* pattern, const QString& word) {
  return QString::fromLatin1(pattern).arg(word).toLatin1();
}

}  // namespace

SplitLines::SplitLines(const SplitWords& words) {
  MakeControls(words);
  LayOut(words);
  line_.Watch({account_, txtAccountAmount, txtAccountGST});
  connect(grid_, &Grid::selectedRowChanged, this, &SplitLines::ShowPickedLine);
  connect(txtAccountAmount, &CurrencyField::amountChosen, this, &SplitLines::ShowTax);
  connect(cmdTakeTheRest, &QPushButton::clicked, this, &SplitLines::TakeTheRest);
  for (QWidget* field : {static_cast<QWidget*>(txtAccountAmount),
                         static_cast<QWidget*>(txtAccountGST), static_cast<QWidget*>(account_)})
    field->installEventFilter(this);
}

void SplitLines::MakeControls(const SplitWords& words) {
  grid_ = new Grid(QLatin1StringView(words.gridName));
  grid_->SetColumns({{tr("%1 account").arg(words.word), ColumnKind::StrongText, 240},
                     {{}, ColumnKind::HiddenId},
                     {tr("Amount"), ColumnKind::Money, 104},
                     {words.taxName + QStringLiteral(" inc."), ColumnKind::Money, 88}});
  grid_->SetEmptyText(words.emptyWhat, words.emptyNext);
  // Takes what height is left and asks for no more, so that the screen fits on a small display.
  grid_->setMinimumHeight(kLeastListHeight);
  grid_->setSizePolicy(grid_->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
  lblAccountTotals = MakeLabel("lblAccountTotals", {}, LabelRole::Figure);
  lblLeftToSplit = MakeLabel("lblLeftToSplit", {}, LabelRole::Warning);
  account_ = ForField("ledgerAccount",
                      Named(new ComboSearch, NameOf("cmb%1Account", words.word).constData()));
  txtAccountAmount = Named(new CurrencyField, "txtAccountAmount");
  txtAccountGST = Named(new CurrencyField, "txtAccountGST");
  cmdTakeTheRest = MakeButton("cmdTakeTheRest", tr("&Take the rest"));
  cmdTakeTheRest->setToolTip(tr("Puts what is still to be split into the amount of the line"));
  cmdTakeTheRest->setVisible(words.mustMatch);
  lblLeftToSplit->setVisible(words.mustMatch);
  remove_ = MakeButton(NameOf("cmdRemove%1Account", words.word).constData(), tr("Remo&ve"),
                       ButtonKind::Danger);
  update_ =
      MakeButton(NameOf("cmdUpdate%1Account", words.word).constData(), tr("Appl&y to selected"));
  add_ = MakeButton(NameOf("cmdAdd%1Account", words.word).constData(), tr("A&dd"));
}

QBoxLayout* SplitLines::Head(const SplitWords& words) {
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(MakeLabelFor(grid_, words.title));
  head->addStretch(1);
  head->addWidget(lblLeftToSplit);
  head->addWidget(lblAccountTotals);
  return head;
}

QBoxLayout* SplitLines::CommandLine() {
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(remove_);
  commands->addStretch(1);
  commands->addWidget(cmdTakeTheRest);
  commands->addWidget(update_);
  commands->addWidget(add_);
  commands_ = commands;
  return commands;
}

void SplitLines::LayOut(const SplitWords& words) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addLayout(Head(words));
  column->addWidget(grid_, 1);
  column->addLayout(
      InLine({{LabelOver(account_, words.accountLabel), 2},
              {LabelOver(txtAccountAmount, tr("&Line amount")), 1},
              {LabelOver(txtAccountGST, tr("%1 inc. (&within)").arg(words.taxName)), 1}}));
  column->addLayout(CommandLine());
}

QComboBox* SplitLines::AccountCombo() const {
  return account_;
}

void SplitLines::RunCommands(CommandRunner& runner, const QString& form, Commands commands) {
  runner.OnClick(add_, form, std::move(commands.add));
  runner.OnClick(update_, form, std::move(commands.update));
  runner.OnClick(remove_, form, std::move(commands.remove));
}

void SplitLines::SetWhole(Money whole) {
  whole_ = whole.Rounded(2);
  ShowLeft();
}

void SplitLines::Show(std::vector<SplitLine> lines) {
  lines_ = std::move(lines);
  total_ = {};
  std::vector<GridRow> rows;
  for (const SplitLine& line : lines_) {
    rows.push_back({{line.accountName, line.key, line.amount, line.tax}});
    total_ += line.amount;
  }
  grid_->SetRows(std::move(rows));
  lblAccountTotals->setText(tr("Total = %1").arg(total_.ToCurrencyText()));
  ShowLeft();
  ShowPickedLine();
}

void SplitLines::ShowLeft() {
  const Money left = LeftToSplit();
  lblLeftToSplit->setText(left == Money() ? QString()
                                          : tr("Still to be split: %1").arg(left.ToCurrencyText()));
  cmdTakeTheRest->setEnabled(left != Money());
}

void SplitLines::ShowPickedLine() {
  const auto row = grid_->SelectedRow();
  const SplitLine* line = row ? &lines_[static_cast<size_t>(*row)] : nullptr;
  SelectComboItem(account_, line ? line->account : std::nullopt);
  txtAccountAmount->SetAmount(line ? line->amount : Money());
  txtAccountGST->SetAmount(line ? line->tax : Money());
  line_.ClearDataChanged();
}

void SplitLines::ShowTax() {
  if (taxWithin_) txtAccountGST->SetAmount(taxWithin_(txtAccountAmount->Amount()));
}

void SplitLines::TakeTheRest() {
  // Of a line that is picked the rest comes on top of what it has.
  const auto row = grid_->SelectedRow();
  const Money own = row ? lines_[static_cast<size_t>(*row)].amount : Money();
  txtAccountAmount->SetAmount(LeftToSplit() + own);
  ShowTax();
  (TypedAccount() ? static_cast<QWidget*>(txtAccountAmount) : account_)->setFocus();
}

void SplitLines::ProposeAccount(std::optional<Id<Account>> account) {
  SelectComboItem(account_, account);
  line_.TakeAsStored(account_);
}

void SplitLines::ProposeAmount(Money amount) {
  txtAccountAmount->SetAmount(amount);
  ShowTax();
  line_.TakeAsStored(txtAccountAmount);
  line_.TakeAsStored(txtAccountGST);
}

std::optional<qint64> SplitLines::PickedKey() const {
  const auto row = grid_->SelectedRow();
  if (!row) return std::nullopt;
  return grid_->Key(*row);
}

std::optional<Id<Account>> SplitLines::TypedAccount() const {
  return ComboId<Account>(account_);
}

Money SplitLines::TypedAmount() const {
  return txtAccountAmount->Amount();
}

Money SplitLines::TypedTax() const {
  return txtAccountGST->Amount();
}

void SplitLines::FocusAccount() {
  account_->setFocus();
}

void SplitLines::FocusList() {
  grid_->setFocus();
}

bool SplitLines::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return QWidget::eventFilter(watched, event);
  // Enter stores the line that is being typed; it must not save and close over it.
  grid_->setFocus();
  (grid_->SelectedRow() ? update_ : add_)->click();
  return true;
}

}  // namespace quillary
