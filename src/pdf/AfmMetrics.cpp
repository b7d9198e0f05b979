#include "pdf/AfmMetrics.h"

#include "pdf/PDFTypes.h"

#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace quillary {
namespace {

constexpr double kWidestCharacter = 10000;
constexpr std::uintmax_t kLargestFile = 16 * 1024 * 1024;

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the text up to the separator from the front of `rest`.
std::string_view TakeUpTo(std::string_view& rest, char separator) {
  const auto end = rest.find(separator);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return part;
}

/// The number of a field such as "WX 278" when the field has that key and nothing else.
template <typename Number>
std::optional<Number> NumberAfter(std::string_view field, std::string_view key) {
  field = Trim(field);
  if (!field.starts_with(key)) return std::nullopt;
  field.remove_prefix(key.size());
  if (field.empty() || (field.front() != ' ' && field.front() != '\t')) return std::nullopt;
  field = Trim(field);
  Number number{};
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  if (error != std::errc{} || end != field.data() + field.size()) return std::nullopt;
  return number;
}

[[noreturn]] void RefuseLine(int line, const std::string& why) {
  throw PDFError("line " + std::to_string(line) + ": " + why);
}

}  // namespace

AfmMetrics AfmMetrics::Parse(std::string_view text) {
  AfmMetrics metrics;
  bool inTable = false;
  bool anyWidth = false;
  int lineNumber = 0;
  while (!text.empty()) {
    const std::string_view line = Trim(TakeUpTo(text, '\n'));
    ++lineNumber;
    if (line.empty()) continue;
    if (!inTable) {
      inTable = line.starts_with("StartCharMetrics");
      continue;
    }
    if (line.starts_with("EndCharMetrics") || line.find("-1 ;") != std::string_view::npos) {
      if (!anyWidth) RefuseLine(lineNumber, "the table of characters is empty");
      return metrics;
    }
    std::string_view rest = line;
    const auto code = NumberAfter<int>(TakeUpTo(rest, ';'), "C");
    const auto width = NumberAfter<double>(TakeUpTo(rest, ';'), "WX");
    if (!code || *code < 0 || *code > 255) RefuseLine(lineNumber, "no character code of 0 to 255");
    // Written so that an undefined number is refused too.
    if (!width || !(*width >= 0 && *width <= kWidestCharacter)) {
      RefuseLine(lineNumber, "no width of a character");
    }
    metrics.widths_[static_cast<std::size_t>(*code)] = *width;
    anyWidth = true;
  }
  RefuseLine(lineNumber, inTable ? "the table of characters is cut off" : "no StartCharMetrics");
}

AfmMetrics AfmMetrics::Load(const std::filesystem::path& file) {
  std::error_code error;
  const bool readable = std::filesystem::is_regular_file(file, error) &&
                        std::filesystem::file_size(file, error) <= kLargestFile;
  std::ifstream stream;
  if (readable) stream.open(file, std::ios::binary);
  if (!stream.is_open()) {
    throw PDFError("The font metric file '" + file.string() + "' is missing or can't be read");
  }
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  try {
    return Parse(text);
  } catch (const PDFError& refused) {
    throw PDFError("The font metric file '" + file.string() + "' is broken, " + refused.what());
  }
}

double AfmMetrics::WidthOf(std::string_view winAnsi) const {
  double sum = 0;
  for (const char character : winAnsi) sum += widths_[static_cast<unsigned char>(character)];
  return sum;
}

}  // namespace quillary
