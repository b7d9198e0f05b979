#include "balances/DebtAges.h"

#include "domain/EntryStatus.h"
#include "domain/Payer.h"

#include <algorithm>
#include <unordered_map>

namespace quillary::balances {
namespace {

constexpr int kDaysOfAge = 30;

/// The jobs done on those days, as what debtors are to pay for them.
Recordset JobsOfDebtors(Business& business, const Sql& days) {
  return business.RunSQL(
      Sql("SELECT {} AS Payer_ID, SUM(Diary.Total_Price) AS Total "
          "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
          "WHERE Diary.Status IN {} AND {} GROUP BY {}",
          PayerColumn("Clients"), CodesOf(EntryGroup::WorkDone), days, PayerColumn("Clients")));
}

Sql DaysOf(DebtAge age, QDate today) {
  const int number = static_cast<int>(age);
  const DateTime newest = EndOfDay(today.addDays(-number * kDaysOfAge - 1));
  const QDate oldest = today.addDays(-(number + 1) * kDaysOfAge);
  // What is done ahead of its day is as new as can be.
  if (age == DebtAge::To30) return Sql("Diary.Schedule_Date >= {}", oldest);
  return Sql("Diary.Schedule_Date BETWEEN {} AND {}", oldest, newest);
}

}  // namespace

std::vector<AgedDebt> AgeDebts(Business& business) {
  std::vector<AgedDebt> debts;
  std::unordered_map<Id<Client>, size_t> at;
  std::vector<Money> left;
  for (const Record row :
       business.RunSQL(Sql("SELECT Client_ID, Account_Balance FROM Clients "
                           "WHERE Account_Balance < 0 AND Is_Billed_To = Yes"))) {
    const Id<Client> payer(row[size_t{0}].ToLong());
    at.emplace(payer, debts.size());
    debts.push_back({payer, {}});
    left.push_back(-row[1].ToMoney());
  }
  if (debts.empty()) return debts;
  for (const DebtAge age : {DebtAge::To30, DebtAge::To60, DebtAge::To90}) {
    for (const Record row : JobsOfDebtors(business, DaysOf(age, business.Today()))) {
      const auto found = at.find(Id<Client>(row[size_t{0}].ToLong()));
      if (found == at.end()) continue;
      const Money part = std::clamp(row[1].ToMoney(), Money(), left[found->second]);
      debts[found->second].parts[static_cast<size_t>(age)] = part;
      left[found->second] -= part;
    }
  }
  for (size_t debt = 0; debt < debts.size(); ++debt) debts[debt].parts.back() = left[debt];
  return debts;
}

}  // namespace quillary::balances
