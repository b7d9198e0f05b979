#pragma once

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
  qint64 diaryId = 0;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  QString statusWords;
};

struct MonthRange {
  QDate from;
  QDate to;
};
/// From the first to the last day of the month that `today` lies in.
MonthRange MonthOf(QDate today);

/// All jobs of the client on those days, done or not, the newest first.
std::vector<MonthlyJob> LoadJobsForThisClient(Business& business, qint64 clientId,
                                              const MonthRange& days);

/// Refuses an amount below 1, then that no job is ticked.
std::optional<Refusal> CheckMonthlyPrices(Money amount, const std::vector<qint64>& ticked);

/// Gives each ticked job the amount divided by their number, and each of a job's lines that share
/// divided by the number of lines, each rounded to cents with the tax inside it. The parts need not
/// add up to the amount; no cent is carried. A job without lines is reported as an error and keeps
/// its share. One transaction; no balance is recomputed. Writes nothing when CheckMonthlyPrices()
/// refuses.
std::optional<Refusal> SetJobPricesForMonthly(Business& business, Money amount,
                                              const std::vector<qint64>& ticked);

}  // namespace quillary::clients
