#include "pdf/PDFWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quillary {
namespace {

constexpr int kBlack = 0;
/// How far a Bezier curve's control points reach along the radius to make a quarter of an ellipse.
constexpr double kEllipseReach = 11.0 / 20.0;

using Channels = PDFColor::Channels;

Channels FromNumber(int number) {
  return {number / 65536 & 255, number / 256 & 255, number & 255};
}

/// "#RRGGBB" with zeros put in front of a shorter number and a longer one cut to its last six
/// digits; nothing when the text is no such colour.
std::optional<Channels> HexToRGB(std::string_view text) {
  if (!text.starts_with('#')) return std::nullopt;
  text.remove_prefix(1);
  if (text.size() > 6) text.remove_prefix(text.size() - 6);
  int number = 0;
  if (!text.empty()) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0) {
      return std::nullopt;
    }
  }
  return FromNumber(number);
}

std::optional<Channels> ReadColor(const PDFColor& color) {
  if (const auto* html = std::get_if<std::string>(&color.Value())) return HexToRGB(*html);
  if (const auto* number = std::get_if<int>(&color.Value())) return FromNumber(*number & 0xFFFFFF);
  Channels channels = std::get<Channels>(color.Value());
  for (int& channel : channels) channel = std::clamp(channel, 0, 255);
  return channels;
}

/// The operator is "RG" for lines and "rg" for areas and letters.
std::string ColorOperator(const Channels& channels, std::string_view name) {
  std::string text;
  for (const int channel : channels) text += FormatNumber(channel / 255.0, 3) + " ";
  return text.append(name);
}

}  // namespace

void PDFWriter::PDFSetLineStyle(int style) {
  if (style < 0 || style > 3) {
    WrongValue("Line Style - ", "Line style set incorrectly : ", std::to_string(style),
               "Line style set to solid.");
    style = 0;
  }
  lineStyle_ = LineStyleOperator(style);
}

std::string PDFWriter::LineStyleOperator(int style) const {
  static constexpr std::array<std::array<int, 6>, 4> kDashes{
      {{}, {16, 8}, {8, 7, 1, 7}, {8, 4, 1, 4, 1, 4}}};
  std::string dashes;
  std::int64_t sum = 0;
  for (const int steps : kDashes[static_cast<std::size_t>(style)]) {
    if (steps == 0) break;
    const auto length = static_cast<std::int64_t>(steps * lineWidth_);
    sum += length;
    dashes += std::to_string(length) + " ";
  }
  // Dashes that are all cut to nothing are an error to a strict reader.
  if (dashes.empty() || (strict_ && sum == 0)) return "[] 0 d";
  return "[" + dashes + "] 0 d";
}

void PDFWriter::PDFSetLineWidth(double width) {
  lineWidth_ = std::isfinite(width) ? std::clamp(width * scaleFactor_, 0.0, 1e6) : 0;
}

void PDFWriter::PDFSetDrawMode(int mode) {
  static constexpr std::array<std::string_view, 3> kModes{"", "D", "DB"};
  if (mode < 0 || mode > 2) {
    WrongValue("Object Rectangle - ", "Draw Mode set incorrectly : ", std::to_string(mode),
               "Draw mode set to normal");
    mode = 0;
  }
  drawMode_ = kModes[static_cast<std::size_t>(mode)];
}

void PDFWriter::PDFSetTextColor(const PDFColor& color) {
  givenTextColor_ = color;
  const auto channels = ReadColor(color);
  if (!channels) {
    WrongValue("Text Color ", "Invalid HTMl color set", "", "Set color to  black.");
  }
  textColor_ = ColorOperator(channels.value_or(FromNumber(kBlack)), "rg");
}

void PDFWriter::PDFSetLineColor(const PDFColor& color) {
  givenLineColor_ = color;
  const auto channels = ReadColor(color);
  if (!channels) {
    WrongValue("Line Color - ", "Invalid line color set ", "", "Setting line color to black.");
  }
  lineColor_ = ColorOperator(channels.value_or(FromNumber(kBlack)), "RG");
}

void PDFWriter::PDFSetDrawColor(const PDFColor& color) {
  givenDrawColor_ = color;
  const auto channels = ReadColor(color);
  if (!channels) {
    WrongValue("Draw Color - ", "Invalid HTMl color set", "", "Set color to  black.");
  }
  drawColor_ = ColorOperator(channels.value_or(FromNumber(kBlack)), "rg");
}

void PDFWriter::PrepareLineStyle() {
  if (pageState_.lineStyle == lineStyle_) return;
  pageContent_.AddLine(lineStyle_);
  pageState_.lineStyle = lineStyle_;
}

/// Brings dashes and width of the page to what is set, ahead of a shape: its own width operator
/// comes too late for the shape itself.
void PDFWriter::PrepareLine() {
  PrepareLineStyle();
  if (pageState_.lineWidth == lineWidth_) return;
  pageContent_.AddLine(Decimal(lineWidth_), " w");
  pageState_.lineWidth = lineWidth_;
}

