#include "accounts/banking/Cheques.h"

#include "domain/BillingWords.h"

namespace quillary::accounts {

std::vector<UnpresentedCheque> ListUnpresentedCheques(Business& business) {
  std::vector<UnpresentedCheque> cheques;
  for (const Record row : business.RunSQL(
           Sql("SELECT Purchase_ID, Cheque_Number, Supplier_Name, Purchase_Date, Amount "
               "FROM Purchases INNER JOIN Suppliers "
               "ON Purchases.Supplier_ID = Suppliers.Supplier_ID "
               "WHERE UCase(Payment_Method) = {} AND Cheque_Reconciled = 0 "
               "ORDER BY Purchase_Date, Purchase_ID; ",
               TextOf(PaymentMethod::Cheque))))
    cheques.push_back({Id<Purchase>(row[u"Purchase_ID"].ToLong()), row[u"Cheque_Number"].ToText(),
                       row[u"Supplier_Name"].ToText(), row[u"Purchase_Date"].ToDate(),
                       row[u"Amount"].ToMoney()});
  return cheques;
}

void ClearCheques(Business& business, const std::vector<Id<Purchase>>& cheques) {
  Transaction clearing(business);
  for (const Id<Purchase> cheque : cheques)
    business.Write(Sql("UPDATE Purchases SET Cheque_Reconciled = 1 WHERE Purchase_ID = {}", cheque),
                   Rows::Exactly(1));
  clearing.Commit();
}

bool MayLeaveTicked(Prompter& prompter, size_t ticked) {
  return ticked == 0 || prompter.AskBeforeLosing(QStringLiteral(
                            "You've ticked one or more cheques! Do you want to quit without "
                            "banking them?")) == Answer::Yes;
}

}  // namespace quillary::accounts
