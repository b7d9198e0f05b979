#include "pdf/PDFWriter.h"

#include <algorithm>

namespace quillary {
namespace {

constexpr std::string_view kAllSides = "LRTB";
/// The base line lies this share of the font size below the middle of a row.
constexpr double kBelowMiddle = 0.3;

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + 1);
  }
}

/// Those of the sides that a row keeps: inner rows are open above and below.
std::string RowSides(const std::string& sides, bool isFirst, bool isLast) {
  std::string kept;
  for (const char side : sides) {
    if ((side != 'T' || isFirst) && (side != 'B' || isLast)) kept += side;
  }
  return kept;
}

}  // namespace

void PDFWriter::PDFSetBorder(std::string_view sides) {
  border_.clear();
  for (const char side : kAllSides) {
    if (sides == "1" || sides.find(side) != std::string_view::npos) border_ += side;
  }
}

void PDFWriter::PDFCell(std::string_view text, double x, double y, double width, double height,
                        std::string_view alignment, const PDFTarget& link) {
  if (alignment.empty()) alignment = alignment_;
  const char align = alignment.empty() ? 'L' : alignment.front();
  const std::vector<std::string_view> lines = SplitLines(text);
  Metrics({});  // a font that can't be measured is found before anything is drawn
  if (!link.IsEmpty()) {
    PDFLink("CELL", x, y, width, height * static_cast<double>(lines.size()), link);
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool isLast = i + 1 == lines.size();
    DrawCellRow(lines[i], x, y + height * static_cast<double>(i), width, height,
                RowSides(border_, i == 0, isLast), isLast && align == 'J' ? 'L' : align);
  }
}

void PDFWriter::DrawCellRow(std::string_view utf8, double x, double y, double width, double height,
                            const std::string& sides, char alignment) {
  const double left = AtX(x);
  const double right = AtX(x + width);
  const double top = AtY(y);
  const double bottom = AtY(y + height);
  BeginShape("CELL");
  if (fill_) {
    pageContent_.AddLine(Decimal(left), " ", Decimal(top), " ", Decimal(right - left), " ",
                         Decimal(bottom - top), " re f");
  }
  for (const char side : sides) {
    MoveTo(side == 'R' ? right : left, side == 'B' ? bottom : top);
    LineTo(side == 'L' ? left : right, side == 'T' ? top : bottom);
    Stroke();
  }

  const SetText text = Prepare(utf8, {});
  if (text.shaped != nullptr) NoteIfNotShown(utf8, *text.shaped);
  const double room = right - left - 2.0 * cellMargin_;
  const double free = room - WidthInPoints(text, {}, EffectiveFontSize());
  double textX = left + cellMargin_;
  const auto blanks = std::count(text.winAnsi.begin(), text.winAnsi.end(), ' ');
  if (alignment == 'R') {
    textX += free;
  } else if (alignment == 'C') {
    textX += free / 2;
  } else if (alignment == 'J' && blanks > 0 && free > 0) {
    pageContent_.AddLine(Decimal(free / static_cast<double>(blanks), 3), " Tw");
  }
  const double baseLine = (top + bottom) / 2 - kBelowMiddle * EffectiveFontSize();
  ShowText(pageContent_, text, textX, baseLine, 0);
  pageContent_.AddLine("0 Tw");
  pageContent_.AddLine("%FIN_CELL/%");
}

}  // namespace quillary
