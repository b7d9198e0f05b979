#pragma once

#include <QString>

/// What the program writes tells of other people's addresses, habits and debts. So files are made
/// readable and writable by their owner only, and folders too, whatever the umask of the session.
namespace quillary {

/// An empty file at `path` that only its owner may read and write, made anew: whoever has an older
/// one of that name open goes on with that one. False, with errno, when it cannot be made.
bool MakeOwnFile(const QString& path);

/// Takes a file that is there from everybody but its owner. False when that cannot be done, as on a
/// file system that knows no owners.
bool KeepToOwner(const QString& path);

/// Makes the folder, and those above it that are missing, each for its owner only. A folder that is
/// there stays as it is: somebody may share it on purpose. False when there is none afterwards.
bool MakeOwnFolder(const QString& path);

}  // namespace quillary
