#include "pdf/ByteReader.h"

#include "pdf/PDFTypes.h"

namespace quillary {
namespace {

[[noreturn]] void RefuseEnd() {
  throw PDFError("it is cut off");
}

}  // namespace

int ByteReader::U8() {
  return static_cast<unsigned char>(Take(1).front());
}

int ByteReader::U16() {
  const int high = U8();
  return high * 256 + U8();
}

std::string_view ByteReader::Take(std::size_t count) {
  if (count > rest_.size()) RefuseEnd();
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(count);
  return taken;
}

int ByteReader::Peek(std::size_t ahead) const {
  if (ahead >= rest_.size()) RefuseEnd();
  return static_cast<unsigned char>(rest_[ahead]);
}

std::size_t ByteReader::SkipTo(char byte) {
  const std::size_t passed = rest_.find(byte);
  if (passed == std::string_view::npos) RefuseEnd();
  rest_.remove_prefix(passed);
  return passed;
}

}  // namespace quillary
