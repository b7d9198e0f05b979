#pragma once

#include <optional>
#include <string_view>

namespace quillary {

/// How many pixels a length holds, as Exif data tells it (CIPA DC-008, a TIFF 6.0 structure).
struct ExifDensity {
  double across = 0;
  double down = 0;
  bool perCentimetre = false;  // otherwise per inch
};

/// Reads the data that follows "Exif" and its two zero bytes. Nothing when the data is broken or
/// names no resolution: a picture is whole without it.
std::optional<ExifDensity> ReadExifDensity(std::string_view tiff);

}  // namespace quillary
