#include "data/jet/Translator.h"

namespace quillary::jet {
namespace {

constexpr size_t kLongestNear = 60;

std::string Shortened(std::string near) {
  if (near.size() <= kLongestNear) return near;
  size_t end = kLongestNear;
  while (end > 0 && (static_cast<unsigned char>(near[end]) & 0xC0) == 0x80) --end;
  return near.substr(0, end) + "...";
}

std::string Described(const std::string& what, int line, int column, const std::string& near) {
  const std::string place = " (line " + std::to_string(line) + ", column " + std::to_string(column);
  if (near.empty()) return what + place + ", at the end)";
  return what + place + ", near \"" + near + "\")";
}

}  // namespace

StatementError::StatementError(const std::string& what, int line, int column, std::string near)
    : std::runtime_error(Described(what, line, column, Shortened(near))),
      line_(line),
      column_(column),
      near_(Shortened(std::move(near))) {}

}  // namespace quillary::jet
