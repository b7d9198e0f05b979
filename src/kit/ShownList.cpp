#include "kit/ShownList.h"

#include "kit/GridColumns.h"
#include "kit/GridModel.h"

#include <QTableView>

namespace quillary {

namespace {

ColumnKind KindOf(const QModelIndex& cell) {
  return static_cast<ColumnKind>(cell.data(kKindRole).toInt());
}

QString Words(const QModelIndex& cell) {
  if (KindOf(cell) == ColumnKind::Tick)
    return cell.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStringLiteral("Yes")
                                                                : QStringLiteral("No");
  return cell.data(Qt::DisplayRole).toString();
}

}  // namespace

PrintList ShownList(const QString& title, const QTableView* table, const QString& ticksAre) {
  PrintList list{.title = title, .headings = {}, .rows = {}};
  const QAbstractItemModel* model = table->model();
  QList<int> columns;
  for (int column = 0; column < model->columnCount(); ++column) {
    if (table->isColumnHidden(column)) continue;
    const QModelIndex first = model->index(0, column);
    QString heading = model->headerData(column, Qt::Horizontal).toString();
    if (heading.isEmpty() && KindOf(first) == ColumnKind::Tick) heading = ticksAre;
    if (heading.isEmpty() && KindOf(first) == ColumnKind::Tick) continue;
    columns.append(column);
    list.headings.append(heading);
    list.isAmount.push_back(KindOf(first) == ColumnKind::Money);
  }
  for (int row = 0; row < model->rowCount(); ++row) {
    QStringList words;
    for (const int column : columns) words.append(Words(model->index(row, column)));
    list.rows.push_back(words);
  }
  return list;
}

}  // namespace quillary
