#include "data/IniFile.h"

#include <QRegularExpression>

namespace quillary {
namespace {

bool Same(const QString& one, const QString& other) {
  return one.compare(other, Qt::CaseInsensitive) == 0;
}

QString KeyOf(const QString& line) {
  return line.left(line.indexOf(u'=')).trimmed();
}

bool IsSection(const QString& line) {
  const QString trimmed = line.trimmed();
  return trimmed.startsWith(u'[') && trimmed.endsWith(u']');
}

}  // namespace

IniFile::IniFile(const QByteArray& text) {
  QString decoded = QString::fromUtf8(text);
  if (decoded.startsWith(QChar(QChar::ByteOrderMark))) decoded.remove(0, 1);
  static const QRegularExpression lineEnd(QStringLiteral("\r\n|\n|\r"));
  lines_ = decoded.split(lineEnd);
  while (!lines_.isEmpty() && lines_.last().isEmpty()) lines_.removeLast();
}

std::optional<QString> IniFile::Value(const QString& section, const QString& key) const {
  const auto line = FindLine(section, key);
  if (!line) return std::nullopt;
  const QString& found = lines_[*line];
  return found.mid(found.indexOf(u'=') + 1).trimmed();
}

void IniFile::SetValue(const QString& section, const QString& key, const QString& value) {
  QString oneLine = value;
  oneLine.replace(u'\n', u' ').replace(u'\r', u' ');
  const QString entry = key + u'=' + oneLine;
  if (const auto line = FindLine(section, key)) {
    lines_[*line] = entry;
  } else if (const auto range = FindSection(section)) {
    lines_.insert(range->second, entry);
  } else {
    lines_ << u'[' + section + u']' << entry;
  }
}

QByteArray IniFile::Text() const {
  return (lines_.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}

std::optional<std::pair<qsizetype, qsizetype>> IniFile::FindSection(const QString& section) const {
  for (qsizetype at = 0; at < lines_.size(); ++at) {
    const QString trimmed = lines_[at].trimmed();
    if (!IsSection(trimmed) || !Same(trimmed.mid(1, trimmed.size() - 2).trimmed(), section)) {
      continue;
    }
    qsizetype end = at + 1;
    while (end < lines_.size() && !IsSection(lines_[end])) ++end;
    while (end > at + 1 && lines_[end - 1].trimmed().isEmpty()) --end;
    return std::pair{at + 1, end};
  }
  return std::nullopt;
}

std::optional<qsizetype> IniFile::FindLine(const QString& section, const QString& key) const {
  const auto range = FindSection(section);
  if (!range) return std::nullopt;
  for (qsizetype at = range->first; at < range->second; ++at) {
    if (lines_[at].contains(u'=') && Same(KeyOf(lines_[at]), key)) return at;
  }
  return std::nullopt;
}

}  // namespace quillary
