#include "base/ports/requests/Billing.h"
#include "gui/DeskTest.h"
#include "today/Attention.h"
#include "today/FridayRun.h"
#include "today/screens/MonthChart.h"

#include <QTabWidget>

namespace quillary {
namespace {

/// The screen "Today" in the real main window, over the invented business of Monday 2 November
/// 2026.
class TodayScreenTest : public DeskTest {
 protected:
  void SetUp() override {
    DeskTest::SetUp();
    LeaveSomethingToSee();
    today = Front();
  }
  /// A bill that is late, takings, and a cheque on its way.
  void LeaveSomethingToSee() {
    Run(
        Sql("INSERT INTO Invoices (Client_ID, Generation_Date, Total_Amount, Statement_Type) "
            "SELECT MIN(Client_ID), #2026/8/1#, 75, 'With Job' FROM Clients "
            "WHERE Is_Billed_To = Yes AND Account_Balance < 0"));
    Run(
        Sql("INSERT INTO Payments (Payment_Date, Amount, Payment_Method) "
            "VALUES (#2026/11/1#, 20, 'CASH')"));
    Run(Sql("UPDATE Purchases SET Payment_Method = 'CHEQUE', Cheque_Reconciled = False"));
    Run(
        Sql("UPDATE Diary SET Employee_ID = NULL, Payment_ID = NULL, Invoice_ID = NULL "
            "WHERE Schedule_Date = #2026/11/2#"));
    Run(Sql("UPDATE Clients SET Statement_Type = 'With Job'"));
  }
  /// Brings the screen to the front, as its command does, and waits for its figures.
  Screen* Front() {
    Command("mnuToday")->trigger();
    auto* screen = Find<Screen>(&Window(), "frmToday");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Words(screen, "lblToday").isEmpty(); }));
    return screen;
  }
  static QString Words(const QObject* in, const char* label) {
    return Find<QLabel>(in, label)->text();
  }
  QString Button(const char* name) { return Find<QPushButton>(today, name)->text(); }
  Screen* Shown() {
    return Find<QTabWidget>(&Window(), "tabs")->currentWidget()->findChild<Screen*>();
  }
  Business& OpenBusiness() { return program->OpenBusiness(); }
  Money Sum(const Sql& statement) { return OpenBusiness().FirstField(statement).ToMoney(); }

  Screen* today = nullptr;
};

TEST_F(TodayScreenTest, FollowsWhatIsWritten) {
  const QString before = Button("cmdDay");
  Run(
      Sql("UPDATE Diary SET Total_Price = Total_Price + 1000 WHERE Diary_ID = "
          "(SELECT TOP 1 Diary_ID FROM Diary WHERE Schedule_Date = {} AND Status = 'J')",
          QDate(2026, 11, 2)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return Button("cmdDay") != before; }));
  Command("mnuDiary")->trigger();
  const QString owed = Button("cmdOwed");
  Run(Sql("UPDATE Clients SET Account_Balance = 0"));
  QTest::qWait(30);
  EXPECT_EQ(Button("cmdOwed"), owed) << "nobody looks at it";
  Front();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Button("cmdOwed") == "$0.00"; }));
}

TEST_F(TodayScreenTest, FiguresLeadToTheRowsThatTheyCount) {
  ClickOn(today, "cmdOpenDay");
  EXPECT_EQ(Shown()->objectName(), "frmDiary");
  const QString jobs = Words(Shown(), "txtTotalNoOfJobs");
  const QString amount = Words(Shown(), "txtTotalAmountOfJobs");
  Front();
  EXPECT_EQ(Button("cmdDay"), jobs + " jobs   " + amount);

  ClickOn(today, "cmdDoneThisMonth");
  EXPECT_EQ(Words(Shown(), "txtTotalAmountOfJobs"), Button("cmdMonth"));

  Front();
  ClickOn(today, "cmdDue");
  EXPECT_EQ(Shown()->objectName(), "frmJobsList");
  const auto attention = today::LoadAttention(OpenBusiness(), {});
  EXPECT_EQ(Find<Grid>(Shown(), "grdSchedule")->Rows().size(),
            static_cast<size_t>(attention.dueForInvoice.count));
  EXPECT_EQ(Words(Shown(), "txtTotalAmountOfJobs"),
            attention.dueForInvoice.amount.ToCurrencyText());

  Front();
  ClickOn(today, "cmdOverdue");
  EXPECT_EQ(Shown()->objectName(), "frmInvoicesList");
  EXPECT_TRUE(
      Words(Shown(), "lblTotals").endsWith(QString(" %1 ticked").arg(attention.overdue.count)))
      << Words(Shown(), "lblTotals").toStdString();
}

