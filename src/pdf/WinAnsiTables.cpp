#include "pdf/WinAnsiTables.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quillary {
namespace {

/// The characters of the codes 128 to 159; 0 where the code is open.
constexpr std::array<char32_t, 32> kHighCodes{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

struct Accent {
  char32_t mark;
  std::string_view bases;
  std::string_view letters;
};

constexpr Accent kAccents[] = {
    {0x300, "AEIOUaeiou", "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9"},
    {0x301, "AEIOUYaeiouy", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD"},
    {0x302, "AEIOUaeiou", "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB"},
    {0x303, "ANOano", "\xC3\xD1\xD5\xE3\xF1\xF5"},
    {0x308, "AEIOUYaeiouy", "\xC4\xCB\xCF\xD6\xDC\x9F\xE4\xEB\xEF\xF6\xFC\xFF"},
    {0x30A, "Aa", "\xC5\xE5"},
    {0x30C, "SZsz", "\x8A\x8E\x9A\x9E"},
    {0x327, "Cc", "\xC7\xE7"},
};

/// One letter for each character from U+0100 and from U+1E00 on.
constexpr std::string_view kLatinExtended =
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi??JjKkkLlLlLl?"
    "?LlNnNnNn?NnOoOoOo??RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs"
    "b????????D????EE???????I??l?????Oo?????????????Uu????Zz?????????"
    "?????????????AaIiOoUuUuUuUuUueAaAa??GgGgKkOoOo??j???Gg??NnAa????"
    "AaAaEeEeIiIiOoOoRrRrUuUuSsTt??Hh??????AaEeOoOoOoOoYy???j??ACcLT?"
    "???BU?EeJj??RrYy";
constexpr std::string_view kLatinAdditional =
    "AaBbBbBbCcDdDdDdDdDdEeEeEeEeEeFfGgHhHhHhHhHhIiIiKkKkKkLlLlLlLlMm"
    "MmMmNnNnNnNnOoOoOoOoPpPpRrRrRrRrSsSsSsSsSsTtTtTtTtUuUuUuUuUuVvVv"
    "WwWwWwWwWwXxXxYyZzZzZzhtwy?s??SdAaAaAaAaAaAaAaAaAaAaAaAaEeEeEeEe"
    "EeEeEeEeIiIiOoOoOoOoOoOoOoOoOoOoOoOoUuUuUuUuUuUuUuYyYyYyYy??????";

struct Form {
  char32_t character;
  std::string_view ascii;
};

/// In the order of the characters.
constexpr Form kForms[] = {
    {0x132, "IJ"},   {0x133, "ij"},   {0x13F, "L"},    {0x140, "l"},    {0x149, "'n"},
    {0x1C4, "DZ"},   {0x1C5, "Dz"},   {0x1C6, "dz"},   {0x1C7, "LJ"},   {0x1C8, "Lj"},
    {0x1C9, "lj"},   {0x1CA, "NJ"},   {0x1CB, "Nj"},   {0x1CC, "nj"},   {0x1F1, "DZ"},
    {0x1F2, "Dz"},   {0x1F3, "dz"},   {0x2B9, "'"},    {0x2BA, "\""},   {0x2BB, "'"},
    {0x2BC, "'"},    {0x2BD, "'"},    {0x2C8, "'"},    {0x2CA, "'"},    {0x2CB, "`"},
    {0x1E9E, "SS"},  {0x2010, "-"},   {0x2011, "-"},   {0x2012, "-"},   {0x2015, "-"},
    {0x2016, "||"},  {0x2017, "_"},   {0x201B, "'"},   {0x201F, "\""},  {0x2023, "*"},
    {0x2024, "."},   {0x2025, ".."},  {0x2027, "-"},   {0x2028, " "},   {0x2029, " "},
    {0x202F, " "},   {0x2032, "'"},   {0x2033, "\""},  {0x2034, "'''"}, {0x2035, "`"},
    {0x203C, "!!"},  {0x2043, "-"},   {0x2044, "/"},   {0x2047, "??"},  {0x2048, "?!"},
    {0x2049, "!?"},  {0x204E, "*"},   {0x205F, " "},   {0x2070, "0"},   {0x2071, "i"},
    {0x2074, "4"},   {0x2075, "5"},   {0x2076, "6"},   {0x2077, "7"},   {0x2078, "8"},
    {0x2079, "9"},   {0x207A, "+"},   {0x207B, "-"},   {0x207C, "="},   {0x207D, "("},
    {0x207E, ")"},   {0x207F, "n"},   {0x2080, "0"},   {0x2081, "1"},   {0x2082, "2"},
    {0x2083, "3"},   {0x2084, "4"},   {0x2085, "5"},   {0x2086, "6"},   {0x2087, "7"},
    {0x2088, "8"},   {0x2089, "9"},   {0x20BD, "RUB"}, {0x2103, "C"},   {0x2105, "c/o"},
    {0x2109, "F"},   {0x2113, "l"},   {0x2116, "No."}, {0x2117, "(P)"}, {0x2120, "(SM)"},
    {0x212A, "K"},   {0x2153, "1/3"}, {0x2154, "2/3"}, {0x215B, "1/8"}, {0x215C, "3/8"},
    {0x215D, "5/8"}, {0x215E, "7/8"}, {0x2190, "<-"},  {0x2191, "^"},   {0x2192, "->"},
    {0x2193, "v"},   {0x2194, "<->"}, {0x21D0, "<="},  {0x21D2, "=>"},  {0x21D4, "<=>"},
    {0x2212, "-"},   {0x2215, "/"},   {0x2217, "*"},   {0x2219, "."},   {0x2223, "|"},
    {0x2236, ":"},   {0x223C, "~"},   {0x2248, "~"},   {0x2260, "!="},  {0x2264, "<="},
    {0x2265, ">="},  {0x22C5, "."},   {0x2500, "-"},   {0x2502, "|"},   {0x25A0, "*"},
    {0x25AA, "*"},   {0x25CF, "*"},   {0x25E6, "o"},   {0x2605, "*"},   {0x2610, "[ ]"},
    {0x2611, "[x]"}, {0x2612, "[x]"}, {0x2713, "v"},   {0x2714, "v"},   {0x2717, "x"},
    {0x2718, "x"},   {0x3000, " "},   {0x3001, ","},   {0x3002, "."},   {0xFB00, "ff"},
    {0xFB01, "fi"},  {0xFB02, "fl"},  {0xFB03, "ffi"}, {0xFB04, "ffl"}, {0xFB05, "st"},
    {0xFB06, "st"},
};
static_assert(std::is_sorted(std::begin(kForms), std::end(kForms),
                             [](const Form& a, const Form& b) {
                               return a.character < b.character;
                             }));

constexpr bool IsBetween(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

/// Accents of their own, joiners, direction marks and variation selectors.
constexpr bool HasNoWidth(char32_t character) {
  return IsBetween(character, 0x300, 0x36F) || IsBetween(character, 0x200B, 0x200F) ||
         IsBetween(character, 0x202A, 0x202E) || IsBetween(character, 0x2060, 0x206F) ||
         IsBetween(character, 0x20D0, 0x20FF) || IsBetween(character, 0xFE00, 0xFE0F) ||
         character == 0xFEFF;
}

/// Every ASCII character as a text of its own.
constexpr auto kAscii = [] {
  std::array<char, 128> characters{};
  for (std::size_t i = 0; i < characters.size(); ++i) characters[i] = static_cast<char>(i);
  return characters;
}();

std::string_view OneOf(std::string_view table, char32_t index) {
  return table.substr(static_cast<std::size_t>(index), 1);
}

}  // namespace

unsigned char WinAnsiCode(char32_t character) {
  if (IsBetween(character, 0x20, 0x7E) || IsBetween(character, 0xA0, 0xFF)) {
    return static_cast<unsigned char>(character);
  }
  if (character == 0) return 0;
  const auto found = std::find(kHighCodes.begin(), kHighCodes.end(), character);
  if (found == kHighCodes.end()) return 0;
  return static_cast<unsigned char>(0x80 + (found - kHighCodes.begin()));
}

unsigned char WithAccent(unsigned char base, char32_t mark) {
  for (const Accent& accent : kAccents) {
    if (accent.mark != mark) continue;
    const auto at = accent.bases.find(static_cast<char>(base));
    if (at != std::string_view::npos) return static_cast<unsigned char>(accent.letters[at]);
  }
  return 0;
}

std::string_view NearestAscii(char32_t character) {
  if (IsBetween(character, 0x09, 0x0D) || character == 0x85) return " ";
  if (HasNoWidth(character)) return "";
  if (IsBetween(character, 0x2000, 0x200A)) return " ";
  if (IsBetween(character, 0xFF01, 0xFF5E)) {
    return {&kAscii[static_cast<std::size_t>(character - 0xFF00 + 0x20)], 1};
  }
  const auto form =
      std::lower_bound(std::begin(kForms), std::end(kForms), character,
                       [](const Form& entry, char32_t wanted) { return entry.character < wanted; });
  if (form != std::end(kForms) && form->character == character) return form->ascii;
  if (IsBetween(character, 0x100, 0x24F)) return OneOf(kLatinExtended, character - 0x100);
  if (IsBetween(character, 0x1E00, 0x1EFF)) return OneOf(kLatinAdditional, character - 0x1E00);
  return "?";
}

}  // namespace quillary
