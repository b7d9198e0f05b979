#include "pdf/LineBuffer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace quillary {
namespace {

constexpr std::array<std::uint64_t, 7> kPowersOfTen{1, 10, 100, 1000, 10000, 100000, 1000000};
constexpr double kLargest = 1e12;

/// Writes backwards from `end` and returns the first character.
char* WriteDecimal(char* end, double value, int decimals) {
  if (!std::isfinite(value)) value = 0;
  decimals = std::clamp(decimals, 0, static_cast<int>(kPowersOfTen.size()) - 1);
  const double size = std::min(std::fabs(value), kLargest) *
                      static_cast<double>(kPowersOfTen[static_cast<std::size_t>(decimals)]);
  // The tiny share lifts 2.675, whose double lies just below, over the half that a person sees.
  std::uint64_t digits = static_cast<std::uint64_t>(size + 0.5 + size * 1e-15);
  const bool negative = value < 0 && digits != 0;

  char* at = end;
  for (int i = 0; i < decimals; ++i, digits /= 10) *--at = static_cast<char>('0' + digits % 10);
  *--at = '.';
  do {
    *--at = static_cast<char>('0' + digits % 10);
    digits /= 10;
  } while (digits != 0);
  if (negative) *--at = '-';
  return at;
}

}  // namespace

std::string FormatNumber(double value, int decimals) {
  std::array<char, 32> room;
  char* const end = room.data() + room.size();
  return std::string(WriteDecimal(end, value, decimals), end);
}

void LineBuffer::Append(Decimal number) {
  std::array<char, 32> room;
  char* const end = room.data() + room.size();
  text_.append(WriteDecimal(end, number.value, number.decimals), end);
}

}  // namespace quillary
