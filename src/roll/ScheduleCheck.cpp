#include "roll/ScheduleCheck.h"

#include "base/DateRange.h"
#include "domain/JobType.h"
#include "lists/ListedAddress.h"

#include <QSet>

#include <optional>

namespace quillary::roll {
namespace {

constexpr char16_t kSection[] = u"Scheduling problem screen";
constexpr char16_t kKey[] = u"Show";

// One look into the client's part of the index, instead of one for each expected visit.
QSet<qint64> DaysWithEntry(Business& business, Id<Client> client, const DateRange& range) {
  QSet<qint64> days;
  for (const Record row :
       business.RunSQL(Sql("SELECT Schedule_Date FROM Diary WHERE Client_ID = {} "
                           "AND Schedule_Date >= {} AND Schedule_Date <= {}",
                           client, range.from, range.to))) {
    const std::optional<DateTime> moment = row[u"Schedule_Date"].ToDateTime();
    // The roll looks for the day itself, so it does not find an entry at an hour either.
    if (moment && *moment == DateTime(moment->date)) days.insert(moment->date.toJulianDay());
  }
  return days;
}

// Where the walk along the rhythm stopped.
struct Stop {
  QDate missingOn;
};

std::optional<Stop> FindMissingVisit(Business& business, const ScheduleProblem& service,
                                     QDate horizon) {
  if (service.frequency == 0 && business.Now() < DateTime(service.nextVisit)) return std::nullopt;
  QDate visit = NextNonHolidayDate(business.holidays, service.nextVisit);
  if (!visit.isValid()) return Stop{};
  if (visit > horizon) return std::nullopt;

  const QSet<qint64> days = DaysWithEntry(business, service.client, {service.nextVisit, horizon});
  QDate expected = service.nextVisit;
  while (visit <= horizon) {
    if (!days.contains(visit.toJulianDay())) return Stop{visit};
    if (service.frequency == 0) return Stop{};
    expected = expected.addDays(service.frequency);
    visit = NextNonHolidayDate(business.holidays, expected);
  }
  return std::nullopt;
}

}  // namespace

std::vector<ScheduleProblem> CheckClientSchedules(Business& business) {
  const BusyWhile busy(business.World().busy);
  const QDate horizon = business.Today().addDays(business.values.daysToAdvanceSchedule);
  std::vector<ScheduleProblem> problems;
  for (const Record row : business.RunSQL(
           Sql("SELECT Clients.Client_ID, Clients.Status, Clients.Display_Name, Clients.Suburb, "
               "Clients.Post_Code, Clients.Street, Clients.Street_Number, "
               "Client_Services.Client_Service_ID, Client_Services.Service_ID, "
               "Client_Services.Frequency, Client_Services.Next_Visit "
               "FROM Clients INNER JOIN Client_Services "
               "ON Clients.Client_ID = Client_Services.Client_ID "
               "WHERE Clients.Status = {} AND Client_Services.Status = {} "
               "ORDER BY Clients.Display_Name, Client_Services.Client_Service_ID;",
               ClientStatus::Active, JobType::Regular))) {
    ScheduleProblem service{.client = Id<Client>(row[u"Client_ID"].ToLong()),
                            .status = StoredClientStatus(row[u"Status"].ToText()),
                            .displayName = row[u"Display_Name"].ToText(),
                            .address = lists::ListedAddress(row),
                            .clientService = Id<ClientService>(row[u"Client_Service_ID"].ToLong()),
                            .service = row[u"Service_ID"].ToId<Service>(),
                            .frequency = static_cast<int>(row[u"Frequency"].ToLong()),
                            .nextVisit = row[u"Next_Visit"].ToDate(),
                            .missingOn = {}};
    const std::optional<Stop> stop = FindMissingVisit(business, service, horizon);
    if (!stop) continue;
    service.missingOn = stop->missingOn;
    problems.push_back(std::move(service));
  }
  return problems;
}

bool ShowsScheduleProblemsAtStartUp(const SettingsStore& settings) {
  const Value show =
      settings.Read(QString::fromUtf16(kSection), QString::fromUtf16(kKey), QStringLiteral("1"));
  return show.ToDouble() == 1;
}

void ShowScheduleProblemsAtStartUp(SettingsStore& settings, bool show) {
  settings.Write(QString::fromUtf16(kSection), QString::fromUtf16(kKey),
                 show ? QStringLiteral("1") : QStringLiteral("0"));
}

}  // namespace quillary::roll
