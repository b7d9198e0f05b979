#include "diary/DiaryCommands.h"
#include "diary/DiaryDay.h"
#include "roll/ScheduleTest.h"

#include <QElapsedTimer>

#include <stdexcept>

namespace quillary::diary {
namespace {

class DiaryDayTest : public ScheduleTest {
 protected:
  DiaryList Load(const char* from, const char* to, std::optional<qint64> employee = {},
                 bool bySuburb = false) {
    return LoadDiary(business(), {{Day(from), Day(to)}, IdFrom<Employee>(employee), bySuburb});
  }
  void SetEntry(Id<Entry> entry, const char* column, const Value& value) {
    Run(Sql((std::string("UPDATE Diary SET ") + column + " = {} WHERE Diary_ID = {}").c_str(),
            value, entry));
  }
  static QString Keys(const DiaryList& list) {
    QStringList keys;
    for (const DiaryRow& row : list.rows) keys += QString::number(row.entry.Number());
    return keys.join(u' ');
  }
};

TEST_F(DiaryDayTest, RowShowsTheEntryAndItsClient) {
  Run(Sql(
      "INSERT INTO Clients (Status, Display_Name, Billing_Client_ID, Suburb, Post_Code, Street, "
      "Street_Number, Phone_1, Phone_2) VALUES ('Active', ' O''Brien, Zoë ', 4, 'KEW', '3101', "
      "'High St', '18', '0412 555 018', '03 9555 0144')"));
  AddClient();
  AddEntry(Id<Client>(1), Day("2026-11-02"), "JU", 2, 7);
  AddEntry(Id<Client>(2), Day("2026-11-02"), "J", 0, 8);
  Run(Sql("UPDATE Diary SET Total_Price = 95.5, Description = 'LM, HT', Invoice_ID = 3"));
  const DiaryList list = Load("2026-11-02", "2026-11-02");
  ASSERT_EQ(list.rows.size(), 2U);
  const DiaryRow& row = list.rows.front();
  EXPECT_EQ(row.displayName, QString("O'Brien, Zoë"));
  EXPECT_EQ(row.address, "KEW 3101 High St 18");
  EXPECT_EQ(row.phones, "0412 555 018; 03 9555 0144");
  EXPECT_EQ(row.description, "LM, HT");
  EXPECT_EQ(row.totalPrice.ToText(), "95.5");
  EXPECT_EQ(row.sequence, 7);
  EXPECT_EQ(row.payer, Id<Client>(4));
  EXPECT_EQ(row.invoice, Id<Invoice>(3));
  EXPECT_FALSE(row.payment);
  EXPECT_EQ(row.RowHue(), Hue::Green);
  EXPECT_EQ(list.rows.back().payer, Id<Client>(2)) << "who names nobody pays for itself";
  EXPECT_EQ(list.rows.back().phones, "") << "no separator between two phones that are not there";
}

TEST_F(DiaryDayTest, DaysAndOrder) {
  Run(Sql("INSERT INTO Suburb_Position (Suburb_Name, [Position]) VALUES ('Kew', 2)"));
  Run(Sql("INSERT INTO Suburb_Position (Suburb_Name, [Position]) VALUES ('BALWYN', 1)"));
  for (const char* suburb : {"KEW", "BALWYN", "NOWHERE"}) {
    Run(Sql("UPDATE Clients SET Suburb = {} WHERE Client_ID = {}", suburb, AddClient()));
  }
  AddEntry(Id<Client>(1), Day("2026-11-02"), "J", 1, 2);
  AddEntry(Id<Client>(2), Day("2026-11-02"), "J", 1, 3);
  AddEntry(Id<Client>(3), DateTime(Day("2026-11-02"), QTime(17, 30)), "J", 1, 1);
  AddEntry(Id<Client>(1), Day("2026-11-03"), "J", 1, 1);
  AddEntry(Id<Client>(2), Day("2026-11-01"), "J", 1, 9);
  Run(Sql("UPDATE Diary SET Employee_ID = 2 WHERE Diary_ID = 2"));
  // A second line must not show its entry twice, not even where entries of two days interleave.
  for (const int entry : {1, 4}) {
    Run(Sql("UPDATE Diary SET [Sequence] = 2 WHERE Diary_ID = {}", entry));
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES ({}, 2)", entry));
  }
  EXPECT_EQ(Keys(Load("2026-11-02", "2026-11-02")), "3 1 2");
  EXPECT_EQ(Keys(Load("2026-11-02", "2026-11-03")), "3 1 4 2");
  EXPECT_EQ(Keys(Load("2026-11-02", "2026-11-02", {}, true)), "3 2 1") << "no position comes first";
  EXPECT_EQ(Keys(Load("2026-11-02", "2026-11-02", 2)), "2");
  EXPECT_EQ(Keys(Load("2026-11-02", "2026-11-02", 99)), "");
  EXPECT_EQ(Keys(Load("2026-12-02", "2026-12-02")), "");
  EXPECT_THROW(Load("2026-11-03", "2026-11-02"), std::invalid_argument);
  EXPECT_EQ(outside.busy.depth, 0);
}

TEST_F(DiaryDayTest, OnlyJobsThatAreAliveCount) {
  const auto active = AddClient();
  const auto left = AddClient("cancelled");
  for (const char* status : {"J", "JP", "JU", "JD", "JI", "JC", "V", "VD", "VC", "Q", "QP"}) {
    SetEntry(AddEntry(active, Day("2026-11-02"), status), "Total_Price", 10);
  }
  SetEntry(AddEntry(left, Day("2026-11-02"), "JD"), "Employee_ID", 0);
  SetEntry(AddEntry(left, Day("2026-11-01"), "J"), "Total_Price", Value());
  DiaryList list = Load("2026-11-02", "2026-11-02");
  EXPECT_EQ(list.rows.size(), 11U);
  EXPECT_EQ(list.totalNoOfJobs, 5);
  EXPECT_EQ(list.totalAmountOfJobs, Money::FromWhole(50));
  EXPECT_FALSE(list.someHaveNoEmployee);
  list = Load("2026-11-01", "2026-11-02");
  EXPECT_EQ(list.totalNoOfJobs, 6) << "the past of a client that left stays";
  EXPECT_EQ(list.totalAmountOfJobs, Money::FromWhole(50));
  for (const Value& none : {Value(0), Value()}) {
    SetEntry(Id<Entry>(1), "Employee_ID", none);
    EXPECT_TRUE(Load("2026-11-02", "2026-11-02").someHaveNoEmployee);
  }
}

TEST_F(DiaryDayTest, DoneUnpaidAsksOnlyAboutAPaidJob) {
  struct Case {
    Value payment;
    std::optional<Answer> answer;
    const char* after;
  };
  const auto entry = AddEntry(AddClient(), Day("2026-11-02"), "J");
  for (const Case& done : {Case{{}, {}, "JD -"}, Case{0, {}, "JD 0"}, Case{8, Answer::No, "JD 8"},
                           Case{8, Answer::Yes, "JD -"}}) {
    SetEntry(entry, "Payment_ID", done.payment);
    SetEntry(entry, "Status", "JI");
    if (done.answer) outside.prompter.Expect("This job has been paid.\nPlease note", *done.answer);
    MarkDoneUnpaid(business(), outside.prompter, entry);
    EXPECT_EQ(Rows("SELECT Status, Payment_ID FROM Diary"), QStringList(done.after));
  }
}

TEST_F(DiaryDayTest, SmallWritesReachTheirEntryOnly) {
  for (int entry = 0; entry < 3; ++entry) AddEntry(Id<Client>(1), Day("2026-11-02"), "J");
  const Id<Entry> one(1), two(2), three(3);
  StoreSequence(business(), {three, one, two});
  CancelJob(business(), one);
  ChangeEmployee(business(), two, Id<Employee>(5));
  ChangeSequence(business(), three, 9);
  EXPECT_EQ(Rows("SELECT Status, Employee_ID, [Sequence] FROM Diary ORDER BY Diary_ID"),
            (QStringList{"JC 1 2", "J 5 3", "J 1 9"}));
}

// A list that reads the whole diary for one day takes many times as long.
TEST_F(DiaryDayTest, OneDayIsFoundAmongManyRows) {
  AddClient();
  {
    Transaction filled(business());
    AddEntry(Id<Client>(1), Day("2000-01-01"), "JD");
    for (int doubling = 0; doubling < 15; ++doubling) {
      Run(
          Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date) "
              "SELECT Client_ID, Employee_ID, Status, Schedule_Date FROM Diary"));
    }
    AddEntry(Id<Client>(1), Day("2026-11-02"), "J");
    filled.Commit();
  }
  QElapsedTimer timer;
  timer.start();
  for (int time = 0; time < 20; ++time) Load("2026-11-02", "2026-11-02", {}, time % 2 == 0);
  EXPECT_LT(timer.elapsed(), 200);
}

}  // namespace
}  // namespace quillary::diary
