#include "data/Business.h"

#include "base/Text.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"

#include <QFile>

#include <sys/stat.h>

#include <cstdio>

namespace quillary {
namespace {

// A file that lacks one of these is somebody else's.
constexpr const char* kEssentialTables[] = {"infSystem", "infOptions", "Clients", "Diary"};

void RequireBusinessTables(const jet::Catalogue& schema) {
  QStringList missing;
  for (const char* table : kEssentialTables) {
    if (schema.FindTable(QString(table)) == nullptr) missing += QString(table);
  }
  if (missing.isEmpty()) return;
  throw StorageFailure(StorageFault::CannotOpen,
                       QStringLiteral("no business of Quillary, for it lacks the tables %1; it was "
                                      "left as it is")
                           .arg(missing.join(QStringLiteral(", "))));
}

void Trace(const RefusedStatement& refused) {
  static const bool traces = qEnvironmentVariableIntValue("QUILLARY_TRACE_SQL") == 1;
  if (!traces) return;
  std::fprintf(stderr, "refused: %s\n  reason: %s\n", qUtf8Printable(refused.statement),
               qUtf8Printable(refused.reason));
}

/// The statement as a person would write it, for those who hear of its refusal.
QString Readable(const Sql& statement) {
  QString text = QString::fromStdString(statement.Text());
  qsizetype at = 0;
  for (const Value& argument : statement.Arguments()) {
    at = text.indexOf(QStringLiteral("{}"), at);
    if (at < 0) break;
    const QString literal = SQLValue(argument);
    text.replace(at, 2, literal);
    at += literal.size();
  }
  return text;
}

QString Readable(const QString& statement) {
  return statement;
}

std::optional<FileStamp> StampOf(const QString& path) {
  struct stat facts;
  if (stat(QFile::encodeName(path).constData(), &facts) != 0) return std::nullopt;
  constexpr qint64 kNanoseconds = 1'000'000'000;
  return FileStamp{facts.st_ino, facts.st_size,
                   facts.st_mtim.tv_sec * kNanoseconds + facts.st_mtim.tv_nsec};
}

RefusedStatement Heard(const QString& statement, const StatementRefused& refused) {
  const RefusedStatement heard{statement, QString::fromUtf8(refused.what()),
                               FirstTableOf(statement)};
  Trace(heard);
  return heard;
}

}  // namespace

Business::Business(const Outside& outside, const QString& databaseFile)
    : outside_(outside),
      databaseFile_(databaseFile),
      connection_(std::make_unique<Connection>(databaseFile, [this] { return Now(); })),
      history_(std::make_unique<History>(*this)) {
  connection_->OnCommitted(
      [this](const std::vector<std::string>& tables) { TellCommitted(tables); });
}

Business::~Business() = default;

void Business::ConnectToDatabase() {
  if (connection_->IsOpen()) return;
  if (closedAs_ && closedAs_ != StampOf(databaseFile_)) history_->End();
  closedAs_.reset();
  connection_->Open(OpenMode::Existing, RequireBusinessTables);
  EnsureStoreIndexes(*connection_);
}

void Business::CloseConnection() {
  if (!connection_->IsOpen()) return;
  connection_->Close();
  closedAs_ = StampOf(databaseFile_);
}

void Business::TellCommitted(const std::vector<std::string>& tables) {
  Tables written;
  for (const std::string& table : tables) written.Add(QString::fromStdString(table));
  TellOfChange(written);
}

void Business::TellOfChange(const Tables& what) {
  try {
    commits_.Tell(what);
  } catch (const std::exception& error) {
    outside_.errors.Report(QStringLiteral("Business"), QStringLiteral("OnCommitted"), error);
  }
}

bool Business::IsConnected() const {
  return connection_->IsOpen();
}

template <typename Text>
Recordset Business::RunHeard(const Text& statement, const auto& run) {
  ConnectToDatabase();
  try {
    return run();
  } catch (const StatementRefused& refused) {
    const RefusedStatement heard = Heard(Readable(statement), refused);
    outside_.errors.NoteRefused(heard);
    if (listener_) listener_(heard);
    return Recordset(heard);
  }
}

Recordset Business::RunSQL(const QString& statement) {
  return RunHeard(statement, [&] { return connection_->Run(statement.toStdString()); });
}

Recordset Business::RunSQL(const Sql& statement) {
  return RunHeard(statement, [&] { return connection_->Run(statement); });
}

void Business::RunChecked(const Sql& statement) {
  try {
    connection_->Run(statement);
  } catch (const StatementRefused& refused) {
    throw WriteFailed(Heard(Readable(statement), refused));
  }
}

int Business::Write(const Sql& statement, Rows rows) {
  ConnectToDatabase();
  // Without a transaction around it the statement would stand by itself, whatever it hit.
  std::optional<Transaction> alone;
  if (!rows.AreAny() && connection_->TransactionDepth() == 0) alone.emplace(*this);
  RunChecked(statement);
  const qint64 hit = connection_->RowsWritten();
  if (!rows.Fit(hit)) throw WriteFailed(Readable(statement), rows, hit);
  if (alone) alone->Commit();
  return static_cast<int>(hit);
}

qint64 Business::InsertRow(const Sql& insert) {
  Write(insert, Rows::Exactly(1));
  return connection_->LastInsertedKey();
}

Value Business::LookupField(const QString& name) {
  const QString table = name.left(name.indexOf(u'.'));
  const QString field = name.mid(name.lastIndexOf(u'.') + 1);
  return RunSQL(QStringLiteral("SELECT %1 FROM %2; ").arg(field, table)).Field(size_t{0});
}

Value Business::FirstField(const Sql& statement) {
  const Recordset recordset = RunSQL(statement);
  return recordset.EndOfFile() ? Value() : recordset.Field(size_t{0});
}

void Business::OnRefusedStatement(std::function<void(const RefusedStatement&)> listener) {
  listener_ = std::move(listener);
}

QString Business::DatabaseFolder() const {
  return ParentFolder(databaseFile_);
}

void Business::CheckpointWhenIdle() {
  connection_->Checkpoint();
}

Transaction::Transaction(Business& business) : connection_(business.StoreConnection()) {
  business.ConnectToDatabase();
  connection_.Begin();
}

Transaction::~Transaction() {
  if (open_) connection_.Rollback();
}

void Transaction::Commit() {
  connection_.Commit();
  open_ = false;
}

}  // namespace quillary
