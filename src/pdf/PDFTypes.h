#pragma once

#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// The small values that PDFWriter takes and the outside world it is given.
namespace quillary {

class PDFFaces;

/// What a caller of the PDF writer has to handle: no output file, a full disk, a font metric or
/// image file that is missing or broken. The message names the file.
class PDFError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A colour as callers have it at hand: the number 0xRRGGBB, three channels of 0 to 255, or the
/// text "#RRGGBB". It is kept as given, so that a getter returns what its setter was told.
class PDFColor {
 public:
  using Channels = std::array<int, 3>;

  PDFColor(int number) : value_(number) {}
  PDFColor(int red, int green, int blue) : value_(Channels{red, green, blue}) {}
  PDFColor(std::string html) : value_(std::move(html)) {}
  PDFColor(const char* html) : value_(std::string(html)) {}

  const std::variant<int, Channels, std::string>& Value() const { return value_; }
  bool operator==(const PDFColor&) const = default;

 private:
  std::variant<int, Channels, std::string> value_;
};

/// Where a link leads: nowhere, to an address of the web or mail, or to a height on a page of the
/// same document. The page may be one that is still to come.
struct PDFTarget {
  std::string url;
  int page = 0;
  double y = 0;

  PDFTarget() = default;
  PDFTarget(std::string address) : url(std::move(address)) {}
  PDFTarget(const char* address) : url(address) {}
  PDFTarget(int pageNumber, double yOnPage) : page(pageNumber), y(yOnPage) {}

  bool IsEmpty() const { return url.empty() && page == 0; }
};

/// A corner of a polygon, in the user unit, y growing downward.
struct PDFPoint {
  double x = 0;
  double y = 0;
};

/// A page format: one of the known numbers (0 A4, 1 A3, 2 A5, 3 Letter, 4 Legal), or a width and a
/// height in the user unit.
using PDFPageFormat = std::variant<int, std::vector<double>>;

/// The world outside the writer. Everything but `now` may be left empty: messages then go nowhere
/// and no viewer is started.
struct PDFHost {
  /// Where font metric files are sought unless PDFPathConfiguration names another folder.
  std::filesystem::path applicationFolder{};
  /// The viewer of the user's choice, handed on to openFile; empty for the platform's own.
  std::string viewerPath{};
  /// A message box: its title and its text.
  std::function<void(const std::string& title, const std::string& text)> showMessage{};
  /// Shows the finished file to the user. Called once at the end of every document.
  std::function<void(const std::string& viewerPath, const std::filesystem::path& file)> openFile{};
  /// The faces for texts beyond WinAnsi in strict documents, for as long as the writer lives.
  /// Without them such texts are shown by their nearest ASCII forms.
  PDFFaces* faces = nullptr;
  /// The local time, for the creation date of the document.
  std::function<std::chrono::local_seconds()> now{};
};

}  // namespace quillary
