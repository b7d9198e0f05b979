#pragma once

#include "data/Business.h"

#include <map>
#include <ostream>
#include <set>
#include <string>

namespace quillary {

/// All that a business file holds, as text: each row with its number and the literals of its
/// columns. Left out is what nobody calls data: the selections of print runs, and the numbers that
/// stay spent (counters, infSystem.Invoice_Number).
struct Contents {
  std::map<std::string, std::set<std::string>> rows;  // by table

  bool operator==(const Contents&) const = default;
  friend void PrintTo(const Contents& contents, std::ostream* stream);
};

Contents ContentsOf(Business& business);

/// A line for each row that only one of them has: "- Clients ..." of the first, "+ Clients ..." of
/// the second; empty when they are equal.
std::string Difference(const Contents& one, const Contents& other);

}  // namespace quillary
