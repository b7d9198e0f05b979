#pragma once

#include "base/Id.h"
#include "base/Money.h"

#include <optional>

/// Requests that open the screens of the ledger, purchases, banking and their repairs.
namespace quillary {

struct OpenBanking {};
struct OpenChequeReconciliation {};
struct OpenPurchasesList {};
struct OpenSuppliers {};
struct OpenGeneralLedgerAccounts {};
struct OpenBankAccounts {};
struct RecalculateBudgets {};
struct OpenBudgets {};
struct OpenSetupBudgets {};
struct RecalculateGSTComponent {};
struct RecomputeAmountOwing {};
struct UpdateRevenueAccountIntoDefault {};

/// A purchase that its first save will store. True when it was saved.
struct AddPurchase {
  using Result = bool;
  std::optional<Id<Supplier>> supplier = {};
};
struct ViewPurchase {
  using Result = bool;
  Id<Purchase> purchase;
};
/// The list of suppliers, to be kept and to choose from. Nothing when the user chose none.
struct PickSupplier {
  using Result = std::optional<Id<Supplier>>;
};
/// Notes and coins, counted. Nothing when the user gives up.
struct CountCash {
  using Result = std::optional<Money>;
};

}  // namespace quillary
