#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

#include <algorithm>

namespace quillary::setup::demo {
namespace {

struct Purchase {
  size_t supplier = 0;
  QDate date;
  Money amount;
  QString description;
  int method = 0;
  const char* model = "";  // of an asset
  const char* serialNumber = "";
};

constexpr int kEquipmentAccount = 10;  // of kAccounts
constexpr size_t kMowerShop = 1;       // of kSuppliers

qint64 AccountKey(Business& business, int account) {
  return business
      .FirstField(
          Sql("SELECT GL_Account_ID FROM General_Ledger_Accounts WHERE GL_Account_Number = {}",
              kAccounts[static_cast<size_t>(account)].number))
      .ToLong();
}

std::vector<qint64> WriteSuppliers(Business& business, Dice& dice) {
  std::vector<qint64> keys;
  for (const DemoSupplier& supplier : kSuppliers) {
    const Suburb& suburb = dice.Pick(kSuburbs);
    const auto key = business.InsertReturningKey<Supplier>(
        Sql("INSERT INTO Suppliers (Supplier_Name, Contact_Name, Street_Number, Street, Suburb, "
            "Post_Code, Phone, Payment_Type, GL_Account_ID) "
            "VALUES ({}, {}, {}, {}, {}, {}, {}, 'DIRECT DEPOSIT', {})",
            supplier.name, supplier.contact, QString::number(dice.Between(1, 300)),
            dice.Pick(kStreets), suburb.name, suburb.postCode,
            QStringLiteral("03 9555 %1").arg(dice.Below(10000), 4, 10, QChar(u'0')),
            AccountKey(business, supplier.account)));
    keys.push_back(key.Number());
  }
  return keys;
}

std::vector<Purchase> InventPurchases(const Model& model, Dice& dice) {
  constexpr int kWays[] = {10, 4, 40, 36, 10};
  std::vector<Purchase> purchases;
  for (size_t index = 0; index < kSuppliers.size(); ++index) {
    const DemoSupplier& supplier = kSuppliers[index];
    QDate day = model.begin.addDays(dice.Below(supplier.everyDays));
    for (; day < model.today; day = day.addDays(supplier.everyDays)) {
      Purchase purchase;
      purchase.supplier = index;
      purchase.date = day;
      purchase.amount =
          Money::FromUnits(100 * dice.Between(supplier.lowAmount * 100, supplier.highAmount * 100));
      purchase.description = QString(supplier.item);
      purchase.method = dice.Weighted(kWays);
      purchases.push_back(purchase);
    }
  }
  Purchase mower;
  mower.supplier = kMowerShop;
  mower.date = model.begin.addDays(model.begin.daysTo(model.today) / 3);
  mower.amount = Money::FromWhole(1749);
  mower.description = QStringLiteral("Self-propelled mower");
  mower.method = 2;
  mower.model = "Trundle 530";
  mower.serialNumber = "TR530-004417";
  purchases.push_back(mower);
  std::stable_sort(
      purchases.begin(), purchases.end(),
      [](const Purchase& left, const Purchase& right) { return left.date < right.date; });
  return purchases;
}

}  // namespace

int WritePurchases(Business& business, const Model& model, Dice& dice) {
  const std::vector<qint64> suppliers = WriteSuppliers(business, dice);
  const std::vector<Purchase> purchases = InventPurchases(model, dice);
  int number = 4100;
  for (const Purchase& purchase : purchases) {
    const bool isAsset = *purchase.model != '\0';
    const qint64 account =
        AccountKey(business, isAsset ? kEquipmentAccount : kSuppliers[purchase.supplier].account);
    const Money gst = GstOf(purchase.amount);
    const auto key = business.InsertReturningKey<quillary::Purchase>(Sql(
        "INSERT INTO Purchases (Supplier_ID, Employee_ID, GL_Account_ID, Description, "
        "Purchase_Date, Amount, GST_Included, Payment_Method, Invoice_Number, Capital, Model, "
        "Serial_Number, Depreciation) "
        "VALUES ({}, 1, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {})",
        suppliers[purchase.supplier], account, purchase.description, purchase.date, purchase.amount,
        gst, kPaymentMethods[static_cast<size_t>(purchase.method)], QString::number(++number),
        isAsset, purchase.model, purchase.serialNumber, isAsset ? 20 : 0));
    business.RunSQL(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Employee_ID, Purchase_ID, "
            "Entry_Date, GL_Entry_Description, GL_Amount, GST_Included) "
            "VALUES ({}, 1, {}, {}, {}, {}, {})",
            account, key, purchase.date, purchase.description, purchase.amount, gst));
  }
  return static_cast<int>(purchases.size());
}

}  // namespace quillary::setup::demo
