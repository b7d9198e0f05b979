#pragma once

#include "base/DateTime.h"
#include "data/access/ConvertAccessFile.h"

namespace quillary {

/// Writes what became of each table, with the money totals old against new, as a text beside the
/// Access file, under its name and ".receipt.txt"; where that folder cannot be written to, beside
/// the business file. `ending` is a sentence on how it ended. Returns where it lies, or nothing
/// when it could not be written at all.
QString KeepReceipt(const ConversionReceipt& receipt, const QString& accessFile,
                    const QString& businessFile, const DateTime& when, const QString& ending);

}  // namespace quillary
