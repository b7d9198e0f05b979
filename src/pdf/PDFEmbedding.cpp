#include "pdf/PDFWriter.h"
#include "pdf/WinAnsi.h"

#include <algorithm>
#include <cmath>

// Faces in the file: PDF Reference 1.3, sections 5.6 (composite fonts), 5.7 (font descriptors), 5.8
// (embedded font programs) and 5.9 (ToUnicode).
namespace quillary {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

void AppendHex(std::string& text, unsigned code) {
  for (const int shift : {12, 8, 4, 0}) text += kHexDigits[code >> shift & 15];
}

std::string HexOf(std::u32string_view characters) {
  std::string hex;
  for (const char32_t c : characters) {
    if (c < 0x10000) {
      AppendHex(hex, c);
    } else {
      AppendHex(hex, 0xD800 + ((c - 0x10000) >> 10));
      AppendHex(hex, 0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return hex;
}

/// Six capitals, different for different sets of glyphs, by which viewers tell cut faces apart.
std::string TagOf(const std::vector<PDFGlyph>& glyphs) {
  std::uint32_t sum = 2166136261u;
  for (const PDFGlyph& glyph : glyphs) sum = (sum ^ glyph.id) * 16777619u;
  std::string tag;
  for (int i = 0; i < 6; ++i, sum /= 26) tag += static_cast<char>('A' + sum % 26);
  return tag + '+';
}

/// What each code shows, for searching and copying.
std::string CharacterMap(const std::vector<PDFGlyph>& glyphs) {
  constexpr std::size_t kMostInBlock = 100;
  LineBuffer map;
  map.AddLine("/CIDInit /ProcSet findresource begin");
  map.AddLine("12 dict begin");
  map.AddLine("begincmap");
  map.AddLine("/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def");
  map.AddLine("/CMapName /Adobe-Identity-UCS def");
  map.AddLine("/CMapType 2 def");
  map.AddLine("1 begincodespacerange");
  map.AddLine("<0000> <FFFF>");
  map.AddLine("endcodespacerange");
  for (std::size_t from = 0; from < glyphs.size(); from += kMostInBlock) {
    const std::size_t count = std::min(kMostInBlock, glyphs.size() - from);
    map.AddLine(count, " beginbfchar");
    for (std::size_t i = from; i < from + count; ++i) {
      std::string code;
      AppendHex(code, static_cast<unsigned>(i + 1));
      map.AddLine("<", code, "> <", HexOf(glyphs[i].shows), ">");
    }
    map.AddLine("endbfchar");
  }
  map.AddLine("endcmap");
  map.AddLine("CMapName currentdict /CMap defineresource pop");
  map.AddLine("end");
  map.AddLine("end");
  return std::string(map.Text());
}

/// For each code the two bytes of the glyph that the cut face has for it; code 0 is none.
std::string GlyphNumbers(const std::vector<unsigned>& ids) {
  std::string numbers(2, '\0');
  for (const unsigned id : ids) {
    numbers += static_cast<char>(id >> 8 & 0xFF);
    numbers += static_cast<char>(id & 0xFF);
  }
  return numbers;
}

}  // namespace

PDFWriter::EmbeddedFace& PDFWriter::Embed(int face) {
  const auto found = std::find_if(embedded_.begin(), embedded_.end(),
                                  [face](const EmbeddedFace& each) { return each.face == face; });
  if (found != embedded_.end()) return *found;
  embedded_.push_back({.face = face, .codes = {}, .glyphs = {}});
  return embedded_.back();
}

unsigned PDFWriter::CodeOf(EmbeddedFace& face, const PDFGlyph& glyph) {
  const auto [at, isNew] = face.codes.try_emplace({glyph.id, glyph.shows}, 0);
  if (isNew) {
    face.glyphs.push_back(glyph);
    at->second = static_cast<unsigned>(face.glyphs.size());
  }
  return at->second;
}

/// The operators within BT and ET: the pieces of the text one after the other, glyphs moved from
/// where the widths of their face would put them to where they belong.
void PDFWriter::ShowGlyphs(LineBuffer& content, const PDFShapedText& text) {
  for (const PDFGlyphRun& run : text.runs) {
    EmbeddedFace& face = Embed(run.face);
    content.AddLine("/G", &face - embedded_.data() + 1, " ", EffectiveFontSize(), " Tf");
    double rise = 0;
    double back = 0;  // to the left, before the next glyph, in thousandths
    std::string codes;
    LineBuffer line;
    const auto endCodes = [&] {
      if (!codes.empty()) line.Append("<" + codes + ">");
      codes.clear();
    };
    const auto endLine = [&] {
      endCodes();
      if (!line.IsEmpty()) content.AddLine("[", line.Text(), "] TJ");
      line.Clear();
    };
    for (const PDFGlyph& glyph : run.glyphs) {
      if (glyph.y != rise) {
        endLine();
        content.AddLine(Decimal(glyph.y * EffectiveFontSize() / 1000), " Ts");
        rise = glyph.y;
      }
      back -= glyph.x;
      if (std::abs(back) >= 0.5) {
        endCodes();
        line.Append(Decimal(back, 0));
        back = 0;
      }
      AppendHex(codes, CodeOf(face, glyph));
      back += glyph.width - glyph.advance + glyph.x;
    }
    if (std::abs(back) >= 0.5) {
      endCodes();
      line.Append(Decimal(back, 0));
    }
    endLine();
    if (rise != 0) content.AddLine("0 Ts");
  }
}

void PDFWriter::NoteIfNotShown(std::string_view utf8, const PDFShapedText& text) {
  if (text.missing.empty()) return;
  if (std::find(notShown_.begin(), notShown_.end(), utf8) == notShown_.end())
    notShown_.emplace_back(utf8);
}

int PDFWriter::WriteStream(std::string_view entries, std::string_view bytes) {
  const int object = BeginObject();
  objectBuffer_.AddLine("<< ", entries, "/Length ", bytes.size(), " >>");
  objectBuffer_.AddLine("stream");
  LineBuffer end;
  end.AddLine();
  end.AddLine("endstream");
  end.AddLine("endobj");
  WriteObject({objectBuffer_.Text(), bytes, end.Text()});
  return object;
}

int PDFWriter::WriteFaceDescription(const PDFFontFile& file, const std::string& name) {
  constexpr int kSymbolic = 4;  // its codes are no standard ones
  constexpr int kItalic = 64;
  constexpr int kStem = 80;  // no face tells it, and no viewer needs it of an embedded one
  const int program =
      WriteStream("/Length1 " + std::to_string(file.bytes.size()) + " ", file.bytes);
  const int object = BeginObject();
  objectBuffer_.AddLine("<< /Type /FontDescriptor");
  objectBuffer_.AddLine("/FontName /", name);
  objectBuffer_.AddLine("/Flags ", kSymbolic + (file.italicAngle != 0 ? kItalic : 0));
  objectBuffer_.AddLine("/FontBBox [", file.left, " ", file.bottom, " ", file.right, " ", file.top,
                        "]");
  objectBuffer_.AddLine("/ItalicAngle ", file.italicAngle);
  objectBuffer_.AddLine("/Ascent ", file.ascent);
  objectBuffer_.AddLine("/Descent ", file.descent);
  objectBuffer_.AddLine("/CapHeight ", file.capHeight);
  objectBuffer_.AddLine("/StemV ", kStem);
  objectBuffer_.AddLine("/FontFile2 ", program, " 0 R");
  objectBuffer_.AddLine(">>");
  EndObject();
  return object;
}

int PDFWriter::WriteGlyphWidths(const EmbeddedFace& face, const PDFFontFile& file,
                                const std::string& name) {
  const int description = WriteFaceDescription(file, name);
  const int numbers = WriteStream("", GlyphNumbers(file.ids));
  const int object = BeginObject();
  objectBuffer_.AddLine("<< /Type /Font");
  objectBuffer_.AddLine("/Subtype /CIDFontType2");
  objectBuffer_.AddLine("/BaseFont /", name);
  objectBuffer_.AddLine(
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>");
  objectBuffer_.AddLine("/FontDescriptor ", description, " 0 R");
  objectBuffer_.AddLine("/CIDToGIDMap ", numbers, " 0 R");
  objectBuffer_.Append("/W [1 [");
  for (const PDFGlyph& glyph : face.glyphs) {
    objectBuffer_.Append(" ");
    objectBuffer_.Append(std::lround(glyph.width));
  }
  objectBuffer_.AddLine(" ]]");
  objectBuffer_.AddLine(">>");
  EndObject();
  return object;
}

void PDFWriter::WriteEmbeddedFaces() {
  for (EmbeddedFace& face : embedded_) {
    std::vector<unsigned> ids;
    for (const PDFGlyph& glyph : face.glyphs) ids.push_back(glyph.id);
    const PDFFontFile file = host_.faces->Subset(face.face, ids);
    const std::string name = TagOf(face.glyphs) + file.name;
    const int widths = WriteGlyphWidths(face, file, name);
    const int shows = WriteStream("", CharacterMap(face.glyphs));
    face.object = BeginObject();
    objectBuffer_.AddLine("<< /Type /Font");
    objectBuffer_.AddLine("/Subtype /Type0");
    objectBuffer_.AddLine("/BaseFont /", name);
    objectBuffer_.AddLine("/Encoding /Identity-H");
    objectBuffer_.AddLine("/DescendantFonts [", widths, " 0 R]");
    objectBuffer_.AddLine("/ToUnicode ", shows, " 0 R");
    objectBuffer_.AddLine(">>");
    EndObject();
  }
}

}  // namespace quillary
