#include "accounts/purchases/PurchaseRecord.h"
#include "accounts/purchases/PurchasesList.h"
#include "accounts/purchases/Receipts.h"
#include "accounts/purchases/Suppliers.h"
#include "billing/payments/PaymentRecord.h"
#include "support/BusinessTest.h"
#include "support/Contents.h"

#include <QDir>
#include <QFile>

namespace quillary::accounts {
namespace {

using billing::SaveLedgerLine;

Money Cents(qint64 cents) {
  return Money::FromUnits(cents * 100);
}

/// A business with the accounts of expense 1 Fuel and 2 Repairs, the account of revenue 3 Lawns,
/// and the supplier 1 Pump.
class PurchasesTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.gstPercentage = 0.1F;
    for (const auto& [name, type] : {std::pair("Fuel", "Expense"), std::pair("Repairs", "Expense"),
                                     std::pair("Lawns", "Revenue")})
      Run(
          Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
              "VALUES ({}, {})",
              name, type));
    SupplierForm pump{.name = " Pump ", .paymentType = "CHEQUE", .glAccountId = 1_account};
    ASSERT_FALSE(SaveSupplierDetails(business(), pump));
    pump_ = *pump.supplierId;
  }

  PurchaseForm Form(Money amount, const char* item = "Petrol") {
    PurchaseForm form = BlankPurchase(business(), pump_);
    form.description = item;
    form.amount = amount;
    form.gst = billing::TaxWithin(business(), amount, false);
    return form;
  }
  Id<Purchase> Store(PurchaseForm form) {
    const auto refusal = SavePurchase(business(), form);
    EXPECT_FALSE(refusal) << refusal->message.toStdString();
    return *form.purchaseId;
  }
  void AddLine(Id<Purchase> purchase, Id<Account> account, Money amount) {
    EXPECT_FALSE(billing::SaveAccount(business(), purchase,
                                      {.glAccountId = account,
                                       .amount = amount,
                                       .gst = billing::TaxWithin(business(), amount, false)},
                                      SaveLedgerLine::AsNew));
  }
  QString Row(const Sql& statement) {
    QStringList fields;
    for (const Record record : Run(statement))
      for (size_t at = 0; at < record.Size(); ++at) fields += record[at].ToText("-");
    return fields.join(u'|');
  }

  Id<Supplier> pump_{1};
};

TEST_F(PurchasesTest, ASupplierNeedsANameAndAnAccountOfExpense) {
  struct Case {
    const char* fault;
    const char* name;
    std::optional<Id<Account>> account;
    const char* message;
  };
  const Case cases[] = {
      {"no name", " ", 1_account, "Please enter the name of the supplier."},
      {"no account", "Shop", {}, "Please select the default Ledger account."},
      {"an account of revenue", "Shop", 3_account, "Please select the default Ledger account."},
      {"an account that has gone", "Shop", 9_account, "Please select the default Ledger account."},
  };
  for (const Case& c : cases) {
    SupplierForm form{.name = c.name, .glAccountId = c.account};
    const auto refusal = SaveSupplierDetails(business(), form);
    ASSERT_TRUE(refusal) << c.fault;
    EXPECT_EQ(refusal->message, c.message) << c.fault;
  }
  EXPECT_EQ(Count("Suppliers"), 1);
  EXPECT_EQ(ListSuppliers(business())[0].name, "Pump");
  EXPECT_EQ(RemoveSupplier(business(), outside.prompter, {})->message,
            "Please select a supplier to delete.");
  const Id<Purchase> bought = Store(Form(Cents(100)));
  outside.prompter.Expect("remove this supplier Pump?", Answer::No);
  EXPECT_FALSE(RemoveSupplier(business(), outside.prompter, pump_));
  EXPECT_EQ(Count("Suppliers"), 1);
  outside.prompter.Expect("remove this supplier Pump?", Answer::Yes);
  EXPECT_FALSE(RemoveSupplier(business(), outside.prompter, pump_));
  ASSERT_TRUE(LoadPurchase(business(), bought)) << "what was bought stays";
  PurchaseForm orphan = *LoadPurchase(business(), bought);
  EXPECT_EQ(SavePurchase(business(), orphan)->message, "Please select a supplier.");
}

