#pragma once

#include "base/Money.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The jobs from which an invoice can be put together.
namespace quillary::diary {

struct MonthChoice {
  QString words;  // "November 2026"
  QDate first;
  QDate last;
};
/// The months of the year before, this year and the year after.
std::vector<MonthChoice> ListPickerMonths(QDate today);
/// Where the month of `date` stands in ListPickerMonths(); nothing when it lies outside.
std::optional<size_t> PickerMonthOf(QDate today, QDate date);

/// The hue of a row. An invoice wins over the status.
enum class PickerColour { NotDone, Done, HasInvoice };

struct PickableJob {
  qint64 diaryId = 0;
  QString displayName;  // of the client at whose site it is done
  QString description;
  QDate scheduleDate;
  Money totalPrice;  // tax included
  Money totalGST;
  QString status;
  std::optional<qint64> invoiceId;

  /// "Yes" or "No".
  QString HasInvoiceWord() const;
  PickerColour Colour() const;
  /// Whether the row stands ticked when jobs are picked for that invoice.
  bool IsOn(qint64 invoice) const { return invoiceId == invoice; }
};

/// The jobs, done or not but not cancelled, of a client and of everyone billed to it, by name and
/// date; `to` with its whole day.
std::vector<PickableJob> ListPickableJobs(Business& business, qint64 billedClientId, QDate from,
                                          QDate to);

}  // namespace quillary::diary
