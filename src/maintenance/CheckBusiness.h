#pragma once

#include "data/Business.h"

#include <QString>

#include <vector>

/// Whether a business file is whole and its tables agree with one another.
namespace quillary::maintenance {

/// One thing that is not as it should be.
struct Finding {
  QString table;
  QString what;
  /// Expected in a healthy business, such as what a deleted employee leaves behind; told, but no
  /// reason to call the file wrong.
  bool isNote = false;
};

/// Looks for lines without their head, references that point nowhere, and totals that differ from
/// what they are the total of; a finding for each kind, with its number of rows and the first few
/// keys. Tables and columns that an older version lacks are passed over. Writes nothing that stays.
/// Throws StorageFailure.
std::vector<Finding> CheckTables(Business& business);

/// The same after the pages of the file have been checked. A file with damaged pages gives only
/// that, since what its tables say cannot be trusted, and keeps every byte.
std::vector<Finding> CheckBusiness(const Outside& outside, const QString& file);

/// Whether one of them is more than a note.
bool IsWrong(const std::vector<Finding>& findings);

}  // namespace quillary::maintenance