TEST_F(PurchasesTest, ANewPurchaseTakesTheHabitsOfItsSupplier) {
  const PurchaseForm form = BlankPurchase(business(), pump_);
  EXPECT_EQ(form.paymentMethod, "CHEQUE");
  EXPECT_EQ(form.purchaseDate, QDate(2026, 11, 2));
  EXPECT_EQ(BlankPurchase(business()).paymentMethod, "CASH");
  EXPECT_EQ(BlankPurchase(business(), Id<Supplier>(9)).supplierId, std::nullopt);
  for (const char* item : {"Petrol", "Oil", "Petrol"}) Store(Form(Cents(500), item));
  EXPECT_EQ(ListItemsOf(business(), pump_), (QStringList{"Oil", "Petrol"}));
}

TEST_F(PurchasesTest, ACostMayBeNegativeButNotNothing) {
  PurchaseForm nobody = Form(Cents(100));
  nobody.supplierId.reset();
  EXPECT_EQ(SavePurchase(business(), nobody)->message, "Please select a supplier.");
  PurchaseForm nothing = Form(Money());
  EXPECT_EQ(SavePurchase(business(), nothing)->message, "Please enter a valid amount.");
  EXPECT_EQ(Count("Purchases"), 0);
  PurchaseForm refund = Form(Cents(-2000));
  refund.invoiceNumber = "  77 ";
  refund.capital = true;
  refund.model = "T530";
  refund.depreciation = 12.5;
  Store(refund);
  EXPECT_EQ(Row(Sql("SELECT Amount, GST_Included, Invoice_Number, Capital, Model, Depreciation, "
                    "Cheque_Reconciled, Description FROM Purchases")),
            "-20|-1.82|77|True|T530|12.5|False|Petrol");
  PurchaseForm again = *LoadPurchase(business(), Id<Purchase>(1));
  again.depreciation.reset();
  again.capital = false;
  Store(again);
  EXPECT_EQ(Row(Sql("SELECT Capital, Model, Depreciation FROM Purchases")), "False|T530|-")
      << "what belongs to an asset stays";
}

TEST_F(PurchasesTest, LinesMatchInWholeCentsAndFollowTheirPurchase) {
  const Id<Purchase> purchase = Store(Form(Cents(10000)));
  AddLine(purchase, 1_account, Cents(6000));
  EXPECT_FALSE(IsTotalEqual(billing::LoadAccounts(business(), purchase), Cents(10000)));
  EXPECT_EQ(
      billing::SaveAccount(business(), purchase, {.glAccountId = 3_account}, SaveLedgerLine::AsNew)
          ->message,
      "Please select a Expense account.")
      << "an account of revenue";
  AddLine(purchase, 2_account, Cents(4000));
  const auto lines = billing::LoadAccounts(business(), purchase);
  EXPECT_TRUE(IsTotalEqual(lines, Money::FromUnits(1000049))) << "the cost is taken in cents";
  EXPECT_EQ(Row(Sql("SELECT Entry_Date FROM General_Ledger_Entries")), "-|-");
  PurchaseForm later = *LoadPurchase(business(), purchase);
  later.purchaseDate = QDate(2026, 10, 5);
  later.description = "Diesel";
  Store(later);
  EXPECT_EQ(Row(Sql("SELECT COUNT(*) FROM General_Ledger_Entries WHERE Purchase_ID = 1 AND "
                    "Payment_ID IS NULL AND GL_Entry_Description = 'Diesel' "
                    "AND Entry_Date = #2026/10/5#")),
            "2");
}

