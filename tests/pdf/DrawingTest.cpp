#include "PDFFixture.h"

namespace quillary {
namespace {

class DrawingTest : public PDFTest {
 protected:
  DrawingTest() {
    writer.PDFSetUnit(0);
    writer.PDFPageHeight(1000);
    writer.PDFSetFont(1, 10, 0);  // every character is 6 points wide
  }
  /// The page's lines, each shown ended by "\n".
  std::string Drawn(void (*draw)(PDFWriter&), bool strict = false) {
    Begin(strict);
    draw(writer);
    std::string page = Between(End(), "stream\r\n", "endstream");
    std::erase(page, '\r');
    return page;
  }
};

TEST_F(DrawingTest, LineStylesCutTheirDashesToWholePoints) {
  struct Case {
    int style;
    double width;
    const char* operators;
    const char* strict;
  };
  const Case cases[] = {
      {1, 1, "[16 8 ] 0 d", "[16 8 ] 0 d"},
      {1, 0.567, "[9 4 ] 0 d", "[9 4 ] 0 d"},
      {2, 1.5, "[12 10 1 10 ] 0 d", "[12 10 1 10 ] 0 d"},
      {3, 2, "[16 8 2 8 2 8 ] 0 d", "[16 8 2 8 2 8 ] 0 d"},
      {1, 0.01, "[0 0 ] 0 d", ""},
  };
  for (const bool strict : {false, true}) {
    for (const Case& c : cases) {
      writer.PDFSetStrict(strict);
      writer.PDFSetLineWidth(c.width);
      writer.PDFSetLineStyle(c.style);
      Begin(strict);
      writer.PDFDrawLine(1, 1, 2, 2);
      const std::string page = Between(End(), "stream\r\n", "endstream");
      const std::string expected = strict ? c.strict : c.operators;
      EXPECT_EQ(page.find(" d\r") != std::string::npos, !expected.empty());
      EXPECT_EQ(page.rfind(expected, 0), 0u) << page;
    }
  }
}

TEST_F(DrawingTest, ShapesAreFramedAndPainted) {
  struct Case {
    const char* what;
    void (*draw)(PDFWriter&);
    const char* page;
    const char* strict;
  };
  const Case cases[] = {
      {"vertical line in a colour, the style set once",
       [](PDFWriter& w) {
         w.PDFSetLineColor("#FF0000");
         w.PDFSetLineWidth(0);
         w.PDFDrawLineVer(10, 20, 30);
       },
       "%DEBUT_LNV/%\n1.000 0.000 0.000 RG\n1.000 0.000 0.000 rg\n10.00 980.00 m\n10.00 950.00 l\n"
       "0.00 w S\n%FIN_LNV/%\n",
       "0.00 w\n%DEBUT_LNV/%\n1.000 0.000 0.000 RG\n1.000 0.000 0.000 rg\n10.00 980.00 m\n"
       "10.00 950.00 l\nS\n%FIN_LNV/%\n"},
      {"rectangle without a height",
       [](PDFWriter& w) {
         w.PDFSetLineWidth(2);
         w.PDFSetDrawMode(0);
         w.PDFDrawRectangle(10, 20, 30, 0);
       },
       "2.00 w\n%DEBUT_RECT/%\n0 G\n0 g\n10.00 980.00 30.00 0.00 re s\n2.00 w S\n%FIN_RECT/%\n",
       "2.00 w\n%DEBUT_RECT/%\n0 G\n0 g\n10.00 980.00 30.00 0.00 re s\n%FIN_RECT/%\n"},
      {"filled ellipse",
       [](PDFWriter& w) {
         w.PDFSetLineWidth(1);
         w.PDFSetDrawMode(1);
         w.PDFDrawEllipse(100, 100, 20, 10);
       },
       "%DEBUT_ELLIPSE/%\n0 G\n0 g\n120.00 900.00 m\n"
       "120.00 905.50 111.00 910.00 100.00 910.00 c\n89.00 910.00 80.00 905.50 80.00 900.00 c\n"
       "80.00 894.50 89.00 890.00 100.00 890.00 c\n111.00 890.00 120.00 894.50 120.00 900.00 c\n"
       "h f\n1.00 w \n%FIN_ELLIPSE/%\n",
       nullptr},
      {"polygon with all its sides",
       [](PDFWriter& w) {
         w.PDFSetLineWidth(1);
         w.PDFSetDrawMode(2);
         w.PDFDrawPolygon({{0, 0}, {10, 0}, {0, 10}});
       },
       "%DEBUT_POLY/%\n0 G\n0 g\n0.00 1000.00 m\n10.00 1000.00 l\n0.00 990.00 l\nh B\n1.00 w \n"
       "%FIN_POLY/%\n",
       nullptr},
      {"two centred rows in one border",
       [](PDFWriter& w) {
         w.PDFSetLineWidth(1);
         w.PDFSetBorder("1");
         w.PDFCell("ab\r\ncdef", 100, 100, 50, 20, "C");
       },
       "%DEBUT_CELL/%\n0 G\n0 g\n100.00 900.00 m\n100.00 880.00 l\n1.00 w S\n150.00 900.00 m\n"
       "150.00 880.00 l\n1.00 w S\n100.00 900.00 m\n150.00 900.00 l\n1.00 w S\n"
       "q 0 g \n%DEBUT_TEXT/%\nBT\n119.00 887.00 Td\n/F1 10 Tf\n(ab) Tj\nET\nQ\n%FIN_TEXT/%\n"
       "0 Tw\n%FIN_CELL/%\n"
       "%DEBUT_CELL/%\n0 G\n0 g\n100.00 880.00 m\n100.00 860.00 l\n1.00 w S\n150.00 880.00 m\n"
       "150.00 860.00 l\n1.00 w S\n100.00 860.00 m\n150.00 860.00 l\n1.00 w S\n"
       "q 0 g \n%DEBUT_TEXT/%\nBT\n113.00 867.00 Td\n/F1 10 Tf\n(cdef) Tj\nET\nQ\n%FIN_TEXT/%\n"
       "0 Tw\n%FIN_CELL/%\n",
       nullptr},
      {"filled cell, stretched over its width but for the last line",
       [](PDFWriter& w) {
         w.PDFSetLineWidth(1);
         w.PDFSetFill(true);
         w.PDFSetAlignement("J");
         w.PDFCell("a b c\na b", 100, 100, 56, 20);
       },
       "%DEBUT_CELL/%\n0 G\n0 g\n100.00 900.00 56.00 -20.00 re f\n10.000 Tw\n"
       "q 0 g \n%DEBUT_TEXT/%\nBT\n103.00 887.00 Td\n/F1 10 Tf\n(a b c) Tj\nET\nQ\n%FIN_TEXT/%\n"
       "0 Tw\n%FIN_CELL/%\n"
       "%DEBUT_CELL/%\n0 G\n0 g\n100.00 880.00 56.00 -20.00 re f\n"
       "q 0 g \n%DEBUT_TEXT/%\nBT\n103.00 867.00 Td\n/F1 10 Tf\n(a b) Tj\nET\nQ\n%FIN_TEXT/%\n"
       "0 Tw\n%FIN_CELL/%\n",
       nullptr},
  };
  for (const Case& c : cases) {
    for (const bool strict : {false, true}) {
      if (strict && c.strict == nullptr) continue;
      writer.PDFInit();
      writer.PDFSetUnit(0);
      writer.PDFPageHeight(1000);
      writer.PDFSetFont(1, 10, 0);
      writer.PDFSetLineWidth(1);
      EXPECT_EQ(Drawn(c.draw, strict), strict ? c.strict : c.page) << c.what;
    }
  }
}

TEST_F(DrawingTest, LineStyleHoldsOnTheNextPageToo) {
  writer.PDFSetLineWidth(1);
  writer.PDFSetLineStyle(1);
  Begin();
  writer.PDFDrawLineHor(1, 1, 1);
  writer.PDFDrawLineHor(1, 2, 1);
  writer.PDFNewPage();
  writer.PDFDrawLineHor(1, 1, 1);
  EXPECT_EQ(CountOf(End(), "[16 8 ] 0 d\r\n"), 2);
}

TEST_F(DrawingTest, BordersTakeTheirNormalForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"1", "LRTB"}, {"0", ""}, {"", ""}, {"BL", "LB"}, {"TTxR", "RT"}};
  for (const auto& [given, normal] : cases) {
    writer.PDFSetBorder(given);
    EXPECT_EQ(writer.PDFGetBorder(), normal);
  }
}

