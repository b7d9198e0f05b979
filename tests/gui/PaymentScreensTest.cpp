#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Setup.h"
#include "billing/screens/PaymentScreens.h"
#include "clients/screens/ClientScreens.h"
#include "gui/ScreenFixture.h"
#include "kit/RecordList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTimer>

namespace quillary {
namespace {

/// Over the screens of payments: Abbott (1) and Brown (2) each pay for themselves.
class PaymentScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    for (const char* word : {"CASH", "CHEQUE", "EFT", "ADJUSTMENT"})
      Run(Sql("INSERT INTO lstPayment_Methods (Payment_Method) VALUES ({})", word));
    Run(Sql("INSERT INTO lstBanks (Bank) VALUES ('Westbank')"));
    billing::RegisterPaymentScreens(business(), {navigator, host, runner});
  }

  qint64 AddJob(const char* status, double price, int client = 1) {
    const auto job = Build().Add<Entry>({{"Client_ID", client},
                                         {"Employee_ID", 1},
                                         {"Status", status},
                                         {"Schedule_Date", QDate(2026, 10, 20)},
                                         {"Total_Price", price}});
    Build().Add<EntryLine>({{"Diary_ID", job}, {"Service_ID", 2}, {"Price", price}});
    return job.Number();
  }
  qint64 AddPayment(double amount, const char* method = "CASH", int client = 1) {
    return Build()
        .Add<Payment>({{"Client_ID", client},
                       {"Amount", amount},
                       {"Payment_Method", method},
                       {"Payment_Date", QDate(2026, 10, 25)},
                       {"Bank", "Oldbank"}})
        .Number();
  }
  QString LinkOf(qint64 job) {
    return Word(Sql("SELECT Status & ' ' & Payment_ID FROM Diary WHERE Diary_ID = {}", job));
  }
  static QString Text(const QObject* in, const char* field) {
    return Find<QLineEdit>(in, field)->text();
  }
  static void Empty(const QObject* in, const char* field) {
    auto* line = Find<QLineEdit>(in, field);
    line->setFocus();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClick(line, Qt::Key_Tab);
  }
  /// What happens in the dialog that opens over the one in use.
  static void OnTop(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
  }
};

TEST_F(PaymentScreensTest, EntersAPaymentByKeyboard) {
  AddPayment(20, "CHEQUE");
  const bool saved = UseDialog(quillary::AddPayment{}, [&](Dialog& payment) {
    EXPECT_FALSE(Find<QWidget>(&payment, "fraCheque")->isVisible());
    ClickOn(&payment, "cmdSave");
    EXPECT_EQ(Told(), "Please select a client.");
    EXPECT_TRUE(Find<QWidget>(&payment, "cmbClient")->hasFocus());
    TypeChoice(&payment, "cmbClient", "abb");
    EXPECT_TRUE(Find<QWidget>(&payment, "fraCheque")->isVisible()) << "as this client pays";
    EXPECT_EQ(Find<QComboBox>(&payment, "cmbBank")->currentText(), "Oldbank");
    TypeOver(&payment, "txtAmount", "110");
    EXPECT_EQ(Text(&payment, "txtAmount"), "$110.00");
    EXPECT_EQ(Text(&payment, "txtGST"), "$10.00");
    Find<QCheckBox>(&payment, "chkTaxExempt")->click();
    EXPECT_EQ(Text(&payment, "txtGST"), "$0.00");
    Find<QCheckBox>(&payment, "chkTaxExempt")->click();
    TypeOver(&payment, "txtGST", "7");
    Empty(&payment, "txtAmount");
    EXPECT_EQ(Text(&payment, "txtGST"), "$0.00") << "blank is 0, and so is its tax";
    ClickOn(&payment, "cmdSave");
    EXPECT_EQ(Told(), "Please enter the payment amount.");
    TypeOver(&payment, "txtAmount", "55");
    TypeOver(&payment, "txtGST", "4.5");
    TypeChoice(&payment, "cmbPaymentMethod", "zz");
    EXPECT_FALSE(Find<QWidget>(&payment, "fraCheque")->isVisible());
    ClickOn(&payment, "cmdSave");
    EXPECT_EQ(Told(), "Please select the payment method.");
    TypeChoice(&payment, "cmbPaymentMethod", "ef");
    TypeOver(&payment, "dtpPaymentDate", "30/10");
    ClickOn(&payment, "cmdSave");
    EXPECT_FALSE(payment.isVisible()) << "nothing of this client waits";
  });
  EXPECT_TRUE(saved);
  const Recordset stored = Run(Sql("SELECT * FROM Payments WHERE Payment_ID = 2"));
  EXPECT_EQ(stored.Field(u"Amount").ToMoney(), Money::FromWhole(55));
  EXPECT_EQ(stored.Field(u"GST_Included").ToText(), "4.5") << "a typed tax is kept";
  EXPECT_EQ(stored.Field(u"Payment_Method").ToText(), "EFT");
  EXPECT_EQ(stored.Field(u"Payment_Date").ToDate(), QDate(2026, 10, 30));
}

