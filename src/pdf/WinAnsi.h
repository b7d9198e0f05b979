#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// UTF-8 text in the bytes of WinAnsiEncoding (code page 1252), the encoding of all fonts of a
/// document. A character that it lacks becomes its nearest ASCII form ("Ł" an L, "≤" a "<=", a
/// tab or line end a blank), signs without a width vanish, and what has no such form, other control
/// characters and broken UTF-8 among them, becomes "?". The result holds no byte below 32 and
/// none of 127, 129, 141, 143, 144 and 157, which the encoding leaves open.
std::string ToWinAnsi(std::string_view utf8);

/// Whether ToWinAnsi loses nothing that can be seen: every character is in the encoding, a blank of
/// some kind, or has no width.
bool IsInWinAnsi(std::string_view utf8);

/// The characters of UTF-8 text; broken ones become U+FFFD.
std::u32string ToUtf32(std::string_view utf8);

/// UTF-8 text as big-endian UTF-16 with a byte order mark, for the texts that a viewer shows in its
/// own windows (PDF Reference 1.3, section 3.8.1). Broken UTF-8 becomes U+FFFD.
std::string ToUtf16(std::string_view utf8);

}  // namespace quillary
