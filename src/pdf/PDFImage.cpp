#include "pdf/PDFWriter.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace quillary {
namespace {

std::string ReadFile(const std::filesystem::path& file) {
  std::error_code error;
  std::ifstream stream;
  if (std::filesystem::is_regular_file(file, error)) stream.open(file, std::ios::binary);
  if (!stream.is_open()) {
    throw PDFError("The image file '" + file.string() + "' is missing or can't be read");
  }
  return {std::istreambuf_iterator<char>(stream), {}};
}

bool IsJpegName(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return name.ends_with("jpg") || name.ends_with("jpeg");
}

}  // namespace

/// The image of a file, from memory unless the file has changed; nothing, after a message, for a
/// file whose name is not that of a JPEG file.
PDFWriter::Image* PDFWriter::LoadImage(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  if (name.find('.') == std::string::npos) {
    ShowMessage("Image File - ", name + " does not have an extension");
    return nullptr;
  }
  if (!IsJpegName(name)) {
    ShowMessage("Image File - ", "Image format not supported.\r\nOnly JPEG images are supported.");
    return nullptr;
  }
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(file, error);
  const auto known = images_.find(file);
  if (known != images_.end() && (known->second->index != 0 || known->second->changed == changed)) {
    return known->second.get();
  }
  auto image = std::make_unique<Image>();
  image->changed = changed;
  image->bytes = ReadFile(file);
  try {
    image->header = ReadJpegHeader(image->bytes);
  } catch (const PDFError& refused) {
    throw PDFError("The image file '" + file.string() + "' can't be used: " + refused.what());
  }
  return (images_[file] = std::move(image)).get();
}

double PDFWriter::PDFImageWidth(const std::filesystem::path& file, double height) {
  const Image* image = LoadImage(file);
  if (image == nullptr) return 0;
  const double pixels = image->header.width;
  return height == 0 ? pixels / scaleFactor_ : height * pixels / image->header.height;
}

double PDFWriter::PDFImageHeight(const std::filesystem::path& file, double width) {
  const Image* image = LoadImage(file);
  if (image == nullptr) return 0;
  const double pixels = image->header.height;
  return width == 0 ? pixels / scaleFactor_ : width * pixels / image->header.width;
}

void PDFWriter::PDFImage(const std::filesystem::path& file, double x, double y, double width,
                         double height, const PDFTarget& link) {
  Image* image = LoadImage(file);
  if (image == nullptr) return;
  if (width == 0) width = PDFImageWidth(file, height);
  if (height == 0) height = PDFImageHeight(file, width);
  if (!link.IsEmpty()) PDFLink("IMAGE", x, y, width, height, link);
  if (image->index == 0) {
    placedImages_.push_back(image);
    image->index = static_cast<int>(placedImages_.size());
  }
  pageContent_.AddLine("q");
  pageContent_.AddLine(Decimal(AtX(width)), " 0 0 ", Decimal(AtX(height)), " ", Decimal(AtX(x)),
                       " ", Decimal(AtY(y + height)), " cm /ImgJPEG", image->index, " Do Q");
}

}  // namespace quillary
