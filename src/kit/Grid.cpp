#include "kit/Grid.h"

#include "base/ports/SettingsStore.h"
#include "kit/GridDelegate.h"
#include "kit/Screen.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace quillary {

Grid::Grid(const QString& name, QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)), view_(new GridView(this)) {
  setObjectName(name);
  view_->setSourceModel(model_);
  setModel(view_);
  setItemDelegate(new GridDelegate(this));
  setVerticalHeader(new HueHeader(this));
  setHorizontalHeader(new TitleHeader(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);  // Tab leaves the list; the arrow keys move in it
  setEditTriggers(DoubleClicked | EditKeyPressed);
  setHorizontalScrollMode(ScrollPerPixel);
  setSortingEnabled(true);

  connect(model_, &GridModel::edited, this, &Grid::edited);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &Grid::selectedRowChanged);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
    // The last column also changes with the window; only the user's hand makes a width his own.
    const bool byHand = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton) &&
                        horizontalHeader()->underMouse();
    if (fitting_ || !byHand) return;
    ownWidths_ = true;
    StoreLayout();
  });
  connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &Grid::StoreLayout);
}

void Grid::SetColumns(std::vector<GridColumn> columns) {
  fitting_ = true;
  model_->SetColumns(std::move(columns));
  keyColumn_ = -1;
  for (int column = 0; column < model_->columnCount(); ++column) {
    const GridColumn& declared = model_->Columns()[static_cast<size_t>(column)];
    const bool hidden = declared.kind == ColumnKind::HiddenId;
    setColumnHidden(column, hidden);
    setColumnWidth(column, declared.width);
    if (hidden && keyColumn_ < 0) keyColumn_ = column;
  }
  fitting_ = false;
  FitColumns();
}

void Grid::SetChoices(int column, std::vector<GridChoice> choices) {
  model_->SetChoices(column, std::move(choices));
}

void Grid::SetRows(std::vector<GridRow> rows) {
  if (currentIndex().isValid()) lastColumn_ = currentIndex().column();
  const int scrolled = verticalScrollBar()->value();
  model_->SetRows(std::move(rows));
  verticalScrollBar()->setValue(scrolled);
  FitColumns();
  viewport()->update();
}

void Grid::SetEmptyText(const QString& what, const QString& next) {
  emptyWhat_ = what;
  emptyNext_ = next;
}

void Grid::ShowColumn(int column, bool show) {
  fitting_ = true;  // not a width of the user's choice
  setColumnHidden(column, !show);
  fitting_ = false;
  FitColumns();
}

void Grid::AllowReordering() {
  reordering_ = true;
}

void Grid::AllowMarking() {
  setSelectionMode(ExtendedSelection);
}

void Grid::FilterBy(QLineEdit* box) {
  connect(box, &QLineEdit::textChanged, this, [this](const QString& typed) {
    view_->SetWords(typed);
    viewport()->update();
  });
}

void Grid::RememberIn(SettingsStore& settings) {
  settings_ = &settings;
}

std::optional<int> Grid::SelectedRow() const {
  const QModelIndexList rows = selectionModel()->selectedRows();
  if (rows.isEmpty()) return std::nullopt;
  const bool atCursor = selectionModel()->isRowSelected(currentIndex().row());
  return LoadedRow(atCursor ? currentIndex() : rows.first());
}

std::vector<int> Grid::MarkedRows() const {
  QModelIndexList marked = selectionModel()->selectedRows();
  std::ranges::sort(marked, {}, &QModelIndex::row);
  std::vector<int> rows;
  for (const QModelIndex& at : marked) rows.push_back(LoadedRow(at));
  return rows;
}

bool Grid::MarkKeys(const std::vector<qint64>& keys) {
  QItemSelection marked;
  std::optional<int> first;
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (std::ranges::find(keys, Key(row)) == keys.end()) continue;
    const QModelIndex at = view_->mapFromSource(model_->index(row, 0));
    if (!at.isValid()) continue;
    if (!first) first = row;
    marked.select(at, at);
  }
  if (!first) return false;
  SelectLoaded(*first);
  if (selectionMode() != SingleSelection)
    selectionModel()->select(marked,
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  return true;
}

qint64 Grid::Key(int row) const {
  if (keyColumn_ < 0) return row;
  const GridRow& at = model_->Rows()[static_cast<size_t>(row)];
  return at.cells[static_cast<size_t>(keyColumn_)].value.ToLong();
}

std::vector<qint64> Grid::Keys() const {
  std::vector<qint64> keys;
  for (int row = 0; row < model_->rowCount(); ++row) keys.push_back(Key(row));
  return keys;
}

std::vector<qint64> Grid::ShownKeys() const {
  std::vector<qint64> keys;
  for (int row = 0; row < model_->rowCount(); ++row)
    if (view_->mapFromSource(model_->index(row, 0)).isValid()) keys.push_back(Key(row));
  return keys;
}

bool Grid::SelectKey(qint64 key) {
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (Key(row) != key) continue;
    SelectLoaded(row);
    return SelectedRow().has_value();
  }
  return false;
}

void Grid::SelectFirst() {
  if (view_->rowCount() > 0) SelectLoaded(LoadedRow(view_->index(0, 0)));
}

void Grid::ClearSelectionAt(int row) {
  clearSelection();
  if (row < 0 || row >= model_->rowCount()) return;
  const int column = qMax(0, currentIndex().column());
  const QModelIndex at = view_->mapFromSource(model_->index(row, column));
  selectionModel()->setCurrentIndex(at, QItemSelectionModel::NoUpdate);
}

