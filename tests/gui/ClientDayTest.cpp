#include "gui/DeskTest.h"

#include <QCheckBox>
#include <QTimer>

namespace quillary {
namespace {

const QDate kToday(2026, 11, 2);

class ClientDayTest : public DeskTest {
 protected:
  void TwoServices();
  void MarkDoneInTheDiary();
};

void ClientDayTest::TwoServices() {
  ShowPage("Services");
  const Recordset names = Run(Sql("SELECT Service FROM Services ORDER BY Service_ID"));
  Pick("cmbService", names.Row(0)[u"Service"].ToText());
  TypeInto("txtPrice", "55");
  Pick("cmbJobType", "Regular");
  Pick("cmbFrequency", "14");
  outside.prompter.Expect("Do you want to update the future schedule now?", Answer::No);
  ClickOn(client, "cmdSaveService");
  EXPECT_EQ(CountJobs("J"), 0) << "the diary waits for the answer";

  ClickOn(client, "cmdClearServiceFields");
  Pick("cmbService", names.Row(1)[u"Service"].ToText());
  TypeInto("txtPrice", "40");
  PressAlt(client, Qt::Key_M);
  EXPECT_EQ(On<QComboBox>("cmbFrequency")->currentText(), "14") << "shows the main schedule";
  EXPECT_FALSE(On<QComboBox>("cmbFrequency")->isEnabled());
  outside.prompter.Expect("\"Re-create schedule of this client...\" button.", Answer::Yes);
  ClickOn(client, "cmdAddService");
  auto* services = On<Grid>("grdServices");
  EXPECT_EQ(services->model()->rowCount(), 2);
  EXPECT_TRUE(services->model()->index(0, 1).data().toString().endsWith("- Main service"));
  EXPECT_GT(CountJobs("J"), 2);
}

void ClientDayTest::MarkDoneInTheDiary() {
  Command("mnuDiary")->trigger();
  auto* diary = Find<Screen>(&Window(), "frmDiary");
  auto* grid = Find<Grid>(diary, "grdSchedule");
  const qint64 job = Run(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND "
                             "Schedule_Date = {}",
                             Number(), kToday))
                         .Field(size_t{0})
                         .ToLong();
  ASSERT_TRUE(grid->SelectKey(job)) << "today's job of the new client shows in the diary";
  ClickOn(diary, "cmdDoneUnPaid");
  EXPECT_EQ(CountJobs("JD"), 1);
}

TEST_F(ClientDayTest, AMorningAtTheDesk) {
  NewClientByKeyboard();
  if (HasFatalFailure()) return;
  TwoServices();
  EXPECT_EQ(On<QLabel>("lblOwing")->text(), "$0.00");
  MarkDoneInTheDiary();

  navigator.Open(OpenClient{Id<Client>(Number())});
  EXPECT_TRUE(client->isVisible()) << "an open client is brought to the front, not opened twice";
  EXPECT_EQ(On<QLabel>("lblOwing")->text(), "$95.00");
  EXPECT_EQ(On<QLabel>("lblOwingSince")->text(), "since 2 Nov 2026");

  ShowPage("Details");
  Pick("cmbStatus", "Cancelled");
  ClickOn(client, "cmdSave");
  EXPECT_EQ(CountJobs("J"), 0) << "open jobs are cancelled at once";
  EXPECT_GT(CountJobs("JC"), 1);
  EXPECT_EQ(CountJobs("JD"), 1) << "work that was done stays done";

  Command("mnuClientFindClient")->trigger();
  auto* list = Find<Screen>(&Window(), "frmClientList");
  QTest::keyClicks(Find<QLineEdit>(list, "txtSearch"), "zim correa");
  ASSERT_EQ(Find<Grid>(list, "grdClients")->model()->rowCount(), 1);
  outside.prompter.Expect("Are you really sure you want to delete Zelda Zimmer?", Answer::No);
  ClickOn(list, "cmdDelete");
  EXPECT_EQ(CountJobs("JD"), 1);
  outside.prompter.Expect("There will be absolutely no record of this client afterwards",
                          Answer::Yes);
  ClickOn(list, "cmdDelete");
  EXPECT_EQ(Find<Grid>(list, "grdClients")->model()->rowCount(), 0);
  EXPECT_FALSE(Run(Sql("SELECT * FROM Clients WHERE Client_ID = {}", Number())).HasRows());
}

TEST_F(ClientDayTest, ABillingAddressIsMadeOnTheWay) {
  NewClientByKeyboard();
  QTimer::singleShot(0, qApp, [this] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QTest::keyClicks(Find<QLineEdit>(dialog, "txtFirstName"), "Tallbrook Strata");
    ClickOn(dialog, "cmdUpdateBillingName");
    ClickOn(dialog, "cmdSave");
    EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please select the statement type."});
    EXPECT_EQ(dialog->focusWidget()->objectName(), "cmbStatementType");
    QTest::keyClicks(dialog->focusWidget(), "M");
    ClickOn(dialog, "cmdSave");
    EXPECT_FALSE(dialog->isVisible());
  });
  auto* choice = On<QComboBox>("cmbBillingGoesTo");
  choice->setCurrentIndex(2);
  emit choice->activated(2);
  EXPECT_EQ(choice->currentText(), "Bill an existing address");
  EXPECT_EQ(On<QComboBox>("cmbOtherAddressToBill")->currentText(), "Tallbrook Strata");
  ClickOn(client, "cmdSave");
  const Recordset payer =
      Run(Sql("SELECT b.* FROM Clients c INNER JOIN Clients b ON "
              "c.Billing_Client_ID = b.Client_ID WHERE c.Client_ID = {}",
              Number()));
  EXPECT_EQ(payer.Field(u"Status").ToText(), "Billing address");
  EXPECT_EQ(payer.Field(u"Billing_Client_ID").ToLong(), payer.Field(u"Client_ID").ToLong());
  EXPECT_TRUE(On<QLabel>("lblFacts")->text().endsWith("billed to Tallbrook Strata"));
  EXPECT_FALSE(On<QWidget>("fraPayments")->isEnabled()) << "the payments live on the other client";
}

