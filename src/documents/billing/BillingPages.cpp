#include "documents/billing/BillingPages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillary::documents {
namespace {

constexpr double kRuleLength = 18.5;
constexpr double kFirstRows = 4 * BillingPages::kRowHeight;  // what headings have to stand above
constexpr double kPoint = 2.54 / 72;

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
  static const QString names[] = {QStringLiteral("Arial"), QStringLiteral("Courier"),
                                  QStringLiteral("Times"), QStringLiteral("Symbol"),
                                  QStringLiteral("ZapfDingbats")};
  return {.name = names[style.font],
          .size = static_cast<double>(style.size),
          .bold = style.bold,
          .italic = style.italic && !style.bold};
}

/// Most texts are so short that they need not be measured.
bool FitsAnyway(const QString& text, const BillingPages::Style& style, double width) {
  constexpr double kWidest = 1.05 * kPoint;  // letter of ASCII, in a font of one point
  if (static_cast<double>(text.size()) * style.size * kWidest > width) return false;
  return std::all_of(text.begin(), text.end(),
                     [](QChar sign) { return sign >= u' ' && sign <= u'~'; });
}

/// Quarters of circles in a few steps, which no eye tells from round.
std::vector<PDFPoint> RoundedBox(double x, double y, double width, double height) {
  constexpr double kRadius = 0.18;
  constexpr int kSteps = 6;
  std::vector<PDFPoint> points;
  for (int corner = 0; corner < 4; ++corner) {
    const bool isRight = corner == 1 || corner == 2;
    const bool isLower = corner >= 2;
    const double middleX = isRight ? x + width - kRadius : x + kRadius;
    const double middleY = isLower ? y + height - kRadius : y + kRadius;
    for (int step = 0; step <= kSteps; ++step) {
      const double turn = (2 + corner + double(step) / kSteps) * std::numbers::pi / 2;
      points.push_back({middleX + kRadius * std::cos(turn), middleY + kRadius * std::sin(turn)});
    }
  }
  return points;
}

}  // namespace

BillingPages::BillingPages(PDFWriter& pdf, const PageFonts& fonts, Paper paper,
                           const PageDesign& design)
    : pdf_(pdf), fonts_(fonts), design_(design) {
  pdf_.PDFOrientation(1);
  pdf_.PDFFormatPage(FormatOf(paper));
  bottom_ = pdf_.PDFGetPageHeight() - design_.bottom;
  if (design_.right <= 0) design_.right += pdf_.PDFGetPageWidth();
}

void BillingPages::BeginDocument(const QString& continuation, const QString& client) {
  WriteDocument();
  pages_.emplace_back();
  continuation_ = continuation;
  client_ = client;
  headings_.clear();
  currentY_ = design_.top;
}

void BillingPages::NewPage() {
  pages_.emplace_back();
  currentY_ = design_.topOfMore;
  const QString words =
      client_.isEmpty() ? continuation_ : continuation_ + QStringLiteral(" - ") + client_;
  constexpr double kForNumber = 3;
  const double room = design_.right - design_.left - kForNumber;
  TextOut(Wrap(words, room, design_.continuation).first(), design_.left, design_.continuation);
  if (!headings_.empty()) AddHeadings(2 * RowHeight(design_.headings));
}

void BillingPages::EndDocument() {
  WriteDocument();
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
  const double right = design_.spacing > 0 ? design_.right : x + kRuleLength;
  RuleOut(x, right, design_.ruleWidth, design_.ruleColour);
}

void BillingPages::RuleOut(double x, double right, double width, int colour, bool isDashed) {
  pages_.back().rules.push_back({x, currentY_, right, width, colour, isDashed});
}

void BillingPages::BoxOut(double x, double y, double width, double height, int colour) {
  pages_.back().boxes.push_back({x, y, width, height, colour});
}

void BillingPages::KeepTogether(double height) {
  if (!HasRoom(height) && height <= bottom_ - design_.topOfMore) NewPage();
}

void BillingPages::TextOut(const QString& text, double x, const Style& style) {
  if (!text.isEmpty()) pages_.back().texts.push_back({text, x, currentY_, style});
}

void BillingPages::TextOutTo(const QString& text, double right, const Style& style) {
  TextOut(text, right - WidthOf(text, style), style);
}

double BillingPages::WidthOf(const QString& text, const Style& style) const {
  return fonts_.WidthOf(text, FontOf(style)) / kTwipsPerCentimetre;
}

QStringList BillingPages::Wrap(const QString& text, double width, const Style& style) const {
  if (FitsAnyway(text, style, width)) return {text};
  return fonts_.Wrap(text, FontOf(style), width * kTwipsPerCentimetre);
}

