#include "setup/settings/MiscellaneousSettings.h"

namespace quillary::setup {
namespace {

constexpr int kLongestAdvance = 365;

QString UserSetting(const Business& business, const char* section, const char* key,
                    const QString& ifMissing = {}) {
  return business.World().settings.Read(QString::fromLatin1(section), QString::fromLatin1(key),
                                        ifMissing);
}

void SetUserSetting(const Business& business, const char* section, const char* key,
                    const QString& value) {
  business.World().settings.Write(QString::fromLatin1(section), QString::fromLatin1(key), value);
}

QString YesOrNo(bool yes) {
  return yes ? QStringLiteral("1") : QStringLiteral("0");
}

/// The percents of a stored fraction, without the noise of its single precision: "12.5".
QString PercentOf(const Value& fraction) {
  return QString::number(fraction.ToDouble() * 100, 'g', 6);
}

void LoadBusinessOptions(Business& business, MiscellaneousSettings& settings) {
  const Recordset options = business.RunSQL(
      Sql("SELECT GST_Percentage, Accounting_Method, Days_To_Advance_Schedule, EnableLogging, "
          "EnableOstrel4WebServices, CompactDatabaseBeforeUpload, AdobePath,CCEMailAddress,"
          "RecalculateClientAmtsOwingOnPrint, Default_Email_Message FROM infOptions"));
  if (options.HasRows()) {
    settings.taxPercent = PercentOf(options.Field(u"GST_Percentage"));
    settings.accrual = options.Field(u"Accounting_Method")
                           .ToText()
                           .compare(QStringLiteral("Accrual"), Qt::CaseInsensitive) == 0;
    settings.daysToAdvanceSchedule =
        QString::number(options.Field(u"Days_To_Advance_Schedule").ToLong());
    settings.enableLogging = options.Field(u"EnableLogging").ToBool();
    settings.enableOstrel4WebServices = options.Field(u"EnableOstrel4WebServices").ToBool();
    settings.compactDatabaseBeforeUpload = options.Field(u"CompactDatabaseBeforeUpload").ToBool();
    settings.adobePath = options.Field(u"AdobePath").ToText();
    settings.ccEmailAddress = options.Field(u"CCEmailAddress").ToText();
    settings.recalculateClientAmtsOwingOnPrint =
        options.Field(u"RecalculateClientAmtsOwingOnPrint").ToBool();
    settings.defaultEmailMessage = options.Field(u"Default_Email_Message").ToText();
  }
  const Recordset counters = business.RunSQL(Sql("SELECT * FROM infSystem;"));
  if (counters.HasRows()) {
    settings.invoiceNumber = counters.Field(u"Invoice_Number").ToText();
    settings.databaseVersion = counters.Field(u"Database_Version").ToText();
    settings.scheduleEnd = counters.Field(u"Last_Schedule_Ending").ToDate();
  }
}

void LoadUserSettings(const Business& business, MiscellaneousSettings& settings) {
  const auto isSet = [&](const char* key) {
    return UserSetting(business, "Form", key).toInt() != 0;
  };
  settings.showDatabaseSelection = isSet("Show DB Selection");
  settings.useButtonsInDiary = isSet("Use Buttons In Diary");
  settings.nameOrder = UserSetting(business, "Display Format", "Billing Name Format", "FS")
                                   .compare(u"SF", Qt::CaseInsensitive) == 0
                           ? NameOrder::SurnameFirst
                           : NameOrder::FirstNameFirst;
  settings.mailRoute =
      UserSetting(business, "Email", "Email Option", "MAPI").toUpper() == u"VBSENDMAIL"
          ? MailRoute::LocalMailClient
          : MailRoute::HeadOffice;
  settings.smtpHost = UserSetting(business, "Email", "SMTP Server");
  settings.smtpUserName = UserSetting(business, "Email", "SMTP UserName");
  settings.smtpPassword = UserSetting(business, "Email", "SMTP Password");
  settings.smtpSecurity = UserSetting(business, "Email", "SMTP Security");
  settings.printingFormat =
      UserSetting(business, "Invoices", "Invoice Printing Format", "WORD").toUpper() == u"PDF"
          ? PrintingFormat::Pdf
          : PrintingFormat::WordProcessor;
  settings.documentDesign =
      UserSetting(business, "Invoices", "Document Design", "CLASSIC").toUpper() == u"CLEAN"
          ? DocumentDesign::Clean
          : DocumentDesign::Classic;
}

/// Nothing for what is no number at all.
std::optional<double> NumberOf(const QString& typed) {
  bool isNumber = false;
  const double number = typed.trimmed().toDouble(&isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<Refusal> CheckNumber(const QString& typed, const char* field) {
  if (NumberOf(typed)) return std::nullopt;
  return Refusal{QStringLiteral("Please enter a valid numeric value."), QString::fromLatin1(field)};
}

void WriteOption(Business& business, const char* statement, const auto& value) {
  business.Write(Sql(statement, value), Rows::AtLeast(1));
}

void WriteBusinessOptions(Business& business, const MiscellaneousSettings& settings,
                          QStringList& notStored) {
  WriteOption(business, "UPDATE infOptions SET EnableLogging = {};", settings.enableLogging);
  WriteOption(business, "UPDATE infOptions SET EnableOstrel4WebServices = {};",
              settings.enableOstrel4WebServices);
  WriteOption(business, "UPDATE infOptions SET CompactDatabaseBeforeUpload = {};",
              settings.compactDatabaseBeforeUpload);
  WriteOption(business, "UPDATE infOptions SET Default_Email_Message = {};",
              settings.defaultEmailMessage);
  // These two are written as they were typed, so an apostrophe ends them early and the whole
  // statement comes to nothing.
  const auto writeAsTyped = [&](const char* statement, const QString& text, const char* name) {
    if (text.contains(u'\''))
      notStored += QString::fromLatin1(name);
    else
      WriteOption(business, statement, text);
  };
  writeAsTyped("UPDATE infOptions SET AdobePath = {};", settings.adobePath, "AdobePath");
  writeAsTyped("UPDATE infOptions SET CCEmailAddress = {};", settings.ccEmailAddress,
               "CCEmailAddress");
  WriteOption(business, "UPDATE infOptions SET RecalculateClientAmtsOwingOnPrint = {};",
              settings.recalculateClientAmtsOwingOnPrint);
}

void WriteUserSettings(const Business& business, const MiscellaneousSettings& settings) {
  SetUserSetting(business, "Form", "Show DB Selection", YesOrNo(settings.showDatabaseSelection));
  SetUserSetting(business, "Form", "Use Buttons In Diary", YesOrNo(settings.useButtonsInDiary));
  SetUserSetting(business, "Display Format", "Billing Name Format",
                 settings.nameOrder == NameOrder::SurnameFirst ? "SF" : "FS");
  SetUserSetting(business, "Email", "Email Option",
                 settings.mailRoute == MailRoute::LocalMailClient ? "VBSENDMAIL" : "MAPI");
  SetUserSetting(business, "Email", "SMTP Server", settings.smtpHost);
  SetUserSetting(business, "Email", "SMTP UserName", settings.smtpUserName);
  SetUserSetting(business, "Email", "SMTP Password", settings.smtpPassword);
  SetUserSetting(business, "Email", "SMTP Security", settings.smtpSecurity);
  SetUserSetting(business, "Invoices", "Invoice Printing Format",
                 settings.printingFormat == PrintingFormat::Pdf ? "PDF" : "WORD");
  SetUserSetting(business, "Invoices", "Document Design",
                 settings.documentDesign == DocumentDesign::Clean ? "CLEAN" : "CLASSIC");
}

void TakeIntoSharedValues(Business& business, const MiscellaneousSettings& settings,
                          const QStringList& notStored) {
  SharedValues& values = business.values;
  values.gstPercentage = static_cast<float>(*NumberOf(settings.taxPercent) * 0.01);
  values.daysToAdvanceSchedule = settings.daysToAdvanceSchedule.trimmed().toInt();
  values.accountingMethod = settings.accrual ? QStringLiteral("Accrual") : QStringLiteral("Cash");
  values.enableLogging = settings.enableLogging;
  values.enableOstrel4WebServices = settings.enableOstrel4WebServices;
  values.compactDatabaseBeforeUpload = settings.compactDatabaseBeforeUpload;
  if (!notStored.contains(u"AdobePath")) values.adobePath = settings.adobePath;
  if (!notStored.contains(u"CCEmailAddress")) values.ccEmailAddress = settings.ccEmailAddress;
  values.recalculateClientAmtsOwingOnPrint = settings.recalculateClientAmtsOwingOnPrint;
  values.emailOption = settings.mailRoute == MailRoute::LocalMailClient
                           ? QStringLiteral("VBSENDMAIL")
                           : QStringLiteral("MAPI");
  values.invoicePrintingFormat = settings.printingFormat == PrintingFormat::Pdf
                                     ? QStringLiteral("PDF")
                                     : QStringLiteral("WORD");
  values.documentDesign = settings.documentDesign == DocumentDesign::Clean
                              ? QStringLiteral("CLEAN")
                              : QStringLiteral("CLASSIC");
}

}  // namespace

MiscellaneousSettings LoadMiscellaneousSettings(Business& business) {
  MiscellaneousSettings settings;
  LoadBusinessOptions(business, settings);
  LoadUserSettings(business, settings);
  return settings;
}

std::optional<Refusal> CheckDaysToAdvance(const QString& typed) {
  if (auto refusal = CheckNumber(typed, "daysToAdvanceSchedule")) return refusal;
  const double days = *NumberOf(typed);
  if (days >= 1 && days <= kLongestAdvance) return std::nullopt;
  return Refusal{QStringLiteral("Please enter a value between 1 to 365."),
                 QStringLiteral("daysToAdvanceSchedule")};
}

std::optional<Refusal> CheckMiscellaneousSettings(const MiscellaneousSettings& settings) {
  if (auto refusal = CheckNumber(settings.taxPercent, "taxPercent")) return refusal;
  if (auto refusal = CheckDaysToAdvance(settings.daysToAdvanceSchedule)) return refusal;
  if (auto refusal = CheckNumber(settings.invoiceNumber, "invoiceNumber")) return refusal;
  return CheckNumber(settings.databaseVersion, "databaseVersion");
}

QStringList SaveMiscellaneousSettings(Business& business, const MiscellaneousSettings& settings,
                                      const QString& logFile) {
  QStringList notStored;
  Transaction save(business);
  business.Write(
      Sql("UPDATE infOptions SET GST_Percentage = {}, Days_To_Advance_Schedule = {}, "
          "Accounting_Method = {}; ",
          *NumberOf(settings.taxPercent) * 0.01, settings.daysToAdvanceSchedule.trimmed().toInt(),
          settings.accrual ? "Accrual" : "Cash"),
      Rows::AtLeast(1));
  business.Write(Sql("UPDATE infSystem SET Invoice_Number = {}, Database_Version = {};",
                     settings.invoiceNumber.trimmed(), settings.databaseVersion.trimmed()),
                 Rows::AtLeast(1));
  WriteBusinessOptions(business, settings, notStored);
  std::optional<QDate> scheduleEnd;
  if (settings.scheduleEnd.isValid()) scheduleEnd = settings.scheduleEnd;
  business.Write(Sql("UPDATE infSystem SET Last_Schedule_Ending = {};", scheduleEnd),
                 Rows::AtLeast(1));
  save.Commit();
  WriteUserSettings(business, settings);
  TakeIntoSharedValues(business, settings, notStored);
  business.World().headOffice.SetLogFile(settings.enableLogging ? logFile : QString());
  return notStored;
}

}  // namespace quillary::setup
