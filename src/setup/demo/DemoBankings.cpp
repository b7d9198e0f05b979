#include "domain/BillingWords.h"
#include "setup/demo/DemoModel.h"

namespace quillary::setup::demo {
namespace {

Money Unbanked(Business& business, const Sql& which) {
  return business
      .FirstField(
          Sql("SELECT SUM(Amount) AS Total FROM Payments WHERE Banking_ID IS NULL AND {}", which))
      .ToMoney();
}

}  // namespace

void WriteBankings(Business& business, const Model& model) {
  const auto account = business.InsertReturningKey<BankAccount>(
      Sql("INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) "
          "VALUES ('Business account', '063-001 1022 4417')"));
  const int toFriday = (Qt::Friday - model.begin.dayOfWeek() + 7) % 7;
  for (QDate friday = model.begin.addDays(toFriday); friday < model.today;
       friday = friday.addDays(7)) {
    const auto paidBy = [&](PaymentGroup kind) {
      return Sql("(Payment_Date <= {} AND UCase(Payment_Method) IN {})", EndOfDay(friday),
                 MethodsOf(kind));
    };
    const Sql cash = paidBy(PaymentGroup::BankedAsCash);
    const Sql cheques = paidBy(PaymentGroup::BankedAsCheque);
    const Money ofCash = Unbanked(business, cash);
    const Money total = ofCash + Unbanked(business, cheques);
    if (total == Money()) continue;
    const auto banking = business.InsertReturningKey<Banking>(
        Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_Unbanked, "
            "Total_Banked) VALUES ({}, {}, {}, 0, {})",
            account, friday, ofCash, total));
    business.Write(
        Sql("UPDATE Payments SET Banking_ID = {} WHERE Banking_ID IS NULL "
            "AND ({} OR {})",
            banking, cash, cheques));
  }
}

}  // namespace quillary::setup::demo
