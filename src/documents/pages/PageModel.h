#pragma once

#include <QString>

#include <vector>

/// A composed page: what stands where, in twips (1/1440 inch) from its left and upper edges, y
/// growing downward. Screen, paper and PDF all draw from it, so that they cannot differ.
namespace quillary::documents {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerCentimetre = kTwipsPerInch / 2.54;

enum class Align { Left, Right, Centre };

enum class Paper { A3, A4, A5, Letter, Legal };

struct Margins {
  double left = 725;
  double right = 725;
  double top = 725;
  double bottom = 725;
};

struct PageSetup {
  Paper paper = Paper::A4;
  bool landscape = false;
  Margins margins = {};

  double Width() const;   // as the page lies
  double Height() const;  // as the page lies
};

struct PageFont {
  QString name = QStringLiteral("Arial");
  double size = 9;  // points
  bool bold = false;
  bool italic = false;
  int colour = 0;  // 0xRRGGBB

  bool operator==(const PageFont&) const = default;
};

/// One line of text in one font.
struct TextRun {
  QString text;
  PageFont font = {};
  double x = 0;
  double baseline = 0;
  double width = 0;   // as measured; whoever draws it stretches the text to it
  double top = 0;     // of the line that it stands in
  double height = 0;  // of the line that it stands in
  Align align = Align::Left;
  int link = -1;  // the number that its row was given; -1 leads nowhere
};

struct PageLine {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double width = 0;  // 0 is the thinnest that can be seen
  int colour = 0;    // 0xRRGGBB
};

/// A JPEG file. It is read when the page is drawn.
struct PagePicture {
  QString file;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct Page {
  std::vector<TextRun> texts;
  std::vector<PageLine> lines;
  std::vector<PagePicture> pictures;
};

}  // namespace quillary::documents
