#include "PDFFixture.h"
#include "pdf/AfmMetrics.h"
#include "pdf/JpegHeader.h"

#include <random>

namespace quillary {
namespace {

constexpr int kMutations = 20000;
const char* const kImages[] = {"gray.jpg", "rgb.jpg", "progressive.jpg", "cmyk.jpg", "exif.jpg"};

/// Why the reader refuses the bytes; empty when it takes them.
std::string Refusal(std::string_view jpeg) {
  try {
    ReadJpegHeader(jpeg);
    return "";
  } catch (const PDFError& error) {
    return error.what();
  }
}

/// An image of `components`, each as coarse as the others, with one coded byte for each 8 blocks.
std::string SmallJpeg(int components = 1, int width = 16) {
  const auto count = static_cast<char>(components);
  std::string jpeg = "\xFF\xD8\xFF\xC0";
  jpeg +=
      {'\0', static_cast<char>(8 + 3 * components), 8, 0, 16, 0, static_cast<char>(width), count};
  for (char id = 1; id <= count; ++id) jpeg += {id, 0x11, 0};
  jpeg += {'\xFF', '\xDA', '\0', static_cast<char>(6 + 2 * components), count};
  for (char id = 1; id <= count; ++id) jpeg += {id, 0};
  return jpeg + std::string("\0\x3F\0\x12\x34\xFF\0\xFF\xD0\x56\xFF\xD9", 12);
}

TEST(JpegHeaderTest, ReadsKindsOfImages) {
  struct Case {
    const char* name;
    int components;
    const char* space;
    bool progressive;
    const char* units;
    double densityX, densityY;
    bool adobe;
  };
  const Case cases[] = {{"gray.jpg", 1, "DeviceGray", false, "Dots", 1, 1, false},
                        {"rgb.jpg", 3, "DeviceRGB", false, "Dots/inch (DPI)", 300, 300, false},
                        {"progressive.jpg", 3, "DeviceRGB", true, "Dots", 1, 1, false},
                        {"cmyk.jpg", 4, "DeviceCMYK", false, "Dots", 1, 1, true},
                        {"exif.jpg", 3, "DeviceRGB", false, "Dots/cm", 118, 59, false}};
  for (const Case& c : cases) {
    const JpegHeader header = ReadJpegHeader(ReadBytes(TestImage(c.name)));
    EXPECT_EQ(header.width, 60) << c.name;
    EXPECT_EQ(header.height, 40) << c.name;
    EXPECT_EQ(header.bits, 8) << c.name;
    EXPECT_EQ(header.components, c.components) << c.name;
    EXPECT_STREQ(header.ColorSpace(), c.space) << c.name;
    EXPECT_EQ(header.progressive, c.progressive) << c.name;
    EXPECT_EQ(header.units, c.units) << c.name;
    EXPECT_EQ(header.densityX, c.densityX) << c.name;
    EXPECT_EQ(header.densityY, c.densityY) << c.name;
    EXPECT_EQ(header.hasAdobeMarker, c.adobe) << c.name;
  }
}

TEST(JpegHeaderTest, RefusesWhatCannotBe) {
  ASSERT_EQ(Refusal(SmallJpeg()), "");
  ASSERT_EQ(Refusal(SmallJpeg() + "trailing bytes"), "");
  ASSERT_EQ(Refusal(SmallJpeg(4)), "");
  struct Case {
    std::size_t at;  // of SmallJpeg: 2 frame, 15 scan, 25 coded bytes
    std::string_view bytes;
    const char* why;
  };
  const Case cases[] = {{0, "GIF8", "no JPEG"},
                        {2, "\xFE", "marker is missing"},
                        {3, "\xC3", "not supported"},
                        {3, "\xC9", "not supported"},
                        {3, "\xD5", "where none may"},
                        {4, std::string_view("\0\1", 2), "no length"},
                        {4, "\xFF\xFF", "cut off"},
                        {5, "\x0C", "wrong length"},
                        {5, "\x0A", "cut off"},
                        {6, "\x0C", "8 bits"},
                        {7, std::string_view("\0\0", 2), "no size"},
                        {7, "\xFF\xFF\xFF\xFF", "more picture"},
                        {11, "\2", "2 components"},
                        {13, "\x51", "impossible"},
                        {13, "\x10", "impossible"},
                        {14, "\4", "impossible"},
                        {19, "\2", "too many components"},
                        {20, "\7", "not there"},
                        {33, "\xD8", "where none may"},
                        {33, "\xFE", "cut off"}};
  for (const Case& c : cases) {
    std::string jpeg = SmallJpeg();
    jpeg.replace(c.at, c.bytes.size(), c.bytes);
    EXPECT_NE(Refusal(jpeg).find(c.why), std::string::npos)
        << "byte " << c.at << ": " << Refusal(jpeg) << ", not " << c.why;
  }
}

TEST(JpegHeaderTest, RefusesEveryTruncation) {
  for (const char* name : kImages) {
    const std::string whole = ReadBytes(TestImage(name));
    for (std::size_t size = 0; size < whole.size(); ++size) {
      // A buffer of its own, so that a sanitizer sees a read beyond it.
      const std::vector<char> part(whole.begin(),
                                   whole.begin() + static_cast<std::ptrdiff_t>(size));
      ASSERT_NE(Refusal({part.data(), part.size()}), "") << name << " cut to " << size;
    }
  }
}

std::string Mutate(std::string bytes, std::mt19937& random) {
  static constexpr unsigned char kOften[] = {0x00, 0xFF, 0x7F, 0x80, 0xD9, 0xDA, 0xC0, ';', '\n'};
  for (int edits = 1 + static_cast<int>(random() % 6); edits > 0 && !bytes.empty(); --edits) {
    const std::size_t at = random() % bytes.size();
    switch (random() % 5) {
      case 0:
        bytes[at] = static_cast<char>(random());
        break;
      case 1:
        bytes[at] = static_cast<char>(kOften[random() % std::size(kOften)]);
        break;
      case 2:
        bytes.erase(at, 1 + random() % 40);
        break;
      case 3:
        bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 40));
        break;
      default:
        bytes.resize(at);
        break;
    }
  }
  return bytes;
}

