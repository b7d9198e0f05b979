#pragma once

#include <QString>

#include <optional>
#include <span>

namespace quillary {

/// What an owner in a country takes for granted: one line a country, by the name that it has in the
/// list of countries.
struct CountryHabits {
  QStringView country;
  QStringView territory;     // its two letters
  double taxRate;            // a fraction: 0.1 is ten percent
  QStringView taxName;       // what the tax is called
  QStringView registration;  // as printed before the number of the business
};
std::span<const CountryHabits> AllCountryHabits();

/// Nothing for a country that the owner added himself.
std::optional<CountryHabits> HabitsOfCountry(QStringView country);
/// The country that the machine is set up for; the first of the list where it is none of them.
CountryHabits HabitsOfMachine();

}  // namespace quillary
