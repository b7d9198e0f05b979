#include "pdf/JpegHeader.h"

#include "pdf/ExifDensity.h"
#include "pdf/PDFTypes.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillary {
namespace {

// Reads whole numbers, high byte first, from a run of bytes that may be cut off or hostile. Every
// step beyond the end throws PDFError.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

  int U8();
  int U16();
  std::string_view Take(std::size_t count);
  // The byte that stands `ahead` bytes further on.
  int Peek(std::size_t ahead) const;
  // Moves to the next such byte and returns how many others were passed.
  std::size_t SkipTo(char byte);

  bool StartsWith(std::string_view bytes) const { return rest_.starts_with(bytes); }
  std::string_view Rest() const { return rest_; }
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

[[noreturn]] void RefuseEnd() {
  throw PDFError("it is cut off");
}

int ByteReader::U8() {
  return static_cast<unsigned char>(Take(1).front());
}

int ByteReader::U16() {
  const int high = U8();
  return high * 256 + U8();
}

std::string_view ByteReader::Take(std::size_t count) {
  if (count > rest_.size()) RefuseEnd();
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(count);
  return taken;
}

int ByteReader::Peek(std::size_t ahead) const {
  if (ahead >= rest_.size()) RefuseEnd();
  return static_cast<unsigned char>(rest_[ahead]);
}

std::size_t ByteReader::SkipTo(char byte) {
  const std::size_t passed = rest_.find(byte);
  if (passed == std::string_view::npos) RefuseEnd();
  rest_.remove_prefix(passed);
  return passed;
}

enum Marker : int {
  kFrameBaseline = 0xC0,
  kFrameExtended = 0xC1,
  kFrameProgressive = 0xC2,
  kHuffmanTables = 0xC4,
  kArithmeticTables = 0xCC,
  kFrameLast = 0xCF,
  kRestartFirst = 0xD0,
  kRestartLast = 0xD7,
  kStartOfImage = 0xD8,
  kEndOfImage = 0xD9,
  kStartOfScan = 0xDA,
  kApp0 = 0xE0,
  kApp1 = 0xE1,
  kApp14 = 0xEE,
};

struct Component {
  int id = 0;
  int across = 0;  // sampling factors
  int down = 0;
};

class JpegReader {
 public:
  explicit JpegReader(std::string_view file) : file_(file) {}

  JpegHeader Read() {
    if (!file_.StartsWith("\xFF\xD8")) throw PDFError("it is no JPEG file");
    file_.Take(2);
    for (;;) {
      const int marker = NextMarker();
      if (marker == kEndOfImage) break;
      if (marker == kStartOfImage || (marker >= kRestartFirst && marker <= kRestartLast)) {
        throw PDFError("a marker stands where none may");
      }
      ByteReader segment = Segment();
      if (marker == kStartOfScan) {
        ReadScan(segment);
      } else if (IsFrame(marker)) {
        ReadFrame(marker, segment);
      } else if (marker >= kApp0 && marker <= kApp14) {
        ReadApplicationData(marker, segment);
      }
    }
    CheckPicture();
    return header_;
  }

 private:
  static bool IsFrame(int marker) {
    return marker >= kFrameBaseline && marker <= kFrameLast && marker != kHuffmanTables &&
           marker != kArithmeticTables;
  }

  int NextMarker() {
    if (file_.U8() != 0xFF) throw PDFError("a marker is missing");
    int marker = file_.U8();
    while (marker == 0xFF) marker = file_.U8();  // fill bytes
    return marker;
  }

  ByteReader Segment() {
    const int length = file_.U16();
    if (length < 2) throw PDFError("a segment has no length");
    return ByteReader(file_.Take(static_cast<std::size_t>(length) - 2));
  }

