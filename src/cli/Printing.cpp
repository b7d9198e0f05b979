#include "cli/Printing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace quillary::cli {
namespace {

/// An amount with two decimals, more only when it has them.
QString ShownAmount(Money amount) {
  const QString text = amount.ToText();
  const qsizetype point = text.indexOf(u'.');
  if (point < 0) return text + QStringLiteral(".00");
  return text.leftJustified(point + 3, u'0');
}

/// A cell on one line, since a table has a line for each row.
QString Shown(const Value& value) {
  if (const auto* amount = std::get_if<Money>(&value.variant())) return ShownAmount(*amount);
  QString text = value.ToText();
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control) character = u' ';
  }
  return text;
}

/// Escaped by Qt's own writer, which takes texts only as part of an array.
QString JsonText(const QString& text) {
  const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(array.mid(1, array.size() - 2));
}

}  // namespace

QString ToJson(const Value& value) {
  if (value.IsNull()) return QStringLiteral("null");
  if (const auto* yes = std::get_if<bool>(&value.variant())) {
    return *yes ? QStringLiteral("true") : QStringLiteral("false");
  }
  if (const auto* fraction = std::get_if<double>(&value.variant())) {
    // JSON knows no infinity.
    return std::isfinite(*fraction)
               ? QString::number(*fraction, 'g', QLocale::FloatingPointShortest)
               : QStringLiteral("null");
  }
  if (value.IsText() || value.IsDate()) return JsonText(value.ToText());
  return value.ToText();
}

ResultTable ResultTable::FromRecordset(const Recordset& recordset) {
  QStringList names;
  for (const jet::ResultColumn& column : recordset.Columns()) names += column.name;
  ResultTable table(names);
  for (const Record row : recordset) {
    std::vector<Value> cells;
    for (size_t i = 0; i < row.Size(); ++i) cells.push_back(row[i]);
    table.AddRow(std::move(cells));
  }
  return table;
}

bool ResultTable::IsNumeric(size_t column) const {
  bool any = false;
  for (const auto& row : rows_) {
    const Value& cell = row[column];
    if (cell.IsNull()) continue;
    if (cell.IsText() || !cell.IsNumeric()) return false;
    any = true;
  }
  return any;
}

void ResultTable::PrintAligned(QTextStream& out) const {
  const auto count = static_cast<size_t>(columns_.size());
  std::vector<QStringList> lines;
  std::vector<qsizetype> widths;
  for (const QString& name : columns_) widths.push_back(name.size());
  for (const auto& row : rows_) {
    QStringList line;
    for (size_t i = 0; i < count; ++i) {
      line += Shown(row[i]);
      widths[i] = std::max(widths[i], line.back().size());
    }
    lines.push_back(line);
  }
  lines.insert(lines.begin(), columns_);
  std::vector<bool> right;
  for (size_t i = 0; i < count; ++i) right.push_back(IsNumeric(i));
  for (const QStringList& line : lines) {
    QString text;
    for (size_t i = 0; i < count; ++i) {
      const QString& cell = line[static_cast<qsizetype>(i)];
      text += right[i] ? cell.rightJustified(widths[i]) : cell.leftJustified(widths[i]);
      if (i + 1 < count) text += QStringLiteral("  ");
    }
    while (text.endsWith(u' ')) text.chop(1);
    out << text << '\n';
  }
}

void ResultTable::PrintJson(QTextStream& out) const {
  out << '[';
  for (size_t row = 0; row < rows_.size(); ++row) {
    out << (row == 0 ? "\n{" : ",\n{");
    for (size_t i = 0; i < rows_[row].size(); ++i) {
      if (i > 0) out << ", ";
      out << JsonText(columns_[static_cast<qsizetype>(i)]) << ": " << ToJson(rows_[row][i]);
    }
    out << '}';
  }
  out << (rows_.empty() ? "]" : "\n]");
}

void PrintTable(const Call& call, const ResultTable& table) {
  if (call.json) {
    table.PrintJson(call.out);
    call.out << '\n';
  } else {
    table.PrintAligned(call.out);
  }
}

Value DayCell(const Call& call, QDate day) {
  if (!day.isValid()) return {};
  if (call.json) return day;
  return day.toString(Qt::ISODate);
}

}  // namespace quillary::cli
