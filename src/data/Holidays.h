#pragma once

#include <QDate>
#include <QString>

#include <vector>

namespace quillary {

class Business;

struct HolidayRecord {
  QString holDate;  // "dd/mm"
  int holYear = 0;  // 0 for a recurring one
  bool holRecurring = false;
  QString holDescription;
};

/// The days without work, in the order in which they were loaded; it always ends in one empty
/// record.
using HolidayList = std::vector<HolidayRecord>;

/// Loads the holidays of this year, of later ones and the recurring ones.
void LoadHolidaysIntoArray(Business& business);
/// The holiday of that date; null on a working day. The first record with the date's day and month
/// decides, even when its year is another one and a later record would match. An invalid date is no
/// holiday.
const HolidayRecord* HolidayOf(const HolidayList& holidays, QDate date);
bool IsHoliday(const HolidayList& holidays, QDate date);
/// The date itself, or the first following day that is no holiday.
QDate NextNonHolidayDate(const HolidayList& holidays, QDate date);

}  // namespace quillary
