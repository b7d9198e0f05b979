#pragma once

#include "pdf/PDFWriter.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace quillary {

inline std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

/// What stands between two texts, from the first place that the first one is found.
inline std::string Between(const std::string& text, std::string_view from, std::string_view to) {
  const auto start = text.find(from);
  if (start == std::string::npos) return "(no " + std::string(from) + ")";
  const auto end = text.find(to, start + from.size());
  return text.substr(start + from.size(), end - start - from.size());
}

inline int CountOf(const std::string& text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

inline std::filesystem::path TestImage(const char* name) {
  return std::filesystem::path(QUILLARY_PDF_TEST_DATA) / name;
}

/// A writer whose messages and viewer calls are recorded, with a folder of its own and the clock
/// at 5 March 2026, 14:07:09.
class PDFTest : public ::testing::Test {
 protected:
  PDFTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "pdf-test-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    file = folder / "document.pdf";
  }
  ~PDFTest() override { std::filesystem::remove_all(folder); }

  void Begin(bool strict = false) {
    writer.PDFSetStrict(strict);
    writer.PDFFileName(file);
    writer.PDFBeginDoc();
  }
  std::string End() {
    writer.PDFEndDoc();
    return ReadBytes(file);
  }

  /// Runs a tool on the document and returns what it prints, errors included.
  std::string Run(const std::string& tool, const std::string& after = "") {
    const std::string command = tool + " '" + file.string() + "' " + after + " 2>&1";
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    char block[4096];
    for (std::size_t n; (n = std::fread(block, 1, sizeof block, pipe)) > 0;)
      output.append(block, n);
    const int status = ::pclose(pipe);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << command << "\n" << output;
    return output;
  }
  void ExpectStrictlyValid() {
    EXPECT_NE(Run("qpdf --check").find("No syntax or stream encoding errors found"),
              std::string::npos);
  }

  struct Message {
    std::string title;
    std::string text;
    bool operator==(const Message&) const = default;
  };
  std::filesystem::path folder;
  std::filesystem::path file;
  std::vector<Message> messages;
  std::vector<std::filesystem::path> shown;
  PDFWriter writer{PDFHost{.applicationFolder = std::filesystem::path(QUILLARY_BIN) / "Fonts",
                           .viewerPath = "/opt/viewer",
                           .showMessage =
                               [this](const auto& title, const auto& text) {
                                 messages.push_back({title, text});
                               },
                           .openFile =
                               [this](const auto& viewer, const auto& path) {
                                 EXPECT_EQ(viewer, "/opt/viewer");
                                 shown.push_back(path);
                               },
                           .now =
                               [] {
                                 using namespace std::chrono;
                                 return local_seconds(local_days(2026y / March / 5)) + 14h + 7min +
                                        9s;
                               }}};
};

inline void PrintTo(const PDFColor&, std::ostream* out) {
  *out << "colour";
}

}  // namespace quillary
