#include "kit/RecordList.h"

#include "kit/Layouts.h"
#include "kit/Shortcuts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace quillary {

namespace {

constexpr int kFieldColumnWidth = 320;
/// A list without fields needs no more than this; a wider one would tear its few words apart.
constexpr int kNarrowList = 560;

}  // namespace

RecordListScreen::RecordListScreen(RecordList list, const ScreenTools& tools, const Outside& world)
    : Screen(QLatin1StringView(list.name), list.title),
      list_(std::move(list)),
      tools_(tools),
      world_(world) {
  MakeControls();
  LayOut();
  state_.Watch(fields_.Controls());
  ConnectControls();
  if (list_.settle) list_.settle(fields_);
  setFocusProxy(grid_);
}

void RecordListScreen::MakeControls() {
  grid_ = ForField(list_.gridField, new Grid(list_.gridName));
  grid_->setAccessibleName(list_.title);
  grid_->SetColumns(list_.columns);
  grid_->SetEmptyText(list_.emptyWhat, list_.emptyNext);
  grid_->RememberIn(world_.settings);
  txtFilter = MakeFilterBox(this);
  txtFilter->setMaximumWidth(240);
  grid_->FilterBy(txtFilter);
  const auto make = [](const RecordCommand& of, ButtonKind kind) {
    return MakeButton(of.name, of.caption, kind);
  };
  if (list_.insert)
    cmdInsert = make(list_.insertCommand, list_.update ? ButtonKind::Plain : ButtonKind::Main);
  if (list_.update) cmdUpdate = make(list_.updateCommand, ButtonKind::Main);
  if (list_.remove) cmdDelete = make(list_.deleteCommand, ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

QBoxLayout* RecordListScreen::ListColumn() {
  auto* over = new QHBoxLayout;
  over->setSpacing(8);
  if (list_.overList) over->addWidget(list_.overList());
  over->addStretch(1);
  over->addWidget(txtFilter, 1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grid_, 1);
  if (!list_.hint.isEmpty())
    column->addWidget(MakeParagraph("lblHint", list_.hint, LabelRole::Hint));
  grid_->setMinimumHeight(104);
  listColumn_ = column;
  return column;
}

QWidget* RecordListScreen::FieldArea() {
  auto* fields = new QWidget;
  auto* column = new QVBoxLayout(fields);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(12);
  fields_.Build(list_.fields, column);
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidget(fields);
  // The commands follow the last field; only a display that is too small makes the fields scroll.
  area->setMaximumHeight(fields->sizeHint().height());
  return area;
}

QBoxLayout* RecordListScreen::FieldColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  if (!list_.fields.empty()) column->addWidget(FieldArea(), 1);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  if (cmdDelete) line->addWidget(cmdDelete);
  line->addStretch(1);
  if (cmdInsert) line->addWidget(cmdInsert);
  if (cmdUpdate) line->addWidget(cmdUpdate);
  column->addLayout(line);
  if (!list_.fields.empty()) column->addStretch();
  return column;
}

QBoxLayout* RecordListScreen::CommandLine() {
  commands_ = new QHBoxLayout;
  commands_->setSpacing(8);
  commands_->addStretch(1);
  commands_->addWidget(cmdClose);
  return commands_;
}

void RecordListScreen::LayOut() {
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(16, 16, 16, 16);
  all->setSpacing(16);
  if (!list_.about.isEmpty())
    all->addWidget(MakeParagraph("lblAbout", list_.about, LabelRole::Muted));

  QBoxLayout* body = nullptr;
  auto* holder = new QWidget;
  auto* fields = new QWidget;
  if (list_.fields.empty()) {
    body = new QVBoxLayout(holder);
    body->setSpacing(12);
    holder->setMaximumWidth(kNarrowList);
  } else {
    body = new QHBoxLayout(holder);
    body->setSpacing(16);
    fields->setFixedWidth(kFieldColumnWidth);
  }
  body->setContentsMargins(0, 0, 0, 0);
  body->addLayout(ListColumn(), 1);
  QBoxLayout* column = FieldColumn();
  column->setContentsMargins(0, 0, 0, 0);
  fields->setLayout(column);
  body->addWidget(fields);
  all->addWidget(holder, 1);
  all->addLayout(CommandLine());
}

void RecordListScreen::AddCommand(QPushButton* command) {
  commands_->insertWidget(commands_->count() - 2, command);
  setTabOrder(command, cmdClose);
}

void RecordListScreen::ConnectControls() {
  const auto on = [this](QPushButton* button, QKeySequence::StandardKey keys,
                         void (RecordListScreen::*command)()) {
    if (!button) return;
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
    if (keys == QKeySequence::UnknownKey) return;
    AddShortcut(this, keys, button);
  };
  on(cmdInsert, QKeySequence::New, &RecordListScreen::Insert);
  on(cmdUpdate, QKeySequence::Save, &RecordListScreen::Update);
  on(cmdDelete, QKeySequence::UnknownKey, &RecordListScreen::Delete);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grid_, &Grid::selectedRowChanged, this, &RecordListScreen::ShowChosen);
  // Queued, because the editor that made the change is still open and goes with the old rows.
  connect(grid_, &Grid::edited, this, &RecordListScreen::EditCell, Qt::QueuedConnection);
  if (!list_.settle) return;
  for (QWidget* control : fields_.Controls()) {
    if (auto* tick = qobject_cast<QCheckBox*>(control))
      connect(tick, &QCheckBox::toggled, this, [this] { list_.settle(fields_); });
    else if (auto* choice = qobject_cast<QComboBox*>(control))
      connect(choice, &QComboBox::currentIndexChanged, this, [this] { list_.settle(fields_); });
  }
}

