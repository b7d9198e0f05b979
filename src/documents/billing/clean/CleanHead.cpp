#include "documents/billing/Letterhead.h"
#include "documents/billing/clean/CleanParts.h"
#include "documents/pages/PageText.h"

#include <algorithm>

namespace quillary::documents {

PageDesign CleanPageDesign() {
  return {.left = 1.7,
          .right = -1.7,  // from the paper's edge
          .top = 1.9,
          .topOfMore = 1.7,
          .bottom = 2.1,
          .spacing = 1.35,
          .belowHeadings = 0.24,
          .headings = {.size = 8, .bold = true, .colour = clean::kMuted},
          .ruleWidth = 0.02,
          .ruleColour = clean::kInk,
          .continuation = clean::kLabel,
          .numbersFirstPage = true};
}

namespace clean {
namespace {

constexpr double kBoxWidth = 5.2;
constexpr double kBoxHeight = 2.1;
constexpr double kTitleWidth = 8.2;
constexpr double kLine = 0.43;

int LargestThatFits(const BillingPages& pages, const QString& text, double width, int most,
                    int least) {
  for (int size = most; size > least; --size) {
    if (pages.WidthOf(text, {.size = size, .bold = true}) <= width) return size;
  }
  return least;
}

/// What the business tells of itself, without words for what it has not filled in.
QStringList BusinessLines(const HeaderStrings& header) {
  QStringList lines;
  const auto add = [&lines](const QStringList& parts, const QString& between) {
    QStringList filled;
    for (const QString& part : parts)
      if (!part.trimmed().isEmpty()) filled += part.simplified();
    if (!filled.isEmpty()) lines += filled.join(between);
  };
  add(TextLines(header.plainAddress), QStringLiteral(", "));
  add({header.contact, header.phone}, QStringLiteral(" · "));
  for (const QString& line :
       {header.emailLine, header.faxLine, header.providerLine, header.acnLine})
    add({line}, {});
  if (!header.number.isEmpty()) add({header.taxLine}, {});
  return lines;
}

double AddBusiness(BillingPages& pages, const BillingFrame& frame, const QString& logo) {
  constexpr double kLogoTop = 1.35;
  constexpr double kLogoHeight = 1.5;
  double x = pages.Design().left;
  double logoEnd = 0;
  if (!logo.isEmpty()) {
    x += pages.PutPicture(logo, x, kLogoTop, 4, kLogoHeight) + 0.4;
    logoEnd = kLogoTop + kLogoHeight;
  }
  const double width = pages.Design().right - kTitleWidth - 0.4 - x;
  pages.AddRow({{x, frame.header.company, width}}, {.size = 13, .bold = true, .colour = kInk}, 0);
  for (const QString& line : BusinessLines(frame.header))
    pages.AddRow({{x, line, width}}, kQuiet, kLine + 0.02);
  return std::max(pages.CurrentY(), logoEnd);
}

double AddTitle(BillingPages& pages, const HeadWords& words, int accent) {
  constexpr int kLargest = 20;
  constexpr int kSmallest = 12;
  const double right = pages.Design().right;
  const int size = LargestThatFits(pages, words.title, kTitleWidth, kLargest, kSmallest);
  const BillingStyle style{.size = size, .bold = true, .colour = accent};
  bool isFirst = true;
  for (const QString& line : pages.Wrap(words.title, kTitleWidth, style)) {
    if (!isFirst) pages.AdvanceY(pages.RowHeight(style));
    isFirst = false;
    pages.TextOutTo(line, right, style);
  }
  double valueWidth = 2.2;
  for (const auto& [label, value] : words.facts)
    valueWidth = std::max(valueWidth, pages.WidthOf(value, kStrong));
  pages.AdvanceY(0.25);
  for (const auto& [label, value] : words.facts) {
    pages.AdvanceY(0.45);
    pages.TextOutTo(label, right - valueWidth - 0.3, kQuiet);
    pages.TextOutTo(value, right, kStrong);
  }
  return pages.CurrentY();
}

void AddAmountBox(BillingPages& pages, const HeadWords& words, double top) {
  constexpr double kInside = 0.45;
  const double right = pages.Design().right - kInside;
  const QString amount = words.amount.ToCurrencyText();
  const int size = LargestThatFits(pages, amount, kBoxWidth - 2 * kInside, 19, 10);
  pages.BoxOut(pages.Design().right - kBoxWidth, top, kBoxWidth, kBoxHeight, kFaint);
  pages.MoveTo(top + 0.72);
  pages.TextOutTo(words.amountLabel, right, kLabel);
  pages.MoveTo(top + 1.58);
  pages.TextOutTo(amount, right, {.size = size, .bold = true, .colour = kInk});
}

}  // namespace

void AddHead(BillingPages& pages, const BillingFrame& frame, const QString& logo,
             const HeadWords& words) {
  constexpr double kEarliest = 4.6;  // so that the address shows in the window of an envelope
  const double top = pages.CurrentY();
  const double businessEnd = AddBusiness(pages, frame, logo);
  pages.MoveTo(top);
  const double titleEnd = AddTitle(pages, words, frame.accent);
  const double place = std::max({kEarliest, businessEnd + 0.9, titleEnd + 0.9});
  AddAmountBox(pages, words, place - 0.35);
  pages.MoveTo(place);
  const double width = pages.Design().right - kBoxWidth - 0.6 - pages.Design().left;
  pages.TextOut(words.toLabel, pages.Design().left, kLabel);
  pages.AdvanceY(0.08);
  bool isFirst = true;
  for (const QString& line : words.to) {
    const BillingStyle name{.size = 11, .bold = true, .colour = kInk};
    pages.AddRow({{pages.Design().left, line, width}}, isFirst ? name : kBody, kLine);
    isFirst = false;
  }
  pages.MoveTo(std::max(pages.CurrentY(), place - 0.35 + kBoxHeight));
}

}  // namespace clean
}  // namespace quillary::documents
