#pragma once

#include "data/Business.h"

#include <QString>

namespace quillary::roll {

/// Runs one step of a routine. A failure goes to the error screen under the routine's name and is
/// passed over, so that one bad row does not stop the rest; a failure of the store is thrown on,
/// because nothing that follows it could be trusted.
template <typename Step>
void PassOverErrors(Business& business, const QString& procedure, Step&& step) {
  try {
    step();
  } catch (const StorageFailure&) {
    throw;
  } catch (const std::exception& error) {
    business.World().errors.Report(QStringLiteral("Crunchers"), procedure, error);
  }
}

}  // namespace quillary::roll
