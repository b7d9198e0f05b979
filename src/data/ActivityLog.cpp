#include "data/ActivityLog.h"

#include "data/Business.h"

namespace quillary {

void LogActivity(Business& business, const QString& activity) {
  HeadOffice& headOffice = business.World().headOffice;
  if (!business.values.enableOstrel4WebServices || !headOffice.Online()) return;
  try {
    headOffice.LogQuillaryActivity(activity);
  } catch (const std::exception&) {
    // The user's command goes on, whatever head office says.
  }
}

}  // namespace quillary
