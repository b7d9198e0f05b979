#include "gui/DeskTest.h"

#include <QTabBar>

namespace quillary {
namespace {

/// From the first call to the money: a prospect gets a quote, becomes a client, is worked for and
/// pays. By keys at the real main window.
class QuoteRoadTest : public DeskTest {
 protected:
  QString Word(const Sql& statement) {
    return program->OpenBusiness().FirstField(statement).ToText();
  }
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
  Screen* Front(const char* command, const char* screen) {
    Command(command)->trigger();
    return Find<Screen>(&Window(), screen);
  }

  void TheRhythmMakesTheJob();
  void ItIsDoneAndPaidInCash();
  void TheCashIsBanked();

  qint64 job = 0;
};

void QuoteRoadTest::TheRhythmMakesTheJob() {
  ShowPage("Services");
  On<Grid>("grdServices")->SelectFirst();
  Pick("cmbJobType", "Regular");
  Pick("cmbFrequency", "14");
  Pick("cmbEmployee", Word(Sql("SELECT Employee_Name FROM Employees ORDER BY Employee_ID")));
  outside.prompter.Expect("Do you want to update the future schedule now?", Answer::Yes);
  ClickOn(client, "cmdSaveService");
  // How a prospect is billed has never been asked; the screen leads there.
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please select the invoicing type."});
  EXPECT_EQ(QApplication::focusWidget(), On<QComboBox>("cmbInvoiceType"));
  TypeKeys("W");
  ShowPage("Services");
  ClickOn(client, "cmdReschedule");
  job = Run(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Schedule_Date = {}", Number(),
                program->OpenBusiness().Today()))
            .Field(size_t{0})
            .ToLong();
  EXPECT_EQ(Word(Sql("SELECT Status & ' ' & Total_Price FROM Diary WHERE Diary_ID = {}", job)),
            "J 45.5");
}

void QuoteRoadTest::ItIsDoneAndPaidInCash() {
  Screen* diary = Front("mnuDiary", "frmDiary");
  ASSERT_TRUE(Find<Grid>(diary, "grdSchedule")->SelectKey(job));
  Then("dlgPaymentOptions", [&](QDialog& options) {
    Then("frmPayments", [&](QDialog& payment) {
      EXPECT_EQ(Find<QLineEdit>(&payment, "txtAmount")->text(), "$45.50");
      EnterField(Find<QComboBox>(&payment, "cmbPaymentMethod"));
      TypeKeys("ca");
      PressAlt(&payment, Qt::Key_S);
    });
    PressAlt(&options, Qt::Key_N);
  });
  PressAlt(diary, Qt::Key_M);
  EXPECT_EQ(Word(Sql("SELECT Status FROM Diary WHERE Diary_ID = {}", job)), "JD");
}

void QuoteRoadTest::TheCashIsBanked() {
  Run(Sql("INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Road account')"));
  const Value payment =
      Run(Sql("SELECT Payment_ID FROM Diary WHERE Diary_ID = {}", job)).Field(size_t{0});
  Run(Sql("DELETE FROM Payments WHERE Payment_ID <> {}", payment));
  Screen* banking = Front("mnuFinancialBanking", "frmBanking");
  EXPECT_EQ(Find<QLabel>(banking, "lblCashReceived")->text(), "$45.50");
  auto* cash = Find<Grid>(banking, "grdCash");
  cash->SelectFirst();
  EnterField(cash);
  PressKey(Qt::Key_Space);
  auto* account = Find<QComboBox>(banking, "cmbBankAccount");
  account->setCurrentIndex(account->findText("Road account"));
  PressAlt(banking, Qt::Key_V);
  EXPECT_EQ(Word(Sql("SELECT TOP 1 Total_Banked FROM Bankings ORDER BY Banking_ID DESC")), "45.5");
}

TEST_F(QuoteRoadTest, AProspectBecomesAClientWhoPays) {
  Command("mnuQuote")->trigger();
  auto* quotes = Find<Screen>(&Window(), "frmCreateAQuote");
  PressAlt(quotes, Qt::Key_U);
  EXPECT_EQ(Find<QLineEdit>(quotes, "txtFirstname")->text(), "New quote...");
  TypeKeys("Quentin");
  Enter(quotes, "txtSurname", "Quoll");
  PressAlt(quotes, Qt::Key_V);
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please select a service..."});
  Choose(quotes, "cmbService", "lawn");
  Enter(quotes, "txtPrice", "45.50");
  EXPECT_EQ(Find<QLabel>(quotes, "lblTotal")->text(), "Total = $45.50");
  PressAlt(quotes, Qt::Key_V);
  Choose(quotes, "cmbService", "hedge");
  EnterField(Find<QLineEdit>(quotes, "txtPrice"));
  TypeKeys("80");
  EXPECT_EQ(Find<QLabel>(quotes, "lblTotal")->text(), "Total = $125.50") << "as one types";
  PressAlt(quotes, Qt::Key_S);
  PressAlt(quotes, Qt::Key_S);
  EXPECT_EQ(Word(Sql("SELECT Description FROM Quotes WHERE Client_ID = (SELECT Client_ID FROM "
                     "Clients WHERE Display_Name = 'Quentin Quoll')")),
            "Lawn mowing, Hedge trimming");
  EXPECT_EQ(Word(Sql("SELECT COUNT(*) FROM Clients WHERE Surname = 'Quoll'")), "1")
      << "saved twice, stored once";
  auto* tabs = Find<QTabBar>(quotes, "tabServices");
  EXPECT_EQ(tabs->tabText(0) + "/" + tabs->tabText(1), "Lawn mowing/Hedge trimming");

  outside.prompter.Expect("This will make Quentin Quoll an Active client.", Answer::Yes);
  PressAlt(quotes, Qt::Key_A);
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
  EXPECT_EQ(Word(Sql("SELECT Status FROM Clients WHERE Surname = 'Quoll'")), "Active");
  client = Find<Screen>(&Window(), "frmClients");
  EXPECT_TRUE(client->isVisible()) << "where its schedule is set next";
  TheRhythmMakesTheJob();
  ItIsDoneAndPaidInCash();
  TheCashIsBanked();
}

}  // namespace
}  // namespace quillary
