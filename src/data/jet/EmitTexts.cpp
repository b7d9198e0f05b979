#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

#include <algorithm>

namespace quillary::jet {
namespace {

/// Whether what is written there can be told to be ASCII from the statement alone.
bool IsPlainlyAscii(const Fragment& fragment) {
  return FamilyOf(fragment.type) != Family::Text ||
         (fragment.IsLiteral() && fragment.token.mark == Mark::Text);
}

}  // namespace

// The dialect's order is a collation of the connection alone, and the file knows nothing of it: its
// columns and indexes are NOCASE, which every tool has. The two agree on ASCII, and wherever that
// is all there is the statement asks for NOCASE, so that an index serves it. Two texts are equal in
// the one as in the other when either of them is ASCII; which comes first takes both.
std::string Emitter::Compared(const Fragment& tested, const std::vector<const Fragment*>& others,
                              bool equality, int power) {
  if (FamilyOf(tested.type) != Family::Text) return Text(tested, power);
  const auto all = [&](const auto& have) {
    return std::all_of(others.begin(), others.end(),
                       [&](const Fragment* each) { return have(*each); });
  };
  const auto isLiteral = [](const Fragment& each) { return each.IsLiteral(); };
  const auto isFolded = [](const Fragment& each) { return each.foldedCase; };
  // What UCase or LCase made is compared with a word as that is written: the words of the business
  // are told apart by it.
  if (equality &&
      ((tested.foldedCase && all(isLiteral)) || (tested.IsLiteral() && all(isFolded)))) {
    return Text(tested, power);
  }
  const auto isAscii = [&](const Fragment& each) {
    return IsPlainlyAscii(each) || IsAsciiColumn(each);
  };
  const bool ascii = equality ? all(IsPlainlyAscii) || isAscii(tested) || all(isAscii)
                              : isAscii(tested) && all(isAscii);
  return Text(tested, kPrimaryPower) + " COLLATE " + (ascii ? "NOCASE" : functions::kTextOrder);
}

std::string Emitter::Folded(const Fragment& fragment) {
  if (FamilyOf(fragment.type) != Family::Text) return Text(fragment);
  return Text(fragment, kPrimaryPower) + " COLLATE " +
         (IsAsciiColumn(fragment) ? "NOCASE" : functions::kTextOrder);
}

std::string Emitter::Ordered(const Fragment& fragment) {
  // Yes is -1 and sorts before no.
  return Folded(FamilyOf(fragment.type) == Family::YesNo ? AsNumber(fragment) : fragment);
}

// Asked of indexed columns only: the others are sorted and searched as fast without.
bool Emitter::IsAsciiColumn(const Fragment& fragment) {
  if (!fragment.table || !fragment.column) return false;
  const QString& table = fragment.table->name;
  const QString& column = fragment.column->name;
  if (reading_->IndexesUsing(table, column).empty()) return false;
  return reading_->IsAsciiOnly({table, column});
}

void Emitter::NoteWritten(const Table& table, const Column& column, const Fragment& value) {
  if (FamilyOf(column.type) != Family::Text || IsPlainlyAscii(value)) return;
  if (catalogue_.IndexesUsing(table.name, column.name).empty()) return;
  result_.notOnlyAscii.push_back({table.name, column.name});
}

}  // namespace quillary::jet
