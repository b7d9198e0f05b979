#pragma once

#include <QtGlobal>

#include <random>

namespace quillary::setup::demo {

/// Chance that falls alike on every machine: the standard's engine is fixed to the bit, its
/// distributions are not, so none of them is used.
class Dice {
 public:
  explicit Dice(quint32 seed) : engine_(seed) {}

  /// 0 to `count` - 1.
  int Below(int count) { return static_cast<int>(engine_() % static_cast<quint32>(count)); }
  /// `from` to `to`, both inclusive.
  int Between(int from, int to) { return from + Below(to - from + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename List>
  const auto& Pick(const List& list) {
    return list[static_cast<size_t>(Below(static_cast<int>(std::size(list))))];
  }
  /// An index into `weights`, each falling as often as its weight says.
  template <typename Weights>
  int Weighted(const Weights& weights) {
    int sum = 0;
    for (const int weight : weights) sum += weight;
    int fall = Below(sum);
    int index = 0;
    for (const int weight : weights) {
      if (fall < weight) break;
      fall -= weight;
      ++index;
    }
    return index;
  }
  template <typename List>
  void Shuffle(List& list) {
    for (size_t last = list.size(); last > 1; --last) {
      std::swap(list[last - 1], list[static_cast<size_t>(Below(static_cast<int>(last)))]);
    }
  }

 private:
  std::mt19937 engine_;
};

}  // namespace quillary::setup::demo
