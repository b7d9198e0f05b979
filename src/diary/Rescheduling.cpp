#include "diary/Rescheduling.h"

#include <QLocale>

#include <limits>

namespace quillary::diary {

QString ServiceRhythm::StartDateText() const {
  return QLocale::c().toString(nextVisit, QStringLiteral("dd MMM yyyy"));
}

roll::RollCount RecreateEntireSchedule(Business& business) {
  // Not one piece with the roll: when that fails, the next start has to begin at today.
  business.Write(Sql("UPDATE infSystem SET Last_Schedule_Ending = null"), Rows::AtLeast(1));
  return roll::AdvanceScheduleGlobally(business);
}

std::vector<ServiceRhythm> LoadServiceRhythms(Business& business, Id<Client> client) {
  std::vector<ServiceRhythm> rows;
  for (const Record row : business.RunSQL(
           Sql("SELECT cs.Client_Service_ID, cs.Service_ID, s.Service, cs.Price, cs.Notes, "
               "cs.Status, cs.Frequency, cs.Employee_ID, e.Employee_Name, "
               "cs.Other_Schedule_Client_Service_ID, cs.Next_Visit "
               "FROM ((Client_Services cs "
               "LEFT JOIN Services s ON cs.Service_ID = s.Service_ID) "
               "LEFT JOIN Employees e ON cs.Employee_ID = e.Employee_ID) "
               "WHERE cs.Client_ID = {} ORDER BY cs.Client_Service_ID ASC;",
               client))) {
    rows.push_back({.clientService = Id<ClientService>(row[u"Client_Service_ID"].ToLong()),
                    .service = row[u"Service_ID"].ToId<Service>(),
                    .serviceName = row[u"Service"].ToText(),
                    .price = row[u"Price"].ToMoney().Rounded(2),
                    .notes = row[u"Notes"].ToText(),
                    .type = StoredJobType(row[u"Status"].ToText()),
                    .frequency = static_cast<int>(row[u"Frequency"].ToLong()),
                    .employee = row[u"Employee_ID"].ToId<Employee>(),
                    .employeeName = row[u"Employee_Name"].ToText(),
                    .follows = row[u"Other_Schedule_Client_Service_ID"].ToId<ClientService>(),
                    .nextVisit = row[u"Next_Visit"].ToDate(business.Today())});
  }
  return rows;
}

std::optional<Refusal> TypeStartDate(ServiceRhythm& row, const QString& typed, QDate today) {
  const std::optional<QDate> date = ParseTypedDate(typed, today);
  if (!date) {
    return Refusal{QStringLiteral("Please enter a valid start date."), QStringLiteral("nextVisit")};
  }
  row.nextVisit = *date;
  return std::nullopt;
}

std::optional<Refusal> TypeFrequency(ServiceRhythm& row, const QString& typed) {
  const Value value(typed);
  const qint64 days = value.ToLong();
  if (!value.IsNumeric() || days < std::numeric_limits<int>::min() ||
      days > std::numeric_limits<int>::max()) {
    return Refusal{QStringLiteral("Please enter a number."), QStringLiteral("frequency")};
  }
  row.frequency = static_cast<int>(days);
  return std::nullopt;
}

roll::RollCount RescheduleClient(Business& business, Id<Client> client,
                                 const std::vector<ServiceRhythm>& rows) {
  Transaction rhythm(business);
  for (const ServiceRhythm& row : rows) {
    business.Write(Sql("UPDATE Client_Services SET Next_Visit = {}, Frequency = {} "
                       "WHERE Client_Service_ID = {};",
                       row.nextVisit, row.frequency, row.clientService),
                   Rows::Exactly(1));
  }
  // Committed before the rebuild, which may hand a damaged file over and end the process.
  rhythm.Commit();
  return roll::AdvanceScheduleForClient(business, client);
}

}  // namespace quillary::diary
