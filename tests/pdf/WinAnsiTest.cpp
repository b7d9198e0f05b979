#include "pdf/LineBuffer.h"
#include "pdf/WinAnsi.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace quillary {
namespace {

TEST(WinAnsiTest, CharactersFindTheirByteOrNearestForm) {
  struct Case {
    const char* what;
    std::string_view utf8;
    std::string_view winAnsi;
  };
  const Case cases[] = {
      {"plain", "Total: $5", "Total: $5"},
      {"Latin 1", "Zoë ½ ÿ", "Zo\xEB \xBD \xFF"},
      {"the Windows codes", "€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ",
       "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99"
       "\x9A\x9B\x9C\x9E\x9F"},
      {"letters of other Latin alphabets", "Łódź Đặng Ĳ ẞ",
       "L\xF3"
       "dz Dang IJ SS"},
      {"accents of their own", "e\u0301 S\u030C q\u0301", "\xE9 \x8A q"},
      {"signs", "− ≤ → ﬁ ½ № ℓ", "- <= -> fi \xBD No. l"},
      {"blanks and wide letters", "a\u2009b\u3000Ａ～", "a b A~"},
      {"signs without width", "a\u200Bb\uFEFFc\u202Ed", "abcd"},
      {"line ends and tabs", "a\r\nb\tc", "a  b c"},
      {"controls", std::string_view("\0\x01\x1B\x7F\xC2\x81", 6), "?????"},
      {"other scripts", "日本 Ω 😀", "?? ? ?"},
      {"cut off, overlong, surrogate, alone", "\xE2\x82|\xC0\xAF|\xED\xA0\x80|\x80|\xF5",
       "??|??|???|?|?"},
  };
  for (const Case& c : cases) EXPECT_EQ(ToWinAnsi(c.utf8), c.winAnsi) << c.what;
  EXPECT_EQ(ToUtf16("A€😀\x80"), std::string("\xFE\xFF\0A\x20\xAC\xD8\x3D\xDE\x00\xFF\xFD", 12));
}

TEST(WinAnsiTest, NoBytesLeadToAnOpenCode) {
  std::mt19937 random(20260305);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes(random() % 12, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    for (const char byte : ToWinAnsi(bytes)) {
      const auto code = static_cast<unsigned char>(byte);
      ASSERT_TRUE(code >= 32 && code != 127 && code != 129 && code != 141 && code != 143 &&
                  code != 144 && code != 157);
    }
  }
}

TEST(FormatNumberTest, WritesPlainDecimals) {
  struct Case {
    double value;
    int decimals;
    const char* text;
  };
  const Case cases[] = {
      {5, 2, "5.00"},        {5, 0, "5."},         {0.5, 2, "0.50"},         {-28.346, 2, "-28.35"},
      {2.675, 2, "2.68"},    {-0.125, 2, "-0.13"}, {-0.001, 2, "0.00"},      {595.28, 2, "595.28"},
      {1 / 3.0, 3, "0.333"}, {0.999, 2, "1.00"},   {123456.7, 1, "123456.7"}};
  for (const Case& c : cases) EXPECT_EQ(FormatNumber(c.value, c.decimals), c.text);
  EXPECT_EQ(FormatNumber(std::nan(""), 2), "0.00");
  EXPECT_EQ(FormatNumber(std::numeric_limits<double>::infinity(), 2), "0.00");
  EXPECT_EQ(FormatNumber(-1e300, 2), "-1000000000000.00");
}

}  // namespace
}  // namespace quillary
