#pragma once

#include "data/Business.h"

namespace quillary::mail {

/// Writes the names and addresses of the clients, but for those who are only quoted, as a file that
/// word processors merge into letters: a line of names, then a line each, tabs between the fields.
/// How many clients it holds. Throws StorageFailure.
int WriteMailMerge(Business& business, const QString& path);

}  // namespace quillary::mail
