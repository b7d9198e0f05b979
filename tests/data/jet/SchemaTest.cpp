#include "data/jet/Declarations.h"
#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

class SchemaTest : public ::testing::Test {
 protected:
  std::string TypesOf(const char* table) {
    constexpr const char* kNames[] = {"Counter", "Long",  "Single", "Double", "Currency",
                                      "Date",    "YesNo", "Text",   "Memo"};
    std::string all;
    for (const Column& column : file_.FindTable(QString::fromUtf8(table))->columns) {
      all += (all.empty() ? "" : ", ") + column.name.toStdString() + " " +
             kNames[static_cast<size_t>(column.type)];
      if (column.width > 0) all += " " + std::to_string(column.width);
    }
    return all;
  }

  ScratchFile file_;
};

TEST_F(SchemaTest, TypesReadBackFromTheFile) {
  file_.Run(
      "CREATE TABLE t (a Autoincrement, b long, c INT, d NUMBER, e SINGLE, f DOUBLE, g CURRENCY, h "
      "MONEY, "
      "i DATE, j DATETIME, k YESNO, l BIT, m TEXT, n Text(30), o TEXT (255), p MEMO, q INTEGER, r "
      "REAL)");
  EXPECT_EQ(
      TypesOf("T"),
      "a Counter, b Long, c Long, d Double, e Single, f Double, g Currency, h Currency, i Date, "
      "j Date, k YesNo, l YesNo, m Text, n Text 30, o Text 255, p Memo, q Long, r Single");
  file_.Run("INSERT INTO t (d, g, m, p, e) VALUES (5, 5, '007', '1e3', 2)");
  EXPECT_EQ(Shown(file_.Raw("SELECT typeof(d), typeof(g), m, p, typeof(e), k FROM t")),
            "integer|integer|007|1e3|real|0")
      << "affinity bends a value";
  for (const ColumnType type : {ColumnType::Counter, ColumnType::Long, ColumnType::Single,
                                ColumnType::Double, ColumnType::Currency, ColumnType::Date,
                                ColumnType::YesNo, ColumnType::Text, ColumnType::Memo}) {
    EXPECT_EQ(TypeOfDeclaration(DeclarationOf({QStringLiteral("c"), type, 0})), type);
  }
}

TEST_F(SchemaTest, OldFilesClimbToTheirColumns) {
  file_.RunAll(R"(CREATE TABLE Clients (Client_ID Counter, Billing_Name TEXT(100))
INSERT INTO Clients (Billing_Name) VALUES ('Adams')
CREATE INDEX ByName ON Clients (Billing_Name)
ALTER TABLE Clients ADD COLUMN Display_Name TEXT (100)
UPDATE Clients SET Display_Name = Billing_Name; 
ALTER TABLE Clients DROP COLUMN Billing_Name
ALTER TABLE Clients ADD COLUMN Requires_Statement YESNO; 
ALTER TABLE Clients ADD Notes MEMO, Payment_ID NUMBER
ALTER TABLE Clients ADD COLUMN Next_Job_Date TEXT 50)");
  EXPECT_EQ(TypesOf("Clients"),
            "Client_ID Counter, Display_Name Text 100, Requires_Statement YesNo, Notes Memo, "
            "Payment_ID Double, Next_Job_Date Text 50");
  EXPECT_EQ(Shown(file_.Run("SELECT * FROM Clients")), "1|Adams|False|NULL|NULL|NULL");
  for (const char* refused :
       {"ALTER TABLE Clients ADD COLUMN notes MEMO",
        "ALTER TABLE Clients ADD COLUMN a LONG, a LONG",
        "ALTER TABLE Clients UPDATE COLUMN Notes TEXT(30)", "ALTER TABLE Clients DROP COLUMN Gone",
        "CREATE TABLE clients (a LONG)", "CREATE TABLE t (a LONG, A TEXT)", "DROP TABLE Gone",
        "ALTER TABLE Clients ADD COLUMN Other_ID Counter", "CREATE TABLE t (a ANYTHING)",
        "CREATE INDEX x ON Clients (Gone)"}) {
    EXPECT_THROW(file_.Run(refused), StatementError) << refused;
  }
}

