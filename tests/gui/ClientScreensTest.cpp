#include "gui/ClientFixture.h"

namespace quillary {
namespace {

class ClientScreenTest : public ClientFixture {
 protected:
  void FillService(const QWidget* screen) {
    auto* service = Find<QComboBox>(screen, "cmbService");
    service->setCurrentIndex(service->findText("Lawn mowing"));
    Pick(Find<QComboBox>(screen, "cmbJobType"), "Casual");
    Line(screen, "txtPrice")->setText("$55.00");
  }
};

TEST_F(ClientScreenTest, ARefusedRecordIsNotStoredAndItsFieldHasTheFocus) {
  struct Case {
    const char* fault;
    std::function<void(const QWidget*)> make;
    const char* told;
    const char* focus;
  };
  const Case cases[] = {
      {"no status",
       [](const QWidget* in) { Find<QComboBox>(in, "cmbStatus")->setCurrentIndex(-1); },
       "Please select a client status.", "cmbStatus"},
      {"a name of blanks", [](const QWidget* in) { Line(in, "txtDisplayName")->setText("  "); },
       "Please enter the Billing name/Display name.", "txtDisplayName"},
      {"no invoice type",
       [](const QWidget* in) { Find<QComboBox>(in, "cmbInvoiceType")->setCurrentIndex(-1); },
       "Please select the invoicing type.", "cmbInvoiceType"},
  };
  for (const Case& c : cases) {
    const QWidget* screen = OpenOf(1);
    Line(screen, "txtMap")->setText("45 B6");
    c.make(screen);
    ClickOn(screen, "cmdSave");
    EXPECT_EQ(Told(), c.told) << c.fault;
    EXPECT_EQ(FocusOf(screen), c.focus) << c.fault;
    EXPECT_EQ(Stored("Map", 1).ToText(), "") << c.fault;
  }
}

TEST_F(ClientScreenTest, AClientWithoutInvoiceTypeBilledElsewhereCanStillChooseOne) {
  Run(Sql("UPDATE Clients SET Statement_Type = NULL WHERE Client_ID = 3"));
  const QWidget* screen = OpenOf(3);
  EXPECT_TRUE(Find<QWidget>(screen, "fraBillSameAddress")->isHidden());
  ClickOn(screen, "cmdSave");
  EXPECT_EQ(Told(), "Please select the invoicing type.");
  EXPECT_EQ(FocusOf(screen), "cmbInvoiceType");
}

TEST_F(ClientScreenTest, ARefusedServiceIsNotStoredAndItsFieldHasTheFocus) {
  struct Case {
    const char* fault;
    std::function<void(const QWidget*)> make;
    const char* told;
    const char* focus;
  };
  const auto none = [](const char* combo) {
    return [combo](const QWidget* in) { Find<QComboBox>(in, combo)->setCurrentIndex(-1); };
  };
  const auto start = [](QDate date) {
    return [date](const QWidget* in) { Find<DateField>(in, "dtpServiceNextVisit")->SetDate(date); };
  };
  const Case cases[] = {
      {"no service", none("cmbService"), "Please select a service first.", "cmbService"},
      {"no job type", none("cmbJobType"), "Please select the job type.", "cmbJobType"},
      {"no date", start(QDate()), "Please enter a valid date.", "dtpServiceNextVisit"},
      {"a holiday", start(QDate(2026, 11, 3)),
       "This date is a holiday. No job will be scheduled on this date.", "dtpServiceNextVisit"},
      {"yesterday", start(QDate(2026, 11, 1)),
       "Start date should be the same or later than the date today.\nIf this is a Regular job, "
       "calculate the next date by adding the frequency to the date.\n\nIf this is a Casual job, "
       "just add the job under the Past jobs tab.",
       "dtpServiceNextVisit"},
      {"regular without rhythm",
       [](const QWidget* in) { Pick(Find<QComboBox>(in, "cmbJobType"), "Regular"); },
       "Please enter a valid frequency value (in no. of days).", "cmbFrequency"},
      {"no employee", none("cmbEmployee"), "Please select an employee.", "cmbEmployee"},
      {"a price that is none", [](const QWidget* in) { Line(in, "txtPrice")->setText("dear"); },
       "Please enter a valid price.", "txtPrice"},
  };
  for (const Case& c : cases) {
    const QWidget* screen = OpenOf(1);
    ShowPage(screen, "Services");
    FillService(screen);
    c.make(screen);
    ClickOn(screen, "cmdSaveService");
    EXPECT_EQ(Told(), c.told) << c.fault;
    EXPECT_EQ(FocusOf(screen), c.focus) << c.fault;
    EXPECT_EQ(Count("Client_Services"), 0) << c.fault;
  }
}

TEST_F(ClientScreenTest, LeavingTheFrequencyTellsOnceWhatItTakes) {
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Services");
  Pick(Find<QComboBox>(screen, "cmbJobType"), "Regular");
  auto* frequency = Find<QComboBox>(screen, "cmbFrequency");
  const auto leaveWith = [&](const QString& typed) {
    EnterField(frequency);
    PressKey(Qt::Key_Delete);
    TypeKeys(typed);
    Find<QWidget>(screen, "cmbEmployee")->setFocus();
    QTest::qWait(20);
    return Told();
  };
  EXPECT_EQ(leaveWith("400"), "Please enter a value between 1 - 365.");
  EXPECT_EQ(FocusOf(screen), "cmbFrequency");
  EXPECT_EQ(leaveWith("400"), "") << "the same mistake must not hold the user for ever";
  EXPECT_EQ(leaveWith(""), "Please enter or select a valid frequency.");
  EXPECT_EQ(leaveWith("2a1b"), "") << "letters do not reach it";
  EXPECT_EQ(frequency->currentText(), "21");
}

TEST_F(ClientScreenTest, AServiceThatFollowsTheMainOneKeepsItsOwnDates) {
  Run(
      Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
          "Frequency, Next_Visit) VALUES (1, 1, 1, 'Regular', 55, 14, '9 Nov 2026')"));
  Run(
      Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
          "Frequency, Next_Visit) VALUES (1, 2, 2, 'Regular', 40, 28, '16 Nov 2026')"));
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Services");
  auto* grid = Find<Grid>(screen, "grdServices");
  auto* follow = Find<QCheckBox>(screen, "chkSameScheduleAsMain");
  EXPECT_EQ(Cell(grid, 0, 1), "Lawn mowing - Main service");
  EXPECT_FALSE(follow->isEnabled()) << "the main service follows nobody";
  grid->SelectKey(1);
  Click(follow);
  EXPECT_EQ(Find<QComboBox>(screen, "cmbFrequency")->currentText(), "14");
  EXPECT_FALSE(Find<QWidget>(screen, "fraDiffSchedule")->isEnabled());
  outside.prompter.Expect("'Re-create schedule of this client' button.", Answer::No);
  ClickOn(screen, "cmdSaveService");
  EXPECT_EQ(Cell(grid, 1, 4), "as main");
  const Recordset row = Run(Sql("SELECT * FROM Client_Services WHERE Client_Service_ID = 2"));
  EXPECT_EQ(row.Field(u"Other_Schedule_Client_Service_ID").ToLong(), 1);
  EXPECT_EQ(row.Field(u"Frequency").ToLong(), 28);

