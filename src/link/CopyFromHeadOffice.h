#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "link/OstrelHeadOffice.h"

namespace quillary::link {

/// What is to be copied down, and as whom.
struct CopyChoice {
  QString userName;
  QString password;
  bool services = false;
  bool clients = false;
  bool details = false;
};
/// Refuses an empty user name and an empty password, for "userName" and "password".
std::optional<Refusal> CheckCopyChoice(const CopyChoice& choice);

/// Replaces what was chosen by what head office holds. Makes a proven copy of the business in the
/// archive, logs in for itself, fetches everything, asks with the counts of old and new, and then
/// writes in one transaction; tells how it ended. True when it was done. Jobs, invoices and
/// payments stay. Throws StorageFailure and WriteFailed; the business is then as it was.
bool CopyFromHeadOffice(Business& business, const HeadOfficeAccount& account,
                        const CopyChoice& choice, const QString& archive);

}  // namespace quillary::link
