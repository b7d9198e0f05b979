#include "pdf/PDFEscape.h"
#include "pdf/PDFWriter.h"
#include "pdf/WinAnsi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace quillary {
namespace {

constexpr std::array<std::string_view, 5> kFonts{"Helvetica", "Courier", "Times", "Symbol",
                                                 "ZapfDingbats"};
constexpr int kWatermarkSize = 50;

// In thousandths of the font size, below the base line.
constexpr double kUnderlineTop = 100;
constexpr double kUnderlineThickness = 50;
constexpr double kSecondUnderline = 3;  // points below the first

std::string FaceName(std::string_view font, bool bold, bool italic) {
  const bool isTimes = font == "Times";
  std::string name(font);
  if (bold && italic) return name + (isTimes ? "-BoldItalic" : "-BoldOblique");
  if (bold) return name + "-Bold";
  if (italic) return isTimes ? "TimesItalic" : name + "-Oblique";
  return isTimes ? "Times-Roman" : name;
}

/// A page text has each backslash doubled twice, so that two of them show.
std::string EscapePageText(std::string_view winAnsi, bool strict) {
  std::string text;
  text.reserve(winAnsi.size() + 8);
  while (!winAnsi.empty()) {
    const auto special = std::find_if(winAnsi.begin(), winAnsi.end(), [](char byte) {
      return byte == '\\' || byte == '(' || byte == ')';
    });
    text.append(winAnsi.begin(), special);
    winAnsi.remove_prefix(static_cast<std::size_t>(special - winAnsi.begin()));
    if (winAnsi.empty()) break;
    text += winAnsi.front() == '\\' && !strict ? "\\\\\\" : "\\";
    text += winAnsi.front();
    winAnsi.remove_prefix(1);
  }
  return text;
}

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

}  // namespace

void PDFWriter::PDFSetFont(int font, int size, int style) {
  const std::string digits = std::to_string(style);
  const auto has = [&digits](char digit) { return digits.find(digit) != std::string::npos; };
  underline_ = has('3');
  fontSize_ = size;
  if (font >= 0 && font < static_cast<int>(kFonts.size())) {
    fontName_ = FaceName(kFonts[static_cast<std::size_t>(font)], has('2'), has('1'));
  } else {
    WrongValue("Font name - ", "Font name set incorrectly : ", std::to_string(font),
               "Font set to Times New Roman.");
    fontName_ = "TimesRoman";
  }
  UseFont(fontName_);
}

/// The number of the face in the document, which a new face gets here.
int PDFWriter::UseFont(const std::string& face) {
  const auto found = std::find(fonts_.begin(), fonts_.end(), face);
  const auto index = static_cast<int>(found - fonts_.begin()) + 1;
  if (found == fonts_.end()) fonts_.push_back(face);
  return index;
}

void PDFWriter::PDFLoadAfm(const std::filesystem::path& folder) {
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(folder, error);
  if (!error && folder == listedFolder_ && changed == listedChange_) return;
  listedFolder_ = folder;
  listedChange_ = changed;
  metrics_.clear();
  fontNameList_.clear();
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    std::string name = entry.path().string();
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (name.find(".afm") == std::string::npos) continue;
    fontNameList_.push_back(entry.path().stem().string());
  }
  std::sort(fontNameList_.begin(), fontNameList_.end());
}

const AfmMetrics& PDFWriter::Metrics(std::string face) {
  if (face.empty()) face = fontName_.empty() ? std::string(kFonts[0]) : fontName_;
  if (face.starts_with("Arial")) face.replace(0, 5, kFonts[0]);
  if (const auto known = metrics_.find(face); known != metrics_.end()) return known->second;
  const std::string file = face + ".afm";
  std::error_code error;
  const bool listed = !std::filesystem::exists(fontPath_ / file, error) &&
                      std::filesystem::exists(listedFolder_ / file, error);
  const auto path = (listed ? listedFolder_ : fontPath_) / file;
  return metrics_.emplace(face, AfmMetrics::Load(path)).first->second;
}

/// The text as `font` (or else the font that is set) shows it, in the file and in every measure.
PDFWriter::SetText PDFWriter::Prepare(std::string_view utf8, std::string_view font) {
  if (!strict_ || host_.faces == nullptr || IsInWinAnsi(utf8)) return {ToWinAnsi(utf8), nullptr};
  if (font.empty()) font = fontName_;
  const auto has = [font](std::string_view part) {
    return font.find(part) != std::string_view::npos;
  };
  return {{}, &host_.faces->Shape(utf8, has("Bold"), has("Oblique") || has("Italic"))};
}

