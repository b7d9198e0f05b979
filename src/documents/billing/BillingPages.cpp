#include "documents/billing/BillingPages.h"

#include <algorithm>

namespace quillary::documents {
namespace {

constexpr double kTop = 0.5;        // of a page that begins a document
constexpr double kTopOfMore = 1.2;  // of a page that goes on, its first line
constexpr double kBottomMargin = 1.2;
constexpr double kRightEdge = 19.5;
constexpr double kRuleLength = 18.5;
constexpr double kRuleWidth = 0.01;
constexpr double kBelowHeadings = 0.25;
constexpr double kFirstRows = 4 * BillingPages::kRowHeight;  // what headings have to stand above

int FormatOf(Paper paper) {
  switch (paper) {
    case Paper::A3:
      return 1;
    case Paper::Letter:
      return 3;
    case Paper::Legal:
      return 4;
    case Paper::A5:
      return 2;
    case Paper::A4:
      break;
  }
  return 0;
}

PageFont FontOf(const BillingPages::Style& style) {
  static const char* const names[] = {"Arial", "Courier", "Times", "Symbol", "ZapfDingbats"};
  return {.name = QString::fromLatin1(names[style.font]),
          .size = static_cast<double>(style.size),
          .bold = style.bold,
          .italic = style.italic && !style.bold};
}

/// Most texts are so short that they need not be measured.
bool FitsAnyway(const QString& text, const BillingPages::Style& style, double width) {
  constexpr double kWidest = 1.05 * 2.54 / 72;  // letter of ASCII, in a font of one point
  if (static_cast<double>(text.size()) * style.size * kWidest > width) return false;
  return std::all_of(text.begin(), text.end(),
                     [](QChar sign) { return sign >= u' ' && sign <= u'~'; });
}

}  // namespace

BillingPages::BillingPages(PDFWriter& pdf, const PageFonts& fonts, Paper paper)
    : pdf_(pdf), fonts_(fonts) {
  pdf_.PDFOrientation(1);
  pdf_.PDFFormatPage(FormatOf(paper));
  bottom_ = pdf_.PDFGetPageHeight() - kBottomMargin;
}

void BillingPages::BeginDocument(const QString& continuation) {
  if (isOpen_) {
    pdf_.PDFEndPage();
    pdf_.PDFNewPage();
  } else {
    pdf_.PDFBeginDoc();
    isOpen_ = true;
  }
  continuation_ = continuation;
  headings_.clear();
  currentY_ = kTop;
}

void BillingPages::NewPage() {
  pdf_.PDFEndPage();
  pdf_.PDFNewPage();
  currentY_ = kTopOfMore;
  TextOut(WrapCell({1, continuation_}, {}).first(), 1, {});
  if (!headings_.empty()) AddHeadings(2 * kRowHeight);
}

void BillingPages::EndDocument() {
  if (!isOpen_) pdf_.PDFBeginDoc();
  pdf_.PDFEndDoc();
}

double BillingPages::AdvanceY(double distance) {
  if (!HasRoom(distance)) {
    NewPage();
    distance = std::max(distance, kRowHeight);
  }
  return currentY_ += distance;
}

void BillingPages::AddLine(double distance, double x) {
  AdvanceY(distance);
  pdf_.PDFSetLineStyle(0);
  pdf_.PDFSetLineWidth(kRuleWidth);
  pdf_.PDFDrawLineHor(x, currentY_, kRuleLength);
}

void BillingPages::KeepTogether(double height) {
  if (!HasRoom(height) && height <= bottom_ - kTopOfMore) NewPage();
}

void BillingPages::TextOut(const QString& text, double x, const Style& style) {
  if (text.isEmpty()) return;
  if (style != set_) {
    pdf_.PDFSetTextColor(style.colour);
    pdf_.PDFSetFont(style.font, style.size, style.bold ? 2 : style.italic ? 1 : 0);
    set_ = style;
  }
  pdf_.PDFTextOut(text.toStdString(), x, currentY_);
}

double BillingPages::RowHeight(const Style& style) {
  constexpr int kLargestOfTables = 10;             // points, up to which lines of a row stay apart
  constexpr double kLinesApart = 1.1 * 2.54 / 72;  // of a font of one point
  return style.size <= kLargestOfTables ? kRowHeight : style.size * kLinesApart;
}

QStringList BillingPages::WrapCell(const Cell& cell, const Style& style) const {
  const double width = cell.width > 0 ? cell.width : kRightEdge - cell.x;
  // An amount is never cut in two; one too wide for its column reaches to the right of it.
  if (cell.alignRight || FitsAnyway(cell.text, style, width)) return {cell.text};
  return fonts_.Wrap(cell.text, FontOf(style), width * kTwipsPerCentimetre);
}

double BillingPages::HeightOf(const Row& row, const Style& style, double distance) const {
  qsizetype lines = 1;
  for (const Cell& cell : row) lines = std::max(lines, WrapCell(cell, style).size());
  return distance + static_cast<double>(lines - 1) * RowHeight(style);
}

void BillingPages::AddRow(const Row& row, const Style& style, double distance) {
  std::vector<QStringList> cells;
  qsizetype rows = 1;
  for (const Cell& cell : row) {
    cells.push_back(WrapCell(cell, style));
    rows = std::max(rows, cells.back().size());
  }
  const double lineHeight = RowHeight(style);
  KeepTogether(distance + static_cast<double>(rows - 1) * lineHeight);
  for (qsizetype line = 0; line < rows; ++line) {
    AdvanceY(line == 0 ? distance : lineHeight);
    for (size_t i = 0; i < row.size(); ++i) {
      if (line >= cells[i].size()) continue;
      const QString& text = cells[i][line];
      double x = row[i].x;
      if (row[i].alignRight) {
        const double taken = fonts_.WidthOf(text, FontOf(style)) / kTwipsPerCentimetre;
        x += std::max(0.0, row[i].width - taken);
      }
      TextOut(text, x, style);
    }
  }
}

void BillingPages::AddLines(const QStringList& lines, double x, const Style& style) {
  for (const QString& line : lines) AddRow({{x, line}}, style, RowHeight(style));
}

void BillingPages::AddHeadings(double distance) {
  const Row headings = std::exchange(headings_, {});  // headings are not headed themselves
  AddRow(headings, Bold(), distance);
  AddLine(kBelowHeadings, ruleX_);
  headings_ = headings;
}

void BillingPages::BeginTable(Row headings, double distance, double ruleX) {
  // Headings alone at the foot of a page would head nothing.
  KeepTogether(distance + kBelowHeadings + kFirstRows);
  headings_ = std::move(headings);
  ruleX_ = ruleX;
  AddHeadings(distance);
}

void BillingPages::PutPicture(const std::filesystem::path& file, double x, double y, double width,
                              double height) {
  const double natural = pdf_.PDFImageWidth(file, height);
  pdf_.PDFImage(file, x, y, std::min(natural, width), natural > width ? 0 : height);
}

}  // namespace quillary::documents
