#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The catalogue of services. Jobs and clients point at a service by its key, so renaming one
/// changes them all and deleting one leaves them pointing at nothing.
namespace quillary::lists {

struct ListedService {
  Id<Service> id;
  QString name;
  QString serviceCode;                 // what the descriptions of jobs are made of
  std::optional<Id<Account>> account;  // of its revenue
  QString accountName;                 // empty without an account
  bool regular = false;
  bool isDefault = false;  // offered first
};

struct ServiceForm {
  QString name;
  QString serviceCode;
  std::optional<Id<Account>> account;
  bool regular = false;
  bool isDefault = false;
};

std::vector<ListedService> ListServices(Business& business);  // by name

/// Each refuses, in this order, a blank name, a blank code and a missing revenue account; a change
/// also when no record is chosen.
std::optional<Refusal> InsertService(Business& business, const ServiceForm& form);
std::optional<Refusal> UpdateService(Business& business, std::optional<Id<Service>> service,
                                     const ServiceForm& form);
/// Warns that jobs with the service will be orphaned, and deletes on Yes.
std::optional<Refusal> DeleteService(Business& business, Prompter& prompter,
                                     std::optional<Id<Service>> service);

/// Asks before new services are fetched from head office.
bool MayDownloadServices(Prompter& prompter);

}  // namespace quillary::lists
