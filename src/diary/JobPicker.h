#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The jobs from which an invoice can be put together.
namespace quillary::diary {

struct MonthChoice {
  QString words;  // "November 2026"
  DateRange days;
};
/// The months of the year before, this year and the year after.
std::vector<MonthChoice> ListPickerMonths(QDate today);
/// Where the month of `date` stands in ListPickerMonths(); nothing when it lies outside.
std::optional<size_t> PickerMonthOf(QDate today, QDate date);

struct PickableJob {
  Id<Entry> entry;
  QString displayName;  // of the client at whose site it is done
  QString description;
  QDate scheduleDate;
  Money totalPrice;  // tax included
  Money totalGST;
  StoredEntryStatus status;
  std::optional<Id<Invoice>> invoice;

  /// "Yes" or "No".
  QString HasInvoiceWord() const;
  /// The hue of its row. An invoice wins over the status.
  Hue RowHue() const { return invoice ? Hue::StrongGreen : HueOf(status, false); }
  /// Whether the row stands ticked when jobs are picked for that invoice.
  bool IsOn(std::optional<Id<Invoice>> of) const { return invoice && invoice == of; }
};

/// The jobs, done or not but not cancelled, of a client and of everyone billed to it, by name and
/// date; the last day is taken whole.
std::vector<PickableJob> ListPickableJobs(Business& business, Id<Client> payer,
                                          const DateRange& days);

}  // namespace quillary::diary
