#include "maintenance/Salvage.h"

#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/FileReplacement.h"
#include "data/store/Integrity.h"
#include "maintenance/DamagedTable.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

namespace quillary::maintenance {
namespace {

StorageFailure PastSaving(const QString& file, const QString& why) {
  return StorageFailure(StorageFault::Damaged,
                        QStringLiteral("Nothing can be saved of %1: %2. Restore the newest backup "
                                       "from the folder Archive instead")
                            .arg(file, why));
}

/// Asks the operating system whether a program holds SQLite's lock bytes, which changes nothing.
void RequireNobodyAtIt(const QString& path) {
  constexpr off_t kLockBytes = 0x40000000;
  constexpr off_t kLockBytesCount = 512;
  const int handle = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("%1 cannot be read").arg(path));
  }
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockBytes;
  lock.l_len = kLockBytesCount;
  const bool held = fcntl(handle, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  close(handle);
  if (held) {
    throw StorageFailure(
        StorageFault::InUse,
        QStringLiteral("%1 is in use by another program, perhaps a second Quillary").arg(path));
  }
}

/// A copy of the damaged file to work on, with its head mended where that is what ails it.
class WorkingCopy {
 public:
  WorkingCopy(const QString& file, const QString& beside)
      : folder_(QFileInfo(beside).absolutePath() + QStringLiteral("/.repair-XXXXXX")) {
    path_ = folder_.filePath(QStringLiteral("copy"));
    for (const char* suffix : {"", "-wal", "-journal"}) {
      const QString source = file + QLatin1String(suffix);
      if (!QFileInfo::exists(source)) continue;
      if (!QFile::copy(source, path_ + QLatin1String(suffix))) {
        throw StorageFailure(StorageFault::InputOutput,
                             QStringLiteral("%1 cannot be copied to work on it").arg(source));
      }
      QFile::setPermissions(path_ + QLatin1String(suffix), QFile::ReadOwner | QFile::WriteOwner);
    }
    MendHead();
  }
  const QString& Path() const { return path_; }

 private:
  /// The first hundred bytes tell nothing that could not be told anew: every file of ours has pages
  /// of 4096 bytes and UTF-8 texts.
  void MendHead() const {
    constexpr qsizetype kHead = 100;
    constexpr qsizetype kPage = 4096;
    QFile file(path_);
    if (!file.open(QIODevice::ReadWrite)) return;
    QByteArray head = file.read(kHead);
    const QByteArray mark("SQLite format 3\0", 16);
    const bool pageSizeFits = head.mid(16, 2) == QByteArray("\x10\x00", 2);
    if (head.size() < kHead || (head.startsWith(mark) && pageSizeFits)) return;
    QByteArray made(kHead, '\0');
    made.replace(0, mark.size(), mark);
    made.replace(16, 8, QByteArray("\x10\x00\x01\x01\x00\x40\x20\x20", 8));
    const auto pages = static_cast<quint32>(file.size() / kPage);
    for (int i = 0; i < 4; ++i) made[28 + i] = static_cast<char>(pages >> (24 - 8 * i));
    made[27] = made[95] = 1;  // the count of pages holds when both change counters agree
    made[47] = 4;             // schema format
    made[59] = 1;             // UTF-8
    file.seek(0);
    file.write(made);
  }

  QTemporaryDir folder_;
  QString path_;
};

struct TableShape {
  QString name;
  QString statement;
  QStringList columns;
  bool hasRowKey = false;  // a column that is the row number
};

class Salvage {
 public:
  Salvage(const QString& damaged, const QString& copy, const QString& target)
      : damaged_(damaged), target_(target) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(copy.toUtf8().constData(), &handle,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
    source_.reset(handle);
    if (code != SQLITE_OK) ThrowFailure(handle, code);
    sqlite3_exec(handle, "PRAGMA writable_schema = ON; PRAGMA cell_size_check = ON", nullptr,
                 nullptr, nullptr);
  }

  SalvageReceipt Run() {
    ReadSchema();
    target_.Open(OpenMode::Create);
    Execute(target_.Handle(), "BEGIN");
    for (const TableShape& table : tables_) CopyTable(table);
    CopyCounters();
    for (const QString& index : indexes_) {
      sqlite3_exec(target_.Handle(), index.toUtf8().constData(), nullptr, nullptr, nullptr);
    }
    Execute(target_.Handle(), "COMMIT");
    target_.Close();
    target_.Open(OpenMode::Existing);
    AddWhatIsMissing();
    target_.Close();
    return std::move(receipt_);
  }

