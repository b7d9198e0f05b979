#pragma once

#include <string_view>

namespace quillary {

/// The code in WinAnsiEncoding, or 0 when the encoding lacks the character.
unsigned char WinAnsiCode(char32_t character);

/// The letter `base` (a WinAnsi code) with the accent that the combining mark adds, or 0.
unsigned char WithAccent(unsigned char base, char32_t mark);

/// The nearest ASCII form of a character that WinAnsiEncoding lacks, possibly empty; "?" when there
/// is none.
std::string_view NearestAscii(char32_t character);

}  // namespace quillary
