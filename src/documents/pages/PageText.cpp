#include "documents/pages/PageText.h"

#include <utility>

namespace quillary::documents {
namespace {

bool IsControl(QChar sign) {
  return sign < u' ' || (sign >= QChar(0x7f) && sign < QChar(0xa0));
}

}  // namespace

QStringList TextLines(const QString& text) {
  QStringList lines;
  QString line;
  line.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar sign = text[i];
    if (sign == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    if (sign == u'\r' || sign == u'\n' || sign == QChar::LineSeparator ||
        sign == QChar::ParagraphSeparator)
      lines.append(std::exchange(line, {}));
    else if (sign == u'\t')
      line += u' ';
    else if (!IsControl(sign))
      line += sign;
  }
  lines.append(std::move(line));
  return lines;
}

}  // namespace quillary::documents
