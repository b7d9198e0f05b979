#include "data/SharedValues.h"

#include "base/CountryHabits.h"
#include "data/Business.h"

namespace quillary {
namespace {

/// Reads a flag or text of infOptions, leaving the default when an old file lacks the column.
template <typename Read>
void ReadOption(const Recordset& options, const char16_t* column, const Read& read) {
  if (options.FieldExists(column)) read(options.Field(column));
}

}  // namespace

void LoadOptionFlags(Business& business) {
  const Recordset options = business.RunSQL(QStringLiteral("SELECT * FROM infOptions;"));
  if (!options.HasRows()) return;
  SharedValues& values = business.values;
  const auto flag = [](bool& into) { return [&into](const Value& v) { into = v.ToBool(); }; };
  const auto text = [](QString& into) { return [&into](const Value& v) { into = v.ToText(); }; };
  ReadOption(options, u"EnableLogging", flag(values.enableLogging));
  ReadOption(options, u"AdobePath", text(values.adobePath));
  ReadOption(options, u"CCEmailAddress", text(values.ccEmailAddress));
  ReadOption(options, u"RecalculateClientAmtsOwingOnPrint",
             flag(values.recalculateClientAmtsOwingOnPrint));
  ReadOption(options, u"EnableOstrel4WebServices", flag(values.enableOstrel4WebServices));
  ReadOption(options, u"DatabaseUploaded", flag(values.databaseUploaded));
  ReadOption(options, u"CompactDatabaseBeforeUpload", flag(values.compactDatabaseBeforeUpload));
}

void LoadHorizon(Business& business) {
  business.values.daysToAdvanceSchedule = static_cast<int>(
      business.FirstField(Sql("SELECT Days_To_Advance_Schedule FROM infOptions")).ToLong());
}

void LoadDivisionName(Business& business) {
  business.values.divisionName =
      business
          .FirstField(Sql("SELECT Division_Name FROM infPersonalDetails LEFT JOIN Divisions ON "
                          "infPersonalDetails.Division_ID = Divisions.Division_ID;"))
          .ToText();
}

void LoadTaxRate(Business& business) {
  business.values.gstPercentage = static_cast<float>(
      business.LookupField(QStringLiteral("infOptions.GST_Percentage")).ToDouble(0));
}

void LoadAccountingMethod(Business& business) {
  const QString stored =
      business.LookupField(QStringLiteral("infOptions.Accounting_Method")).ToText();
  const QString upper = stored.toUpper();
  const bool known = upper == QStringLiteral("CASH") || upper == QStringLiteral("ACCRUAL");
  business.values.accountingMethod = known ? stored : QStringLiteral("Cash");
}

void LoadDefaultEmployee(Business& business) {
  business.values.defaultEmployee =
      business.FirstField(Sql("SELECT MIN(Employee_ID) FROM Employees; ")).ToId<Employee>();
}

void LoadDefaultService(Business& business) {
  business.values.defaultService =
      business.FirstField(Sql("SELECT MIN(Service_ID) FROM Services WHERE Default = true; "))
          .ToId<Service>();
}

void LoadTaxName(Business& business) {
  const QString name =
      business
          .FirstField(Sql("SELECT Tax_Name FROM infPersonalDetails pd inner join Countries c on "
                          "c.Country_ID = pd.Country_ID;"))
          .ToText();
  business.values.taxName = name.isEmpty() ? SharedValues().taxName : name;
}

bool LoadCountry(Business& business) {
  const QString country =
      business
          .FirstField(Sql("SELECT Country_Name FROM infPersonalDetails pd inner join Countries c "
                          "on c.Country_ID = pd.Country_ID;"))
          .ToText();
  return WriteAsIn(HabitsOfCountry(country).value_or(HabitsOfMachine()).writing);
}

void LoadSharedValues(Business& business) {
  LoadOptionFlags(business);
  LoadHolidaysIntoArray(business);
  LoadHorizon(business);
  LoadDivisionName(business);
  LoadTaxRate(business);
  LoadAccountingMethod(business);
  LoadDefaultEmployee(business);
  LoadDefaultService(business);
  LoadTaxName(business);
  LoadCountry(business);
}

const Tables& TablesOfCountry() {
  static const Tables tables = {"infPersonalDetails", "Countries"};
  return tables;
}

const Tables& TablesOfSharedValues() {
  static const Tables tables = {"infOptions", "infPersonalDetails", "Divisions", "Countries",
                                "Employees",  "Services",           "Holiday"};
  return tables;
}

}  // namespace quillary
