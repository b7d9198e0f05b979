#include "pdf/PDFOutput.h"

#include "pdf/PDFTypes.h"

#include <cerrno>
#include <system_error>

namespace quillary {
namespace {

// An invoice fits whole, so a small document costs a single write.
constexpr std::size_t kBufferSize = 64 * 1024;

}  // namespace

bool PDFOutput::Open(const std::filesystem::path& file) {
  stream_.reset();
  position_ = 0;
  file_ = file;
  stream_.reset(std::fopen(file.c_str(), "wb"));
  if (!stream_) return false;
  buffer_.resize(kBufferSize);
  std::setvbuf(stream_.get(), buffer_.data(), _IOFBF, buffer_.size());
  return true;
}

void PDFOutput::Write(std::string_view bytes) {
  if (!stream_) throw PDFError("No PDF file is open for writing: '" + file_.string() + "'");
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream_.get()) != bytes.size()) Fail(errno);
  position_ += bytes.size();
}

void PDFOutput::Close() {
  if (!stream_) return;
  errno = 0;
  if (std::fclose(stream_.release()) != 0) Fail(errno);
}

void PDFOutput::Fail(int error) {
  stream_.reset();
  throw PDFError("The PDF file '" + file_.string() +
                 "' can't be written: " + std::generic_category().message(error));
}

}  // namespace quillary
