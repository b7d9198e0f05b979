#include "domain/TaxRate.h"
#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

#include <algorithm>
#include <map>

namespace quillary::setup::demo {
namespace {

constexpr int kSaturday = 6;

VisitLine LineOf(const Service& service) {
  return {service.kind, service.price, GstOf(service.price), service.frequency};
}

void Describe(Visit& visit) {
  QStringList codes;
  for (const VisitLine& line : visit.lines) {
    codes += QString(kServices[static_cast<size_t>(line.kind)].code);
  }
  visit.description = codes.join(QStringLiteral(", "));
}

EntryStatus PastStatus(Dice& dice) {
  return dice.Chance(4) ? EntryStatus::JobCancelled : EntryStatus::JobDone;
}

/// The rhythm of a service backwards from its next visit: the days on which it was done.
std::vector<QDate> PastDays(const Business& business, const Client& client,
                            const Service& schedule) {
  std::vector<QDate> days;
  for (QDate day = schedule.nextVisit.addDays(-schedule.frequency); day >= client.since;
       day = day.addDays(-schedule.frequency)) {
    const QDate worked = WorkingDay(business, day);
    if (worked <= client.until) days.push_back(worked);
  }
  return days;
}

void InventPast(Model& model, const Business& business, size_t index, Dice& dice) {
  const Client& client = model.clients[index];
  if (IsProspect(client)) return;
  std::map<QDate, Visit> byDay;
  for (const Service& service : client.services) {
    const Service& schedule =
        service.follows < 0 ? service : client.services[static_cast<size_t>(service.follows)];
    if (schedule.frequency == 0) continue;
    for (const QDate& day : PastDays(business, client, schedule)) {
      Visit& visit = byDay[day];
      visit.client = index;
      visit.date = day;
      visit.employee = schedule.employee;
      visit.lines.push_back(LineOf(service));
      if (visit.notes.isEmpty()) visit.notes = service.notes;
    }
  }
  for (auto& [day, visit] : byDay) {
    visit.status = PastStatus(dice);
    Describe(visit);
    model.visits.push_back(std::move(visit));
  }
}

Visit UnpricedVisit(size_t client, const QDate& day, const char* words, EntryStatus status) {
  Visit visit;
  visit.client = client;
  visit.date = day;
  visit.status = status;
  visit.description = QString(words);
  visit.time = QStringLiteral("9:00 AM");
  return visit;
}

void InventPastVisits(Model& model, const Business& business, Dice& dice) {
  constexpr std::array kReasons = {"Measure back fence", "Look at lawn grubs", "Collect gate key"};
  for (size_t index = 0; index < model.clients.size(); ++index) {
    const Client& client = model.clients[index];
    if (client.status != ClientStatus::Active || !dice.Chance(8)) continue;
    const QDate day = WorkingDay(business, client.since.addDays(-2));
    if (day < model.begin || day >= model.today) continue;
    model.visits.push_back(
        UnpricedVisit(index, day, dice.Pick(kReasons),
                      dice.Chance(85) ? EntryStatus::VisitDone : EntryStatus::VisitCancelled));
  }
}

/// One entry of today: what stands there already comes first in the day, so that the open jobs keep
/// their places when the roll makes them anew.
struct TodayEntry {
  EntryStatus status;
  bool isPaid = false;
  bool hasEmployee = true;
  bool twoServices = false;
};
constexpr TodayEntry kToday[] = {
    {EntryStatus::JobDone, true},
    {EntryStatus::JobDone, false, true, true},
    {EntryStatus::JobInvoiced},
    {EntryStatus::JobCancelled},
    {EntryStatus::VisitOpen},
    {EntryStatus::JobOpen},
    {EntryStatus::JobOpen, false, true, true},
    {EntryStatus::JobOpen},
    {EntryStatus::JobOpen, false, false},
    {EntryStatus::JobOpen},
    {EntryStatus::JobOpen},
    {EntryStatus::JobOpen, false, true, true},
    {EntryStatus::JobOpen},
};

// The client's rhythm is laid so that it falls on today, for the past as for the future.
void BringToToday(Client& client, const Model& model, const TodayEntry& entry, Dice& dice) {
  enum { kMowing = 0, kTidy = 2 };
  Service& main = client.services.front();
  main.nextVisit = model.today;
  if (!entry.hasEmployee) main.employee = -1;
  if (entry.twoServices && client.services.size() == 1) {
    Service second = main;
    second.kind = main.kind == kTidy ? kMowing : kTidy;
    second.price = Money::FromWhole(40 + 5 * dice.Below(8));
    second.follows = 0;
    second.notes.clear();
    client.services.push_back(second);
  }
  for (Service& service : client.services) {
    if (service.follows == 0) service.nextVisit = model.today;
  }
}

std::vector<size_t> ClientsOfToday(const Model& model, Dice& dice) {
  std::vector<size_t> candidates;
  for (size_t index = 0; index < model.clients.size(); ++index) {
    const Client& client = model.clients[index];
    if (client.status == ClientStatus::Active && client.billedTo == index)
      candidates.push_back(index);
  }
  dice.Shuffle(candidates);
  candidates.resize(std::min(candidates.size(), std::size(kToday)));
  return candidates;
}

Visit VisitOfToday(const Model& model, size_t index, const TodayEntry& entry) {
  const Client& client = model.clients[index];
  Visit visit;
  visit.client = index;
  visit.date = model.today;
  visit.status = entry.status;
  visit.employee = client.services.front().employee;
  for (const Service& service : client.services) {
    if (service.nextVisit == model.today) visit.lines.push_back(LineOf(service));
  }
  Describe(visit);
  return visit;
}

// Returns the day's entries; the one that is paid already carries its payment.
std::vector<Visit> InventToday(Model& model, Dice& dice) {
  std::vector<Visit> entries;
  const std::vector<size_t> chosen = ClientsOfToday(model, dice);
  for (size_t place = 0; place < chosen.size(); ++place) {
    const TodayEntry& entry = kToday[place];
    const size_t index = chosen[place];
    Client& client = model.clients[index];
    if (entry.status == EntryStatus::VisitOpen) {
      entries.push_back(
          UnpricedVisit(index, model.today, "Measure back fence", EntryStatus::VisitOpen));
    } else {
      BringToToday(client, model, entry, dice);
      client.billing =
          entry.status == EntryStatus::JobInvoiced ? Billing::PerJob : Billing::OnTheDay;
      client.daysToPay = entry.isPaid ? 0 : 3;
      entries.push_back(VisitOfToday(model, index, entry));
    }
    entries.back().place = static_cast<int>(place) + 1;
  }
  return entries;
}

void NumberDays(std::vector<Visit>& visits, const std::vector<Client>& clients) {
  std::stable_sort(visits.begin(), visits.end(), [&](const Visit& left, const Visit& right) {
    if (left.date != right.date) return left.date < right.date;
    return clients[left.client].suburb < clients[right.client].suburb;
  });
  for (size_t index = 0; index < visits.size(); ++index) {
    const bool isFirst = index == 0 || visits[index - 1].date != visits[index].date;
    visits[index].place = isFirst ? 1 : visits[index - 1].place + 1;
  }
}

}  // namespace

Money Visit::Price() const {
  Money sum;
  for (const VisitLine& line : lines) sum += line.price;
  return sum;
}

Money Visit::Gst() const {
  Money sum;
  for (const VisitLine& line : lines) sum += line.gst;
  return sum;
}

Money GstOf(Money price) {
  return TaxRate(0.1).CalculateGSTComponent(price);
}

QDate WorkingDay(const Business& business, QDate day) {
  for (;; day = day.addDays(1)) {
    if (day.dayOfWeek() < kSaturday && !IsHoliday(business.holidays, day)) return day;
  }
}

void InventVisits(Model& model, const Business& business, Dice& dice) {
  const std::vector<Visit> today = InventToday(model, dice);
  for (size_t index = 0; index < model.clients.size(); ++index) {
    InventPast(model, business, index, dice);
  }
  InventPastVisits(model, business, dice);
  NumberDays(model.visits, model.clients);
  model.visits.insert(model.visits.end(), today.begin(), today.end());
}

}  // namespace quillary::setup::demo
