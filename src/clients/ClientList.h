#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/ClientStatus.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The door to the clients: the list and its search.
namespace quillary::clients {

enum class ClientKinds { All, RegularOnly };  // regular: with a service that repeats

struct ClientListQuery {
  std::optional<ClientStatus> status =
      {};  // nothing: all but prospects, whose status begins with Q
  ClientKinds kinds = ClientKinds::All;
};
/// The words to choose from: "All" first, then the statuses that clients are given by hand.
QStringList ClientListStatuses();
/// What a query asks for by one of these words.
std::optional<ClientStatus> ClientListStatusOf(const QString& word);

struct ClientListRow {
  Id<Client> client;
  StoredClientStatus status;
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
                                           std::optional<Id<Client>> client);

}  // namespace quillary::clients
