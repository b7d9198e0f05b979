#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Texts beyond WinAnsi, set from faces that go into the file. The writer knows faces and shaping
/// only by what stands here.
namespace quillary {

/// A glyph where it stands, in thousandths of the font size.
struct PDFGlyph {
  unsigned id = 0;       // in its face
  double width = 0;      // that the face gives it
  double advance = 0;    // to the place of the next one
  double x = 0;          // beside that place
  double y = 0;          // above the base line
  std::u32string shows;  // the characters; empty for what belongs to the glyph before
};

/// A piece of text in one face, its glyphs in the order in which they stand on the line.
struct PDFGlyphRun {
  int face = 0;
  std::vector<PDFGlyph> glyphs;
};

struct PDFShapedText {
  std::vector<PDFGlyphRun> runs;
  double width = 0;        // in thousandths of the font size
  std::u32string missing;  // characters that no face has; "?" stands in their place
};

/// A face cut down to the glyphs that a document shows.
struct PDFFontFile {
  std::string name;   // PostScript's, without the tag of a subset
  std::string bytes;  // TrueType
  int ascent = 0;     // in thousandths of the font size, as all that follows
  int descent = 0;
  int capHeight = 0;
  int italicAngle = 0;
  int left = 0, bottom = 0, right = 0, top = 0;  // of all glyphs
  std::vector<unsigned> ids;                     // of the glyphs asked for, in `bytes`
};

class PDFFaces {
 public:
  virtual ~PDFFaces() = default;
  /// What the text looks like, joined, ordered and placed as its script wants it. The reference
  /// holds until the next call. Throws PDFError when there is no face at all.
  virtual const PDFShapedText& Shape(std::string_view utf8, bool bold, bool italic) = 0;
  /// Throws PDFError when the face cannot be cut down.
  virtual PDFFontFile Subset(int face, const std::vector<unsigned>& glyphs) = 0;
};

}  // namespace quillary
