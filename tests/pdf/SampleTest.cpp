#include "PDFFixture.h"

#include <sstream>

namespace quillary {
namespace {

/// A rendered page, as pdftoppm writes it at one pixel a point.
class Picture {
 public:
  explicit Picture(const std::filesystem::path& file) {
    std::istringstream stream(ReadBytes(file));
    std::string kind;
    int most = 0;
    stream >> kind >> width_ >> height_ >> most;
    stream.get();
    pixels_.assign(std::istreambuf_iterator<char>(stream), {});
  }
  std::string Size() const { return std::to_string(width_) + "x" + std::to_string(height_); }
  /// At a place in points from the upper left, as "#RRGGBB".
  std::string At(int x, int y) const {
    char text[8];
    const auto* p = reinterpret_cast<const unsigned char*>(&pixels_[Index(x, y)]);
    std::snprintf(text, sizeof text, "#%02X%02X%02X", p[0], p[1], p[2]);
    return text;
  }
  bool IsNear(int x, int y, int red, int green, int blue) const {
    const auto* p = reinterpret_cast<const unsigned char*>(&pixels_[Index(x, y)]);
    return std::abs(p[0] - red) < 24 && std::abs(p[1] - green) < 24 && std::abs(p[2] - blue) < 24;
  }
  /// The pixels of an area that are not white.
  int Inked(int left, int top, int right, int bottom) const {
    int count = 0;
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) count += At(x, y) != "#FFFFFF";
    }
    return count;
  }

 private:
  std::size_t Index(int x, int y) const { return static_cast<std::size_t>(3 * (y * width_ + x)); }

  int width_ = 0;
  int height_ = 0;
  std::string pixels_;
};

class SampleTest : public PDFTest {
 protected:
  void TextPage() {
    static constexpr const char* kNames[] = {"Arial", "Courier", "Times", "Symbol", "Dingbats"};
    double y = 40;
    for (int font = 0; font < 5; ++font) {
      for (const int style : {0, 1, 2, 12, 3}) {
        writer.PDFSetFont(font, 14, style);
        writer.PDFTextOut(std::string(kNames[font]) + " " + std::to_string(style) + " Zoë’s €5",
                          style == 3 ? 350 : 40, y);
        y += style == 12 ? 0 : 22;
      }
      writer.PDFSetBookmark(kNames[font], 1, y);
    }
    writer.PDFSetFont(0, 18, 3);
    writer.PDFSetTextColor("#C00000");
    writer.PDFSetRotation(30);
    writer.PDFTextOut("turned and underlined", 350, 700);
    writer.PDFSetTextColor(0);
    writer.PDFSetFont(0, 12, 0);
    writer.PDFTextOut("to page two", 40, 700);
    writer.PDFLink("RECT", 40, 688, 80, 16, PDFTarget(2, 0));
  }

  void ShapePage() {
    static constexpr int kColors[] = {0xC00000, 0x00A000, 0x0000C0};
    for (int style = 0; style < 4; ++style) {
      writer.PDFSetLineWidth(1 + style);
      writer.PDFSetLineStyle(style);
      writer.PDFSetLineColor(kColors[style % 3]);
      writer.PDFDrawLineHor(40, 40 + style * 15, 300);
      writer.PDFDrawLineVer(400 + style * 15, 40, 60);
      writer.PDFDrawLine(480, 40 + style * 15, 560, 60 + style * 15);
    }
    writer.PDFSetLineStyle(0);
    writer.PDFSetLineWidth(3);
    for (int mode = 0; mode < 3; ++mode) {
      const double x = 40 + 180 * mode;
      writer.PDFSetDrawMode(mode);
      writer.PDFSetDrawColor(PDFColor(255, 220, 0));
      writer.PDFDrawRectangle(x, 120, 120, 60, "https://rectangle.example");
      writer.PDFDrawEllipse(x + 60, 250, 60, 30, "https://ellipse.example");
      writer.PDFDrawPolygon({{x, 360}, {x + 60, 300}, {x + 120, 360}, {x + 60, 330}});
    }
    writer.PDFImage(TestImage("rgb.jpg"), 40, 400, 0, 0, "https://image.example");
    writer.PDFImage(TestImage("gray.jpg"), 140, 400, 90);
    writer.PDFImage(TestImage("progressive.jpg"), 270, 400, 0, 60);
    writer.PDFImage(TestImage("cmyk.jpg"), 400, 400);
    writer.PDFImage(TestImage("exif.jpg"), 500, 400);
  }

  void CellPage() {
    writer.PDFSetFont(2, 12, 0);
    writer.PDFSetLineWidth(0.5);
    writer.PDFSetFill(true);
    writer.PDFSetDrawColor("#DDEEFF");
    writer.PDFSetBorder("1");
    writer.PDFCell("left", 40, 40, 150, 24);
    writer.PDFCell("centre", 190, 40, 150, 24, "C");
    writer.PDFCell("right", 340, 40, 150, 24, "R", "https://cell.example");
    writer.PDFSetFill(false);
    writer.PDFCell("three lines\r\nstretched over\r\nthe cell", 40, 80, 150, 18, "J");
    writer.PDFSetBorder("TB");
    writer.PDFCell("above and below", 340, 80, 150, 24);
  }

