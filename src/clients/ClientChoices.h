#pragma once

#include "data/Business.h"
#include "lists/Choices.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <vector>

/// The lists behind the combos of the client screens. Clients, services and employees are those of
/// lists/Choices.h.
namespace quillary::clients {

/// The bill-to parties that could pay for the client, by name; never the client itself. All of them
/// for one that is not stored yet.
std::vector<lists::Choice<Client>> ListBillableOthers(Business& business,
                                                      std::optional<Id<Client>> client);
/// The numbers of days between visits, as a combo shows them.
QStringList ListFrequencyDays(Business& business);
/// The labels in use for the work cover number.
QStringList ListWorkCoverLabels(Business& business);

/// The suburbs and post codes in use, each once.
struct SuburbChoices {
  QStringList suburbs;
  QStringList postCodes;
  /// Of a suburb, without regard to case and blanks around it; empty when it is unknown.
  QString PostCodeOf(const QString& suburb) const;

  QHash<QString, QString> postCodeOfSuburb;  // by suburb in upper case
};
SuburbChoices ListSuburbChoices(Business& business);

/// A client whose bills go to another, as the other lists it. One who pays for itself is among its
/// own sites.
struct Site {
  Id<Client> client;
  QString displayName;
  QString firstName;
  QString surname;
};
std::vector<Site> LoadSites(Business& business, Id<Client> payer);

}  // namespace quillary::clients
