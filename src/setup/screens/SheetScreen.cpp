#include "setup/screens/SheetScreen.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "setup/sheets/Delimited.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTimer>

namespace quillary::setup {

SheetScreen::SheetScreen(SheetDeclaration sheet, Business& business, const ScreenTools& tools)
    : Screen(QString::fromLatin1(sheet.name), sheet.title),
      sheet_(std::move(sheet)),
      business_(business),
      tools_(tools) {
  grid_ = new Grid(sheet_.gridName);
  grid_->setAccessibleName(sheet_.title);
  grid_->setSelectionBehavior(QAbstractItemView::SelectItems);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setTabKeyNavigation(true);  // to the next cell, as in any sheet; Ctrl+Tab leaves it
  grid_->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                         QAbstractItemView::EditKeyPressed);
  grid_->RememberIn(business.World().settings);
  grid_->SetEmptyText(tr("There is nobody here yet."), tr("Enter clients first."));
  txtFilter = MakeFilterBox(this);
  grid_->FilterBy(txtFilter);
  lblOutcome = MakeLabel("lblOutcome", {}, LabelRole::Hint);
  cmdPaste = MakeButton("cmdPaste", tr("&Paste from a spreadsheet"));
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  LayOut();
  ConnectControls();
  setFocusProxy(grid_);
}

void SheetScreen::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(8);
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(MakeParagraph("lblAbout", sheet_.about, LabelRole::Hint), 1);
  txtFilter->setFixedWidth(240);
  head->addWidget(txtFilter);
  column->addLayout(head);
  column->addWidget(grid_, 1);
  auto* foot = new QHBoxLayout;
  foot->setSpacing(8);
  foot->addWidget(lblOutcome, 1);
  commands_ = new QHBoxLayout;
  commands_->setSpacing(8);
  foot->addLayout(commands_);
  foot->addWidget(cmdPaste);
  foot->addWidget(cmdClose);
  column->addLayout(foot);
}

void SheetScreen::ConnectControls() {
  grid_->installEventFilter(this);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grid_, &Grid::edited, this, [this](int row, int column, const Value& value) {
    TypeCell(row, column, value.ToText());
  });
  tools_.runner.OnClick(cmdPaste, objectName(), [this] { Paste(); });
}

void SheetScreen::AddCommand(QPushButton* command) {
  commands_->addWidget(command);
}

void SheetScreen::Reload() {
  const std::vector<SheetColumn> columns = sheet_.columns();
  std::vector<GridColumn> shown;
  for (size_t at = 0; at < columns.size(); ++at)
    shown.push_back({QString::fromLatin1(columns[at].title),
                     at == 0 ? ColumnKind::StrongText : ColumnKind::Text, columns[at].width,
                     static_cast<int>(at) >= sheet_.firstTyped});
  shown.push_back({{}, ColumnKind::HiddenId});
  const QModelIndex cursor = grid_->currentIndex();
  const std::optional<qint64> key =
      cursor.isValid() ? std::optional(KeyShownIn(cursor.row())) : std::nullopt;
  if (grid_->model()->columnCount() != static_cast<int>(shown.size())) grid_->SetColumns(shown);
  for (size_t at = 0; at < columns.size(); ++at) {
    std::vector<GridChoice> choices;
    for (const QString& word : columns[at].choices) choices.push_back({Value(word), word});
    grid_->SetChoices(static_cast<int>(at), std::move(choices));
  }
  std::vector<GridRow> rows;
  for (const SheetRow& row : sheet_.load()) {
    GridRow gridRow;
    for (const QString& cell : row.cells) gridRow.cells.emplace_back(Value(cell));
    gridRow.cells.emplace_back(Value(row.key));
    rows.push_back(std::move(gridRow));
  }
  if (sheet_.growing) {
    GridRow empty;
    for (size_t at = 0; at < columns.size(); ++at) empty.cells.emplace_back(Value(QString()));
    empty.cells.emplace_back(Value(qint64{0}));
    rows.push_back(std::move(empty));
  }
  grid_->SetRows(std::move(rows));
  GoTo(key, cursor.isValid() ? cursor.column() : sheet_.firstTyped, 0);
}

bool SheetScreen::eventFilter(QObject* watched, QEvent* event) {
  // While a cell is edited the editor has the focus, and its keys are its own.
  if (watched == grid_ && event->type() == QEvent::KeyPress && grid_->hasFocus()) {
    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->matches(QKeySequence::Paste)) {
      cmdPaste->click();
      return true;
    }
    if (press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter) {
      const QModelIndex at = grid_->currentIndex();
      if (at.isValid()) grid_->edit(at);
      return true;
    }
  }
  return Screen::eventFilter(watched, event);
}

qint64 SheetScreen::KeyShownIn(int row) const {
  const int column = grid_->model()->columnCount() - 1;
  return grid_->model()->index(row, column).data(kValueRole).value<Value>().ToLong();
}

std::vector<qint64> SheetScreen::KeysFromCursor() const {
  std::vector<qint64> keys;
  for (int row = qMax(grid_->currentIndex().row(), 0); row < grid_->model()->rowCount(); ++row)
    if (const qint64 key = KeyShownIn(row)) keys.push_back(key);
  return keys;
}

void SheetScreen::TypeCell(int row, int column, const QString& typed) {
  const qint64 key = grid_->Key(row);
  SheetBlock block{.keys = {}, .firstColumn = column, .rows = {{typed}}};
  if (key != 0) block.keys.push_back(key);
  // The cell is still being left; the rows may be loaded again only after that.
  QTimer::singleShot(0, this, [this, block] {
    tools_.runner.Run(objectName(), grid_->objectName() + QStringLiteral("_AfterEdit"),
                      [&] { Write(block, false); });
  });
}

void SheetScreen::Paste() {
  const QString text = QApplication::clipboard()->text();
  SheetBlock block{.keys = KeysFromCursor(),
                   .firstColumn = qMax(grid_->currentIndex().column(), sheet_.firstTyped),
                   .rows = ParseDelimited(text, text.contains(u'\t') ? u'\t' : SeparatorOf(text))};
  if (block.rows.empty()) {
    business_.World().prompter.Tell(
        Tone::Information,
        tr("There is nothing to paste. Copy rows in a spreadsheet first, without their titles, and "
           "put the cursor into the cell where they begin."));
    return;
  }
  Write(block, true);
}

void SheetScreen::Write(const SheetBlock& block, bool told) {
  const SheetOutcome outcome = sheet_.write(block);
  const QString words = outcome.InWords(sheet_.one, sheet_.many);
  Reload();
  lblOutcome->setText(words.section(u'\n', 0, 0));
  if (!outcome.troubles.empty())
    business_.World().prompter.Tell(Tone::Exclamation,
                                    told ? words : outcome.troubles.front().message);
  const bool taken = outcome.troubles.empty();
  if (taken) business_.PastCommands().Describe(sheet_.title + QStringLiteral(": ") + words);
  GoTo(outcome.lastKey, block.firstColumn, 0);
}

void SheetScreen::GoTo(std::optional<qint64> key, int column, int down) {
  const int last = grid_->model()->rowCount() - 1;
  for (int row = 0; key && row <= last; ++row) {
    if (KeyShownIn(row) != *key) continue;
    grid_->setCurrentIndex(grid_->model()->index(qMin(row + down, last), column));
    return;
  }
  if (!grid_->currentIndex().isValid() && last >= 0)
    grid_->setCurrentIndex(grid_->model()->index(0, column));
}

}  // namespace quillary::setup
