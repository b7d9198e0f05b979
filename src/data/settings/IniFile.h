#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace quillary {

/// A sectioned text file of "key=value" lines, as other programs of its kind write it: values are
/// taken as they stand, without escapes, and every line that is not set keeps its bytes. Sections
/// and keys are found without regard to case.
class IniFile {
 public:
  /// The whole text, with or without a byte order mark, any line ends. A line that is not UTF-8 is
  /// read as Windows-1252, in which older programs wrote.
  explicit IniFile(const QByteArray& text);

  std::optional<QString> Value(const QString& section, const QString& key) const;
  /// The line is written as UTF-8, which can hold every value.
  void SetValue(const QString& section, const QString& key, const QString& value);
  QByteArray Text() const;

 private:
  struct Line {
    QByteArray bytes;
    QByteArray end;
    QString text;  // what the bytes say
  };

  /// Where the section's lines begin and end; nothing when there is no such section.
  std::optional<std::pair<size_t, size_t>> FindSection(const QString& section) const;
  std::optional<size_t> FindLine(const QString& section, const QString& key) const;
  Line NewLine(const QString& text) const;
  void Insert(size_t at, const QString& text);

  std::vector<Line> lines_;
};

}  // namespace quillary
