#pragma once

#include <QString>

namespace quillary::session {

/// The folder that holds the installation's files: qy.ini, DATA.MDB, Archive, Log.txt. It is the
/// folder of the running program when a qy.ini lies there (a portable installation); otherwise
/// $QUILLARY_HOME, or the quillary folder below the platform's data folder. Made when missing.
QString ProgramFolder();

/// The folder of backups, and of files as they were before they were converted, upgraded or
/// repaired; of all businesses, wherever their files lie.
QString ArchiveUnder(const QString& programFolder);

/// The folder of the running program, where the programs that belong to it lie.
QString ToolsFolder();

}  // namespace quillary::session