  grid->SelectKey(0);
  ClickOn(screen, "cmdRemoveService");
  EXPECT_TRUE(Told().startsWith("You cannot delete this service as other services are dependent"));
  grid->SelectKey(1);
  const auto shown = grid->Rows().size();
  ClickOn(screen, "cmdRemoveService");
  EXPECT_EQ(Count("Client_Services"), 1);
  EXPECT_EQ(grid->Rows().size(), shown - 1) << "what was removed is still listed";
}

TEST_F(ClientScreenTest, AnEmptyServiceNeedsAMainOneBeforeIt) {
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Services");
  ClickOn(screen, "cmdAddNewService");
  EXPECT_EQ(Told(), "Please enter the main service first before adding a new one.");
}

TEST_F(ClientScreenTest, ChangesAreAskedAboutOnce) {
  Screen* screen = OpenOf(1);
  EXPECT_TRUE(screen->MayClose()) << "nothing was changed";
  Line(screen, "txtMap")->setText("45 B6");
  outside.prompter.Expect("Close without saving changes?", Answer::No);
  EXPECT_FALSE(screen->MayClose());
  outside.prompter.Expect("Close without saving changes?", Answer::Yes);
  EXPECT_TRUE(screen->MayClose());
  Line(screen, "txtMap")->clear();
  EXPECT_TRUE(screen->MayClose()) << "a change taken back is none";

  Line(screen, "txtPrice")->setText("$70.00");
  outside.prompter.Expect("Close without saving changes?", Answer::No);
  EXPECT_FALSE(screen->MayClose()) << "the fields of a service count as well";
}

