#pragma once

#include "documents/pages/PageFonts.h"
#include "pdf/PDFWriter.h"

#include <QStringList>

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

/// What a design of documents fixes for all its pages, in centimetres.
struct PageDesign {
  double left = 1;
  double right = 19.5;
  double top = 0.5;        // of a page that begins a document
  double topOfMore = 1.2;  // the first line of a page that goes on
  double bottom = 1.2;     // from the lower edge of the paper
  double spacing = 0;      // of lines, in sizes of their font; 0: all at 0.35, larger ones apart
  double belowHeadings = 0.25;
  BillingStyle headings = {.bold = true};
  double ruleWidth = 0.01;
  int ruleColour = 0;
  BillingStyle continuation = {};
  bool numbersFirstPage = false;  // below the page; otherwise further pages are, above
};

/// Pages of a billing document in the PDF form: texts at given places from the left, each below the
/// one before. Lengths are in centimetres from the left and upper edges of the page.
///
/// What would run off the lower edge goes to a new page, which begins with a line that says what it
/// continues and for whom and, within a table, with the headings of its columns. The next
/// document's first page begins at the top. A document reaches the writer when it is whole, since
/// each of its pages tells their number.
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
    std::optional<Style> style = {};  // instead of the row's
  };
  using Row = std::vector<Cell>;
  /// From one line to the next: the height of a row of a table, or more for a larger font.
  double RowHeight(const Style& style) const;
  /// How far to the right of its place a column of money reaches.
  static constexpr double kMoneyWidth = 1.9;
  static Cell MoneyCell(double x, const QString& text) { return {x, text, kMoneyWidth, true, {}}; }

  /// Format of the pages of a file that is about to begin.
  BillingPages(PDFWriter& pdf, const PageFonts& fonts, Paper paper, const PageDesign& design);

  /// A new page for the next document, on top of which no text stands. `continuation` and `client`
  /// stand on its further pages.
  void BeginDocument(const QString& continuation, const QString& client);
  /// A new page of the same document.
  void NewPage();
  /// Writes what was laid, with one empty page when no document began, and closes the file.
  void EndDocument();

  const PageDesign& Design() const { return design_; }
  double CurrentY() const { return currentY_; }
  /// For what stands beside something else.
  void MoveTo(double y) { currentY_ = y; }
  /// Moves down and returns the new place, on a new page when this one ends before.
  double AdvanceY(double distance);
  /// Moves down and draws a rule 18.5 long from `x`.
  void AddLine(double distance, double x);
  /// A rule from `x` to `right` at the current place, in its own width and colour.
  void RuleOut(double x, double right, double width, int colour, bool isDashed = false);
  /// The outline of a box with round corners, the current place left alone.
  void BoxOut(double x, double y, double width, double height, int colour);
  /// Where the lowest line of a page can stand.
  double Bottom() const { return bottom_; }
  /// Whether rows of that height fit on this page.
  bool HasRoom(double height) const { return currentY_ + height <= bottom_; }
  /// A new page unless that much fits on this one. More than a page holds changes nothing.
  void KeepTogether(double height);

  /// At a place across, on the current line.
  void TextOut(const QString& text, double x, const Style& style);
  /// The same, ending at `right`.
  void TextOutTo(const QString& text, double right, const Style& style);
  double WidthOf(const QString& text, const Style& style) const;
  QStringList Wrap(const QString& text, double width, const Style& style) const;
  /// Moves down and writes a line at every place; a longer text goes on below.
  void AddRow(const Row& row, const Style& style = {}, double distance = kRowHeight);
  /// Each line on a row of its own.
  void AddLines(const QStringList& lines, double x, const Style& style);
  /// A row and a rule below it, which stand again on top of further pages until EndTable.
  void BeginTable(Row headings, double distance, double ruleX = kTableX);
  void EndTable() { headings_.clear(); }

  /// A picture within a box, as large as fits; returns its width. Throws PDFError for a broken
  /// file.
  double PutPicture(const QString& file, double x, double y, double width, double height);
  /// From the current place to the last line of a row that AddRow would add.
  double HeightOf(const Row& row, const Style& style, double distance) const;

 private:
  struct Text {
    QString text;
    double x, y;
    Style style;
  };
  struct Rule {
    double x, y, right, width;
    int colour;
    bool isDashed;
  };
  struct Box {
    double x, y, width, height;
    int colour = 0;
    QString picture = {};  // drawn instead of an outline
  };
  struct Page {
    std::vector<Text> texts;
    std::vector<Rule> rules;
    std::vector<Box> boxes;
  };

  void AddHeadings(double distance);
  QStringList WrapCell(const Cell& cell, const Style& style) const;
  void NumberPages();
  void WriteDocument();
  void WritePage(const Page& page);
  void WriteText(const Text& text);
  void WriteBox(const Box& box);

  PDFWriter& pdf_;
  const PageFonts& fonts_;
  PageDesign design_;
  double bottom_ = 0;
  double currentY_ = 0;
  std::vector<Page> pages_;  // of the document that is being laid
  bool isOpen_ = false;
  QString continuation_;
  QString client_;
  Row headings_;
  double ruleX_ = kTableX;    // of the headings
  std::optional<Style> set_;  // in the writer
};

}  // namespace quillary::documents