TEST_F(PaymentScreensTest, AMnemonicTakesWhatWasTypedLast) {
  UseDialog(quillary::AddPayment{1_client, Money::FromWhole(20)}, [&](Dialog& payment) {
    auto* amount = Find<QLineEdit>(&payment, "txtAmount");
    amount->setFocus();
    amount->selectAll();
    QTest::keyClicks(amount, "33");
    PressAlt(&payment, Qt::Key_S);
    EXPECT_FALSE(payment.isVisible());
  });
  EXPECT_EQ(Word(Sql("SELECT Amount & ' ' & GST_Included FROM Payments")), "33 3");
}

TEST_F(PaymentScreensTest, APaymentForAJobPaysIt) {
  const qint64 job = AddJob("JI", 55);
  UseDialog(PayForJob{1_client, Id<Entry>(job), Money::FromWhole(55)}, [&](Dialog& options) {
    OnTop([&](QDialog& payment) {
      EXPECT_FALSE(Find<QWidget>(&payment, "fraJobsBeingPaidFor")->isVisible());
      EXPECT_EQ(Text(&payment, "txtAmount"), "$55.00");
      EXPECT_EQ(Text(&payment, "txtGST"), "$5.00");
      ClickOn(&payment, "cmdSave");
    });
    ClickOn(&options, "cmdCreateNewPayment");
    EXPECT_FALSE(options.isVisible());
  });
  EXPECT_EQ(LinkOf(job), "JD 1");
}

TEST_F(PaymentScreensTest, AnExistingPaymentIsTied) {
  const qint64 job = AddJob("JI", 55);
  AddPayment(60, "CASH", 2);
  const qint64 payment = AddPayment(60);
  UseDialog(PayForJob{1_client, Id<Entry>(job), Money::FromWhole(55)}, [&](Dialog& options) {
    OnTop([&](QDialog& list) {
      auto* grid = Find<Grid>(&list, "grdPayments");
      ASSERT_EQ(grid->model()->rowCount(), 1) << "those of this client alone";
      ClickOn(&list, "cmdAttachJob");
      EXPECT_EQ(Told(), "Please select a payment record first.");
      grid->SelectFirst();
      ClickOn(&list, "cmdAttachJob");
    });
    ClickOn(&options, "cmdSelectAnExisting");
  });
  EXPECT_EQ(LinkOf(job), QStringLiteral("JI %1").arg(payment));
}

TEST_F(PaymentScreensTest, TicksTakeEffectAtOnceAndShowWhatTheyComeTo) {
  const qint64 first = AddJob("JI", 55);
  const qint64 second = AddJob("J", 44);
  AddJob("JD", 10, 2);
  const qint64 payment = AddPayment(60);
  UseDialog(AllocatePayment{Id<Payment>(payment)}, [&](Dialog& dialog) {
    auto* grid = Find<Grid>(&dialog, "grdJobs");
    ASSERT_EQ(grid->model()->rowCount(), 2);
    EXPECT_EQ(Find<QLabel>(&dialog, "txtDifference")->text(), "$60.00");
    grid->SelectKey(first);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(LinkOf(first), QStringLiteral("JI %1").arg(payment));
    EXPECT_EQ(Find<QLabel>(&dialog, "txtJobsTotal")->text(), "$55.00");
    EXPECT_EQ(Find<QLabel>(&dialog, "txtDifference")->text(), "$5.00");
    grid->SelectKey(second);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(Find<QLabel>(&dialog, "txtDifference")->text(), "-$39.00");
    EXPECT_EQ(grid->SelectedRow() ? grid->Key(*grid->SelectedRow()) : 0, second)
        << "the cursor stays, so that the next job is one key away";
    QTest::keyClick(grid, Qt::Key_Space);
    ClickOn(&dialog, "cmdClose");
  });
  EXPECT_EQ(LinkOf(second), "J ");
}

