#pragma once

#include "clients/quotes/QuoteRecord.h"
#include "domain/ClientStatus.h"

#include <QString>

/// Those whom work is offered to: clients with the status "Quote only" until they accept.
namespace quillary::clients {

struct Prospect {
  std::optional<Id<Client>> client = {};  // nothing until it is stored
  StoredClientStatus status = ClientStatus::QuoteOnly;
  QString displayName = {};
  QString firstName = {};
  QString surname = {};
  QString streetNumber = {};
  QString street = {};
  QString suburb = {};
  QString postCode = {};
  QString map = {};
  QString phone1 = {};
  QString email = {};
  QString notes = {};

  /// Whether it can be made an active client.
  bool IsQuoteClient() const;
};

/// What a prospect is called before anybody typed a name.
inline constexpr char kNewProspectName[] = "New quote...";

/// Nothing when there is no such client.
std::optional<Prospect> LoadProspect(Business& business, Id<Client> client);

/// Stores the client, a new one first with the status "Quote only", and then the quote, and gives
/// both their keys. An empty display name is formed of the names, in the user's order. The client
/// bills itself from then on. One transaction. Refuses a client without any name, and what
/// CheckQuote() refuses. Throws WriteFailed.
std::optional<Refusal> SaveRecords(Business& business, Prospect& prospect, QuoteForm& quote);

/// What making a client active does to its services.
struct Activation {
  QStringList going;   // names of the services that it has now
  QStringList coming;  // of those that the quote brings
};
Activation PlanActivation(Business& business, Id<Client> client, const QuoteForm& quote);

/// Saves client and quote, makes the client active and replaces its services by the lines of the
/// quote, or by none. They get no frequency and no job type: the roll passes over them until the
/// user has set them up. One transaction. Throws WriteFailed.
std::optional<Refusal> MakeActive(Business& business, Prospect& prospect, QuoteForm& quote);
/// The command: asks, saying which services go and come, makes the client active, and tells what is
/// to be done next. False when there is nobody, or the user declined, or it was refused.
bool MakeActiveAfterAsking(Business& business, Prompter& prompter, Prospect& prospect,
                           QuoteForm& quote);

}  // namespace quillary::clients
