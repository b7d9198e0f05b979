#include "PDFFixture.h"

namespace quillary {
namespace {

class TextTest : public PDFTest {
 protected:
  std::string FirstPage() { return Between(End(), "stream\r\n", "endstream"); }
};

TEST_F(TextTest, FacesOfFontAndStyle) {
  struct Case {
    int font, style;
    const char* face;
  };
  const Case cases[] = {{0, 0, "Helvetica"},
                        {0, 2, "Helvetica-Bold"},
                        {0, 12, "Helvetica-BoldOblique"},
                        {1, 1, "Courier-Oblique"},
                        {1, 321, "Courier-BoldOblique"},
                        {2, 0, "Times-Roman"},
                        {2, 1, "TimesItalic"},
                        {2, 2, "Times-Bold"},
                        {2, 21, "Times-BoldItalic"},
                        {3, 0, "Symbol"},
                        {4, 3, "ZapfDingbats"},
                        {-1, 2, "TimesRoman"}};
  for (const Case& c : cases) {
    writer.PDFSetFont(c.font, 8, c.style);
    EXPECT_EQ(writer.PDFGetFontName(), c.face);
    EXPECT_GT(writer.PDFGetStringWidth("a"), 0) << "no metrics of " << c.face;
  }
  writer.PDFSetFont(0, 8, 0);  // a second time
  Begin();
  const std::string bytes = End();
  EXPECT_EQ(CountOf(bytes, "/BaseFont"), 12);
  EXPECT_NE(bytes.find("/Name /F12\r\n/BaseFont /TimesRoman\r\n"), std::string::npos);
}

TEST_F(TextTest, StrictFilesNameTheBuiltInFaces) {
  for (int font = -1; font <= 4; ++font) {
    for (const int style : {0, 1, 2, 12}) writer.PDFSetFont(font, 8, style);
  }
  Begin(true);
  const std::string bytes = End();
  EXPECT_EQ(CountOf(bytes, "/BaseFont /Times-Italic\r"), 1);
  EXPECT_EQ(CountOf(bytes, "/BaseFont /Times-Roman\r"), 2);
  EXPECT_EQ(CountOf(bytes, "/BaseFont /Symbol\r\n>>"), 4);
  EXPECT_EQ(CountOf(bytes, "/BaseFont /ZapfDingbats\r\n>>"), 4);
}

TEST_F(TextTest, TextIsFramedPlacedAndColoured) {
  writer.PDFSetUnit(0);
  writer.PDFSetFont(2, 12, 3);
  writer.PDFSetTextColor(0xFF8000);
  Begin();
  writer.PDFTextOut("ab", 100, 41.89);
  EXPECT_EQ(FirstPage(),
            "q 1.000 0.502 0.000 rg \r\n%DEBUT_TEXT/%\r\nBT\r\n100.00 800.00 Td\r\n/F1 12 Tf\r\n"
            "(ab) Tj\r\nET\r\n"
            "100.00 798.80 11.33 -0.60 re f 100.00 795.80 11.33 -0.60 re f\r\n"
            "Q\r\n%FIN_TEXT/%\r\n");
}

TEST_F(TextTest, ZeroMeansTheCurrentPositionAndTheUsualSize) {
  writer.PDFSetMargins(2, 3);
  writer.PDFSetFont(0, 0, 0);
  Begin();
  writer.PDFTextOut("a");
  const std::string page = FirstPage();
  EXPECT_NE(page.find("56.69 756.85 Td\r\n/F1 10 Tf"), std::string::npos) << page;
}

TEST_F(TextTest, RotationTurnsOneText) {
  writer.PDFSetUnit(0);
  writer.PDFSetFont(0, 10, 0);
  Begin();
  writer.PDFSetRotation(30);
  writer.PDFTextOut("a", 10, 41.89);
  writer.PDFTextOut("b", 10, 41.89);
  const std::string page = FirstPage();
  EXPECT_NE(page.find("0.86603 0.50000 -0.50000 0.86603 10.00 800.00 Tm"), std::string::npos);
  EXPECT_EQ(CountOf(page, " Td"), 1);
}

TEST_F(TextTest, BackslashesAreDoubledTwiceUnlessStrict) {
  for (const bool strict : {false, true}) {
    writer.PDFInit();
    writer.PDFSetFont(0, 10, 0);
    Begin(strict);
    writer.PDFTextOut("(a\\b)", 1, 1);
    EXPECT_EQ(Between(FirstPage(), "Tf\r\n", " Tj"),
              strict ? "(\\(a\\\\b\\))" : "(\\(a\\\\\\\\b\\))");
  }
}

TEST_F(TextTest, ColoursInAllTheirForms) {
  struct Case {
    PDFColor color;
    const char* operators;
  };
  const Case cases[] = {{0, "0.000 0.000 0.000 rg"},
                        {0x0000FF, "0.000 0.000 1.000 rg"},
                        {PDFColor(255, 128, 300), "1.000 0.502 1.000 rg"},
                        {"#FF8000", "1.000 0.502 0.000 rg"},
                        {"#FFF", "0.000 0.059 1.000 rg"},
                        {"#", "0.000 0.000 0.000 rg"},
                        {"white", "0.000 0.000 0.000 rg"}};
  for (const Case& c : cases) {
    writer.PDFSetTextColor(c.color);
    EXPECT_EQ(writer.PDFGetTextColor(), c.color);
    Begin();
    writer.PDFTextOut("a", 1, 1);
    EXPECT_EQ(Between(FirstPage(), "q ", " \r"), c.operators);
  }
}

TEST_F(TextTest, WidthsFollowTheEncodingOfTheText) {
  writer.PDFSetUnit(0);
  writer.PDFSetFont(0, 10, 0);
  EXPECT_NEAR(writer.PDFGetStringWidth("Hi"), 7.22 + 2.22, 1e-9);
  EXPECT_NEAR(writer.PDFGetStringWidth("é"), 5.56, 1e-9);  // in the fonts' own numbering an Oslash
  EXPECT_NEAR(writer.PDFGetStringWidth("'"), 1.91, 1e-9);
  EXPECT_NEAR(writer.PDFGetStringWidth("Hi", "Arial-Bold", 20), 14.44 + 5.56, 1e-9);
  EXPECT_NEAR(writer.PDFGetStringWidth("Hi", "Courier"), 12, 1e-9);
  writer.PDFSetUnit(2);
  EXPECT_NEAR(writer.PDFGetStringWidth("Hi"), 9.44 / 72 * 2.54, 1e-9);
  EXPECT_NEAR(writer.PDFTextHeight(), 10 / 72.0 * 2.54, 1e-9);
}

TEST_F(TextTest, MissingMetricsAreNamedAndLeaveThePageWhole) {
  writer.PDFPathConfiguration(folder);
  writer.PDFLoadAfm(folder);
  writer.PDFSetFont(0, 10, 3);
  Begin();
  for (const char* text : {"", "StartCharMetrics 1\nC 65 ; WX wide ; N A ;\nEndCharMetrics\n"}) {
    if (*text != '\0') WriteBytes(folder / "Helvetica.afm", text);
    try {
      writer.PDFTextOut("a", 1, 1);
      ADD_FAILURE() << "measured without metrics";
    } catch (const PDFError& error) {
      EXPECT_NE(std::string(error.what()).find((folder / "Helvetica.afm").string()),
                std::string::npos);
    }
  }
  EXPECT_EQ(FirstPage(), "");
}

TEST_F(TextTest, WatermarkStandsOnEveryPageBehindItsContent) {
  writer.PDFWatermark("DRAFT");
  writer.PDFSetFont(2, 9, 0);
  Begin();
  writer.PDFTextOut("one", 1, 1);
  writer.PDFEndPage();
  writer.PDFNewPage();
  writer.PDFTextOut("two", 1, 1);
  const std::string bytes = End();
  EXPECT_EQ(CountOf(bytes, "q 1.000 0.753 0.796 rg \r\n"), 2);
  EXPECT_EQ(CountOf(bytes, "(DRAFT) Tj"), 2);
  EXPECT_LT(bytes.find("(DRAFT) Tj"), bytes.find("(one) Tj"));
  EXPECT_EQ(CountOf(bytes, "/F1 9 Tf"), 2);
  EXPECT_EQ(CountOf(bytes, " 50 Tf"), 2);
  EXPECT_EQ(Between(bytes, "3 0 obj\r\n", "\r"),
            std::to_string(Between(bytes, "stream\r\n", "endstream").size()));
}

TEST_F(TextTest, LinksLeadOutAndInside) {
  Begin(true);
  writer.PDFSetUnit(0);
  writer.PDFLink("RECT", 10, 20, 30, 40, "https://a.example/(x)?q=é b");
  writer.PDFLink("ELLIPSE", 50, 60, 5, 6, PDFTarget(2, 100));
  writer.PDFLink("CELL", 1, 1, 1, 1, PDFTarget(9, 0));  // a page that never comes
  writer.PDFNewPage();
  const std::string bytes = End();
  EXPECT_EQ(Between(bytes, "/Annots [\r\n", "]\r\n/Contents"),
            "<</Type /Annot /Subtype /Link /Rect [10.00 781.89 40.00 821.89] /Border [0 0 0] "
            "/A <</S /URI /URI (https://a.example/\\(x\\)?q=%C3%A9%20b)>>>>\r\n"
            "<</Type /Annot /Subtype /Link /Rect [45.00 775.89 55.00 787.89] /Border [0 0 0] "
            "/Dest [9 0 R /XYZ 0 741.89 null]>>\r\n");
  ExpectStrictlyValid();
}

TEST_F(TextTest, LinksBeyondTheTablesAreRefused) {
  Begin();
  for (int i = 0; i < 1000; ++i) writer.PDFLink("RECT", 1, 1, 1, 1, "https://a.example");
  EXPECT_THROW(writer.PDFLink("RECT", 1, 1, 1, 1, "https://a.example"), PDFError);
}

TEST_F(TextTest, BookmarksKnowTheirFamily) {
  writer.PDFSetUnit(0);
  writer.PDFUseOutlines(true);
  Begin(true);
  writer.PDFSetBookmark("A (1)", 2, 41.89);  // drawn in to level 0
  writer.PDFSetBookmark("A1", 1, 50);
  writer.PDFSetBookmark("A2", 5, 50);
  writer.PDFSetBookmark("A3", 1, 50);
  writer.PDFNewPage();
  writer.PDFSetBookmark("Ü", -1, 50);
  const std::string bytes = End();
  // Pages and resources are 6 and 7, the pages 8 and 9, the bookmarks 10 to 14, their root 15.
  struct Case {
    int object;
    const char* lines;
  };
  const Case cases[] = {
      {10,
       "<</Title (A \\(1\\))\r\n/Parent 15 0 R\r\n/Next 14 0 R\r\n/First 11 0 R\r\n/Last 13 0 R\r\n"
       "/Dest [8 0 R /XYZ 0 800.00 null]\r\n/Count 0>>\r\n"},
      {11,
       "<</Title (A1)\r\n/Parent 10 0 R\r\n/Next 13 0 R\r\n/First 12 0 R\r\n/Last 12 0 R\r\n"
       "/Dest [8 0 R /XYZ 0 791.89 null]\r\n/Count 0>>\r\n"},
      {13,
       "<</Title (A3)\r\n/Parent 10 0 R\r\n/Prev 11 0 R\r\n"
       "/Dest [8 0 R /XYZ 0 791.89 null]\r\n/Count 0>>\r\n"},
      {15, "<</Type /Outlines /First 10 0 R\r\n/Last 14 0 R>>\r\n"}};
  for (const Case& c : cases) {
    EXPECT_EQ(Between(bytes, "\r\n" + std::to_string(c.object) + " 0 obj\r\n", "endobj"), c.lines);
  }
  EXPECT_NE(bytes.find("/Outlines 15 0 R\r\n/PageMode /UseOutlines"), std::string::npos);
  ExpectStrictlyValid();
}

}  // namespace
}  // namespace quillary