  void ReadFrame(int marker, ByteReader segment) {
    if (marker > kFrameProgressive) throw PDFError("its kind of coding is not supported");
    if (header_.components != 0) throw PDFError("it has more than one frame");
    header_.progressive = marker == kFrameProgressive;
    header_.bits = segment.U8();
    header_.height = segment.U16();
    header_.width = segment.U16();
    const int count = segment.U8();
    if (header_.bits != 8) throw PDFError("it has other than 8 bits a component");
    if (header_.width == 0 || header_.height == 0) throw PDFError("it has no size");
    if (count != 1 && count != 3 && count != 4) {
      throw PDFError("it has " + std::to_string(count) + " components");
    }
    header_.components = count;
    for (int i = 0; i < count; ++i) {
      Component& component = components_[static_cast<std::size_t>(i)];
      component.id = segment.U8();
      const int factors = segment.U8();
      component.across = factors >> 4;
      component.down = factors & 15;
      if (component.across < 1 || component.across > 4 || component.down < 1 ||
          component.down > 4 || segment.U8() > 3) {
        throw PDFError("a component of its frame is impossible");
      }
    }
    if (!segment.AtEnd()) throw PDFError("its frame has a wrong length");
  }

  void ReadScan(ByteReader segment) {
    if (header_.components == 0) throw PDFError("a scan stands before the frame");
    const int count = segment.U8();
    if (count < 1 || count > header_.components) throw PDFError("a scan has too many components");
    for (int i = 0; i < count; ++i) {
      const int id = segment.U8();
      segment.U8();
      const auto last = components_.begin() + header_.components;
      if (std::none_of(components_.begin(), last, [id](const auto& c) { return c.id == id; })) {
        throw PDFError("a scan names a component that is not there");
      }
    }
    segment.Take(3);
    if (!segment.AtEnd()) throw PDFError("a scan has a wrong length");
    SkipCodedBytes();
  }

  /// Up to the next marker that is neither a stuffed 0xFF nor a restart.
  void SkipCodedBytes() {
    for (;;) {
      codedBytes_ += file_.SkipTo('\xFF');
      const int next = file_.Peek(1);
      if (next == 0) {
        file_.Take(2);
        ++codedBytes_;
      } else if (next >= kRestartFirst && next <= kRestartLast) {
        file_.Take(2);
      } else {
        return;
      }
    }
  }

  void ReadApplicationData(int marker, ByteReader segment) {
    if (marker == kApp0 && segment.StartsWith(std::string_view("JFIF\0", 5))) {
      segment.Take(7);  // name and version
      static constexpr std::array<const char*, 3> kUnits{"Dots", "Dots/inch (DPI)", "Dots/cm"};
      const int unit = segment.U8();
      const int across = segment.U16();
      const int down = segment.U16();
      if (unit > 2 || across == 0 || down == 0) return;  // nothing usable; the picture still is
      header_.units = kUnits[static_cast<std::size_t>(unit)];
      header_.densityX = across;
      header_.densityY = down;
      hasJfifDensity_ = true;
    } else if (marker == kApp1 && segment.StartsWith(std::string_view("Exif\0\0", 6))) {
      segment.Take(6);
      const auto density = ReadExifDensity(segment.Rest());
      if (!density || hasJfifDensity_) return;
      header_.units = density->perCentimetre ? "Dots/cm" : "Dots/inch (DPI)";
      header_.densityX = density->across;
      header_.densityY = density->down;
    } else if (marker == kApp14 && segment.StartsWith("Adobe")) {
      header_.hasAdobeMarker = true;
    }
  }

  /// Every block of 8 by 8 samples costs at least one bit, however well it is coded.
  void CheckPicture() const {
    if (codedBytes_ == 0) throw PDFError("it holds no picture");
    int across = 1;
    int down = 1;
    for (const Component& component : components_) {
      across = std::max(across, component.across);
      down = std::max(down, component.down);
    }
    std::uint64_t blocks = 0;
    for (const Component& component : components_) {
      const int width = (header_.width * component.across + across - 1) / across;
      const int height = (header_.height * component.down + down - 1) / down;
      blocks += static_cast<std::uint64_t>((width + 7) / 8) *
                static_cast<std::uint64_t>((height + 7) / 8);
    }
    if (codedBytes_ * 8 < blocks) throw PDFError("it claims more picture than it holds");
  }

  ByteReader file_;
  JpegHeader header_;
  std::array<Component, 4> components_;  // those not in use have factors of 0
  bool hasJfifDensity_ = false;
  std::uint64_t codedBytes_ = 0;
};

}  // namespace

const char* JpegHeader::ColorSpace() const {
  if (components == 1) return "DeviceGray";
  return components == 4 ? "DeviceCMYK" : "DeviceRGB";
}

JpegHeader ReadJpegHeader(std::string_view file) {
  return JpegReader(file).Read();
}

}  // namespace quillary
