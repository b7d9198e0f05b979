#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace quillary {

/// The file a document is written to, from front to back. Failing to write or to close throws
/// PDFError with the file's name; the file is then closed and stays as far as it was written.
class PDFOutput {
 public:
  /// Creates the file, or empties the one that is there. False when that fails; the object is then
  /// without a file, as it was before the first Open.
  bool Open(const std::filesystem::path& file);
  bool IsOpen() const { return stream_ != nullptr; }
  void Write(std::string_view bytes);
  /// Hands all that was written to the system.
  void Close();
  /// Bytes written so far.
  std::uint64_t Position() const { return position_; }

 private:
  struct Closer {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  [[noreturn]] void Fail(int error);

  std::vector<char> buffer_;  // outlives stream_, which uses it
  std::unique_ptr<std::FILE, Closer> stream_;
  std::filesystem::path file_;
  std::uint64_t position_ = 0;
};

}  // namespace quillary
