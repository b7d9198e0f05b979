#include "PDFFixture.h"

namespace quillary {
namespace {

class DocumentTest : public PDFTest {
 protected:
  void WriteTwoPages(bool strict) {
    writer.PDFProducer("Quillary");
    writer.PDFTitle("Invoice");
    writer.PDFSetZoomMode(2);
    writer.PDFUseThumbs(true);
    writer.PDFSetFont(0, 8, 2);
    Begin(strict);
    writer.PDFTextOut("First", 1, 1);
    writer.PDFEndPage();
    writer.PDFNewPage();
    writer.PDFDrawLineHor(1, 2, 18.5);
  }
};

/// Lines ended by CR LF.
std::string Lines(std::string_view text) {
  std::string lines;
  for (const char character : text) lines += character == '\n' ? "\r\n" : std::string(1, character);
  return lines;
}

TEST_F(DocumentTest, SmallDocumentHasExactlyTheseBytes) {
  WriteTwoPages(false);
  EXPECT_EQ(End(), Lines(R"(%PDF-1.3
1 0 obj
<<
/Producer (Quillary)
/Author ()
/CreationDate (D:20260305140709)
/Creator ()
/Keywords ()
/Subject ()
/Title (Invoice)
/ModDate ()
>>
endobj

2 0 obj
<< /Length 3 0 R >>
stream
q 0 g 
%DEBUT_TEXT/%
BT
28.35 813.54 Td
/F1 8 Tf
(First) Tj
ET
Q
%FIN_TEXT/%
endstream
endobj
%FIN_OBJ/%

%DEBUT_OBJ/%
3 0 obj
86
endobj
%FIN_OBJ/%

4 0 obj
<< /Length 5 0 R >>
stream
%DEBUT_OBJ/%
%DEBUT_LNH/%
0 G
28.35 785.20 m
552.76 785.20 l
0.57 w S
%FIN_LNH/%
endstream
endobj

5 0 obj
88
endobj

6 0 obj
<< /Type /Font
/Subtype /Type1
/Name /F1
/BaseFont /Helvetica-Bold
/Encoding /WinAnsiEncoding
>>
endobj

7 0 obj
<< /Type /Pages
/Kids [
9 0 R
10 0 R
]
/Count 2
>>
endobj

8 0 obj
<< /ProcSet [ /PDF /Text /ImageC]
/XObject << 
>>
/Font << 
/F1 6 0 R 
>>
>>
endobj

9 0 obj
<< /Type /Page
/Parent 7 0 R
/MediaBox [ 0 0 595.28 841.89]
/Resources 8 0 R
/Contents 2 0 R
>>
endobj

10 0 obj
<< /Type /Page
/Parent 7 0 R
/MediaBox [ 0 0 595.28 841.89]
/Resources 8 0 R
/Contents 4 0 R
>>
endobj

11 0 obj
<<
/Type /Catalog
/Pages 7 0 R
/OpenAction [3 0 R /XYZ null null 1]
/PageLayout /SinglePage
/PageMode /UseThumbs
/ViewerPreferences<<
>>
>>
endobj

xref
0 12
0000000000 65535 f
0000000008 00000 n
0000000172 00000 n
0000000327 00000 n
0000000374 00000 n
0000000519 00000 n
0000000540 00000 n
0000000660 00000 n
0000000735 00000 n
0000000836 00000 n
0000000955 00000 n
0000001075 00000 n
trailer
<< /Size 11
/Root 11 0 R
/Info 1 0 R
>>
startxref
1242
%%EOF
)"));
  EXPECT_EQ(shown, std::vector{file});
}

TEST_F(DocumentTest, StrictFileKnowsTrueOffsetsAndTheFirstPage) {
  WriteTwoPages(true);
  const std::string bytes = End();
  for (int object = 1; object <= 11; ++object) {
    const std::string entry =
        bytes.substr(bytes.find("65535 f") + 9 + 20 * static_cast<size_t>(object - 1), 10);
    EXPECT_EQ(bytes.find(std::to_string(object) + " 0 obj", std::stoul(entry)), std::stoul(entry));
  }
  EXPECT_EQ(bytes.find("xref"), std::stoul(Between(bytes, "startxref\r\n", "\r")));
  EXPECT_NE(bytes.find("/OpenAction [9 0 R /XYZ"), std::string::npos);
  EXPECT_NE(bytes.find("<< /Size 12\r\n"), std::string::npos);
  ExpectStrictlyValid();
}

TEST_F(DocumentTest, CatalogTellsHowTheFileIsShown) {
  struct Case {
    int zoom, layout;
    const char* preferences;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {0, 0, "", {"/OpenAction [3 0 R /Fit]", "/PageLayout /SinglePage", "/ViewerPreferences<<"}},
      {1,
       1,
       "1",
       {"/OpenAction [3 0 R /FitH null]", "/PageLayout /OneColumn", "/ViewerPreferences<<",
        "/HideToolbar true"}},
      {2,
       2,
       "65",
       {"/OpenAction [3 0 R /XYZ null null 1]", "/PageLayout /TwoColumnLeft",
        "/ViewerPreferences<<", "/DisplayDocTitle true", "/CenterWindow true"}},
      {75,
       3,
       "123456",
       {"/OpenAction [3 0 R /XYZ null null 0.75]", "/ViewerPreferences<<", "/HideMenubar true",
        "/HideToolbar true", "/HideWindowUI true", "/DisplayDocTitle true", "/CenterWindow true",
        "/FitWindow true"}}};
  for (const Case& c : cases) {
    writer.PDFInit();
    writer.PDFSetZoomMode(c.zoom);
    writer.PDFSetLayoutMode(c.layout);
    writer.PDFSetViewerPreferences(c.preferences);
    Begin();
    std::string expected;
    for (const std::string& line : c.lines) expected += line + "\r\n";
    EXPECT_EQ(Between(End(), "/Pages 4 0 R\r\n", ">>\r\n>>"), expected);
  }
}

TEST_F(DocumentTest, BetweenPagesTheNextOneIsTurned) {
  Begin(true);
  writer.PDFEndPage();
  writer.PDFOrientation(2);
  EXPECT_EQ(writer.PDFGetOrientation(), 2);
  writer.PDFNewPage();
  writer.PDFEndPage();
  writer.PDFFormatPage(3);
  writer.PDFNewPage();
  const std::string bytes = End();
  EXPECT_EQ(CountOf(bytes, "[ 0 0 595.28 841.89]"), 1) << "the first page stays upright";
  EXPECT_EQ(CountOf(bytes, "[ 0 0 841.89 595.28]"), 1);
  EXPECT_EQ(CountOf(bytes, "[ 0 0 792.00 612.00]"), 1);
}

TEST_F(DocumentTest, PageSizeChangesFromThePageOnWhereItIsSet) {
  Begin(true);
  writer.PDFOrientation(2);
  writer.PDFEndPage();
  writer.PDFNewPage();
  writer.PDFFormatPage(2);
  writer.PDFNewPage();
  writer.PDFFormatPage(std::vector{10.0, 5.0});
  writer.PDFNewPage();
  writer.PDFOrientation(1);
  writer.PDFFormatPage(4);
  writer.PDFPageHeight(2.54);
  const std::string bytes = End();
  std::vector<std::string> boxes;
  for (auto at = bytes.find("/MediaBox"); at != std::string::npos;
       at = bytes.find("/MediaBox", at + 1)) {
    boxes.push_back(Between(bytes.substr(at), "[ 0 0 ", "]"));
  }
  EXPECT_EQ(boxes, (std::vector<std::string>{"841.89 595.28", "595.28 420.94", "283.46 141.73",
                                             "612.00 72.00"}));
  ExpectStrictlyValid();
}

TEST_F(DocumentTest, WrongSettingsGiveAMessageAndFallBack) {
  struct Case {
    void (*set)(PDFWriter&);
    Message message;
  };
  const Case cases[] = {
      {[](PDFWriter& w) { w.PDFSetZoomMode(-5); },
       {"Zoom Mode - ", "Incorrect Zoom Mode : -5.\r\nFocus will be set to full-page zoom"}},
      {[](PDFWriter& w) { w.PDFSetLayoutMode(4); },
       {"Layout Mode - ", "Layout incorrect : 4.\r\nLayout will be set to simple single page."}},
      {[](PDFWriter& w) { w.PDFSetUnit(3); },
       {"Error in measurement unit - ", "Incorrect Unit of Measure : 3.\r\nUsing centimeter "}},
      {[](PDFWriter& w) { w.PDFOrientation(0); },
       {"Error in orientation - ",
        "Orientation set incorrectly: 0.\r\nOrientation set to portrait."}},
      {[](PDFWriter& w) { w.PDFFormatPage(5); },
       {"Format Page - ", "Format page set incorrectly : 5.\r\nFormat page set to A4."}},
      {[](PDFWriter& w) {
         w.PDFFormatPage(std::vector{10.0, -1.0});
       },
       {"Format Page - ", "Format page set incorrectly : 10.00, -1.00.\r\nFormat page set to A4"}},
      {[](PDFWriter& w) { w.PDFSetFont(7, 8, 0); },
       {"Font name - ", "Font name set incorrectly : 7.\r\nFont set to Times New Roman."}},
      {[](PDFWriter& w) { w.PDFSetLineStyle(4); },
       {"Line Style - ", "Line style set incorrectly : 4.\r\nLine style set to solid."}},
      {[](PDFWriter& w) { w.PDFSetDrawMode(3); },
       {"Object Rectangle - ", "Draw Mode set incorrectly : 3.\r\nDraw mode set to normal"}},
      {[](PDFWriter& w) { w.PDFSetTextColor("red"); },
       {"Text Color ", "Invalid HTMl color set.\r\nSet color to  black."}},
      {[](PDFWriter& w) { w.PDFSetLineColor("#12G456"); },
       {"Line Color - ", "Invalid line color set .\r\nSetting line color to black."}},
      {[](PDFWriter& w) { w.PDFSetDrawColor("FF0000"); },
       {"Draw Color - ", "Invalid HTMl color set.\r\nSet color to  black."}},
      {[](PDFWriter& w) { w.PDFLink("TRIANGLE", 1, 1, 1, 1, "https://a.example"); },
       {"Url Link - ", "Unable to include link."}},
      {[](PDFWriter& w) { w.PDFLink("IMAGE", 1, 1, 1, 1, ""); },
       {"Url Link Image - ", "Unable to include URL image."}},
      {[](PDFWriter& w) { w.PDFImage("logo.png", 1, 1); },
       {"Image File - ", "Image format not supported.\r\nOnly JPEG images are supported."}},
      {[](PDFWriter& w) { w.PDFImage("logojpg", 1, 1); },
       {"Image File - ", "logojpg does not have an extension"}},
  };
  for (const Case& c : cases) {
    messages.clear();
    c.set(writer);
    EXPECT_EQ(messages, (std::vector{Message{c.message.title + "PDFWriter 1.0", c.message.text}}))
        << c.message.text;
  }
  EXPECT_EQ(writer.PDFGetZoomMode(), 0);
  EXPECT_EQ(writer.PDFGetLayoutMode(), 0);
  EXPECT_EQ(writer.PDFGetUnit(), 2);
  EXPECT_EQ(writer.PDFGetFontName(), "TimesRoman");
  EXPECT_NEAR(writer.PDFGetPageWidth(), 21.0, 0.01);
}

TEST_F(DocumentTest, FirstValuesAfterInit) {
  EXPECT_EQ(writer.PDFGetLeftMargin(), 1);
  EXPECT_EQ(writer.PDFGetBottomMargin(), 1);
  EXPECT_EQ(writer.PDFGetCellMargin(), 3);
  EXPECT_EQ(writer.PDFGetX(), 1);
  EXPECT_NEAR(writer.PDFGetLineWidth(), 0.02, 1e-4);
  EXPECT_EQ(writer.PDFGetFontNameList().size(), 21u);
}

TEST_F(DocumentTest, SecondDocumentKeepsFontsOnlyWithoutInit) {
  for (const bool init : {false, true}) {
    writer.PDFInit();
    writer.PDFSetFont(0, 8, 0);
    writer.PDFTitle("One");
    Begin();
    writer.PDFLink("RECT", 1, 1, 1, 1, "https://a.example");
    writer.PDFSetBookmark("One", 0, 1);
    writer.PDFNewPage();
    End();
    if (init) writer.PDFInit();
    writer.PDFSetFont(1, 8, 0);
    Begin();
    const std::string second = End();
    EXPECT_EQ(CountOf(second, "/Type /Font"), init ? 1 : 2);
    EXPECT_EQ(CountOf(second, "/Type /Page\r"), 1);
    EXPECT_EQ(CountOf(second, "/Annot"), 0);
    EXPECT_EQ(CountOf(second, "/Outlines"), 0);
    EXPECT_EQ(Between(second, "/Title (", ")"), init ? "" : "One");
  }
}

TEST_F(DocumentTest, InfoTextsAreEscapedInStrictFilesOnly) {
  for (const bool strict : {false, true}) {
    writer.PDFInit();
    writer.PDFTitle("50% (net\\");
    writer.PDFAuthor("Łukasz\r\nZoë");
    Begin(strict);
    const std::string bytes = End();
    EXPECT_EQ(Between(bytes, "/Title (", ")\r"), strict ? "50% \\(net\\\\" : "50% (net\\");
    EXPECT_EQ(bytes.find("/Author (Lukasz  Zo\xEB)\r") != std::string::npos, !strict);
  }
  EXPECT_NE(Run("pdfinfo").find("50% (net\\"), std::string::npos);
  EXPECT_NE(Run("pdfinfo").find("Łukasz"), std::string::npos);
}

TEST_F(DocumentTest, ConfirmTellsThatTheFileIsWritten) {
  writer.PDFConfirm(true);
  Begin();
  End();
  EXPECT_EQ(messages,
            (std::vector{Message{"Generated PDF file - PDFWriter 1.0", "PDF file generated."}}));
}

TEST_F(DocumentTest, FailuresToWriteReachTheCaller) {
  EXPECT_THROW(writer.PDFBeginDoc(), PDFError);
  writer.PDFFileName(folder / "missing" / "a.pdf");
  EXPECT_THROW(writer.PDFBeginDoc(), PDFError);
  Begin();
  End();
  EXPECT_THROW(writer.PDFEndDoc(), PDFError);
  EXPECT_THROW(writer.PDFNewPage(), PDFError);
  EXPECT_EQ(shown.size(), 1u);

  Begin();  // given up
  writer.PDFFileName(file);
  EXPECT_THROW(writer.PDFNewPage(), PDFError);

  writer.PDFFileName("/dev/full");
  writer.PDFBeginDoc();
  try {
    writer.PDFEndDoc();
    ADD_FAILURE() << "a full disk went unnoticed";
  } catch (const PDFError& error) {
    EXPECT_NE(std::string(error.what()).find("/dev/full"), std::string::npos);
  }
  EXPECT_EQ(shown.size(), 1u);
}

TEST_F(DocumentTest, ManyPagesAreAllThere) {
  writer.PDFSetFont(0, 10, 0);
  for (const bool strict : {false, true}) {
    Begin(strict);
    for (int page = 1; page <= 300; ++page) {
      if (page > 1) writer.PDFNewPage();
      writer.PDFTextOut("Page " + std::to_string(page), 2, 2);
    }
    const std::string text = (End(), Run("pdftotext", "- 2>/dev/null"));
    EXPECT_EQ(CountOf(text, "\f"), 300);
    EXPECT_EQ(CountOf(text, "Page 300\n"), 1);
  }
  ExpectStrictlyValid();
}

}  // namespace
}  // namespace quillary
