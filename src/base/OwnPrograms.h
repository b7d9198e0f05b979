#pragma once

#include <QString>

/// The programs of one Quillary lie together in a folder and start one another from there.
namespace quillary {

/// Whether programs in that folder were installed for the users of a machine: in lib/quillary below
/// some prefix.
bool IsInstalled(const QString& programsFolder);

/// The path of the program `name` beside the running one. For those who work on Quillary the
/// environment variable may name another; an installed Quillary heeds no such wish, since whoever
/// can set a variable would otherwise choose what reads the owner's files.
QString OwnProgram(const QString& name, const char* variable);

}  // namespace quillary
