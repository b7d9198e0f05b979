#include "gui/DeskTest.h"

#include <QCheckBox>

namespace quillary {
namespace {

const QDate kRoadDay(2026, 11, 2);

/// One job on its whole road through the real main window: a service makes it, it is done, billed
/// and paid; then every step is taken back.
class JobRoadTest : public DeskTest {
 protected:
  /// Status, invoice and payment of the job as they are stored.
  QString State() {
    const Recordset row = Run(Sql("SELECT * FROM Diary WHERE Diary_ID = {}", job));
    return QStringList{row.Field(u"Status").ToText(), row.Field(u"Invoice_ID").ToText("-"),
                       row.Field(u"Payment_ID").ToText("-")}
        .join(u' ');
  }
  QString LatestKey(const Sql& statement) { return Run(statement).Field(size_t{0}).ToText(); }
  QString Invoice() { return LatestKey(Sql("SELECT MAX(Invoice_ID) FROM Invoices")); }
  QString Payment() { return LatestKey(Sql("SELECT MAX(Payment_ID) FROM Payments")); }
  /// What the client's screen says is owed.
  QString Owing() {
    navigator.Open(OpenClient{Id<Client>(Number())});
    return On<QLabel>("lblOwing")->text();
  }
  Screen* Front(const char* command, const char* screen) {
    Command(command)->trigger();
    return Find<Screen>(&Window(), screen);
  }
  Screen* DiaryAtTheJob() {
    Screen* diary = Front("mnuDiary", "frmDiary");
    EXPECT_TRUE(Find<Grid>(diary, "grdSchedule")->SelectKey(job)) << "the job shows in the diary";
    return diary;
  }

  void AServiceMakesTheJob();
  void TheDiaryBillsTheJob();
  void TheDiaryTakesThePayment();

