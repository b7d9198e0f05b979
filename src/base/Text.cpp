#include "base/Text.h"

#include <algorithm>

namespace quillary {
namespace {

// Paths of old files were written with "\", those of this system with "/"; both end up here.
qsizetype LastSeparator(const QString& path) {
  return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

}  // namespace

QString ParentFolder(const QString& path) {
  const qsizetype at = LastSeparator(path);
  return at < 0 ? QString() : path.left(at);
}

QString FileNameOfPath(const QString& path) {
  return path.mid(LastSeparator(path) + 1);
}

QString FileNameWithoutExtension(const QString& name) {
  const qsizetype at = name.lastIndexOf(u'.');
  return at < 0 ? name : name.left(at);
}

QString FileExtension(const QString& name) {
  const qsizetype at = name.lastIndexOf(u'.');
  return at < 0 ? QString() : name.mid(at + 1);
}

QString RemoveIllegalFileCharacters(const QString& text) {
  QString name = text;
  name.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  QString legal;
  legal.reserve(name.size());
  for (const QChar character : name) {
    if (character == u'\n' || character == u'\r' || character == u'?') {
      legal += u' ';
    } else if (character == u'%') {
      legal += u'-';
    } else if (!QStringView(u":/\\*|<>.").contains(character)) {
      legal += character;
    }
  }
  return legal;
}

QString Counted(size_t count, const char* one, const char* many) {
  const QString noun = count == 1 ? QString(one) : many ? QString(many) : QString(one) + u's';
  return QStringLiteral("%1 %2").arg(count).arg(noun);
}

QString Base64Encode(const QByteArray& bytes) {
  return QString::fromLatin1(bytes.toBase64());
}

QString FoldedForSearch(const QString& text) {
  const bool plain =
      std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < 0x80; });
  if (plain) return text.toLower();
  QString folded;
  folded.reserve(text.size());
  for (const QChar letter : text.normalized(QString::NormalizationForm_D))
    if (!letter.isMark()) folded += letter;
  return folded.toCaseFolded();
}

bool BeginsAWord(const QString& text, const QString& start) {
  if (start.isEmpty()) return false;
  for (qsizetype at = text.indexOf(start); at >= 0; at = text.indexOf(start, at + 1))
    if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
  return false;
}

}  // namespace quillary
