#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// How money is split over the accounts of the ledger, by hand: rows of General_Ledger_Entries. A
/// payment is split over accounts of revenue, and its lines need not add up to it; a purchase is
/// split over accounts of expense, and its screen wants them to.
namespace quillary::billing {

/// Whose lines they are.
using BookedRecord = std::variant<Id<Payment>, Id<Purchase>>;

struct LedgerLine {
  Id<LedgerEntry> glEntryId;
  std::optional<Id<Account>> glAccountId;
  QString accountName;
  Money amount;  // tax included
  Money gst;
};
struct LedgerLines {
  std::vector<LedgerLine> rows;  // in the order of their making
  Money totalAmount;
  Money totalGST;
};
LedgerLines LoadAccounts(Business& business, BookedRecord record);

struct LedgerLineForm {
  std::optional<Id<LedgerEntry>> glEntryId = {};  // of the line that was picked
  std::optional<Id<Account>> glAccountId = {};
  Money amount = {};
  Money gst = {};
};
enum class SaveLedgerLine { AsNew, Picked };

/// Told after the reason when a payment would not save before its first line.
inline constexpr char kPaymentNotSaved[] =
    "An error has occured. Please check the payment details and try again.";

/// Each refuses a line without account, as one whose account has gone meanwhile: before the record
/// is saved for its sake.
std::optional<Refusal> CheckRevenueAccount(Business& business, const LedgerLineForm& line);
std::optional<Refusal> CheckExpenseAccount(Business& business, const LedgerLineForm& line);

/// Stores a line of a stored payment or purchase. Refuses a line without account, and an update
/// without a line picked. A line gets date and note from the next save of its record.
std::optional<Refusal> SaveAccount(Business& business, BookedRecord record,
                                   const LedgerLineForm& line, SaveLedgerLine as);

/// Refuses when no line is picked.
std::optional<Refusal> RemoveAccount(Business& business, std::optional<Id<LedgerEntry>> glEntryId);

}  // namespace quillary::billing
