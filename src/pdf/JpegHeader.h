#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// What a PDF file has to say about a JPEG image that it holds as it is (ISO/IEC 10918-1).
struct JpegHeader {
  int width = 0;   // pixels
  int height = 0;  // pixels
  int bits = 0;    // per component; always 8
  int components = 0;
  bool progressive = false;
  /// What the densities count: "Dots" (a ratio only), "Dots/inch (DPI)" or "Dots/cm". From the
  /// JFIF segment or, without one, from the Exif data.
  std::string units = "Dots";
  double densityX = 1;
  double densityY = 1;
  /// Four-component files that carry the Adobe segment hold their inks inverted.
  bool hasAdobeMarker = false;

  /// "DeviceGray", "DeviceRGB" or "DeviceCMYK".
  const char* ColorSpace() const;
};

/// Walks all segments and scans of the file up to its end marker. Reads Huffman-coded baseline,
/// extended and progressive images of 8 bits with 1, 3 or 4 components. Throws PDFError when the
/// file is of another kind, is cut off, or says something of itself that can't be: segments that
/// reach beyond the file, scans of components that the frame does not have, more picture than the
/// coded bytes could hold. Never reads outside `file`.
JpegHeader ReadJpegHeader(std::string_view file);

}  // namespace quillary
