#pragma once

#include "base/Value.h"
#include "data/access/wire/AccessTable.h"

#include <glib.h>
#include <mdbtools.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quillary {

/// The file cannot be read any further, in words for the user.
class UnreadableFile : public std::runtime_error {
 public:
  explicit UnreadableFile(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// An Access file, read through libmdb. On a damaged file libmdb may crash or loop, so this belongs
/// into a process that may die. It ends with that process: nothing is freed, since freeing what
/// libmdb holds of a damaged file is one more chance to crash.
class MdbFile {
 public:
  /// Throws UnreadableFile.
  explicit MdbFile(const QString& path);
  MdbFile(const MdbFile&) = delete;
  MdbFile& operator=(const MdbFile&) = delete;

  /// The tables that a user made, in the order in which the file lists them. Throws UnreadableFile
  /// also when the file's list is longer than what could be read of it.
  std::vector<AccessTable> ReadTables();

  /// What became of one row: its cells, or why it cannot be taken.
  struct Row {
    std::vector<Value> cells;
    QString fault;
  };
  /// Starts with the rows of a table, `table` being its place in what ReadTables() gave.
  void BeginRows(size_t table);
  /// Nothing after the last row.
  std::optional<Row> NextRow();

 private:
  struct OpenTable {
    MdbTableDef* definition = nullptr;
    std::vector<MdbColumn*> columns;
  };
  struct Bytes {
    const char* data = nullptr;
    qsizetype size = 0;
  };

  void CheckCatalogue(const GPtrArray* catalogue);
  void ReadTable(MdbCatalogEntry* entry);
  std::optional<Value> ReadCell(const MdbColumn& column);
  std::optional<Value> ReadText(Bytes bytes);
  std::optional<Value> ReadMemo(Bytes header);
  /// The bytes of a memo that is kept apart from its row; nothing when its pages do not add up.
  std::optional<QByteArray> FollowMemo(qint64 length, bool onePage, int pageAndRow);

  MdbHandle* mdb_ = nullptr;
  std::vector<AccessTable> tables_;
  std::vector<OpenTable> open_;
  OpenTable* current_ = nullptr;
  qint64 rowsRead_ = 0;
  qint64 mostRows_ = 0;
};

}  // namespace quillary
