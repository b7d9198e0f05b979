#include "data/store/TextOrder.h"

#include <QString>

#include <algorithm>
#include <array>
#include <utility>

namespace quillary {
namespace {

/// Letters that no accent makes: what they sort as.
constexpr std::array<std::pair<char32_t, std::u32string_view>, 11> kSortsAs{{
    {U'ß', U"ss"},
    {U'æ', U"ae"},
    {U'ð', U"d"},
    {U'ø', U"o"},
    {U'þ', U"th"},
    {U'đ', U"d"},
    {U'ħ', U"h"},
    {U'ı', U"i"},
    {U'ł', U"l"},
    {U'œ', U"oe"},
    {U'ŧ', U"t"},
}};

/// What two texts are compared by: first the plain letters, then everything.
struct SortKey {
  explicit SortKey(std::string_view utf8) {
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    for (const char32_t c : text.normalized(QString::NormalizationForm_D).toUcs4()) {
      const char32_t folded = QChar::toCaseFolded(c);
      all.push_back(folded);
      if (QChar::category(folded) == QChar::Mark_NonSpacing) continue;
      const auto* letters = std::find_if(kSortsAs.begin(), kSortsAs.end(),
                                         [&](const auto& each) { return each.first == folded; });
      if (letters == kSortsAs.end()) {
        plain.push_back(folded);
      } else {
        plain.append(letters->second);
      }
    }
  }

  std::u32string plain;
  std::u32string all;
};

int CompareBeyondAscii(std::string_view left, std::string_view right) {
  const SortKey one(left);
  const SortKey other(right);
  const int byLetters = one.plain.compare(other.plain);
  return byLetters != 0 ? byLetters : one.all.compare(other.all);
}

constexpr int Lowered(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c;
}

}  // namespace

int CompareTexts(std::string_view left, std::string_view right) {
  const size_t common = std::min(left.size(), right.size());
  for (size_t at = 0; at < common; ++at) {
    const auto one = static_cast<unsigned char>(left[at]);
    const auto other = static_cast<unsigned char>(right[at]);
    // What went before is the same on both sides, so it needs no second look.
    if ((one | other) >= 0x80) return CompareBeyondAscii(left.substr(at), right.substr(at));
    if (const int difference = Lowered(one) - Lowered(other)) return difference;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

}  // namespace quillary
