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

/// Bytes of ASCII in lower case, all others as they are.
constexpr std::array<unsigned char, 256> MakeFolds() {
  std::array<unsigned char, 256> folds{};
  for (size_t c = 0; c < folds.size(); ++c) {
    folds[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  }
  return folds;
}

constexpr std::array<unsigned char, 256> kFolds = MakeFolds();

bool IsBeyondAscii(std::string_view text, size_t at) {
  return at < text.size() && static_cast<unsigned char>(text[at]) >= 0x80;
}

}  // namespace

int CompareTexts(std::string_view left, std::string_view right) {
  const auto folded = [](std::string_view text, size_t at) {
    return kFolds[static_cast<unsigned char>(text[at])];
  };
  const size_t common = std::min(left.size(), right.size());
  size_t at = 0;
  while (at < common && folded(left, at) == folded(right, at)) ++at;
  if (IsBeyondAscii(left, at) || IsBeyondAscii(right, at)) {
    // From the last sign of ASCII on; what goes before it is the same and needs no second look.
    while (at > 0 && IsBeyondAscii(left, at - 1)) --at;
    return CompareBeyondAscii(left.substr(at), right.substr(at));
  }
  if (at < common) return folded(left, at) - folded(right, at);
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

}  // namespace quillary
