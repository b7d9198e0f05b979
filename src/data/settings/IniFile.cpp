#include "data/settings/IniFile.h"

#include <QStringDecoder>

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

/// Windows-1252 is Latin-1 but for the places 0x80 to 0x9f; five of them stand for nothing.
QString FromWindows1252(const QByteArray& bytes) {
  constexpr char16_t kPlaces[] =
      u"\u20ac\u0081\u201a\u0192\u201e\u2026\u2020\u2021\u02c6\u2030\u0160\u2039\u0152\u008d\u017d"
      u"\u008f\u0090\u2018\u2019\u201c\u201d\u2022\u2013\u2014\u02dc\u2122\u0161\u203a\u0153\u009d"
      u"\u017e\u0178";
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code >= 0x80 && code < 0xa0) character = kPlaces[code - 0x80];
  }
  return text;
}

QString Decoded(const QByteArray& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = utf8.decode(bytes);
  return utf8.hasError() ? FromWindows1252(bytes) : text;
}

}  // namespace

IniFile::IniFile(const QByteArray& text) {
  for (qsizetype at = 0; at < text.size();) {
    qsizetype end = at;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r') ++end;
    qsizetype next = std::min(end + 1, text.size());
    if (text.mid(end, 2) == "\r\n") ++next;
    const QByteArray bytes = text.mid(at, end - at);
    lines_.push_back({bytes, text.mid(end, next - end), Decoded(bytes)});
    at = next;
  }
}

std::optional<QString> IniFile::Value(const QString& section, const QString& key) const {
  const auto line = FindLine(section, key);
  if (!line) return std::nullopt;
  const QString& found = lines_[*line].text;
  return found.mid(found.indexOf(u'=') + 1).trimmed();
}

void IniFile::SetValue(const QString& section, const QString& key, const QString& value) {
  QString oneLine = value;
  oneLine.replace(u'\n', u' ').replace(u'\r', u' ');
  const QString entry = key + u'=' + oneLine;
  if (const auto line = FindLine(section, key)) {
    lines_[*line] = NewLine(entry);
  } else if (const auto range = FindSection(section)) {
    Insert(range->second, entry);
  } else {
    Insert(lines_.size(), u'[' + section + u']');
    Insert(lines_.size(), entry);
  }
}

QByteArray IniFile::Text() const {
  QByteArray text;
  for (const Line& line : lines_) text += line.bytes + line.end;
  return text;
}

IniFile::Line IniFile::NewLine(const QString& text) const {
  const bool tellsEnd = !lines_.empty() && !lines_.front().end.isEmpty();
  return {text.toUtf8(), tellsEnd ? lines_.front().end : QByteArray("\r\n"), text};
}

void IniFile::Insert(size_t at, const QString& text) {
  const Line line = NewLine(text);
  // The last line of a file may lack its end.
  if (at > 0 && lines_[at - 1].end.isEmpty()) lines_[at - 1].end = line.end;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), line);
}

std::optional<std::pair<size_t, size_t>> IniFile::FindSection(const QString& section) const {
  for (size_t at = 0; at < lines_.size(); ++at) {
    const QString trimmed = lines_[at].text.trimmed();
    if (!IsSection(trimmed) || !Same(trimmed.mid(1, trimmed.size() - 2).trimmed(), section)) {
      continue;
    }
    size_t end = at + 1;
    while (end < lines_.size() && !IsSection(lines_[end].text)) ++end;
    while (end > at + 1 && lines_[end - 1].text.trimmed().isEmpty()) --end;
    return std::pair{at + 1, end};
  }
  return std::nullopt;
}

std::optional<size_t> IniFile::FindLine(const QString& section, const QString& key) const {
  const auto range = FindSection(section);
  if (!range) return std::nullopt;
  for (size_t at = range->first; at < range->second; ++at) {
    if (lines_[at].text.contains(u'=') && Same(KeyOf(lines_[at].text), key)) return at;
  }
  return std::nullopt;
}

}  // namespace quillary
