#include "clients/ClientStatus.h"

#include <utility>

namespace quillary::clients {

QStringList OfferedClientStatuses() {
  return {QStringLiteral("Active"), QStringLiteral("Bad debtor"), QStringLiteral("Billing address"),
          QStringLiteral("Cancelled"), QStringLiteral("Transferred")};
}

QStringList InvoiceTypes() {
  return {QStringLiteral("With Job"), QStringLiteral("None"), QStringLiteral("Monthly")};
}

quint32 ClientStatusColour(const QString& status) {
  static constexpr std::pair<const char16_t*, quint32> kColours[] = {
      {u"ACTIVE", 0x00FF00},    {u"QUOTE ONLY", 0xFFFF80}, {u"BILLING ADDRESS", 0x80FFFF},
      {u"CANCELLED", 0xFF0000}, {u"BAD DEBTOR", 0x0000FF},
  };
  for (const auto& [word, colour] : kColours) {
    if (status.toUpper() == QStringView(word)) return colour;
  }
  return 0xFFFFFF;
}

ClientParts PartsOf(const ClientRecord& client) {
  const QString status = client.status.toUpper();
  ClientParts parts;
  parts.otherTabs = !client.IsNew();
  parts.schedule = status != u"BILLING ADDRESS";
  parts.paymentNote = status == u"ACTIVE" && !client.IsBilledTo();
  parts.invoicesAndPayments = !parts.paymentNote;
  return parts;
}

}  // namespace quillary::clients
