#include "lists/Countries.h"

namespace quillary::lists {
namespace {

std::optional<Refusal> CheckCountry(const CountryForm& form) {
  if (!form.name.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the name of the country."),
                 QStringLiteral("txtCountry")};
}

}  // namespace

std::vector<Country> ListCountries(Business& business) {
  std::vector<Country> countries;
  for (const Record row : business.RunSQL(Sql("SELECT * FROM Countries ORDER BY Country_Name;")))
    countries.push_back({row[u"Country_ID"].ToLong(), row[u"Country_Name"].ToText(),
                         row[u"Registration_Name"].ToText(), row[u"Tax_Name"].ToText()});
  return countries;
}

std::optional<Refusal> InsertCountry(Business& business, const CountryForm& form) {
  if (std::optional<Refusal> refusal = CheckCountry(form)) return refusal;
  business.RunSQL(
      Sql("INSERT INTO Countries (Country_Name, Registration_Name, Tax_Name) VALUES ({}, {}, {})",
          form.name, form.registrationName, form.taxName));
  return std::nullopt;
}

std::optional<Refusal> UpdateCountry(Business& business, std::optional<qint64> countryId,
                                     const CountryForm& form) {
  if (std::optional<Refusal> refusal = CheckCountry(form)) return refusal;
  if (!countryId) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.RunSQL(
      Sql("UPDATE Countries SET Country_Name = {}, Registration_Name = {}, Tax_Name = {} "
          "WHERE Country_ID = {}",
          form.name, form.registrationName, form.taxName, countryId));
  return std::nullopt;
}

std::optional<Refusal> DeleteCountry(Business& business, std::optional<qint64> countryId) {
  if (!countryId) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.RunSQL(Sql("DELETE FROM Countries WHERE Country_ID = {}", countryId));
  return std::nullopt;
}

}  // namespace quillary::lists