 private:
  struct CloseFile {
    void operator()(sqlite3* file) const { sqlite3_close_v2(file); }
  };

  void ReadSchema() {
    try {
      Statement rows(source_.get(),
                     "SELECT type, name, sql FROM sqlite_master WHERE sql IS NOT NULL AND "
                     "name NOT LIKE 'sqlite_%'");
      while (rows.Step()) {
        const auto text = [&](int column) {
          return rows.Column(column, jet::ColumnType::Text).ToText();
        };
        if (text(0) == u"table") {
          tables_.push_back({text(1), text(2), {}, false});
        } else if (text(0) == u"index") {
          indexes_ += text(2);
        }
      }
    } catch (const std::exception& error) {
      if (tables_.empty()) throw PastSaving(damaged_, QString::fromUtf8(error.what()));
    }
    if (tables_.empty()) throw PastSaving(damaged_, QStringLiteral("it lists no tables"));
  }

  bool MakeTable(TableShape& table, SalvagedTable& entry) {
    const int code = sqlite3_exec(target_.Handle(), table.statement.toUtf8().constData(), nullptr,
                                  nullptr, nullptr);
    if (code != SQLITE_OK) {
      entry.notes += QStringLiteral("its definition is spoilt: ") +
                     QString::fromUtf8(sqlite3_errmsg(target_.Handle()));
      entry.mayHaveLostMore = true;
      return false;
    }
    Statement columns(target_.Handle(), "SELECT name, type, pk FROM pragma_table_info(?1)");
    columns.Bind(1, table.name);
    while (columns.Step()) {
      table.columns += columns.Column(0, jet::ColumnType::Text).ToText();
      table.hasRowKey = table.hasRowKey || columns.Column(2, jet::ColumnType::Long).ToLong() > 0;
    }
    return true;
  }

  static std::string InsertStatement(const TableShape& table) {
    QString names;
    QString places;
    int place = 2;
    for (const QString& column : table.columns) {
      names +=
          QStringLiteral(", \"%1\"").arg(QString(column).replace(u'"', QStringLiteral("\"\"")));
      places += QStringLiteral(", ?%1").arg(place++);
    }
    // A key column is the row number itself and must not be named twice.
    if (table.hasRowKey) {
      names = names.mid(2);
      places = places.mid(2);
    } else {
      names.prepend(QStringLiteral("rowid"));
      places.prepend(QStringLiteral("?1"));
    }
    return QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
        .arg(table.name, names, places)
        .toStdString();
  }

  void CopyTable(TableShape table) {
    SalvagedTable entry;
    entry.table = table.name;
    if (MakeTable(table, entry)) {
      sqlite3_stmt* raw = nullptr;
      const std::string insert = InsertStatement(table);
      const int code = sqlite3_prepare_v2(target_.Handle(), insert.c_str(), -1, &raw, nullptr);
      if (code != SQLITE_OK) ThrowFailure(target_.Handle(), code);
      const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, sqlite3_finalize);
      DamagedTable rows(source_.get(), table.name, table.columns);
      rows.ReadAll([&](qint64 rowId, sqlite3_stmt* row) {
        if (!table.hasRowKey) sqlite3_bind_int64(raw, 1, rowId);
        for (int i = 1; i <= static_cast<int>(table.columns.size()); ++i) {
          sqlite3_bind_value(raw, i + 1, sqlite3_column_value(row, i));
        }
        const int done = sqlite3_step(raw);
        sqlite3_reset(raw);
        if (done != SQLITE_DONE) ThrowFailure(target_.Handle(), done);
      });
      entry.saved = rows.Taken().size();
      entry.lost = rows.Lost();
      entry.mayHaveLostMore = rows.MetUnreadable() && !rows.HadIndex();
      entry.notes += rows.Reasons();
    }
    receipt_.tables.push_back(entry);
  }

