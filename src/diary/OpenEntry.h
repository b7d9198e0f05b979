#pragma once

#include "base/ports/Navigator.h"

#include <QString>

/// The screen that a diary entry is edited on, which its status decides: visits, quotes still open,
/// or jobs.
namespace quillary::diary {

/// Whether there is such a screen; a command that would open it is off otherwise.
bool CanOpenEntry(const Navigator& navigator, const QString& status);
/// Opens it and comes back when the user has finished.
void OpenEntry(const Navigator& navigator, const QString& status, qint64 diaryId);

}  // namespace quillary::diary
