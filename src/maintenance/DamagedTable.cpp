#include "maintenance/DamagedTable.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <utility>

namespace quillary::maintenance {
namespace {

constexpr qint64 kLowest = std::numeric_limits<qint64>::min();
constexpr qint64 kHighest = std::numeric_limits<qint64>::max();
// How often a stretch that cannot be read is looked into for readable islands. A page holds some
// dozens of rows, so that one bad page is searched row by row.
constexpr int kMostProbes = 2000;
constexpr qsizetype kMostReasons = 5;

QString Quoted(const QString& name) {
  return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

}  // namespace

DamagedTable::DamagedTable(sqlite3* file, const QString& name, const QStringList& columns)
    : file_(file), name_(name) {
  QStringList quoted;
  for (const QString& column : columns) quoted += Quoted(column);
  const QString select = QStringLiteral("SELECT rowid, %1 FROM %2 NOT INDEXED WHERE rowid ")
                             .arg(quoted.join(QStringLiteral(", ")), Quoted(name));
  forward_ = Prepare(select + QStringLiteral(">= ?1 ORDER BY rowid"));
  single_ = Prepare(select + QStringLiteral("= ?1"));
}

DamagedTable::Prepared DamagedTable::Prepare(const QString& text) const {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(file_, text.toUtf8().constData(), -1, &statement, nullptr);
  return Prepared(statement);
}

void DamagedTable::Refused(qint64 rowId, const QString& reason) {
  if (refused_.contains(rowId)) return;
  refused_.insert(rowId);
  ++lost_;
  if (reasons_.size() < kMostReasons) {
    reasons_ += QStringLiteral("row %1: %2").arg(rowId).arg(reason);
  }
}

void DamagedTable::TakeRow(sqlite3_stmt* row, const Take& take) {
  const qint64 rowId = sqlite3_column_int64(row, 0);
  // A damaged tree may lead to the same page twice.
  if (taken_.contains(rowId) || refused_.contains(rowId)) return;
  try {
    take(rowId, row);
    taken_.insert(rowId);
  } catch (const StatementRefused& refused) {
    Refused(rowId, QString::fromUtf8(refused.what()));
  }
}

/// Reads on from a row number until the end or the first page that cannot be read; returns the
/// number behind the last row read.
qint64 DamagedTable::ReadForward(qint64 from, const Take& take, bool* reachedEnd) {
  sqlite3_reset(forward_.get());
  sqlite3_bind_int64(forward_.get(), 1, from);
  qint64 next = from;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(forward_.get())) == SQLITE_ROW) {
    const qint64 rowId = sqlite3_column_int64(forward_.get(), 0);
    if (rowId < next) break;  // a tree that runs backwards would never end
    TakeRow(forward_.get(), take);
    if (rowId == kHighest) break;
    next = rowId + 1;
  }
  sqlite3_reset(forward_.get());
  *reachedEnd = code == SQLITE_DONE;
  return next;
}

DamagedTable::Seek DamagedTable::SeekFrom(qint64 rowId, qint64* found) {
  sqlite3_reset(forward_.get());
  sqlite3_bind_int64(forward_.get(), 1, rowId);
  const int code = sqlite3_step(forward_.get());
  if (code == SQLITE_ROW) *found = sqlite3_column_int64(forward_.get(), 0);
  sqlite3_reset(forward_.get());
  if (code == SQLITE_ROW && *found >= rowId) return Seek::Row;
  return code == SQLITE_DONE ? Seek::End : Seek::Unreadable;
}

/// Halves an unreadable stretch again and again, the widest parts first: between two bad pages
/// there may be good ones.
void DamagedTable::Explore(qint64 low, qint64 high, const Take& take) {
  std::deque<std::pair<qint64, qint64>> stretches = {{low, high}};
  for (int probes = kMostProbes; probes > 0 && !stretches.empty(); --probes) {
    const auto [from, to] = stretches.front();
    stretches.pop_front();
    if (from >= to) continue;
    const qint64 middle = from + (to - from) / 2;
    stretches.emplace_back(from, middle);
    qint64 found = 0;
    qint64 next = middle + 1;
    if (SeekFrom(middle, &found) == Seek::Row) {
      if (found >= to) continue;
      bool reachedEnd = false;
      next = std::max(next, ReadForward(found, take, &reachedEnd));
    }
    stretches.emplace_back(next, to);
  }
}

void DamagedTable::ReadAll(const Take& take) {
  if (!forward_) {
    metUnreadable_ = true;
    reasons_ += QStringLiteral("its place in the file is not known any more");
    return;
  }
  qint64 from = kLowest;
  for (;;) {
    bool reachedEnd = false;
    from = ReadForward(from, take, &reachedEnd);
    if (reachedEnd) break;
    metUnreadable_ = true;
    // Doubling steps find something readable behind the bad page, whatever the numbers are.
    const qint64 start = from == kLowest ? 0 : from;
    qint64 found = 0;
    qint64 behind = start;
    Seek seek = Seek::Unreadable;
    for (int step = 0; step < 62 && seek == Seek::Unreadable; ++step) {
      if (start > kHighest - (qint64(1) << step)) break;
      behind = start + (qint64(1) << step);
      seek = SeekFrom(behind, &found);
    }
    constexpr qint64 kWidest = 1'000'000;
    Explore(start, seek == Seek::Unreadable ? start + kWidest : std::min(behind, start + kWidest),
            take);
    if (seek != Seek::Row) break;
    from = found;
  }
  if (metUnreadable_) AskIndexes(take);
}

/// An index names rows too. Those that the table itself did not give are tried one by one, and what
/// is missing then is known to be lost.
void DamagedTable::AskIndexes(const Take& take) {
  QStringList indexes;
  const Prepared list = Prepare(QStringLiteral("PRAGMA index_list(%1)").arg(Quoted(name_)));
  while (list && sqlite3_step(list.get()) == SQLITE_ROW) {
    indexes += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(list.get(), 1)));
  }
  QSet<qint64> named;
  for (const QString& index : indexes) {
    const Prepared rows = Prepare(
        QStringLiteral("SELECT rowid FROM %1 INDEXED BY %2").arg(Quoted(name_), Quoted(index)));
    if (!rows) continue;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(rows.get())) == SQLITE_ROW) {
      named.insert(sqlite3_column_int64(rows.get(), 0));
    }
    hadIndex_ = hadIndex_ || code == SQLITE_DONE;
  }
  for (const qint64 rowId : named) {
    if (taken_.contains(rowId) || refused_.contains(rowId)) continue;
    sqlite3_reset(single_.get());
    sqlite3_bind_int64(single_.get(), 1, rowId);
    if (sqlite3_step(single_.get()) == SQLITE_ROW) {
      TakeRow(single_.get(), take);
    } else {
      Refused(rowId, QStringLiteral("its page cannot be read"));
    }
    sqlite3_reset(single_.get());
  }
}

}  // namespace quillary::maintenance
