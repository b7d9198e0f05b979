#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "domain/JobType.h"
#include "roll/ScheduleEngine.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// Building the diary again: all of it, or that of one client in a new rhythm.
namespace quillary::diary {

/// Forgets how far the diary reaches and rolls it again, so that every open entry from today on is
/// rebuilt. With no days to advance nothing is rebuilt, and the next roll starts at today.
roll::RollCount RecreateEntireSchedule(Business& business);

/// One service of a client, as the screen for a new rhythm lists it.
struct ServiceRhythm {
  Id<ClientService> clientService;
  std::optional<Id<Service>> service = {};
  QString serviceName = {};
  Money price = {};  // tax included, in cents
  QString notes = {};
  StoredJobType type = {};
  int frequency = 0;  // days; 0 for none
  std::optional<Id<Employee>> employee = {};
  QString employeeName = {};
  std::optional<Id<ClientService>> follows = {};  // the service whose dates it takes
  QDate nextVisit = {};

  /// "02 Nov 2026"
  QString StartDateText() const;
};

/// The services of a client, the main one first. One without a next visit shows today.
std::vector<ServiceRhythm> LoadServiceRhythms(Business& business, Id<Client> client);

/// Takes what was typed into the start date's cell; refused and unchanged when it is no date. A
/// date in the past or on a holiday will do: the roll deals with it.
std::optional<Refusal> TypeStartDate(ServiceRhythm& row, const QString& typed, QDate today);
/// The same for the frequency's cell, which has to be a number.
std::optional<Refusal> TypeFrequency(ServiceRhythm& row, const QString& typed);

/// Writes frequency and start date of every row to Client_Services and rebuilds the client's open
/// diary from today on.
roll::RollCount RescheduleClient(Business& business, Id<Client> client,
                                 const std::vector<ServiceRhythm>& rows);

}  // namespace quillary::diary
