#include "mail/Outbox.h"

#include "base/OwnFiles.h"
#include "base/Text.h"
#include "data/store/FileInTheMaking.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace quillary::mail {
namespace {

struct StateFacts {
  State state;
  const char* code;
  const char* word;
  Hue hue;
};
constexpr StateFacts kStates[] = {{State::Waiting, "waiting", "Waiting", Hue::Neutral},
                                  {State::Sending, "sending", "Sending", Hue::PaleBlue},
                                  {State::Sent, "sent", "Sent", Hue::Green},
                                  {State::Failed, "failed", "Failed", Hue::Red},
                                  {State::InDoubt, "in doubt", "In doubt", Hue::Yellow}};

const StateFacts& FactsOf(State state) {
  for (const StateFacts& facts : kStates)
    if (facts.state == state) return facts;
  return kStates[0];
}

State StateFromCode(const QString& code) {
  for (const StateFacts& facts : kStates)
    if (code == QLatin1StringView(facts.code)) return facts.state;
  return State::InDoubt;
}

constexpr std::pair<Contents, const char*> kContents[] = {{Contents::Text, "text"},
                                                          {Contents::File, "file"},
                                                          {Contents::Invoice, "invoice"},
                                                          {Contents::Statement, "statement"},
                                                          {Contents::Reminder, "reminder"}};

constexpr char kMakeTable[] =
    "CREATE TABLE Mails ([Mail_ID] COUNTER, [State] TEXT(10), [Route] TEXT(12), "
    "[Contents] TEXT(12), [Client_ID] LONG, [Invoices] MEMO, [To_Address] TEXT(254), "
    "[To_Name] TEXT(255), [Subject] MEMO, [Message] MEMO, [Document] MEMO, [Source] MEMO, "
    "[Message_ID] TEXT(80), [Queued] DATE, [Ended] DATE, [Attempts] LONG, [Reason] MEMO)";

constexpr char kEndedMeanwhile[] =
    "The program ended while it was sending this mail, so it may have arrived.";

QString FileIn(const QString& folder) {
  return QDir(folder).filePath(QStringLiteral("outbox.db"));
}

/// Beside its place, and whole before it takes it: who dies here leaves no piece of an outbox,
/// which nobody could open any more.
void MakeFile(const QString& path) {
  FileInTheMaking made(path);
  Connection file(made.Path());
  file.Open(OpenMode::Create);
  file.Run(std::string_view(kMakeTable));
  file.Close();
  made.TakeItsPlace();
}

QString ListOf(const std::vector<Id<Invoice>>& invoices) {
  QString list = QStringLiteral(",");
  for (const Id<Invoice> invoice : invoices) list += QString::number(invoice.Number()) + u',';
  return list;
}

}  // namespace

QString CodeOf(State state) {
  return QString::fromLatin1(FactsOf(state).code);
}

QString WordOf(State state) {
  return QString::fromLatin1(FactsOf(state).word);
}

Hue HueOf(State state) {
  return FactsOf(state).hue;
}

QString CodeOf(Contents contents) {
  for (const auto& [one, code] : kContents)
    if (one == contents) return QString::fromLatin1(code);
  return {};
}

std::optional<Contents> ContentsFromCode(const QString& code) {
  for (const auto& [one, word] : kContents)
    if (code == QLatin1StringView(word)) return one;
  return std::nullopt;
}

Tables TablesOfOutbox() {
  return {"(outbox)"};
}

QString Outbox::FolderOf(const QString& databaseFile) {
  return databaseFile + QStringLiteral(".outbox");
}

bool Outbox::Exists(const Business& business) {
  return QFileInfo::exists(FileIn(FolderOf(business.DatabaseFile())));
}

Outbox::Outbox(Business& business)
    : business_(business),
      folder_(FolderOf(business.DatabaseFile())),
      connection_(FileIn(folder_), [&business] { return business.Now(); }) {
  if (!Exists(business)) {
    if (!MakeOwnFolder(folder_))
      throw std::runtime_error(
          QStringLiteral("The folder %1 for mails cannot be made.").arg(folder_).toStdString());
    MakeFile(FileIn(folder_));
  }
  connection_.Open(OpenMode::Existing);
}

Outbox::~Outbox() {
  if (connection_.IsOpen()) connection_.Close();
  // Only now, since who hears of it opens the outbox.
  if (changed_) business_.TellOfChange(TablesOfOutbox());
}

QString Outbox::StoreDocument(const QString& document, const QString& messageId) const {
  if (document.isEmpty()) return {};
  const QString place = messageId.section(u'@', 0, 0);
  const QString copy =
      QDir(folder_).filePath(place + u'/' + FileNameOfPath(QDir::fromNativeSeparators(document)));
  const bool made = MakeOwnFolder(QFileInfo(copy).path()) && QFile::copy(document, copy);
  if (!made)
    throw std::runtime_error(QStringLiteral("The document %1 cannot be put into the outbox.")
                                 .arg(document)
                                 .toStdString());
  KeepToOwner(copy);
  return QDir(folder_).relativeFilePath(copy);
}

std::vector<qint64> Outbox::Put(const std::vector<NewMail>& mails) {
  std::vector<qint64> numbers;
  connection_.Begin();
  try {
    for (const NewMail& mail : mails) {
      const QString messageId = NewMessageId();
      const Value client = mail.client ? Value(mail.client->Number()) : Value();
      connection_.Run(Sql(
          "INSERT INTO Mails (State, Route, Contents, Client_ID, Invoices, To_Address, To_Name, "
          "Subject, Message, Document, Source, Message_ID, Queued, Attempts) VALUES ({}, {}, "
          "{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, 0)",
          CodeOf(State::Waiting), CodeOf(mail.route), CodeOf(mail.contents), client,
          ListOf(mail.invoices), mail.to, mail.toName, mail.subject, mail.text,
          StoreDocument(mail.document, messageId), mail.document, messageId, business_.Now()));
      numbers.push_back(connection_.LastInsertedKey());
    }
    connection_.Commit();
  } catch (...) {
    connection_.Rollback();
    throw;
  }
  Written();
  return numbers;
}

