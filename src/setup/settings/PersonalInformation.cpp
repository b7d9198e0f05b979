#include "setup/settings/PersonalInformation.h"

#include <QDir>
#include <QFile>

namespace quillary::setup {
namespace {

/// Column and field, in the order in which they are written.
struct TextColumn {
  const char16_t* column;
  QString PersonalInformation::*field;
};
constexpr TextColumn kTexts[] = {
    {u"FSE_Code", &PersonalInformation::fseCode},
    {u"Company_Name", &PersonalInformation::companyName},
    {u"First_Name", &PersonalInformation::firstName},
    {u"Surname", &PersonalInformation::surname},
    {u"Street_Number", &PersonalInformation::streetNumber},
    {u"Street", &PersonalInformation::street},
    {u"Suburb", &PersonalInformation::suburb},
    {u"Post_Code", &PersonalInformation::postCode},
    {u"Phone_1", &PersonalInformation::phone1},
    {u"Phone_2", &PersonalInformation::phone2},
    {u"Fax", &PersonalInformation::fax},
    {u"Email", &PersonalInformation::email},
    {u"ABN", &PersonalInformation::abn},
    {u"ACN", &PersonalInformation::acn},
    {u"Provider", &PersonalInformation::provider},
    {u"Account_Name", &PersonalInformation::accountName},
    {u"BSB_Account_Number", &PersonalInformation::bsbAccountNumber},
};

}  // namespace

PersonalInformation LoadPersonalInformation(Business& business) {
  PersonalInformation info;
  const Recordset details = business.RunSQL(Sql("SELECT * from infPersonalDetails;"));
  if (!details.HasRows()) return info;
  for (const auto& [column, field] : kTexts) info.*field = details.Field(column).ToText();
  info.divisionId = details.Field(u"Division_ID").ToId<Division>();
  info.countryId = details.Field(u"Country_ID").ToId<Country>();
  return info;
}

std::optional<Refusal> SavePersonalInformation(Business& business,
                                               const PersonalInformation& info) {
  if (!info.divisionId)
    return Refusal{QStringLiteral("Please select a division."), QStringLiteral("division")};
  if (info.fseCode.trimmed().isEmpty())
    return Refusal{QStringLiteral("Please enter a Franchisee Code."), QStringLiteral("fseCode")};
  Transaction save(business);
  if (!business.RunSQL(Sql("SELECT FSE_Code FROM infPersonalDetails")).HasRows())
    business.Write(Sql("INSERT INTO infPersonalDetails (FSE_Code) VALUES ({})", info.fseCode),
                   Rows::Exactly(1));
  business.Write(
      Sql("UPDATE infPersonalDetails SET FSE_Code = {}, Division_ID = {}, Company_Name = {}, "
          "First_Name = {}, Surname = {}, Street_Number = {}, Street = {}, Suburb = {}, "
          "Post_Code = {}, Country_ID = {}, Phone_1 = {}, Phone_2 = {}, Fax = {}, Email = {}, "
          "ABN = {}, ACN = {}, Provider = {}, Account_Name = {}, BSB_Account_Number = {}",
          info.fseCode, info.divisionId, info.companyName, info.firstName, info.surname,
          info.streetNumber, info.street, info.suburb, info.postCode, info.countryId, info.phone1,
          info.phone2, info.fax, info.email, info.abn, info.acn, info.provider, info.accountName,
          info.bsbAccountNumber),
      Rows::AtLeast(1));
  save.Commit();
  LoadDivisionName(business);
  return std::nullopt;
}

QString RegistrationLabelOf(Business& business, std::optional<Id<Country>> countryId) {
  const QString label =
      business
          .FirstField(
              Sql("SELECT Registration_Name FROM Countries WHERE Country_ID = {}", countryId))
          .ToText();
  return label.isEmpty() ? QStringLiteral("ABN") : label;
}

QString LogoOfDivision(Business& business, std::optional<Id<Division>> divisionId,
                       const QString& programFolder) {
  const QString name =
      business
          .FirstField(Sql("SELECT Division_Name FROM Divisions WHERE Division_ID = {}", divisionId))
          .ToText();
  const QString picture = QDir(programFolder).filePath(QStringLiteral("Files/%1.jpg").arg(name));
  return !name.isEmpty() && QFile::exists(picture) ? picture : QString();
}

}  // namespace quillary::setup