TEST_F(ClientScreenTest, CloseAndSaveStoresAndAsksNothing) {
  Screen* screen = OpenOf(1);
  Line(screen, "txtMap")->setText("45 B6");
  bool closing = false;
  QObject::connect(screen, &Screen::closeRequested, [&] { closing = screen->MayClose(); });
  ClickOn(screen, "cmdCloseAndSave");
  EXPECT_TRUE(closing);
  EXPECT_EQ(Stored("Map", 1).ToText(), "45 B6");
}

TEST_F(ClientScreenTest, AReloadKeepsWhatTheUserIsTyping) {
  Screen* screen = OpenOf(1);
  Line(screen, "txtMap")->setText("45 B6");
  AddJob(1, "J", QDate(2026, 11, 9), 55);
  screen->Reload();
  EXPECT_EQ(Line(screen, "txtMap")->text(), "45 B6");
  EXPECT_EQ(RowCount(Find<Grid>(screen, "grdFutureJobs")), 1) << "while the lists are fresh";
  outside.prompter.Expect("Discard them and load the client again?", Answer::Yes);
  ClickOn(screen, "cmdReloadClientScreen");
  EXPECT_EQ(Line(screen, "txtMap")->text(), "");
}

TEST_F(ClientScreenTest, TheStatusSaysWhatMayBeUsed) {
  struct Case {
    qint64 clientId;
    bool schedule;
    bool money;
  };
  for (const Case& c : {Case{1, true, true}, Case{2, false, true}, Case{3, true, false}}) {
    const QWidget* screen = OpenOf(c.clientId);
    EXPECT_EQ(Find<QWidget>(screen, "fraSchedule")->isEnabledTo(screen), c.schedule) << c.clientId;
    EXPECT_EQ(Find<QWidget>(screen, "fraPayments")->isEnabledTo(screen), c.money) << c.clientId;
    EXPECT_EQ(Find<QWidget>(screen, "fraPreviousInvoices")->isEnabledTo(screen), c.money);
    EXPECT_EQ(Find<QWidget>(screen, "lblPaymentNote")->isHidden(), c.money);
    EXPECT_TRUE(Find<QWidget>(screen, "cmdTransferPayments")->isEnabledTo(screen))
        << "who is billed elsewhere is the one to transfer";
  }
  const QWidget* screen = OpenOf(1);
  Pick(Find<QComboBox>(screen, "cmbStatus"), "Billing address");
  EXPECT_FALSE(Find<QWidget>(screen, "fraSchedule")->isEnabledTo(screen)) << "at once, unsaved";
}

TEST_F(ClientScreenTest, AProspectShowsItsStatusAndIsNoChange) {
  Screen* screen = OpenOf(4);
  EXPECT_EQ(Find<QLabel>(screen, "lblStatus")->text(), "Quote only");
  EXPECT_TRUE(screen->MayClose());
  ClickOn(screen, "cmdSave");
  EXPECT_EQ(Told(), "Please select a client status.");
}

TEST_F(ClientScreenTest, WhatPagesShareIsEnteredWhereItIsRead) {
  const QWidget* screen = OpenOf(3);
  struct Step {
    const char* page;
    const char* from;
    const char* to;
  };
  for (const Step& step : {Step{"Services", "cmdAddVisit", "grdNextJobs"},
                           Step{"Details", "cmbBillingGoesTo", "cmbOtherAddressToBill"},
                           Step{"Details", "cmdEditExisingAddress", "grdNextJobs"},
                           Step{"Billing", "optBillNewAddress", "cmbOtherAddressToBill"}}) {
    ShowPage(screen, step.page);
    QTest::qWait(0);
    auto* from = Find<QWidget>(screen, step.from);
    from->setEnabled(true);  // what opens other screens is off until these exist
    from->setFocus();
    QTest::keyClick(from, Qt::Key_Tab);
    EXPECT_EQ(FocusOf(screen), step.to) << step.page << " after " << step.from;
  }
}

