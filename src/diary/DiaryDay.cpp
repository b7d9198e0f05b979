#include "diary/DiaryDay.h"

#include "domain/ClientStatus.h"
#include "domain/Payer.h"

#include <QSet>

#include <stdexcept>

namespace quillary::diary {
namespace {

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
      query.days.from, EndOfDay(query.days.to));
  if (query.employee) statement = statement + Sql(" AND Diary.Employee_ID = {} ", query.employee);
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
  const Id<Client> client(record[u"Client_ID"].ToLong());
  return {.sequence = static_cast<int>(record[u"Sequence"].ToLong()),
          .entry = Id<Entry>(record[u"Diary_ID"].ToLong()),
          .client = client,
          .payer = PayerFrom(client, record[u"Billing_Client_ID"]),
          .displayName = text(u"Display_Name").trimmed(),
          .address =
              Joined({text(u"Suburb"), text(u"Post_Code"), text(u"Street"), text(u"Street_Number")},
                     QStringLiteral(" ")),
          .phones = Joined({text(u"Phone_1"), text(u"Phone_2")}, QStringLiteral("; ")),
          .description = text(u"Description"),
          .totalPrice = record[u"Total_Price"].ToMoney(),
          .status = StoredEntryStatus(text(u"Status")),
          .employee = record[u"Employee_ID"].ToId<Employee>(),
          .invoice = record[u"Invoice_ID"].ToId<Invoice>(),
          .scheduleDate = record[u"Schedule_Date"].ToDate(),
          .payment = record[u"Payment_ID"].ToId<Payment>()};
}

}  // namespace

DiaryList LoadDiary(Business& business, const DiaryQuery& query) {
  if (query.days.from > query.days.to) throw std::invalid_argument(kInvalidDateRange);
  const BusyWhile busy(business.World().busy);
  const QDate today = business.Today();
  DiaryList list;
  QSet<Id<Entry>> seen;
  // The join with the lines repeats an entry for each of them.
  for (const Record record : business.RunSQL(DiaryStatement(query))) {
    const Id<Entry> entry(record[u"Diary_ID"].ToLong());
    if (seen.contains(entry)) continue;
    seen.insert(entry);
    DiaryRow row = RowOf(record);
    const StoredClientStatus client(record[u"Client_Status"].ToText());
    if (client.Is(ClientStatus::Cancelled) && row.scheduleDate >= today) continue;
    if (row.status.IsIn(EntryGroup::LiveJobs)) {
      list.totalAmountOfJobs += row.totalPrice;
      ++list.totalNoOfJobs;
    }
    list.someHaveNoEmployee |= !row.employee;
    list.rows.push_back(std::move(row));
  }
  return list;
}

}  // namespace quillary::diary
