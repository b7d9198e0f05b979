#include "accounts/TaxNames.h"
#include "support/BusinessTest.h"

namespace quillary::accounts {
namespace {

using TaxNamesTest = BusinessTest;

TEST_F(TaxNamesTest, EmptyWordsFallBack) {
  Run(
      Sql("INSERT INTO Countries (Country_Name, Registration_Name, Tax_Name) VALUES "
          "('Fiji', '', NULL)"));
  struct Case {
    const char* country;
    const char* registration;
    const char* tax;
  };
  for (const Case& one : {Case{"Australia", "ABN:", "GST"}, Case{"UK", "ABN", "VAT"},
                          Case{"Fiji", "ABN", "GST"}, Case{"Atlantis", "ABN", "GST"}}) {
    const Value id = business().FirstField(
        Sql("SELECT Country_ID FROM Countries WHERE Country_Name = {}", one.country));
    const TaxNames names = GetCountryTaxNames(business(), id.ToId<Country>());
    EXPECT_EQ(names.registrationName, QString::fromUtf8(one.registration)) << one.country;
    EXPECT_EQ(names.taxName, QString::fromUtf8(one.tax)) << one.country;
  }
}

}  // namespace
}  // namespace quillary::accounts
