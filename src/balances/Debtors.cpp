#include "balances/Debtors.h"

#include <unordered_map>

namespace quillary::balances {
namespace {

std::vector<DebtorRow> ListByBalance(Business& business, const Sql& balance, DebtorFilter filter) {
  Sql statement =
      Sql("SELECT Client_ID, Status, Display_Name, Phone_1, Account_Balance, Statement_Type, "
          "Debtor_Since "
          "FROM Clients WHERE ") +
      balance + Sql(" AND NOT(Account_Balance IS NULL) AND Is_Billed_To = Yes ");
  if (filter == DebtorFilter::Active) {
    statement = statement + Sql(" AND Status IN {}", StatusesOf(ClientGroup::ActiveDebtors));
  }
  std::vector<DebtorRow> rows;
  for (const Record row : business.RunSQL(statement + Sql(" ORDER BY Display_Name;"))) {
    rows.push_back({Id<Client>(row[u"Client_ID"].ToLong()), row[u"Display_Name"].ToText(),
                    StoredClientStatus(row[u"Status"].ToText()), row[u"Phone_1"].ToText(),
                    -row[u"Account_Balance"].ToMoney(),
                    StoredStatementType(row[u"Statement_Type"].ToText()),
                    row[u"Debtor_Since"].ToDate()});
  }
  return rows;
}

}  // namespace

std::vector<DebtorRow> ListDebtors(Business& business, DebtorFilter filter) {
  return ListByBalance(business, Sql("Account_Balance < 0"), filter);
}

std::vector<DebtorRow> ListDebtors(Business& business, DebtorFilter filter, DebtAge age) {
  std::unordered_map<Id<Client>, Money> parts;
  for (const AgedDebt& debt : AgeDebts(business)) parts.emplace(debt.payer, debt.Of(age));
  std::vector<DebtorRow> debtors = ListDebtors(business, filter);
  for (DebtorRow& debtor : debtors) debtor.amountOwing = parts[debtor.client];
  std::erase_if(debtors, [](const DebtorRow& debtor) { return debtor.amountOwing == Money(); });
  return debtors;
}

std::vector<DebtorRow> ListCreditors(Business& business, DebtorFilter filter) {
  return ListByBalance(business, Sql("Account_Balance > 0"), filter);
}

}  // namespace quillary::balances
