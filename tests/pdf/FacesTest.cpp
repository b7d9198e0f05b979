#include "PDFFixture.h"
#include "pdf/WinAnsi.h"
#include "pdf/faces/ShapedFaces.h"

namespace quillary {
namespace {

const std::filesystem::path kFonts = std::filesystem::path(QUILLARY_BIN) / "Fonts";

class FacesTest : public PDFTest {
 protected:
  FacesTest() {
    host_.applicationFolder = kFonts;
    host_.faces = &faces;
    host_.now = [] { return std::chrono::local_seconds(); };
  }
  /// One page with the text at 2 cm from the left and 5 from above.
  std::string Write(std::string_view text, bool strict = true, int style = 0) {
    PDFWriter pdf(host_);
    pdf.PDFSetStrict(strict);
    pdf.PDFFileName(file);
    pdf.PDFBeginDoc();
    pdf.PDFSetFont(0, 20, style);
    pdf.PDFTextOut(text, 2, 5);
    pdf.PDFEndDoc();
    notShown = pdf.PDFGetTextsNotShown();
    return ReadBytes(file);
  }
  double WidthOf(std::string_view text) {
    PDFWriter pdf(host_);
    pdf.PDFSetStrict(true);
    pdf.PDFSetFont(0, 20, 0);
    return pdf.PDFGetStringWidth(text);
  }

  ShapedFaces faces{kFonts};
  PDFHost host_;
  std::vector<std::string> notShown;
};

struct Name {
  const char* text;
  const char* face;  // of those in the file
};
void PrintTo(const Name& name, std::ostream* out) {
  *out << name.text;
}

class NameTest : public FacesTest, public ::testing::WithParamInterface<Name> {};

TEST_P(NameTest, IsShownFoundAndCopied) {
  const std::string name = GetParam().text;
  Write(name);
  ExpectStrictlyValid();
  EXPECT_NE(Run("pdftotext -enc UTF-8", "-").find(name), std::string::npos)
      << Run("pdftotext -enc UTF-8", "-");
  const std::string fonts = Run("pdffonts");
  EXPECT_NE(fonts.find(std::string("+") + GetParam().face), std::string::npos) << fonts;
  EXPECT_EQ(CountOf(fonts, "yes yes yes"), CountOf(fonts, "CID TrueType")) << fonts;
  EXPECT_TRUE(notShown.empty());
}

INSTANTIATE_TEST_SUITE_P(
    OfPeople, NameTest,
    ::testing::Values(Name{"Nguyễn Thị Hồng", "NotoSans"}, Name{"Παπαδόπουλος", "NotoSans"},
                      Name{"Łukasz Żółć", "NotoSans"}, Name{"Đặng & Sons", "NotoSans"},
                      Name{"Жуков", "NotoSans"}, Name{"山本さん", "DroidSansFallback"},
                      Name{"김민준", "DroidSansFallback"}, Name{"คุณสมชาย", "NotoSansThai"},
                      Name{"Ann ☺ Able ≤ 5", "DejaVuSans"}, Name{"😀", "DejaVuSans"},
                      Name{"Աննա", "DejaVuSans"}, Name{"Nguyễn 山本", "NotoSans"}));

TEST_F(FacesTest, ATextThatRunsToTheLeftIsOrderedAndJoined) {
  Write("Shop שלום 12 (עולם)");
  ExpectStrictlyValid();
  const std::string hebrew = Run("pdftotext -enc UTF-8", "-");
  for (const char* word : {"Shop", "שלום", "עולם", "12"})
    EXPECT_NE(hebrew.find(word), std::string::npos) << hebrew;
  // Joined letters have other shapes: two letters side by side are narrower than both alone.
  const double joined = faces.Shape("محمد", false, false).width;
  const double apart = faces.Shape("م", false, false).width * 2 +
                       faces.Shape("ح", false, false).width + faces.Shape("د", false, false).width;
  EXPECT_LT(joined, apart);
  // In a line that runs to the right its first word is the leftmost one.
  const PDFShapedText& line = faces.Shape("a אב b", false, false);
  std::u32string seen;
  for (const PDFGlyphRun& run : line.runs)
    for (const PDFGlyph& glyph : run.glyphs) seen += glyph.shows;
  EXPECT_EQ(seen, ToUtf32("a בא b"));
}

TEST_F(FacesTest, WhatIsMeasuredIsWhatIsSet) {
  for (const char* text : {"Nguyễn Văn", "คุณสมชาย", "AVAVAV Ł", "Παπαδόπουλος"}) {
    Write(text);
    const std::string box = Run("pdftotext -bbox", "-");
    const double left = std::stod(Between(box, "xMin=\"", "\""));
    const auto last = box.rfind("xMax=\"");
    const double right = std::stod(Between(box.substr(last), "xMax=\"", "\""));
    EXPECT_NEAR(right - left, WidthOf(text) / 2.54 * 72, 0.6) << text;
  }
}

TEST_F(FacesTest, LatinTextNeedsNoFace) {
  const std::string plain = Write("Zoë’s café – 5 € \t e\xCC\x81");
  EXPECT_EQ(CountOf(plain, "FontFile2"), 0);
  host_.faces = nullptr;
  EXPECT_EQ(Write("Zoë’s café – 5 € \t e\xCC\x81"), plain);
  host_.faces = &faces;
  const std::string name = Write("Nguyễn Thị Hồng");
  EXPECT_LT(name.size(), 16'000u) << "the face is cut down";
}

TEST_F(FacesTest, TheDefaultKindKeepsItsBytes) {
  const std::string with = Write("Nguyễn", false);
  host_.faces = nullptr;
  EXPECT_EQ(with, Write("Nguyễn", false));
  EXPECT_NE(with.find("(Nguyen) Tj"), std::string::npos);
}

TEST_F(FacesTest, WhatNoFaceHasIsTold) {
  Write("cuneiform \xF0\x92\x80\x80 and \xF0\x9F\xA7\xBF");
  ExpectStrictlyValid();
  EXPECT_EQ(notShown.size(), 1u);
  EXPECT_NE(Run("pdftotext", "-").find("cuneiform"), std::string::npos);
  EXPECT_EQ(faces.Shape("a\xF0\x92\x80\x80z", false, false).missing, U"\U00012000");
}

TEST_F(FacesTest, StylesAreTheirOwnFaces) {
  for (const auto& [style, face] :
       {std::pair{2, "NotoSans-Bold "}, std::pair{1, "NotoSans-Italic "},
        std::pair{12, "NotoSans-BoldItalic "}}) {
    Write("Nguyễn", true, style);
    EXPECT_NE(Run("pdffonts").find(face), std::string::npos) << face;
  }
}

}  // namespace
}  // namespace quillary
