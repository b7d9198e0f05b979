#pragma once

#include <QString>

namespace quillary {

class Business;

/// Records at head office that a command was opened. Does nothing without a session or with the
/// web services switched off; a failed call never stops the command.
void LogActivity(Business& business, const QString& activity);

}  // namespace quillary
