#include "setup/settings/StoredSettings.h"

#include "setup/settings/MiscellaneousSettings.h"

namespace quillary::setup {
namespace {

constexpr char kBackups[] = "BACKUPS";

const char* TableOf(SettingPlace place) {
  switch (place) {
    case SettingPlace::Options:
      return "infOptions";
    case SettingPlace::System:
      return "infSystem";
    case SettingPlace::Details:
      return "infPersonalDetails";
    case SettingPlace::User:
    case SettingPlace::Installation:
      break;
  }
  return nullptr;
}

/// The value in the type of its column; nothing when the words are of another kind.
std::optional<Value> TypedValue(SettingKind kind, const QString& words) {
  bool fits = true;
  switch (kind) {
    case SettingKind::Text:
      return Value(words);
    case SettingKind::WholeNumber: {
      const qint64 number = words.toLongLong(&fits);
      return fits ? std::optional<Value>(number) : std::nullopt;
    }
    case SettingKind::Fraction: {
      const double number = words.toDouble(&fits);
      return fits && number >= 0 && number < 1 ? std::optional<Value>(number) : std::nullopt;
    }
    case SettingKind::YesNo:
      if (words == u"1" || words.compare(u"yes", Qt::CaseInsensitive) == 0) return Value(true);
      if (words == u"0" || words.compare(u"no", Qt::CaseInsensitive) == 0) return Value(false);
      return std::nullopt;
    case SettingKind::Day: {
      const QDate day = QDate::fromString(words, Qt::ISODate);
      return day.isValid() ? std::optional<Value>(day) : std::nullopt;
    }
  }
  return std::nullopt;
}

QString KindInWords(SettingKind kind) {
  switch (kind) {
    case SettingKind::WholeNumber:
      return QStringLiteral("a whole number");
    case SettingKind::Fraction:
      return QStringLiteral("a fraction from 0 to 1, such as 0.1 for ten percent");
    case SettingKind::YesNo:
      return QStringLiteral("1 or 0");
    case SettingKind::Day:
      return QStringLiteral("a day, YYYY-MM-DD");
    case SettingKind::Text:
      break;
  }
  return QStringLiteral("a text");
}

std::optional<Refusal> CheckStored(const StoredSetting& setting, const QString& value) {
  const QString name = QString::fromLatin1(setting.name);
  if (name == u"Days_To_Advance_Schedule") {
    if (auto refusal = CheckDaysToAdvance(value)) return refusal;
  }
  const bool isMethod = name == u"Accounting_Method";
  if (isMethod && value != u"Cash" && value != u"Accrual")
    return Refusal{QStringLiteral("Accounting_Method takes Cash or Accrual."), name};
  if (name == u"FSE_Code" && value.trimmed().isEmpty())
    return Refusal{QStringLiteral("Please enter a Franchisee Code."), name};
  if (TypedValue(setting.kind, value)) return std::nullopt;
  return Refusal{QStringLiteral("%1 takes %2.").arg(name, KindInWords(setting.kind)), name};
}

/// Tables and columns cannot be values; these come from the table above, never from the caller.
Sql Statement(const QString& text) {
  return Sql(text.toLatin1().constData());
}

}  // namespace

const std::vector<StoredSetting>& StoredSettings() {
  using enum SettingPlace;
  using enum SettingKind;
  static const std::vector<StoredSetting> settings = {
      {"GST_Percentage", Options, Fraction},
      {"Days_To_Advance_Schedule", Options, WholeNumber},
      {"Accounting_Method", Options},
      {"EnableLogging", Options, YesNo},
      {"EnableOstrel4WebServices", Options, YesNo},
      {"CompactDatabaseBeforeUpload", Options, YesNo},
      {"Default_Email_Message", Options},
      {"AdobePath", Options},
      {"CCEmailAddress", Options},
      {"RecalculateClientAmtsOwingOnPrint", Options, YesNo},
      {"Invoice_Number", System, WholeNumber},
      {"Database_Version", System, WholeNumber},
      {"Last_Schedule_Ending", System, Day},
      {"FSE_Code", Details},
      {"Division_ID", Details, WholeNumber},
      {"Company_Name", Details},
      {"First_Name", Details},
      {"Surname", Details},
      {"Street_Number", Details},
      {"Street", Details},
      {"Suburb", Details},
      {"Post_Code", Details},
      {"Country_ID", Details, WholeNumber},
      {"Phone_1", Details},
      {"Phone_2", Details},
      {"Fax", Details},
      {"Email", Details},
      {"ABN", Details},
      {"ACN", Details},
      {"Provider", Details},
      {"Account_Name", Details},
      {"BSB_Account_Number", Details},
      {"Show DB Selection", User, YesNo, "Form", "0"},
      {"Use Buttons In Diary", User, YesNo, "Form", "0"},
      {"Billing Name Format", User, Text, "Display Format", "FS"},
      {"Email Option", User, Text, "Email", "MAPI"},
      {"SMTP Server", User, Text, "Email"},
      {"SMTP UserName", User, Text, "Email"},
      {"SMTP Password", User, Text, "Email", "", true},
      {"SMTP Security", User, Text, "Email"},
      {"SMTP Certificates", User, Text, "Email"},
      {"Invoice Printing Format", User, Text, "Invoices", "WORD"},
      {"Document Design", User, Text, "Invoices", "CLASSIC"},
      {"DO_CUSTOM_BACKUP", Installation, YesNo, kBackups, "0"},
      {"DO_DAILY_BACKUP", Installation, YesNo, kBackups, "0"},
      {"DO_WEEKLY_BACKUP", Installation, YesNo, kBackups, "0"},
      {"DO_MONTHLY_BACKUP", Installation, YesNo, kBackups, "0"},
      {"CUSTOM_PATH", Installation, Text, kBackups},
      {"CUSTOM_DRIVE", Installation, Text, kBackups},
      {"LAST_WEEKLY_BACKUP", Installation, Text, kBackups, "0"},
      {"LAST_MONTHLY_BACKUP", Installation, Text, kBackups, "0"},
  };
  return settings;
}

const StoredSetting* FindStoredSetting(const QString& name) {
  for (const StoredSetting& setting : StoredSettings())
    if (name.compare(QLatin1StringView(setting.name), Qt::CaseInsensitive) == 0) return &setting;
  return nullptr;
}

QString ReadStoredSetting(Business& business, const LocalSettings& local,
                          const StoredSetting& setting) {
  const auto section = QString::fromLatin1(setting.section);
  const auto name = QString::fromLatin1(setting.name);
  const auto ifMissing = QString::fromLatin1(setting.ifMissing);
  QString value;
  if (const char* table = TableOf(setting.place))
    value =
        business.LookupField(QStringLiteral("%1.%2").arg(QLatin1StringView(table), name)).ToText();
  else if (setting.place == SettingPlace::User)
    value = business.World().settings.Read(section, name, ifMissing);
  else
    value = local.ReadLocalSetting(section, name, ifMissing);
  if (setting.secret) return value.isEmpty() ? QString() : QStringLiteral("(set)");
  if (setting.kind == SettingKind::YesNo && TableOf(setting.place))
    return value == u"True" ? QStringLiteral("1") : QStringLiteral("0");
  return setting.kind == SettingKind::Day ? value.left(10) : value;
}

std::optional<Refusal> WriteStoredSetting(Business& business, LocalSettings& local,
                                          const StoredSetting& setting, const QString& value) {
  if (auto refusal = CheckStored(setting, value)) return refusal;
  const auto section = QString::fromLatin1(setting.section);
  const auto name = QString::fromLatin1(setting.name);
  if (const char* table = TableOf(setting.place)) {
    const Sql head =
        Statement(QStringLiteral("UPDATE %1 SET %2 = ").arg(QLatin1StringView(table), name));
    business.Write(head + Sql("{}", *TypedValue(setting.kind, value)), Rows::AtLeast(1));
  } else if (setting.place == SettingPlace::User) {
    business.World().settings.Write(section, name, value);
  } else {
    local.WriteLocalSetting(section, name, value);
  }
  return std::nullopt;
}

}  // namespace quillary::setup
