#include "accounts/screens/LedgerAccountsPage.h"

#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"

namespace quillary::accounts {

namespace {

// The widths of the columns of General_Ledger_Accounts.
constexpr int kNameWidth = 100;
constexpr int kNumberWidth = 20;
constexpr int kFieldColumnWidth = 320;

}  // namespace

LedgerAccountsPage::LedgerAccountsPage(Business& business, const ScreenTools& tools,
                                       LedgerAccountType type)
    : business_(business), tools_(tools), type_(type) {
  MakeControls();
  LayOut();
  state_.Watch({name_, number_});
  ConnectControls();
  setFocusProxy(grid_);
}

void LedgerAccountsPage::MakeControls() {
  const QString word = WordOf(type_);
  const auto named = [&](const char* pattern) { return QString(pattern).arg(word).toLatin1(); };
  const auto button = [&](const char* pattern, const QString& caption, ButtonKind kind) {
    return MakeButton(named(pattern).constData(), caption, kind);
  };
  filter_ = MakeFilterBox(this, named("txt%1Filter").constData());
  filter_->setFixedWidth(240);
  grid_ = new Grid(QStringLiteral("fg") + word);
  grid_->setAccessibleName(tr("%1 accounts").arg(word));
  grid_->SetColumns({{tr("Account"), ColumnKind::StrongText, 280},
                     {{}, ColumnKind::HiddenId},
                     {tr("Number"), ColumnKind::Text, 128},
                     {tr("Yearly budget"), ColumnKind::Money, 128}});
  grid_->SetEmptyText(tr("There are no accounts yet."),
                      tr("Fill in the name of an account and add it."));
  grid_->RememberIn(business_.World().settings);
  grid_->FilterBy(filter_);
  grid_->setMinimumHeight(120);
  name_ = ForField("name", Named(new QLineEdit, named("txt%1AccountName").constData()));
  number_ = ForField("number", Named(new QLineEdit, named("txt%1AccountNo").constData()));
  LimitTo(name_, kNameWidth);
  LimitTo(number_, kNumberWidth);
  for (QLineEdit* field : {name_, number_}) SelectAllText(field);
  delete_ = button("cmdDelete%1", tr("De&lete"), ButtonKind::Danger);
  cancel_ = button("cmdCancel%1", tr("Clear f&ields"), ButtonKind::Plain);
  insert_ = button("cmdInsert%1", tr("Add as ne&w"), ButtonKind::Plain);
  update_ = button("cmdUpdate%1", tr("&Update"), ButtonKind::Main);
}

QLayout* LedgerAccountsPage::FieldColumn() {
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(delete_);
  commands->addStretch(1);
  commands->addWidget(insert_);
  commands->addWidget(update_);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(name_, tr("Account na&me")));
  column->addLayout(LabelOver(number_, tr("Account num&ber")));
  column->addWidget(cancel_, 0, Qt::AlignLeft);
  column->addLayout(commands);
  column->addStretch(1);
  return column;
}

void LedgerAccountsPage::LayOut() {
  auto* over = new QHBoxLayout;
  over->addStretch(1);
  over->addWidget(filter_);
  auto* listed = new QVBoxLayout;
  listed->setSpacing(12);
  listed->addLayout(over);
  listed->addWidget(grid_, 1);
  auto* fields = new QWidget;
  fields->setFixedWidth(kFieldColumnWidth);
  QLayout* column = FieldColumn();
  column->setContentsMargins(0, 0, 0, 0);
  fields->setLayout(column);
  auto* body = new QHBoxLayout(this);
  body->setContentsMargins(0, 12, 0, 0);
  body->setSpacing(16);
  body->addLayout(listed, 1);
  body->addWidget(fields);
}

void LedgerAccountsPage::ConnectControls() {
  const auto on = [this](QPushButton* button, QKeySequence::StandardKey keys,
                         std::function<void()> command) {
    tools_.runner.OnClick(button, QStringLiteral("frmGeneralLedgerAccounts"), std::move(command));
    if (keys == QKeySequence::UnknownKey) return;
    AddShortcut(this, keys, button);
  };
  on(insert_, QKeySequence::New, [this] { Store(InsertLedgerAccount(business_, type_, Typed())); });
  on(update_, QKeySequence::Save,
     [this] { Store(UpdateLedgerAccount(business_, type_, Chosen(), Typed())); });
  on(delete_, QKeySequence::UnknownKey,
     [this] { Store(DeleteLedgerAccount(business_, Chosen())); });
  on(cancel_, QKeySequence::UnknownKey, [this] { Clear(); });
  connect(grid_, &Grid::selectedRowChanged, this, &LedgerAccountsPage::ShowChosen);
}

size_t LedgerAccountsPage::Load() {
  const auto kept = Chosen();
  std::vector<GridRow> rows;
  for (const LedgerAccount& account : ListLedgerAccounts(business_, type_))
    rows.push_back({{account.name, account.account, account.number, account.budgetAmount}});
  const size_t count = rows.size();
  grid_->SetRows(std::move(rows));
  if (kept) grid_->SelectId(*kept);
  ShowChosen();
  emit counted(count);
  return count;
}

void LedgerAccountsPage::ShowChosen() {
  const auto row = grid_->SelectedRow();
  const GridRow* account = row ? &grid_->Rows()[static_cast<size_t>(*row)] : nullptr;
  name_->setText(account ? account->cells[0].value.ToText() : QString());
  number_->setText(account ? account->cells[2].value.ToText() : QString());
  state_.ClearDataChanged();
}

std::optional<Id<Account>> LedgerAccountsPage::Chosen() const {
  return grid_->SelectedId<Account>();
}

LedgerAccountForm LedgerAccountsPage::Typed() const {
  return {name_->text(), number_->text()};
}

void LedgerAccountsPage::Store(const std::optional<Refusal>& refusal) {
  if (!Accepted(business_.World().prompter, this, refusal)) {
    if (refusal->field.isEmpty()) grid_->setFocus();
    return;
  }
  Clear();
  Load();
}

void LedgerAccountsPage::Clear() {
  grid_->clearSelection();
  ShowChosen();
  name_->setFocus();
}

}  // namespace quillary::accounts
