#include "lists/HolidayUpkeep.h"

#include <QDate>
#include <QRegularExpression>

#include <set>

namespace quillary::lists {
namespace {

// A leap year, so that a day that comes round only every fourth year can recur.
constexpr int kAnyYear = 2000;

struct DayMonth {
  int day = 0;
  int month = 0;

  bool IsDateIn(int year) const { return QDate::isValid(year, month, day); }
  QString Text() const {
    return QStringLiteral("%1/%2").arg(day, 2, 10, QChar(u'0')).arg(month, 2, 10, QChar(u'0'));
  }
};

std::optional<DayMonth> ReadDayMonth(const QString& typed) {
  static const QRegularExpression form(QStringLiteral(R"(^\s*(\d{1,2})\s*[/.-]\s*(\d{1,2})\s*$)"));
  const QRegularExpressionMatch match = form.match(typed);
  if (!match.hasMatch()) return std::nullopt;
  return DayMonth{match.captured(1).toInt(), match.captured(2).toInt()};
}

// Four digits, because a holiday is compared with the year of a date.
std::optional<int> ReadYear(const QString& typed) {
  static const QRegularExpression form(QStringLiteral(R"(^\s*([1-9]\d{3})\s*$)"));
  const QRegularExpressionMatch match = form.match(typed);
  return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

// What a form that passed the check is stored as.
struct StoredDay {
  QString holDate;
  int holYear = 0;
};

StoredDay StoredOf(const HolidayForm& form) {
  return {ReadDayMonth(form.dayMonth).value_or(DayMonth{}).Text(),
          form.recurring ? 0 : ReadYear(form.year).value_or(0)};
}

}  // namespace

std::vector<int> ListHolidayYears(Business& business) {
  const int thisYear = business.Today().year();
  std::set<int> years;
  for (int year = thisYear - 1; year <= thisYear + 5; ++year) years.insert(year);
  for (const Record row :
       business.RunSQL(Sql("SELECT DISTINCT Hol_Year FROM Holiday WHERE Hol_Recurring = False"))) {
    const int year = static_cast<int>(row[u"Hol_Year"].ToLong());
    if (year > 0) years.insert(year);
  }
  return {years.begin(), years.end()};
}

std::vector<ListedHoliday> ListHolidays(Business& business, int year) {
  std::vector<ListedHoliday> holidays;
  for (const Record row :
       business.RunSQL(Sql("SELECT * FROM Holiday WHERE Hol_Year = {} OR Hol_Recurring = True "
                           "ORDER BY Right(Hol_Date, 2), Left(Hol_Date, 2), Hol_ID",
                           year))) {
    holidays.push_back({Id<Holiday>(row[u"Hol_ID"].ToLong()), row[u"Hol_Date"].ToText(),
                        static_cast<int>(row[u"Hol_Year"].ToLong()), row[u"Hol_Recurring"].ToBool(),
                        row[u"Hol_Description"].ToText()});
  }
  return holidays;
}

std::optional<Refusal> CheckHoliday(const HolidayForm& form) {
  const std::optional<DayMonth> day = ReadDayMonth(form.dayMonth);
  const std::optional<int> year = form.recurring ? kAnyYear : ReadYear(form.year);
  if (!day || !day->IsDateIn(year.value_or(kAnyYear))) {
    return Refusal{QStringLiteral("Please enter a valid day/month."), QStringLiteral("dayMonth")};
  }
  if (!year) {
    return Refusal{QStringLiteral("Please enter a valid year."), QStringLiteral("year")};
  }
  return std::nullopt;
}

std::optional<Refusal> InsertHoliday(Business& business, const HolidayForm& form) {
  if (std::optional<Refusal> refusal = CheckHoliday(form)) return refusal;
  const StoredDay stored = StoredOf(form);
  business.Write(
      Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) "
          "VALUES ({}, {}, {}, {})",
          stored.holDate, stored.holYear, form.recurring, form.description));
  return std::nullopt;
}

std::optional<Refusal> UpdateHoliday(Business& business, std::optional<Id<Holiday>> holiday,
                                     const HolidayForm& form) {
  if (std::optional<Refusal> refusal = CheckHoliday(form)) return refusal;
  if (!holiday) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  const StoredDay stored = StoredOf(form);
  business.Write(Sql("UPDATE Holiday SET Hol_Date = {}, Hol_Year = {}, Hol_Recurring = {}, "
                     "Hol_Description = {} WHERE Hol_ID = {}",
                     stored.holDate, stored.holYear, form.recurring, form.description, holiday),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteHoliday(Business& business, std::optional<Id<Holiday>> holiday) {
  if (!holiday) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.Write(Sql("DELETE FROM Holiday WHERE Hol_ID = {}", holiday), Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::lists