TEST_F(ClientDayTest, TheMenuComputesAllBalancesAnew) {
  Run(Sql("UPDATE Clients SET Account_Balance = 777"));
  outside.prompter.Expect("Amount owing = Payments - Total amount of Jobs", Answer::Yes);
  Command("mnuRecomputeAmountOwing")->trigger();
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Re-calculation done."});
  EXPECT_FALSE(Run(Sql("SELECT * FROM Clients WHERE Account_Balance = 777 AND Is_Billed_To = Yes"))
                   .HasRows());
}

TEST_F(ClientDayTest, AMnemonicBelongsToTheScreenInFrontAndNotToAMenu) {
  const QAction* setup = Command("mnuSetup");
  EXPECT_EQ(setup->text(), "&Setup");
  NewClientByKeyboard();
  EXPECT_EQ(setup->text(), "Setup") << "while the client screen shows its own Alt+S";
  TypeInto("txtStreetNumber", "9");
  PressAlt(client, Qt::Key_S);
  EXPECT_EQ(Run(Sql("SELECT Street_Number FROM Clients WHERE Client_ID = {}", Number()))
                .Field(size_t{0})
                .ToText(),
            "9");
  PressAlt(client, Qt::Key_C);
  EXPECT_EQ(setup->text(), "&Setup");
}

TEST_F(ClientDayTest, ToolbarCommandsAreAlive) {
  for (const char* name :
       {"tool_mnuClientFindClient", "tool_mnuClientsAddClient", "tool_mnuFinancialDebtors"})
    EXPECT_TRUE(Find<QWidget>(&Window(), name)->isEnabled()) << name;
}

}  // namespace
}  // namespace quillary
