#include "pdf/faces/ShapedFaces.h"

#include "pdf/PDFTypes.h"
#include "pdf/WinAnsi.h"

#include <fribidi.h>

#include <algorithm>

namespace quillary {
namespace {

constexpr std::size_t kMostKept = 1000;  // texts; a run of invoices shows the same few
constexpr int kBold = 1;
constexpr int kItalic = 2;

struct Family {
  const char* name;
  const char* plain;  // the ending of its file
  const char* italic;
};
// A family for Latin, Greek and Cyrillic first, then one for what is rare in them, then a family
// for each script, signs, and last the face that has Chinese, Japanese and Korean in one weight.
constexpr Family kFamilies[] = {
    {"NotoSans", "-Regular", "-Italic"},    {"DejaVuSans", "", "-Oblique"},
    {"NotoSansArabic", "-Regular", ""},     {"NotoSansHebrew", "-Regular", ""},
    {"NotoSansDevanagari", "-Regular", ""}, {"NotoSansBengali", "-Regular", ""},
    {"NotoSansGurmukhi", "-Regular", ""},   {"NotoSansGujarati", "-Regular", ""},
    {"NotoSansTamil", "-Regular", ""},      {"NotoSansTelugu", "-Regular", ""},
    {"NotoSansKannada", "-Regular", ""},    {"NotoSansMalayalam", "-Regular", ""},
    {"NotoSansSinhala", "-Regular", ""},    {"NotoSansThai", "-Regular", ""},
    {"NotoSansLao", "-Regular", ""},        {"NotoSansKhmer", "-Regular", ""},
    {"NotoSansMyanmar", "-Regular", ""},    {"NotoSansArmenian", "-Regular", ""},
    {"NotoSansGeorgian", "-Regular", ""},   {"NotoSansEthiopic", "-Regular", ""},
    {"NotoSansSymbols2", "-Regular", ""},   {"NotoSansSymbols", "-Regular", ""},
    {"DroidSansFallbackFull", "", ""},      {"DroidSansFallback", "", ""},
};
constexpr int kFamilyCount = static_cast<int>(std::size(kFamilies));

/// Joiners, marks of direction and choosers of a shape: they are nothing to be seen.
bool IsUnseen(char32_t c) {
  return c == 0xAD || (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2060 && c <= 0x206F) || (c >= 0xFE00 && c <= 0xFE0F) || c == 0xFEFF ||
         (c >= 0xE0100 && c <= 0xE01EF);
}

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

hb_script_t ScriptOf(char32_t c) {
  return hb_unicode_script(hb_unicode_funcs_get_default(), c);
}

/// The script of each character; what belongs to any takes that of its neighbour.
std::vector<hb_script_t> ScriptsOf(const std::u32string& text) {
  std::vector<hb_script_t> scripts(text.size(), HB_SCRIPT_COMMON);
  const auto isOfAny = [](hb_script_t script) {
    return script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED ||
           script == HB_SCRIPT_UNKNOWN;
  };
  hb_script_t last = HB_SCRIPT_COMMON;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const hb_script_t own = ScriptOf(text[i]);
    if (!isOfAny(own)) last = own;
    scripts[i] = last;
  }
  const auto first = std::find_if_not(scripts.begin(), scripts.end(), isOfAny);
  if (first != scripts.end()) std::fill(scripts.begin(), first, *first);
  return scripts;
}

/// How deep each character lies within text of the other direction, in a line that runs to the
/// right: odd levels run to the left.
std::vector<FriBidiLevel> LevelsOf(const std::u32string& text) {
  const auto length = static_cast<FriBidiStrIndex>(text.size());
  std::vector<FriBidiLevel> levels(text.size(), 0);
  std::vector<FriBidiCharType> types(text.size());
  const auto* characters = reinterpret_cast<const FriBidiChar*>(text.data());
  fribidi_get_bidi_types(characters, length, types.data());
  FriBidiParType direction = FRIBIDI_PAR_LTR;
  if (fribidi_get_par_embedding_levels_ex(types.data(), nullptr, length, &direction,
                                          levels.data()) == 0)
    std::fill(levels.begin(), levels.end(), FriBidiLevel(0));
  return levels;
}

/// A part of one face, script and level.
struct Part {
  std::size_t from = 0;
  std::size_t count = 0;
  int family = 0;
  FriBidiLevel level = 0;
};

/// From the deepest level on, what lies at it or deeper is turned round (rule L2 of UAX 9).
void PutInOrder(std::vector<Part>& parts) {
  FriBidiLevel deepest = 0;
  for (const Part& part : parts) deepest = std::max(deepest, part.level);
  for (FriBidiLevel level = deepest; level > 0; --level) {
    for (auto at = parts.begin(); at != parts.end();) {
      const auto isIn = [level](const Part& part) { return part.level >= level; };
      const auto first = std::find_if(at, parts.end(), isIn);
      at = std::find_if_not(first, parts.end(), isIn);
      std::reverse(first, at);
    }
  }
}

}  // namespace

