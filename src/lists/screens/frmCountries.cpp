#include "lists/screens/frmCountries.h"

#include "lists/Countries.h"

namespace quillary::lists {

namespace {

CountryForm CountryFormOf(const RecordFields& fields) {
  return {fields.Text("txtCountry"), fields.Text("txtTaxRegistration"), fields.Text("txtTaxName")};
}

std::vector<GridRow> CountryRows(Business& business) {
  std::vector<GridRow> rows;
  for (const ListedCountry& country : ListCountries(business))
    rows.push_back({{country.name, country.id, country.registrationName, country.taxName}});
  return rows;
}

}  // namespace

RecordList CountriesList(Business& business) {
  return {
      .name = "frmCountries",
      .title = QObject::tr("Countries"),
      .gridName = QStringLiteral("fgCountries"),
      .about = QObject::tr("The country of your business gives the tax its name on screens and "
                           "documents, and your tax number its label."),
      .emptyWhat = QObject::tr("There are no countries yet."),
      .emptyNext = QObject::tr("Fill in the name of a country and add it."),
      .columns = {{QObject::tr("Country"), ColumnKind::StrongText, 200},
                  {{}, ColumnKind::HiddenId},
                  {QObject::tr("Tax registration"), ColumnKind::Text, 160},
                  {QObject::tr("Tax name"), ColumnKind::Text, 120}},
      .fields = {{"txtCountry", "name", QObject::tr("Countr&y"), FieldKind::Text, 0, 50},
                 {"txtTaxRegistration", "registrationName",
                  QObject::tr("Ta&x registration, such as ABN:"), FieldKind::Text, 2, 50},
                 {"txtTaxName", "taxName", QObject::tr("&Tax name, such as GST"), FieldKind::Text,
                  3, 50}},
      .load = [&business] { return CountryRows(business); },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertCountry(business, CountryFormOf(fields));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateCountry(business, IdFrom<Country>(key), CountryFormOf(fields));
          },
      .remove =
          [&business](std::optional<qint64> key) {
            return DeleteCountry(business, IdFrom<Country>(key));
          },
  };
}

}  // namespace quillary::lists
