#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Rescuing what can still be read of a damaged business file.
namespace quillary::maintenance {

struct SalvagedTable {
  QString table;
  qint64 saved = 0;
  qint64 lost = 0;  // rows known of, from an index or a place in the file, that could not be read
  /// Nothing tells how many rows stood in what could not be read.
  bool mayHaveLostMore = false;
  QStringList notes;  // what was done to the table, and why rows could not be kept
};

struct SalvageReceipt {
  std::vector<SalvagedTable> tables;
  QStringList damage;  // what the check of the old file found
  bool LostNothing() const;
};

/// Writes a new business file with every row of `damaged` that can be read, walking around pages
/// that cannot; tables that are missing are made anew and empty, and one-row tables get their
/// delivered row. Only a copy of the damaged file is worked on, together with the log that may lie
/// beside it. The new file is checked before it takes its name. Throws StorageFailure when the old
/// file is missing, in use or past saving, and when the new one cannot be written or exists.
SalvageReceipt SalvageFile(const QString& damaged, const QString& target);

/// Repairs a file where it stands: the damaged one goes, byte for byte, into the folder `archive`,
/// and then what could be saved takes its name in one step. `stamp` tells the one from others
/// there.
struct RepairInPlaceResult {
  SalvageReceipt receipt;
  QString keptAt;  // the damaged file's new place
};
RepairInPlaceResult RepairInPlace(const QString& file, const QString& archive,
                                  const QString& stamp);

/// The receipt in words, a line a table.
QStringList SalvageLines(const SalvageReceipt& receipt);

}  // namespace quillary::maintenance
