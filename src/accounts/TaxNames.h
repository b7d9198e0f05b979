#pragma once

#include "data/Business.h"

#include <optional>

namespace quillary::accounts {

struct TaxNames {
  QString registrationName;  // the label of the business's tax number: "ABN:"
  QString taxName;           // "GST"
};

/// The words of a country; "ABN" and "GST" where it has none, and for a country that is not listed.
TaxNames GetCountryTaxNames(Business& business, std::optional<Id<Country>> country);

}  // namespace quillary::accounts