TEST(JpegHeaderTest, TakesOrRefusesEveryMutation) {
  std::mt19937 random(8150);
  std::vector<std::string> seeds;
  for (const char* name : kImages) seeds.push_back(ReadBytes(TestImage(name)));
  seeds.push_back(SmallJpeg(3));
  int taken = 0;
  for (int i = 0; i < kMutations; ++i) {
    const std::string bytes = Mutate(seeds[random() % seeds.size()], random);
    const std::vector<char> exact(bytes.begin(), bytes.end());
    try {
      const JpegHeader header = ReadJpegHeader({exact.data(), exact.size()});
      ASSERT_TRUE(header.width > 0 && header.height > 0 && header.densityX > 0);
      ++taken;
    } catch (const PDFError&) {
    }
  }
  EXPECT_GT(taken, kMutations / 20);  // otherwise nothing beyond the first check was reached
}

constexpr std::string_view kAfm =
    "StartFontMetrics 3.0\r\nComment C 65 ; WX 9 ;\r\nStartCharMetrics 3\r\n"
    "C 65 ; WX 600 ; N A ; B 0 0 1 1 ;\r\n\r\nC 233; WX 556.5;\r\nC -1 ; WX 9 ; N Abreve ;\r\n";

TEST(AfmMetricsTest, ReadsTheEncodedCharacters) {
  const AfmMetrics metrics = AfmMetrics::Parse(kAfm);
  EXPECT_EQ(metrics.WidthOf("A\xE9 A"), 1756.5);
}

TEST(AfmMetricsTest, NamesTheLineThatIsWrong) {
  struct Case {
    const char* text;
    const char* why;
  };
  const Case cases[] = {
      {"", "no StartCharMetrics"},
      {"C 65 ; WX 600 ;\n", "no StartCharMetrics"},
      {"StartCharMetrics 2\nC 65 ; WX 600 ;\n", "line 2: the table of characters is cut off"},
      {"StartCharMetrics 2\nEndCharMetrics\n", "line 2: the table of characters is empty"},
      {"StartCharMetrics 2\n\nC 256 ; WX 600 ;\nEndCharMetrics\n", "line 3: no character code"},
      {"StartCharMetrics 2\nCH <41> ; WX 600 ;\nEndCharMetrics\n", "line 2: no character code"},
      {"StartCharMetrics 2\nC 65 ; WX -5 ;\nEndCharMetrics\n", "line 2: no width"},
      {"StartCharMetrics 2\nC 65 ; WX nan ;\nEndCharMetrics\n", "line 2: no width"},
      {"StartCharMetrics 2\nC 65 ; WX 1e9 ;\nEndCharMetrics\n", "line 2: no width"},
      {"StartCharMetrics 2\nC 65\nEndCharMetrics\n", "line 2: no width"}};
  for (const Case& c : cases) {
    try {
      AfmMetrics::Parse(c.text);
      ADD_FAILURE() << "taken: " << c.text;
    } catch (const PDFError& error) {
      EXPECT_NE(std::string(error.what()).find(c.why), std::string::npos) << error.what();
    }
  }
}

TEST(AfmMetricsTest, TakesOrRefusesEveryMutation) {
  std::mt19937 random(8250);
  int taken = 0;
  for (int i = 0; i < kMutations; ++i) {
    const std::string bytes = Mutate(std::string(kAfm), random);
    const std::vector<char> exact(bytes.begin(), bytes.end());
    try {
      const double width = AfmMetrics::Parse({exact.data(), exact.size()}).WidthOf("A\xE9");
      ASSERT_TRUE(width >= 0 && width <= 20000);
      ++taken;
    } catch (const PDFError&) {
    }
  }
  EXPECT_GT(taken, kMutations / 20);
}

}  // namespace
}  // namespace quillary