TEST_F(PaymentScreensTest, JobsThatWaitHoldThePaymentBack) {
  const qint64 job = AddJob("JD", 55);
  UseDialog(quillary::AddPayment{1_client, Money::FromWhole(55)}, [&](Dialog& payment) {
    int opened = 0;
    OnTop([&](QDialog& jobs) { opened += jobs.objectName() == "dlgPaymentJobs"; });
    ClickOn(&payment, "cmdSave");
    EXPECT_EQ(Told(), "This payment record requires the jobs being for.");
    EXPECT_TRUE(payment.isVisible()) << "one pass with nothing ticked lets them try again";
    OnTop([&](QDialog& jobs) {
      ++opened;
      auto* grid = Find<Grid>(&jobs, "grdJobs");
      grid->SelectFirst();
      QTest::keyClick(grid, Qt::Key_Space);
    });
    QTest::keyClick(&payment, Qt::Key_Escape);
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(Told(), "This payment record requires the jobs being for.");
    EXPECT_EQ(Find<Grid>(&payment, "grdJobsPaidFor")->model()->rowCount(), 1);
    EXPECT_EQ(Find<QLabel>(&payment, "txtTotal")->text(), "Total = $55.00");
    ClickOn(&payment, "cmdCancel");
    EXPECT_FALSE(payment.isVisible());
  });
  EXPECT_EQ(LinkOf(job), "JD 1") << "and nothing touched the status";

  AddJob("JD", 10);
  UseDialog(quillary::AddPayment{1_client, Money::FromWhole(10)},
            [&](Dialog& payment) { ClickOn(&payment, "cmdSaveOnly"); });
  EXPECT_EQ(Count("Payments"), 2) << "saving alone asks for no jobs";
}

TEST_F(PaymentScreensTest, SplitsAPaymentOverAccounts) {
  outside.prompter.Expect("Close without saving changes?", Answer::Yes);
  UseDialog(quillary::AddPayment{1_client}, [&](Dialog& payment) {
    const auto* grid = Find<Grid>(&payment, "grdRevAccounts");
    ClickOn(&payment, "cmdAddRevenueAccount");
    EXPECT_EQ(Told(), "Please select a revenue account.");
    TypeChoice(&payment, "cmbRevenueAccount", "gar");
    TypeOver(&payment, "txtAccountAmount", "22");
    EXPECT_EQ(Text(&payment, "txtAccountGST"), "$2.00");
    ClickOn(&payment, "cmdAddRevenueAccount");
    EXPECT_EQ(Told(),
              "Please enter the payment amount.|"
              "An error has occured. Please check the payment details and try again.");
    TypeOver(&payment, "txtAmount", "50");
    TypeChoice(&payment, "cmbRevenueAccount", "gar");
    ClickOn(&payment, "cmdUpdateRevenueAccount");
    EXPECT_EQ(Told(), "Please select a record to update.");
    EXPECT_EQ(Count("Payments"), 1) << "the payment stands, whatever becomes of its line";
    EXPECT_EQ(Text(&payment, "txtAccountAmount"), "$22.00") << "what was typed stays";
    ClickOn(&payment, "cmdAddRevenueAccount");
    EXPECT_EQ(RowText(grid, 0), "Garden income|$22.00|$2.00");
    EXPECT_EQ(Find<QLabel>(&payment, "lblAccountTotals")->text(), "Total = $22.00");
    EXPECT_EQ(Find<QLabel>(&payment, "txtPaymentID")->text(), "1") << "stored with its line";
    EXPECT_EQ(Text(&payment, "txtAccountAmount"), "$0.00");
    Find<Grid>(&payment, "grdRevAccounts")->SelectFirst();
    TypeOver(&payment, "txtAccountAmount", "33");
    auto* amount = Find<QLineEdit>(&payment, "txtAccountAmount");
    amount->setFocus();
    QTest::keyClick(amount, Qt::Key_Return);
    EXPECT_TRUE(payment.isVisible()) << "Enter stores the line, and does not close over it";
    EXPECT_EQ(RowText(grid, 0), "Garden income|$33.00|$3.00");
    ClickOn(&payment, "cmdRemoveRevenueAccount");
    EXPECT_EQ(Told(), "Please select an account to remove.");
    TypeOver(&payment, "txtAmount", "70");
    ClickOn(&payment, "cmdCancel");
  });
  EXPECT_EQ(Word(Sql("SELECT Amount FROM Payments")), "50");
}

TEST_F(PaymentScreensTest, APaymentThatIsGoneIsSaidToBe) {
  UseDialog(ViewPayment{99_payment}, [&](Dialog& payment) {
    EXPECT_EQ(Find<QLabel>(&payment, "lblCaption")->text(), "PAYMENT RECORD DOESN'T EXIST!");
    EXPECT_TRUE(Find<QLabel>(&payment, "lblCaption")->isVisible());
    for (const char* field : {"cmbClient", "txtAmount", "cmdSave", "cmdSaveOnly"})
      EXPECT_FALSE(Find<QWidget>(&payment, field)->isEnabled()) << field;
    ClickOn(&payment, "cmdCancel");
    EXPECT_FALSE(payment.isVisible());
  });
}

