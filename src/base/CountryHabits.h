#pragma once

#include <QString>

#include <optional>
#include <span>

namespace quillary {

/// How amounts, dates and pages are written in a country.
struct WritingHabits {
  char16_t currencySign = u'$';
  bool monthFirst = false;   // of a date in figures: "11/2/2026" is the second of November
  bool letterPaper = false;  // instead of A4

  bool operator==(const WritingHabits&) const = default;
};

/// What an owner in a country takes for granted: one line a country, by the name that it has in the
/// list of countries.
struct CountryHabits {
  QStringView country;
  QStringView territory;     // its two letters
  double taxRate;            // a fraction: 0.1 is ten percent
  QStringView taxName;       // what the tax is called
  QStringView registration;  // as printed before the number of the business
  WritingHabits writing = {};
};
std::span<const CountryHabits> AllCountryHabits();

/// Nothing for a country that the owner added himself.
std::optional<CountryHabits> HabitsOfCountry(QStringView country);
/// The country that the machine is set up for; the first of the list where it is none of them.
CountryHabits HabitsOfMachine();

/// How this process writes and reads: as in the country of the business that it works on. Like a
/// locale it is one for all threads, since a process works on one business.
WritingHabits CurrentWriting();
/// Takes another way from here on; true when it differs from the one before.
bool WriteAsIn(const WritingHabits& habits);

}  // namespace quillary
