#pragma once

#include "base/ports/Navigator.h"

#include <QString>

namespace quillary {

/// Opens the screen that a diary entry is edited on, which its status decides: visits, quotes still
/// open, or jobs. Comes back when the user has finished.
void OpenEntry(const Navigator& navigator, const QString& status, qint64 diaryId);

}  // namespace quillary
