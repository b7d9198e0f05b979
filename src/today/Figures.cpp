#include "today/Figures.h"

#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"

#include <cmath>

namespace quillary::today {
namespace {

constexpr int kMonthsBefore = 12;

/// Adds the sums of single days to their months; `tell` hears of each day too.
template <typename Tell>
void AddDays(const Recordset& days, std::vector<MonthFigures>& months, Money MonthFigures::*sum,
             const Tell& tell) {
  const QDate first = months.front().month.from;
  for (const Record row : days) {
    const QDate day = row[size_t{0}].ToDate();
    const int at = (day.year() - first.year()) * 12 + day.month() - first.month();
    if (at < 0 || at >= static_cast<int>(months.size())) continue;
    const Money amount = row[1].ToMoney();
    months[static_cast<size_t>(at)].*sum += amount;
    tell(day, amount);
  }
}

}  // namespace

JobsFigures LoadJobsFigures(Business& business, const DateRange& days) {
  JobsFigures figures{.days = days};
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Status, Diary.Total_Price, Diary.Invoice_ID, Diary.Employee_ID "
               "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
               "WHERE Diary.Schedule_Date BETWEEN {} AND {} AND (Clients.Status IS NULL "
               "OR Clients.Status <> {} OR Diary.Schedule_Date < {})",
               days.from, EndOfDay(days.to), ClientStatus::Cancelled, business.Today()))) {
    const StoredEntryStatus status(row[size_t{0}].ToText());
    if (!status.IsIn(EntryGroup::LiveJobs)) continue;
    ++figures.jobs;
    figures.amount += row[1].ToMoney();
    if (!status.IsIn(EntryGroup::WorkDone))
      ++figures.open;
    else if (status.Is(EntryStatus::JobInvoiced) || row[2].ToId<Invoice>())
      ++figures.invoiced;
    else
      ++figures.done;
    if (!row[3].ToId<Employee>()) ++figures.withoutEmployee;
  }
  return figures;
}

OwedFigures LoadOwed(Business& business) {
  OwedFigures owed;
  for (const balances::AgedDebt& debt : balances::AgeDebts(business)) {
    ++owed.clients;
    for (const balances::DebtAge age : balances::kDebtAges) {
      owed.ages[static_cast<size_t>(age)] += debt.Of(age);
      owed.total += debt.Of(age);
    }
  }
  const QDate since = business
                          .FirstField(Sql("SELECT MIN(Debtor_Since) FROM Clients "
                                          "WHERE Account_Balance < 0 AND Is_Billed_To = Yes"))
                          .ToDate();
  if (since.isValid()) owed.since = since;
  return owed;
}

std::optional<int> YearFigures::Growth() const {
  if (soFarLastYear <= Money()) return std::nullopt;
  return static_cast<int>(
      std::lround(100.0 * (soFar - soFarLastYear).ToDouble() / soFarLastYear.ToDouble()));
}

YearFigures LoadYear(Business& business) {
  const QDate today = business.Today();
  const QDate thisMonth(today.year(), today.month(), 1);
  YearFigures year;
  for (int before = kMonthsBefore; before >= 0; --before)
    year.months.push_back({.month = DateRange::MonthOf(thisMonth.addMonths(-before))});
  const QDate from = year.months.front().month.from;
  const DateTime to = EndOfDay(year.months.back().month.to);
  const DateRange soFar{thisMonth, today};
  const DateRange lastYear{thisMonth.addYears(-1), today.addYears(-1)};
  AddDays(business.RunSQL(Sql("SELECT Schedule_Date, SUM(Total_Price) AS Total FROM Diary "
                              "WHERE Schedule_Date BETWEEN {} AND {} AND {} GROUP BY Schedule_Date",
                              from, to, IsInGroup("Status", EntryGroup::WorkDone))),
          year.months, &MonthFigures::done, [&](QDate day, Money amount) {
            if (soFar.Contains(day)) year.soFar += amount;
            if (lastYear.Contains(day)) year.soFarLastYear += amount;
          });
  const auto ignore = [](QDate, Money) {};
  AddDays(business.RunSQL(Sql("SELECT Generation_Date, SUM(Total_Amount) AS Total FROM Invoices "
                              "WHERE Generation_Date BETWEEN {} AND {} AND Statement_Type <> {} "
                              "GROUP BY Generation_Date",
                              from, to, StatementType::Statement)),
          year.months, &MonthFigures::invoiced, ignore);
  AddDays(business.RunSQL(Sql("SELECT Payment_Date, SUM(Amount) AS Total FROM Payments "
                              "WHERE Payment_Date BETWEEN {} AND {} GROUP BY Payment_Date",
                              from, to)),
          year.months, &MonthFigures::received, ignore);
  return year;
}

}  // namespace quillary::today
