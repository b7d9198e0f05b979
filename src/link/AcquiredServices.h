#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "link/Wexor.h"

#include <optional>
#include <vector>

namespace quillary::link {

/// A service of head office's list, and the group of services that it belongs to.
struct OfferedService {
  QString groupId;
  QString groupName;
  QString name;
  QString code;
};
/// All that head office offers, the services of a group together. Throws LinkError.
std::vector<OfferedService> GetServices(Wexor& session);
/// One of each group: its id and its name.
std::vector<OfferedService> GroupsOf(const std::vector<OfferedService>& services);
std::vector<OfferedService> OfGroup(const std::vector<OfferedService>& services,
                                    const QString& groupId);

struct AcquireOutcome {
  std::optional<Refusal> refusal;
  bool done = false;
};
/// Asks, with the counts of old and new, and replaces the catalogue by the services of the group in
/// one transaction; the old ones stay in a proven copy in the archive. Refuses when no group is
/// chosen, for "division". Throws StorageFailure and WriteFailed; the catalogue is then as it was.
AcquireOutcome ReplaceServices(Business& business, const std::vector<OfferedService>& services,
                               const QString& groupId, const QString& archive);

}  // namespace quillary::link
