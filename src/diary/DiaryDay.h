#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QString>

#include <optional>
#include <vector>

/// The list behind the diary screen.
namespace quillary::diary {

struct DiaryQuery {
  DateRange days;
  std::optional<Id<Employee>> employee = {};  // nothing: all
  bool bySuburbPosition = false;
};

struct DiaryRow {
  int sequence = 0;
  Id<Entry> entry;
  Id<Client> client;
  Id<Client> payer;
  QString displayName = {};
  QString address = {};  // suburb, post code, street, number
  QString phones = {};
  QString description = {};
  Money totalPrice = {};
  StoredEntryStatus status = {};
  std::optional<Id<Employee>> employee = {};
  std::optional<Id<Invoice>> invoice = {};
  QDate scheduleDate = {};
  std::optional<Id<Payment>> payment = {};

  Hue RowHue() const { return HueOf(status, payment.has_value()); }
};

struct DiaryList {
  std::vector<DiaryRow> rows;
  Money totalAmountOfJobs;  // of jobs open, done or invoiced, tax included
  int totalNoOfJobs = 0;
  bool someHaveNoEmployee = false;
};

/// A range whose start lies after its end.
inline constexpr char kInvalidDateRange[] = "Please enter a valid date range.";

/// The entries of the days, each once, in the order of the diary screen. Entries of today or later
/// of a client that is cancelled neither show nor count. Throws std::invalid_argument with
/// kInvalidDateRange.
DiaryList LoadDiary(Business& business, const DiaryQuery& query);

}  // namespace quillary::diary