double BillingPages::RowHeight(const Style& style) const {
  constexpr int kLargestOfTables = 10;  // points, up to which lines of a row stay apart
  constexpr double kLinesApart = 1.1;
  if (design_.spacing > 0) return style.size * design_.spacing * kPoint;
  return style.size <= kLargestOfTables ? kRowHeight : style.size * kLinesApart * kPoint;
}

QStringList BillingPages::WrapCell(const Cell& cell, const Style& style) const {
  // An amount is never cut in two; one too wide for its column reaches to the right of it.
  if (cell.alignRight) return {cell.text};
  const double width = cell.width > 0 ? cell.width : design_.right - cell.x;
  return Wrap(cell.text, width, cell.style.value_or(style));
}

double BillingPages::HeightOf(const Row& row, const Style& style, double distance) const {
  qsizetype lines = 1;
  for (const Cell& cell : row) lines = std::max(lines, WrapCell(cell, style).size());
  return distance + static_cast<double>(lines - 1) * RowHeight(style);
}

void BillingPages::AddRow(const Row& row, const Style& style, double distance) {
  std::vector<QStringList> cells;
  cells.reserve(row.size());
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
      const Style& own = row[i].style ? *row[i].style : style;
      double x = row[i].x;
      if (row[i].alignRight && !text.isEmpty())
        x += std::max(0.0, row[i].width - WidthOf(text, own));
      TextOut(text, x, own);
    }
  }
}

void BillingPages::AddLines(const QStringList& lines, double x, const Style& style) {
  for (const QString& line : lines) AddRow({{x, line}}, style, RowHeight(style));
}

void BillingPages::AddHeadings(double distance) {
  const Row headings = std::exchange(headings_, {});  // headings are not headed themselves
  AddRow(headings, design_.headings, distance);
  AddLine(design_.belowHeadings, ruleX_);
  headings_ = headings;
}

void BillingPages::BeginTable(Row headings, double distance, double ruleX) {
  // Headings alone at the foot of a page would head nothing.
  KeepTogether(distance + design_.belowHeadings + kFirstRows);
  headings_ = std::move(headings);
  ruleX_ = ruleX;
  AddHeadings(distance);
}

double BillingPages::PutPicture(const QString& file, double x, double y, double width,
                                double height) {
  const double natural = pdf_.PDFImageWidth(file.toStdU16String(), height);
  const bool isWide = natural > width;
  pages_.back().boxes.push_back({x, y, isWide ? width : natural, isWide ? 0 : height, 0, file});
  return std::min(natural, width);
}

void BillingPages::NumberPages() {
  const qsizetype count = static_cast<qsizetype>(pages_.size());
  for (qsizetype i = design_.numbersFirstPage ? 0 : 1; i < count; ++i) {
    const QString words = QStringLiteral("Page %1 of %2").arg(i + 1).arg(count);
    const double x = design_.right - WidthOf(words, design_.continuation);
    const double y = design_.numbersFirstPage ? bottom_ + design_.bottom / 2 : design_.topOfMore;
    pages_[static_cast<size_t>(i)].texts.push_back({words, x, y, design_.continuation});
  }
}

void BillingPages::WriteDocument() {
  NumberPages();
  for (const Page& page : pages_) WritePage(page);
  pages_.clear();
}

void BillingPages::WritePage(const Page& page) {
  if (isOpen_) {
    pdf_.PDFEndPage();
    pdf_.PDFNewPage();
  } else {
    pdf_.PDFBeginDoc();
    isOpen_ = true;
  }
  for (const Box& box : page.boxes) WriteBox(box);
  for (const Rule& rule : page.rules) {
    pdf_.PDFSetLineColor(rule.colour);
    pdf_.PDFSetLineWidth(rule.width);
    pdf_.PDFSetLineStyle(rule.isDashed ? 1 : 0);
    pdf_.PDFDrawLineHor(rule.x, rule.y, rule.right - rule.x);
  }
  for (const Text& text : page.texts) WriteText(text);
}

void BillingPages::WriteText(const Text& text) {
  if (text.style != set_) {
    pdf_.PDFSetTextColor(text.style.colour);
    pdf_.PDFSetFont(text.style.font, text.style.size,
                    text.style.bold     ? 2
                    : text.style.italic ? 1
                                        : 0);
    set_ = text.style;
  }
  pdf_.PDFTextOut(text.text.toStdString(), text.x, text.y);
}

void BillingPages::WriteBox(const Box& box) {
  if (!box.picture.isEmpty()) {
    pdf_.PDFImage(box.picture.toStdU16String(), box.x, box.y, box.width, box.height);
    return;
  }
  constexpr double kOutline = 0.02;
  pdf_.PDFSetLineColor(box.colour);
  pdf_.PDFSetLineWidth(kOutline);
  pdf_.PDFSetLineStyle(0);
  pdf_.PDFSetDrawMode(0);
  pdf_.PDFDrawPolygon(RoundedBox(box.x, box.y, box.width, box.height));
}

}  // namespace quillary::documents
