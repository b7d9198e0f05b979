#include "documents/forms/Rtf.h"
#include "documents/pages/PageText.h"
#include "pdf/WinAnsi.h"

namespace quillary::documents {

namespace {

/// The one sign that a reader without Unicode shows for a code unit. Never a digit, which would
/// join the number of the unit before it.
QByteArray Fallback(QChar unit) {
  if (unit.isSurrogate()) return "?";
  const std::string winAnsi = ToWinAnsi(QString(unit).toStdString());
  if (winAnsi.size() != 1) return "?";
  const auto byte = static_cast<unsigned char>(winAnsi.front());
  if (byte < 0x80 && (QChar(byte).isLetter() || byte == '"' || byte == '\'' || byte == '-'))
    return QByteArray(1, static_cast<char>(byte));
  if (byte >= 0x80) return "\\'" + QByteArray::number(byte, 16);
  return "?";
}

}  // namespace

QByteArray RtfText(const QString& text) {
  QByteArray rtf;
  bool isFirst = true;
  for (const QString& line : TextLines(text)) {
    if (!isFirst) rtf += "\\line ";
    isFirst = false;
    for (const QChar sign : line) {
      const char16_t unit = sign.unicode();
      if (unit == u'\\' || unit == u'{' || unit == u'}') rtf += '\\';
      if (unit < 0x80)
        rtf += static_cast<char>(unit);
      else
        rtf += "\\u" + QByteArray::number(static_cast<qint16>(unit)) + Fallback(sign);
    }
  }
  return rtf;
}

}  // namespace quillary::documents