TEST_F(TodayScreenTest, SchedulingProblemsAreLookedForInACalmMoment) {
  const auto* go = Find<QPushButton>(today, "cmdProblems");
  EXPECT_FALSE(go->isVisible());
  Run(Sql("DELETE FROM Diary WHERE Status = 'J' AND Schedule_Date > {}", QDate(2026, 11, 4)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return go->isVisible(); }));
  ClickOn(today, "cmdProblems");
  EXPECT_EQ(Shown()->objectName(), "frmListOfClientsWithSchedulingProblem");
}

TEST_F(TodayScreenTest, AnAgeLeadsToItsDebtors) {
  for (const char* age : {"cmdAge30", "cmdAge60", "cmdAge90", "cmdAgeOver90"}) {
    SCOPED_TRACE(age);
    Front();
    ClickOn(today, age);
    ASSERT_EQ(Shown()->objectName(), "frmDebtors");
    Money sum;
    for (const GridRow& row : Find<Grid>(Shown(), "grdDebtors")->Rows())
      sum += row.cells.back().value.ToMoney();
    QString whole = sum.Rounded(0).ToCurrencyText();
    whole.chop(3);
    EXPECT_EQ(Button(age), whole);
  }
  Front();
  ClickOn(today, "cmdDebtors");
  EXPECT_EQ(Find<QComboBox>(Shown(), "cboAge")->currentText(), "any time");
}

TEST_F(TodayScreenTest, EveryFigureHasAKey) {
  const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_O, "frmDiary"},
                                                  {Qt::Key_B, "frmDebtors"},
                                                  {Qt::Key_I, "frmInvoicesList"},
                                                  {Qt::Key_R, "frmPaymentsList"},
                                                  {Qt::Key_G, "frmDiary"},
                                                  {Qt::Key_S, "frmJobsList"},
                                                  {Qt::Key_M, "frmInvoicesList"},
                                                  {Qt::Key_K, "frmBanking"},
                                                  {Qt::Key_H, "frmChequeReconciliation"},
                                                  {Qt::Key_N, "frmBanking"}};
  for (const auto& [key, screen] : keys) {
    SCOPED_TRACE(screen);
    PressAlt(Front(), key);
    EXPECT_EQ(Shown()->objectName(), screen);
  }
  Front();
  auto* chart = Find<today::MonthChart>(today, "chart");
  EnterField(chart);
  PressKey(Qt::Key_Left);
  PressKey(Qt::Key_Return);
  ASSERT_EQ(Shown()->objectName(), "frmJobsList");
  EXPECT_EQ(Words(Shown(), "txtTotalAmountOfJobs"),
            Sum(Sql("SELECT SUM(Total_Price) FROM Diary WHERE Status IN ('JD', 'JU', 'JP', 'JI') "
                    "AND Schedule_Date BETWEEN #2026/10/1# AND #2026/10/31 23:59:00#"))
                .ToCurrencyText())
      << "the month before this one";
}

TEST_F(TodayScreenTest, TheRunIsWorkedOffStepByStep) {
  EXPECT_FALSE(Find<QPushButton>(today, "cmdSend")->isVisible()) << "there is nothing to send yet";
  outside.prompter.Expect("as done?", Answer::Yes);
  ClickOn(today, "cmdMarkDone");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return !Find<QPushButton>(today, "cmdMarkDone")->isVisible(); }));
  const auto waiting = billing::CountWaitingJobs(OpenBusiness());
  const auto invoices = OpenBusiness().FirstField(Sql("SELECT COUNT(*) FROM Invoices")).ToLong();
  outside.prompter.Expect("Make an invoice", Answer::Yes);
  ClickOn(today, "cmdInvoiceJobs");
  EXPECT_EQ(OpenBusiness().FirstField(Sql("SELECT COUNT(*) FROM Invoices")).ToLong(),
            invoices + waiting.jobs);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return !Find<QPushButton>(today, "cmdInvoiceJobs")->isVisible(); }));
  ClickOn(today, "cmdUnprinted");
  const auto unprinted =
      today::LoadFridayRun(OpenBusiness(), today::LoadAttention(OpenBusiness(), {}), nullptr)
          .toPrint;
  EXPECT_TRUE(Words(Shown(), "lblTotals").endsWith(QString(" %1 ticked").arg(unprinted.size())));
  ClickOn(&Window(), "cmdUndoLast");
  EXPECT_EQ(OpenBusiness().FirstField(Sql("SELECT COUNT(*) FROM Invoices")).ToLong(), invoices)
      << "a step is one command, to be taken back";
}

}  // namespace
}  // namespace quillary