  /// Numbers that were handed out stay used, also when their rows are lost.
  void CopyCounters() {
    try {
      Statement counters(source_.get(), "SELECT name, seq FROM sqlite_sequence");
      while (counters.Step()) {
        const Value name = counters.Column(0, jet::ColumnType::Text);
        const Value last = counters.Column(1, jet::ColumnType::Long);
        Statement raise(target_.Handle(),
                        "UPDATE sqlite_sequence SET seq = max(seq, ?2) WHERE name = ?1");
        raise.Bind(1, name);
        raise.Bind(2, last);
        raise.Step();
        Statement add(target_.Handle(),
                      "INSERT INTO sqlite_sequence (name, seq) SELECT ?1, ?2 WHERE NOT EXISTS "
                      "(SELECT 1 FROM sqlite_sequence WHERE name = ?1) AND EXISTS "
                      "(SELECT 1 FROM sqlite_master WHERE name = ?1)");
        add.Bind(1, name);
        add.Bind(2, last);
        add.Step();
      }
    } catch (const std::exception&) {
      // Without the list the counters go on from the highest row that was saved.
    }
  }

  void AddWhatIsMissing() {
    for (const QString& table : EnsureBusinessTables(target_)) {
      SalvagedTable* entry = nullptr;
      for (SalvagedTable& known : receipt_.tables) {
        if (known.table.compare(table, Qt::CaseInsensitive) == 0) entry = &known;
      }
      if (entry == nullptr) {
        receipt_.tables.push_back({table, 0, 0, true, {}});
        entry = &receipt_.tables.back();
      }
      entry->notes += QStringLiteral("made anew as it is delivered");
    }
    EnsureStoreIndexes(target_);
  }

  QString damaged_;
  std::unique_ptr<sqlite3, CloseFile> source_;
  Connection target_;
  std::vector<TableShape> tables_;
  QStringList indexes_;
  SalvageReceipt receipt_;
};

}  // namespace

bool SalvageReceipt::LostNothing() const {
  return std::all_of(tables.begin(), tables.end(), [](const SalvagedTable& table) {
    return table.lost == 0 && !table.mayHaveLostMore;
  });
}

SalvageReceipt SalvageFile(const QString& damaged, const QString& target) {
  if (!QFileInfo(damaged).isFile()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("%1 was not found").arg(damaged));
  }
  RequireNobodyAtIt(damaged);
  FileInTheMaking made(target);
  SalvageReceipt receipt;
  {
    const WorkingCopy copy(damaged, target);
    const QStringList damage = FindDamage(copy.Path());
    try {
      receipt = Salvage(damaged, copy.Path(), made.Path()).Run();
    } catch (const StatementRefused& refused) {
      throw PastSaving(damaged, QString::fromUtf8(refused.what()));
    } catch (const StorageFailure& failure) {
      if (failure.Fault() != StorageFault::NotADatabase) throw;
      throw PastSaving(damaged, QString::fromUtf8(failure.what()));
    }
    receipt.damage = damage;
  }
  const QStringList left = FindDamage(made.Path());
  if (!left.isEmpty()) {
    throw StorageFailure(StorageFault::Damaged,
                         QStringLiteral("What was saved of %1 did not come out whole: %2")
                             .arg(damaged, left.first()));
  }
  made.TakeItsPlace();
  return receipt;
}

RepairInPlaceResult RepairInPlace(const QString& file, const QString& archive,
                                  const QString& stamp) {
  const QFileInfo info(file);
  FileInTheMaking saved(file, FileInTheMaking::Place::Replacing);
  RepairInPlaceResult result{SalvageFile(file, saved.Path()), {}};
  result.keptAt =
      KeepIn(archive, info.canonicalFilePath(),
             QStringLiteral("%1 damaged %2.%3").arg(info.completeBaseName(), stamp, info.suffix()));
  saved.TakeItsPlace();
  return result;
}

QStringList SalvageLines(const SalvageReceipt& receipt) {
  QStringList lines;
  for (const SalvagedTable& table : receipt.tables) {
    QString line =
        QStringLiteral("%1: %2 saved, %3 lost").arg(table.table).arg(table.saved).arg(table.lost);
    if (table.mayHaveLostMore) line += QStringLiteral(", perhaps more");
    if (!table.notes.isEmpty())
      line += QStringLiteral("; ") + table.notes.join(QStringLiteral("; "));
    lines += line;
  }
  return lines;
}

}  // namespace quillary::maintenance
