#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace quillary {

class Connection;

inline constexpr int kSchemaVersion = 57;

/// The names of all tables of a business file, in the order of their making.
const QStringList& BusinessTables();

/// The tables that hold the selection of one run, emptied by the next: nobody's data.
const QStringList& WorkTables();

/// The indexes that the schema names, as statements of the dialect.
const std::vector<const char*>& NamedIndexes();

/// Writes the delivered empty business to `path`: all tables and indexes of the current version,
/// with the one-row tables filled and the seed rows in place. Throws StorageFailure, also when the
/// file exists already; a failure leaves no file behind.
void CreateEmptyBusiness(const QString& path);

/// Makes the tables that a file of the current version lacks, and fills those of one row that are
/// empty, as they are delivered; a file of an older version gets no tables, since its ladder makes
/// them. Returns the names of the tables that were touched. Throws StorageFailure.
QStringList EnsureBusinessTables(Connection& file);

/// Makes the store's own indexes, which no statement names but every roll and balance needs.
/// Indexes that exist already, and tables or columns
/// that an old file lacks, are left alone.
void EnsureStoreIndexes(Connection& file);

}  // namespace quillary
