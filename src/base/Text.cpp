#include "base/Text.h"

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

QString Base64Encode(const QByteArray& bytes) {
  return QString::fromLatin1(bytes.toBase64());
}

}  // namespace quillary
