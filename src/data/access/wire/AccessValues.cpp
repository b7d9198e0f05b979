#include "data/access/wire/AccessValues.h"

#include <QStringDecoder>

#include <cmath>

namespace quillary {
namespace {

constexpr double kFirstDay = -657434;  // 1 January 100
constexpr double kLastDay = 2958465;   // 31 December 9999
constexpr qint64 kSecondsPerDay = 86400;

bool IsCompressed(QByteArrayView bytes) {
  return bytes.size() >= 2 && static_cast<uchar>(bytes[0]) == 0xff &&
         static_cast<uchar>(bytes[1]) == 0xfe;
}

/// Compressed text leaves out the zero bytes; a zero byte switches between the two forms.
std::optional<QByteArray> Decompress(QByteArrayView bytes) {
  QByteArray plain;
  plain.reserve(bytes.size() * 2);
  bool compressed = true;
  for (qsizetype at = 2; at < bytes.size(); ++at) {
    if (bytes[at] == 0) {
      compressed = !compressed;
    } else if (compressed) {
      plain += bytes[at];
      plain += '\0';
    } else {
      if (at + 1 >= bytes.size()) return std::nullopt;
      plain += bytes[at];
      plain += bytes[++at];
    }
  }
  return plain;
}

}  // namespace

std::optional<DateTime> AccessDate(double days) {
  if (!std::isfinite(days) || days < kFirstDay || days >= kLastDay + 1) return std::nullopt;
  const double whole = std::trunc(days);
  auto seconds = static_cast<qint64>(std::llround(std::fabs(days - whole) * kSecondsPerDay));
  QDate date = QDate(1899, 12, 30).addDays(static_cast<qint64>(whole));
  if (seconds == kSecondsPerDay) {
    date = date.addDays(1);
    seconds = 0;
  }
  if (date.year() > 9999) return std::nullopt;
  return DateTime(date, QTime(0, 0).addSecs(static_cast<int>(seconds)));
}

std::optional<QString> AccessText(QByteArrayView bytes) {
  std::optional<QByteArray> decompressed;
  if (IsCompressed(bytes)) {
    decompressed = Decompress(bytes);
    if (!decompressed) return std::nullopt;
    bytes = *decompressed;
  }
  if (bytes.size() % 2 != 0) return std::nullopt;
  QStringDecoder decoder(QStringDecoder::Utf16LE,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  const QString text = decoder(bytes);
  if (decoder.hasError() || !text.isValidUtf16()) return std::nullopt;
  return text;
}

}  // namespace quillary