TEST_F(ClientScreenTest, NoFieldTakesMoreThanItsColumn) {
  const QWidget* screen = OpenOf(1);
  auto* name = Line(screen, "txtFirstname");
  name->clear();
  Type(name, QString(60, 'a'));
  EXPECT_EQ(name->text().size(), 50);
  QLineEdit* code = Find<QComboBox>(screen, "cmbPostcode")->lineEdit();
  EXPECT_EQ(code->maxLength(), 10);
}

TEST_F(ClientScreenTest, WhoPaysMayChangeThereAndBack) {
  Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (1, 20)"));
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Billing");
  Find<QWidget>(screen, "optBillExistingAddress")->setFocus();
  Click(Find<QWidget>(screen, "optBillExistingAddress"));
  EXPECT_FALSE(Find<QWidget>(screen, "fraBillSameAddress")->isVisible());
  auto* payer = Find<QComboBox>(screen, "cmbOtherAddressToBill");
  EnterField(payer);
  TypeKeys("str");
  Line(screen, "txtClaimNumber")->setFocus();
  EXPECT_TRUE(Told().startsWith("Please note that you might need to manually transfer"));
  ClickOn(screen, "cmdSave");
  EXPECT_EQ(Stored("Billing_Client_ID", 1).ToLong(), 2);
  EXPECT_EQ(Stored("Is_Billed_To", 1).ToBool(), false);
  Click(Find<QWidget>(screen, "optBillSameAddress"));
  ClickOn(screen, "cmdSave");
  EXPECT_EQ(Stored("Billing_Client_ID", 1).ToLong(), 1);
}

TEST_F(ClientScreenTest, GivingUpANewAddressBillsTheSameOne) {
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Billing");
  InDialog([&](QDialog* dialog) {
    QTest::keyClicks(Find<QLineEdit>(dialog, "txtSurname"), "Nobody");
    outside.prompter.Expect("Close without saving changes?", Answer::Yes);
    ClickOn(dialog, "cmdSave");
    EXPECT_EQ(Told(), "Please enter the billing name.");
    EXPECT_EQ(dialog->focusWidget()->objectName(), "txtBillingName");
    ClickOn(dialog, "cmdCancel");
  });
  Click(Find<QWidget>(screen, "optBillNewAddress"));
  EXPECT_TRUE(Find<QAbstractButton>(screen, "optBillSameAddress")->isChecked());
  EXPECT_EQ(Count("Clients"), 4);
}

TEST_F(ClientScreenTest, JobsAreDeletedAfterAskingAndTheBalanceFollows) {
  AddJob(1, "JD", QDate(2026, 10, 26), 55);
  AddJob(1, "J", QDate(2026, 11, 9), 60);
  const QWidget* screen = OpenOf(1);
  EXPECT_EQ(Find<QLabel>(screen, "lblOwing")->text(), "$55.00");
  ShowPage(screen, "Past jobs 1");
  ClickOn(screen, "cmdDeletePastJob");
  EXPECT_EQ(Told(), "Please select a job to delete.");
  Find<Grid>(screen, "grdPastJobs")->SelectFirst();
  outside.prompter.Expect("Are you sure you want to delete this job?", Answer::Yes);
  ClickOn(screen, "cmdDeletePastJob");
  EXPECT_EQ(Find<QLabel>(screen, "lblOwing")->text(), "$0.00");
  EXPECT_EQ(RowCount(Find<Grid>(screen, "grdPastJobs")), 0);
  EXPECT_EQ(RowCount(Find<Grid>(screen, "grdNextJobs")), 1);
}

TEST_F(ClientScreenTest, PaymentsAreTransferredToAChosenClient) {
  Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (1, 20)"));
  const QWidget* screen = OpenOf(1);
  ShowPage(screen, "Payments 1");
  ClickOn(screen, "cmdTransferPayments");
  EXPECT_EQ(Told(), "Please select a client first.");
  EXPECT_EQ(FocusOf(screen), "cmbTransferTo");
  auto* to = Find<QComboBox>(screen, "cmbTransferTo");
  to->setCurrentIndex(to->findText("Strata Pty"));
  outside.prompter.Expect(
      "Are you sure you want to transfer the payments listed above to Strata Pty?", Answer::Yes);
  ClickOn(screen, "cmdTransferPayments");
  EXPECT_EQ(RowCount(Find<Grid>(screen, "grdPayments")), 0);
}

