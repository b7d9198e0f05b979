#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// Receipts of purchases: pictures and PDF files, copied into the folder Receipts beside the
/// business, and named by rows of a table that a business gets with its first receipt.
namespace quillary::accounts {

struct StoredReceipt {
  Id<Receipt> receipt;
  QString title;  // the name of the file as it was given
  QString path;   // of the copy
  bool isThere;   // somebody may have taken the copy away
};
std::vector<StoredReceipt> ListReceipts(Business& business, Id<Purchase> purchase);

/// Copies a file and ties it to the purchase. Refuses what cannot be read, is empty, is larger than
/// 32 MB, or is neither a picture nor a PDF; nothing is stored then.
std::optional<Refusal> AttachReceipt(Business& business, Id<Purchase> purchase,
                                     const QString& path);

/// Takes a receipt off its purchase. The copy stays in the folder, so that it can be taken back.
/// Refuses when none is selected.
std::optional<Refusal> DetachReceipt(Business& business, std::optional<Id<Receipt>> receipt);
/// Takes all receipts off a purchase that goes.
void DetachReceiptsOf(Business& business, Id<Purchase> purchase);

}  // namespace quillary::accounts
