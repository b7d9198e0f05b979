#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The countries a business can be in. Each names its tax and how a business is registered for it;
/// what is left empty falls back as GetCountryTaxNames() tells.
namespace quillary::lists {

struct ListedCountry {
  Id<Country> id;
  QString name;
  QString registrationName;  // as printed on documents, "ABN:"
  QString taxName;
};
std::vector<ListedCountry> ListCountries(Business& business);  // by name

struct CountryForm {
  QString name;
  QString registrationName;
  QString taxName;
};

/// Each refuses a blank name.
std::optional<Refusal> InsertCountry(Business& business, const CountryForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateCountry(Business& business, std::optional<Id<Country>> country,
                                     const CountryForm& form);
/// Whether the business is there or not.
std::optional<Refusal> DeleteCountry(Business& business, std::optional<Id<Country>> country);

}  // namespace quillary::lists
