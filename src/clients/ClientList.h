#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The door to the clients: the list, its search, and the deletion of a client.
namespace quillary::clients {

enum class ClientKinds { All, RegularOnly };  // regular: with a service that repeats

struct ClientListQuery {
  QString status = QStringLiteral("All");  // one of ClientListStatuses()
  ClientKinds kinds = ClientKinds::All;
};
/// "All" first. All leaves out prospects, whose status begins with Q.
QStringList ClientListStatuses();

struct ClientListRow {
  qint64 clientId = 0;
  QString status;
  QString displayName;
  QString firstName;
  QString surname;
  QString streetNumber;
  QString street;
  QString suburb;
  QString postCode;
  QString phones;  // "phone 1; phone 2"
  QString fax;
  QString email;
};

/// The rows of a query, and what is typed into the search box answered from memory.
class ClientList {
 public:
  /// By display name, surname and first name.
  static ClientList Load(Business& business, const ClientListQuery& query = {});

  const std::vector<ClientListRow>& Rows() const { return rows_; }
  /// The places in Rows() where every word typed occurs in name, street, suburb, mail address or a
  /// phone, without regard to case and accents; digits also find a phone that is written with
  /// blanks. All for an empty text.
  std::vector<size_t> Search(const QString& typed) const;

 private:
  std::vector<ClientListRow> rows_;
  std::vector<QString> searched_;  // of each row: what the words are looked for in, folded
};

/// "List Count = 12"
QString ListCountWords(size_t count);

enum class ClientListCommand { View, Delete };
/// What the list says when a command has no client to work on.
std::optional<Refusal> CheckClientSelected(ClientListCommand command,
                                           std::optional<qint64> clientId);

/// Asks by the client's name, then deletes its row, its services, the lines of its diary entries
/// and the ledger entries of its payments. Its diary entries, payments and invoices stay, and its
/// sites go on pointing at it. One transaction. False when the user declined.
bool DeleteClientAfterAsking(Business& business, Prompter& prompter, qint64 clientId);

}  // namespace quillary::clients
