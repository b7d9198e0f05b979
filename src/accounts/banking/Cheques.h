#pragma once

#include "data/Business.h"

#include <QDate>
#include <QString>

#include <vector>

/// Cheques that the business has written to suppliers, until the bank's statement shows them.
namespace quillary::accounts {

struct UnpresentedCheque {
  Id<Purchase> purchase;
  QString chequeNumber;
  QString supplierName;
  QDate purchaseDate;
  Money amount;
};
/// The oldest first. A purchase whose supplier has gone is not among them.
std::vector<UnpresentedCheque> ListUnpresentedCheques(Business& business);

/// Marks the cheques as cleared: all of them, or none when one has gone meanwhile (WriteFailed).
void ClearCheques(Business& business, const std::vector<Id<Purchase>>& cheques);

/// Asks when cheques are ticked and not cleared; false when the user would rather stay.
bool MayLeaveTicked(Prompter& prompter, size_t ticked);

}  // namespace quillary::accounts
