#pragma once

#include "data/Business.h"
#include "data/access/ConvertAccessFile.h"

#include <functional>

/// Moving a whole business over from the older product.
namespace quillary::older {

/// Hears which step is under way, and how many of its rows are done.
using ImportProgress = std::function<void(const QString& step, qint64 done, qint64 all)>;

/// What a billing party owes by the older product's own word and as it was computed here; below 0
/// is a debt.
struct BalanceBeside {
  QString name;
  Money older;
  Money now;
};

struct ImportReceipt {
  /// Rows and sums of each table; what was not taken over, and why.
  ConversionReceipt tables;
  QStringList troubles;  // fields that were left empty, with the reason
  std::vector<BalanceBeside> balances;
  QString archived;  // where the business lies as it was

  /// How many parties owe another amount than the older product said.
  int BalancesThatDiffer() const;
  /// The troubles and the balances that differ, a line each, for the receipt that is kept.
  QString Words() const;
};

/// Empties the open business and fills it from the older product's Access file, in one transaction:
/// on any failure the business is as it was. A backup goes into `archive` first. Balances are
/// computed anew; the stored version becomes 0, so that the next start climbs the whole ladder;
/// what was done before can no longer be taken back. The Access file is only read.
///
/// Throws AccessFailure for a file that cannot be read or is none of the older product, WriteFailed
/// and StorageFailure.
ImportReceipt ImportOlder(Business& business, const QString& olderFile, const QString& archive,
                          const ImportProgress& progress = {}, const AccessLimits& limits = {});

/// The command behind the screen: asks, saying what will be emptied; imports; keeps the receipt
/// beside the older file and tells what came of it. False when declined or when it could not be
/// done, which has been told.
bool ImportOlderAfterAsking(Business& business, Prompter& prompter, const QString& olderFile,
                            const QString& archive, const ImportProgress& progress = {});

}  // namespace quillary::older
