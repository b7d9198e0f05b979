#pragma once

#include "base/Id.h"
#include "data/Business.h"
#include "data/store/Connection.h"
#include "domain/Hue.h"
#include "mail/Courier.h"

#include <optional>
#include <vector>

namespace quillary::mail {

/// How far a mail of the outbox has come.
enum class State {
  Waiting,
  Sending,  // by this program, at this moment
  Sent,
  Failed,
  InDoubt,  // handed over without an answer, or the program ended meanwhile: nobody here can know
};
/// "waiting", "sending", "sent", "failed", "in doubt".
QString CodeOf(State state);
/// "Waiting", "Sending", "Sent", "Failed", "In doubt".
QString WordOf(State state);
Hue HueOf(State state);

/// What a mail of the outbox carries.
enum class Contents { Text, File, Invoice, Statement, Reminder };
QString CodeOf(Contents contents);
std::optional<Contents> ContentsFromCode(const QString& code);

/// A mail as it is put into the outbox.
struct NewMail {
  Route route = Route::HeadOffice;
  Contents contents = Contents::Text;
  std::optional<Id<Client>> client;
  std::vector<Id<Invoice>> invoices;  // that the document is about
  QString to;
  QString toName;
  QString subject;
  QString text;
  QString document;  // the file to go with it, which is copied; empty for none
};

/// A mail of the outbox.
struct StoredMail {
  qint64 number = 0;
  State state = State::Waiting;
  Route route = Route::HeadOffice;
  Contents contents = Contents::Text;
  std::optional<Id<Client>> client;
  QString invoices;  // ",12,13,"
  QString to;
  QString toName;
  QString subject;
  QString text;
  QString document;  // path of the copy that goes out; empty for none
  QString source;    // path of the file it was copied from
  QString messageId;
  DateTime queued;
  DateTime ended;  // when it was sent, or failed; invalid before
  int attempts = 0;
  QString reason;  // why it is not sent

  bool IsOpen() const { return state != State::Sent; }
};

/// The mails that are to go out and those that have, in a folder beside the business: what the
/// mails are lies in a file of tables, their documents as sent beside it. Each mail is marked
/// before it is handed over and again when the answer is there. One that bears only the first mark
/// is in doubt, is shown so, and is never sent by itself.
///
/// The file is held against every other program for as long as this object lives, so no two
/// programs send one mail.
class Outbox {
 public:
  /// Opens the outbox of the business, which is made when it is missing. Throws StorageFailure.
  explicit Outbox(Business& business);
  ~Outbox();
  Outbox(const Outbox&) = delete;
  Outbox& operator=(const Outbox&) = delete;

  static QString FolderOf(const QString& databaseFile);
  /// Whether anything was ever put into it; asking makes no file.
  static bool Exists(const Business& business);

  /// Copies the documents and stores the mails, all or none; their numbers in order. Throws
  /// StorageFailure, and std::runtime_error for a document that cannot be copied.
  std::vector<qint64> Put(const std::vector<NewMail>& mails);

  /// The newest first.
  std::vector<StoredMail> All();
  std::vector<StoredMail> In(State state);
  std::optional<StoredMail> Find(qint64 number);
  /// The mail that carries this document of the invoice, or did; the newest.
  std::optional<StoredMail> FindDocument(Contents contents, Id<Invoice> invoice);

  /// The mark before it is handed over.
  void MarkSending(const StoredMail& mail);
  /// The mark after it.
  void MarkEnded(const StoredMail& mail, State state, const QString& reason);

  /// Lets a failed mail wait for the next run.
  void Retry(qint64 number);
  /// What the user found out of a mail in doubt: it has arrived, or it is to be sent once more.
  void SettleAsSent(qint64 number);
  void SettleAsUnsent(qint64 number);
  /// Takes a mail out that has not been sent.
  void Remove(qint64 number);

 private:
  std::vector<StoredMail> Load(const Sql& condition);
  StoredMail MailOf(const Record& row) const;
  QString StoreDocument(const QString& document, const QString& messageId) const;
  void Change(qint64 number, State from, State to, const QString& reason);
  void Written() { changed_ = true; }

  Business& business_;
  QString folder_;
  Connection connection_;
  std::optional<qint64> sending_;  // by this object
  bool changed_ = false;
};

/// What screens of mails show; told when an outbox that changed closes.
Tables TablesOfOutbox();

}  // namespace quillary::mail
