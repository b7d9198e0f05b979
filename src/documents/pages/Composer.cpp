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
  setup_.margins = margins;
  if (!isUntouched_ || PageCount() > 1) return;
  document_.setup.margins = margins;
  currentY_ = margins.top;
}

void Composer::SetCurrentY(double y) {
  // A file that flows can be moved on, not back.
  if (y > currentY_) AddBlock(SpaceBlock{y - currentY_});
  currentY_ = y;
}

void Composer::AddBlock(Block block) {
  isUntouched_ = false;
  if (take_)
    take_(block);
  else
    document_.blocks.push_back(std::move(block));
}

void Composer::NewPage() {
  AddBlock(PageBreakBlock{});
  TurnPage();
}

void Composer::TurnPage() {
  document_.pages.Add();
  currentY_ = setup_.margins.top;
}

void Composer::AddText(const QString& text, Align align) {
  const double room = RightEdge() - LeftEdge();
  const double height = PageFonts::LineHeight(font_);
  AddBlock(TextBlock{text, font_, align});
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
  TableBlock block{std::move(table), font_, {}};
  TablePlacer placer(*this, block.table);
  block.widths = placer.Widths();
  placer.Run();
  AddBlock(std::move(block));
}

void Composer::AddRule(double below) {
  AddBlock(RuleBlock{below});
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
  AddBlock(RawRtfBlock{raw});
}

PageList::Footer Composer::FooterOfPages() const {
  if (document_.footer.isEmpty()) return {};
  return [words = document_.footer, left = LeftEdge(), room = RightEdge() - LeftEdge(),
          top = BottomEdge() + kFooterGap, fonts = document_.fonts](int number, int count) {
    QString text = words;
    text.replace(QLatin1StringView("%1"), QString::number(number));
    text.replace(QLatin1StringView("%2"), QString::number(count));
    return PlaceText(text, {.size = kFooterSize}, Align::Right, left, room, top, *fonts);
  };
}

Composition Composer::SoFar() const {
  Composition made = document_;
  made.pages.SetFooter(FooterOfPages());
  return made;
}

Composition Composer::Finish(const QString& title) {
  document_.title = title;
  document_.pages.SetFooter(FooterOfPages());
  return std::move(document_);
}

}  // namespace quillary::documents
