#include "kit/RowTicks.h"

#include "kit/Grid.h"

#include <QCheckBox>
#include <QKeyEvent>

namespace quillary {

RowTicks::RowTicks(Grid* grid, int column, QCheckBox* tickAll)
    : QObject(grid), grid_(grid), column_(column), tickAll_(tickAll) {
  grid->installEventFilter(this);
  // Queued, because the rows are written anew while the view still answers the click.
  connect(
      grid, &QTableView::clicked, this,
      [this](const QModelIndex& at) {
        const auto row = grid_->SelectedRow();
        if (at.column() == column_ && row) Toggle(*row);
      },
      Qt::QueuedConnection);
  if (tickAll_) connect(tickAll_, &QCheckBox::clicked, this, &RowTicks::TickAll);
}

void RowTicks::TakeRows() {
  ShowAll();
}

bool RowTicks::IsTicked(int row) const {
  return grid_->Rows()[static_cast<size_t>(row)].cells[static_cast<size_t>(column_)].value.ToBool();
}

bool RowTicks::IsShown(int row) const {
  return !grid_->RowRect(row).isEmpty();
}

std::vector<qint64> RowTicks::TickedKeys() const {
  std::vector<qint64> keys;
  for (int row = 0; row < static_cast<int>(grid_->Rows().size()); ++row)
    if (IsTicked(row) && IsShown(row)) keys.push_back(grid_->Key(row));
  return keys;
}

std::vector<qint64> RowTicks::AllTickedKeys() const {
  std::vector<qint64> keys;
  for (int row = 0; row < static_cast<int>(grid_->Rows().size()); ++row)
    if (IsTicked(row)) keys.push_back(grid_->Key(row));
  return keys;
}

void RowTicks::TickAll(bool on) {
  std::vector<int> shown;
  for (int row = 0; row < static_cast<int>(grid_->Rows().size()); ++row)
    if (IsShown(row)) shown.push_back(row);
  Write(shown, on);
}

void RowTicks::Toggle(int row) {
  Write({row}, !IsTicked(row));
}

void RowTicks::Write(const std::vector<int>& rows, bool on) {
  grid_->SetCells(rows, column_, Value(on));
  ShowAll();
  emit ticksChanged();
}

void RowTicks::ShowAll() {
  if (!tickAll_) return;
  const QSignalBlocker quiet(tickAll_);
  const size_t rows = grid_->Rows().size();
  tickAll_->setEnabled(rows > 0);
  tickAll_->setChecked(rows > 0 && AllTickedKeys().size() == rows);
}

bool RowTicks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const auto row = grid_->SelectedRow();
  if (key->key() != Qt::Key_Space || key->modifiers() != Qt::NoModifier || !row)
    return QObject::eventFilter(watched, event);
  Toggle(*row);
  return true;
}

QCheckBox* MakeTickAllBox(const char* name) {
  auto* box = new QCheckBox(QStringLiteral("&Tick/Untick all"));
  box->setObjectName(QLatin1StringView(name));
  box->setAccessibleName(QStringLiteral("Tick/Untick all"));
  return box;
}

}  // namespace quillary