int ShapedFaces::FaceOf(int family, int style) {
  const auto [known, isNew] = faceOf_.try_emplace({family, style}, kNone);
  if (!isNew) return known->second;
  const Family& words = kFamilies[family];
  std::string ending = (style & kItalic) != 0 ? words.italic : words.plain;
  if ((style & kBold) != 0) {
    // "-Bold", "-BoldItalic", "-BoldOblique"
    const bool isItalic = (style & kItalic) != 0 && *words.italic != '\0';
    ending = isItalic ? std::string("-Bold") + (words.italic + 1) : "-Bold";
  }
  const auto file = folder_ / (words.name + ending + ".ttf");
  std::error_code error;
  int face = kNone;
  if (std::filesystem::exists(file, error)) {
    face = static_cast<int>(faces_.size());
    faces_.push_back(std::make_unique<FaceFile>(file));
  } else if (style != 0) {
    face = FaceOf(family, (style & kItalic) != 0 ? style & ~kItalic : 0);
  }
  return faceOf_[{family, style}] = face;
}

bool ShapedFaces::Has(int family, int style, char32_t character) {
  const int face = FaceOf(family, style);
  return face != kNone && faces_[static_cast<std::size_t>(face)]->Has(character);
}

int ShapedFaces::FamilyForAll(std::u32string_view text, int style) {
  for (int family = 0; family < kFamilyCount; ++family) {
    if (std::all_of(text.begin(), text.end(),
                    [&](char32_t c) { return IsUnseen(c) || Has(family, style, c); }))
      return family;
  }
  return kNone;
}

/// The family of each character; kNone for what no face has.
std::vector<int> ShapedFaces::FamiliesFor(const std::u32string& text, int style) {
  const int ofAll = FamilyForAll(text, style);
  std::vector<int> families(text.size(), ofAll);
  if (ofAll != kNone) return families;
  for (std::size_t from = 0; from < text.size();) {
    std::size_t to = std::min(text.find(U' ', from), text.size());
    if (to == from) ++to;
    const auto word = std::u32string_view(text).substr(from, to - from);
    const int ofWord = FamilyForAll(word, style);
    for (std::size_t i = from; i < to; ++i) {
      const int before = i > 0 ? families[i - 1] : kNone;
      if (ofWord != kNone)
        families[i] = ofWord;
      else if (before != kNone && (IsUnseen(text[i]) || Has(before, style, text[i])))
        families[i] = before;
      else
        families[i] = FamilyForAll(word.substr(i - from, 1), style);
    }
    from = to;
  }
  return families;
}

PDFShapedText ShapedFaces::ShapeAnew(const std::u32string& text, int style) {
  PDFShapedText result;
  std::u32string set = text;  // as it is set
  for (char32_t& c : set)
    if (IsControl(c)) c = U' ';
  std::vector<int> families = FamiliesFor(set, style);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (families[i] != kNone) continue;
    if (result.missing.find(text[i]) == std::u32string::npos) result.missing += text[i];
    set[i] = U'?';
    families[i] = FamilyForAll(U"?", style);
    if (families[i] == kNone) throw PDFError("No face is in the folder '" + folder_.string() + "'");
  }
  const std::vector<hb_script_t> scripts = ScriptsOf(set);
  const std::vector<FriBidiLevel> levels = LevelsOf(set);
  std::vector<Part> parts;
  for (std::size_t i = 0; i < set.size(); ++i) {
    const bool goesOn = i > 0 && families[i] == families[i - 1] && levels[i] == levels[i - 1] &&
                        scripts[i] == scripts[i - 1];
    if (!goesOn) parts.push_back({i, 0, families[i], levels[i]});
    ++parts.back().count;
  }
  PutInOrder(parts);
  for (const Part& part : parts) {
    const int face = FaceOf(part.family, style);
    PDFGlyphRun run{.face = face, .glyphs = {}};
    faces_[static_cast<std::size_t>(face)]->Shape(set, text, part.from, part.count,
                                                  part.level % 2 == 1, run.glyphs);
    for (const PDFGlyph& glyph : run.glyphs) result.width += glyph.advance;
    result.runs.push_back(std::move(run));
  }
  return result;
}

const PDFShapedText& ShapedFaces::Shape(std::string_view utf8, bool bold, bool italic) {
  const int style = (bold ? kBold : 0) | (italic ? kItalic : 0);
  std::string key(1, static_cast<char>('0' + style));
  key += utf8;
  if (const auto known = shaped_.find(key); known != shaped_.end()) return known->second;
  if (shaped_.size() >= kMostKept) shaped_.clear();
  return shaped_.emplace(std::move(key), ShapeAnew(ToUtf32(utf8), style)).first->second;
}

PDFFontFile ShapedFaces::Subset(int face, const std::vector<unsigned>& glyphs) {
  return faces_.at(static_cast<std::size_t>(face))->Subset(glyphs);
}

}  // namespace quillary
