#pragma once

#include <array>
#include <filesystem>
#include <string_view>

namespace quillary {

/// The character widths of one face, from an Adobe Font Metrics file (Adobe Technical Note 5004).
/// Only the table of encoded characters is read: from the line after "StartCharMetrics" to
/// "EndCharMetrics" or the first character without a code. The codes of the file are taken as the
/// codes of the text, so the file has to be in the encoding that the text is written in.
class AfmMetrics {
 public:
  /// Throws PDFError that names the line when the table is missing, cut off or holds anything but
  /// codes of 0 to 255 with widths of a believable size.
  static AfmMetrics Parse(std::string_view text);
  /// Throws PDFError that names the file when it can't be read or Parse refuses it.
  static AfmMetrics Load(const std::filesystem::path& file);

  /// The width of WinAnsi text in thousandths of the font size. A character that the face does not
  /// have counts 0.
  double WidthOf(std::string_view winAnsi) const;

 private:
  std::array<double, 256> widths_{};
};

}  // namespace quillary
