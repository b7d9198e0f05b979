#include "roll/DiaryEntries.h"

#include "domain/TaxRate.h"
#include "roll/Trap.h"

namespace quillary::roll {
namespace {

// Only blanks count as nothing here; a note that is a mere line break is still a note.
QString TrimBlanks(const QString& text) {
  qsizetype from = 0;
  qsizetype to = text.size();
  while (from < to && text[from] == u' ') ++from;
  while (to > from && text[to - 1] == u' ') --to;
  return text.mid(from, to - from);
}

}  // namespace

QString JoinDescription(const QString& description, const QString& serviceCode) {
  const bool isFirst = TrimBlanks(description).isEmpty();
  return TrimBlanks(description + (isFirst ? QString() : QStringLiteral(", ")) + serviceCode);
}

QString JoinNotes(const QString& notes, const QString& more) {
  return notes + (TrimBlanks(notes).isEmpty() ? QString() : QStringLiteral(" /// ")) + more;
}

bool IsServiceScheduledForTheDay(Business& business, qint64 clientId, qint64 serviceId,
                                 QDate scheduleDate) {
  if (!scheduleDate.isValid()) return false;
  bool scheduled = false;
  PassOverErrors(business, QStringLiteral("IsServiceScheduledForTheDay"), [&] {
    scheduled = !business
                     .RunSQL(Sql("SELECT Diary.Client_ID, Diary.Schedule_Date, "
                                 "Diary_Services.Service_ID "
                                 "FROM Diary INNER JOIN Diary_Services "
                                 "ON Diary.Diary_ID = Diary_Services.Diary_ID "
                                 "WHERE Client_ID = {} AND Service_ID = {} AND Schedule_Date = {}",
                                 clientId, serviceId, scheduleDate))
                     .EndOfFile();
  });
  return scheduled;
}

std::optional<qint64> FindDiaryEntry(Business& business, qint64 clientId, qint64 employeeId,
                                     const QString& status, QDate scheduleDate) {
  const Recordset entries =
      business.RunSQL(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Schedule_Date = {} "
                          "AND Employee_ID = {} AND Status = {} ORDER BY Diary_ID;",
                          clientId, scheduleDate, employeeId, status));
  if (entries.EndOfFile()) return std::nullopt;
  return entries.Field(size_t{0}).ToLong();
}

int HighestSequence(Business& business, QDate scheduleDate) {
  const Recordset highest =
      business.RunSQL(Sql("SELECT IIF(MAX(Sequence) IS NULL, 0, MAX(Sequence)) FROM Diary "
                          "WHERE Schedule_Date = {}; ",
                          scheduleDate));
  return highest.EndOfFile() ? 0 : static_cast<int>(highest.Field(size_t{0}).ToLong());
}

qint64 SetUpDiaryEntryGetDiaryID(Business& business, qint64 clientId, qint64 employeeId,
                                 const QString& status, QDate scheduleDate) {
  const QString procedure = QStringLiteral("SetUpDiaryEntryGetDiaryID");
  std::optional<qint64> found;
  PassOverErrors(business, procedure, [&] {
    found = FindDiaryEntry(business, clientId, employeeId, status, scheduleDate);
  });
  if (found) return *found;

  int sequence = 1;
  PassOverErrors(business, procedure,
                 [&] { sequence = HighestSequence(business, scheduleDate) + 1; });
  business.RunSQL(
      Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
          "Total_Price, Total_GST, Time_Requested, Estimated_Minutes, Sequence, Notes) "
          "VALUES ({}, {}, {}, {}, null, 0, 0, 0, 0, {}, null);",
          clientId, employeeId, status, scheduleDate, sequence));
  qint64 diaryId = 0;
  PassOverErrors(business, procedure, [&] {
    diaryId = business.FirstField(Sql("SELECT MAX(Diary_ID) FROM Diary; ")).ToLong();
  });
  return diaryId;
}

void SetUpDiaryServiceEntry(Business& business, qint64 diaryId, qint64 serviceId,
                            const QString& serviceCode, Money price, const QString& notes,
                            int frequency) {
  QString description;
  QString entryNotes;
  PassOverErrors(business, QStringLiteral("SetUpDiaryServiceEntry"), [&] {
    const Recordset entry =
        business.RunSQL(Sql("SELECT Description, Notes FROM Diary WHERE Diary_ID = {}; ", diaryId));
    if (entry.EndOfFile()) return;
    description = entry.Field(u"Description").ToText();
    entryNotes = entry.Field(u"Notes").ToText();
  });
  const Money gst = TaxRate::Of(business).CalculateGSTComponent(price);
  business.RunSQL(
      Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST, Frequency) "
          "VALUES ({}, {}, {}, {}, {}); ",
          diaryId, serviceId, price, gst, frequency));
  business.RunSQL(
      Sql("UPDATE Diary SET Description = {}, Notes = {}, "
          "Total_Price = Total_Price + {}, Total_GST = Total_GST + {} "
          "WHERE Diary_ID = {}; ",
          JoinDescription(description, serviceCode), JoinNotes(entryNotes, notes), price, gst,
          diaryId));
}

void RecalculateDiaryEntryGST(Business& business, qint64 diaryId) {
  try {
    const TaxRate rate = TaxRate::StoredIn(business);
    Transaction recalculation(business);
    business.RunSQL(Sql("UPDATE Diary_Services SET GST = {} WHERE Diary_ID = {}; ",
                        rate.InsideByWholePercent("Price"), diaryId));
    const Recordset sum = business.RunSQL(
        Sql("SELECT Diary_ID, SUM(GST) AS G FROM Diary_Services WHERE Diary_ID = {} "
            "GROUP BY Diary_ID;",
            diaryId));
    if (!sum.EndOfFile())
      business.RunSQL(Sql("UPDATE Diary SET Total_GST = {} WHERE Diary_ID = {}; ",
                          sum.Field(u"G").ToMoney().Rounded(2), diaryId));
    recalculation.Commit();
  } catch (const StorageFailure&) {
    throw;
  } catch (const std::exception& error) {
    business.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(error.what()));
  }
}

}  // namespace quillary::roll
