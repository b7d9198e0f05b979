#include "PDFFixture.h"
#include "pdf/WinAnsi.h"

#include <algorithm>
#include <random>

namespace quillary {
namespace {

constexpr int kTexts = 1000;

class HostileTextTest : public PDFTest {
 protected:
  std::string RandomText() {
    static constexpr const char* kPieces[] = {
        "(",  ")",   "\\",   "\\)",   "\r\n", "\t",         "\x01",     "\x7F",      "é",
        "€",  "“x”", "日本", "Ł",     "😀",    "\xFF",       "\xE2\x82", "endstream", "endobj",
        ">>", "%",   "<<",   "/Root", " ",    "Invoice 17", "'"};
    std::string text;
    const std::size_t pieces = random() % 50 == 0 ? 4000 : random() % 12;
    while (text.size() < (pieces == 4000 ? 10000 : pieces * 3)) {
      text += kPieces[random() % std::size(kPieces)];
    }
    return text;
  }

  std::mt19937 random{20260305};
};

/// The literal string that starts after the first "(" from `at` on; moves `at` beyond it.
std::string ReadLiteral(const std::string& bytes, std::size_t& at) {
  std::string text;
  for (at = bytes.find('(', at) + 1; bytes[at] != ')'; ++at) {
    if (bytes[at] != '\\') {
      EXPECT_NE(bytes[at], '(');
      text += bytes[at];
    } else if (const char next = bytes[++at]; next >= '0' && next <= '7') {
      text += static_cast<char>(std::stoi(bytes.substr(at, 3), nullptr, 8));
      at += 2;
    } else {
      text += next;
    }
  }
  return text;
}

bool HasRawControls(const std::string& bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) < 32 && byte != '\r' && byte != '\n') || byte == 127;
  });
}

TEST_F(HostileTextTest, StrictFilesStayWholeAndKeepEveryText) {
  std::vector<std::string> texts(kTexts);
  for (std::string& text : texts) text = RandomText();
  writer.PDFSetFont(0, 8, 3);
  writer.PDFTitle(texts[0] + texts[1]);
  writer.PDFUseOutlines(true);
  Begin(true);
  for (int i = 0; i < kTexts; ++i) {
    const std::string& text = texts[static_cast<std::size_t>(i)];
    if (i % 100 == 0 && i > 0) writer.PDFNewPage();
    writer.PDFTextOut(text, 1, 1 + i % 100 * 0.25);
    writer.PDFSetBookmark(text, i % 3, 1);
    if (!text.empty()) writer.PDFLink("RECT", 1, 1, 1, 1, "mailto:" + text);
  }
  const std::string bytes = End();
  std::size_t at = 0;
  for (const std::string& text : texts) {
    at = bytes.find(" Tf\r\n(", at);
    ASSERT_NE(at, std::string::npos);
    ASSERT_EQ(ReadLiteral(bytes, at), ToWinAnsi(text));
    ASSERT_EQ(bytes.substr(at, 6), ") Tj\r\n");
  }
  at = 0;
  for (const std::string& text : texts) {
    at = bytes.find("<</Title (", at);
    ASSERT_NE(at, std::string::npos);
    const std::string title = ReadLiteral(bytes, at);
    ASSERT_EQ(title.starts_with("\xFE\xFF") ? title : ToUtf16(title), ToUtf16(text));
  }
  EXPECT_FALSE(HasRawControls(bytes));
  ExpectStrictlyValid();
  EXPECT_EQ(CountOf(Run("pdftotext", "-"), "\f"), kTexts / 100);
}

TEST_F(HostileTextTest, DefaultFilesShowEveryPage) {
  writer.PDFSetFont(0, 8, 0);
  Begin();
  for (int i = 0; i < kTexts; ++i) {
    if (i % 100 == 0 && i > 0) writer.PDFNewPage();
    writer.PDFTextOut(RandomText(), 1, 1 + i % 100 * 0.25);
    writer.PDFSetBookmark(RandomText(), i % 3, 1);
    writer.PDFLink("RECT", 1, 1, 1, 1, "mailto:" + RandomText());
  }
  const std::string bytes = End();
  EXPECT_FALSE(HasRawControls(bytes));
  EXPECT_EQ(CountOf(Run("pdftotext", "- 2>/dev/null"), "\f"), kTexts / 100);
}

TEST_F(HostileTextTest, AViewerReadsBackWhatWinAnsiHas) {
  const std::string text = "(a\\b) “Zoë” — 50% €5 \\\\ ))(( ÀÿŠ";
  writer.PDFSetFont(0, 8, 0);
  Begin(true);
  writer.PDFTextOut(text, 1, 1);
  End();
  EXPECT_EQ(Run("pdftotext -enc UTF-8", "-"), text + "\n\n\f");
}

}  // namespace
}  // namespace quillary
