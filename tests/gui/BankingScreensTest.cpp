#include "accounts/screens/AccountScreens.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimer>

namespace quillary {
namespace {

/// Over purchases, suppliers, banking and cheques. "Fuel" is an account of expense.
class BankingScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    accounts::RegisterAccountScreens(business(), {navigator, host, runner});
    Run(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
            "VALUES ('Fuel', 'Expense')"));
    Run(Sql("DELETE FROM lstPayment_Methods"));
    for (const char* method : {"CASH", "CHEQUE"})
      Run(Sql("INSERT INTO lstPayment_Methods (Payment_Method) VALUES ({})", method));
  }
  void Pay(const char* method, int dollars) {
    Run(
        Sql("INSERT INTO Payments (Client_ID, Payment_Method, Amount, Payment_Date) "
            "VALUES (1, {}, {}, #2026/10/30#)",
            method, dollars));
  }
  static QString Shown(const QObject& screen, const char* label) {
    return Find<QLabel>(&screen, label)->text();
  }
  static void Tick(Grid* grid, int row) {
    grid->selectRow(row);
    EnterField(grid);
    PressKey(Qt::Key_Space);
  }
};

TEST_F(BankingScreensTest, CashIsBankedByTicks) {
  Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Business')"));
  for (const auto& [method, dollars] : {std::pair("CASH", 60), std::pair("Cash", 30),
                                        std::pair("CHEQUE", 40), std::pair("DIRECT DEBIT", 5)})
    Pay(method, dollars);
  Screen& banking = OpenTab(OpenBanking{});
  EXPECT_EQ(Shown(banking, "lblCashReceived"), "$90.00");
  EXPECT_EQ(Shown(banking, "lblOnNoTab"), "1 payment by DIRECT DEBIT on no tab");
  ClickOn(&banking, "cmdSave");
  EXPECT_EQ(Told(), "Please select which bank account you have banked to.");
  EXPECT_TRUE(Find<QWidget>(&banking, "cmbBankAccount")->hasFocus());

  Tick(Find<Grid>(&banking, "grdCash"), 0);
  EXPECT_EQ(Find<QLineEdit>(&banking, "txtCashAmountDeposited")->text(), "$60.00");
  EXPECT_EQ(Shown(banking, "txtCashAmountUnDeposited"), "$30.00");
  TypeOver(&banking, "txtCashAmountDeposited", "lots");
  EXPECT_EQ(Told(), "Please enter a valid amount.");
  TypeOver(&banking, "txtCashAmountDeposited", "50");
  EXPECT_EQ(Shown(banking, "txtCashAmountUnDeposited"), "$40.00");
  Find<QTabWidget>(&banking, "pages")->setCurrentIndex(1);
  ClickOn(&banking, "chkTickUntickAll2");
  EXPECT_EQ(Shown(banking, "lblTotalBanked"), "$90.00");

  Pay("CASH", 7);
  banking.Reload();
  EXPECT_EQ(Shown(banking, "lblCashReceived"), "$97.00") << "it follows the payments";
  EXPECT_EQ(Shown(banking, "lblTotalBanked"), "$90.00") << "and keeps the ticks and what was typed";
  Find<QComboBox>(&banking, "cmbBankAccount")->setCurrentIndex(0);
  outside.prompter.Expect("The cash amount banked is not equal", Answer::Yes);
  ClickOn(&banking, "cmdSave");
  EXPECT_EQ(Word(Sql("SELECT Cash_Banked & ' ' & Cash_Unbanked & ' ' & Total_Banked "
                     "FROM Bankings")),
            "50 47 90");
  EXPECT_EQ(Number(Sql("SELECT COUNT(*) FROM Payments WHERE Banking_ID = 1")), 2);
  EXPECT_EQ(Shown(banking, "lblCashReceived"), "$37.00") << "the current payments are back";
}

TEST_F(BankingScreensTest, ADepositIsLoadedChangedAndDeleted) {
  Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Business')"));
  Pay("CASH", 60);
  Pay("CHEQUE", 40);
  Run(
      Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_Unbanked, "
          "Total_Banked) VALUES (1, #2026/10/31#, 60, 0, 100)"));
  Run(Sql("UPDATE Payments SET Banking_ID = 1"));
  Screen& banking = OpenTab(OpenBanking{});
  for (const char* command : {"cmdLoad", "cmdDelete"}) ClickOn(&banking, command);
  EXPECT_EQ(Told(), "Please select a record to load.|Please select a record to delete.");
  Find<Grid>(&banking, "grdBanking")->SelectFirst();
  ClickOn(&banking, "cmdLoad");
  EXPECT_EQ(Shown(banking, "lblMode"), "Deposit of 31 Oct 2026");
  EXPECT_EQ(Shown(banking, "lblTotalBanked"), "$100.00");
  Find<QTabWidget>(&banking, "pages")->setCurrentIndex(1);
  ClickOn(&banking, "chkTickUntickAll2");
  ClickOn(&banking, "cmdSave");
  EXPECT_EQ(Word(Sql("SELECT Total_Banked FROM Bankings")), "60");
  EXPECT_EQ(Number(Sql("SELECT COUNT(*) FROM Payments WHERE Banking_ID = 1")), 1);
  Find<Grid>(&banking, "grdBanking")->SelectFirst();
  outside.prompter.Expect("delete this banking dated 31 Oct 2026?", Answer::Yes);
  ClickOn(&banking, "cmdDelete");
  EXPECT_EQ(Shown(banking, "lblCashReceived"), "$60.00");
  EXPECT_EQ(Count("Bankings"), 0);
}

