#pragma once

#include "data/access/AccessFile.h"
#include "data/store/Connection.h"

#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <set>

/// Reading the database of the older product, which this system grew out of.
namespace quillary::older {

/// What could not be taken as it stands, for the receipt.
class Troubles {
 public:
  void Add(const QString& what);
  const QStringList& All() const { return all_; }

 private:
  QStringList all_;
};

/// One row of the older file. What is null, or what the file has no column for, reads as nothing.
class OlderRow {
 public:
  OlderRow(const char* table, const Recordset& rows, const Record& record, Troubles& troubles)
      : table_(table), rows_(rows), record_(record), troubles_(troubles) {}

  QString Text(const char* field) const;
  /// Nothing for what is no number or no date, which becomes a trouble.
  std::optional<qint64> Number(const char* field) const;
  Money Amount(const char* field) const;
  std::optional<QDate> Day(const char* field) const;
  bool Yes(const char* field) const;
  /// "tblJobs 12": the row's place in its table, for troubles.
  QString Name() const;

 private:
  const Value& Field(const char* field) const;

  const char* table_;
  const Recordset& rows_;
  const Record& record_;
  Troubles& troubles_;
};

/// The whole older file, laid into a temporary file of its own, from which its tables can be read
/// in any order and a few thousand rows at a time. The older file itself is only read.
class OlderFile {
 public:
  /// Reads it. Throws AccessFailure when it is no Access file or no database of the older product,
  /// and StorageFailure when there is no room.
  explicit OlderFile(const QString& path, const AccessLimits& limits = {});

  /// Rows of the table; 0 for one that the file lacks.
  qint64 Count(const char* table);
  /// Takes its rows in their order.
  void ForEach(const char* table, const std::function<void(const OlderRow&)>& take);
  qint64 CountWith(const char* table, const char* field, qint64 number);
  /// Its rows for which the field has that number.
  void ForEachWith(const char* table, const char* field, qint64 number,
                   const std::function<void(const OlderRow&)>& take);
  /// The sum of a currency column.
  Money Sum(const char* table, const char* column);
  Troubles& Told() { return troubles_; }

 private:
  class Stage;
  void TellMissing();
  bool Has(const char* table) const;

  QTemporaryDir folder_;
  Connection file_;
  Troubles troubles_;
};

}  // namespace quillary::older
