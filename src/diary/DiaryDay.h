#pragma once

#include "base/Money.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The list behind the diary screen.
namespace quillary::diary {

struct DiaryQuery {
  QDate from;
  QDate to;
  std::optional<qint64> employeeId;  // nothing: all
  bool bySuburbPosition = false;
};

/// The hue of a row. Paid wins over every status.
enum class DiaryRowColour { Open, Visit, Cancelled, Done, Paid };

/// What colours an entry.
DiaryRowColour ColourOfEntry(const QString& status, bool isPaid);
/// 'JD' for 'JD', 'JU' and 'JP'; otherwise the code.
QString FoldedStatus(const QString& status);
/// The words of a stored code in a list of entries, such as "Job DONE NOT PAID".
QString EntryStatusWords(const QString& status);

struct DiaryRow {
  int sequence = 0;
  qint64 diaryId = 0;
  qint64 clientId = 0;
  qint64 billingClientId = 0;
  QString displayName;
  QString address;  // suburb, post code, street, number
  QString phones;
  QString description;
  Money totalPrice;
  QString status;  // the stored code; ShownStatus() is the folded one
  qint64 employeeId = 0;
  qint64 invoiceId = -1;  // -1 for none
  QDate scheduleDate;
  qint64 paymentId = -1;  // -1 for none

  QString ShownStatus() const;
  QString StatusWords() const;
  DiaryRowColour Colour() const;
};

struct DiaryList {
  std::vector<DiaryRow> rows;
  Money totalAmountOfJobs;  // of jobs open, done or invoiced, tax included
  int totalNoOfJobs = 0;
  bool someHaveNoEmployee = false;
};

/// A range whose start lies after its end.
inline constexpr char kInvalidDateRange[] = "Please enter a valid date range.";

/// The entries of the days, each once, in the order of the diary screen. Entries of today or later
/// of a client that is cancelled neither show nor count. Throws std::invalid_argument with
/// kInvalidDateRange.
DiaryList LoadDiary(Business& business, const DiaryQuery& query);

/// The words for a status code, as the diary's own list has them; the code itself when unknown.
QString DiaryStatusWords(const QString& status);

/// Writes the new status to the entry.
void ChangeJobStatus(Business& business, qint64 diaryId, const QString& status);

/// Writes the place of an entry within its day.
void ChangeSequence(Business& business, qint64 diaryId, int sequence);
/// Numbers the entries from 1 in the order given.
void StoreSequence(Business& business, const std::vector<qint64>& diaryIds);
void ChangeEmployee(Business& business, qint64 diaryId, qint64 employeeId);
/// Takes a job off the payment it was added to; the payment itself stays.
void TakeOffPayment(Business& business, qint64 diaryId);

/// Marks a job done and unpaid: 'JD'. When the job had been added to a payment, asks whether to
/// take it off that payment.
void MarkDoneUnpaid(Business& business, Prompter& prompter, qint64 diaryId);

}  // namespace quillary::diary
