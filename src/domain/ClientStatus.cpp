#include "domain/ClientStatus.h"

#include <array>

namespace quillary {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;

constexpr auto MakeClientStatuses() {
  using enum ClientStatus;
  using enum ClientGroup;
  constexpr Groups<ClientGroup> kActive = {OfferedByHand, Billed, MayPay, ActiveDebtors, Scheduled};
  constexpr Groups<ClientGroup> kPayer = {OfferedByHand, Billed, MayPay, ActiveDebtors};
  constexpr Groups<ClientGroup> kInDebt = {OfferedByHand, MayPay, ActiveDebtors, NotInDebtors};
  constexpr Groups<ClientGroup> kGone = {OfferedByHand, MayPay, LosesFuture, NotInDebtors};
  return std::array<ClientStatusFacts, 7>{{
      {Active, u"Active", Hue::Green, 0x00FF00, kActive},
      {BadDebtor, u"Bad debtor", Hue::Blue, 0x0000FF, kInDebt},
      {BillingAddress, u"Billing address", Hue::PaleBlue, 0x80FFFF, kPayer},
      {Cancelled, u"Cancelled", Hue::Red, 0xFF0000, kGone},
      {QuoteOnly, u"Quote only", Hue::Yellow, 0xFFFF80, {Scheduled}},
      {QuoteRejected, u"Quote rejected", Hue::Neutral, kWhite, {}},
      {Transferred, u"Transferred", Hue::Neutral, kWhite, kGone},
  }};
}
constexpr auto kClientStatuses = MakeClientStatuses();
static_assert(IsInOrder(kClientStatuses));

}  // namespace

std::span<const ClientStatusFacts> TableOf(ClientStatus) {
  return kClientStatuses;
}

Sql IsNoProspect(const char* column) {
  return Sql("LEFT({}, 1) <> {}", Sql(column), TextOf(ClientStatus::QuoteOnly).left(1));
}

Hue HueOf(const StoredClientStatus& status) {
  return status.Known() ? FactsOf(*status.Known()).hue : Hue::Neutral;
}

unsigned ColourOf(const StoredClientStatus& status) {
  return status.Known() ? FactsOf(*status.Known()).colour : kWhite;
}

}  // namespace quillary
