#pragma once

#include <QStringList>
#include <QTextStream>

namespace quillary::cli {

/// Runs one command of the companion, `arguments` being the command line without the program's
/// name. Results go to `out`, what went wrong to `err`, one line each. Returns the exit code: 0
/// done, 1 failed, 2 the command line makes no sense.
int RunCommandLine(const QStringList& arguments, QTextStream& out, QTextStream& err);

}  // namespace quillary::cli
