// Computes every balance from whole tables. What decides is that the figures are those that
// RecalculateClientBalance() would give, called client by client: a client who is billed to another
// writes to the other's balance, so the clients are walked in the same order here, on figures in
// memory, and what came out different is written at the end.

#include "balances/BalanceRules.h"
#include "balances/ClientBalance.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"

#include <QHash>

#include <optional>
#include <vector>

namespace quillary::balances {
namespace {

struct Figures {
  Id<Client> client;
  Id<Client> payer;
  StoredClientStatus status = {};
  bool isBilledTo = false;
  Value balance = {};
  Value debtorSince = {};
  Money jobs = {};  // of the client alone
  Money paid = {};
  Money jobsOfGroup = {};  // of all whom the client pays for
  Money paidByGroup = {};
  bool isChanged = false;
};

/// One comparison for each status that counts: faster over all rows than a list.
Sql IsDone() {
  Sql anyOf("Status = {}", EntryStatus::JobDone);
  for (const EntryStatusFacts& facts : TableOf(EntryStatus())) {
    if (facts.value == EntryStatus::JobDone || !facts.groups.Has(EntryGroup::WorkDone)) continue;
    anyOf = anyOf + Sql(" OR Status = {}", facts.value);
  }
  return anyOf;
}

class AllBalances {
 public:
  explicit AllBalances(Business& business) : business_(business), today_(business.Today()) {}

  void Load() {
    LoadClients();
    LoadJobs();
    LoadPayments();
    SumGroups();
  }

  void Recalculate() {
    for (Figures& account : accounts_) {
      if (account.isBilledTo) Recalculate(account);
    }
  }

  void Store() {
    for (const Figures& account : accounts_) {
      if (!account.isChanged) continue;
      business_.Write(
          Sql("UPDATE Clients SET Account_Balance = {}, Debtor_Since = {} WHERE Client_ID = {}",
              account.balance, account.debtorSince, account.client),
          Rows::Exactly(1));
    }
  }

 private:
  // Fields of the long lists are read by their place: finding them by name would cost more than
  // adding them up.

  void LoadClients() {
    enum Place : size_t { ClientId, BillingClientId, Status, IsBilledTo, Balance, DebtorSince };
    const Recordset clients =
        business_.RunSQL(Sql("SELECT Client_ID, Billing_Client_ID, Status, Is_Billed_To, "
                             "Account_Balance, Debtor_Since FROM Clients"));
    accounts_.reserve(clients.RowCount());
    placeOf_.reserve(static_cast<qsizetype>(clients.RowCount()));
    for (const Record row : clients) {
      const Id<Client> client(row[ClientId].ToLong());
      placeOf_[client] = accounts_.size();
      accounts_.push_back({.client = client,
                           .payer = PayerFrom(client, row[BillingClientId]),
                           .status = StoredClientStatus(row[Status].ToText()),
                           .isBilledTo = row[IsBilledTo].ToBool(),
                           .balance = row[Balance],
                           .debtorSince = row[DebtorSince]});
    }
  }

  void LoadJobs() {
    // Most jobs of a file are done: reading along the table is cheaper than by way of their status,
    // and four comparisons, of which the first mostly decides, cheaper than a list.
    AddUp(business_.RunSQL(Sql("SELECT Client_ID, IIf({}, Total_Price, 0) FROM Diary", IsDone())),
          &Figures::jobs);
  }

  void LoadPayments() {
    AddUp(business_.RunSQL(Sql("SELECT Client_ID, Amount FROM Payments")), &Figures::paid);
  }

  /// Adding up here costs half of grouping in the store, which has to sort for it.
  void AddUp(const Recordset& amounts, Money Figures::*total) {
    enum Place : size_t { ClientId, Amount };
    for (const Record row : amounts) {
      Figures* account = Find(Id<Client>(row[ClientId].ToLong()));
      if (account) account->*total += row[Amount].ToMoney();
    }
  }

  void SumGroups() {
    for (const Figures& account : accounts_) {
      if (Figures* payer = Find(account.payer)) {
        payer->jobsOfGroup += account.jobs;
        payer->paidByGroup += account.paid;
      }
    }
  }

  void Recalculate(Figures& account) {
    switch (BalanceKindOf(account.client, account.payer, account.status)) {
      case BalanceKind::PaysForItself:
        SetBalance(account, RoundedBalance(account.paid, account.jobsOfGroup));
        break;
      case BalanceKind::BillingAddress:
        SetBalance(account, RoundedBalance(account.paidByGroup, account.jobsOfGroup));
        break;
      case BalanceKind::BilledToAnother:
        SetBalance(account, Money());
        if (Figures* payer = Find(account.payer)) {
          SetBalance(*payer, payer->paidByGroup - payer->jobsOfGroup);
        }
        break;
    }
    const Value since = NextDebtorSince(account.balance.ToMoney(), account.debtorSince, today_,
                                        [&] { return OldestUnpaidJobOfGroup(account.client); });
    account.isChanged |= !(since == account.debtorSince);
    account.debtorSince = since;
  }

  static void SetBalance(Figures& account, Money balance) {
    account.isChanged |= !(Value(balance) == account.balance);
    account.balance = balance;
  }

  /// Read when the first debtor with a date asks, since nobody else needs it.
  Value OldestUnpaidJobOfGroup(Id<Client> payer) {
    if (!oldestUnpaidJobs_) LoadOldestUnpaidJobs();
    return oldestUnpaidJobs_->value(payer);
  }

  void LoadOldestUnpaidJobs() {
    oldestUnpaidJobs_.emplace();
    const Recordset jobs =
        business_.RunSQL(Sql("SELECT Client_ID, MIN(Schedule_Date) AS Oldest FROM Diary "
                             "WHERE Status = {} AND Payment_ID IS NULL AND Schedule_Date < {} "
                             "GROUP BY Client_ID",
                             EntryStatus::JobDone, business_.Now()));
    for (const Record row : jobs) {
      const Figures* account = Find(Id<Client>(row[u"Client_ID"].ToLong()));
      if (!account) continue;
      Value& kept = (*oldestUnpaidJobs_)[account->payer];
      const Value& oldest = row[u"Oldest"];
      if (kept.IsNull() || *oldest.ToDateTime() < *kept.ToDateTime()) kept = oldest;
    }
  }

  Figures* Find(Id<Client> client) {
    const auto at = placeOf_.constFind(client);
    return at == placeOf_.cend() ? nullptr : &accounts_[*at];
  }

  Business& business_;
  QDate today_;                        // the clock is asked once, not for each client
  std::vector<Figures> accounts_;      // in the order of the file
  QHash<Id<Client>, size_t> placeOf_;  // in accounts_, by client
  std::optional<QHash<Id<Client>, Value>> oldestUnpaidJobs_;  // by the client who is billed
};

}  // namespace

void RecalculateAmountOwingOfAllClients(Business& business) {
  Transaction recalculation(business);
  AllBalances balances(business);
  balances.Load();
  balances.Recalculate();
  balances.Store();
  recalculation.Commit();
}

}  // namespace quillary::balances
