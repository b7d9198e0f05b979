#pragma once

#include "documents/pages/PageModel.h"

#include <QStringList>

#include <deque>
#include <optional>
#include <vector>

namespace quillary::documents {

struct TableColumn {
  Align align = Align::Left;
  double width = 0;  // twips
};

/// Reads a column format such as "<+2in|>+.75in|^3cm|6.25in|>1440": for each column an alignment
/// ("<" left, ">" right, "^" centre; without one left), a "+" that may be missing, and a width in
/// inches, centimetres or, without a unit, twips. Nothing when any column is none, or is wider than
/// any paper.
std::optional<std::vector<TableColumn>> ParseTableFormat(const QString& format);

struct TableCell {
  QString text;  // may hold line ends; longer lines are wrapped
  int span = 1;  // the columns that it covers
  std::optional<Align> align = {};
  bool bold = false;
  std::optional<PageFont> font = {};  // instead of the row's
};

/// One row, told what it is to look like while it is added:
///
///   table.AddRow({"Total", "", "", total}).Bold().Span(0, 3, Align::Right).RuleAbove();
struct TableRow {
  std::vector<TableCell> cells;
  std::optional<PageFont> font = {};  // instead of the table's
  bool bold = false;
  bool isHeader = false;  // stands again on top of every further page
  bool ruleAbove = false;
  bool ruleBelow = false;
  bool keepWithNext = false;  // never the last row of a page: the heading of a group
  int link = -1;              // a number that its texts on the pages carry, for who made the table

  /// The column counts as it does in the format, whatever cells before it span. Columns that do not
  /// exist are passed over.
  TableRow& BoldCell(int column);
  TableRow& AlignCell(int column, Align align);
  /// The cell takes `columns` columns; the cells that it covers go, with their texts.
  TableRow& Span(int column, int columns, std::optional<Align> align = {});
  TableRow& Bold();
  TableRow& RuleAbove();
  TableRow& RuleBelow();
  TableRow& KeepWithNext();
  TableRow& InFont(const PageFont& rowFont);

 private:
  TableCell* CellAt(int column);
};

/// A table as it is meant, before it is laid out on pages.
class Table {
 public:
  /// Throws std::invalid_argument that names a format which ParseTableFormat does not read.
  explicit Table(const QString& format);
  explicit Table(std::vector<TableColumn> columns) : columns_(std::move(columns)) {}

  /// A row on top, bold and with a rule below, repeated on every page the table goes on to.
  TableRow& AddHeader(const QStringList& cells);
  /// A row of cells given one by one, whatever signs they hold. Missing cells are empty. The row
  /// stays where it is while others are added.
  TableRow& AddRow(const QStringList& cells);
  /// Rows as one text, each ended by CR LF (the last one may lack it), their cells separated. What
  /// is too much for the columns stays in the last cell. For texts of our own; what users typed
  /// goes through AddRow, since it may hold the separator.
  void AddBody(const QString& body, QChar separator = u'|');

  /// It goes on a table that ended just above: its header stands there, and comes again only on
  /// top of further pages.
  void GoOn() { goesOn_ = true; }
  bool GoesOn() const { return goesOn_; }

  const std::vector<TableColumn>& Columns() const { return columns_; }
  const std::deque<TableRow>& Rows() const { return rows_; }
  /// The width of all columns, in twips.
  double Width() const;

 private:
  std::vector<TableColumn> columns_;
  std::deque<TableRow> rows_;
  bool goesOn_ = false;
};

}  // namespace quillary::documents
