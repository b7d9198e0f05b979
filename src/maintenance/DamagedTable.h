#pragma once

#include "data/store/Statement.h"

#include <QSet>
#include <QString>

#include <functional>
#include <memory>

namespace quillary::maintenance {

/// Reads the rows of one table of a damaged file, by their row numbers and around the pages that
/// cannot be read.
class DamagedTable {
 public:
  /// Called for each row, with the statement standing on it: first the row number, then the
  /// columns. Throws StatementRefused for a row that the new file does not take.
  using Take = std::function<void(qint64 rowId, sqlite3_stmt* row)>;

  DamagedTable(sqlite3* file, const QString& name, const QStringList& columns);

  void ReadAll(const Take& take);

  const QSet<qint64>& Taken() const { return taken_; }
  /// Rows that an index names and nothing could read, or that the new file did not take.
  qint64 Lost() const { return lost_; }
  bool MetUnreadable() const { return metUnreadable_; }
  bool HadIndex() const { return hadIndex_; }
  const QStringList& Reasons() const { return reasons_; }

 private:
  struct Finalise {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Finalise>;
  enum class Seek { Row, End, Unreadable };

  Prepared Prepare(const QString& text) const;
  Seek SeekFrom(qint64 rowId, qint64* found);
  qint64 ReadForward(qint64 from, const Take& take, bool* reachedEnd);
  void TakeRow(sqlite3_stmt* row, const Take& take);
  void Explore(qint64 low, qint64 high, const Take& take);
  void AskIndexes(const Take& take);
  void Refused(qint64 rowId, const QString& reason);

  sqlite3* file_;
  QString name_;
  Prepared forward_;
  Prepared single_;
  QSet<qint64> taken_;
  QSet<qint64> refused_;
  qint64 lost_ = 0;
  bool metUnreadable_ = false;
  bool hadIndex_ = false;
  QStringList reasons_;
};

}  // namespace quillary::maintenance
