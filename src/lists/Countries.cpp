#include "lists/Countries.h"

namespace quillary::lists {
namespace {

std::optional<Refusal> CheckCountry(const CountryForm& form) {
  if (!form.name.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the name of the country."), QStringLiteral("name")};
}

}  // namespace

std::vector<ListedCountry> ListCountries(Business& business) {
  std::vector<ListedCountry> countries;
  for (const Record row : business.RunSQL(Sql("SELECT * FROM Countries ORDER BY Country_Name;")))
    countries.push_back({Id<Country>(row[u"Country_ID"].ToLong()), row[u"Country_Name"].ToText(),
                         row[u"Registration_Name"].ToText(), row[u"Tax_Name"].ToText()});
  return countries;
}

std::optional<Refusal> InsertCountry(Business& business, const CountryForm& form) {
  if (std::optional<Refusal> refusal = CheckCountry(form)) return refusal;
  business.Write(
      Sql("INSERT INTO Countries (Country_Name, Registration_Name, Tax_Name) VALUES ({}, {}, {})",
          form.name, form.registrationName, form.taxName));
  return std::nullopt;
}

std::optional<Refusal> UpdateCountry(Business& business, std::optional<Id<Country>> country,
                                     const CountryForm& form) {
  if (std::optional<Refusal> refusal = CheckCountry(form)) return refusal;
  if (!country) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.Write(
      Sql("UPDATE Countries SET Country_Name = {}, Registration_Name = {}, Tax_Name = {} "
          "WHERE Country_ID = {}",
          form.name, form.registrationName, form.taxName, country),
      Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteCountry(Business& business, std::optional<Id<Country>> country) {
  if (!country) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.Write(Sql("DELETE FROM Countries WHERE Country_ID = {}", country), Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::lists
