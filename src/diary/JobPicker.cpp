#include "diary/JobPicker.h"

#include "domain/Payer.h"

#include <QLocale>

namespace quillary::diary {

std::vector<MonthChoice> ListPickerMonths(QDate today) {
  std::vector<MonthChoice> months;
  const QLocale english = QLocale::c();
  for (QDate first(today.year() - 1, 1, 1); first.year() <= today.year() + 1;
       first = first.addMonths(1)) {
    months.push_back(
        {english.toString(first, QStringLiteral("MMMM yyyy")), DateRange::MonthOf(first)});
  }
  return months;
}

std::optional<size_t> PickerMonthOf(QDate today, QDate date) {
  const std::vector<MonthChoice> months = ListPickerMonths(today);
  for (size_t month = 0; month < months.size(); ++month) {
    if (months[month].days.Contains(date)) return month;
  }
  return std::nullopt;
}

QString PickableJob::HasInvoiceWord() const {
  return invoice ? QStringLiteral("Yes") : QStringLiteral("No");
}

std::vector<PickableJob> ListPickableJobs(Business& business, Id<Client> payer,
                                          const DateRange& days) {
  std::vector<PickableJob> jobs;
  for (const Record row :
       business.RunSQL(Sql("SELECT Clients.Display_Name, Diary.Diary_ID, Diary.Description, "
                           "Diary.Schedule_Date, Diary.Total_Price, Diary.Total_GST, Diary.Status, "
                           "Diary.Invoice_ID "
                           "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
                           "WHERE Schedule_Date BETWEEN {} AND {} AND Diary.Status IN {} AND {} "
                           "ORDER BY Clients.Display_Name, Schedule_Date, Diary.Diary_ID;",
                           days.from, EndOfDay(days.to), CodesOf(EntryGroup::LiveJobs),
                           IsPaidBy("Clients", payer)))) {
    jobs.push_back({.entry = Id<Entry>(row[u"Diary_ID"].ToLong()),
                    .displayName = row[u"Display_Name"].ToText(),
                    .description = row[u"Description"].ToText(),
                    .scheduleDate = row[u"Schedule_Date"].ToDate(),
                    .totalPrice = row[u"Total_Price"].ToMoney(),
                    .totalGST = row[u"Total_GST"].ToMoney(),
                    .status = StoredEntryStatus(row[u"Status"].ToText()),
                    .invoice = row[u"Invoice_ID"].ToId<Invoice>()});
  }
  return jobs;
}

}  // namespace quillary::diary
