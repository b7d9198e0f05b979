#pragma once

#include "base/Value.h"
#include "data/store/Sql.h"

#include <QStringList>

#include <initializer_list>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>

/// What the words of the field have in common. Each is an enumeration with one table of facts, in
/// the order of its values: TableOf(Word) gives the rows, whose `word` is what files hold and whose
/// `groups` are the sets that rules ask for.
namespace quillary {

/// The sets of one vocabulary that a word belongs to.
template <typename Group>
class Groups {
 public:
  constexpr Groups(std::initializer_list<Group> groups) {
    for (const Group group : groups) bits_ |= Bit(group);
  }
  constexpr bool Has(Group group) const { return (bits_ & Bit(group)) != 0; }

 private:
  static constexpr unsigned Bit(Group group) { return 1U << static_cast<unsigned>(group); }
  unsigned bits_ = 0;
};

template <typename Word>
concept Vocabulary = std::is_enum_v<Word> && requires(Word word) {
  TableOf(word)[0].word;
};

template <Vocabulary Word>
const auto& FactsOf(Word word) {
  return TableOf(word)[static_cast<size_t>(word)];
}

/// As files hold it.
template <Vocabulary Word>
QString TextOf(Word word) {
  return QStringView(FactsOf(word).word).toString();
}
template <Vocabulary Word>
Value ToValue(Word word) {
  return TextOf(word);
}

/// The word that a text of a file stands for, without regard to case; nothing for one that nobody
/// knows.
template <Vocabulary Word>
std::optional<Word> FromText(QStringView text) {
  const auto table = TableOf(Word());
  for (size_t at = 0; at < table.size(); ++at) {
    if (text.compare(table[at].word, Qt::CaseInsensitive) == 0) return static_cast<Word>(at);
  }
  return std::nullopt;
}

/// A word as a file holds it. Files hold texts that nobody knows, from other times and other hands:
/// they are kept as they are, and are in no group.
template <Vocabulary Word>
class Stored {
 public:
  Stored() = default;
  Stored(Word word) : text_(TextOf(word)), word_(word) {}  // NOLINT: every word can be stored
  explicit Stored(QString text) : text_(std::move(text)), word_(FromText<Word>(text_)) {}

  const QString& Text() const { return text_; }
  const std::optional<Word>& Known() const { return word_; }
  bool Is(Word word) const { return word_ == word; }
  template <typename Group>
  bool IsIn(Group group) const {
    return word_ && FactsOf(*word_).groups.Has(group);
  }

  bool operator==(const Stored& other) const { return text_ == other.text_; }

 private:
  QString text_;
  std::optional<Word> word_;
};

template <Vocabulary Word>
Value ToValue(const Stored<Word>& stored) {
  return stored.Text();
}

/// All words, in the order of the table.
template <Vocabulary Word>
QStringList AllWords() {
  QStringList words;
  for (const auto& facts : TableOf(Word())) words += QStringView(facts.word).toString();
  return words;
}
/// The words of a group, in the order of the table.
template <Vocabulary Word, typename Group>
QStringList WordsIn(Group group) {
  QStringList words;
  for (const auto& facts : TableOf(Word())) {
    if (facts.groups.Has(group)) words += QStringView(facts.word).toString();
  }
  return words;
}
/// The same as a statement lists them: "('JD', 'JU', 'JP', 'JI')".
template <Vocabulary Word, typename Group>
Sql ListOf(Group group) {
  return Sql(qUtf8Printable(
      QStringLiteral("('%1')").arg(WordsIn<Word>(group).join(QStringLiteral("', '")))));
}

/// Whether each row of a table stands at the place of its word.
template <typename Table>
constexpr bool IsInOrder(const Table& table) {
  for (size_t at = 0; at < table.size(); ++at) {
    if (static_cast<size_t>(table[at].value) != at) return false;
  }
  return true;
}

}  // namespace quillary
