#include "support/BusinessTest.h"

namespace quillary {
namespace {

class WritesTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    for (const char* name : {"Abbott", "Brown", "Brown"}) {
      Run(Sql("INSERT INTO Clients (Display_Name) VALUES ({})", name));
    }
  }
  QString Names() {
    QStringList names;
    for (const Record row : Run(Sql("SELECT Display_Name FROM Clients ORDER BY Client_ID"))) {
      names += row[size_t{0}].ToText();
    }
    return names.join(u' ');
  }
};

struct WriteCase {
  const char* what;
  const char* statement;
  Rows rows;
  int hit;              // -1: it must fail
  const char* message;  // part of it
};

TEST_F(WritesTest, HitTheRowsTheyMustOrChangeNothing) {
  const WriteCase cases[] = {
      {"any rows", "UPDATE Clients SET Fax = '1' WHERE Client_ID = 99", Rows::Any(), 0, ""},
      {"one row", "UPDATE Clients SET Fax = '1' WHERE Client_ID = 1", Rows::Exactly(1), 1, ""},
      {"all rows", "DELETE FROM Divisions", Rows::AtLeast(1), 31, ""},
      {"joined",
       "UPDATE Clients INNER JOIN infSystem ON infSystem.Invoice_Number = 0 "
       "SET Clients.Fax = '2'",
       Rows::AtLeast(2), 3, ""},
      {"a row that is gone", "UPDATE Clients SET Display_Name = 'X' WHERE Client_ID = 99",
       Rows::Exactly(1), -1, "The client that was to be changed is no longer there."},
      {"more rows than meant", "UPDATE Clients SET Display_Name = 'X' WHERE Client_ID > 1",
       Rows::Exactly(1), -1, "2 rows would have been changed where 1 was meant"},
      {"fewer rows than meant", "DELETE FROM Clients WHERE Client_ID = 1", Rows::AtLeast(2), -1,
       "1 rows would have been deleted where 2 or more was meant"},
      {"refused by the dialect", "INSERT INTO Clients (Nowhere) VALUES (1)", Rows::Any(), -1,
       "The client could not be added: "},
      {"refused by the store", "INSERT INTO Diary (Diary_ID) VALUES ('x')", Rows::Any(), -1,
       "The diary entry could not be added: "},
      {"no statement that writes", "SELECT * FROM Clients", Rows::Exactly(1), -1,
       "The client that was to be changed"},
  };
  for (const WriteCase& write : cases) {
    SCOPED_TRACE(write.what);
    try {
      EXPECT_EQ(business().Write(Sql(write.statement), write.rows), write.hit);
    } catch (const WriteFailed& failed) {
      EXPECT_EQ(write.hit, -1) << failed.what();
      EXPECT_TRUE(QString::fromUtf8(failed.what()).contains(write.message)) << failed.what();
      const QString further = failed.FurtherInformation();
      EXPECT_TRUE(further.startsWith(QString("Statement: ") + write.statement));
      EXPECT_TRUE(further.contains("\nReason: "));
      EXPECT_TRUE(further.contains("\nTable: ")) << further.toStdString();
    }
    EXPECT_EQ(Names(), "Abbott Brown Brown");
  }
}

TEST_F(WritesTest, AFailedOneLeavesTheRuleAroundItUndone) {
  const auto rule = [&] {
    Transaction all(business());
    business().Write(Sql("DELETE FROM Clients WHERE Client_ID = 1"), Rows::Exactly(1));
    business().Write(Sql("UPDATE Diary SET Status = 'JD' WHERE Diary_ID = 1"), Rows::Exactly(1));
    all.Commit();
  };
  EXPECT_THROW(rule(), WriteFailed);
  EXPECT_EQ(Names(), "Abbott Brown Brown");
  Run(Sql("INSERT INTO Diary (Status) VALUES ('J')"));
  rule();
  EXPECT_EQ(Names(), "Brown Brown");
}

TEST_F(WritesTest, AnInsertTellsItsOwnKey) {
  const Sql insert("INSERT INTO Clients (Display_Name) VALUES ('Cole')");
  EXPECT_EQ(business().InsertReturningKey<Client>(insert), Id<Client>(4));
  Run(Sql("DELETE FROM Clients WHERE Client_ID = 4"));
  EXPECT_EQ(business().InsertReturningKey<Client>(insert), Id<Client>(5));
  const Sql copies("INSERT INTO Clients (Display_Name) SELECT Display_Name FROM Clients");
  EXPECT_THROW(business().InsertReturningKey<Client>(copies), WriteFailed);
  EXPECT_EQ(Count("Clients"), 4);
}

TEST_F(WritesTest, WhoReadsARefusedStatementIsToldWhy) {
  ExpectRefused("Nowhere");
  const Recordset none = business().RunSQL(QStringLiteral("SELECT * FROM Nowhere"));
  try {
    none.Field(size_t{0});
    FAIL() << "was read";
  } catch (const NoRecordset& error) {
    const QString further = error.FurtherInformation();
    EXPECT_TRUE(further.contains("Statement: SELECT * FROM Nowhere\n")) << further.toStdString();
    EXPECT_TRUE(further.endsWith("\nTable: Nowhere")) << further.toStdString();
  }
}

}  // namespace
}  // namespace quillary
