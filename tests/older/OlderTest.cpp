#include "data/schema/Schema.h"
#include "data/store/Integrity.h"
#include "older/ImportOlder.h"
#include "setup/demo/DemoBusiness.h"
#include "support/BusinessTest.h"
#include "support/SpoiltFile.h"

#include <QDir>
#include <QFile>

namespace quillary::older {
namespace {

const QString kSample = QStringLiteral(QUILLARY_TEST_DATA "/older-product.mdb");

/// The delivered sample of the older product; its figures were read with a tool that is not ours.
class OlderTest : public BusinessTest {
 protected:
  ImportReceipt Import(const QString& file = kSample) {
    return ImportOlder(business(), file, folder.filePath("Archive"));
  }
  QString Rows(const char* select) {
    QStringList rows;
    for (const Record row : Run(Sql(select))) {
      QStringList fields;
      for (size_t at = 0; at < row.Size(); ++at) fields += row[at].ToText("-");
      rows += fields.join(' ');
    }
    return rows.join(", ");
  }
  QString One(const char* select) { return business().FirstField(Sql(select)).ToText(); }
  QStringList Everything() {
    QStringList all;
    for (const QString& table : BusinessTables())
      for (const Record row : business().RunSQL("SELECT * FROM " + table)) {
        QString line = table;
        for (size_t at = 0; at < row.Size(); ++at) line += '|' + row[at].ToText("null");
        if (!line.startsWith("infSystem")) all += line;  // the backup before it leaves its mark
      }
    return all;
  }
};

TEST_F(OlderTest, TheSampleComesOverRowByRow) {
  Run(Sql("INSERT INTO Clients (Display_Name) VALUES ('Was here before')"));
  Run(Sql("INSERT INTO Invoices (Invoice_Number, Client_ID) VALUES ('7', 1)"));
  const ImportReceipt receipt = Import();
  struct Case {
    const char* select;
    const char* is;
  };
  for (const Case& c :
       {Case{"SELECT Count(*) FROM Employees", "2"},
        Case{"SELECT Count(*) & ' ' & Sum(Budget_Amount) FROM General_Ledger_Accounts", "6 102000"},
        Case{"SELECT Count(*) & ' ' & Sum(GL_Amount) FROM General_Ledger_Entries", "305 25815.5"},
        Case{"SELECT Count(*) FROM Services", "6"}, Case{"SELECT Count(*) FROM Suppliers", "3"},
        Case{"SELECT Count(*) & ' ' & Sum(Amount) FROM Purchases", "31 5143"},
        Case{"SELECT Count(*) FROM Bankings", "3"},
        Case{"SELECT Count(*) & ' ' & Sum(Amount) FROM Payments", "815 60539.5"},
        // 6 corporations without clients, 42 that are one with theirs, 7 with 18 clients between
        // them.
        Case{"SELECT Count(*) FROM Clients", "73"},
        Case{"SELECT Count(*) FROM Clients WHERE Status = 'Billing address'", "13"},
        Case{"SELECT Count(*) FROM Clients WHERE Billing_Client_ID <> Client_ID", "18"},
        Case{"SELECT Sum(Price) FROM Client_Services", "4312.5"},
        Case{"SELECT Count(*) & ' ' & Sum(Total_Price) FROM Diary", "1195 88555.5"},
        Case{"SELECT Count(*) & ' ' & Sum(Price) FROM Diary_Services", "1363 88555.5"},
        Case{"SELECT Count(*) FROM Diary WHERE Status = 'JD'", "1065"},
        Case{"SELECT Count(*) FROM Diary WHERE Status = 'J'", "98"},
        Case{"SELECT Count(*) FROM Diary WHERE Status = 'JC'", "32"},
        Case{"SELECT Count(*) FROM lstBanks", "2"},
        Case{"SELECT Count(*) FROM lstFrequencies", "5"},
        Case{"SELECT Count(*) FROM lstPayment_Methods", "4"},
        Case{"SELECT Company_Name & '/' & FSE_Code & '/' & Provider & '/' & Surname FROM "
             "infPersonalDetails",
             "Evergreen Lawns & Gardens/GX902/PR-77/O'Dwyer"},
        Case{"SELECT Days_To_Advance_Schedule FROM infOptions", "90"},
        Case{"SELECT Database_Version FROM infSystem", "0"},
        Case{"SELECT Count(*) FROM Invoices", "0"},
        Case{"SELECT Count(*) FROM Clients WHERE Display_Name = 'Was here before'", "0"}})
    EXPECT_EQ(One(c.select).toStdString(), c.is) << c.select;
  EXPECT_NEAR(business().FirstField(Sql("SELECT GST_Percentage FROM infOptions")).ToDouble(), 0.1,
              1e-6);
  EXPECT_EQ(receipt.tables.Findings().join(';').toStdString(),
            "tblJobs to Diary: 44 rows rejected, the first: an appointment without a job: 44 rows");
  EXPECT_EQ(receipt.troubles, QStringList());
}

TEST_F(OlderTest, KeysLeadToTheSameRows) {
  // Other keys than the older file's, so that one that was not changed shows.
  for (int at = 0; at < 5; ++at) {
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('x')"));
    Run(Sql("INSERT INTO Clients (Display_Name) VALUES ('x')"));
    Run(Sql("INSERT INTO Payments (Amount) VALUES (1)"));
    Run(Sql("INSERT INTO Purchases (Amount) VALUES (1)"));
  }
  Import();
  EXPECT_EQ(Rows("SELECT Count(*) FROM Diary LEFT JOIN Clients ON Diary.Client_ID = "
                 "Clients.Client_ID WHERE Clients.Client_ID IS NULL"),
            "0");
  // The first payment of the sample is Reed's, and its ledger entries are of payments that are
  // there.
  EXPECT_EQ(Rows("SELECT TOP 1 Clients.Display_Name, Payments.Amount FROM Payments INNER JOIN "
                 "Clients ON Payments.Client_ID = Clients.Client_ID ORDER BY Payment_ID"),
            "Reed, Thea 45");
  EXPECT_EQ(Rows("SELECT Count(*) FROM (General_Ledger_Entries LEFT JOIN Payments ON "
                 "General_Ledger_Entries.Payment_ID = Payments.Payment_ID) LEFT JOIN Purchases ON "
                 "General_Ledger_Entries.Purchase_ID = Purchases.Purchase_ID WHERE "
                 "Payments.Payment_ID IS NULL AND Purchases.Purchase_ID IS NULL"),
            "0");
  EXPECT_EQ(Rows("SELECT Services.Service_Code, Employees.Employee_Name, Client_Services.Status, "
                 "Client_Services.Frequency, Client_Services.Price FROM ((Client_Services INNER "
                 "JOIN Services ON Client_Services.Service_ID = Services.Service_ID) INNER JOIN "
                 "Employees ON Client_Services.Employee_ID = Employees.Employee_ID) INNER JOIN "
                 "Clients ON Client_Services.Client_ID = Clients.Client_ID WHERE "
                 "Clients.Display_Name IN ('Quill, Vera', 'Marsh, Yara') ORDER BY Display_Name "
                 "DESC"),
            "HDG Trailer 1 - Sam Regular 28 85, GUT Trailer 2 - Jo Regular 14 93.5")
      << "the second price was net";
}

TEST_F(OlderTest, BalancesStandBesideWhatTheOlderProductSaid) {
  const ImportReceipt receipt = Import();
  ASSERT_EQ(receipt.balances.size(), 55U);
  Money older;
  Money now;
  for (const BalanceBeside& balance : receipt.balances) {
    older += balance.older;
    now += balance.now;
  }
  EXPECT_EQ(now.ToText(), One("SELECT Sum(Account_Balance) FROM Clients"));
  EXPECT_TRUE(receipt.Words().contains("of 55 balances differ"));
}

TEST_F(OlderTest, AFileThatIsNoneOfItsKindChangesNothing) {
  Run(Sql("INSERT INTO Clients (Display_Name) VALUES ('Kept')"));
  const QStringList before = Everything();
  QFile text(folder.filePath("text.mdb"));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.write("no database");
  text.close();
  for (const QString& file : {text.fileName(), folder.filePath("missing.mdb"),
                              QString(QUILLARY_TEST_DATA "/access-v12.mdb")}) {
    EXPECT_THROW(Import(file), AccessFailure) << file.toStdString();
    EXPECT_EQ(Everything(), before);
  }
}

TEST_F(OlderTest, SpoiltFilesComeOverOrLeaveTheBusinessAsItWas) {
  Run(Sql("INSERT INTO Clients (Display_Name) VALUES ('Kept')"));
  QFile sample(kSample);
  ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
  const QByteArray bytes = sample.readAll();
  QStringList before = Everything();
  const int rounds = std::max(30, qEnvironmentVariableIntValue("QUILLARY_MUTATIONS"));
  int imported = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("mutation " + std::to_string(round));
    QRandomGenerator random(static_cast<quint32>(round));
    QFile spoilt(folder.filePath("old.mdb"));
    ASSERT_TRUE(spoilt.open(QIODevice::WriteOnly));
    spoilt.write(Spoil(bytes, random));
    spoilt.close();
    try {
      const ImportReceipt receipt =
          ImportOlder(business(), spoilt.fileName(), folder.filePath("Archive"), {},
                      {.processorSeconds = 3, .silentSeconds = 5});
      ++imported;
      // What is not told came over.
      for (const TableReceipt& table : receipt.tables.tables)
        EXPECT_EQ(table.written + table.rejected, table.read) << table.table.toStdString();
      EXPECT_EQ(Run(Sql("SELECT Display_Name FROM Clients WHERE Display_Name = 'Kept'")).RowCount(),
                0U);
      before = Everything();
    } catch (const AccessFailure&) {
    } catch (const WriteFailed&) {  // a number that no column holds, for example
    }
    ASSERT_EQ(Everything(), before) << "a failure left something";
  }
  RecordProperty("files", rounds);
  RecordProperty("imported", imported);
}

}  // namespace
}  // namespace quillary::older
