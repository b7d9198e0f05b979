#pragma once

#include <map>
#include <string>
#include <vector>

namespace quillary::jet {

/// The statements that the routines of the system send, read from their sources: what stands there
/// in quotes, values and blanks apart.
class RoutineTexts {
 public:
  RoutineTexts();
  /// The source that has the statement, in one text or in parts; empty when none has.
  std::string SourceOf(const std::string& statement) const;

 private:
  std::map<std::string, std::vector<std::string>> partsBySource_;
};

}  // namespace quillary::jet
