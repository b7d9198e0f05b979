#pragma once

namespace quillary::jet {

/// The signs that stand in a shape in place of literals. They are control characters, which no
/// shape holds otherwise, so that a text can't pass its own letters off as a mark.
enum class Mark : char {
  None = 0,
  Whole = 1,
  Fraction = 2,
  Text = 3,
  Date = 4,
  Null = 5,
  Currency = 6,
  YesNo = 7,
  WideText = 8,  // a text with letters beyond ASCII, which SQLite does not fold
};

constexpr bool IsMark(char c) {
  return c >= 1 && c <= 8;
}

}  // namespace quillary::jet
