#include "data/jet/RoutineTexts.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace quillary::jet {
namespace {

/// Where the comment or the literal that begins there ends.
size_t EndOfLiteral(const std::string& source, size_t at) {
  const char quote = source[at];
  for (++at; at < source.size() && source[at] != quote; ++at) {
    if (source[at] == '\\') ++at;
  }
  return at + 1;
}

/// All texts in quotes; those with nothing but blanks between them are one.
std::vector<std::string> QuotedTexts(const std::string& source) {
  std::vector<std::string> texts;
  bool goesOn = false;
  for (size_t at = 0; at < source.size();) {
    const char c = source[at];
    if (c == '/' && source[at + 1] == '/') {
      at = source.find('\n', at);
    } else if (c == '"') {
      const size_t end = EndOfLiteral(source, at);
      if (!goesOn) texts.emplace_back();
      texts.back() += source.substr(at + 1, end - at - 2);
      goesOn = true;
      at = end;
    } else if (c == '\'') {
      at = EndOfLiteral(source, at);
      goesOn = false;
    } else {
      goesOn = goesOn && std::isspace(static_cast<unsigned char>(c)) != 0;
      ++at;
    }
  }
  return texts;
}

/// A statement in capitals, with ? for each value or list of values and one blank between words.
std::string ShapeOf(const std::string& text) {
  static const std::regex values(
      R"('(?:[^']|'')*'|#[^#]*#|\{\}|%\d|\bnull\b|([^\w.]|^)-?(?:\d+\.?\d*|\.\d+)(?![\w.]))",
      std::regex::icase | std::regex::optimize);
  static const std::regex lists(R"(\( ?\?(?: ?, ?\?)+ ?\))");
  static const std::regex blanks(R"(\s+)");
  std::string shape = std::regex_replace(text, values, "$1?");
  shape = std::regex_replace(shape, blanks, " ");
  shape = std::regex_replace(shape, lists, "?");
  for (char& c : shape) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  const size_t first = shape.find_first_not_of(' ');
  const size_t last = shape.find_last_not_of(" ;");
  return first == std::string::npos || last == std::string::npos || last < first
             ? ""
             : shape.substr(first, last + 1 - first);
}

/// Of a value, a list of values or a term in parentheses at the beginning; 0 when there is none.
size_t LengthOfValue(std::string_view shape) {
  int open = 0;
  for (size_t at = 0; at < shape.size(); ++at) {
    open += shape[at] == '(' ? 1 : shape[at] == ')' ? -1 : 0;
    if (open == 0) return at > 0 || shape[at] == '?' ? at + 1 : 0;
  }
  return 0;
}

/// Whether the shape is made of these parts one behind the other, with values in between.
bool IsMadeOf(std::string_view shape, const std::vector<std::string>& parts) {
  if (!shape.empty() && shape.front() == ' ') shape.remove_prefix(1);
  if (shape.empty()) return true;
  const size_t value = LengthOfValue(shape);
  if (value > 0 && IsMadeOf(shape.substr(value), parts)) return true;
  for (const std::string& part : parts) {
    if (shape.substr(0, part.size()) == part && IsMadeOf(shape.substr(part.size()), parts)) {
      return true;
    }
  }
  return false;
}

}  // namespace

RoutineTexts::RoutineTexts() {
  namespace files = std::filesystem;
  const files::path root = files::path(QUILLARY_TEST_DATA) / ".." / ".." / "src";
  for (const auto& entry : files::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".cpp") continue;
    std::ostringstream source;
    source << std::ifstream(entry.path()).rdbuf();
    std::vector<std::string> parts;
    for (const std::string& text : QuotedTexts(source.str())) {
      const std::string shape = ShapeOf(text);
      // A single word is a name or a message's.
      if (shape.find(' ') != std::string::npos) parts.push_back(shape);
    }
    partsBySource_[entry.path().filename().string()] = parts;
  }
}

std::string RoutineTexts::SourceOf(const std::string& statement) const {
  const std::string shape = ShapeOf(statement);
  for (const auto& [source, parts] : partsBySource_) {
    if (IsMadeOf(shape, parts)) return source;
  }
  return {};
}

}  // namespace quillary::jet