  void WriteSample(bool strict) {
    writer.PDFTitle("Sample");
    writer.PDFWatermark("SAMPLE");
    writer.PDFUseOutlines(true);
    writer.PDFSetViewerPreferences("6");
    writer.PDFSetUnit(0);
    Begin(strict);
    writer.PDFSetBookmark("Text", 0, 0);
    TextPage();
    writer.PDFEndPage();
    writer.PDFNewPage();
    writer.PDFSetBookmark("Shapes", 0, 0);
    ShapePage();
    writer.PDFEndPage();
    writer.PDFNewPage();
    writer.PDFOrientation(2);
    CellPage();
    writer.PDFEndPage();
    writer.PDFNewPage();
    writer.PDFFormatPage(std::vector{300.0, 200.0});
    writer.PDFTextOut("custom page", 40, 40);
    writer.PDFEndDoc();
  }
};

TEST_F(SampleTest, EveryOperationShowsOnThePage) {
  for (const bool strict : {false, true}) {
    SCOPED_TRACE(strict ? "strict" : "default");
    writer.PDFInit();
    WriteSample(strict);
    if (const char* keep = std::getenv("QUILLARY_KEEP_SAMPLE")) {
      std::filesystem::copy_file(file, std::string(keep) + (strict ? "-strict.pdf" : ".pdf"),
                                 std::filesystem::copy_options::overwrite_existing);
    }

    const std::string text = Run("pdftotext -enc UTF-8", "- 2>/dev/null");
    for (const char* part : {"Arial 0 Zoë’s €5", "Courier 12 Zoë’s €5", "Times 3 Zoë’s €5",
                             "to page two", "centre", "stretched", "custom page"}) {
      EXPECT_NE(text.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(CountOf(text, "\f"), 4);

    const std::string output = Run("pdftoppm -r 72", "'" + (folder / "page").string() + "'");
    const Picture shapes(folder / "page-2.ppm");
    EXPECT_EQ(shapes.Size(), "596x842");
    EXPECT_TRUE(shapes.IsNear(100, 40, 192, 0, 0)) << "solid line " << shapes.At(100, 40);
    EXPECT_EQ(shapes.At(100, 140), "#FFFFFF") << "outlined rectangle";
    EXPECT_TRUE(shapes.IsNear(280, 150, 255, 220, 0)) << "filled rectangle";
    EXPECT_TRUE(shapes.IsNear(400, 150, 192, 0, 0)) << "outline " << shapes.At(400, 150);
    EXPECT_TRUE(shapes.IsNear(460, 250, 255, 220, 0)) << "filled ellipse";
    EXPECT_EQ(shapes.At(402, 222), "#FFFFFF") << "outside of the ellipse";
    EXPECT_TRUE(shapes.IsNear(460, 325, 255, 220, 0)) << "polygon";
    EXPECT_EQ(shapes.At(460, 350), "#FFFFFF") << "the polygon's notch";
    EXPECT_TRUE(shapes.IsNear(50, 405, 220, 200, 30)) << "colour image " << shapes.At(50, 405);
    EXPECT_TRUE(shapes.IsNear(50, 435, 220, 40, 30)) << "colour image " << shapes.At(50, 435);
    EXPECT_TRUE(shapes.IsNear(150, 405, 0, 0, 0)) << "grey image " << shapes.At(150, 405);
    EXPECT_TRUE(shapes.IsNear(280, 450, 220, 40, 30)) << "progressive " << shapes.At(280, 450);

    if (strict) {  // the other kind says nothing of how inks are stored
      ExpectStrictlyValid();
      EXPECT_EQ(output, "");
      EXPECT_TRUE(shapes.IsNear(410, 405, 46, 49, 146)) << "ink image " << shapes.At(410, 405);
    }

    const Picture cells(folder / "page-3.ppm");
    EXPECT_EQ(cells.Size(), "842x596");
    EXPECT_TRUE(cells.IsNear(120, 50, 0xDD, 0xEE, 0xFF)) << "filled cell " << cells.At(120, 50);
    EXPECT_GT(cells.Inked(42, 42, 80, 62), cells.Inked(492, 42, 530, 62)) << "text on the left";
    EXPECT_EQ(Picture(folder / "page-4.ppm").Size(), "300x200");
    const Picture texts(folder / "page-1.ppm");
    EXPECT_GT(texts.Inked(0, 300, 596, 560), 3000) << "the watermark";
    for (const auto& page : std::filesystem::directory_iterator(folder)) {
      if (page.path().extension() == ".ppm") std::filesystem::remove(page.path());
    }
  }
}

}  // namespace
}  // namespace quillary