TEST_F(PurchasesTest, TheListShowsWhatDiffersFromItsLines) {
  struct Case {
    const char* item;
    Money amount;
    bool exempt;
    std::vector<std::pair<Id<Account>, Money>> lines;
    const char* account;
    bool mismatch;
  };
  const Case cases[] = {
      {"a booked",
       Cents(11000),
       false,
       {{2_account, Cents(5500)}, {1_account, Cents(5500)}},
       "Repairs",
       false},
      {"b short", Cents(11000), false, {{1_account, Cents(5500)}}, "Fuel", true},
      {"c unbooked", Cents(1000), false, {}, "(none)", true},
      {"d exempt", Cents(1100), true, {{1_account, Cents(1100)}}, "Fuel", true},  // its tax differs
  };
  Money total;
  for (const Case& c : cases) {
    PurchaseForm form = Form(c.amount, c.item);
    if (c.exempt) form.gst = {};
    const Id<Purchase> purchase = Store(form);
    for (const auto& [account, amount] : c.lines) AddLine(purchase, account, amount);
    total += c.amount;
  }
  PurchaseForm other = Form(Cents(1), "next month");
  other.purchaseDate = QDate(2026, 12, 1);
  Store(other);
  Run(Sql("UPDATE Purchases SET Purchase_Date = #2026/11/30 23:10:0# WHERE Purchase_ID = 1"));
  const DateRange november{QDate(2026, 11, 1), QDate(2026, 11, 30)};
  const PurchasesList list = LoadPurchases(business(), november);
  ASSERT_EQ(list.rows.size(), std::size(cases));
  for (size_t at = 0; at < list.rows.size(); ++at) {
    EXPECT_EQ(list.rows[at].description, cases[at].item);
    EXPECT_EQ(list.rows[at].accountName, cases[at].account) << cases[at].item;
    EXPECT_EQ(list.rows[at].IsMismatch(), cases[at].mismatch) << cases[at].item;
  }
  EXPECT_EQ(list.totalAmount, total);
  EXPECT_EQ(list.totalGST, Cents(1000 + 1000 + 91));

  EXPECT_EQ(DeletePurchase(business(), outside.prompter, nullptr)->message,
            "Please select a purchase record.");
  outside.prompter.Expect("delete this purchase made last 30 Nov 2026?", Answer::Yes);
  EXPECT_FALSE(DeletePurchase(business(), outside.prompter, &list.rows[0]));
  EXPECT_EQ(Row(Sql("SELECT COUNT(*) FROM General_Ledger_Entries WHERE Purchase_ID = 1")), "0");
  EXPECT_EQ(Count("General_Ledger_Entries"), 2);
  EXPECT_THROW(RemovePurchase(business(), Id<Purchase>(1)), WriteFailed);
}

TEST_F(PurchasesTest, AReceiptIsKeptBesideTheBusinessOrNotAtAll) {
  const Id<Purchase> purchase = Store(Form(Cents(100)));
  const auto write = [&](const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  };
  const QByteArray pdf = "%PDF-1.3\n%receipt\n";
  const Contents before = ContentsOf(business());
  struct Case {
    const char* fault;
    QString path;
    const char* message;
  };
  const Case cases[] = {{"missing", folder.filePath("none.pdf"), "cannot be read"},
                        {"a folder", folder.path(), "cannot be read"},
                        {"empty", write("empty.pdf", ""), "cannot be read"},
                        {"a text", write("notes.txt", "milk"), "is neither a picture nor a PDF"}};
  for (const Case& c : cases) {
    const auto refusal = AttachReceipt(business(), purchase, c.path);
    ASSERT_TRUE(refusal) << c.fault;
    EXPECT_TRUE(refusal->message.contains(c.message)) << refusal->message.toStdString();
  }
  EXPECT_EQ(ContentsOf(business()), before);
  EXPECT_FALSE(QDir(folder.filePath("Receipts")).exists());

  const QString docket = write("Fuel docket.pdf", pdf);
  ASSERT_FALSE(AttachReceipt(business(), purchase, docket));
  ASSERT_FALSE(AttachReceipt(business(), purchase, docket));
  const auto receipts = ListReceipts(business(), purchase);
  ASSERT_EQ(receipts.size(), 2U);
  EXPECT_NE(receipts[0].path, receipts[1].path) << "neither takes the other's place";
  QFile copy(receipts[1].path);
  ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
  EXPECT_EQ(copy.readAll(), pdf);
  EXPECT_EQ(receipts[0].title, "Fuel docket.pdf");
  QFile::remove(receipts[0].path);
  EXPECT_FALSE(ListReceipts(business(), purchase)[0].isThere);
  Run(Sql("UPDATE Purchase_Receipts SET File_Name = '../DATA.MDB' WHERE Receipt_ID = 1"));
  EXPECT_FALSE(ListReceipts(business(), purchase)[0].isThere) << "a row leads out of the folder";
  RemovePurchase(business(), purchase);
  EXPECT_EQ(Count("Purchase_Receipts"), 0);
  EXPECT_TRUE(QFile::exists(receipts[1].path)) << "so that the deletion can be taken back";
}

}  // namespace
}  // namespace quillary::accounts
