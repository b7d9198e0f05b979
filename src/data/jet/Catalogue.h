#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <tuple>
#include <vector>

namespace quillary::jet {

/// The column types of the dialect. Int and Long are both 32-bit whole numbers there; one name
/// serves for both.
enum class ColumnType { Counter, Long, Single, Double, Currency, Date, YesNo, Text, Memo };

struct Column {
  QString name;
  ColumnType type = ColumnType::Text;
  int width = 0;  // of Text; 0 when none was given
};

struct ColumnName {
  QString table;
  QString column;

  bool operator<(const ColumnName& other) const {
    return std::tie(table, column) < std::tie(other.table, other.column);
  }
};

struct Table {
  QString name;
  std::vector<Column> columns;

  /// Without regard to case.
  const Column* Find(QStringView column) const;
};

/// What the translator asks about the file that a statement is meant for.
class Catalogue {
 public:
  virtual ~Catalogue() = default;
  /// Without regard to case; null when there is no such table.
  virtual const Table* FindTable(QStringView name) const = 0;
  /// The names of a table's indexes, which have to go before a column that they use can.
  virtual std::vector<QString> IndexesUsing(QStringView table, QStringView column) const = 0;
  /// CREATE INDEX statements, in SQLite's words, of all indexes of a table; for rebuilding it.
  virtual std::vector<QString> IndexStatements(QStringView table) const = 0;
  /// Whether all texts of a column are ASCII just now, so that SQLite's NOCASE sorts them as the
  /// dialect does and an index may serve. False when nobody knows.
  virtual bool IsAsciiOnly(const ColumnName& /*column*/) const { return false; }
  /// The catalogue of another file, which FROM ... IN 'file' reads; null when it can't be read.
  virtual const Catalogue* Elsewhere(const QString& /*file*/) const { return nullptr; }
};

}  // namespace quillary::jet
