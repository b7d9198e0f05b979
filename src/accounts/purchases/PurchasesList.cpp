#include "accounts/purchases/PurchasesList.h"

#include "accounts/purchases/Receipts.h"
#include "base/DateTime.h"

#include <QHash>

namespace quillary::accounts {
namespace {

struct LinesOfPurchase {
  QString accountName;
  Money amount;
  Money gst;
};

/// One pass over the lines of all purchases listed: a statement for each would read the ledger as
/// often as there are rows.
QHash<Id<Purchase>, LinesOfPurchase> LoadLines(Business& business, const DateRange& days) {
  QHash<Id<Purchase>, LinesOfPurchase> lines;
  for (const Record row : business.RunSQL(
           Sql("SELECT Purchases.Purchase_ID, General_Ledger_Entries.GL_Amount, "
               "General_Ledger_Entries.GST_Included, General_Ledger_Accounts.GL_Account_Name "
               "FROM (Purchases INNER JOIN General_Ledger_Entries "
               "ON Purchases.Purchase_ID = General_Ledger_Entries.Purchase_ID) "
               "LEFT JOIN General_Ledger_Accounts "
               "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE Purchases.Purchase_Date BETWEEN {} AND {} "
               "ORDER BY General_Ledger_Accounts.GL_Account_Name;",
               days.from, EndOfDay(days.to)))) {
    LinesOfPurchase& of = lines[Id<Purchase>(row[u"Purchase_ID"].ToLong())];
    of.amount += row[u"GL_Amount"].ToMoney();
    of.gst += row[u"GST_Included"].ToMoney();
    const QString name = row[u"GL_Account_Name"].ToText();
    if (!name.isEmpty()) of.accountName = name;  // they come by name: the greatest stays
  }
  return lines;
}

}  // namespace

PurchasesList LoadPurchases(Business& business, const DateRange& days) {
  const QHash<Id<Purchase>, LinesOfPurchase> lines = LoadLines(business, days);
  PurchasesList list;
  for (const Record row : business.RunSQL(
           Sql("SELECT Purchases.Purchase_ID, Purchases.Purchase_Date, Suppliers.Supplier_Name, "
               "Purchases.Description, Purchases.Amount, Purchases.GST_Included, "
               "Purchases.Payment_Method "
               "FROM Purchases LEFT JOIN Suppliers "
               "ON Purchases.Supplier_ID = Suppliers.Supplier_ID "
               "WHERE Purchases.Purchase_Date BETWEEN {} AND {} "
               "ORDER BY Purchase_Date DESC, Description, Purchases.Purchase_ID; ",
               days.from, EndOfDay(days.to)))) {
    const Id<Purchase> purchase(row[u"Purchase_ID"].ToLong());
    const LinesOfPurchase of = lines.value(purchase);
    list.rows.push_back(
        {.purchase = purchase,
         .purchaseDate = row[u"Purchase_Date"].ToDate(),
         .supplierName = row[u"Supplier_Name"].ToText(),
         .description = row[u"Description"].ToText(),
         .amount = row[u"Amount"].ToMoney(),
         .gst = row[u"GST_Included"].ToMoney(),
         .accountName = of.accountName.isEmpty() ? QStringLiteral("(none)") : of.accountName,
         .paymentMethod = row[u"Payment_Method"].ToText(),
         .glAmount = of.amount,
         .glGst = of.gst});
    list.totalAmount += list.rows.back().amount;
    list.totalGST += list.rows.back().gst;
  }
  return list;
}

std::optional<Refusal> CheckPurchaseChosen(const PurchaseRow* purchase) {
  if (purchase) return std::nullopt;
  return Refusal{QStringLiteral("Please select a purchase record."), {}};
}

std::optional<Refusal> DeletePurchase(Business& business, Prompter& prompter,
                                      const PurchaseRow* purchase) {
  if (const auto refusal = CheckPurchaseChosen(purchase)) return refusal;
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to delete this purchase made last %1?")
          .arg(ToShortDateText(purchase->purchaseDate)));
  if (answer == Answer::Yes) RemovePurchase(business, purchase->purchase);
  return std::nullopt;
}

void RemovePurchase(Business& business, Id<Purchase> purchase) {
  Transaction removal(business);
  business.Write(Sql("DELETE FROM Purchases WHERE Purchase_ID = {}", purchase), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM General_Ledger_Entries WHERE Purchase_ID = {}", purchase));
  DetachReceiptsOf(business, purchase);
  removal.Commit();
}

}  // namespace quillary::accounts
