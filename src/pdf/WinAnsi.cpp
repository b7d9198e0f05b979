#include "pdf/WinAnsi.h"

#include "pdf/WinAnsiTables.h"

#include <algorithm>

namespace quillary {
namespace {

constexpr char32_t kBroken = 0xFFFD;

bool IsPlain(char byte) {
  return byte >= 0x20 && byte <= 0x7E;
}

/// Takes one character from the front of `rest`. A byte that belongs to none is taken alone and
/// gives kBroken; overlong forms, surrogates and numbers beyond U+10FFFF count as broken.
char32_t TakeCharacter(std::string_view& rest) {
  const auto first = static_cast<unsigned char>(rest.front());
  rest.remove_prefix(1);
  if (first < 0x80) return first;
  if (first < 0xC2 || first > 0xF4) return kBroken;
  const std::size_t more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  if (rest.size() < more) return kBroken;
  char32_t character = first & (0x3Fu >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(rest[i]);
    if ((next & 0xC0) != 0x80) return kBroken;
    character = character << 6 | (next & 0x3Fu);
  }
  const bool overlong = character < (more == 1 ? 0x80u : more == 2 ? 0x800u : 0x10000u);
  if (overlong || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
    return kBroken;
  }
  rest.remove_prefix(more);
  return character;
}

void AppendUnit(std::string& text, char32_t unit) {
  text += static_cast<char>(unit >> 8 & 0xFF);
  text += static_cast<char>(unit & 0xFF);
}

}  // namespace

std::string ToWinAnsi(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto plain = std::find_if_not(utf8.begin(), utf8.end(), IsPlain);
    text.append(utf8.begin(), plain);
    utf8.remove_prefix(static_cast<std::size_t>(plain - utf8.begin()));
    if (utf8.empty()) break;

    const char32_t character = TakeCharacter(utf8);
    if (const unsigned char code = WinAnsiCode(character)) {
      text += static_cast<char>(code);
      continue;
    }
    const unsigned char accented =
        text.empty() ? 0 : WithAccent(static_cast<unsigned char>(text.back()), character);
    if (accented != 0) {
      text.back() = static_cast<char>(accented);
    } else {
      text += NearestAscii(character);
    }
  }
  return text;
}

bool IsInWinAnsi(std::string_view utf8) {
  if (std::all_of(utf8.begin(), utf8.end(), IsPlain)) return true;
  unsigned char before = 0;  // the letter that an accent would join
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    const unsigned char code = WinAnsiCode(character);
    const unsigned char accented = code == 0 ? WithAccent(before, character) : 0;
    if (code == 0 && accented == 0) {
      // An accent of its own that no letter takes would vanish with the encoding.
      const bool isAccent = character >= 0x300 && character <= 0x36F;
      const std::string_view nearest = NearestAscii(character);
      if (isAccent || !(nearest.empty() || nearest == " ")) return false;
    }
    before = accented != 0 ? accented : code;
  }
  return true;
}

std::u32string ToUtf32(std::string_view utf8) {
  std::u32string text;
  while (!utf8.empty()) text += TakeCharacter(utf8);
  return text;
}

std::string ToUtf16(std::string_view utf8) {
  std::string text = "\xFE\xFF";
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    if (character < 0x10000) {
      AppendUnit(text, character);
    } else {
      AppendUnit(text, 0xD800 + ((character - 0x10000) >> 10));
      AppendUnit(text, 0xDC00 + ((character - 0x10000) & 0x3FF));
    }
  }
  return text;
}

}  // namespace quillary
