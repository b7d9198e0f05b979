#pragma once

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>

namespace quillary {

/// A number with as many decimals as asked, always with a decimal point and never in scientific
/// form, whatever the locale: 5 becomes "5.00" with two decimals and "5." with none. Halves, judged
/// on the fifteen digits that a double can be trusted for, round away from zero. What a page can't
/// hold anyway stays writable: infinite and undefined numbers become 0.
std::string FormatNumber(double value, int decimals);

/// The number of FormatNumber as one part of a line; coordinates have two decimals.
struct Decimal {
  explicit Decimal(double number, int places = 2) : value(number), decimals(places) {}
  double value;
  int decimals;
};

/// Text built line by line, each ended by CR LF: an object of the file, or the operators of a page.
class LineBuffer {
 public:
  /// One line from its parts: texts, characters, whole numbers and Decimals.
  template <typename... Parts>
  void AddLine(const Parts&... parts) {
    (Append(parts), ...);
    text_.append("\r\n", 2);
  }

  void Append(std::string_view text) { text_.append(text); }
  void Append(const LineBuffer& other) { text_.append(other.text_); }
  void Append(Decimal number);
  template <std::integral Integer>
  void Append(Integer number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text_.append(digits, end);
  }

  std::string_view Text() const { return text_; }
  std::size_t Size() const { return text_.size(); }
  bool IsEmpty() const { return text_.empty(); }
  /// Keeps the memory, so that the next page or object grows into it.
  void Clear() { text_.clear(); }

 private:
  std::string text_;
};

}  // namespace quillary
