#pragma once

#include "billing/payments/PaymentRecord.h"

/// How a payment is split over revenue accounts, by hand: rows of General_Ledger_Entries. They need
/// not add up to the payment, nor their tax to its tax.
namespace quillary::billing {

struct RevenueLine {
  Id<LedgerEntry> glEntryId;
  std::optional<Id<Account>> glAccountId;
  QString accountName;
  Money amount;  // tax included
  Money gst;
};
struct RevenueLines {
  std::vector<RevenueLine> rows;  // in the order of their making
  Money totalAmount;
  Money totalGST;
  /// "Total = $120.00"
  QString TotalWords() const;
};
RevenueLines LoadAccounts(Business& business, Id<Payment> paymentId);

struct RevenueLineForm {
  std::optional<Id<LedgerEntry>> glEntryId = {};  // of the line that was picked
  std::optional<Id<Account>> glAccountId = {};
  Money amount = {};
  Money gst = {};
};
enum class SaveRevenueLine { AsNew, Picked };

/// Told after the reason when a payment would not save before its first line.
inline constexpr char kPaymentNotSaved[] =
    "An error has occured. Please check the payment details and try again.";

/// Refuses a line without account: before the payment is saved for its sake.
std::optional<Refusal> CheckRevenueAccount(const RevenueLineForm& line);

/// Stores a line of a stored payment. Refuses a line without account, and an update without a line
/// picked. A line gets date and note from the next save of its payment.
std::optional<Refusal> SaveAccount(Business& business, Id<Payment> paymentId,
                                   const RevenueLineForm& line, SaveRevenueLine as);

/// Refuses when no line is picked.
std::optional<Refusal> RemoveAccount(Business& business, std::optional<Id<LedgerEntry>> glEntryId);

}  // namespace quillary::billing