TEST_F(BankingScreensTest, NotesAndCoinsFillTheAmount) {
  Pay("CASH", 300);
  Screen& banking = OpenTab(OpenBanking{});
  QTimer::singleShot(0, qApp, [] {
    auto* count = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(count, nullptr);
    EnterField(Find<QSpinBox>(count, "spnCount10000"));
    TypeKeys("2");
    PressKey(Qt::Key_Tab);
    TypeKeys("1");
    EXPECT_EQ(Shown(*count, "txtCounted"), "$250.00");
    ClickOn(count, "cmdOK");
  });
  ClickOn(&banking, "cmdCountCash");
  EXPECT_EQ(Find<QLineEdit>(&banking, "txtCashAmountDeposited")->text(), "$250.00");
  EXPECT_EQ(Shown(banking, "txtCashAmountUnDeposited"), "$50.00");
}

TEST_F(BankingScreensTest, APurchaseIsLeftWithItsLinesMatchingAndItsChequeCleared) {
  Screen& suppliers = OpenTab(OpenSuppliers{});
  ClickOn(&suppliers, "cmdAdd");
  EXPECT_EQ(Told(), "Please enter the name of the supplier.");
  TypeOver(&suppliers, "txtSupplierName", "Pump");
  TypeChoice(&suppliers, "cmbPaymentType", "ch");
  TypeChoice(&suppliers, "cmbGLAccount", "fu");
  ClickOn(&suppliers, "cmdAdd");
  EXPECT_EQ(Told(), "");
  ASSERT_EQ(Word(Sql("SELECT Payment_Type & ' ' & Supplier_Name FROM Suppliers")), "CHEQUE Pump");

  EXPECT_TRUE(UseDialog(AddPurchase{}, [&](Dialog& purchase) {
    ClickOn(&purchase, "cmdSaveOnly");
    EXPECT_EQ(Told(), "Please select a supplier.");
    EXPECT_FALSE(Find<QWidget>(&purchase, "txtChequeNumber")->isVisible());
    TypeChoice(&purchase, "cmbSupplier", "pu");
    EXPECT_TRUE(Find<QWidget>(&purchase, "txtChequeNumber")->isVisible()) << "by its habit";
    EXPECT_EQ(Find<QComboBox>(&purchase, "cmbExpenseAccount")->currentText(), "Fuel");
    TypeOver(&purchase, "txtCost", "110");
    EXPECT_EQ(Find<QLineEdit>(&purchase, "txtGST")->text(), "$10.00");
    EXPECT_EQ(Shown(purchase, "lblLeftToSplit"), "Still to be split: $110.00");
    ClickOn(&purchase, "cmdSave");
    EXPECT_EQ(Told(),
              "This purchase record requires that the cost should match with the total amount of "
              "accounts.");
    PressAlt(&purchase, Qt::Key_T);
    PressKey(Qt::Key_Return);  // stores the line, not the whole
    EXPECT_EQ(Shown(purchase, "lblAccountTotals"), "Total = $110.00");
    EXPECT_EQ(Shown(purchase, "lblLeftToSplit"), "");
    TypeOver(&purchase, "txtCost", "100");
    PressKey(Qt::Key_Escape);
    EXPECT_TRUE(purchase.isVisible()) << "a stored purchase is not left with lines that differ";
    EXPECT_NE(Told(), "");
    TypeOver(&purchase, "txtCost", "110");
    ClickOn(&purchase, "cmdSave");
    EXPECT_FALSE(purchase.isVisible());
  }));
  EXPECT_EQ(Word(Sql("SELECT GL_Amount & ' ' & GST_Included FROM General_Ledger_Entries")),
            "110 10");

  Screen& cheques = OpenTab(OpenChequeReconciliation{});
  auto* grid = Find<Grid>(&cheques, "grdCheques");
  ASSERT_EQ(grid->Rows().size(), 1U);
  Tick(grid, 0);
  EXPECT_EQ(Shown(cheques, "lblTicked"), "$110.00 in 1 cheque");
  TypeOver(&cheques, "txtStatement", "100");
  EXPECT_EQ(Shown(cheques, "lblDifference"), "they differ by -$10.00");
  outside.prompter.Expect("You've ticked one or more cheques!", Answer::No);
  EXPECT_FALSE(cheques.MayClose());
  ClickOn(&cheques, "cmdBank");
  EXPECT_EQ(grid->Rows().size(), 0U);
  EXPECT_EQ(Word(Sql("SELECT Cheque_Reconciled FROM Purchases")), "True");
}

TEST_F(BankingScreensTest, ASupplierIsPickedFromItsList) {
  Run(Sql("INSERT INTO Suppliers (Supplier_Name) VALUES ('Pump')"));
  Run(Sql("INSERT INTO Suppliers (Supplier_Name) VALUES ('Blade')"));
  UseDialog(AddPurchase{}, [](Dialog& purchase) {
    QTimer::singleShot(0, qApp, [] {
      QWidget* list = QApplication::activeModalWidget();
      auto* grid = Find<Grid>(list, "grdSuppliers");
      grid->SelectFirst();
      EnterField(grid);
      PressKey(Qt::Key_Return);
    });
    ClickOn(&purchase, "cmdShowSuppliers");
    EXPECT_EQ(Find<QComboBox>(&purchase, "cmbSupplier")->currentText(), "Blade");
  });
  outside.prompter.TakeTold();
}

}  // namespace
}  // namespace quillary
