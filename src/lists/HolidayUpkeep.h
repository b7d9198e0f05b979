#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The days on which nobody works. Changing them moves no entry of the diary until it is recreated,
/// and the roll sees the change after LoadHolidaysIntoArray().
namespace quillary::lists {

struct ListedHoliday {
  Id<Holiday> id;
  QString dayMonth;  // "dd/mm"
  int year = 0;      // 0 for a recurring one
  bool recurring = false;
  QString description;
};

/// The fields as typed.
struct HolidayForm {
  QString dayMonth;
  QString year;  // of no account for a recurring one
  QString description;
  bool recurring = false;
};

/// The years to choose from: last year, the five to come, and every other that has a holiday.
std::vector<int> ListHolidayYears(Business& business);
/// The holidays of a year, those that recur included, through the year.
std::vector<ListedHoliday> ListHolidays(Business& business, int year);

/// Refuses a day and month that form no date in that year, and then a year that is none. 29/02 may
/// recur, since it comes round again.
std::optional<Refusal> CheckHoliday(const HolidayForm& form);

/// Stores day and month as "dd/mm", the form in which they are looked up.
std::optional<Refusal> InsertHoliday(Business& business, const HolidayForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateHoliday(Business& business, std::optional<Id<Holiday>> holiday,
                                     const HolidayForm& form);
std::optional<Refusal> DeleteHoliday(Business& business, std::optional<Id<Holiday>> holiday);

}  // namespace quillary::lists