  qint64 job = 0;
};

void JobRoadTest::AServiceMakesTheJob() {
  NewClientByKeyboard();
  ShowPage("Services");
  Pick("cmbService",
       Run(Sql("SELECT Service FROM Services ORDER BY Service_ID")).Field(u"Service").ToText());
  TypeInto("txtPrice", "55");
  Pick("cmbJobType", "Regular");
  Pick("cmbFrequency", "14");
  outside.prompter.Expect("Do you want to update the future schedule now?", Answer::Yes);
  ClickOn(client, "cmdSaveService");
  job = Run(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Schedule_Date = {}", Number(),
                kRoadDay))
            .Field(size_t{0})
            .ToLong();
  EXPECT_EQ(State(), "J - -");
  EXPECT_EQ(Owing(), "$0.00") << "work ahead is not owed";
}

void JobRoadTest::TheDiaryBillsTheJob() {
  Screen* diary = DiaryAtTheJob();
  Then("dlgInvoiceOptions", [&](QDialog& options) {
    Then("frmInvoice", [&](QDialog& invoice) {
      EXPECT_EQ(Find<QLineEdit>(&invoice, "txtInvoiceAmount")->text(), "$55.00");
      EXPECT_EQ(Find<QLineEdit>(&invoice, "txtGSTIncluded")->text(), "$5.00");
      PressAlt(&invoice, Qt::Key_S);
    });
    PressAlt(&options, Qt::Key_I);
    EXPECT_FALSE(options.isVisible()) << "the invoice is stored, so the question is answered";
  });
  PressAlt(diary, Qt::Key_V);
}

void JobRoadTest::TheDiaryTakesThePayment() {
  Screen* diary = DiaryAtTheJob();
  Then("dlgPaymentOptions", [&](QDialog& options) {
    Then("frmPayments", [&](QDialog& payment) {
      EXPECT_EQ(Find<QLineEdit>(&payment, "txtAmount")->text(), "$55.00");
      EnterField(Find<QComboBox>(&payment, "cmbPaymentMethod"));
      TypeKeys("ca");
      PressAlt(&payment, Qt::Key_S);
      EXPECT_EQ(outside.prompter.TakeTold(), QStringList());
    });
    PressAlt(&options, Qt::Key_N);
  });
  PressAlt(diary, Qt::Key_M);
}

TEST_F(JobRoadTest, ThereAndBack) {
  AServiceMakesTheJob();
  if (HasFailure()) return;

  ClickOn(DiaryAtTheJob(), "cmdDoneUnPaid");
  EXPECT_EQ(State(), "JD - -");
  EXPECT_EQ(Owing(), "$55.00");

  TheDiaryBillsTheJob();
  const QString first = Invoice();
  EXPECT_EQ(State(), QStringLiteral("JI %1 -").arg(first));
  EXPECT_EQ(LatestKey(Sql("SELECT Total_Amount & ' ' & Total_GST & ' ' & Client_ID FROM Invoices "
                          "WHERE Invoice_ID = {}",
                          first.toLongLong())),
            QStringLiteral("55 5 %1").arg(Number()));
  EXPECT_EQ(Owing(), "$55.00") << "a bill moves no balance";

  TheDiaryTakesThePayment();
  EXPECT_EQ(State(), QStringLiteral("JD %1 %2").arg(first, Payment()));
  EXPECT_EQ(Owing(), "$0.00");

  Screen* payments = Front("mnuFinancialPaymentsReceived", "frmPaymentsList");
  ASSERT_TRUE(Find<Grid>(payments, "grdPayments")->SelectKey(Payment().toLongLong()));
  outside.prompter.Expect("made by Zelda Zimmer?", Answer::Yes);
  ClickOn(payments, "cmdDelete");
  EXPECT_EQ(State(), QStringLiteral("JD %1 -").arg(first)) << "the work stays done";
  EXPECT_EQ(Owing(), "$55.00");

  Screen* invoices = Front("mnuInvoicesList", "frmInvoicesList");
  auto* list = Find<Grid>(invoices, "fgInvoices");
  ASSERT_TRUE(list->SelectKey(first.toLongLong()));
  QTest::keyClick(list, Qt::Key_Space);
  outside.prompter.Expect("Are you sure you want to delete ticked invoices ", Answer::Yes);
  PressAlt(invoices, Qt::Key_I);
  EXPECT_EQ(State(), "JD - -");

  TheDiaryBillsTheJob();
  const QString second = Invoice();
  EXPECT_EQ(State(), QStringLiteral("JI %1 -").arg(second));
  invoices = Front("mnuInvoicesList", "frmInvoicesList");
  ClickOn(invoices, "cmdList");
  ASSERT_TRUE(Find<Grid>(invoices, "fgInvoices")->SelectKey(second.toLongLong()));
  Then("frmInvoice", [&](QDialog& invoice) {
    Find<Grid>(&invoice, "fgJobs")->SelectFirst();
    PressAlt(&invoice, Qt::Key_J);
    EXPECT_EQ(Find<QLineEdit>(&invoice, "txtInvoiceAmount")->text(), "$0.00");
    PressAlt(&invoice, Qt::Key_S);
  });
  ClickOn(invoices, "cmdViewInvoice");
  EXPECT_EQ(State(), "JI - -") << "it goes on counting as invoiced";

  TheDiaryBillsTheJob();
  const QString third = Invoice();
  EXPECT_EQ(State(), QStringLiteral("JI %1 -").arg(third));
  EXPECT_EQ(Owing(), "$55.00");
  ShowPage("Invoices");
  ASSERT_TRUE(On<Grid>("grdInvoices")->SelectKey(third.toLongLong()));
  outside.prompter.Expect("Are you sure you want to delete this invoice?", Answer::Yes);
  ClickOn(client, "cmdDeleteInvoice");
  EXPECT_EQ(State(), "JD - -") << "from the client's screen it goes back to done";
  EXPECT_EQ(Owing(), "$55.00");
}

}  // namespace
}  // namespace quillary
