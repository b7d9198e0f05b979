#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

namespace quillary::setup::demo {
namespace {

struct StatusShare {
  ClientStatus status;
  int percent;
};
constexpr StatusShare kRareStatuses[] = {
    {ClientStatus::BillingAddress, 4}, {ClientStatus::QuoteOnly, 4},
    {ClientStatus::Cancelled, 6},      {ClientStatus::Transferred, 3},
    {ClientStatus::QuoteRejected, 2},  {ClientStatus::BadDebtor, 2}};
constexpr int kFewestForAllStatuses = 20;

// The statuses of all clients in falling order of chance: every rare one at least once, the rest
// active.
std::vector<ClientStatus> DealStatuses(int clients, Dice& dice) {
  std::vector<ClientStatus> deck;
  if (clients >= kFewestForAllStatuses) {
    for (const StatusShare& share : kRareStatuses) {
      const int count = std::max(1, clients * share.percent / 100);
      deck.insert(deck.end(), static_cast<size_t>(count), share.status);
    }
  }
  deck.resize(static_cast<size_t>(clients), ClientStatus::Active);
  dice.Shuffle(deck);
  return deck;
}

QString Digits(int number, int digits) {
  return QString::number(number).rightJustified(digits, u'0');
}

/// "zoe.obrien17@example.com"
QString EmailOf(const QString& name, size_t number) {
  QString plain;
  for (const QChar character : name.normalized(QString::NormalizationForm_D).toLower()) {
    if (character.unicode() < 128 && character.isLetter()) plain += character;
    if (character == u' ' && !plain.endsWith(u'.')) plain += u'.';
  }
  return plain + QString::number(number) + QStringLiteral("@example.com");
}

void NameClient(Client& client, size_t number, Dice& dice) {
  const bool isCompany = client.status == ClientStatus::BillingAddress ||
                         (client.status == ClientStatus::Active && dice.Chance(4));
  if (isCompany) {
    client.firstName =
        QStringLiteral("%1 %2").arg(dice.Pick(kCompanyWords), dice.Pick(kCompanyKinds));
    client.displayName = client.firstName;
  } else {
    client.firstName = QString(dice.Pick(kFirstNames));
    client.surname = QString(dice.Pick(kSurnames));
    client.displayName = client.surname + QStringLiteral(", ") + client.firstName;
  }
  client.suburb = dice.Below(static_cast<int>(kSuburbs.size()));
  client.street = QString(dice.Pick(kStreets));
  client.streetNumber = QString::number(dice.Between(1, 220));
  if (dice.Chance(8))
    client.streetNumber = QStringLiteral("%1/").arg(dice.Between(1, 6)) + client.streetNumber;
  client.mobile = QStringLiteral("0412 555 ") + Digits(dice.Below(1000), 3);
  if (isCompany || dice.Chance(30)) {
    client.landline = QStringLiteral("03 9555 ") + Digits(dice.Below(10000), 4);
  }
  if (isCompany || dice.Chance(75)) {
    client.email = EmailOf(client.firstName + u' ' + client.surname, number);
  }
  if (dice.Chance(25)) client.notes = QString(dice.Pick(kClientNotes));
}

void SetBilling(Client& client, Dice& dice) {
  constexpr int kWays[] = {55, 20, 25};
  constexpr int kMethods[] = {22, 10, 25, 35, 8};  // adjustments are no way of paying
  client.billing = static_cast<Billing>(dice.Weighted(kWays));
  if (client.status == ClientStatus::BillingAddress) client.billing = Billing::Monthly;
  client.method = dice.Weighted(kMethods);
  const int quickest = client.billing == Billing::OnTheDay ? 0 : 6;
  client.daysToPay = quickest + dice.Below(client.billing == Billing::OnTheDay ? 4 : 16);
  if (dice.Chance(6)) client.daysToPay += dice.Between(30, 60);  // those who need reminding
}

void SetPeriod(Client& client, const Model& model, Dice& dice) {
  const int days = static_cast<int>(model.begin.daysTo(model.today));
  client.since = model.begin;
  if (dice.Chance(35)) client.since = model.begin.addDays(dice.Below(days + 1));
  client.until = model.today.addDays(-1);
  const bool hasLeft =
      client.status == ClientStatus::Cancelled || client.status == ClientStatus::Transferred;
  if (hasLeft) client.until = client.since.addDays(dice.Below(days + 1));
  if (client.status == ClientStatus::BadDebtor)
    client.until = model.today.addDays(-dice.Between(60, 120));
  client.until = std::min(client.until, model.today.addDays(-1));
}

Money PriceOf(const CatalogueService& kind, Dice& dice) {
  constexpr qint64 kHalf = Money::kUnitsPerOne / 2;
  Money price =
      Money::FromWhole(kind.lowPrice + 5 * dice.Below((kind.highPrice - kind.lowPrice) / 5 + 1));
  if (dice.Chance(10)) price += Money::FromUnits(kHalf);
  return price;
}

// A date in the coming cycle on which work is done, but never today: today's work is set by hand.
QDate ComingVisit(const QDate& today, int frequency, Dice& dice) {
  constexpr int kSaturday = 6;
  QDate day;
  do {
    day = today.addDays(1 + dice.Below(frequency - 1));
  } while (day.dayOfWeek() >= kSaturday);
  return day;
}

Service NewService(int kind, int frequency, const Model& model, Dice& dice) {
  Service service;
  service.kind = kind;
  service.price = PriceOf(kServices[static_cast<size_t>(kind)], dice);
  service.frequency = frequency;
  service.nextVisit = ComingVisit(model.today, frequency, dice);
  service.status = JobType::Regular;
  if (dice.Chance(15)) service.notes = QString(dice.Pick(kServiceNotes));
  return service;
}

// The first service sets the rhythm; a second may ride along with it, and some clients have a job
// that is done once.
void GiveServices(Client& client, const Model& model, Dice& dice) {
  constexpr int kHowOften[] = {6, 32, 14, 28, 8, 8, 4};  // of kFrequencies
  constexpr int kMainKinds[] = {60, 10, 15, 0, 15};
  constexpr int kWorkers[] = {50, 35, 15};
  enum { kHedges = 1, kTidy = 2, kWeeds = 3, kGutters = 5 };
  const int frequency = kFrequencies[static_cast<size_t>(dice.Weighted(kHowOften))];
  const int worker = dice.Weighted(kWorkers);
  const auto add = [&](int kind, int days) -> Service& {
    client.services.push_back(NewService(kind, days, model, dice));
    client.services.back().employee = worker;
    return client.services.back();
  };
  add(dice.Weighted(kMainKinds), frequency);
  const int mainKind = client.services.front().kind;
  if (dice.Chance(18) && mainKind != kWeeds) {
    const QDate sameDay = client.services.front().nextVisit;
    Service& follower = add(dice.Chance(50) ? kWeeds : kTidy, frequency);
    if (follower.kind == mainKind) follower.kind = kHedges;
    follower.follows = 0;
    follower.nextVisit = sameDay;
  } else if (dice.Chance(12) && mainKind != kHedges) {
    add(kHedges, 84);
  }
  if (client.status == ClientStatus::Active && dice.Chance(10)) {
    Service& casual = add(kGutters + dice.Below(3), 56);
    casual.frequency = 0;
    casual.status = JobType::Casual;
  }
}

void SettleServices(Client& client) {
  const bool isQuote = IsProspect(client);
  const bool hasLeft = client.status == ClientStatus::Cancelled ||
                       client.status == ClientStatus::Transferred ||
                       client.status == ClientStatus::QuoteRejected;
  for (Service& service : client.services) {
    if (isQuote) service.status = JobType::QuoteOnly;
    if (hasLeft) service.status = JobType::Cancelled;
  }
}

// Sites of a billing address, or of a relative who pays: the payer is one of the earlier rows.
void ShareBills(Model& model, Dice& dice) {
  std::vector<size_t> payers;
  for (size_t index = 0; index < model.clients.size(); ++index) {
    Client& client = model.clients[index];
    client.billedTo = index;
    if (client.status == ClientStatus::BillingAddress) payers.push_back(index);
  }
  if (payers.empty()) return;
  for (size_t index = 0, sites = 0; index < model.clients.size() && sites < payers.size() * 3;
       ++index) {
    Client& client = model.clients[index];
    if (client.status != ClientStatus::Active || dice.Chance(60)) continue;
    client.billedTo = payers[sites++ % payers.size()];
    model.clients[client.billedTo].paysForOthers = true;
  }
}

}  // namespace

void InventClients(Model& model, const DemoOptions& options, Dice& dice) {
  for (const ClientStatus status : DealStatuses(options.clients, dice)) {
    Client client;
    client.status = status;
    NameClient(client, model.clients.size() + 1, dice);
    SetBilling(client, dice);
    SetPeriod(client, model, dice);
    if (status != ClientStatus::BillingAddress) GiveServices(client, model, dice);
    SettleServices(client);
    model.clients.push_back(std::move(client));
  }
  ShareBills(model, dice);
}

}  // namespace quillary::setup::demo
