#pragma once

#include "pdf/PDFGlyphs.h"

#include <hb.h>

#include <filesystem>
#include <memory>

namespace quillary {

template <auto Destroy>
struct HarfBuzzDeleter {
  template <typename Thing>
  void operator()(Thing* thing) const {
    Destroy(thing);
  }
};
using HarfBuzzFace = std::unique_ptr<hb_face_t, HarfBuzzDeleter<hb_face_destroy>>;
using HarfBuzzFont = std::unique_ptr<hb_font_t, HarfBuzzDeleter<hb_font_destroy>>;

/// One TrueType face. Its file is mapped, not read.
class FaceFile {
 public:
  /// Throws PDFError when the file is no face.
  explicit FaceFile(const std::filesystem::path& file);

  bool Has(char32_t character) const;
  /// Appends the glyphs of a part of `characters`, all of one script and direction, as they stand
  /// on the line. `shown` are the characters that a copy of the text is to give, as many.
  void Shape(const std::u32string& characters, const std::u32string& shown, std::size_t from,
             std::size_t count, bool rightToLeft, std::vector<PDFGlyph>& glyphs) const;
  PDFFontFile Subset(const std::vector<unsigned>& glyphs) const;

 private:
  double InThousandths(double units) const;
  void ReadMetrics(PDFFontFile& cut) const;

  std::filesystem::path file_;
  HarfBuzzFace face_;
  HarfBuzzFont font_;
};

}  // namespace quillary
