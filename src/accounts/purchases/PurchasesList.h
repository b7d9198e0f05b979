#pragma once

#include "base/DateRange.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The purchases of a period, beside what their ledger lines come to.
namespace quillary::accounts {

struct PurchaseRow {
  Id<Purchase> purchase;
  QDate purchaseDate;
  QString supplierName;
  QString description;
  Money amount;
  Money gst;
  QString accountName;  // the last by name of those it is booked to; "(none)" without any
  QString paymentMethod;
  Money glAmount;
  Money glGst;

  /// Whether amounts or taxes differ by a cent or more.
  bool IsMismatch() const {
    return amount.Rounded(2) != glAmount.Rounded(2) || gst.Rounded(2) != glGst.Rounded(2);
  }
};

struct PurchasesList {
  std::vector<PurchaseRow> rows;  // the newest first, then by item
  Money totalAmount;
  Money totalGST;
};
/// The last day whole.
PurchasesList LoadPurchases(Business& business, const DateRange& days);

/// Refuses when none is selected.
std::optional<Refusal> CheckPurchaseChosen(const PurchaseRow* purchase);
/// Asks by the date, then deletes the purchase with its ledger lines and takes its receipts off it.
/// Refuses when none is selected.
std::optional<Refusal> DeletePurchase(Business& business, Prompter& prompter,
                                      const PurchaseRow* purchase);
/// Without asking. Throws WriteFailed, with nothing deleted, when it has gone meanwhile.
void RemovePurchase(Business& business, Id<Purchase> purchase);

}  // namespace quillary::accounts
