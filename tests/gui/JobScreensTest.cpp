#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "gui/ScreenFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTimer>

namespace quillary {
namespace {

/// Over the screens of jobs and visits.
class JobScreensTest : public ScreenFixture {
 protected:
  qint64 AddEntry(int client, const char* status, double price, QDate day = {2026, 11, 2}) {
    return Build()
        .Add<Entry>({{"Client_ID", client},
                     {"Employee_ID", 1},
                     {"Status", status},
                     {"Schedule_Date", day},
                     {"Total_Price", price},
                     {"Total_GST", price / 11},
                     {"Description", "MO"}})
        .Number();
  }
  Recordset Stored(qint64 id) { return Run(Sql("SELECT * FROM Diary WHERE Diary_ID = {}", id)); }
};

TEST_F(JobScreensTest, MakesAJobByKeyboard) {
  const bool saved = UseDialog(AddJob{Id<Client>(1)}, [&](Dialog& job) {
    EXPECT_EQ(Find<QComboBox>(&job, "cmbClient")->currentText(), "Abbott");
    EXPECT_EQ(Find<QComboBox>(&job, "cmbStatus")->currentText(), "Job NOT DONE");
    TypeOver(&job, "dtpDate", "4/11");
    TypeChoice(&job, "cmbEmployee", "ro");
    TypeChoice(&job, "cmbService", "mo");
    TypeOver(&job, "txtPrice", "55");
    auto* price = Find<QLineEdit>(&job, "txtPrice");
    price->setFocus();
    QTest::keyClick(price, Qt::Key_Return);
    EXPECT_TRUE(job.isVisible()) << "Enter in the line stores the line, and not the job";
    TypeChoice(&job, "cmbService", "he");
    TypeOver(&job, "txtPrice", "65.00");
    PressAlt(&job, Qt::Key_I);
    EXPECT_EQ(Find<QLabel>(&job, "lblServicesTotal")->text(), "Total = $120.00");
    ClickOn(&job, "cmdSetDescriptionBasedOnServices");
    ClickOn(&job, "cmdSaveAndClose");
  });
  EXPECT_TRUE(saved);
  const Recordset entry = Stored(1);
  EXPECT_EQ(entry.Field(u"Schedule_Date").ToDate(), QDate(2026, 11, 4));
  EXPECT_EQ(entry.Field(u"Employee_ID").ToLong(), 2);
  EXPECT_EQ(entry.Field(u"Description").ToText(), "HE, MO");
  EXPECT_EQ(entry.Field(u"Total_Price").ToMoney(), Money::FromWhole(120));
  EXPECT_EQ(entry.Field(u"Status").ToText(), "J");
}

TEST_F(JobScreensTest, RefusesAnUnfinishedJobAtTheField) {
  Run(
      Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring) "
          "VALUES ('03/11', 2026, False)"));
  LoadHolidaysIntoArray(business());
  outside.prompter.Expect("Close without saving changes?", Answer::Yes);
  UseDialog(AddJob{Id<Client>(1)}, [&](Dialog& job) {
    struct Case {
      const char* message;
      const char* field;
      std::function<void()> spoil;
      std::function<void()> mend;
    };
    auto* status = Find<QComboBox>(&job, "cmbStatus");
    const Case cases[] = {
        {"Please select a client.", "cmbClient", [&] { TypeChoice(&job, "cmbClient", "zz"); },
         [&] { TypeChoice(&job, "cmbClient", "br"); }},
        {"Please select an employee.", "cmbEmployee",
         [&] { TypeChoice(&job, "cmbEmployee", "zz"); },
         [&] { TypeChoice(&job, "cmbEmployee", "ca"); }},
        {"Please select the status of the job.", "cmbStatus", [&] { status->setCurrentIndex(-1); },
         [&] { status->setCurrentIndex(1); }},
        {"The date you entered is a holiday.", "dtpDate",
         [&] { TypeOver(&job, "dtpDate", "3/11"); }, [&] { TypeOver(&job, "dtpDate", "4/11"); }},
    };
    for (const Case& at : cases) {
      at.spoil();
      ClickOn(&job, "cmdSaveAndClose");
      EXPECT_EQ(Told(), at.message);
      EXPECT_TRUE(Find<QWidget>(&job, at.field)->hasFocus()) << at.message;
      at.mend();
    }
    EXPECT_EQ(Count("Diary"), 0);
    ClickOn(&job, "cmdExtraWork");
    EXPECT_EQ(Told(), "Please select a service.");
    EXPECT_TRUE(Find<QWidget>(&job, "cmbService")->hasFocus());
    ClickOn(&job, "cmdRemoveService");
    EXPECT_EQ(Told(), "Please select a service to delete.");
    QTest::keyClick(&job, Qt::Key_Escape);
    EXPECT_FALSE(job.isVisible());
  });
}

