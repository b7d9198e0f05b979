#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>

/// The options of the business, its counters, and what this user chose for mail, printing and
/// screens.
namespace quillary::setup {

enum class NameOrder { FirstNameFirst, SurnameFirst };
/// By which way documents leave; the stored words no longer describe the choice.
enum class MailRoute { HeadOffice, LocalMailClient };  // stored as "MAPI" and "VBSENDMAIL"
enum class PrintingFormat { WordProcessor, Pdf };      // stored as "WORD" and "PDF"
enum class DocumentDesign { Classic, Clean };          // of PDF files, stored in capitals

struct MiscellaneousSettings {
  // Of the business.
  QString taxPercent;  // as typed: "10" is ten percent
  QString daysToAdvanceSchedule;
  bool accrual = false;  // otherwise by cash
  QString invoiceNumber;
  QString databaseVersion;
  QDate scheduleEnd;
  bool enableLogging = false;
  bool enableOstrel4WebServices = false;
  bool compactDatabaseBeforeUpload = false;
  QString defaultEmailMessage;
  QString adobePath;
  QString ccEmailAddress;
  bool recalculateClientAmtsOwingOnPrint = false;

  // Of this user.
  bool showDatabaseSelection = false;
  bool useButtonsInDiary = false;
  NameOrder nameOrder = NameOrder::FirstNameFirst;
  MailRoute mailRoute = MailRoute::HeadOffice;
  QString smtpHost;
  QString smtpUserName;
  QString smtpPassword;
  QString smtpSecurity;  // "starttls", "tls", "none"; empty for what is usual on the port
  PrintingFormat printingFormat = PrintingFormat::WordProcessor;
  DocumentDesign documentDesign = DocumentDesign::Classic;
};

MiscellaneousSettings LoadMiscellaneousSettings(Business& business);

/// What a number of days that the schedule is advanced by has to be: 1 to 365.
std::optional<Refusal> CheckDaysToAdvance(const QString& typed);
std::optional<Refusal> CheckMiscellaneousSettings(const MiscellaneousSettings& settings);

/// Writes what belongs to the business in one transaction, then what belongs to the user, then the
/// shared values, so that open screens go by the new settings at once. `logFile` is where the log
/// goes when logging is on. Returns the names of texts that were not stored: one with an apostrophe
/// keeps its old value. Throws WriteFailed.
QStringList SaveMiscellaneousSettings(Business& business, const MiscellaneousSettings& settings,
                                      const QString& logFile);

}  // namespace quillary::setup
