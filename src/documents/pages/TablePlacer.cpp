#include "documents/pages/TablePlacer.h"

#include <algorithm>

namespace quillary::documents {

namespace {

constexpr double kTouch = 0.01;  // lengths that add up to the page's may miss it by this

}  // namespace

TablePlacer::TablePlacer(Composer& composer, const Table& table)
    : composer_(composer),
      table_(table),
      widths_(FitColumns(table, composer.RightEdge() - composer.LeftEdge())),
      top_(composer.Setup().margins.top) {}

void TablePlacer::Run() {
  const auto& rows = table_.Rows();
  rows_.resize(rows.size());
  while (headers_ < rows.size() && rows[headers_].isHeader) ++headers_;
  for (size_t row = 0; row < headers_; ++row) headerHeight_ += Laid(row).Height();
  // A header at the foot of a page would head nothing.
  if (!table_.GoesOn() && headers_ > 0 && headers_ < rows.size() && !AtTop() &&
      !Fits(headerHeight_ + std::min(Together(headers_), WholePage() / 2)))
    LeavePage();
  for (size_t row = table_.GoesOn() ? headers_ : 0; row < rows.size(); ++row) {
    Place(row);
    if (row >= headers_) rows_[row].reset();
  }
}

const LaidRow& TablePlacer::Laid(size_t row) {
  if (!rows_[row])
    rows_[row] = LayRow(table_, table_.Rows()[row], widths_, composer_.Font(), composer_.Fonts());
  return *rows_[row];
}

bool TablePlacer::Fits(double height) const {
  return height <= composer_.BottomEdge() - composer_.CurrentY() + kTouch;
}

double TablePlacer::WholePage() const {
  return composer_.BottomEdge() - composer_.Setup().margins.top;
}

bool TablePlacer::AtTop() const {
  return composer_.CurrentY() <= top_ + kTouch;
}

bool TablePlacer::HeadersRepeat() const {
  return headers_ > 0 && headerHeight_ < WholePage() / 2;
}

double TablePlacer::Together(size_t row) {
  double height = Laid(row).Height();
  while (table_.Rows()[row].keepWithNext && ++row < rows_.size()) height += Laid(row).Height();
  return height;
}

void TablePlacer::LeavePage() {
  composer_.TurnPage();
  top_ = composer_.CurrentY();
}

void TablePlacer::Advance(size_t row) {
  LeavePage();
  // A header that is only now on its way is not yet there to be repeated.
  if (row < headers_ || !HeadersRepeat()) return;
  for (size_t header = 0; header < headers_; ++header) Draw(header, {0, Laid(header).lineCount});
  top_ = composer_.CurrentY();
}

void TablePlacer::Place(size_t row) {
  const LaidRow& laid = Laid(row);
  const double room = WholePage() - (HeadersRepeat() ? headerHeight_ : 0);
  const double together = Together(row);
  const double height = together <= room ? together : laid.Height();
  if (!Fits(height) && height <= room + kTouch && !AtTop()) Advance(row);
  if (Fits(laid.Height()))
    Draw(row, {0, laid.lineCount});
  else
    DrawInParts(row);
}

void TablePlacer::DrawInParts(size_t row) {
  const LaidRow& laid = Laid(row);
  for (int from = 0; from < laid.lineCount;) {
    const double spare = composer_.BottomEdge() - composer_.CurrentY() - laid.HeightOf(0);
    const int lines = static_cast<int>((spare + kTouch) / laid.lineHeight);
    if (lines < 1 && !AtTop()) {
      Advance(row);
      continue;
    }
    const int to = from + std::clamp(lines, 1, laid.lineCount - from);
    Draw(row, {from, to});
    from = to;
    if (from < laid.lineCount) Advance(row);
  }
}

void TablePlacer::Draw(size_t row, RowPart part) {
  const LaidRow& laid = Laid(row);
  const double y = composer_.CurrentY();
  DrawRow(composer_.CurrentPage(), table_.Rows()[row], laid, part, composer_.LeftEdge(), y,
          composer_.Fonts());
  composer_.currentY_ = y + laid.HeightOf(part.to - part.from);
}

}  // namespace quillary::documents