QRect Grid::RowRect(int row) const {
  const QModelIndex at = view_->mapFromSource(model_->index(row, 0));
  if (!at.isValid()) return {};
  return {0, rowViewportPosition(at.row()), viewport()->width(), rowHeight(at.row())};
}

void Grid::SelectLoaded(int row) {
  // On a hidden column the arrow keys would be dead, and a mark is nothing to edit.
  int column = currentIndex().isValid() ? currentIndex().column() : lastColumn_;
  if (column >= model_->columnCount() || isColumnHidden(column)) column = 0;
  while ((isColumnHidden(column) || IsMark(view_->index(0, column))) &&
         column + 1 < model_->columnCount())
    ++column;
  // Who hears of the selection may load other rows.
  const QPersistentModelIndex at = view_->mapFromSource(model_->index(row, column));
  if (!at.isValid()) return;
  selectionModel()->setCurrentIndex(
      at, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (at.isValid()) scrollTo(at);
}

int Grid::LoadedRow(const QModelIndex& shown) const {
  return view_->mapToSource(shown).row();
}

void Grid::FitColumns() {
  if (ownWidths_ || model_->columnCount() == 0) return;
  // The words get what the figures leave over, each by its declared width.
  int declared = 0;
  int words = 0;
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (isColumnHidden(column)) continue;
    const GridColumn& of = model_->Columns()[static_cast<size_t>(column)];
    declared += of.width;
    if (of.kind == ColumnKind::Text || of.kind == ColumnKind::StrongText) words += of.width;
  }
  const int over = viewport()->width() - declared;
  fitting_ = true;
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (isColumnHidden(column)) continue;
    const GridColumn& of = model_->Columns()[static_cast<size_t>(column)];
    const bool grows = of.kind == ColumnKind::Text || of.kind == ColumnKind::StrongText;
    const int extra = grows && over > 0 && words > 0 ? over * of.width / words : 0;
    setColumnWidth(column, of.width + extra);
  }
  fitting_ = false;
}

QString Grid::LayoutKey() const {
  // Lists of different screens go by the same name.
  for (const QWidget* over = parentWidget(); over; over = over->parentWidget())
    if (qobject_cast<const Screen*>(over) || over->isWindow())
      return over->objectName() + u'.' + objectName();
  return objectName();
}

void Grid::RestoreLayout() {
  const QStringList kept =
      settings_->Read(QStringLiteral("Grids"), LayoutKey()).split(u';', Qt::SkipEmptyParts);
  if (kept.size() != 3) return;
  const QStringList widths = kept[0].split(u',', Qt::SkipEmptyParts);
  fitting_ = true;
  if (widths.size() == model_->columnCount()) {
    ownWidths_ = true;
    for (int column = 0; column < widths.size(); ++column)
      if (!isColumnHidden(column)) setColumnWidth(column, qMax(32, widths[column].toInt()));
  }
  const int sorted = kept[1].toInt();
  horizontalHeader()->setSortIndicator(
      sorted < model_->columnCount() ? sorted : -1,
      kept[2] == QLatin1StringView("desc") ? Qt::DescendingOrder : Qt::AscendingOrder);
  fitting_ = false;
}

void Grid::StoreLayout() {
  if (!settings_ || fitting_) return;
  QStringList widths;
  if (ownWidths_)
    for (int column = 0; column < model_->columnCount(); ++column)
      widths += QString::number(columnWidth(column));
  const QHeaderView* header = horizontalHeader();
  const bool descending = header->sortIndicatorOrder() == Qt::DescendingOrder;
  settings_->Write(QStringLiteral("Grids"), LayoutKey(),
                   QStringLiteral("%1;%2;%3")
                       .arg(widths.isEmpty() ? QStringLiteral("-") : widths.join(u','))
                       .arg(header->sortIndicatorSection())
                       .arg(descending ? QStringLiteral("desc") : QStringLiteral("asc")));
}

void Grid::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  if (view_->rowCount() == 0) PaintEmpty(painter);
  if (dropRow_ < 0) return;
  const bool below = dropRow_ > draggedRow_;
  const int y = rowViewportPosition(dropRow_) + (below ? rowHeight(dropRow_) - 1 : 0);
  painter.setPen(QPen(RolesOf(palette()).accent, 2));
  painter.drawLine(0, y, viewport()->width(), y);
}

void Grid::PaintEmpty(QPainter& painter) {
  const Roles& roles = RolesOf(palette());
  const bool filtered = view_->IsFiltered() && model_->rowCount() > 0;
  QRect area = viewport()->rect().adjusted(16, 0, -16, 0);
  area.setHeight(qMin(area.height(), 160));
  QFont strong = font();
  strong.setWeight(QFont::DemiBold);
  painter.setFont(strong);
  painter.setPen(roles.text);
  painter.drawText(area.adjusted(0, 0, 0, -area.height() / 2), Qt::AlignHCenter | Qt::AlignBottom,
                   filtered ? tr("Nothing in this list matches the filter.") : emptyWhat_);
  painter.setFont(font());
  painter.setPen(roles.muted);
  painter.drawText(area.adjusted(0, area.height() / 2 + 6, 0, 0),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                   filtered ? tr("Clear the filter to see all rows.") : emptyNext_);
}

void Grid::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  if (!settings_ || layoutRestored_) return;
  layoutRestored_ = true;
  RestoreLayout();
}

void Grid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumns();
}

}  // namespace quillary
