#include "domain/ClientStatus.h"

#include <array>

namespace quillary {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;

constexpr auto MakeClientStatuses() {
  using enum ClientStatus;
  using enum ClientGroup;
  return std::array{
      ClientStatusFacts{Active,
                        u"Active",
                        Hue::Green,
                        0x00FF00,
                        {OfferedByHand, Billed, MayPay, ActiveDebtors, Scheduled}},
      ClientStatusFacts{BadDebtor,
                        u"Bad debtor",
                        Hue::Blue,
                        0x0000FF,
                        {OfferedByHand, MayPay, ActiveDebtors, NotInDebtors}},
      ClientStatusFacts{BillingAddress,
                        u"Billing address",
                        Hue::PaleBlue,
                        0x80FFFF,
                        {OfferedByHand, Billed, MayPay, ActiveDebtors}},
      ClientStatusFacts{Cancelled,
                        u"Cancelled",
                        Hue::Red,
                        0xFF0000,
                        {OfferedByHand, MayPay, LosesFuture, NotInDebtors}},
      ClientStatusFacts{QuoteOnly, u"Quote only", Hue::Yellow, 0xFFFF80, {Scheduled}},
      ClientStatusFacts{QuoteRejected, u"Quote rejected", Hue::Neutral, kWhite, {}},
      ClientStatusFacts{Transferred,
                        u"Transferred",
                        Hue::Neutral,
                        kWhite,
                        {OfferedByHand, MayPay, LosesFuture, NotInDebtors}},
  };
}
constexpr auto kClientStatuses = MakeClientStatuses();
static_assert(IsInOrder(kClientStatuses));

}  // namespace

std::span<const ClientStatusFacts> TableOf(ClientStatus) {
  return kClientStatuses;
}

Hue HueOf(const StoredClientStatus& status) {
  return status.Known() ? FactsOf(*status.Known()).hue : Hue::Neutral;
}

unsigned ColourOf(const StoredClientStatus& status) {
  return status.Known() ? FactsOf(*status.Known()).colour : kWhite;
}

}  // namespace quillary
