#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quillary {

/// A sectioned text file of "key=value" lines, as other programs of its kind write it: values are
/// taken as they stand, without escapes, and lines that are not understood stay where they are.
/// Sections and keys are found without regard to case.
class IniFile {
 public:
  /// The whole text; UTF-8, with or without a byte order mark, any line ends.
  explicit IniFile(const QByteArray& text);

  std::optional<QString> Value(const QString& section, const QString& key) const;
  void SetValue(const QString& section, const QString& key, const QString& value);
  QByteArray Text() const;

 private:
  /// Where the section's lines begin and end; nothing when there is no such section.
  std::optional<std::pair<qsizetype, qsizetype>> FindSection(const QString& section) const;
  std::optional<qsizetype> FindLine(const QString& section, const QString& key) const;

  QStringList lines_;
};

}  // namespace quillary
