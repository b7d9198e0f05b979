#include "billing/runs/MonthlyReminder.h"

namespace quillary::billing {

MonthlyReminder LoadMonthlyReminder(Business& business) {
  const Value stored = business.FirstField(Sql("SELECT Monthly_Invoices_Reminder FROM infOptions"));
  return {.stored = stored.IsDate() ? std::optional(stored.ToDate()) : std::nullopt,
          .proposed = business.Today().addMonths(1)};
}

void SaveMonthlyReminder(Business& business, std::optional<QDate> day) {
  business.Write(Sql("UPDATE infOptions SET Monthly_Invoices_Reminder = {}", day),
                 Rows::AtLeast(1));
}

}  // namespace quillary::billing
