#include "setup/sheets/Delimited.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace quillary::setup {
namespace {

/// Takes the text apart character by character.
class Reader {
 public:
  explicit Reader(QChar separator) : separator_(separator) {}

  void Take(QChar character) {
    if (character == u'"' && (quoted_ || cell_.trimmed().isEmpty())) {
      // A mark after a closing one was a doubled one: it belongs to the text.
      if (!quoted_ && closed_) cell_ += character;
      else if (!quoted_) cell_.clear();
      closed_ = quoted_;
      quoted_ = !quoted_;
      return;
    }
    if (character == u'"' && closed_) {
      cell_ += character;
      quoted_ = true;
      closed_ = false;
      return;
    }
    closed_ = closed_ && character.isSpace() && character != u'\n';
    if (quoted_)
      cell_ += character;
    else if (character == separator_)
      EndCell();
    else if (character == u'\n')
      EndRow();
    else if (character != u'\r')
      cell_ += character;
  }
  std::vector<QStringList> Finish() {
    EndRow();
    return std::move(rows_);
  }

 private:
  void EndCell() {
    row_ += cell_.trimmed();
    cell_.clear();
    closed_ = false;
  }
  void EndRow() {
    EndCell();
    const bool isEmpty =
        std::ranges::all_of(row_, [](const QString& cell) { return cell.isEmpty(); });
    if (!isEmpty) rows_.push_back(row_);
    row_.clear();
  }

  QChar separator_;
  std::vector<QStringList> rows_;
  QStringList row_;
  QString cell_;
  bool quoted_ = false;
  bool closed_ = false;  // a quotation mark has just ended the quoted part
};

}  // namespace

QChar SeparatorOf(const QString& text) {
  constexpr std::array<char16_t, 3> kSeparators = {u'\t', u';', u','};
  std::array<int, 3> counts{};
  bool quoted = false;
  for (const QChar character : text) {
    if (character == u'"') quoted = !quoted;
    if (quoted) continue;
    if (character == u'\n') break;
    for (size_t at = 0; at < kSeparators.size(); ++at)
      if (character == kSeparators[at]) ++counts[at];
  }
  const auto most = std::ranges::max_element(counts) - counts.begin();
  return kSeparators[static_cast<size_t>(most)];
}

std::vector<QStringList> ParseDelimited(const QString& text, QChar separator) {
  Reader reader(separator);
  for (const QChar character : text) reader.Take(character);
  return reader.Finish();
}

QString TextOfExport(const QByteArray& bytes) {
  if (const auto encoding = QStringConverter::encodingForData(bytes)) {
    QStringDecoder decoder(*encoding);
    return decoder(bytes);
  }
  QStringDecoder utf8(QStringDecoder::Utf8);
  const QString text = utf8(bytes);
  return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

}  // namespace quillary::setup