TEST_F(SchemaTest, AlteredColumnKeepsRowsCounterAndIndexes) {
  file_.RunAll(R"(CREATE TABLE t (Id Counter, Amount TEXT(20), Done YESNO, Ref NUMBER)
INSERT INTO t (Amount, Done, Ref) VALUES ('$1,234.50', Yes, 3)
INSERT INTO t (Amount) VALUES (Null)
INSERT INTO t (Amount) VALUES ('7')
DELETE FROM t WHERE Id = 3
CREATE UNIQUE INDEX ByRef ON t (Ref DESC, Id)
ALTER TABLE t ALTER COLUMN Amount CURRENCY, Ref INT
ALTER TABLE t ALTER COLUMN Done LONG
INSERT INTO t (Amount) VALUES (8))");
  EXPECT_EQ(TypesOf("t"), "Id Counter, Amount Currency, Done Long, Ref Long");
  EXPECT_EQ(Shown(file_.Run("SELECT * FROM t")), "1|1234.5|-1|3 / 2|NULL|0|NULL / 4|8|NULL|NULL");
  EXPECT_EQ(
      Shown(file_.Raw("SELECT name FROM sqlite_master WHERE tbl_name = 't' AND type = 'index'")),
      "ByRef");
  file_.RunAll("ALTER TABLE t DROP COLUMN Id, Ref\nDROP TABLE t");
  EXPECT_EQ(Shown(file_.Raw("SELECT count(*) FROM sqlite_master WHERE name <> 'sqlite_sequence'")),
            "0");
  EXPECT_EQ(file_.FindTable(u"t"), nullptr);
}

TEST_F(SchemaTest, AlteredTableKeepsTheOrderOfItsRows) {
  file_.RunAll(R"(CREATE TABLE t (a LONG)
INSERT INTO t VALUES (2)
INSERT INTO t VALUES (1)
INSERT INTO t VALUES (3)
ALTER TABLE t ALTER COLUMN a TEXT(5))");
  EXPECT_EQ(Shown(file_.Run("SELECT a FROM t")), "2 / 1 / 3");
}

TEST_F(SchemaTest, ForeignDeclarationsAreTakenByTheirAffinity) {
  const std::pair<const char*, ColumnType> cases[] = {
      {"bigint", ColumnType::Long},
      {"VARYING CHARACTER(9)", ColumnType::Text},
      {"CLOB", ColumnType::Memo},
      {"TINYTEXT", ColumnType::Memo},
      {"double precision", ColumnType::Double},
      {"real", ColumnType::Double},
      {"TIMESTAMP", ColumnType::Date},
      {"boolean", ColumnType::YesNo},
      {"", ColumnType::Memo},
      {"DECIMAL(10,2)", ColumnType::Double},
      {"INTEGER PRIMARY KEY", ColumnType::Counter},
  };
  for (const auto& [declared, type] : cases) {
    EXPECT_EQ(TypeOfDeclaration(QString(declared)), type) << declared;
  }
  EXPECT_EQ(WidthOfDeclaration(u"VARCHAR( 12 )"), 12);
  EXPECT_EQ(WidthOfDeclaration(u"VARCHAR"), 0);
}

TEST_F(SchemaTest, IndexesHoldUnderTheirNames) {
  file_.RunAll(R"(CREATE TABLE t (a LONG NOT NULL, b TEXT(5), CONSTRAINT k PRIMARY KEY (a))
CREATE UNIQUE INDEX Twice ON t (b);
INSERT INTO t VALUES (1, 'x'))");
  EXPECT_THROW(file_.Run("INSERT INTO t VALUES (2, 'X')"), std::runtime_error)
      << "a unique text minds case";
  EXPECT_THROW(file_.Run("INSERT INTO t VALUES (1, 'y')"), std::runtime_error);
  file_.Run("ALTER TABLE t ALTER COLUMN a TEXT(9)");
  file_.Run("ALTER TABLE t ALTER COLUMN a TEXT(65535)");
  EXPECT_ANY_THROW(file_.Run("ALTER TABLE t ALTER COLUMN a TEXT(65536)"));
  EXPECT_THROW(file_.Run("INSERT INTO t VALUES (1, 'y')"), std::runtime_error)
      << "a rebuilt table loses its key";
  file_.Run("DROP INDEX Twice ON t");
  file_.Run("INSERT INTO t VALUES (2, 'X')");
}

}  // namespace
}  // namespace quillary::jet
