#include "pdf/PDFEscape.h"

#include "pdf/WinAnsi.h"

#include <algorithm>

namespace quillary {
namespace {

bool IsPrintable(char byte) {
  return byte >= 0x20 && byte <= 0x7E;
}

}  // namespace

std::string EscapeLiteral(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + 8);
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (code < 0x20 || code == 0x7F) {
      text += '\\';
      for (const int shift : {6, 3, 0}) text += static_cast<char>('0' + (code >> shift & 7));
      continue;
    }
    if (byte == '\\' || byte == '(' || byte == ')') text += '\\';
    text += byte;
  }
  return text;
}

std::string EscapeViewerText(std::string_view utf8) {
  const bool plain = std::all_of(utf8.begin(), utf8.end(), IsPrintable);
  return EscapeLiteral(plain ? std::string(utf8) : ToUtf16(utf8));
}

std::string PercentForm(std::string_view utf8) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char byte : utf8) {
    if (IsPrintable(byte) && byte != ' ') {
      text += byte;
      continue;
    }
    const auto code = static_cast<unsigned char>(byte);
    text += '%';
    text += kDigits[code >> 4];
    text += kDigits[code & 15];
  }
  return text;
}

}  // namespace quillary
