#include "documents/reports/ReportHeader.h"

#include "clients/GeneralNotes.h"

#include <QDir>

namespace quillary::documents {

namespace {

const char* const kHeaderSQL =
    "SELECT * FROM infPersonalDetails LEFT JOIN Countries ON infPersonalDetails.Country_ID = "
    "Countries.Country_ID ;";
constexpr int kAddressIndent = 19;  // blanks, about as wide as the label of the line above

QString LineOf(const char* label, const QString& text) {
  if (text.isEmpty()) return {};
  return QString::fromLatin1(label) + text + QStringLiteral("\r\n");
}

}  // namespace

HeaderStrings SetHeaderVariable(Business& business) {
  const Recordset details = business.RunSQL(QString::fromLatin1(kHeaderSQL));
  const auto field = [&](const char16_t* name) {
    return details.HasRows() ? details.Field(name).ToText() : QString();
  };
  const QString street = field(u"Street_Number") + u' ' + field(u"Street") + u' ';
  const QString town = field(u"Suburb") + u' ' + field(u"Post_Code");
  HeaderStrings header;
  header.company = field(u"Company_Name");
  header.contact = field(u"First_Name") + u' ' + field(u"Surname");
  header.address = street + QStringLiteral("\r\n") + QString(kAddressIndent, u' ') + town;
  header.plainAddress = street + QStringLiteral("\r\n") + town;
  header.phone = field(u"Phone_1");
  if (!field(u"Phone_2").isEmpty()) header.phone += QStringLiteral(" or ") + field(u"Phone_2");
  header.emailLine = LineOf("EMAIL: ", field(u"Email"));
  header.faxLine = LineOf("FAX: ", field(u"Fax"));
  header.providerLine = LineOf("PROVIDER: ", field(u"Provider"));
  header.acnLine = LineOf("ACN: ", field(u"ACN"));
  header.accountName = field(u"Account_Name").trimmed();
  header.bsbAndAccount = field(u"BSB_Account_Number").trimmed();
  header.number = field(u"ABN").trimmed();
  header.taxLine = field(u"Registration_Name") + u' ' + field(u"ABN");
  return header;
}

QString LogoFile(Business& business, const QString& applicationFolder) {
  return QDir(applicationFolder)
      .filePath(QStringLiteral("Files/") + business.values.divisionName + QStringLiteral(".jpg"));
}

PageFont ReadNotesFont(const SettingsStore& settings) {
  const clients::NotesLook look = clients::LoadNotesLook(settings);
  return {.name = look.font,
          .size = look.size,
          .bold = look.bold,
          .italic = look.italic,
          .colour = static_cast<int>(clients::NotesColourValue(look.colour))};
}

}  // namespace quillary::documents
