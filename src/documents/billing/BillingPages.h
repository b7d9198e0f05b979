#pragma once

#include "documents/pages/PageFonts.h"
#include "pdf/PDFWriter.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace quillary::documents {

/// How a text is written.
struct BillingStyle {
  int size = 8;  // points
  bool bold = false;
  bool italic = false;  // unless bold
  int font = 0;         // as PDFWriter counts them
  int colour = 0;       // 0xRRGGBB

  bool operator==(const BillingStyle&) const = default;
};

/// Pages of a billing document in the PDF form: texts at given places from the left, each below the
/// one before. Lengths are in centimetres from the left and upper edges of the page.
///
/// What would run off the lower edge goes to a new page, which begins with a line that says what it
/// continues and, within a table, with the headings of its columns. The next document's first page
/// begins at the top.
class BillingPages {
 public:
  static constexpr double kRowHeight = 0.35;
  static constexpr double kTableX = 2;  // where rules of tables begin

  using Style = BillingStyle;
  static constexpr Style Bold(int size = 8) { return {.size = size, .bold = true}; }

  /// A text of a row. It is wrapped within its width; an amount stands to the right in it, so that
  /// decimals stand below each other.
  struct Cell {
    double x = 0;
    QString text;
    double width = 0;  // 0: up to the right margin
    bool alignRight = false;
  };
  using Row = std::vector<Cell>;
  /// From one line to the next: the height of a row of a table, or more for a larger font.
  static double RowHeight(const Style& style);
  /// How far to the right of its place a column of money reaches.
  static constexpr double kMoneyWidth = 1.9;
  static Cell MoneyCell(double x, const QString& text) { return {x, text, kMoneyWidth, true}; }

  /// Settings, font and page format of a document that is about to begin.
  BillingPages(PDFWriter& pdf, const PageFonts& fonts, Paper paper);

  /// A new page for the next document, on top of which no text stands. The first one opens the
  /// file.
  void BeginDocument(const QString& continuation);
  /// A new page of the same document.
  void NewPage();
  /// Closes the file, with one empty page when no document began.
  void EndDocument();

  double CurrentY() const { return currentY_; }
  /// For what stands beside something else.
  void MoveTo(double y) { currentY_ = y; }
  /// Moves down and returns the new place, on a new page when this one ends before.
  double AdvanceY(double distance);
  /// Moves down and draws a rule 18.5 long from `x`.
  void AddLine(double distance, double x);
  /// Whether rows of that height fit on this page.
  bool HasRoom(double height) const { return currentY_ + height <= bottom_; }
  /// A new page unless that much fits on this one. More than a page holds changes nothing.
  void KeepTogether(double height);

  /// At a place across, on the current line.
  void TextOut(const QString& text, double x, const Style& style);
  /// Moves down and writes a line at every place; a longer text goes on below.
  void AddRow(const Row& row, const Style& style = {}, double distance = kRowHeight);
  /// Each line on a row of its own.
  void AddLines(const QStringList& lines, double x, const Style& style);
  /// A row and a rule below it, which stand again on top of further pages until EndTable.
  void BeginTable(Row headings, double distance, double ruleX = kTableX);
  void EndTable() { headings_.clear(); }

  /// A picture within a box, as large as fits. Throws PDFError for a broken file.
  void PutPicture(const std::filesystem::path& file, double x, double y, double width,
                  double height);
  /// From the current place to the last line of a row that AddRow would add.
  double HeightOf(const Row& row, const Style& style, double distance) const;

 private:
  void AddHeadings(double distance);
  QStringList WrapCell(const Cell& cell, const Style& style) const;

  PDFWriter& pdf_;
  const PageFonts& fonts_;
  double bottom_ = 0;
  double currentY_ = 0;
  bool isOpen_ = false;
  QString continuation_;
  Row headings_;
  double ruleX_ = kTableX;    // of the headings
  std::optional<Style> set_;  // in the writer
};

}  // namespace quillary::documents
