#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "support/BusinessTest.h"
#include "support/Contents.h"

#include <QFile>

namespace quillary {
namespace {

class HistoryTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    Do("INSERT INTO Clients (Display_Name, Notes, Account_Balance, Debtor_Since, Is_Billed_To) "
       "VALUES ('Abbott, Paula', 'line\nline', -55.05, #2026/10/1#, True)");
    Do("INSERT INTO Clients (Display_Name) VALUES ('Brown, Tom')");
    Do("INSERT INTO Diary (Client_ID, Status, Total_Price) VALUES (1, 'J', 12.5)");
    Do("INSERT INTO Invoice_Items (Invoice_ID, Item_Description) VALUES (1, 'one')");
    Do("INSERT INTO Invoice_Items (Invoice_ID, Item_Description) VALUES (1, 'one')");
  }

  void Do(const char* statement) { business().Write(Sql(statement)); }
  void Command(const char* what, const std::function<void()>& work) {
    const CommandScope scope(business(), what);
    work();
  }
  void Command(const char* what, const char* statement) {
    Command(what, [&] { Do(statement); });
  }
  History& Past() { return business().PastCommands(); }
  QString Undo() {
    const auto refusal = Past().Undo();
    return refusal ? refusal->message : QString();
  }
  QString Redo() {
    const auto refusal = Past().Redo();
    return refusal ? refusal->message : QString();
  }
};

struct Deed {
  const char* what;
  std::vector<const char*> statements;
};

TEST_F(HistoryTest, WhatACommandWroteIsTakenBackAndMadeAgain) {
  const Deed deeds[] = {
      {"a row", {"INSERT INTO Clients (Display_Name) VALUES ('Cole')"}},
      {"a row of all kinds, changed to null and back",
       {"UPDATE Clients SET Display_Name = NULL, Notes = '', Account_Balance = 0.0001, "
        "Debtor_Since = NULL, Is_Billed_To = False WHERE Client_ID = 1",
        "UPDATE Clients SET Notes = 'ÄÖ''\"', Account_Balance = 12345678901.25 "
        "WHERE Client_ID = 1"}},
      {"a change of case only",
       {"UPDATE Clients SET Display_Name = 'ABBOTT, PAULA' "
        "WHERE Client_ID = 1"}},
      {"all rows, by a DELETE without a condition", {"DELETE FROM Clients", "DELETE FROM Diary"}},
      {"made, changed and deleted again",
       {"INSERT INTO Clients (Display_Name) VALUES ('Cole')",
        "UPDATE Clients SET Fax = '1' WHERE Display_Name = 'Cole'",
        "DELETE FROM Clients WHERE Display_Name = 'Cole'",
        "INSERT INTO Clients (Display_Name) VALUES ('Dunn')"}},
      {"equal rows of a table without a key",
       {"DELETE FROM Invoice_Items",
        "INSERT INTO Invoice_Items (Invoice_ID, Item_Description, Item_Amount) "
        "VALUES (2, 'two', 1.5)",
        "UPDATE Invoice_Items SET Item_Amount = 2"}},
      {"the one row of the options", {"UPDATE infOptions SET GST_Percentage = 0.15"}},
  };
  for (const Deed& deed : deeds) {
    SCOPED_TRACE(deed.what);
    const Contents before = ContentsOf(business());
    Command(deed.what, [&] {
      for (const char* statement : deed.statements) Do(statement);
    });
    const Contents after = ContentsOf(business());
    EXPECT_NE(before, after);
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(Undo(), "");
      EXPECT_EQ(Difference(before, ContentsOf(business())), "");
      EXPECT_EQ(Redo(), "");
      EXPECT_EQ(Difference(after, ContentsOf(business())), "");
    }
    EXPECT_EQ(Undo(), "");
  }
}

TEST_F(HistoryTest, ColumnsThatCameLaterAreGivenBackAsTheyRead) {
  business().RunSQL(QStringLiteral("ALTER TABLE Diary ADD COLUMN Seen YESNO"));
  const Contents before = ContentsOf(business());
  Command("delete", "DELETE FROM Diary");
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Difference(before, ContentsOf(business())), "");
}

