#include "documents/pages/PageFonts.h"

#include "documents/pages/PageText.h"
#include "pdf/WinAnsi.h"
#include "pdf/faces/ShapedFaces.h"

#include <QDir>

#include <algorithm>
#include <functional>

namespace quillary::documents {

namespace {

// In parts of the font size.
constexpr double kLineHeight = 1.15;
constexpr double kAscent = 0.92;

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

}  // namespace

PageFonts::PageFonts(QString folder)
    : folder_(std::move(folder)),
      faces_(std::make_unique<ShapedFaces>(std::filesystem::path(folder_.toStdU16String()))) {}

PageFonts::~PageFonts() = default;

PDFFaces& PageFonts::Faces() const {
  return *faces_;
}

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

double PageFonts::EmbeddedWidthOf(QStringView text, const PageFont& font) const {
  const std::string utf8 = text.toUtf8().toStdString();
  return faces_->Shape(utf8, font.bold, font.italic).width / 1000 * font.size * kTwipsPerPoint;
}

double PageFonts::WidthOf(QStringView text, const PageFont& font) const {
  const double twips = font.size * kTwipsPerPoint;
  if (IsPlain(text)) return Metrics(font).WidthOf(text.toLatin1().toStdString()) / 1000 * twips;
  const std::string utf8 = text.toUtf8().toStdString();
  if (!IsInWinAnsi(utf8)) return EmbeddedWidthOf(text, font);
  return Metrics(font).WidthOf(ToWinAnsi(utf8)) / 1000 * twips;
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
  /// `measure` tells how wide a part of the line is.
  Wrapper(std::function<double(QStringView)> measure, double width)
      : measure_(std::move(measure)), width_(width) {}

  void Take(QStringView blanks, QStringView word) {
    const double ahead = measure_(blanks);
    const double wordWidth = measure_(word);
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
      const double width = measure_(sign);
      if (!line_.isEmpty() && taken_ + width > width_) Break();
      Append(sign, width);
      word = word.sliced(length);
    }
  }

  std::function<double(QStringView)> measure_;
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
    // A word alone may be narrower than within a line that is set in an embedded face, and so may
    // the line that it ends on.
    const bool isEmbedded = !IsInWinAnsi(line.toStdString());
    Wrapper wrapper(
        [&](QStringView part) {
          const double own = WidthOf(part, font);
          return isEmbedded ? std::max(own, EmbeddedWidthOf(part, font)) : own;
        },
        width);
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
