#include "pdf/PDFWriter.h"

#include <algorithm>
#include <cmath>

namespace quillary {
namespace {

constexpr std::string_view kVersion = "PDFWriter 1.0";
constexpr double kPointsPerInch = 72;
constexpr double kPointsPerCentimetre = kPointsPerInch / 2.54;
constexpr double kFirstLineWidth = 0.567;

struct PageSize {
  double width;
  double height;
};

// A4, A3, A5, Letter, Legal
constexpr std::array<PageSize, 5> kPageSizes{
    {{595.28, 841.89}, {841.89, 1190.55}, {420.94, 595.28}, {612, 792}, {612, 1008}}};

bool IsSize(double length) {
  return std::isfinite(length) && length > 0;
}

}  // namespace

PDFWriter::PDFWriter(PDFHost host) : host_(std::move(host)) {
  PDFInit();
}

void PDFWriter::PDFInit() {
  if (fontPath_.empty()) fontPath_ = host_.applicationFolder;
  PDFLoadAfm(fontPath_);

  scaleFactor_ = kPointsPerCentimetre;
  unit_ = 2;
  zoomMode_ = layoutMode_ = 0;
  useThumbs_ = useOutlines_ = false;
  for (std::string* text :
       {&title_, &author_, &creator_, &keywords_, &subject_, &producer_, &viewerPreferences_,
        &watermark_, &fontName_, &alignment_, &border_, &drawMode_}) {
    text->clear();
  }

  const double margin = kPointsPerCentimetre / 28.35;
  PDFSetMargins(static_cast<int>(std::lround(margin)), static_cast<int>(std::lround(margin)));
  cellMargin_ = static_cast<int>(std::lround(margin / 10 * scaleFactor_));
  x_ = leftMargin_;
  y_ = topMargin_;

  pageCount_ = 1;
  pages_.assign(1, Page{kPageSizes[0].width, kPageSizes[0].height, 'p'});
  objectNumber_ = 0;
  offsets_.clear();
  filePosition_ = 0;
  objectBuffer_.Clear();
  pageContent_.Clear();
  pageGraphics_.Clear();
  fonts_.clear();
  embedded_.clear();
  notShown_.clear();
  images_.clear();
  placedImages_.clear();
  links_.clear();
  bookmarks_.clear();

  fontSize_ = 0;
  underline_ = fill_ = false;
  rotation_ = 0;
  lineWidth_ = kFirstLineWidth;
  lineStyle_ = LineStyleOperator(0);
  lineColor_ = "0 G";
  drawColor_ = textColor_ = "0 g";
  givenTextColor_ = givenLineColor_ = givenDrawColor_ = 0;
}

void PDFWriter::ShowMessage(std::string_view titlePart, const std::string& text) const {
  if (host_.showMessage) host_.showMessage(std::string(titlePart) + std::string(kVersion), text);
}

void PDFWriter::WrongValue(std::string_view titlePart, std::string_view text,
                           const std::string& value, std::string_view fallback) const {
  ShowMessage(titlePart, std::string(text) + value + ".\r\n" + std::string(fallback));
}

void PDFWriter::PDFPathConfiguration(const std::filesystem::path& path) {
  fontPath_ = path;
  metrics_.clear();
}

void PDFWriter::PDFSetZoomMode(int mode) {
  if (mode < 0) {
    WrongValue("Zoom Mode - ", "Incorrect Zoom Mode : ", std::to_string(mode),
               "Focus will be set to full-page zoom");
    mode = 0;
  }
  zoomMode_ = mode;
}

void PDFWriter::PDFSetLayoutMode(int mode) {
  if (mode < 0 || mode > 3) {
    WrongValue("Layout Mode - ", "Layout incorrect : ", std::to_string(mode),
               "Layout will be set to simple single page.");
    mode = 0;
  }
  layoutMode_ = mode;
}

void PDFWriter::PDFSetUnit(int unit) {
  if (unit < 0 || unit > 2) {
    WrongValue("Error in measurement unit - ", "Incorrect Unit of Measure : ", std::to_string(unit),
               "Using centimeter ");
    unit = 2;
  }
  static constexpr std::array<double, 3> kScales{1, kPointsPerInch / 25.4, kPointsPerCentimetre};
  unit_ = unit;
  scaleFactor_ = kScales[static_cast<std::size_t>(unit)];
}

void PDFWriter::PDFOrientation(int orientation) {
  if (orientation != 1 && orientation != 2) {
    WrongValue("Error in orientation - ",
               "Orientation set incorrectly: ", std::to_string(orientation),
               "Orientation set to portrait.");
    orientation = 1;
  }
  Page& page = pages_[PageToSet()];
  const char wanted = orientation == 2 ? 'l' : 'p';
  if (page.orientation != wanted) std::swap(page.width, page.height);
  page.orientation = wanted;
}

void PDFWriter::PDFFormatPage(const PDFPageFormat& format) {
  Page& page = pages_[PageToSet()];
  PageSize size = kPageSizes[0];
  if (const auto* own = std::get_if<std::vector<double>>(&format)) {
    if (own->size() == 2 && IsSize((*own)[0]) && IsSize((*own)[1])) {
      page.width = (*own)[0] * scaleFactor_;
      page.height = (*own)[1] * scaleFactor_;
      return;
    }
    std::string value;
    for (const double length : *own) value += (value.empty() ? "" : ", ") + FormatNumber(length, 2);
    WrongValue("Format Page - ", "Format page set incorrectly : ", value, "Format page set to A4");
  } else {
    const int number = std::get<int>(format);
    if (number >= 0 && number < static_cast<int>(kPageSizes.size())) {
      size = kPageSizes[static_cast<std::size_t>(number)];
    } else {
      WrongValue("Format Page - ", "Format page set incorrectly : ", std::to_string(number),
                 "Format page set to A4.");
    }
  }
  page.width = size.width;
  page.height = size.height;
  if (page.orientation == 'l') std::swap(page.width, page.height);
}

void PDFWriter::PDFFileName(const std::filesystem::path& file) {
  fileName_ = file;
  objectNumber_ = 0;  // a document that was given up ends here
  output_.Open(file);
}

void PDFWriter::PDFSetMargins(int left, int top, int right, int bottom) {
  leftMargin_ = left;
  topMargin_ = top;
  rightMargin_ = right == -1 ? left : right;
  bottomMargin_ = bottom == -1 ? top : bottom;
}

}  // namespace quillary