StoredMail Outbox::MailOf(const Record& row) const {
  const auto text = [&row](const char16_t* name) { return row[name].ToText(); };
  StoredMail mail;
  mail.number = row[u"Mail_ID"].ToLong();
  mail.state = StateFromCode(text(u"State"));
  mail.route = RouteFromCode(text(u"Route")).value_or(Route::HeadOffice);
  mail.contents = ContentsFromCode(text(u"Contents")).value_or(Contents::File);
  if (const qint64 client = row[u"Client_ID"].ToLong(); client > 0)
    mail.client = Id<Client>(client);
  mail.invoices = text(u"Invoices");
  mail.to = text(u"To_Address");
  mail.toName = text(u"To_Name");
  mail.subject = text(u"Subject");
  mail.text = text(u"Message");
  if (const QString document = text(u"Document"); !document.isEmpty())
    mail.document = QDir(folder_).filePath(document);
  mail.source = text(u"Source");
  mail.messageId = text(u"Message_ID");
  mail.queued = row[u"Queued"].ToDateTime().value_or(DateTime());
  mail.ended = row[u"Ended"].ToDateTime().value_or(DateTime());
  mail.attempts = static_cast<int>(row[u"Attempts"].ToLong());
  mail.reason = text(u"Reason");
  if (mail.state == State::Sending && mail.number != sending_) {
    mail.state = State::InDoubt;
    mail.reason = QString::fromLatin1(kEndedMeanwhile);
  }
  return mail;
}

std::vector<StoredMail> Outbox::Load(const Sql& condition) {
  std::vector<StoredMail> mails;
  const Recordset rows =
      connection_.Run(Sql("SELECT * FROM Mails WHERE {} ORDER BY Mail_ID DESC", condition));
  mails.reserve(rows.RowCount());
  for (const Record row : rows) mails.push_back(MailOf(row));
  return mails;
}

std::vector<StoredMail> Outbox::All() {
  return Load(Sql("Mail_ID > 0"));
}

std::vector<StoredMail> Outbox::In(State state) {
  std::vector<StoredMail> mails = All();
  std::erase_if(mails, [state](const StoredMail& mail) { return mail.state != state; });
  std::reverse(mails.begin(), mails.end());
  return mails;
}

std::optional<StoredMail> Outbox::Find(qint64 number) {
  const auto mails = Load(Sql("Mail_ID = {}", number));
  return mails.empty() ? std::nullopt : std::optional(mails.front());
}

std::optional<StoredMail> Outbox::FindDocument(Contents contents, Id<Invoice> invoice) {
  const auto mails = Load(Sql("Contents = {} AND InStr(Invoices, {}) > 0", CodeOf(contents),
                              QStringLiteral(",%1,").arg(invoice.Number())));
  return mails.empty() ? std::nullopt : std::optional(mails.front());
}

void Outbox::MarkSending(const StoredMail& mail) {
  connection_.Run(
      Sql("UPDATE Mails SET State = {}, Attempts = Attempts + 1, Reason = NULL WHERE "
          "Mail_ID = {} AND State = {}",
          CodeOf(State::Sending), mail.number, CodeOf(State::Waiting)));
  if (connection_.RowsWritten() != 1)
    throw std::runtime_error("This mail no longer waits to be sent.");
  sending_ = mail.number;
  Written();
}

void Outbox::MarkEnded(const StoredMail& mail, State state, const QString& reason) {
  connection_.Run(Sql("UPDATE Mails SET State = {}, Ended = {}, Reason = {} WHERE Mail_ID = {}",
                      CodeOf(state), business_.Now(), reason, mail.number));
  sending_.reset();
  Written();
}

void Outbox::Change(qint64 number, State from, State to, const QString& reason) {
  const auto mail = Find(number);
  if (!mail) throw std::runtime_error("This mail is no longer in the outbox.");
  if (mail->state != from)
    throw std::runtime_error(QStringLiteral("Mail %1 is not %2 but %3.")
                                 .arg(QString::number(number), CodeOf(from), CodeOf(mail->state))
                                 .toStdString());
  connection_.Run(Sql("UPDATE Mails SET State = {}, Ended = {}, Reason = {} WHERE Mail_ID = {}",
                      CodeOf(to), business_.Now(), reason, number));
  Written();
}

void Outbox::Retry(qint64 number) {
  Change(number, State::Failed, State::Waiting, {});
}

void Outbox::SettleAsSent(qint64 number) {
  Change(number, State::InDoubt, State::Sent, QStringLiteral("Told to have arrived."));
}

void Outbox::SettleAsUnsent(qint64 number) {
  Change(number, State::InDoubt, State::Waiting, {});
}

void Outbox::Remove(qint64 number) {
  const auto mail = Find(number);
  if (!mail || !mail->IsOpen()) return;
  connection_.Run(Sql("DELETE FROM Mails WHERE Mail_ID = {}", number));
  if (!mail->document.isEmpty()) {
    QFile::remove(mail->document);
    QDir().rmdir(QFileInfo(mail->document).path());
  }
  Written();
}

}  // namespace quillary::mail