TEST_F(DrawingTest, ImagesKeepTheirShapeAndAreStoredOnce) {
  const auto image = TestImage("rgb.jpg");
  Begin(true);
  writer.PDFImage(image, 100, 100);
  writer.PDFImage(TestImage("gray.jpg"), 0, 0, 30);
  writer.PDFImage(image, 0, 0, 0, 20, "https://a.example");
  EXPECT_EQ(writer.PDFImageWidth(TestImage("cmyk.jpg")), 60);  // asked for, not placed
  writer.PDFNewPage();
  writer.PDFImage(image, 0, 0, 7, 8);
  const std::string bytes = End();
  for (const char* operators :
       {"q\r\n60.00 0 0 40.00 100.00 860.00 cm /ImgJPEG1 Do Q\r\n",
        "30.00 0 0 20.00 0.00 980.00 cm /ImgJPEG2 Do Q", "30.00 0 0 20.00 0.00 980.00 cm /ImgJPEG1",
        "7.00 0 0 8.00 0.00 992.00 cm /ImgJPEG1", "/Rect [0.00 980.00 30.00 1000.00]",
        "/XObject << \r\n/ImgJPEG1 9 0 R\r\n/ImgJPEG2 10 0 R\r\n>>"}) {
    EXPECT_NE(bytes.find(operators), std::string::npos) << operators;
  }
  const std::string jpeg = ReadBytes(image);
  EXPECT_NE(
      bytes.find("9 0 obj\r\n<</Type /XObject\r\n/Subtype /Image\r\n/Filter [/DCTDecode ]\r\n"
                 "/Width 60\r\n/Height 40\r\n/ColorSpace /DeviceRGB\r\n/BitsPerComponent 8\r\n"
                 "/Length " +
                 std::to_string(jpeg.size()) + ">>\r\nstream\r\n" + jpeg +
                 "\r\nendstream\r\nendobj\r\n\r\n10 0 obj"),
      std::string::npos);
  EXPECT_EQ(CountOf(bytes, "/Subtype /Image"), 2);
  ExpectStrictlyValid();
}

TEST_F(DrawingTest, BrokenImageIsNamedAndLeavesThePageWhole) {
  const auto broken = folder / "broken.jpeg";
  WriteBytes(broken, ReadBytes(TestImage("rgb.jpg")).substr(0, 500));
  Begin();
  for (const auto& image : {broken, folder / "missing.jpg"}) {
    try {
      writer.PDFImage(image, 1, 1);
      ADD_FAILURE() << "taken: " << image;
    } catch (const PDFError& error) {
      EXPECT_NE(std::string(error.what()).find(image.string()), std::string::npos);
    }
  }
  EXPECT_EQ(Between(End(), "stream\r\n", "endstream"), "");
}

}  // namespace
}  // namespace quillary
