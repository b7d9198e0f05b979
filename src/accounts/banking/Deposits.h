#pragma once

#include "accounts/banking/Bankable.h"
#include "base/Refusal.h"

#include <optional>
#include <vector>

/// Takings taken to the bank: rows of Bankings, and the payments that each holds.
namespace quillary::accounts {

struct Deposit {
  Id<Banking> banking;
  std::optional<Id<BankAccount>> bankAccount;
  QDate bankingDate;
  Money cashBanked;
  Money cashUnbanked;
  Money totalBanked;
};
/// The newest first.
std::vector<Deposit> ListDeposits(Business& business);
std::optional<Deposit> LoadDeposit(Business& business, Id<Banking> banking);

/// The payments of one tab as the user leaves them.
struct BankedPayments {
  std::vector<Id<Payment>> ticked = {};
  std::vector<Id<Payment>> unticked = {};
};

struct DepositForm {
  std::optional<Id<Banking>> banking = {};  // one that was loaded; nothing for a new one
  std::optional<Id<BankAccount>> bankAccount = {};
  QDate bankingDate = {};
  Money cashBanked = {};  // as taken to the bank, which need not be what the ticks come to
  BankedPayments cash = {};
  BankedPayments cheques = {};
  BankedPayments others = {};  // cards and other electronic money
};

struct DepositOutcome {
  std::optional<Refusal> refusal = {};
  std::optional<Id<Banking>> banking = {};  // nothing also when the user said No
};

/// Refuses a negative amount of cash and a deposit to no account; asks when the cash banked is not
/// the cash received. Then writes the deposit, with what the ticked payments come to by the file,
/// marks these as its own and takes the mark from the unticked ones: all of it or nothing. Refuses,
/// too, when a ticked payment is in another deposit by now or has gone, and when the loaded deposit
/// has gone. The bank account of a loaded deposit stays.
DepositOutcome SaveDeposit(Business& business, Prompter& prompter, const DepositForm& form);

/// Asks by its date, then deletes the deposit; its payments count as not banked again. Refuses when
/// none is selected.
std::optional<Refusal> DeleteDeposit(Business& business, Prompter& prompter,
                                     const Deposit* deposit);
/// Without asking. Throws WriteFailed, with nothing written, when it has gone meanwhile.
void RemoveDeposit(Business& business, Id<Banking> banking);

/// Each refuses when no deposit is selected.
std::optional<Refusal> CheckDepositToLoad(const Deposit* deposit);
std::optional<Refusal> CheckDepositToPrint(const Deposit* deposit);

}  // namespace quillary::accounts
