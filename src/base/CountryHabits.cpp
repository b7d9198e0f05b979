#include "base/CountryHabits.h"

#include <QLocale>

#include <algorithm>
#include <atomic>

namespace quillary {
namespace {

constexpr CountryHabits kHabits[] = {
    {u"Australia", u"AU", 0.1, u"GST", u"ABN:"},
    {u"New Zealand", u"NZ", 0.15, u"GST", u"GST:"},
    {u"UK", u"GB", 0.2, u"VAT", u"VAT No:", {.currencySign = u'£'}},
    {u"Canada", u"CA", 0.05, u"GST", u"GST:", {.letterPaper = true}},
    {u"U.S.", u"US", 0, u"Sales tax", u"EIN:", {.monthFirst = true, .letterPaper = true}},
};

std::atomic<WritingHabits> currentWriting;
static_assert(decltype(currentWriting)::is_always_lock_free);

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

WritingHabits CurrentWriting() {
  return currentWriting.load(std::memory_order_relaxed);
}

bool WriteAsIn(const WritingHabits& habits) {
  return currentWriting.exchange(habits, std::memory_order_relaxed) != habits;
}

}  // namespace quillary