double PDFWriter::WidthInPoints(const SetText& text, std::string_view font, int size) {
  const double width = text.shaped != nullptr ? text.shaped->width
                                              : Metrics(std::string(font)).WidthOf(text.winAnsi);
  return width * size / 1000;
}

double PDFWriter::PDFGetStringWidth(std::string_view text, std::string_view font, int size) {
  return WidthInPoints(Prepare(text, font), font, size == 0 ? EffectiveFontSize() : size) /
         scaleFactor_;
}

void PDFWriter::PDFTextOut(std::string_view text, double x, double y) {
  if (x == 0) x = x_;
  if (y == 0) y = y_;
  const SetText set = Prepare(text, {});
  if (set.shaped != nullptr) NoteIfNotShown(text, *set.shaped);
  ShowText(pageContent_, set, AtX(x), AtY(y), rotation_);
  rotation_ = 0;
}

/// Text from a point of the page, in points, in the font and colour that are set.
void PDFWriter::ShowText(LineBuffer& content, const SetText& text, double x, double y,
                         double rotation) {
  if (strict_ && fontName_.empty()) fontName_ = kFonts[0];
  const std::string underline =
      underline_ ? UnderlineOperators(text, x, y, rotation) : std::string();
  content.AddLine("q ", textColor_, " ");
  content.AddLine("%DEBUT_TEXT/%");
  content.AddLine("BT");
  if (rotation != 0) {
    const double cosine = std::cos(Radians(rotation));
    const double sine = std::sin(Radians(rotation));
    content.AddLine(Decimal(cosine, 5), " ", Decimal(sine, 5), " ", Decimal(-sine, 5), " ",
                    Decimal(cosine, 5), " ", Decimal(x), " ", Decimal(y), " Tm");
  } else {
    content.AddLine(Decimal(x), " ", Decimal(y), " Td");
  }
  if (text.shaped != nullptr) {
    ShowGlyphs(content, *text.shaped);
  } else {
    const int font = fontName_.empty() ? 1 : UseFont(fontName_);
    content.AddLine("/F", font, " ", EffectiveFontSize(), " Tf");
    content.AddLine("(", EscapePageText(text.winAnsi, strict_), ") Tj");
  }
  content.AddLine("ET");
  if (!underline.empty()) content.AddLine(underline);
  content.AddLine("Q");
  content.AddLine("%FIN_TEXT/%");
}

/// Two thin filled rectangles, turned with the text.
std::string PDFWriter::UnderlineOperators(const SetText& text, double x, double y,
                                          double rotation) {
  const double size = EffectiveFontSize();
  const double width = WidthInPoints(text, fontName_, EffectiveFontSize());
  LineBuffer line;
  if (rotation != 0) {
    const double cosine = std::cos(Radians(rotation));
    const double sine = std::sin(Radians(rotation));
    for (const double number : {cosine, sine, -sine, cosine}) {
      line.Append(Decimal(number, 5));
      line.Append(" ");
    }
    line.Append(Decimal(x));
    line.Append(" ");
    line.Append(Decimal(y));
    line.Append(" cm ");
    x = y = 0;
  }
  for (const double below : {0.0, kSecondUnderline}) {
    const double top = y - kUnderlineTop * size / 1000 - below;
    if (below != 0) line.Append(" ");
    line.Append(Decimal(x));
    line.Append(" ");
    line.Append(Decimal(top));
    line.Append(" ");
    line.Append(Decimal(width));
    line.Append(" ");
    line.Append(Decimal(-kUnderlineThickness * size / 1000));
    line.Append(" re f");
  }
  return std::string(line.Text());
}

/// The watermark of the current page, in place of one prepared before. The letters stand
/// to the upper left of their base line, so that line starts to the right of an exactly centred
/// one.
void PDFWriter::PrepareWatermark() {
  pageGraphics_.Clear();
  if (watermark_.empty()) return;
  const std::string font = std::exchange(fontName_, std::string(kFonts[0]));
  const int size = std::exchange(fontSize_, kWatermarkSize);
  const bool underline = std::exchange(underline_, false);
  const std::string color = std::exchange(textColor_, "1.000 0.753 0.796 rg");
  const auto restore = [&] {
    fontName_ = font;
    fontSize_ = size;
    underline_ = underline;
    textColor_ = color;
  };
  try {
    const SetText text = Prepare(watermark_, {});
    const double reach = WidthInPoints(text, fontName_, fontSize_) * std::sin(Radians(45));
    const Page& page = CurrentPage();
    ShowText(pageGraphics_, text, page.width / 2 - reach / 2.75, page.height / 2 - reach / 2.15,
             45);
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

}  // namespace quillary