void RecordListScreen::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] {
    if (state_.IsDataChanged()) return;  // what is being typed is not taken away
    Load(ChosenKey());
  });
}

void RecordListScreen::ShowOthers() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] {
    grid_->SetRows(list_.load());
    if (!state_.IsDataChanged()) ShowChosen();
    emit loaded();
  });
}

bool RecordListScreen::MayClose() {
  return !state_.IsDataChanged() ||
         world_.prompter.AskBeforeLosing(QStringLiteral("Close without saving changes?")) ==
             Answer::Yes;
}

void RecordListScreen::Load(std::optional<qint64> select) {
  grid_->SetRows(list_.load());
  if (select) grid_->SelectKey(*select);
  ShowChosen();
  emit loaded();
}

void RecordListScreen::ShowChosen() {
  const auto row = grid_->SelectedRow();
  fields_.Show(row ? &grid_->Rows()[static_cast<size_t>(*row)] : nullptr);
  if (list_.settle) list_.settle(fields_);
  state_.ClearDataChanged();
}

std::optional<qint64> RecordListScreen::ChosenKey() const {
  const auto row = grid_->SelectedRow();
  if (!row) return std::nullopt;
  return grid_->Key(*row);
}

bool RecordListScreen::MayRun(const RecordCommand& command, bool needsRecord) {
  if (needsRecord && !command.noneChosen.isEmpty() && !ChosenKey()) {
    world_.prompter.Tell(Tone::Exclamation, command.noneChosen);
    grid_->setFocus();
    return false;
  }
  return command.question.isEmpty() ||
         world_.prompter.AskBeforeLosing(command.question) == Answer::Yes;
}

bool RecordListScreen::MayStore(const std::optional<Refusal>& refusal) {
  if (Accepted(world_.prompter, this, refusal)) return true;
  if (refusal->field.isEmpty()) grid_->setFocus();
  return false;
}

std::optional<qint64> RecordListScreen::KeyNotIn(const std::vector<qint64>& before) const {
  for (const qint64 key : grid_->Keys())
    if (std::ranges::find(before, key) == before.end()) return key;
  return std::nullopt;
}

void RecordListScreen::Insert() {
  if (list_.check && !MayStore(list_.check(fields_))) return;
  if (!MayRun(list_.insertCommand, false)) return;
  const std::vector<qint64> before = grid_->Keys();
  if (!MayStore(list_.insert(fields_))) return;
  Load(std::nullopt);
  if (const auto added = KeyNotIn(before)) grid_->SelectKey(*added);
  if (list_.editCell) EditChosen();
}

void RecordListScreen::Update() {
  const auto key = ChosenKey();
  if (list_.check && !MayStore(list_.check(fields_))) return;
  if (!MayRun(list_.updateCommand, true)) return;
  if (MayStore(list_.update(key, fields_))) Load(key);
}

void RecordListScreen::Delete() {
  const auto key = ChosenKey();
  if (!MayRun(list_.deleteCommand, true)) return;
  if (MayStore(list_.remove(key))) Load(key);  // it is still there when the user declined
}

void RecordListScreen::EditChosen() {
  for (size_t column = 0; column < list_.columns.size(); ++column) {
    if (!list_.columns[column].editable || !grid_->currentIndex().isValid()) continue;
    grid_->setFocus();
    grid_->setCurrentIndex(grid_->currentIndex().siblingAtColumn(static_cast<int>(column)));
    grid_->edit(grid_->currentIndex());
    return;
  }
}

void RecordListScreen::EditCell(int row, int column, const Value& value) {
  if (!list_.editCell) return;
  tools_.runner.Run(objectName(), grid_->objectName() + QStringLiteral("_AfterEdit"), [&] {
    const qint64 key = grid_->Key(row);
    if (!MayStore(list_.editCell(key, column, value))) {
      grid_->SelectKey(key);
      EditChosen();
      return;
    }
    Load(key);
    grid_->setFocus();
  });
}

}  // namespace quillary