TEST_F(PaymentScreensTest, TheListShowsTotalsAndDeletesAfterAsking) {
  const qint64 job = AddJob("JI", 60);
  const qint64 payment = AddPayment(60);
  Run(Sql("UPDATE Diary SET Payment_ID = {}", payment));
  AddPayment(15, "EFT", 2);
  Screen& list = OpenTab(OpenPaymentsList{});
  auto* grid = Find<Grid>(&list, "grdPayments");
  EXPECT_EQ(grid->model()->rowCount(), 0) << "this month";
  ClickOn(&list, "cmdDelete");
  ClickOn(&list, "cmdOK");
  EXPECT_EQ(Told(), "Please select a payment to delete.|Please select a payment.");
  TypeOver(&list, "dtpFrom", "1/10");
  ASSERT_EQ(grid->model()->rowCount(), 2);
  EXPECT_EQ(RowText(grid, 0), "Abbott|25 Oct 2026|$60.00|CASH|Garden income|$60.00");
  EXPECT_EQ(grid->Rows()[0].hue, Hue::None);
  EXPECT_EQ(grid->Rows()[1].hue, Hue::Yellow) << "no job covers it";
  QStringList totals;
  for (const char* total :
       {"txtTotalCount", "txtTotalAmount", "txtTotalBeingPaidFor", "txtTotalWithoutAccount"})
    totals += Find<QLabel>(&list, total)->text();
  EXPECT_EQ(totals.join(' '), "2 $75.00 $60.00 $15.00");
  TypeOver(&list, "txtFilter", "brown");
  EXPECT_EQ(grid->model()->rowCount(), 1);
  Empty(&list, "txtFilter");
  grid->SelectKey(payment);
  outside.prompter.Expect("made by Abbott?", Answer::Yes);
  PressAlt(&list, Qt::Key_L);
  EXPECT_EQ(grid->model()->rowCount(), 1);
  EXPECT_EQ(LinkOf(job), "JI ");
}

TEST_F(PaymentScreensTest, MethodsAreKeptInATabAndOverAPayment) {
  Screen& tab = OpenTab(OpenPaymentMethods{});
  TypeOver(&tab, "txtPaymentMethod", "direct debit");
  QTest::keyClick(&tab, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(Number(Sql("SELECT COUNT(*) FROM lstPayment_Methods "
                       "WHERE Payment_Method = 'DIRECT DEBIT'")),
            1);
  UseDialog(quillary::AddPayment{1_client}, [&](Dialog& payment) {
    OnTop([&](QDialog& methods) {
      EXPECT_EQ(methods.objectName(), "frmPaymentMethodsDialog");
      TypeOver(&methods, "txtPaymentMethod", "barter");
      ClickOn(&methods, "cmdInsert");
      ClickOn(&methods, "cmdClose");
    });
    ClickOn(&payment, "cmdShowPaymentMethods");
    auto* method = Find<QComboBox>(&payment, "cmbPaymentMethod");
    EXPECT_EQ(method->currentText(), "CASH") << "what was chosen stays";
    EXPECT_GE(method->findText("BARTER"), 0) << "and the new one can be chosen";
  });
}

TEST_F(PaymentScreensTest, AClientsPaymentWithoutAJobIsWarnedOf) {
  clients::RegisterClientScreens(business(), {navigator, host, runner});
  Screen& client = OpenTab(OpenClient{1_client});
  const QString warning =
      "You are adding a payment that is not going to be attached to a job and hence will not "
      "reflect correctly in your P&L report. \nIf is advised you first create a invoice for the "
      "job and then add the payment to a job \n so that tha job and the invoice are both marked as "
      "paid. Do you wish to proceed?";
  outside.prompter.Expect(warning, Answer::No);
  ClickOn(&client, "cmdAddPayment");
  outside.prompter.Expect(warning, Answer::Yes);
  int opened = 0;
  OnTop([&](QDialog& payment) {
    ++opened;
    EXPECT_EQ(Find<QComboBox>(&payment, "cmbClient")->currentText(), "Abbott");
  });
  ClickOn(&client, "cmdAddPayment");
  EXPECT_EQ(opened, 1);

  client.show();
  navigator.Open(OpenTransferOfPayments{});
  EXPECT_TRUE(Find<QWidget>(&client, "cmbTransferTo")->isVisible()) << "the view is in front";
}

}  // namespace
}  // namespace quillary
