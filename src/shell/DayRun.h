#pragma once

#include <QString>

namespace quillary::shell {

/// The day's work without a user, for a machine without a display: the same start-up, the diary of
/// today in the main window, its first open job marked done by click, a picture of the window laid
/// into `folder`, and an invoice for the job in both its forms, or the newest one when no job was
/// open. Says in plain words what it did. Returns the exit code of the process.
int RunTheDay(const QString& commandLine, const QString& file, const QString& folder);

}  // namespace quillary::shell
