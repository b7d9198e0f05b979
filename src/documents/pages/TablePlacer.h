#pragma once

#include "documents/pages/Composer.h"
#include "documents/pages/TableLayout.h"

namespace quillary::documents {

/// Puts the rows of one table on the pages of a composer, below its current Y.
class TablePlacer {
 public:
  TablePlacer(Composer& composer, const Table& table);
  const std::vector<double>& Widths() const { return widths_; }
  void Run();

 private:
  bool Fits(double height) const;
  double WholePage() const;
  bool AtTop() const;
  /// Not headers that would leave a page no room for what they head.
  bool HeadersRepeat() const;
  /// The height of a row and of those that have to stand on its page.
  double Together(size_t row);
  void LeavePage();
  /// To the next page, on which `row` is to go on.
  void Advance(size_t row);
  void Place(size_t row);
  void DrawInParts(size_t row);
  void Draw(size_t row, RowPart part);
  /// A row in lines, which are kept only until it is placed: a table may be as long as a year.
  const LaidRow& Laid(size_t row);

  Composer& composer_;
  const Table& table_;
  std::vector<double> widths_;
  std::vector<std::optional<LaidRow>> rows_;
  size_t headers_ = 0;
  double headerHeight_ = 0;
  double top_;  // where content of this page starts, below repeated headers
};

}  // namespace quillary::documents
