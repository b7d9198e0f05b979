#include "accounts/yearend/PreviousRecords.h"
#include "accounts/yearend/RevenueAccounts.h"
#include "accounts/yearend/SortOut.h"
#include "base/Errors.h"
#include "support/BusinessTest.h"

namespace quillary::accounts {
namespace {

class YearEndTest : public BusinessTest {
 protected:
  void Fill(std::initializer_list<const char*> statements) {
    for (const char* statement : statements) Run(Sql(statement));
  }
  /// The rows, their fields joined by blanks.
  QString Rows(const char* select) {
    QStringList rows;
    for (const Record row : Run(Sql(select))) {
      QStringList fields;
      for (size_t at = 0; at < row.Size(); ++at) fields += row[at].ToText();
      rows += fields.join(u' ');
    }
    return rows.join(QStringLiteral(", "));
  }
  int Total(const std::vector<RepairCount>& counts) {
    int total = 0;
    for (const RepairCount& count : counts) total += count.rows;
    return total;
  }
};

TEST_F(YearEndTest, EachFaultIsSortedOutOnceAndWhatIsRightStays) {
  Fill(
      {"INSERT INTO Clients (Client_ID, Display_Name, First_Name, Surname) "
       "VALUES (1, '', 'Ann', 'Ant')",
       "INSERT INTO Clients (Client_ID, Display_Name) VALUES (2, 'Dog Rescue')",
       "INSERT INTO Clients (Client_ID, Display_Name, First_Name) VALUES (3, 'Bee', 'Bea')",
       // A split to the cent, one a cent off, none, and an adjustment of nothing.
       "INSERT INTO Payments (Payment_ID, Client_ID, Amount) VALUES (1, 1, 55)",
       "INSERT INTO Payments (Payment_ID, Client_ID, Amount) VALUES (2, 1, 20)",
       "INSERT INTO Payments (Payment_ID, Client_ID, Amount) VALUES (3, 1, 10)",
       "INSERT INTO Payments (Payment_ID, Client_ID, Amount) VALUES (4, 1, 0)",
       "INSERT INTO Payments (Payment_ID, Client_ID, Amount) VALUES (5, 0, 8)",
       "INSERT INTO Purchases (Purchase_ID, Amount) VALUES (1, 0)",
       "INSERT INTO Purchases (Purchase_ID, Amount) VALUES (2, 30)",
       "INSERT INTO Purchases (Purchase_ID, Amount) VALUES (3, 40)",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (1, 50)",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (1, 5.001)",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (2, 19.99)",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (4, 3)",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (99, 3)",
       "INSERT INTO General_Ledger_Entries (Purchase_ID, GL_Amount) VALUES (2, 30)",
       "INSERT INTO General_Ledger_Entries (Purchase_ID, GL_Amount) VALUES (3, 39)",
       "INSERT INTO General_Ledger_Entries (GL_Amount) VALUES (3)",
       // Jobs: lines that add up otherwise, none, without a date, on the payment 0.
       "INSERT INTO Diary (Diary_ID, Client_ID, Schedule_Date, Total_Price, Total_GST, Invoice_ID) "
       "VALUES (1, 1, #2026/10/1#, 99, 9, 1)",
       "INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES (1, 40, 4)",
       "INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES (1, 15, 1.5)",
       "INSERT INTO Diary (Diary_ID, Client_ID, Schedule_Date, Total_Price, Total_GST, Payment_ID) "
       "VALUES (2, 1, #2026/10/2#, 70, 7, 0)",
       "INSERT INTO Diary (Diary_ID, Client_ID) VALUES (3, 1)",
       "INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES (3, 1, 0)",
       "INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES (77, 1, 0)",
       "INSERT INTO Invoices (Invoice_ID, Invoice_Number) VALUES (1, ' 12 ')",
       "INSERT INTO Invoices (Invoice_ID, Invoice_Number) VALUES (2, '13')"});
  const QString before = Rows("SELECT Diary_ID, Total_Price FROM Diary");
  const int wouldDo = Total(CountWhatToSortOut(business()));
  EXPECT_EQ(Rows("SELECT Diary_ID, Total_Price FROM Diary"), before) << "counting changes nothing";
  int steps = 0;
  EXPECT_EQ(Total(SortOutRecords(business(), [&](int step, int) { steps = step; })), wouldDo);
  EXPECT_EQ(steps, 16);
  EXPECT_EQ(Rows("SELECT Display_Name, First_Name FROM Clients ORDER BY Client_ID"),
            "Ant, Ann Ann, Dog Rescue Dog Rescue, Bee Bea");
  EXPECT_EQ(Rows("SELECT Payment_ID FROM Payments ORDER BY Payment_ID"), "1, 2, 3");
  EXPECT_EQ(Rows("SELECT Purchase_ID FROM Purchases ORDER BY Purchase_ID"), "2, 3");
  EXPECT_EQ(Rows("SELECT GL_Amount FROM General_Ledger_Entries ORDER BY GL_Entry_ID"),
            "50, 5.001, 30");
  EXPECT_EQ(Rows("SELECT Diary_ID, Total_Price, Total_GST FROM Diary ORDER BY Diary_ID"),
            "1 55 5.5, 2 0 0");
  EXPECT_TRUE(
      Run(Sql("SELECT Payment_ID FROM Diary WHERE Diary_ID = 2")).Field(size_t{0}).IsNull());
  EXPECT_EQ(Rows("SELECT DISTINCT Diary_ID FROM Diary_Services"), "1");
  EXPECT_EQ(Rows("SELECT Invoice_Number FROM Invoices"), "12");
  EXPECT_EQ(WordsOf(SortOutRecords(business())), "Nothing to do.") << "the second time";
}

TEST_F(YearEndTest, WhatLiesInTheDaysIsDeletedWholeOrNot) {
  for (const char* day : {"#2025/6/30#", "#2025/7/1#", "#2026/6/30#", "#2026/7/1#"}) {
    Run(Sql((QByteArray("INSERT INTO Diary (Client_ID, Schedule_Date, Total_Price) VALUES (1, ") +
             day + ", 10)")
                .constData()));
    Run(Sql((QByteArray("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES (1, ") +
             day + ", 20)")
                .constData()));
    Run(Sql(
        (QByteArray("INSERT INTO Invoices (From_Date, To_Date) VALUES (#2025/7/1#, ") + day + ")")
            .constData()));
  }
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Price) VALUES (2, 10)"));
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Price) VALUES (4, 10)"));
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (2, 20)"));
  const DateRange year{QDate(2025, 7, 1), QDate(2026, 6, 30)};
  const auto counts = CountPreviousRecords(business(), year);
  EXPECT_EQ(WordsOf(counts), "2 jobs, $20.00\n2 payments, $40.00\n3 invoices, $0.00");
  outside.prompter.Expect("delete records from 1 Jul 2025 to 30 Jun 2026?", Answer::No);
  EXPECT_FALSE(DeletePreviousRecordsAfterAsking(business(), outside.prompter, year));
  EXPECT_EQ(Total(CountPreviousRecords(business(), year)), Total(counts));
  outside.prompter.Expect("2 payments, $40.00", Answer::Yes);
  EXPECT_TRUE(DeletePreviousRecordsAfterAsking(business(), outside.prompter, year));
  EXPECT_EQ(Rows("SELECT Diary_ID FROM Diary ORDER BY Diary_ID"), "1, 4");
  EXPECT_EQ(Rows("SELECT Diary_ID FROM Diary_Services"), "4");
  EXPECT_EQ(Rows("SELECT Payment_ID FROM Payments ORDER BY Payment_ID"), "1, 4");
  EXPECT_EQ(Rows("SELECT Invoice_ID FROM Invoices"), "4") << "its period goes on after the days";
  EXPECT_EQ(Rows("SELECT GL_Amount FROM General_Ledger_Entries"), "20") << "kept until sorted out";
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
}

TEST_F(YearEndTest, RevenueAccountsStopAtTheFirstServiceOfAPaidJob) {
  Run(Sql("INSERT INTO Services (Service, Default_GL_Account_ID) VALUES ('Lawn', 3)"));
  Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (1, 20)"));
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (1, 20)"));
  UpdateRevenueAccounts(business());
  EXPECT_EQ(CountRevenueToUpdate(business()), 0);
  Run(Sql("INSERT INTO Diary (Client_ID, Payment_ID) VALUES (1, 1)"));
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES (1, 1, 20)"));
  EXPECT_EQ(CountRevenueToUpdate(business()), 1);
  EXPECT_THROW(UpdateRevenueAccounts(business()), NoCurrentRecord);
  EXPECT_EQ(Rows("SELECT GL_Amount, GL_Account_ID FROM General_Ledger_Entries"), "20 ");
}

}  // namespace
}  // namespace quillary::accounts