TEST_F(JobScreensTest, ChangesAJobAndItsLines) {
  const qint64 id = AddEntry(1, "J", 50);
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, 2, 50, 4.55)",
          id));
  UseDialog(EditJob{Id<Entry>(id)}, [&](Dialog& job) {
    auto* lines = Find<Grid>(&job, "grdServices");
    EXPECT_EQ(RowText(lines, 0), "MO|$50.00|Garden income");
    TypeChoice(&job, "cmbService", "mo");
    ClickOn(&job, "cmdUpdate");
    EXPECT_EQ(Told(), "Please select a record to update.");
    lines->SelectFirst();
    EXPECT_EQ(Find<QLineEdit>(&job, "txtPrice")->text(), "$50.00");
    TypeOver(&job, "txtPrice", "110");
    ClickOn(&job, "cmdUpdate");
    EXPECT_EQ(Stored(id).Field(u"Total_GST").ToMoney(), Money::FromWhole(10));
    Find<QComboBox>(&job, "cmbStatus")->setCurrentIndex(1);
    ClickOn(&job, "cmdSaveOnly");
    EXPECT_EQ(Number(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")), -110)
        << "a done job is owed as soon as it is saved";
    ClickOn(&job, "cmdRemoveService");
    EXPECT_EQ(lines->model()->rowCount(), 0);
    QTest::keyClick(&job, Qt::Key_Escape);
    EXPECT_FALSE(job.isVisible()) << "everything is stored, so nothing is asked";
  });
}

TEST_F(JobScreensTest, AsksBeforeATypedLineIsLost) {
  const qint64 id = AddEntry(1, "J", 50);
  outside.prompter.Expect("Close without saving changes?", Answer::No);
  UseDialog(EditJob{Id<Entry>(id)}, [&](Dialog& job) {
    TypeOver(&job, "txtPrice", "70");
    ClickOn(&job, "cmdSaveAndClose");
    EXPECT_TRUE(job.isVisible());
  });
}

TEST_F(JobScreensTest, PaymentOfAJobFollowsItsPayment) {
  const qint64 id = AddEntry(1, "JD", 50);
  std::vector<qint64> paid;
  const auto caption = [](const Dialog& job) {
    const auto* button = Find<QPushButton>(&job, "cmdAddPayment");
    return QString(button->text()).remove(u'&') + (button->isEnabled() ? "" : " (off)");
  };
  UseDialog(EditJob{Id<Entry>(id)},
            [&](Dialog& job) { EXPECT_EQ(caption(job), "Add payment (off)"); });
  navigator.Register<PayForJob>([&](const PayForJob& request) {
    EXPECT_EQ(request.payer, 1_client);
    EXPECT_EQ(request.price, Money::FromWhole(50)) << "what it costs, though it has no lines";
    Run(Sql("UPDATE Diary SET Payment_ID = 9 WHERE Diary_ID = {}", request.entry));
    return true;
  });
  navigator.Register<ViewPayment>([&](const ViewPayment& request) {
    paid.push_back(request.payment.Number());
    return true;
  });
  UseDialog(EditJob{Id<Entry>(id)}, [&](Dialog& job) {
    EXPECT_EQ(caption(job), "Add payment");
    EXPECT_FALSE(Find<QLabel>(&job, "lblHasBeenPaid")->isVisible());
    ClickOn(&job, "cmdAddPayment");
    EXPECT_EQ(caption(job), "View payment");
    EXPECT_TRUE(Find<QLabel>(&job, "lblHasBeenPaid")->isVisible());
    ClickOn(&job, "cmdAddPayment");
    EXPECT_EQ(paid, std::vector<qint64>{9});
  });
}

TEST_F(JobScreensTest, TellsOfAnEntryThatIsGone) {
  EXPECT_FALSE(navigator.Open(EditJob{Id<Entry>(99)}));
  EXPECT_FALSE(navigator.Open(EditVisit{Id<Entry>(99)}));
  EXPECT_EQ(outside.prompter.TakeTold().size(), 2);
}

TEST_F(JobScreensTest, MakesChangesAndDeletesAVisit) {
  EXPECT_TRUE(UseDialog(AddVisit{}, [&](Dialog& visit) {
    TypeChoice(&visit, "cmbClients", "br");
    TypeChoice(&visit, "cmbEmployee", "zz");
    TypeOver(&visit, "txtPurpose", "Measure fence");
    ClickOn(&visit, "cmdSaveAndClose");
    EXPECT_EQ(Told(), "Please select an employee.");
    EXPECT_TRUE(Find<QWidget>(&visit, "cmbEmployee")->hasFocus());
    TypeChoice(&visit, "cmbEmployee", "ca");
    auto* purpose = Find<QLineEdit>(&visit, "txtPurpose");
    purpose->setFocus();
    QTest::keyClick(purpose, Qt::Key_Return);
  }));
  EXPECT_EQ(Stored(1).Field(u"Status").ToText(), "V");
  EXPECT_EQ(Stored(1).Field(u"Client_ID").ToLong(), 2);
  EXPECT_EQ(Stored(1).Field(u"Description").ToText(), "Measure fence");

  UseDialog(EditVisit{Id<Entry>(1)}, [&](Dialog& visit) {
    PressAlt(&visit, Qt::Key_O);
    EXPECT_TRUE(Find<QRadioButton>(&visit, "optDone")->isChecked());
    ClickOn(&visit, "cmdSaveAndClose");
  });
  EXPECT_EQ(Stored(1).Field(u"Status").ToText(), "VD");

  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("Are you sure you want to delete this visit?", answer);
    UseDialog(EditVisit{Id<Entry>(1)}, [&](Dialog& visit) { ClickOn(&visit, "cmdDelete"); });
    EXPECT_EQ(Count("Diary"), answer == Answer::Yes ? 0 : 1);
  }
}

