#pragma once

#include "documents/pages/PageFonts.h"
#include "documents/pages/Table.h"

namespace quillary::documents {

/// Blank between the text of a cell and that of the next, in twips.
inline constexpr double kCellGap = 120;
/// Blank above and below the lines of a row, in twips.
inline constexpr double kRowPadding = 15;

/// The widths of the columns, all narrowed alike when the table is wider than `room`.
std::vector<double> FitColumns(const Table& table, double room);

struct LaidCell {
  QStringList lines;
  PageFont font = {};
  Align align = Align::Left;
  double x = 0;      // from the left of the table
  double width = 0;  // of its text
};

/// A row with its texts broken into lines.
struct LaidRow {
  std::vector<LaidCell> cells;
  double lineHeight = 0;
  int lineCount = 1;

  double Height() const { return HeightOf(lineCount); }
  /// Of that many of its lines, with the blank above and below them.
  double HeightOf(int lines) const;
};

/// How a row looks in a table whose font is `font`.
PageFont FontOf(const TableRow& row, const TableCell& cell, const PageFont& font);
LaidRow LayRow(const Table& table, const TableRow& row, const std::vector<double>& widths,
               const PageFont& font, const PageFonts& fonts);

/// A text of one line, between `left` and `left + room`.
TextRun PlaceText(const QString& text, const PageFont& font, Align align, double left, double room,
                  double top, const PageFonts& fonts);

/// The lines `from` up to, without it, `to` of a row, put on a page.
struct RowPart {
  int from = 0;
  int to = 0;
};
void DrawRow(Page& page, const TableRow& row, const LaidRow& laid, RowPart part, double left,
             double top, const PageFonts& fonts);

}  // namespace quillary::documents
