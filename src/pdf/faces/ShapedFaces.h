#pragma once

#include "pdf/PDFGlyphs.h"
#include "pdf/faces/FaceFile.h"

#include <array>
#include <map>

namespace quillary {

/// The faces of a folder, shaped and cut down by HarfBuzz, their texts ordered by FriBidi. A text
/// is set in the first family that has all of its characters; failing that each word is, failing
/// that each character. A face is read when a text first needs it; families that are not in the
/// folder are passed over.
class ShapedFaces : public PDFFaces {
 public:
  explicit ShapedFaces(std::filesystem::path folder) : folder_(std::move(folder)) {}

  const PDFShapedText& Shape(std::string_view utf8, bool bold, bool italic) override;
  PDFFontFile Subset(int face, const std::vector<unsigned>& glyphs) override;

 private:
  static constexpr int kStyles = 4;  // plain, bold, italic, both
  static constexpr int kNone = -1;

  /// The face of a family in a style, or in the nearest that it has; kNone without the family.
  int FaceOf(int family, int style);
  bool Has(int family, int style, char32_t character);
  std::vector<int> FamiliesFor(const std::u32string& text, int style);
  int FamilyForAll(std::u32string_view text, int style);
  PDFShapedText ShapeAnew(const std::u32string& text, int style);

  std::filesystem::path folder_;
  std::vector<std::unique_ptr<FaceFile>> faces_;
  std::map<std::pair<int, int>, int> faceOf_;  // of family and style
  std::map<std::string, PDFShapedText, std::less<>> shaped_;
};

}  // namespace quillary
