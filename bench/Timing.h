#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace quillary::bench {

/// Seconds that `work` takes.
template <typename Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace quillary::bench
