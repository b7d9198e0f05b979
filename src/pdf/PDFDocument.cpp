#include "pdf/PDFEscape.h"
#include "pdf/PDFWriter.h"
#include "pdf/WinAnsi.h"

#include <array>

namespace quillary {
namespace {

constexpr std::string_view kHeader = "%PDF-1.3";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kObjectStart = "%DEBUT_OBJ/%";
constexpr std::string_view kObjectEnd = "%FIN_OBJ/%";

std::string DateDigits(std::chrono::local_seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  const auto year = static_cast<unsigned>(static_cast<int>(date.year())) % 10000;
  std::array<char, 32> digits;
  std::snprintf(digits.data(), digits.size(), "%04u%02u%02u%02u%02u%02u", year,
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<unsigned>(clock.hours().count()),
                static_cast<unsigned>(clock.minutes().count()),
                static_cast<unsigned>(clock.seconds().count()));
  return digits.data();
}

}  // namespace

int PDFWriter::BeginObject() {
  objectBuffer_.Clear();
  objectBuffer_.AddLine(++objectNumber_, " 0 obj");
  return objectNumber_;
}

void PDFWriter::EndObject() {
  objectBuffer_.AddLine("endobj");
  WriteObject({objectBuffer_.Text()});
}

/// Puts the object's parts into the file, and the blank line that stands after every object.
/// `commentLength` counts what stands in front of the object's own first line.
void PDFWriter::WriteObject(std::initializer_list<std::string_view> parts,
                            std::size_t commentLength) {
  const std::uint64_t start = output_.Position() + commentLength;
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    output_.Write(part);
    length += part.size();
  }
  output_.Write(kLineEnd);
  RecordOffset(length, start);
}

/// The counted position leaves out the line end that WriteLine and WriteObject add, so it falls
/// behind by two with every object; only strict files take the true one.
void PDFWriter::RecordOffset(std::size_t length, std::uint64_t trueOffset) {
  offsets_.push_back(strict_ ? trueOffset : filePosition_);
  filePosition_ += length;
}

void PDFWriter::WriteLine(std::string_view text) {
  output_.Write(text);
  output_.Write(kLineEnd);
}

void PDFWriter::PDFBeginDoc() {
  if (!output_.IsOpen()) {
    throw PDFError("The PDF file '" + fileName_.string() + "' could not be created");
  }
  if (!host_.now) throw PDFError("The PDF writer was given no clock");
  pageCount_ = 1;
  pages_.resize(1);
  objectNumber_ = 0;
  offsets_.clear();
  images_.clear();
  placedImages_.clear();
  links_.clear();
  bookmarks_.clear();
  embedded_.clear();
  notShown_.clear();
  pageContent_.Clear();
  pageGraphics_.Clear();

  WriteLine(kHeader);
  filePosition_ = kHeader.size();
  WriteInfo();
  OpenPage();
}

void PDFWriter::WriteInfo() {
  const std::string now = DateDigits(host_.now());
  BeginObject();
  objectBuffer_.AddLine("<<");
  objectBuffer_.AddLine("/Producer (", InfoText(producer_), ")");
  objectBuffer_.AddLine("/Author (", InfoText(author_), ")");
  objectBuffer_.AddLine("/CreationDate (D:", now, ")");
  objectBuffer_.AddLine("/Creator (", InfoText(creator_), ")");
  objectBuffer_.AddLine("/Keywords (", InfoText(keywords_), ")");
  objectBuffer_.AddLine("/Subject (", InfoText(subject_), ")");
  objectBuffer_.AddLine("/Title (", InfoText(title_), ")");
  objectBuffer_.AddLine("/ModDate (", strict_ ? "D:" + now : "", ")");
  objectBuffer_.AddLine(">>");
  EndObject();
}

std::string PDFWriter::InfoText(const std::string& text) const {
  return strict_ ? EscapeViewerText(text) : ToWinAnsi(text);
}

/// Starts the stream object of a page, which stays in memory until ClosePage.
void PDFWriter::OpenPage() {
  x_ = leftMargin_;
  y_ = topMargin_;
  pageState_ = {};
  BeginObject();
  objectBuffer_.AddLine("<< /Length ", objectNumber_ + 1, " 0 R >>");
  objectBuffer_.AddLine("stream");
}

/// Writes the page's stream object and the object that holds its length.
void PDFWriter::ClosePage(bool isLast) {
  if (objectNumber_ == 0 || !output_.IsOpen()) throw PDFError("No PDF document has been begun");
  PrepareWatermark();
  const std::size_t length = pageGraphics_.Size() + pageContent_.Size();
  LineBuffer end;
  end.AddLine("endstream");
  end.AddLine("endobj");
  if (!isLast) end.AddLine(kObjectEnd);
  WriteObject({objectBuffer_.Text(), pageGraphics_.Text(), pageContent_.Text(), end.Text()});
  pageGraphics_.Clear();
  pageContent_.Clear();

  LineBuffer lengthObject;
  if (!isLast) lengthObject.AddLine(kObjectStart);
  const std::size_t commentLength = lengthObject.Size();
  lengthObject.AddLine(++objectNumber_, " 0 obj");
  lengthObject.AddLine(length);
  lengthObject.AddLine("endobj");
  if (!isLast) lengthObject.AddLine(kObjectEnd);
  WriteObject({lengthObject.Text()}, commentLength);
}

void PDFWriter::ExtendPages() {
  const auto next = static_cast<std::size_t>(pageCount_) + 1;
  if (pages_.size() < next) pages_.push_back(CurrentPage());
}

void PDFWriter::PDFEndPage() {
  ExtendPages();
  PrepareWatermark();
}

void PDFWriter::PDFNewPage() {
  ClosePage(false);
  ExtendPages();
  ++pageCount_;
  OpenPage();
  pageContent_.AddLine(kObjectStart);
}

void PDFWriter::PDFEndDoc() {
  ClosePage(true);
  WriteFonts();
  const int pagesObject = objectNumber_ + 1;
  firstImageObject_ = pagesObject + 2;
  firstPageObject_ = firstImageObject_ + static_cast<int>(placedImages_.size());
  WritePages();
  WriteResources();
  WriteImages();
  for (int page = 1; page <= pageCount_; ++page) WritePage(page, pagesObject);
  const int outlinesObject = bookmarks_.empty() ? 0 : PutBookmarks();
  WriteCrossReference(WriteCatalog(pagesObject, outlinesObject));
  output_.Close();
  objectNumber_ = 0;

  if (confirm_) ShowMessage("Generated PDF file - ", "PDF file generated.");
  if (host_.openFile) host_.openFile(host_.viewerPath, fileName_);
}

}  // namespace quillary
