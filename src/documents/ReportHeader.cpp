#include "documents/ReportHeader.h"

#include <QDir>

#include <map>

namespace quillary {

namespace {

const char* const kHeaderSQL =
    "SELECT * FROM infPersonalDetails LEFT JOIN Countries ON infPersonalDetails.Country_ID = "
    "Countries.Country_ID ;";
constexpr int kAddressIndent = 19;  // blanks, about as wide as the label of the line above
constexpr double kNotesSize = 8;

QString LineOf(const char* label, const QString& text) {
  if (text.isEmpty()) return {};
  return QString::fromLatin1(label) + text + QStringLiteral("\r\n");
}

int ColourOf(const QString& word) {
  static const std::map<QString, int> colours = {
      {QStringLiteral("WHITE"), 0xFFFFFF},  {QStringLiteral("RED"), 0xFF0000},
      {QStringLiteral("YELLOW"), 0xFFFF00}, {QStringLiteral("GREEN"), 0x00FF00},
      {QStringLiteral("CYAN"), 0x00FFFF},   {QStringLiteral("BLUE"), 0x0000FF}};
  const auto colour = colours.find(word.trimmed().toUpper());
  return colour == colours.end() ? 0 : colour->second;
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
  header.taxLine = field(u"Registration_Name") + u' ' + field(u"ABN");
  return header;
}

QString LogoFile(Business& business, const QString& applicationFolder) {
  return QDir(applicationFolder)
      .filePath(QStringLiteral("Files/") + business.values.divisionName + QStringLiteral(".jpg"));
}

PageFont ReadNotesFont(const SettingsStore& settings) {
  const auto read = [&](const char* key) {
    return settings.Read(QStringLiteral("Reports"), QString::fromLatin1(key)).trimmed();
  };
  PageFont font;
  if (const QString name = read("Notes Font"); !name.isEmpty()) font.name = name;
  font.bold = read("Notes Bold").toDouble() != 0;
  font.italic = read("Notes Italic").toDouble() != 0;
  const double size = read("Notes Size").toDouble();
  font.size = size > 0 ? size : kNotesSize;
  font.colour = ColourOf(read("Notes Color"));
  return font;
}

}  // namespace quillary
