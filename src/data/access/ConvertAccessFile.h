#pragma once

#include "base/Money.h"
#include "data/access/AccessFile.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// Making a business file of a genuine Access file.
namespace quillary {

/// The sum of a currency column over all rows, as read and as it stands in the new file.
struct MoneyTotal {
  QString column;
  Money read;
  Money written;
};

/// What became of one table.
struct TableReceipt {
  QString table;
  qint64 declared = 0;  // rows that the Access file says it has
  qint64 read = 0;
  qint64 written = 0;
  qint64 rejected = 0;
  QStringList rejections;      // the reasons, the first hundred of them
  QStringList columnsLeftOut;  // of kinds that a business file does not hold
  std::vector<MoneyTotal> totals;

  /// In how far the new table is not the old one, a line each; empty when it is.
  QStringList Findings() const;
};

struct ConversionReceipt {
  int version = 0;  // of the schema
  std::vector<TableReceipt> tables;

  QStringList Findings() const;
  bool IsClean() const { return Findings().isEmpty(); }
};

struct ConversionOptions {
  /// Asked when the receipt is not clean, before anything is kept; without it nothing is.
  std::function<bool(const ConversionReceipt&)> accept;
  AccessLimits limits;
  QString codePage;  // of a file that NeedsCodePage(); empty for the usual one
};

/// The receipt was not clean and nobody accepted it: the new file was not made.
class ConversionRefused : public AccessFailure {
 public:
  ConversionRefused(const QString& description, ConversionReceipt receipt)
      : AccessFailure(description), receipt_(std::move(receipt)) {}
  const ConversionReceipt& Receipt() const { return receipt_; }

 private:
  ConversionReceipt receipt_;
};

/// Writes a new business file with all tables, columns and rows of the Access file, at the schema
/// version which that has; its counters go on where the old ones stood. An empty text becomes null,
/// as in every statement. The new file is made beside its place, checked against what was read, and
/// then given its name, so that there is a whole business or none. The Access file is only read.
/// Throws AccessFailure, also when the Access file is no business, and StorageFailure when the new
/// file cannot be written or exists already.
ConversionReceipt ConvertAccessFile(const QString& accessFile, const QString& businessFile,
                                    const ConversionOptions& options = {});

}  // namespace quillary
