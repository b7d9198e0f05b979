#include "data/Holidays.h"

#include "data/Business.h"

namespace quillary {

void LoadHolidaysIntoArray(Business& business) {
  business.holidays.clear();
  const Recordset rows = business.RunSQL(Sql(
      "SELECT * FROM Holiday WHERE Hol_Year >= {} OR Hol_Recurring = 1", business.Today().year()));
  for (const Record row : rows) {
    business.holidays.push_back({row[u"Hol_Date"].ToText(),
                                 static_cast<int>(row[u"Hol_Year"].ToLong()),
                                 row[u"Hol_Recurring"].ToBool(), row[u"Hol_Description"].ToText()});
  }
  business.holidays.emplace_back();
}

const HolidayRecord* HolidayOf(const HolidayList& holidays, QDate date) {
  if (!date.isValid()) return nullptr;
  int month = 0;
  int day = 0;
  date.getDate(nullptr, &month, &day);
  const QChar dayAndMonth[] = {QChar(u'0' + day / 10), QChar(u'0' + day % 10), QChar(u'/'),
                               QChar(u'0' + month / 10), QChar(u'0' + month % 10)};
  const QStringView key(dayAndMonth, 5);
  for (const HolidayRecord& holiday : holidays) {
    if (holiday.holDate != key) continue;
    return holiday.holRecurring || holiday.holYear == date.year() ? &holiday : nullptr;
  }
  return nullptr;
}

bool IsHoliday(const HolidayList& holidays, QDate date) {
  return HolidayOf(holidays, date) != nullptr;
}

QDate NextNonHolidayDate(const HolidayList& holidays, QDate date) {
  while (IsHoliday(holidays, date)) date = date.addDays(1);
  return date;
}

}  // namespace quillary
