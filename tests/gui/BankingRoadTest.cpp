#include "gui/DeskTest.h"

#include <QCheckBox>

namespace quillary {
namespace {

/// Money in and money out through the real main window: cash received is banked on a pay-in slip,
/// and a purchase by cheque is booked, cleared, and taken back.
class BankingRoadTest : public DeskTest {
 protected:
  Screen* Front(const char* command, const char* screen) {
    Command(command)->trigger();
    return Find<Screen>(&Window(), screen);
  }
  QString Word(const Sql& statement) { return Run(statement).Field(size_t{0}).ToText(); }
  static void Choose(QObject* in, const char* combo, const QString& letters) {
    EnterField(Find<QComboBox>(in, combo));
    TypeKeys(letters);
    PressKey(Qt::Key_Tab);
  }
  static void Enter(QObject* in, const char* field, const QString& words) {
    EnterField(Find<QLineEdit>(in, field));
    TypeKeys(words);
    PressKey(Qt::Key_Tab);
  }
};

TEST_F(BankingRoadTest, CashIsBankedOnASlip) {
  Run(Sql("DELETE FROM Payments"));
  Run(Sql("DELETE FROM Bankings"));
  Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Road account')"));
  NewClientByKeyboard();
  Screen* payments = Front("mnuFinancialPaymentsReceived", "frmPaymentsList");
  Then("frmPayments", [](QDialog& payment) {
    Choose(&payment, "cmbClient", "zim");
    Enter(&payment, "txtAmount", "55");
    Choose(&payment, "cmbPaymentMethod", "cash");
    ClickOn(&payment, "cmdSaveOnly");
  });
  ClickOn(payments, "cmdAdd");
  ASSERT_EQ(Word(Sql("SELECT Amount FROM Payments")), "55");

  Screen* banking = Front("mnuFinancialBanking", "frmBanking");
  EXPECT_EQ(Find<QLabel>(banking, "lblCashReceived")->text(), "$55.00");
  auto* cash = Find<Grid>(banking, "grdCash");
  cash->SelectFirst();
  EnterField(cash);
  PressKey(Qt::Key_Space);
  auto* account = Find<QComboBox>(banking, "cmbBankAccount");
  account->setCurrentIndex(account->findText("Road account"));
  PressAlt(banking, Qt::Key_V);
  EXPECT_EQ(Word(Sql("SELECT Cash_Banked & ' ' & Cash_Unbanked & ' ' & Total_Banked "
                     "FROM Bankings")),
            "55 0 55");
  EXPECT_NE(Window().findChild<QWidget*>("frmReportViewer"), nullptr) << "the slip";
  Front("mnuFinancialBanking", "frmBanking");
  EXPECT_EQ(Find<QLabel>(banking, "lblCashReceived")->text(), "$0.00");
  QTest::keyClick(cash, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return Find<QLabel>(banking, "lblCashReceived")->text() == "$55.00";
  })) << "one key takes the deposit back, and the screen follows";
  EXPECT_EQ(Word(Sql("SELECT COUNT(*) FROM Bankings")), "0");
}

TEST_F(BankingRoadTest, APurchaseByChequeIsClearedAndTakenBack) {
  Run(Sql("UPDATE Purchases SET Cheque_Reconciled = 1"));
  Screen* purchases = Front("mnuFinancialPurchases", "frmPurchasesList");
  Then("frmPurchase", [](QDialog& purchase) {
    Choose(&purchase, "cmbSupplier", "pump");
    Enter(&purchase, "txtCost", "88");
    Choose(&purchase, "cmbPaymentMethod", "cheque");
    Enter(&purchase, "txtChequeNumber", "1044");
    PressAlt(&purchase, Qt::Key_T);
    PressKey(Qt::Key_Return);
    ClickOn(&purchase, "cmdSave");
    EXPECT_FALSE(purchase.isVisible());
  });
  ClickOn(purchases, "cmdAddPurchase");
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList());
  Screen* cheques = Front("mnuFinancialChequeReconciliation", "frmChequeReconciliation");
  auto* grid = Find<Grid>(cheques, "grdCheques");
  ASSERT_EQ(grid->Rows().size(), 1U);
  EXPECT_EQ(grid->Rows()[0].cells[2].value.ToText(), "1044");
  grid->SelectFirst();
  EnterField(grid);
  PressKey(Qt::Key_Space);
  PressAlt(cheques, Qt::Key_L);
  EXPECT_EQ(grid->Rows().size(), 0U);
  ClickOn(&Window(), "cmdUndoLast");
  EXPECT_TRUE(QTest::qWaitFor([&] { return grid->Rows().size() == 1U; }))
      << "what was cleared is to be cleared again";
}

}  // namespace
}  // namespace quillary
