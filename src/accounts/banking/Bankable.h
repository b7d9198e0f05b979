#pragma once

#include "data/Business.h"
#include "domain/BillingWords.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// The payments that a deposit is made of, by the way they were made.
namespace quillary::accounts {

/// The three kinds of money that are banked, each on a tab of its own.
inline constexpr std::array kBankedKinds = {
    PaymentGroup::BankedAsCash, PaymentGroup::BankedAsCheque, PaymentGroup::BankedAsCard};

struct BankablePayment {
  Id<Payment> payment;
  QDate paymentDate;
  QString displayName;
  Money amount;
  QString chequeNumber;
  QString bank;
  QString bankBranch;
  QString bankAccountName;
  /// Its deposit is no longer there, so it counts as not banked.
  bool lostItsDeposit = false;
};

/// Those of the kind that no deposit holds; the newest first, then by name.
std::vector<BankablePayment> LoadUndeposited(Business& business, PaymentGroup kind);
/// Those of the kind that the deposit holds.
std::vector<BankablePayment> LoadDeposited(Business& business, PaymentGroup kind,
                                           Id<Banking> banking);
Money SumOf(const std::vector<BankablePayment>& payments);

/// What LoadUndeposited() would give, as count and sum for each of kBankedKinds.
struct CountedPayments {
  int count = 0;
  Money total;
};
using UndepositedPayments = std::array<CountedPayments, kBankedKinds.size()>;
UndepositedPayments CountUndeposited(Business& business);

/// Payments that no deposit holds and that none of the kinds takes: what comes by another method
/// stands in the bank already.
struct PaymentsOnNoTab {
  int count = 0;
  Money total;
  QStringList methods;  // in upper case, each once; an empty word for a payment without any
};
PaymentsOnNoTab CountPaymentsOnNoTab(Business& business);

}  // namespace quillary::accounts
