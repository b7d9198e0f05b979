#pragma once

#include <QString>

#include <functional>

namespace quillary {

class Connection;

/// How far a copy has come, in pages.
using CopyProgress = std::function<void(int done, int total)>;

/// How much of a copy is proven before it takes its place.
enum class Proof {
  Rows,     // the pages of every table are whole and hold as many rows as the source
  Indexes,  // and every index tells what its table holds, which takes many times as long
};

/// Copies the open business to `path` as it is at this moment, while it stays open. The copy is
/// made beside its place under another name, checked page by page, held against the source by the
/// rows of every table, brought to the disk and only then given its name, so that what bore the
/// name before is never replaced by less than a whole file. Throws StorageFailure and leaves
/// nothing behind.
void CopyProven(Connection& source, const QString& path, const CopyProgress& progress = {},
                Proof proof = Proof::Indexes);

}  // namespace quillary
