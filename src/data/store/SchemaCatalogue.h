#pragma once

#include "data/jet/Catalogue.h"

#include <sqlite3.h>

#include <map>

namespace quillary {

/// The tables and columns of an open file, read from SQLite's own tables.
class SchemaCatalogue : public jet::Catalogue {
 public:
  /// Reads everything anew; after each change of the schema. Throws StorageFailure.
  void Load(sqlite3* database);

  const jet::Table* FindTable(QStringView name) const override;
  std::vector<QString> IndexesUsing(QStringView table, QStringView column) const override;
  std::vector<QString> IndexStatements(QStringView table) const override;

  bool HasIndex(QStringView name) const;

 private:
  struct Index {
    QString name;
    QString table;
    QString statement;
    std::vector<QString> columns;
  };
  std::map<QString, jet::Table> tables_;  // by name in lower case
  std::vector<Index> indexes_;
};

}  // namespace quillary
