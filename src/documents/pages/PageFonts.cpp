#include "documents/pages/PageFonts.h"

#include "documents/pages/PageText.h"
#include "pdf/WinAnsi.h"

#include <QDir>

#include <algorithm>

namespace quillary::documents {

namespace {

// In parts of the font size.
constexpr double kLineHeight = 1.15;
constexpr double kAscent = 0.92;
constexpr double kForeignWidth = 0.6;
constexpr double kWideWidth = 1.0;

QString FaceFile(const PageFont& font) {
  const bool oblique = font.italic;
  const bool bold = font.bold;
  const int index = PageFonts::IndexOf(font.name);
  if (index == 2) {
    return bold      ? oblique ? QStringLiteral("Times-BoldItalic") : QStringLiteral("Times-Bold")
                : oblique ? QStringLiteral("TimesItalic")
                     : QStringLiteral("Times-Roman");
  }
  static const char* const names[] = {"Helvetica", "Courier", "Times", "Symbol", "ZapfDingbats"};
  const QString style = bold ? oblique ? QStringLiteral("-BoldOblique") : QStringLiteral("-Bold")
                        : oblique ? QStringLiteral("-Oblique")
                                  : QString();
  return QString::fromLatin1(names[index]) + style;
}

bool IsPlain(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// East Asian signs and pictures are about as wide as high.
bool IsWide(char32_t code) {
  return (code >= 0x1100 && code <= 0x115F) || (code >= 0x2E80 && code <= 0xD7A3) ||
         (code >= 0xF900 && code <= 0xFAFF) || (code >= 0xFF00 && code <= 0xFF60) ||
         code >= 0x1F000;
}

}  // namespace

int PageFonts::IndexOf(const QString& fontName) {
  const QString name = fontName.trimmed().toUpper();
  if (name == u"COURIER" || name == u"COURIER NEW") return 1;
  if (name == u"TIMES" || name == u"TIMES NEW ROMAN") return 2;
  if (name == u"SYMBOL") return 3;
  if (name == u"ZAPFDINGBATS") return 4;
  return 0;
}

const AfmMetrics& PageFonts::Metrics(const PageFont& font) const {
  const QString face = FaceFile(font);
  const auto known = metrics_.find(face);
  if (known != metrics_.end()) return known->second;
  const QString file = QDir(folder_).filePath(face + QStringLiteral(".afm"));
  return metrics_.emplace(face, AfmMetrics::Load(file.toStdU16String())).first->second;
}

double PageFonts::WidthOf(QStringView text, const PageFont& font) const {
  const AfmMetrics& metrics = Metrics(font);
  const double twips = font.size * kTwipsPerPoint;
  if (IsPlain(text)) return metrics.WidthOf(text.toLatin1().toStdString()) / 1000 * twips;
  double width = 0;
  for (const char32_t code : text.toUcs4()) {
    const QString sign = QString::fromUcs4(&code, 1);
    const std::string winAnsi = ToWinAnsi(sign.toStdString());
    // What the metrics do not know is shown by a font of the machine, of which only this is sure.
    if (winAnsi == "?" && code != U'?')
      width += IsWide(code) ? kWideWidth : kForeignWidth;
    else
      width += metrics.WidthOf(winAnsi) / 1000;
  }
  return width * twips;
}

double PageFonts::LineHeight(const PageFont& font) {
  return font.size * kTwipsPerPoint * kLineHeight;
}

double PageFonts::Ascent(const PageFont& font) {
  return font.size * kTwipsPerPoint * kAscent;
}

namespace {

/// Takes the words of one line one after the other and breaks it where it is full.
class Wrapper {
 public:
  Wrapper(const PageFonts& fonts, const PageFont& font, double width)
      : fonts_(fonts), font_(font), width_(width) {}

  void Take(QStringView blanks, QStringView word) {
    const double ahead = fonts_.WidthOf(blanks, font_);
    const double wordWidth = fonts_.WidthOf(word, font_);
    if (taken_ + ahead + wordWidth <= width_) {
      Append(blanks, ahead);
      Append(word, wordWidth);
      return;
    }
    // Blanks in front of the first word indent it; after words they end with the line.
    if (word.isEmpty() && !line_.isEmpty()) return;
    if (line_.isEmpty())
      Append(blanks, ahead);
    else
      Break();
    if (taken_ + wordWidth <= width_)
      Append(word, wordWidth);
    else
      Cut(word);
  }

  QStringList Lines() {
    Break();
    return lines_;
  }

 private:
  void Append(QStringView text, double width) {
    line_ += text;
    taken_ += width;
  }
  void Break() {
    lines_.append(line_);
    line_.clear();
    taken_ = 0;
  }
  void Cut(QStringView word) {
    while (!word.isEmpty()) {
      const qsizetype length = word.size() > 1 && word[0].isHighSurrogate() ? 2 : 1;
      const QStringView sign = word.first(length);
      const double width = fonts_.WidthOf(sign, font_);
      if (!line_.isEmpty() && taken_ + width > width_) Break();
      Append(sign, width);
      word = word.sliced(length);
    }
  }

  const PageFonts& fonts_;
  const PageFont& font_;
  double width_;
  QStringList lines_;
  QString line_;
  double taken_ = 0;
};

}  // namespace

QStringList PageFonts::Wrap(const QString& text, const PageFont& font, double width) const {
  QStringList lines;
  for (const QString& line : TextLines(text)) {
    if (WidthOf(line, font) <= width) {
      lines.append(line);
      continue;
    }
    Wrapper wrapper(*this, font, width);
    QStringView rest(line);
    while (!rest.isEmpty()) {
      qsizetype blanks = 0;
      while (blanks < rest.size() && rest[blanks] == u' ') ++blanks;
      qsizetype end = blanks;
      while (end < rest.size() && rest[end] != u' ') ++end;
      wrapper.Take(rest.first(blanks), rest.sliced(blanks, end - blanks));
      rest = rest.sliced(end);
    }
    lines += wrapper.Lines();
  }
  return lines;
}

}  // namespace quillary::documents
