#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The catalogue of services. Jobs and clients point at a service by its key, so renaming one
/// changes them all and deleting one leaves them pointing at nothing.
namespace quillary::lists {

struct Service {
  qint64 serviceId = 0;
  QString service;
  QString serviceCode;  // what the descriptions of jobs are made of
  std::optional<qint64> defaultGLAccountId;
  QString accountName;  // empty without an account
  bool regular = false;
  bool isDefault = false;  // offered first
};

struct ServiceForm {
  QString service;
  QString serviceCode;
  std::optional<qint64> defaultGLAccountId;
  bool regular = false;
  bool isDefault = false;
};

std::vector<Service> ListServices(Business& business);  // by name

/// Each refuses, in this order, a blank name, a blank code and a missing revenue account; a change
/// also when no record is chosen.
std::optional<Refusal> InsertService(Business& business, const ServiceForm& form);
std::optional<Refusal> UpdateService(Business& business, std::optional<qint64> serviceId,
                                     const ServiceForm& form);
/// Warns that jobs with the service will be orphaned, and deletes on Yes.
std::optional<Refusal> DeleteService(Business& business, Prompter& prompter,
                                     std::optional<qint64> serviceId);

/// Asks before new services are fetched from head office.
bool MayDownloadServices(Prompter& prompter);

/// The oldest of the services marked as default; null when there is none.
Value DefaultServiceId(Business& business);

}  // namespace quillary::lists
