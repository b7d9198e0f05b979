#include "kit/ShownList.h"

#include "kit/GridColumns.h"
#include "kit/GridModel.h"

#include <QTableView>

namespace quillary {

namespace {

QString Words(const QModelIndex& cell) {
  if (cell.data(kKindRole).toInt() == static_cast<int>(ColumnKind::Tick))
    return cell.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStringLiteral("Yes")
                                                                : QStringLiteral("No");
  return cell.data(Qt::DisplayRole).toString();
}

}  // namespace

PrintList ShownList(const QString& title, const QTableView* table) {
  PrintList list{.title = title, .headings = {}, .rows = {}};
  const QAbstractItemModel* model = table->model();
  QList<int> columns;
  for (int column = 0; column < model->columnCount(); ++column) {
    if (table->isColumnHidden(column)) continue;
    columns.append(column);
    list.headings.append(model->headerData(column, Qt::Horizontal).toString());
  }
  for (int row = 0; row < model->rowCount(); ++row) {
    QStringList words;
    for (const int column : columns) words.append(Words(model->index(row, column)));
    list.rows.push_back(words);
  }
  return list;
}

}  // namespace quillary