TEST_F(HistoryTest, OnlyWhatWasCommittedIsKept) {
  ExpectRefused("Nowhere");
  Do("UPDATE Clients SET Post_Code = IIf(Client_ID = 1, '5', 'none')");
  const Contents before = ContentsOf(business());
  Command("half done", [&] {
    {
      Transaction undone(business());
      Do("DELETE FROM Clients");
    }
    Transaction all(business());
    Do("UPDATE Clients SET Fax = '1' WHERE Client_ID = 1");
    {
      Transaction part(business());
      Do("DELETE FROM Diary");
    }
    business().RunSQL(QStringLiteral("UPDATE Clients SET Nowhere = 1"));
    // Fails at its second row, after the first was written.
    EXPECT_THROW(Do("UPDATE Clients SET Billing_Client_ID = CLng(Post_Code)"), WriteFailed);
    all.Commit();
  });
  EXPECT_EQ(Past().ToUndo(), QStringList("half done"));
  EXPECT_EQ(Count("Diary"), 1);
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Difference(before, ContentsOf(business())), "");
  Command("reads and changes nothing", [&] {
    Do("UPDATE Clients SET Display_Name = Display_Name");
    Run(Sql("SELECT * FROM Clients"));
    Do("INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES (1)");
  });
  EXPECT_EQ(Past().ToUndo(), QStringList());
  EXPECT_EQ(Past().ToRedo(), QStringList("half done"));
}

TEST_F(HistoryTest, WhatCameSinceIsNotOverwritten) {
  struct Case {
    const char* command;
    const char* since;
    const char* inTheWay;  // empty when nothing is
  };
  const Case cases[] = {
      {"UPDATE Clients SET Fax = '1' WHERE Client_ID = 1",
       "UPDATE Clients SET Fax = '2' WHERE Client_ID = 1",
       "the client (number 1) was changed since"},
      {"UPDATE Clients SET Fax = '3' WHERE Client_ID = 1",
       "UPDATE Clients SET Email = 'x' WHERE Client_ID = 1", ""},
      {"UPDATE Clients SET Fax = 'a' WHERE Client_ID = 1",
       "UPDATE Clients SET Fax = 'A' WHERE Client_ID = 1",
       "the client (number 1) was changed since"},
      {"INSERT INTO Diary (Client_ID) VALUES (1)", "UPDATE Diary SET Client_ID = 2",
       "the diary entry (number 2) was changed since"},
      {"UPDATE Diary SET Status = 'JD'", "DELETE FROM Diary", "is no longer there"},
      {"DELETE FROM Invoice_Items", "INSERT INTO Invoice_Items (Invoice_ID) VALUES (3)",
       "another line of an invoice bears the number 1 by now"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.since);
    Command("the command", c.command);
    Do(c.since);
    const Contents since = ContentsOf(business());
    const QString told = Undo();
    if (*c.inTheWay == '\0') {
      EXPECT_EQ(told, "");
      continue;
    }
    EXPECT_TRUE(told.startsWith("\"the command\" cannot be taken back: ")) << told.toStdString();
    EXPECT_TRUE(told.contains(c.inTheWay)) << told.toStdString();
    EXPECT_EQ(Difference(since, ContentsOf(business())), "");
    EXPECT_EQ(Past().ToUndo(), QStringList("the command"));
    Past().End();
  }
}

TEST_F(HistoryTest, NumbersStaySpent) {
  const auto number = [&] { return business().LookupField("infSystem.Invoice_Number"); };
  Command("bill", [&] {
    Do("UPDATE infSystem SET Invoice_Number = 7, Backup_Description = 'x'");
    Do("INSERT INTO Invoices (Invoice_Number) VALUES ('7')");
  });
  Do("UPDATE infSystem SET Invoice_Number = 8");
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(number(), Value(8));
  EXPECT_TRUE(business().LookupField("infSystem.Backup_Description").IsNull());
  EXPECT_EQ(business().InsertReturningKey<Invoice>(
                Sql("INSERT INTO Invoices (Invoice_Number) VALUES ('9')")),
            Id<Invoice>(2));
  EXPECT_EQ(Redo(), "");
  EXPECT_EQ(number(), Value(8));
  EXPECT_EQ(Count("Invoices"), 2);
}

TEST_F(HistoryTest, ListsTheLatestFifty) {
  for (int command = 1; command <= 52; ++command) {
    const CommandScope scope(business(), "Clicked");
    business().Write(Sql("INSERT INTO lstBanks (Bank) VALUES ({})", command));
    Past().Describe(QStringLiteral("Bank %1").arg(command));
  }
  EXPECT_EQ(Past().ToUndo().size(), 50);
  EXPECT_EQ(Past().ToUndo().first(), "Bank 52");
  EXPECT_EQ(Past().ToUndo().last(), "Bank 3");
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Past().ToRedo(), QStringList({"Bank 51", "Bank 52"}));
  Command("Another", "DELETE FROM lstBanks WHERE Bank_ID = 1");
  EXPECT_EQ(Past().ToRedo(), QStringList());
  EXPECT_EQ(Redo(), "There is nothing to do again.");
}

