#include "balances/DebtAges.h"

#include "domain/EntryStatus.h"

#include <algorithm>
#include <unordered_map>

namespace quillary::balances {
namespace {

constexpr int kDaysOfAge = 30;

/// What the groups of debtors had done in the last 90 days, a row for each payer and day. `sites`
/// are the clients that it pays for. The walk goes from debtors to their jobs by index, so that
/// those of everybody else are never read.
Recordset JobsOfDebtors(Business& business, const char* sites) {
  return business.RunSQL(
      Sql("SELECT Payers.Client_ID, Diary.Schedule_Date, SUM(Diary.Total_Price) AS Total "
          "FROM (Clients AS Payers INNER JOIN Clients AS Sites ON {}) "
          "INNER JOIN Diary ON Sites.Client_ID = Diary.Client_ID "
          "WHERE Payers.Account_Balance < 0 AND Payers.Is_Billed_To = Yes "
          "AND Diary.Schedule_Date >= {} AND {} "
          "GROUP BY Payers.Client_ID, Diary.Schedule_Date",
          Sql(sites), business.Today().addDays(-kDaysOfAge * static_cast<int>(DebtAge::Over90)),
          IsInGroup("Diary.Status", EntryGroup::WorkDone)));
}

/// What is done ahead of its day is as new as can be.
DebtAge AgeOf(QDate day, QDate today) {
  const auto days = day.daysTo(today);
  return days <= kDaysOfAge       ? DebtAge::To30
         : days <= 2 * kDaysOfAge ? DebtAge::To60
                                  : DebtAge::To90;
}

}  // namespace

std::vector<AgedDebt> AgeDebts(Business& business) {
  std::vector<AgedDebt> debts;
  std::unordered_map<Id<Client>, size_t> at;
  std::vector<Money> left;
  bool someNameNobody = false;
  for (const Record row :
       business.RunSQL(Sql("SELECT Client_ID, Account_Balance, Billing_Client_ID FROM Clients "
                           "WHERE Account_Balance < 0 AND Is_Billed_To = Yes"))) {
    const Id<Client> payer(row[size_t{0}].ToLong());
    at.emplace(payer, debts.size());
    debts.push_back({payer, {}});
    left.push_back(-row[1].ToMoney());
    someNameNobody |= !row[2].ToId<Client>();
  }
  if (debts.empty()) return debts;
  std::vector<AgedMoney> jobs(debts.size());
  const auto add = [&](const char* sites) {
    for (const Record row : JobsOfDebtors(business, sites)) {
      const size_t debt = at.at(Id<Client>(row[size_t{0}].ToLong()));
      const DebtAge age = AgeOf(row[1].ToDate(), business.Today());
      jobs[debt][static_cast<size_t>(age)] += row[2].ToMoney();
    }
  };
  add("Sites.Billing_Client_ID = Payers.Client_ID");
  // Who names nobody pays for itself.
  if (someNameNobody)
    add("Sites.Client_ID = Payers.Client_ID "
        "AND (Sites.Billing_Client_ID IS NULL OR Sites.Billing_Client_ID = 0)");
  for (size_t debt = 0; debt < debts.size(); ++debt) {
    for (size_t age = 0; age + 1 < kDebtAges.size(); ++age) {
      debts[debt].parts[age] = std::clamp(jobs[debt][age], Money(), left[debt]);
      left[debt] -= debts[debt].parts[age];
    }
    debts[debt].parts.back() = left[debt];
  }
  return debts;
}

}  // namespace quillary::balances