TEST_F(JobScreensTest, ListsTheJobsOfTheMonthWithTotals) {
  AddEntry(1, "J", 55);
  AddEntry(2, "JC", 110);
  AddEntry(2, "JD", 66, {2026, 11, 30});
  AddEntry(1, "J", 99, {2026, 12, 1});
  Screen& jobs = OpenTab(OpenJobsList{});
  auto* grid = Find<Grid>(&jobs, "grdSchedule");
  const auto text = [&](const char* label) { return Find<QLabel>(&jobs, label)->text(); };
  EXPECT_EQ(grid->model()->rowCount(), 3);
  EXPECT_EQ(text("txtTotalNoOfJobs"), "2") << "a cancelled job does not count";
  EXPECT_EQ(text("txtTotalAmountOfJobs"), "$121.00");
  EXPECT_EQ(text("txtTotalAmountOfGST"), "$11.00");
  auto* status = Find<QComboBox>(&jobs, "cboJobStatus");
  status->setCurrentIndex(status->findText("Job CANCELLED"));
  emit status->activated(status->currentIndex());
  ASSERT_EQ(grid->model()->rowCount(), 1);
  EXPECT_TRUE(RowText(grid, 0).contains("Brown")) << RowText(grid, 0).toStdString();
}

TEST_F(JobScreensTest, EditsAndDeletesInTheJobsList) {
  const qint64 id = AddEntry(1, "JD", 55);
  Screen& jobs = OpenTab(OpenJobsList{});
  auto* grid = Find<Grid>(&jobs, "grdSchedule");
  const int last = grid->model()->columnCount() - 1;
  TypeInto(grid, 0, last, "7");
  EXPECT_EQ(Stored(id).Field(u"Sequence").ToLong(), 7);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("Abbott", answer);
    ClickOn(&jobs, "cmdDeleteJob");
  }
  EXPECT_EQ(grid->model()->rowCount(), 0);
  EXPECT_EQ(Number(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")), 0);
  ClickOn(&jobs, "cmdDeleteJob");
  ClickOn(&jobs, "cmdEditJob");
  EXPECT_EQ(Told(), "Please select a job to delete.|Please select a job to edit.");
  EXPECT_FALSE(Find<QPushButton>(&jobs, "cmdClientDetails")->isEnabled())
      << "disabled until that screen exists";
}

TEST_F(JobScreensTest, AnOlderFormOfDoneStaysInTheJobsList) {
  const qint64 id = AddEntry(1, "JP", 55);
  Run(Sql("UPDATE Clients SET Account_Balance = -3 WHERE Client_ID = 1"));
  Screen& jobs = OpenTab(OpenJobsList{});
  auto* grid = Find<Grid>(&jobs, "grdSchedule");
  constexpr int kStatusColumn = 7;
  grid->setCurrentIndex(grid->model()->index(0, kStatusColumn));
  QTest::keyClick(grid, Qt::Key_F2);
  EXPECT_EQ(Find<QComboBox>(grid->viewport(), "editor")->currentText(), "Job DONE");
  Find<QLineEdit>(&jobs, "txtFilter")->setFocus();
  QTest::qWait(20);
  EXPECT_EQ(Stored(id).Field(u"Status").ToText(), "JP");
  EXPECT_EQ(Number(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")), -3);
}

TEST_F(JobScreensTest, OpeningTheJobsListAgainShowsThisMonth) {
  AddEntry(1, "J", 55);
  AddEntry(1, "J", 99, {2026, 12, 1});
  Screen& jobs = OpenTab(OpenJobsList{});
  TypeOver(&jobs, "dtTo", "31/12/2026");
  EXPECT_EQ(Find<Grid>(&jobs, "grdSchedule")->model()->rowCount(), 2);
  EXPECT_EQ(&OpenTab(OpenJobsList{}), &jobs);
  EXPECT_EQ(Find<Grid>(&jobs, "grdSchedule")->model()->rowCount(), 1);
}

TEST_F(JobScreensTest, OpensTheJobOfTheListByEnter) {
  AddEntry(1, "J", 55);
  Screen& jobs = OpenTab(OpenJobsList{});
  bool opened = false;
  QTimer::singleShot(0, qApp, [&] {
    if (QWidget* dialog = QApplication::activeModalWidget()) {
      opened = dialog->objectName() == "frmJobs";
      dialog->close();
    }
  });
  QTest::keyClick(Find<Grid>(&jobs, "grdSchedule"), Qt::Key_Return);
  EXPECT_TRUE(opened);
}

}  // namespace
}  // namespace quillary
