#include "domain/CountryHabits.h"

#include <QLocale>

#include <algorithm>

namespace quillary {
namespace {

constexpr CountryHabits kHabits[] = {
    {u"Australia", u"AU", 0.1, u"GST", u"ABN:"}, {u"New Zealand", u"NZ", 0.15, u"GST", u"GST:"},
    {u"UK", u"GB", 0.2, u"VAT", u"VAT No:"},     {u"Canada", u"CA", 0.05, u"GST", u"GST:"},
    {u"U.S.", u"US", 0, u"Sales tax", u"EIN:"},
};

}  // namespace

std::span<const CountryHabits> AllCountryHabits() {
  return kHabits;
}

std::optional<CountryHabits> HabitsOfCountry(QStringView country) {
  const auto at = std::ranges::find_if(kHabits, [&](const CountryHabits& habits) {
    return habits.country.compare(country, Qt::CaseInsensitive) == 0;
  });
  if (at == std::end(kHabits)) return std::nullopt;
  return *at;
}

CountryHabits HabitsOfMachine() {
  const QString territory = QLocale::system().name().section(u'_', 1, 1);
  const auto at = std::ranges::find_if(
      kHabits, [&](const CountryHabits& habits) { return habits.territory == territory; });
  return at == std::end(kHabits) ? kHabits[0] : *at;
}

}  // namespace quillary
