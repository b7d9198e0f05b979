// Computes every balance from whole tables. What decides is that the figures are those that
// RecalculateClientBalance() would give, called client by client: a client who is billed to another
// writes to the other's balance, so the clients are walked in the same order here, on figures in
// memory, and what came out different is written at the end.

#include "balances/BalanceRules.h"
#include "balances/ClientBalance.h"

#include <QHash>

#include <vector>

namespace quillary {
namespace {

struct Account {
  qint64 clientId = 0;
  qint64 billingClientId = 0;
  QString status;
  bool isBilledTo = false;
  Value balance;
  Value debtorSince;
  Money jobs;  // of the client alone
  Money paid;
  Value oldestUnpaidJob;
  bool isChanged = false;
};

/// The sums of all who are billed to one client.
struct Group {
  Money jobs;
  Money paid;
  Value oldestUnpaidJob;
};

class AllBalances {
 public:
  explicit AllBalances(Business& business) : business_(business) {}

  void Load() {
    LoadClients();
    LoadJobs();
    LoadPayments();
    SumGroups();
  }

  void Recalculate() {
    for (Account& account : accounts_) {
      if (account.isBilledTo) Recalculate(account);
    }
  }

  void Store() {
    for (const Account& account : accounts_) {
      if (!account.isChanged) continue;
      business_.RunSQL(
          Sql("UPDATE Clients SET Account_Balance = {}, Debtor_Since = {} WHERE Client_ID = {}",
              account.balance, account.debtorSince, account.clientId));
    }
  }

 private:
  void LoadClients() {
    const Recordset clients =
        business_.RunSQL(Sql("SELECT Client_ID, Billing_Client_ID, Status, Is_Billed_To, "
                             "Account_Balance, Debtor_Since FROM Clients"));
    accounts_.reserve(clients.RowCount());
    placeOf_.reserve(static_cast<qsizetype>(clients.RowCount()));
    for (const Record row : clients) {
      Account account;
      account.clientId = row[u"Client_ID"].ToLong();
      account.billingClientId = row[u"Billing_Client_ID"].ToLong();
      account.status = row[u"Status"].ToText();
      account.isBilledTo = row[u"Is_Billed_To"].ToBool();
      account.balance = row[u"Account_Balance"];
      account.debtorSince = row[u"Debtor_Since"];
      placeOf_[account.clientId] = accounts_.size();
      accounts_.push_back(std::move(account));
    }
  }

  void LoadJobs() {
    const Recordset jobs = business_.RunSQL(
        Sql("SELECT Client_ID, SUM(Total_Price) AS Jobs, "
            "MIN(IIf(Status = 'JD' AND Payment_ID IS NULL AND Schedule_Date < {}, "
            "Schedule_Date, NULL)) AS Oldest_Unpaid "
            "FROM Diary WHERE Status IN ('JP', 'JU', 'JD', 'JI') GROUP BY Client_ID",
            business_.Now()));
    for (const Record row : jobs) {
      if (Account* account = Find(row[u"Client_ID"].ToLong())) {
        account->jobs = row[u"Jobs"].ToMoney();
        account->oldestUnpaidJob = row[u"Oldest_Unpaid"];
      }
    }
  }

  void LoadPayments() {
    const Recordset payments = business_.RunSQL(
        Sql("SELECT Client_ID, SUM(Amount) AS Paid FROM Payments GROUP BY Client_ID"));
    for (const Record row : payments) {
      if (Account* account = Find(row[u"Client_ID"].ToLong()))
        account->paid = row[u"Paid"].ToMoney();
    }
  }

  void SumGroups() {
    groups_.reserve(static_cast<qsizetype>(accounts_.size()));
    for (const Account& account : accounts_) {
      Group& group = groups_[account.billingClientId];
      group.jobs += account.jobs;
      group.paid += account.paid;
      const auto oldest = account.oldestUnpaidJob.ToDateTime();
      const auto oldestOfGroup = group.oldestUnpaidJob.ToDateTime();
      if (oldest && (!oldestOfGroup || *oldest < *oldestOfGroup)) group.oldestUnpaidJob = *oldest;
    }
  }

  void Recalculate(Account& account) {
    const qint64 billed = account.billingClientId;
    const Group group = groups_.value(billed);
    switch (BalanceKindOf(account.clientId, billed, account.status)) {
      case BalanceKind::PaysForItself:
        SetBalance(account, RoundedBalance(account.paid, group.jobs));
        break;
      case BalanceKind::BillingAddress:
        SetBalance(account, RoundedBalance(group.paid, group.jobs));
        break;
      case BalanceKind::BilledToAnother:
        SetBalance(account, Money());
        if (Account* other = Find(billed)) SetBalance(*other, group.paid - group.jobs);
        break;
    }
    const Value since =
        NextDebtorSince(account.balance.ToMoney(), account.debtorSince, business_.Today(),
                        [&] { return groups_.value(account.clientId).oldestUnpaidJob; });
    account.isChanged |= !(since == account.debtorSince);
    account.debtorSince = since;
  }

  static void SetBalance(Account& account, Money balance) {
    account.isChanged |= !(Value(balance) == account.balance);
    account.balance = balance;
  }

  Account* Find(qint64 clientId) {
    const auto at = placeOf_.constFind(clientId);
    return at == placeOf_.cend() ? nullptr : &accounts_[*at];
  }

  Business& business_;
  std::vector<Account> accounts_;  // in the order of the file
  QHash<qint64, size_t> placeOf_;  // in accounts_, by client
  QHash<qint64, Group> groups_;    // by the client who is billed
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

}  // namespace quillary
