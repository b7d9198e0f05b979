#pragma once

#include "base/Ids.h"

#include <QHashFunctions>

#include <compare>
#include <functional>
#include <optional>
#include <ostream>
#include <vector>

namespace quillary {

/// The number of one row. There is no number for "none": what may be missing is a
/// std::optional<Id<...>>, and what a table stores for it is decided where it is stored.
template <NumberedRow Row>
class Id {
 public:
  constexpr explicit Id(qint64 number) : number_(number) {}
  constexpr qint64 Number() const { return number_; }
  constexpr auto operator<=>(const Id&) const = default;

  friend size_t qHash(Id id, size_t seed = 0) noexcept { return ::qHash(id.number_, seed); }
  /// How a failing test shows it.
  friend void PrintTo(Id id, std::ostream* stream) { *stream << "number " << id.number_; }

 private:
  qint64 number_;
};

/// For the columns that hold 0 for none.
template <NumberedRow Row>
qint64 NumberOrZero(std::optional<Id<Row>> id) {
  return id ? id->Number() : 0;
}

/// Numbers of rows where they come without their type, as the keys of a table on screen do.
template <NumberedRow Row>
std::optional<Id<Row>> IdFrom(std::optional<qint64> number) {
  if (!number) return std::nullopt;
  return Id<Row>(*number);
}
template <NumberedRow Row>
std::vector<Id<Row>> IdsFrom(const std::vector<qint64>& numbers) {
  std::vector<Id<Row>> ids;
  ids.reserve(numbers.size());
  for (const qint64 number : numbers) ids.emplace_back(number);
  return ids;
}

}  // namespace quillary

template <quillary::NumberedRow Row>
struct std::hash<quillary::Id<Row>> {
  size_t operator()(quillary::Id<Row> id) const noexcept { return qHash(id); }
};
