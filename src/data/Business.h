#pragma once

#include "base/ports/Outside.h"
#include "data/Changes.h"
#include "data/History.h"
#include "data/Holidays.h"
#include "data/SharedValues.h"
#include "data/Writes.h"
#include "data/store/Recordset.h"
#include "data/store/Sql.h"
#include "data/store/StorageFailure.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace quillary {

class Connection;

/// What tells one state of a file on the disk from another.
struct FileStamp {
  quint64 node = 0;
  qint64 size = 0;
  qint64 changed = 0;  // in nanoseconds

  bool operator==(const FileStamp&) const = default;
};

/// One open business: its database file, the values loaded from it at start, and the outside world
/// that its rules may turn to. The first parameter of every rule.
class Business {
 public:
  Business(const Outside& outside, const QString& databaseFile);
  ~Business();
  Business(const Business&) = delete;
  Business& operator=(const Business&) = delete;

  /// Opens the file when it is closed. Throws StorageFailure when it is missing, damaged, foreign
  /// or in use by another program; the file stays as it was.
  void ConnectToDatabase();
  /// Gives the file back as one single file. The next statement opens it again.
  void CloseConnection();
  bool IsConnected() const;

  /// Runs one statement of the dialect, opening the file first when it is closed. A statement that
  /// is refused is not done: the recordset is not open, and the listener hears why. Throws
  /// StorageFailure, for which nothing makes up.
  Recordset RunSQL(const QString& statement);
  Recordset RunSQL(const Sql& statement);
  /// Runs one statement that writes, for rules: what is refused, or hits other rows than it must,
  /// throws WriteFailed and leaves all as it was; a Transaction around it is undone on the way out.
  /// Returns how many rows it hit: matched by an UPDATE or DELETE, or inserted. Throws
  /// StorageFailure.
  int Write(const Sql& statement, Rows rows = Rows::Any());
  /// Inserts one row into a table with a counter and returns the counter's value. Throws like
  /// Write().
  template <NumberedRow Row>
  Id<Row> InsertReturningKey(const Sql& insert) {
    return Id<Row>(InsertRow(insert));
  }
  /// The first field of the first row of a table, `name` having the form "table.field". Throws
  /// NoRecordset or NoCurrentRecord when there is none.
  Value LookupField(const QString& name);
  /// The first field of the first row; null when there is no row. Throws NoRecordset.
  Value FirstField(const Sql& statement);

  /// Hears of every statement that RunSQL() passed over because it was refused. Tests fail on one
  /// that they did not announce.
  void OnRefusedStatement(std::function<void(const RefusedStatement&)> listener);

  /// Hears after each commit which tables it wrote, one statement outside of a transaction being a
  /// commit of its own. A failure of a listener is reported; the commit stands.
  [[nodiscard]] Subscription OnCommitted(Changes::Listener listener) {
    return commits_.Listen(std::move(listener));
  }
  /// Tells those listeners of a change beside the file, such as of the outbox, by the name under
  /// which screens show it.
  void TellOfChange(const Tables& what);
  /// What was done since the start, to be taken back.
  History& PastCommands() { return *history_; }

  /// Folds what was committed into the file; for moments when the user does nothing.
  void CheckpointWhenIdle();

  const QString& DatabaseFile() const { return databaseFile_; }
  QString DatabaseFolder() const;
  Connection& StoreConnection() { return *connection_; }

  DateTime Now() const { return outside_.clock.Now(); }
  QDate Today() const { return outside_.clock.Today(); }
  const Outside& World() const { return outside_; }

  SharedValues values;
  HolidayList holidays;

 private:
  template <typename Text>
  Recordset RunHeard(const Text& statement, const auto& run);
  void RunChecked(const Sql& statement);
  void TellCommitted(const std::vector<std::string>& tables);
  qint64 InsertRow(const Sql& insert);

  Outside outside_;
  QString databaseFile_;
  std::unique_ptr<Connection> connection_;
  Changes commits_;
  std::unique_ptr<History> history_;
  std::optional<FileStamp> closedAs_;  // the file when it was last given back
  std::function<void(const RefusedStatement&)> listener_;
};

/// Long work as one piece: everything between construction and Commit() happens whole or not at
/// all. Without Commit() it is undone. One inside another is a part that can be undone by itself.
class Transaction {
 public:
  explicit Transaction(Business& business);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  /// Throws StorageFailure when the transaction no longer stands, for example after a full disk.
  void Commit();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace quillary
