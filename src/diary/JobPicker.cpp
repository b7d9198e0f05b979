#include "diary/JobPicker.h"

#include <QLocale>

namespace quillary::diary {

std::vector<MonthChoice> ListPickerMonths(QDate today) {
  std::vector<MonthChoice> months;
  const QLocale english = QLocale::c();
  for (QDate first(today.year() - 1, 1, 1); first.year() <= today.year() + 1;
       first = first.addMonths(1)) {
    months.push_back({english.toString(first, QStringLiteral("MMMM yyyy")), first,
                      first.addMonths(1).addDays(-1)});
  }
  return months;
}

std::optional<size_t> PickerMonthOf(QDate today, QDate date) {
  const std::vector<MonthChoice> months = ListPickerMonths(today);
  for (size_t month = 0; month < months.size(); ++month) {
    if (months[month].first <= date && date <= months[month].last) return month;
  }
  return std::nullopt;
}

QString PickableJob::HasInvoiceWord() const {
  return invoiceId ? QStringLiteral("Yes") : QStringLiteral("No");
}

PickerColour PickableJob::Colour() const {
  if (invoiceId) return PickerColour::HasInvoice;
  return status.toUpper() == u"J" ? PickerColour::NotDone : PickerColour::Done;
}

std::vector<PickableJob> ListPickableJobs(Business& business, qint64 billedClientId, QDate from,
                                          QDate to) {
  std::vector<PickableJob> jobs;
  for (const Record row :
       business.RunSQL(Sql("SELECT Clients_1.Display_Name, Diary.Diary_ID, Diary.Description, "
                           "Diary.Schedule_Date, Diary.Total_Price, Diary.Total_GST, Diary.Status, "
                           "Diary.Invoice_ID "
                           "FROM (Clients INNER JOIN Clients AS Clients_1 "
                           "ON Clients.Client_ID = Clients_1.Billing_Client_ID) "
                           "INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
                           "WHERE Schedule_Date BETWEEN {} AND {} "
                           "AND Diary.Status IN ('J', 'JU', 'JP', 'JD', 'JI') "
                           "AND Clients.Client_ID = {} "
                           "ORDER BY Clients_1.Display_Name, Schedule_Date, Diary.Diary_ID;",
                           from, EndOfDay(to), billedClientId))) {
    const Value& invoice = row[u"Invoice_ID"];
    jobs.push_back(
        {.diaryId = row[u"Diary_ID"].ToLong(),
         .displayName = row[u"Display_Name"].ToText(),
         .description = row[u"Description"].ToText(),
         .scheduleDate = row[u"Schedule_Date"].ToDate(),
         .totalPrice = row[u"Total_Price"].ToMoney(),
         .totalGST = row[u"Total_GST"].ToMoney(),
         .status = row[u"Status"].ToText(),
         .invoiceId = invoice.IsNull() ? std::nullopt : std::optional(invoice.ToLong())});
  }
  return jobs;
}

}  // namespace quillary::diary