TEST_F(HistoryTest, ACommandOfADialogIsAStepOfItsOwn) {
  Command("outer", [&] {
    Do("UPDATE Clients SET Fax = '1' WHERE Client_ID = 1");
    Command("inner", "UPDATE Clients SET Fax = '2' WHERE Client_ID = 1");
    Transaction all(business());
    Command("part of the outer", "UPDATE Clients SET Fax = '3' WHERE Client_ID = 1");
    all.Commit();
  });
  EXPECT_EQ(Past().ToUndo(), QStringList({"outer", "inner", "outer"}));
  for (int step = 0; step < 3; ++step) EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Undo(), "There is nothing to take back.");
}

TEST_F(HistoryTest, SharedValuesFollow) {
  LoadSharedValues(business());
  Command("options", [&] {
    Do("UPDATE infOptions SET Days_To_Advance_Schedule = 30");
    Do("INSERT INTO Holiday (Hol_Date, Hol_Recurring) VALUES ('01/05', True)");
    LoadSharedValues(business());
  });
  const Subscription listener = business().OnCommitted([&](const Tables& written) {
    EXPECT_EQ(written, Tables({"infoptions", "Holiday"}));
    EXPECT_EQ(business().values.daysToAdvanceSchedule, 0);
  });
  EXPECT_EQ(Undo(), "");
  EXPECT_FALSE(IsHoliday(business().holidays, QDate(2027, 5, 1)));
}

TEST_F(HistoryTest, EndsWithTheFile) {
  const auto changed = [&] {
    Command("change", "UPDATE Clients SET Fax = '1' + IIf(IsNull(Fax), '', Fax)");
  };
  changed();
  business().CloseConnection();
  EXPECT_EQ(Undo(), "") << "the same file";
  changed();
  business().CloseConnection();
  const QString path = business().DatabaseFile();
  ASSERT_TRUE(QFile::copy(path, path + ".other"));
  ASSERT_TRUE(QFile::remove(path) && QFile::rename(path + ".other", path));
  EXPECT_EQ(Undo(), "There is nothing to take back.");
  changed();
  business().RunSQL(QStringLiteral("ALTER TABLE Diary ADD COLUMN Seen YESNO"));
  EXPECT_EQ(Undo(), "There is nothing to take back.");
}

TEST_F(HistoryTest, AHugeCommandIsKeptOutsideOfMemory) {
  const Contents before = ContentsOf(business());
  Command("many", [&] {
    Transaction all(business());
    for (int row = 0; row < 20'000; ++row) {
      business().Write(Sql("INSERT INTO Diary (Client_ID, Status, Notes) VALUES (1, 'J', {})",
                           QString(80, QChar('a' + row % 26))));
    }
    {
      Transaction undone(business());
      Do("DELETE FROM Diary WHERE Diary_ID > 300");
    }
    Do("DELETE FROM Diary WHERE Diary_ID < 10000");
    all.Commit();
  });
  const Contents after = ContentsOf(business());
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(Difference(before, ContentsOf(business())), "");
  EXPECT_EQ(Redo(), "");
  EXPECT_EQ(Difference(after, ContentsOf(business())), "");
}

TEST_F(HistoryTest, CommitsTellWhatTheyWrote) {
  std::vector<Tables> told;
  Subscription listener =
      business().OnCommitted([&](const Tables& tables) { told.push_back(tables); });
  const auto taken = [&] { return std::exchange(told, {}); };
  using Told = std::vector<Tables>;
  Do("DELETE FROM Clients");
  EXPECT_EQ(taken(), Told({{"Clients"}}));
  Do("UPDATE Clients SET Fax = '1'");  // no row is left
  Run(Sql("SELECT * FROM Diary"));
  EXPECT_EQ(taken(), Told());
  {
    Transaction all(business());
    Do("INSERT INTO Clients (Display_Name) VALUES ('Cole')");
    {
      Transaction part(business());
      Do("DELETE FROM Invoice_Items");
    }
    Do("UPDATE Diary SET Status = 'JD'");
    EXPECT_EQ(taken(), Told());
    all.Commit();
  }
  EXPECT_EQ(taken(), Told({{"Clients", "Diary"}}));
  {
    Transaction undone(business());
    Do("DELETE FROM Diary");
  }
  EXPECT_EQ(taken(), Told());
  listener.reset();
  Do("DELETE FROM Diary");
  EXPECT_EQ(taken(), Told());
}

TEST_F(HistoryTest, AFailingListenerIsReportedAndTheCommitStands) {
  const Subscription listener =
      business().OnCommitted([](const Tables&) { throw NoCurrentRecord("Fax"); });
  Do("DELETE FROM Diary");
  EXPECT_EQ(Count("Diary"), 0);
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 1);
  EXPECT_TRUE(reports.first().contains("OnCommitted")) << reports.first().toStdString();
}

}  // namespace
}  // namespace quillary
