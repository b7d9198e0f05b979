#pragma once

#include "base/Refusal.h"
#include "billing/LedgerLines.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>

/// One purchase: an expense of the business, recorded when it is paid.
namespace quillary::accounts {

/// What the purchase screen holds. A choice that is not made is empty.
struct PurchaseForm {
  std::optional<Id<Purchase>> purchaseId = {};  // nothing until it is stored
  std::optional<Id<Supplier>> supplierId = {};
  QString description = {};  // the item
  Money amount = {};         // the cost, tax included; negative when money came back
  Money gst = {};            // the tax within it, as computed or as typed over
  bool taxExempt = false;
  QDate purchaseDate = {};
  QString notes = {};
  QString invoiceNumber = {};  // the supplier's
  QString paymentMethod = {};
  QString chequeNumber = {};
  bool capital = false;  // an asset, which what follows belongs to and is kept for without
  QString serialNumber = {};
  QString model = {};
  std::optional<double> depreciation = {};  // percent

  bool IsNew() const { return !purchaseId; }
};

/// Of today, in cash, not stored yet; of the supplier and by its habits when one is given.
PurchaseForm BlankPurchase(Business& business, std::optional<Id<Supplier>> supplier = {});
/// Nothing when there is no such purchase.
std::optional<PurchaseForm> LoadPurchase(Business& business, Id<Purchase> purchase);

/// Refuses a purchase without a supplier that is there, and one that costs nothing.
std::optional<Refusal> CheckPurchase(Business& business, const PurchaseForm& form);
/// Writes the purchase, inserting it first when it is new, gives `form` its key, and gives its
/// ledger lines its date and item. Writes nothing when CheckPurchase() refuses.
std::optional<Refusal> SavePurchase(Business& business, PurchaseForm& form);

/// Told after the reason when a purchase would not save before its first line.
inline constexpr char kPurchaseNotSaved[] =
    "An error has occured. Please check the purchase details and try again.";
/// Told when the lines do not add up.
inline constexpr char kLinesMustMatch[] =
    "This purchase record requires that the cost should match with the total amount of accounts.";

/// Whether the lines come to the cost, in whole cents.
bool IsTotalEqual(const billing::LedgerLines& lines, Money cost);

}  // namespace quillary::accounts
