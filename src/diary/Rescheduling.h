#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
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
  qint64 clientServiceId = 0;
  qint64 serviceId = 0;
  QString service;
  Money price;  // tax included, in cents
  QString notes;
  QString status;     // "Regular", "Casual" or "Quote only"
  int frequency = 0;  // days; 0 for none
  qint64 employeeId = 0;
  QString employeeName;
  qint64 otherScheduleClientServiceId = 0;  // the service whose dates it follows; 0 for its own
  QDate nextVisit;

  /// "02 Nov 2026"
  QString StartDateText() const;
};

/// The services of a client, the main one first. One without a next visit shows today.
std::vector<ServiceRhythm> LoadServiceRhythms(Business& business, qint64 clientId);

/// Takes what was typed into the start date's cell; refused and unchanged when it is no date. A
/// date in the past or on a holiday will do: the roll deals with it.
std::optional<Refusal> TypeStartDate(ServiceRhythm& row, const QString& typed, QDate today);
/// The same for the frequency's cell, which has to be a number.
std::optional<Refusal> TypeFrequency(ServiceRhythm& row, const QString& typed);

/// Writes frequency and start date of every row to Client_Services and rebuilds the client's open
/// diary from today on.
roll::RollCount RescheduleClient(Business& business, qint64 clientId,
                                 const std::vector<ServiceRhythm>& rows);

}  // namespace quillary::diary
