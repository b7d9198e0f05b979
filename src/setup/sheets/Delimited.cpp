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
    if (quoted_) return TakeQuoted(character);
    const bool isMark = character == u'"';
    if (isMark && closed_) return Reopen();
    closed_ = false;
    if (isMark && cell_.trimmed().isEmpty())
      Open();
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
  void Open() {
    cell_.clear();
    quoted_ = true;
  }
  void TakeQuoted(QChar character) {
    quoted_ = character != u'"';
    closed_ = !quoted_;
    if (quoted_) cell_ += character;
  }
  /// A mark right after a closing one is a doubled one: it belongs to the text.
  void Reopen() {
    cell_ += u'"';
    quoted_ = true;
    closed_ = false;
  }
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
  bool atStart = true;  // of a cell: elsewhere a quotation mark is a part of the text
  for (const QChar character : text.trimmed()) {
    if (character == u'"' && (quoted || atStart)) quoted = !quoted;
    atStart = false;
    if (quoted) continue;
    if (character == u'\n') break;
    for (size_t at = 0; at < kSeparators.size(); ++at) {
      if (character != kSeparators[at]) continue;
      ++counts[at];
      atStart = true;
    }
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
  const QString text = QString::fromUtf8(bytes);
  return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(bytes) : text;
}

}  // namespace quillary::setup
