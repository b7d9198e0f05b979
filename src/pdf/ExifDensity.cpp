#include "pdf/ExifDensity.h"

#include <cstdint>

namespace quillary {
namespace {

constexpr std::uint32_t kXResolution = 0x011A;
constexpr std::uint32_t kYResolution = 0x011B;
constexpr std::uint32_t kResolutionUnit = 0x0128;
constexpr std::uint32_t kTypeShort = 3;
constexpr std::uint32_t kTypeRational = 5;

/// Numbers at any place of the data, in the byte order that the data names. Reading outside gives
/// 0, which no field that is sought for may hold.
class TiffData {
 public:
  explicit TiffData(std::string_view bytes) : bytes_(bytes), low_(bytes.starts_with("II")) {}

  bool IsTiff() const {
    return (bytes_.starts_with("II") || bytes_.starts_with("MM")) && Number(2, 2) == 42;
  }

  std::uint32_t Number(std::size_t at, std::size_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) return 0;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const auto byte = static_cast<unsigned char>(bytes_[low_ ? at + size - 1 - i : at + i]);
      number = number << 8 | byte;
    }
    return number;
  }

  double Rational(std::size_t at) const {
    const std::uint32_t divisor = Number(at + 4, 4);
    return divisor == 0 ? 0 : static_cast<double>(Number(at, 4)) / divisor;
  }

 private:
  std::string_view bytes_;
  bool low_;
};

}  // namespace

std::optional<ExifDensity> ReadExifDensity(std::string_view tiff) {
  const TiffData data(tiff);
  if (!data.IsTiff()) return std::nullopt;
  ExifDensity density;
  const std::size_t directory = data.Number(4, 4);
  const std::uint32_t count = data.Number(directory, 2);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + std::size_t{12} * i;
    const std::uint32_t tag = data.Number(entry, 2);
    const std::uint32_t type = data.Number(entry + 2, 2);
    if (tag == kXResolution && type == kTypeRational) {
      density.across = data.Rational(data.Number(entry + 8, 4));
    } else if (tag == kYResolution && type == kTypeRational) {
      density.down = data.Rational(data.Number(entry + 8, 4));
    } else if (tag == kResolutionUnit && type == kTypeShort) {
      density.perCentimetre = data.Number(entry + 8, 2) == 3;
    }
  }
  if (density.across <= 0 || density.down <= 0) return std::nullopt;
  return density;
}

}  // namespace quillary