TEST_F(ClientScreenTest, OnlyTheListedPaymentsAreTransferred) {
  for (const char* method : {"Cash", "Cheque", "Cash"})
    Run(Sql("INSERT INTO Payments (Client_ID, Amount, Payment_Method) VALUES (3, 20, {})", method));
  const QWidget* screen = OpenOf(3);
  ShowPage(screen, "Payments 3");
  Line(screen, "txtPaymentFilter")->setText("cash");
  auto* to = Find<QComboBox>(screen, "cmbTransferTo");
  to->setCurrentIndex(to->findText("Strata Pty"));
  outside.prompter.Expect("the payments listed above to Strata Pty?", Answer::Yes);
  ClickOn(screen, "cmdTransferPayments");
  const Recordset left = Run(Sql("SELECT Payment_Method FROM Payments WHERE Client_ID = 3"));
  ASSERT_EQ(left.RowCount(), 1u);
  EXPECT_EQ(left.Field(size_t{0}).ToText(), "Cheque");
}

TEST_F(ClientScreenTest, ANewBalanceIsNoChangeOfTheUser) {
  AddJob(1, "JD", QDate(2026, 10, 26), 55);
  Screen* screen = OpenOf(1);
  auto* since = Find<DateField>(screen, "dtDebtorSince");
  const auto deleteJob = [&] {
    Find<Grid>(screen, "grdPastJobs")->SelectFirst();
    outside.prompter.Expect("Are you sure you want to delete this job?", Answer::Yes);
    ClickOn(screen, "cmdDeletePastJob");
  };
  EXPECT_TRUE(since->Date().isValid());
  ShowPage(screen, "Past jobs");
  deleteJob();
  EXPECT_FALSE(since->Date().isValid());
  EXPECT_TRUE(screen->MayClose()) << "nothing to ask about";

  AddJob(1, "JD", QDate(2026, 10, 26), 55);
  screen->Reload();
  since->SetDate(QDate(2026, 9, 1));
  deleteJob();
  EXPECT_EQ(since->Date(), QDate(2026, 9, 1)) << "what the user has typed stays";
  outside.prompter.Expect("Close without saving changes?", Answer::No);
  EXPECT_FALSE(screen->MayClose());
}

TEST_F(ClientScreenTest, AnEmptiedPayerComesBack) {
  const QWidget* screen = OpenOf(3);
  ShowPage(screen, "Billing");
  auto* payer = Find<QComboBox>(screen, "cmbOtherAddressToBill");
  EnterField(payer);
  PressKey(Qt::Key_Backspace);
  EXPECT_EQ(payer->currentText(), "");
  Line(screen, "txtClaimNumber")->setFocus();
  EXPECT_EQ(payer->currentText(), "Strata Pty") << "nobody is billed without it showing";
}

TEST_F(ClientScreenTest, AClientDeletedMeanwhileIsNotSaved) {
  const QWidget* screen = OpenOf(1);
  Line(screen, "txtMap")->setText("45 B6");
  Run(Sql("DELETE FROM Clients WHERE Client_ID = 1"));
  for (const char* command : {"cmdSave", "cmdCloseAndSave"}) {
    ClickOn(screen, command);
    EXPECT_EQ(Told(), "This client was deleted in the meantime. Nothing was saved.") << command;
  }
}

TEST_F(ClientScreenTest, ASiteOpensFromTheClientThatPays) {
  const QWidget* screen = OpenOf(2);
  ShowPage(screen, "Sites 2");
  auto* sites = Find<Grid>(screen, "grdAttachedClients");
  sites->SelectKey(3);
  QTest::keyClick(sites, Qt::Key_Return);
  EXPECT_EQ(host.shown->windowTitle(), "Client: Brown, Bill");
}

TEST_F(ClientScreenTest, AClientThatIsGoneIsToldAndNotShown) {
  navigator.Open(OpenClient{99_client});
  EXPECT_EQ(Told(), "This client is no longer in the file.");
  EXPECT_EQ(host.shown, nullptr);
}

}  // namespace
}  // namespace quillary
