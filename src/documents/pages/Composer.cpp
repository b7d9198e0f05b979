#include "documents/pages/Composer.h"

#include "documents/pages/TablePlacer.h"

#include <algorithm>

namespace quillary::documents {

namespace {

constexpr double kFooterSize = 7.5;  // points
constexpr double kFooterGap = 60;    // from the text above, in twips

}  // namespace

Composer::Composer(std::shared_ptr<const PageFonts> fonts, const PageSetup& setup) : setup_(setup) {
  document_.fonts = std::move(fonts);
  document_.setup = setup;
  TurnPage();
}

void Composer::SetMargins(const Margins& margins) {
  const bool isUntouched = document_.blocks.empty() && PageCount() == 1;
  setup_.margins = margins;
  if (!isUntouched) return;
  document_.setup.margins = margins;
  currentY_ = margins.top;
}

void Composer::SetCurrentY(double y) {
  // A file that flows can be moved on, not back.
  if (y > currentY_) document_.blocks.emplace_back(SpaceBlock{y - currentY_});
  currentY_ = y;
}

void Composer::NewPage() {
  document_.blocks.emplace_back(PageBreakBlock{});
  TurnPage();
}

void Composer::TurnPage() {
  document_.pages.emplace_back();
  currentY_ = setup_.margins.top;
}

void Composer::AddText(const QString& text, Align align) {
  const double room = RightEdge() - LeftEdge();
  const double height = PageFonts::LineHeight(font_);
  document_.blocks.emplace_back(TextBlock{text, font_, align});
  for (const QString& line : Fonts().Wrap(text, font_, room)) {
    if (currentY_ + height > BottomEdge() && currentY_ > setup_.margins.top) TurnPage();
    if (!line.isEmpty()) {
      CurrentPage().texts.push_back(
          PlaceText(line, font_, align, LeftEdge(), room, currentY_, Fonts()));
    }
    currentY_ += height;
  }
}

void Composer::AddTable(Table table) {
  Block& added = document_.blocks.emplace_back(TableBlock{std::move(table), font_, {}});
  auto& block = std::get<TableBlock>(added);  // stays where it is: placing adds no blocks
  TablePlacer placer(*this, block.table);
  block.widths = placer.Widths();
  placer.Run();
}

void Composer::AddRule(double below) {
  document_.blocks.emplace_back(RuleBlock{below});
  currentY_ += below;
  // It closes what is above it, and stays there.
  const double y = std::min(currentY_, BottomEdge());
  AddLine({.x1 = LeftEdge(), .y1 = y, .x2 = RightEdge(), .y2 = y});
}

void Composer::AddLine(const PageLine& line) {
  CurrentPage().lines.push_back(line);
}

void Composer::AddRun(const TextRun& run) {
  CurrentPage().texts.push_back(run);
}

void Composer::AddPicture(const PagePicture& picture) {
  CurrentPage().pictures.push_back(picture);
}

void Composer::AddRtf(const QByteArray& raw) {
  document_.blocks.emplace_back(RawRtfBlock{raw});
}

void Composer::AddFooters() {
  if (document_.footer.isEmpty()) return;
  const PageFont font{.size = kFooterSize};
  int number = 0;
  for (Page& page : document_.pages) {
    QString text = document_.footer;
    text.replace(QLatin1StringView("%1"), QString::number(++number));
    text.replace(QLatin1StringView("%2"), QString::number(PageCount()));
    page.texts.push_back(PlaceText(text, font, Align::Right, LeftEdge(), RightEdge() - LeftEdge(),
                                   BottomEdge() + kFooterGap, Fonts()));
  }
}

Composition Composer::Finish(const QString& title) {
  document_.title = title;
  AddFooters();
  return std::move(document_);
}

}  // namespace quillary::documents
