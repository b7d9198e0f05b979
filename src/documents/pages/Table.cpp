#include "documents/pages/Table.h"

#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace quillary::documents {

namespace {

constexpr double kWidestColumn = 40 * kTwipsPerInch;

std::optional<TableColumn> ParseColumn(const QString& text) {
  static const QRegularExpression form(QStringLiteral(R"(^([<>^]?)\+?(\d*\.?\d+|\d+\.)(in|cm|)$)"),
                                       QRegularExpression::CaseInsensitiveOption);
  const auto match = form.match(QString(text).remove(u' '));
  if (!match.hasMatch()) return std::nullopt;
  const QString unit = match.captured(3).toLower();
  const double twips = unit == u"in" ? kTwipsPerInch : unit == u"cm" ? kTwipsPerCentimetre : 1;
  const double width = match.captured(2).toDouble() * twips;
  if (width <= 0 || width > kWidestColumn) return std::nullopt;
  const QString sign = match.captured(1);
  const Align align = sign == u">" ? Align::Right : sign == u"^" ? Align::Centre : Align::Left;
  return TableColumn{align, width};
}

}  // namespace

std::optional<std::vector<TableColumn>> ParseTableFormat(const QString& format) {
  std::vector<TableColumn> columns;
  for (const QString& part : format.split(u'|')) {
    const auto column = ParseColumn(part);
    if (!column) return std::nullopt;
    columns.push_back(*column);
  }
  return columns;
}

TableCell* TableRow::CellAt(int column) {
  int at = 0;
  for (TableCell& cell : cells) {
    if (column >= at && column < at + cell.span) return &cell;
    at += cell.span;
  }
  return nullptr;
}

TableRow& TableRow::BoldCell(int column) {
  if (TableCell* cell = CellAt(column)) cell->bold = true;
  return *this;
}

TableRow& TableRow::AlignCell(int column, Align align) {
  if (TableCell* cell = CellAt(column)) cell->align = align;
  return *this;
}

TableRow& TableRow::Span(int column, int columns, std::optional<Align> align) {
  TableCell* cell = CellAt(column);
  if (cell == nullptr) return *this;
  if (align) cell->align = align;
  auto next = cells.begin() + (cell - cells.data()) + 1;
  while (cell->span < columns && next != cells.end()) {
    cell->span += next->span;
    next = cells.erase(next);
  }
  return *this;
}

TableRow& TableRow::Bold() {
  bold = true;
  return *this;
}

TableRow& TableRow::RuleAbove() {
  ruleAbove = true;
  return *this;
}

TableRow& TableRow::RuleBelow() {
  ruleBelow = true;
  return *this;
}

TableRow& TableRow::KeepWithNext() {
  keepWithNext = true;
  return *this;
}

TableRow& TableRow::InFont(const PageFont& rowFont) {
  font = rowFont;
  return *this;
}

Table::Table(const QString& format) {
  auto columns = ParseTableFormat(format);
  if (!columns)
    throw std::invalid_argument("Not a format of table columns: " + format.toStdString());
  columns_ = std::move(*columns);
}

TableRow& Table::AddHeader(const QStringList& cells) {
  TableRow& row = AddRow(cells).Bold().RuleBelow();
  row.isHeader = true;
  return row;
}

TableRow& Table::AddRow(const QStringList& cells) {
  if (cells.size() > static_cast<qsizetype>(columns_.size()))
    throw std::invalid_argument("A row has more cells than its table has columns");
  TableRow& row = rows_.emplace_back();
  for (const QString& text : cells) row.cells.push_back({.text = text});
  row.cells.resize(columns_.size());
  return row;
}

void Table::AddBody(const QString& body, QChar separator) {
  QStringList lines = body.split(QStringLiteral("\r\n"));
  if (lines.last().isEmpty()) lines.removeLast();
  const auto count = static_cast<qsizetype>(columns_.size());
  for (const QString& line : lines) {
    QStringList cells = line.split(separator);
    if (cells.size() > count) {
      const QString rest = QStringList(cells.mid(count - 1)).join(separator);
      cells = cells.first(count - 1) << rest;
    }
    AddRow(cells);
  }
}

double Table::Width() const {
  double width = 0;
  for (const TableColumn& column : columns_) width += column.width;
  return width;
}

}  // namespace quillary::documents
