#include "diary/DiaryDay.h"

#include <QHash>
#include <QSet>

#include <array>
#include <stdexcept>

namespace quillary::diary {
namespace {

struct StatusWord {
  const char16_t* code;
  const char16_t* listed;  // in the list from which a status is chosen
  const char16_t* shown;   // beside an entry
};

constexpr std::array kStatusWords = {
    StatusWord{u"J", u"Job NOT DONE", u"Job NOT DONE"},
    StatusWord{u"JD", u"Job DONE", u"Job DONE"},
    StatusWord{u"JU", u"Job DONE NOT PAID", u"Job DONE NOT PAID"},
    StatusWord{u"JP", u"Job DONE AND PAID", u"Job DONE AND PAID"},
    StatusWord{u"JI", u"Job Invoiced", u"Job INVOICED"},
    StatusWord{u"JC", u"Job CANCELLED", u"Job CANCELLED"},
    StatusWord{u"V", u"Visit NOT DONE", u"Visit"},
    StatusWord{u"VD", u"Visit DONE", u"Visit DONE"},
    StatusWord{u"VC", u"Visit CANCELLED", u"Visit CANCELLED"},
    StatusWord{u"Q", u"QUOTE", u"QUOTE"},
    StatusWord{u"QP", u"Quote PENDING", u"Quote PENDING"},
    StatusWord{u"QA", u"Quote ACCEPTED", u"Quote ACCEPTED"},
    StatusWord{u"QR", u"Quote REJECTED", u"Quote REJECTED"},
};

QString WordsOf(const QString& status, const char16_t* StatusWord::*words) {
  for (const StatusWord& word : kStatusWords) {
    if (status.compare(QStringView(word.code), Qt::CaseInsensitive) == 0) {
      return QString::fromUtf16(word.*words);
    }
  }
  return status;
}

bool IsOneOf(const QString& status, std::initializer_list<const char16_t*> codes) {
  for (const char16_t* code : codes) {
    if (status.compare(QStringView(code), Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

Sql DiaryStatement(const DiaryQuery& query) {
  Sql statement(
      "SELECT Diary.Sequence, Diary.Diary_ID, Diary.Employee_ID, Diary.Status, Diary.Payment_ID, "
      "Clients.Client_ID, Clients.Billing_Client_ID, Clients.Display_Name, Clients.Suburb, "
      "Clients.Post_Code, Clients.Street, Clients.Street_Number, Clients.Phone_1, "
      "Clients.Phone_2, Clients.Status AS Client_Status, Diary.Schedule_Date, "
      "Diary.Description, Diary.Total_Price, Diary.Invoice_ID "
      "FROM ((Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
      "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
      "LEFT JOIN Suburb_Position ON Clients.Suburb = Suburb_Position.Suburb_Name "
      "WHERE Schedule_Date BETWEEN {} AND {} ",
      query.from, EndOfDay(query.to));
  if (query.employeeId)
    statement = statement + Sql(" AND Diary.Employee_ID = {} ", *query.employeeId);
  return statement +
         (query.bySuburbPosition
              ? Sql(" ORDER BY Suburb_Position.Position, Diary.Sequence, Diary.Diary_ID; ")
              : Sql(" ORDER BY Diary.Sequence, Diary.Client_ID, Diary_Services.Service_ID, "
                    "Diary.Diary_ID;"));
}

QString Joined(QStringList parts, const QString& separator) {
  parts.removeAll(QString());
  return parts.join(separator);
}

DiaryRow RowOf(const Record& record) {
  const auto text = [&](const char16_t* column) { return record[column].ToText(); };
  DiaryRow row;
  row.sequence = static_cast<int>(record[u"Sequence"].ToLong());
  row.diaryId = record[u"Diary_ID"].ToLong();
  row.clientId = record[u"Client_ID"].ToLong();
  row.billingClientId = record[u"Billing_Client_ID"].ToLong();
  row.displayName = text(u"Display_Name").trimmed();
  row.address =
      Joined({text(u"Suburb"), text(u"Post_Code"), text(u"Street"), text(u"Street_Number")},
             QStringLiteral(" "));
  row.phones = Joined({text(u"Phone_1"), text(u"Phone_2")}, QStringLiteral("; "));
  row.description = text(u"Description");
  row.totalPrice = record[u"Total_Price"].ToMoney();
  row.status = text(u"Status");
  row.employeeId = record[u"Employee_ID"].ToLong();
  row.invoiceId = record[u"Invoice_ID"].ToLong(-1);
  row.scheduleDate = record[u"Schedule_Date"].ToDate();
  row.paymentId = record[u"Payment_ID"].ToLong(-1);
  return row;
}

}  // namespace

QString FoldedStatus(const QString& status) {
  return IsOneOf(status, {u"JD", u"JU", u"JP"}) ? QStringLiteral("JD") : status;
}

QString DiaryRow::ShownStatus() const {
  return FoldedStatus(status);
}

DiaryRowColour DiaryRow::Colour() const {
  return ColourOfEntry(status, paymentId != -1);
}

QString EntryStatusWords(const QString& status) {
  return WordsOf(status, &StatusWord::shown);
}

QString DiaryRow::StatusWords() const {
  return EntryStatusWords(status);
}

DiaryRowColour ColourOfEntry(const QString& status, bool isPaid) {
  if (isPaid) return DiaryRowColour::Paid;
  if (IsOneOf(status, {u"J"})) return DiaryRowColour::Open;
  if (IsOneOf(status, {u"JC"})) return DiaryRowColour::Cancelled;
  if (status.startsWith(u'V', Qt::CaseInsensitive)) return DiaryRowColour::Visit;
  return DiaryRowColour::Done;
}

QString DiaryStatusWords(const QString& status) {
  return WordsOf(status, &StatusWord::listed);
}

DiaryList LoadDiary(Business& business, const DiaryQuery& query) {
  if (query.from > query.to) throw std::invalid_argument(kInvalidDateRange);
  const BusyWhile busy(business.World().busy);
  const QDate today = business.Today();
  DiaryList list;
  QSet<qint64> seen;
  // The join with the lines repeats an entry for each of them.
  for (const Record record : business.RunSQL(DiaryStatement(query))) {
    const qint64 diaryId = record[u"Diary_ID"].ToLong();
    if (seen.contains(diaryId)) continue;
    seen.insert(diaryId);
    DiaryRow row = RowOf(record);
    const bool clientHasLeft = record[u"Client_Status"].ToText().toUpper() == u"CANCELLED";
    if (clientHasLeft && row.scheduleDate >= today) continue;
    if (IsOneOf(row.status, {u"J", u"JP", u"JU", u"JD", u"JI"})) {
      list.totalAmountOfJobs += row.totalPrice;
      ++list.totalNoOfJobs;
    }
    list.someHaveNoEmployee |= row.employeeId == 0;
    list.rows.push_back(std::move(row));
  }
  return list;
}

void ChangeJobStatus(Business& business, qint64 diaryId, const QString& status) {
  business.RunSQL(Sql("UPDATE Diary SET Status = {} WHERE Diary_ID = {}", status, diaryId));
}

void ChangeSequence(Business& business, qint64 diaryId, int sequence) {
  business.RunSQL(Sql("UPDATE Diary SET Sequence = {} WHERE Diary_ID = {};", sequence, diaryId));
}

void StoreSequence(Business& business, const std::vector<qint64>& diaryIds) {
  Transaction order(business);
  int sequence = 0;
  for (const qint64 diaryId : diaryIds) ChangeSequence(business, diaryId, ++sequence);
  order.Commit();
}

void ChangeEmployee(Business& business, qint64 diaryId, qint64 employeeId) {
  business.RunSQL(
      Sql("UPDATE Diary SET Employee_ID = {} WHERE Diary_ID = {};", employeeId, diaryId));
}

void TakeOffPayment(Business& business, qint64 diaryId) {
  business.RunSQL(Sql("UPDATE Diary SET Payment_ID = NULL WHERE Diary_ID = {}", diaryId));
}

void MarkDoneUnpaid(Business& business, Prompter& prompter, qint64 diaryId) {
  const qint64 paymentId =
      business.FirstField(Sql("SELECT Payment_ID FROM Diary WHERE Diary_ID = {}", diaryId))
          .ToLong();
  ChangeJobStatus(business, diaryId, QStringLiteral("JD"));
  if (paymentId <= 0) return;
  const Answer answer = prompter.Ask(
      QStringLiteral("This job has been paid.\nPlease note that this job will only be taken off "
                     "from the payment and not actually delete the payment record?\n\nContinue?"));
  if (answer == Answer::Yes) TakeOffPayment(business, diaryId);
}

}  // namespace quillary::diary
