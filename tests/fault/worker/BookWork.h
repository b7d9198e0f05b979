#pragma once

#include "accounts/banking/Deposits.h"
#include "accounts/yearend/PreviousRecords.h"
#include "accounts/yearend/SortOut.h"

#include <functional>
#include <map>

/// Commands of the books that write much and must be there whole or not at all.
namespace quillary {

/// Banks everything that waits.
inline void BankAll(Business& business) {
  accounts::DepositForm form{.bankAccount = Id<BankAccount>(1), .bankingDate = QDate(2026, 11, 2)};
  const auto tick = [&](PaymentGroup kind, accounts::BankedPayments& tab) {
    Money sum;
    for (const auto& payment : accounts::LoadUndeposited(business, kind)) {
      tab.ticked.push_back(payment.payment);
      sum += payment.amount;
    }
    return sum;
  };
  form.cashBanked = tick(PaymentGroup::BankedAsCash, form.cash);
  tick(PaymentGroup::BankedAsCheque, form.cheques);
  tick(PaymentGroup::BankedAsCard, form.others);
  accounts::SaveDeposit(business, business.World().prompter, form);
}

/// By their names; null for another.
inline std::function<void(Business&)> BookWork(const QString& name) {
  static const std::map<QString, std::function<void(Business&)>> works = {
      {"deposit", BankAll},
      {"delete-previous",
       [](Business& business) {
         accounts::DeletePreviousRecords(business, {{2026, 1, 1}, {2026, 6, 30}});
       }},
      {"sort-out", [](Business& business) { accounts::SortOutRecords(business); }},
  };
  const auto found = works.find(name);
  return found == works.end() ? nullptr : found->second;
}

}  // namespace quillary