/// Ends a line's path. A strict reader takes no width inside of one; PrepareLine has set it then.
void PDFWriter::Stroke() {
  if (strict_) {
    pageContent_.AddLine("S");
  } else {
    pageContent_.AddLine(Decimal(lineWidth_), " w S");
    pageState_.lineWidth = lineWidth_;
  }
}

void PDFWriter::MoveTo(double x, double y) {
  pageContent_.AddLine(Decimal(x), " ", Decimal(y), " m");
}

void PDFWriter::LineTo(double x, double y) {
  pageContent_.AddLine(Decimal(x), " ", Decimal(y), " l");
}

void PDFWriter::CurveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
  pageContent_.AddLine(Decimal(x1), " ", Decimal(y1), " ", Decimal(x2), " ", Decimal(y2), " ",
                       Decimal(x3), " ", Decimal(y3), " c");
}

void PDFWriter::StrokedLine(std::string_view frame, double x1, double y1, double x2, double y2) {
  if (strict_) {
    PrepareLine();
  } else {
    PrepareLineStyle();
  }
  pageContent_.AddLine("%DEBUT_", frame, "/%");
  pageContent_.AddLine(lineColor_);
  if (lineColor_.ends_with("RG")) {
    pageContent_.AddLine(lineColor_.substr(0, lineColor_.size() - 2), "rg");
  }
  MoveTo(AtX(x1), AtY(y1));
  LineTo(AtX(x2), AtY(y2));
  Stroke();
  pageContent_.AddLine("%FIN_", frame, "/%");
}

void PDFWriter::PDFDrawLineHor(double x, double y, double length) {
  StrokedLine("LNH", x, y, x + length, y);
}

void PDFWriter::PDFDrawLineVer(double x, double y, double length) {
  StrokedLine("LNV", x, y, x, y + length);
}

void PDFWriter::PDFDrawLine(double x1, double y1, double x2, double y2) {
  StrokedLine("LN", x1, y1, x2, y2);
}

void PDFWriter::BeginShape(std::string_view frame) {
  PrepareLine();
  pageContent_.AddLine("%DEBUT_", frame, "/%");
  pageContent_.AddLine(lineColor_);
  pageContent_.AddLine(drawColor_);
}

void PDFWriter::PDFDrawRectangle(double x, double y, double width, double height,
                                 const PDFTarget& link) {
  if (!link.IsEmpty()) PDFLink("RECTANGLE", x, y, width, height, link);
  BeginShape("RECT");
  const std::string_view paint = drawMode_ == "D" ? "f" : drawMode_ == "DB" ? "B" : "s";
  pageContent_.AddLine(Decimal(AtX(x)), " ", Decimal(AtY(y)), " ", Decimal(AtX(width)), " ",
                       Decimal(AtX(height) * -1), " re ", paint);
  if (!strict_) Stroke();
  pageContent_.AddLine("%FIN_RECT/%");
}

void PDFWriter::PDFDrawEllipse(double x, double y, double radiusX, double radiusY,
                               const PDFTarget& link) {
  if (!link.IsEmpty()) PDFLink("ELLIPSE", x, y, radiusX, radiusY, link);
  const double centreX = AtX(x);
  const double centreY = AtY(y);
  const double across = AtX(radiusX);
  const double down = AtX(radiusY);
  const double reachX = across * kEllipseReach;
  const double reachY = down * kEllipseReach;
  BeginShape("ELLIPSE");
  MoveTo(centreX + across, centreY);
  CurveTo(centreX + across, centreY + reachY, centreX + reachX, centreY + down, centreX,
          centreY + down);
  CurveTo(centreX - reachX, centreY + down, centreX - across, centreY + reachY, centreX - across,
          centreY);
  CurveTo(centreX - across, centreY - reachY, centreX - reachX, centreY - down, centreX,
          centreY - down);
  CurveTo(centreX + reachX, centreY - down, centreX + across, centreY - reachY, centreX + across,
          centreY);
  pageContent_.AddLine(drawMode_ == "D" ? "h f" : drawMode_ == "DB" ? "B" : "s");
  pageContent_.AddLine(Decimal(lineWidth_), " w ");
  pageContent_.AddLine("%FIN_ELLIPSE/%");
}

void PDFWriter::PDFDrawPolygon(const std::vector<PDFPoint>& points) {
  if (points.empty()) return;
  BeginShape("POLY");
  MoveTo(AtX(points.front().x), AtY(points.front().y));
  for (auto point = points.begin() + 1; point != points.end(); ++point) {
    LineTo(AtX(point->x), AtY(point->y));
  }
  // Closed before it is painted: "B" alone would leave the last side without its line.
  pageContent_.AddLine(drawMode_ == "D" ? "f" : drawMode_ == "DB" ? "h B" : "s");
  pageContent_.AddLine(Decimal(lineWidth_), " w ");
  pageContent_.AddLine("%FIN_POLY/%");
}

}  // namespace quillary
