#include "documents/pages/TableLayout.h"

#include <algorithm>
#include <numeric>

namespace quillary::documents {

namespace {

constexpr double kNarrowest = 60;

}  // namespace

std::vector<double> FitColumns(const Table& table, double room) {
  const double wanted = table.Width() - kCellGap;
  const double share = wanted > room ? (room + kCellGap) / table.Width() : 1;
  std::vector<double> widths;
  for (const TableColumn& column : table.Columns()) widths.push_back(column.width * share);
  return widths;
}

double LaidRow::HeightOf(int lines) const {
  return lines * lineHeight + 2 * kRowPadding;
}

PageFont FontOf(const TableRow& row, const TableCell& cell, const PageFont& font) {
  PageFont own = cell.font.value_or(row.font.value_or(font));
  own.bold = own.bold || row.bold || cell.bold;
  return own;
}

LaidRow LayRow(const Table& table, const TableRow& row, const std::vector<double>& widths,
               const PageFont& font, const PageFonts& fonts) {
  LaidRow laid;
  laid.lineHeight = PageFonts::LineHeight(row.font.value_or(font));
  size_t column = 0;
  double x = 0;
  for (const TableCell& cell : row.cells) {
    const auto first = widths.begin() + static_cast<std::ptrdiff_t>(column);
    const double width = std::accumulate(first, first + cell.span, 0.0);
    LaidCell place;
    place.font = FontOf(row, cell, font);
    place.align = cell.align.value_or(table.Columns()[column].align);
    place.x = x;
    place.width = std::max(width - kCellGap, kNarrowest);
    place.lines = fonts.Wrap(cell.text, place.font, place.width);
    laid.lineCount = std::max(laid.lineCount, static_cast<int>(place.lines.size()));
    laid.cells.push_back(std::move(place));
    column += static_cast<size_t>(cell.span);
    x += width;
  }
  return laid;
}

TextRun PlaceText(const QString& text, const PageFont& font, Align align, double left, double room,
                  double top, const PageFonts& fonts) {
  TextRun run{.text = text, .font = font, .align = align};
  run.width = fonts.WidthOf(text, font);
  run.top = top;
  run.height = PageFonts::LineHeight(font);
  run.baseline = top + PageFonts::Ascent(font);
  const double spare = room - run.width;
  run.x = left + (align == Align::Right ? spare : align == Align::Centre ? spare / 2 : 0);
  return run;
}

void DrawRow(Page& page, const TableRow& row, const LaidRow& laid, RowPart part, double left,
             double top, const PageFonts& fonts) {
  for (const LaidCell& cell : laid.cells) {
    const int end = std::min(part.to, static_cast<int>(cell.lines.size()));
    double y = top + kRowPadding;
    for (int line = part.from; line < end; ++line, y += laid.lineHeight) {
      if (cell.lines[line].isEmpty()) continue;
      page.texts.push_back(
          PlaceText(cell.lines[line], cell.font, cell.align, left + cell.x, cell.width, y, fonts));
      page.texts.back().link = row.link;
    }
  }
  const double right = left + laid.cells.back().x + laid.cells.back().width;
  const auto rule = [&](double y) {
    page.lines.push_back({.x1 = left, .y1 = y, .x2 = right, .y2 = y});
  };
  if (row.ruleAbove && part.from == 0) rule(top);
  if (row.ruleBelow && part.to == laid.lineCount) rule(top + laid.HeightOf(part.to - part.from));
}

}  // namespace quillary::documents
