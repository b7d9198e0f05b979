#include "accounts/yearend/PreviousRecords.h"

#include "base/Text.h"
#include "data/ActivityLog.h"

namespace quillary::accounts {
namespace {

/// A kind of records: how many of them lie in the days and what they come to, and their deletion.
struct RecordKind {
  const char* what;
  const char* count;
  const char* deletion;
};
constexpr RecordKind kKinds[] = {
    {"jobs",
     "SELECT COUNT(*), SUM(Total_Price) FROM Diary WHERE Schedule_date >= {} AND Schedule_date <= "
     "{}",
     "DELETE FROM Diary WHERE Schedule_date >= {} AND Schedule_date <= {}"},
    {"payments",
     "SELECT COUNT(*), SUM(Amount) FROM Payments WHERE Payment_Date >= {} AND Payment_Date <= {}",
     "DELETE FROM Payments WHERE Payment_Date >= {} AND Payment_Date <= {}"},
    {"purchases",
     "SELECT COUNT(*), SUM(Amount) FROM Purchases WHERE Purchase_date >= {} AND Purchase_date <= "
     "{}",
     "DELETE FROM Purchases WHERE Purchase_date >= {} AND Purchase_date <= {}"},
    {"invoices",
     "SELECT COUNT(*), SUM(Total_Amount) FROM Invoices WHERE From_Date >= {} AND To_Date <= {}",
     "DELETE FROM Invoices WHERE From_Date >= {} AND To_Date <= {}"},
    {"invoice items",
     "SELECT COUNT(*), SUM(Item_Amount) FROM Invoice_Items WHERE Item_date >= {} AND Item_date <= "
     "{}",
     "DELETE FROM Invoice_Items WHERE Item_date >= {} AND Item_date <= {}"},
    {"deposits",
     "SELECT COUNT(*), SUM(Total_Banked) FROM Bankings WHERE Banking_date >= {} AND Banking_date "
     "<= {}",
     "DELETE FROM Bankings WHERE Banking_date >= {} AND Banking_date <= {}"},
};

}  // namespace

QString WordsOf(const std::vector<RepairCount>& counts) {
  QStringList lines;
  for (const RepairCount& count : counts) {
    if (count.rows == 0) continue;
    QString line = QStringLiteral("%1 %2").arg(count.rows).arg(count.what);
    if (count.amount) line += QStringLiteral(", ") + count.amount->ToCurrencyText();
    lines += line;
  }
  return lines.isEmpty() ? QStringLiteral("Nothing to do.") : lines.join(u'\n');
}

std::vector<RepairCount> CountPreviousRecords(Business& business, const DateRange& days) {
  std::vector<RepairCount> counts;
  for (const RecordKind& kind : kKinds)
    for (const Record row : business.RunSQL(Sql(kind.count, days.from, days.to)))
      counts.push_back({QString::fromLatin1(kind.what), static_cast<int>(row[size_t{0}].ToLong()),
                        row[1].ToMoney()});
  return counts;
}

void DeletePreviousRecords(Business& business, const DateRange& days) {
  Transaction deletion(business);
  std::vector<qint64> jobs;
  for (const Record row :
       business.RunSQL(Sql("SELECT * FROM Diary WHERE Schedule_date >= {} AND Schedule_date <= {}",
                           days.from, days.to)))
    jobs.push_back(row[u"Diary_ID"].ToLong());
  for (const qint64 job : jobs)
    business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", job));
  for (const RecordKind& kind : kKinds) business.Write(Sql(kind.deletion, days.from, days.to));
  deletion.Commit();
}

QString BackupWarning() {
  return QStringLiteral(
      "Please make sure you have a backup copy of your database before doing this as this may "
      "cause undesired result.");
}

bool MayDeletePreviousRecords(Prompter& prompter) {
  return prompter.AskBeforeLosing(
             BackupWarning() +
             QStringLiteral(
                 "\n\nAre you sure you want to delete previous financial year records?\n"
                 "(These records include Jobs, Payments, Invoices that definitely affect Amount "
                 "Owing of clients.)")) == Answer::Yes;
}

bool DeletePreviousRecordsAfterAsking(Business& business, Prompter& prompter,
                                      const DateRange& days) {
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you really sure you want to delete records from %1 to %2?\n\n%3")
          .arg(ToShortDateText(days.from), ToShortDateText(days.to),
               WordsOf(CountPreviousRecords(business, days))));
  if (answer != Answer::Yes) return false;
  LogActivity(business, QStringLiteral("Delete Previous Financial Records"));
  {
    const BusyWhile busy(business.World().busy);
    DeletePreviousRecords(business, days);
    business.PastCommands().Describe(
        QStringLiteral("Previous records deleted: %1 to %2")
            .arg(ToShortDateText(days.from), ToShortDateText(days.to)));
  }
  prompter.Tell(
      Tone::Information,
      QStringLiteral("Done.\n\nYou might need to run the function re-calculate amount owing "
                     "option."));
  return true;
}

}  // namespace quillary::accounts
