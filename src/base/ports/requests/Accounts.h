#pragma once

#include "base/Id.h"

/// Requests that open the screens of the ledger, purchases, banking and their repairs.
namespace quillary {

struct OpenBanking {};
struct OpenChequeReconciliation {};
struct OpenPurchasesList {};
struct OpenSuppliers {};
struct OpenGeneralLedgerAccounts {};
struct OpenBankAccounts {};
struct RecalculateBudgets {};
struct RecalculateGSTComponent {};
struct RecomputeAmountOwing {};
struct UpdateRevenueAccountIntoDefault {};

struct ViewPurchase {
  using Result = bool;
  Id<Purchase> purchase;
};

}  // namespace quillary
