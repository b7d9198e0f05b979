#include "roll/DiaryEntries.h"

#include "domain/TaxRate.h"

namespace quillary::roll {
namespace {

// Runs one step of a routine. A failure goes to the error screen under the routine's name and is
// passed over, so that one bad row does not stop the rest; a failure of the store is thrown on,
// because nothing that follows it could be trusted.
template <typename Step>
void PassOverErrors(Business& business, const QString& procedure, Step&& step) {
  try {
    step();
  } catch (const StorageFailure&) {
    throw;
  } catch (const std::exception& error) {
    business.World().errors.Report(QStringLiteral("Crunchers"), procedure, error);
  }
}

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

bool IsServiceScheduledForTheDay(Business& business, Id<Client> client,
                                 std::optional<Id<Service>> service, QDate scheduleDate) {
  if (!scheduleDate.isValid()) return false;
  bool scheduled = false;
  PassOverErrors(business, QStringLiteral("IsServiceScheduledForTheDay"), [&] {
    scheduled = !business
                     .RunSQL(Sql("SELECT Diary.Client_ID, Diary.Schedule_Date, "
                                 "Diary_Services.Service_ID "
                                 "FROM Diary INNER JOIN Diary_Services "
                                 "ON Diary.Diary_ID = Diary_Services.Diary_ID "
                                 "WHERE Client_ID = {} AND Service_ID = {} AND Schedule_Date = {}",
                                 client, NumberOrZero(service), scheduleDate))
                     .EndOfFile();
  });
  return scheduled;
}

std::optional<Id<Entry>> FindDiaryEntry(Business& business, Id<Client> client,
                                        std::optional<Id<Employee>> employee,
                                        const StoredEntryStatus& status, QDate scheduleDate) {
  return business
      .FirstField(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Schedule_Date = {} "
                      "AND Employee_ID = {} AND Status = {} ORDER BY Diary_ID;",
                      client, scheduleDate, NumberOrZero(employee), status))
      .ToId<Entry>();
}

int HighestSequence(Business& business, QDate scheduleDate) {
  const Recordset highest =
      business.RunSQL(Sql("SELECT IIF(MAX(Sequence) IS NULL, 0, MAX(Sequence)) FROM Diary "
                          "WHERE Schedule_Date = {}; ",
                          scheduleDate));
  return highest.EndOfFile() ? 0 : static_cast<int>(highest.Field(size_t{0}).ToLong());
}

std::optional<Id<Entry>> SetUpDiaryEntryGetDiaryID(Business& business, Id<Client> client,
                                                   std::optional<Id<Employee>> employee,
                                                   const StoredEntryStatus& status,
                                                   QDate scheduleDate) {
  const QString procedure = QStringLiteral("SetUpDiaryEntryGetDiaryID");
  std::optional<Id<Entry>> entry;
  PassOverErrors(business, procedure,
                 [&] { entry = FindDiaryEntry(business, client, employee, status, scheduleDate); });
  if (entry) return entry;

  int sequence = 1;
  PassOverErrors(business, procedure,
                 [&] { sequence = HighestSequence(business, scheduleDate) + 1; });
  PassOverErrors(business, procedure, [&] {
    entry = business.InsertReturningKey<Entry>(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Total_GST, Time_Requested, Estimated_Minutes, Sequence, Notes) "
            "VALUES ({}, {}, {}, {}, null, 0, 0, 0, 0, {}, null);",
            client, NumberOrZero(employee), status, scheduleDate, sequence));
  });
  return entry;
}

void SetUpDiaryServiceEntry(Business& business, Id<Entry> entry, std::optional<Id<Service>> service,
                            const QString& serviceCode, Money price, const QString& notes,
                            int frequency) {
  QString description;
  QString entryNotes;
  PassOverErrors(business, QStringLiteral("SetUpDiaryServiceEntry"), [&] {
    const Recordset row =
        business.RunSQL(Sql("SELECT Description, Notes FROM Diary WHERE Diary_ID = {}; ", entry));
    if (row.EndOfFile()) return;
    description = row.Field(u"Description").ToText();
    entryNotes = row.Field(u"Notes").ToText();
  });
  const Money gst = TaxRate::Of(business).CalculateGSTComponent(price);
  // In silence, both: each is to be done whether the other can be or not.
  business.RunSQL(
      Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST, Frequency) "
          "VALUES ({}, {}, {}, {}, {}); ",
          entry, NumberOrZero(service), price, gst, frequency));
  business.RunSQL(Sql(
      "UPDATE Diary SET Description = {}, Notes = {}, "
      "Total_Price = Total_Price + {}, Total_GST = Total_GST + {} "
      "WHERE Diary_ID = {}; ",
      JoinDescription(description, serviceCode), JoinNotes(entryNotes, notes), price, gst, entry));
}

void RecalculateDiaryEntryGST(Business& business, Id<Entry> entry) {
  try {
    const TaxRate rate = TaxRate::StoredIn(business);
    Transaction recalculation(business);
    business.Write(Sql("UPDATE Diary_Services SET GST = {} WHERE Diary_ID = {}; ",
                       rate.InsideByWholePercent("Price"), entry));
    const Recordset sum = business.RunSQL(
        Sql("SELECT Diary_ID, SUM(GST) AS G FROM Diary_Services WHERE Diary_ID = {} "
            "GROUP BY Diary_ID;",
            entry));
    if (!sum.EndOfFile())
      business.Write(Sql("UPDATE Diary SET Total_GST = {} WHERE Diary_ID = {}; ",
                         sum.Field(u"G").ToMoney().Rounded(2), entry),
                     Rows::Exactly(1));
    recalculation.Commit();
  } catch (const StorageFailure&) {
    throw;
  } catch (const std::exception& error) {
    business.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(error.what()));
  }
}

}  // namespace quillary::roll
