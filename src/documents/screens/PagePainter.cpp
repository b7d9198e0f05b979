#include "documents/screens/PagePainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace quillary::documents {

namespace {

constexpr double kThinnest = 8;  // twips

/// The pages were measured with the metrics of these families or of their doubles.
QFont FontFor(const PageFont& font) {
  QString family = font.name;
  if (family.compare(QLatin1StringView("Courier"), Qt::CaseInsensitive) == 0)
    family = QStringLiteral("Courier New");
  if (family.compare(QLatin1StringView("Times"), Qt::CaseInsensitive) == 0)
    family = QStringLiteral("Times New Roman");
  QFont drawn(family);
  drawn.setPixelSize(std::max(1, qRound(font.size * kTwipsPerPoint)));
  drawn.setBold(font.bold);
  drawn.setItalic(font.italic);
  drawn.setHintingPreference(QFont::PreferNoHinting);
  drawn.setKerning(false);  // the metrics know no pairs
  return drawn;
}

void Draw(QPainter& painter, const TextRun& run) {
  const QFont font = FontFor(run.font);
  const double natural = QFontMetricsF(font).horizontalAdvance(run.text);
  painter.save();
  painter.translate(run.x, run.baseline);
  // The machine's font may run wider or narrower than the one that was measured.
  if (natural > 0 && run.width > 0) painter.scale(run.width / natural, 1);
  painter.setFont(font);
  painter.setPen(QColor(QRgb(run.font.colour)));
  painter.drawText(QPointF(0, 0), run.text);
  painter.restore();
}

void Draw(QPainter& painter, const PageLine& line) {
  painter.setPen(QPen(QColor(QRgb(line.colour)), std::max(line.width, kThinnest)));
  painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
}

}  // namespace

void PagePainter::Draw(QPainter& painter, const Page& page) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  for (const PagePicture& picture : page.pictures) {
    if (!pictures_.contains(picture.file)) pictures_[picture.file] = QImage(picture.file);
    painter.drawImage(QRectF(picture.x, picture.y, picture.width, picture.height),
                      pictures_[picture.file]);
  }
  for (const PageLine& line : page.lines) quillary::documents::Draw(painter, line);
  for (const TextRun& run : page.texts) quillary::documents::Draw(painter, run);
}

}  // namespace quillary::documents
