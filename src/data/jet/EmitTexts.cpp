#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

#include <algorithm>

namespace quillary::jet {
namespace {

bool IsAsciiLiteral(const Fragment& fragment) {
  return fragment.IsLiteral() && fragment.token.mark == Mark::Text;
}

}  // namespace

// The dialect's order is a collation of the connection alone, and the file knows nothing of it: its
// columns and indexes are NOCASE, which every tool has. The two agree where a text of ASCII is
// looked for, and there the statement asks for NOCASE, so that an index serves it.
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
  const bool ascii = equality && (IsAsciiLiteral(tested) || all(IsAsciiLiteral));
  if (!ascii) return Folded(tested);
  return Text(tested, kPrimaryPower) + " COLLATE NOCASE";
}

std::string Emitter::Folded(const Fragment& fragment) {
  if (FamilyOf(fragment.type) != Family::Text) return Text(fragment);
  return Text(fragment, kPrimaryPower) + " COLLATE " + functions::kTextOrder;
}

std::string Emitter::Ordered(const Fragment& fragment) {
  // Yes is -1 and sorts before no.
  return Folded(FamilyOf(fragment.type) == Family::YesNo ? AsNumber(fragment) : fragment);
}

}  // namespace quillary::jet
