#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// A fixed monthly amount, spread evenly over the jobs of a client who pays by the month.
namespace quillary::clients {

struct MonthlyJob {
  Id<Entry> entry;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  QString statusWords;
};

/// All jobs of the client on those days, done or not, the newest first.
std::vector<MonthlyJob> LoadJobsForThisClient(Business& business, Id<Client> client,
                                              const DateRange& days);

/// Refuses an amount below 1, then that no job is ticked.
std::optional<Refusal> CheckMonthlyPrices(Money amount, const std::vector<Id<Entry>>& ticked);

/// Gives each ticked job of the client the amount divided by their number, and each of a job's
/// lines that share divided by the number of lines, each rounded to cents with the tax inside it.
/// The parts need not add up to the amount; no cent is carried. A job without lines is reported as
/// an error and keeps its share. Recomputes what the client's payer owes. One transaction. Writes
/// nothing when CheckMonthlyPrices() refuses. Throws WriteFailed when a job has gone meanwhile.
std::optional<Refusal> SetJobPricesForMonthly(Business& business, Id<Client> client, Money amount,
                                              const std::vector<Id<Entry>>& ticked);

}  // namespace quillary::clients
