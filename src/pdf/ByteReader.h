#pragma once

#include <string_view>

namespace quillary {

/// Reads whole numbers, high byte first, from a run of bytes that may be cut off or hostile. Every
/// step beyond the end throws PDFError.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

  int U8();
  int U16();
  std::string_view Take(std::size_t count);
  /// The byte that stands `ahead` bytes further on.
  int Peek(std::size_t ahead) const;
  /// Moves to the next such byte and returns how many others were passed.
  std::size_t SkipTo(char byte);

  bool StartsWith(std::string_view bytes) const { return rest_.starts_with(bytes); }
  std::string_view Rest() const { return rest_; }
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace quillary
