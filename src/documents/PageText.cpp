#include "documents/PageText.h"

namespace quillary {

QStringList TextLines(const QString& text) {
  QStringList lines(QString{});
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar sign = text[i];
    if (sign == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    if (sign == u'\r' || sign == u'\n' || sign == QChar::LineSeparator ||
        sign == QChar::ParagraphSeparator)
      lines.append(QString());
    else if (sign == u'\t')
      lines.last() += u' ';
    else if (sign.category() != QChar::Other_Control)
      lines.last() += sign;
  }
  return lines;
}

}  // namespace quillary
