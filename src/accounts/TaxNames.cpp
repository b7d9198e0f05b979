#include "accounts/TaxNames.h"

namespace quillary::accounts {

TaxNames GetCountryTaxNames(Business& business, std::optional<Id<Country>> country) {
  TaxNames names;
  for (const Record row : business.RunSQL(Sql(
           "SELECT Registration_Name, Tax_Name FROM Countries WHERE Country_ID = {}", country))) {
    names = {row[u"Registration_Name"].ToText(), row[u"Tax_Name"].ToText()};
  }
  if (names.registrationName.isEmpty()) names.registrationName = QStringLiteral("ABN");
  if (names.taxName.isEmpty()) names.taxName = QStringLiteral("GST");
  return names;
}

}  // namespace quillary::accounts
