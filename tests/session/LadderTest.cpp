#include "data/schema/Schema.h"
#include "data/schema/Upgrader.h"
#include "support/BusinessTest.h"

namespace quillary::session {
namespace {

/// What takes a file back below the version that brought it along.
struct Undone {
  int version;
  const char* statement;
};

const Undone kUndone[] = {
    {57, "ALTER TABLE infOptions DROP COLUMN CompactDatabaseBeforeUpload"},
    {56, "ALTER TABLE infOptions DROP COLUMN DatabaseUploaded"},
    {54, "ALTER TABLE infOptions DROP COLUMN EnableOstrel4WebServices"},
    {53, "ALTER TABLE infOptions DROP COLUMN CCEmailAddress"},
    {52, "ALTER TABLE infOptions DROP COLUMN RecalculateClientAmtsOwingOnPrint"},
    {51, "DROP INDEX CustIndex ON Clients"},
    {51, "DROP INDEX DiaryCustIndex ON Diary"},
    {51, "DROP INDEX PaymentCustIndex ON Payments"},
    {51, "DROP INDEX CustStatusIndex ON Clients"},
    {51, "DROP INDEX DiaryStatusIndex ON Diary"},
    {51, "DROP INDEX CustBillingIndex ON Clients"},
    {51, "ALTER TABLE infOptions DROP COLUMN AdobePath"},
    {51, "ALTER TABLE infOptions DROP COLUMN Default_Email_Message"},
    {50, "ALTER TABLE infOptions DROP COLUMN EnableLogging"},
    {48, "ALTER TABLE infPersonalDetails DROP COLUMN BSB_Account_Number"},
    {48, "ALTER TABLE infPersonalDetails DROP COLUMN Account_Name"},
    {47, "ALTER TABLE infOptions DROP COLUMN TermsOfTrade"},
    {45, "ALTER TABLE Countries DROP COLUMN Tax_Name"},
    {44, "ALTER TABLE Invoices DROP COLUMN IsPaid"},
    {44, "ALTER TABLE Invoices DROP COLUMN Invoice_Notes"},
    {42, "DROP TABLE Quote_Services"},
    {42, "DROP TABLE Quotes"},
    {41, "DROP TABLE Suburb_Position"},
    {40, "ALTER TABLE Clients DROP COLUMN Debtor_Since"},
    {39, "ALTER TABLE Clients DROP COLUMN InvoiceWithTelNo"},
    {38, "ALTER TABLE Bankings DROP COLUMN Cash_Unbanked"},
    {37, "ALTER TABLE infOptions DROP COLUMN Invoice_Notes"},
    {37, "ALTER TABLE Clients DROP COLUMN Private_Notes"},
    {36, "ALTER TABLE Diary_Services DROP COLUMN Frequency"},
    {36, "ALTER TABLE Payments DROP COLUMN Tax_Exempt"},
    {36, "ALTER TABLE Purchases DROP COLUMN Tax_Exempt"},
    {36, "ALTER TABLE infSystem DROP COLUMN Invoice_Number"},
    {36, "ALTER TABLE Clients DROP COLUMN WorkCoverLabel"},
    {36, "DROP TABLE Holiday"},
    {32, "DROP TABLE lstClientsToPrint"},
    {32, "ALTER TABLE Clients DROP COLUMN StatementWithPayments"},
    {32, "ALTER TABLE Clients DROP COLUMN InvoiceWithUnpaidPastJobs"},
    {32, "ALTER TABLE Clients DROP COLUMN InvoiceWithNextJob"},
    {32, "ALTER TABLE Clients DROP COLUMN InvoiceWithOutstanding"},
    {32, "ALTER TABLE lstInvoicesToPrint DROP COLUMN Next_Job_Date"},
    {32, "ALTER TABLE infPersonalDetails DROP COLUMN Country_ID"},
    {32, "ALTER TABLE infPersonalDetails DROP COLUMN Division_ID"},
    {32, "DROP TABLE Countries"},
    {32, "DROP TABLE Divisions"},
    {28, "ALTER TABLE Diary DROP COLUMN Payment_ID"},
    {26, "ALTER TABLE General_Ledger_Entries DROP COLUMN Purchase_ID"},
    {25, "ALTER TABLE General_Ledger_Entries DROP COLUMN Payment_ID"},
    {24, "ALTER TABLE Clients DROP COLUMN Requires_Statement"},
    {22, "ALTER TABLE Invoices DROP COLUMN Invoice_Number"},
    {21, "ALTER TABLE Invoices DROP COLUMN Done_For"},
    {14, "ALTER TABLE Clients DROP COLUMN Display_Name"},
    {14, "ALTER TABLE Clients ADD COLUMN Billing_Name TEXT(100)"},
    {13, "ALTER TABLE Clients DROP COLUMN Work_Cover_Number"},
};

struct Climb {
  const char* what;
  int from;
  int to;  // the current version by the way that the start takes; others rung by rung
  std::vector<const char*> setup;
  const char* check;
  const char* result;  // columns joined by |, rows by " / "
};

class LadderTest : public BusinessTest {
 protected:
  std::unique_ptr<Business> FileAt(int version) {
    const QString path = folder.filePath(QStringLiteral("CASE%1.MDB").arg(++files_));
    CreateEmptyBusiness(path);
    auto old = std::make_unique<Business>(outside.Ports(), path);
    old->ConnectToDatabase();
    Listen(*old);
    Transaction older(*old);
    for (const Undone& undone : kUndone)
      if (undone.version > version) old->RunSQL(Sql(undone.statement));
    old->RunSQL(Sql("UPDATE infSystem SET Database_Version = {}", version));
    older.Commit();
    EXPECT_EQ(refusals, QStringList()) << "the old file is not made";
    return old;
  }
  void Listen(Business& old) {
    refusals.clear();
    old.OnRefusedStatement(
        [this](const RefusedStatement& refused) { refusals += refused.statement.trimmed(); });
  }
  void ClimbTo(Business& old, int from, int to) {
    Upgrader::Options options;
    options.archiveFolder = folder.filePath("Archive" + QString::number(files_));
    options.advanceScheduleForClient = [this](qint64 client) { rebuilt += client; };
    if (to == kSchemaVersion) return Upgrader::Initialize(old, options);
    for (int rung = from + 1; rung <= to; ++rung) Upgrader::UpgradeToVersion(old, rung, options);
  }
  static QString Shown(const Recordset& rows) {
    if (!rows.IsOpen()) return "refused";
    QStringList lines;
    for (const Record row : rows) {
      QStringList fields;
      for (size_t i = 0; i < row.Size(); ++i) {
        const auto date = row[i].IsDate() ? row[i].ToDateTime() : std::nullopt;
        fields += date ? date->date.toString(Qt::ISODate) : row[i].ToText("null");
      }
      lines += fields.join(u'|');
    }
    return lines.join(" / ");
  }

  QStringList refusals;
  QList<qint64> rebuilt;

 private:
  int files_ = 0;
};

TEST_F(LadderTest, EachVersionArrivesWithItsBackFills) {
  const Climb cases[] = {
      {"names of bills become names",
       12,
       57,
       {"INSERT INTO Clients (Billing_Name, Surname) VALUES ('Ann''s house', 'Ant')"},
       "SELECT Display_Name, Surname, Work_Cover_Number, Requires_Statement FROM Clients",
       "Ann's house|Ant|null|False"},
      {"addressees and numbers of invoices",
       12,
       57,
       {"INSERT INTO Invoices (Made_Out_To) VALUES ('The long house')",
        "INSERT INTO Invoices (Made_Out_To) VALUES (null)"},
       "SELECT Invoice_ID, Made_Out_To, Invoice_Number, Done_For FROM Invoices",
       "1|The long house|1|null / 2|null|2|null"},
      {"an expense is tied to its purchase, and income of the same day and amount is not",
       26,
       27,
       {"INSERT INTO General_Ledger_Accounts (GL_Account_Type) VALUES ('Expense')",
        "INSERT INTO General_Ledger_Accounts (GL_Account_Type) VALUES ('Revenue')",
        "INSERT INTO Purchases (Purchase_Date, Amount) VALUES (#2026/10/8#, 22)",
        "INSERT INTO Payments (Payment_Date, Amount) VALUES (#2026/10/9#, 55)",
        "INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) "
        "SELECT GL_Account_ID, #2026/10/8#, 22 FROM General_Ledger_Accounts "
        "WHERE GL_Account_ID > (SELECT MAX(GL_Account_ID) - 2 FROM General_Ledger_Accounts) "
        "ORDER BY GL_Account_ID",
        "INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) "
        "SELECT GL_Account_ID, #2026/10/9#, 55 FROM General_Ledger_Accounts "
        "WHERE GL_Account_ID > (SELECT MAX(GL_Account_ID) - 2 FROM General_Ledger_Accounts) "
        "ORDER BY GL_Account_ID"},
       "SELECT GL_Account_Type, GL_Amount, Purchase_ID, Payment_ID FROM General_Ledger_Entries "
       "AS e INNER JOIN General_Ledger_Accounts AS a ON e.GL_Account_ID = a.GL_Account_ID "
       "ORDER BY GL_Entry_ID",
       "Expense|22|1|null / Revenue|22|null|null / Expense|55|null|null / Revenue|55|null|1"},
      {"entries that tie to nothing go",
       32,
       34,
       {"INSERT INTO Payments (Amount) VALUES (5)",
        "INSERT INTO General_Ledger_Entries (Payment_ID) VALUES (1)",
        "INSERT INTO General_Ledger_Entries (Payment_ID) VALUES (99)",
        "INSERT INTO General_Ledger_Entries (Purchase_ID) VALUES (99)",
        "INSERT INTO General_Ledger_Entries (GL_Amount) VALUES (7)"},
       "SELECT GL_Entry_ID FROM General_Ledger_Entries",
       "1 / 3"},
      {"totals of invoices from their items",
       28,
       29,
       {"INSERT INTO Invoices (Total_Amount) VALUES (1)",
        "INSERT INTO Invoices (Total_Amount) VALUES (2)",
        "INSERT INTO Invoice_Items (Invoice_ID, Item_Amount, Item_GST) VALUES (1, 10.1, .92)",
        "INSERT INTO Invoice_Items (Invoice_ID, Item_Amount, Item_GST) VALUES (1, 20.2, 1.84)"},
       "SELECT Invoice_ID, Total_Amount, Total_GST FROM Invoices",
       "1|30.3|2.76 / 2|2|null"},
      {"half a cent is no debt",
       29,
       30,
       {"INSERT INTO Clients (Account_Balance) VALUES (-.005)",
        "INSERT INTO Clients (Account_Balance) VALUES (-.01)",
        "INSERT INTO Clients (Account_Balance) VALUES (.0099)"},
       "SELECT Account_Balance FROM Clients",
       "0 / -0.01 / 0"},
      {"a business of 30 arrives",
       30,
       57,
       {"INSERT INTO Clients (Display_Name, First_Name, Surname) VALUES (null, 'Ann', 'Ant')",
        "INSERT INTO Clients (Display_Name) VALUES ('Bees Ltd')"},
       "SELECT Database_Version, Display_Name, First_Name, InvoiceWithOutstanding, "
       "InvoiceWithUnpaidPastJobs, Tax_Name, Division_Name FROM Clients, infSystem, Countries, "
       "Divisions WHERE Country_ID = 1 AND Division_ID = 1 ORDER BY Client_ID",
       "57|Ant, Ann|Ann|True|False|GST|Gardens / "
       "57|Bees Ltd|Bees Ltd|True|False|GST|Gardens"},
      {"methods of payments and purchases that the list lacks",
       35,
       36,
       {"DELETE FROM lstPayment_Methods",
        "INSERT INTO lstPayment_Methods (Payment_Method, Sequence) VALUES ('CASH', 4)",
        "INSERT INTO Payments (Payment_Method) VALUES ('Cash')",
        "INSERT INTO Payments (Payment_Method) VALUES ('Barter')",
        "INSERT INTO Payments (Payment_Method) VALUES ('barter')",
        "INSERT INTO Purchases (Payment_Method) VALUES ('Visa')",
        "INSERT INTO Purchases (Payment_Method) VALUES ('BARTER')"},
       "SELECT UCase(Payment_Method), Sequence FROM lstPayment_Methods ORDER BY Sequence",
       "CASH|4 / BARTER|5 / VISA|6"},
      {"the counter goes on from the highest number, not the highest text",
       35,
       36,
       {"INSERT INTO Invoices (Invoice_Number) VALUES ('9')",
        "INSERT INTO Invoices (Invoice_Number) VALUES ('120')",
        "INSERT INTO Invoices (Invoice_Number) VALUES (null)"},
       "SELECT Invoice_Number FROM infSystem",
       "120"},
      {"lines of jobs take the rhythm of their service",
       35,
       36,
       {"INSERT INTO Client_Services (Client_ID, Service_ID, Frequency) VALUES (1, 3, 14)",
        "INSERT INTO Diary (Client_ID) VALUES (1)", "INSERT INTO Diary (Client_ID) VALUES (2)",
        "INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES (1, 3)",
        "INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES (1, 4)",
        "INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES (2, 3)"},
       "SELECT Frequency FROM Diary_Services",
       "14 / null / null"},
      {"who owes is a debtor since today",
       39,
       40,
       {"INSERT INTO Clients (Account_Balance) VALUES (-.01)",
        "INSERT INTO Clients (Account_Balance) VALUES (0)",
        "INSERT INTO Clients (Account_Balance) VALUES (5)",
        "INSERT INTO Clients (Account_Balance) VALUES (null)"},
       "SELECT Client_ID, Debtor_Since FROM Clients",
       "1|2026-11-02 / 2|null / 3|null / 4|null"},
      {"suburbs in capitals, numbered by name",
       40,
       41,
       {"INSERT INTO Clients (Suburb) VALUES (' Kew')",
        "INSERT INTO Clients (Suburb) VALUES ('balwyn')",
        "INSERT INTO Clients (Suburb) VALUES ('KEW')", "INSERT INTO Clients (Suburb) VALUES ('')"},
       "SELECT Suburb_Name, Position FROM Suburb_Position",
       "BALWYN|1 / KEW|2"},
      {"a business of 41 arrives, with a quote for each client who has none but quotes",
       41,
       57,
       {"INSERT INTO Services (Service_Code) VALUES ('W')",
        "INSERT INTO Services (Service_Code) VALUES ('G')",
        "INSERT INTO Clients (Status) VALUES ('Quote only')",
        "INSERT INTO Clients (Status) VALUES ('Active')",
        "INSERT INTO Clients (Status) VALUES ('quote only')",
        "INSERT INTO Client_Services (Client_ID, Service_ID, Next_Visit) "
        "SELECT 1, Service_ID, #2026/11/5# FROM Services WHERE Service_Code = 'G'",
        "INSERT INTO Client_Services (Client_ID, Service_ID, Next_Visit) "
        "SELECT 1, Service_ID, #2026/11/6# FROM Services WHERE Service_Code = 'W'",
        "INSERT INTO Client_Services (Client_ID, Service_ID) "
        "SELECT 2, Service_ID FROM Services WHERE Service_Code = 'W'",
        "INSERT INTO Client_Services (Client_ID, Service_ID) "
        "SELECT 3, Service_ID FROM Services WHERE Service_Code = 'W'"},
       "SELECT Client_ID, Quote_Date, '<' & Description & '>', (SELECT Count(*) FROM "
       "Quote_Services AS s WHERE s.Quote_ID = q.Quote_ID) FROM Quotes AS q",
       "1|2026-11-06|<W; G; >|2 / 3|null|<W; >|1"},
      {"methods in capitals",
       42,
       43,
       {"INSERT INTO Payments (Payment_Method) VALUES ('Cheque')"},
       "SELECT '<' & Payment_Method & '>' FROM Payments WHERE UCase(Payment_Method) = 'CHEQUE'",
       "<CHEQUE>"},
      {"taxes and terms",
       44,
       57,
       {},
       "SELECT Country_Name, Tax_Name, TermsOfTrade, EnableOstrel4WebServices "
       "FROM Countries, infOptions WHERE Country_Name IN ('UK', 'U.S.', 'Canada')",
       "UK|VAT|Please forward payment of [AMOUNT] within 7 days to:|True / "
       "Canada|GST|Please forward payment of [AMOUNT] within 7 days to:|True / "
       "U.S.|null|Please forward payment of [AMOUNT] within 7 days to:|True"},
      {"a version without statements", 45, 46, {}, "SELECT Database_Version FROM infSystem", "46"},
  };
  for (const Climb& each : cases) {
    SCOPED_TRACE(each.what);
    const auto old = FileAt(each.from);
    for (const char* statement : each.setup) old->RunSQL(Sql(statement));
    ASSERT_EQ(refusals, QStringList());
    ClimbTo(*old, each.from, each.to);
    EXPECT_EQ(old->LookupField("infSystem.Database_Version"), Value(each.to));
    EXPECT_EQ(Shown(old->RunSQL(Sql(each.check))).toStdString(), each.result);
    outside.prompter.TakeTold();
  }
}

struct Visit {
  const char* what;
  const char* next;  // as a literal; today is 2 November 2026
  const char* frequency;
  const char* job;  // an entry of the client in the diary
  const char* stored;
  bool isRebuilt;
};

TEST_F(LadderTest, NextVisitsComeToTheFirstDateOfTheirRhythm) {
  const Visit cases[] = {
      {"stepped back", "#2026/11/20#", "7", "null", "2026-11-06", true},
      {"stepped back to today", "#2026/11/16#", "7", "null", "2026-11-02", false},
      {"too near to step back", "#2026/11/6#", "7", "null", "2026-11-06", true},
      {"a job stands between", "#2026/11/20#", "7", "#2026/11/6#", "2026-11-06", false},
      {"a job stands after it", "#2026/11/20#", "7", "#2026/11/7#", "2026-11-06", true},
      {"stepped forward", "#2026/10/25#", "7", "null", "2026-11-08", false},
      {"stepped forward to today", "#2026/10/5#", "14", "null", "2026-11-02", false},
      {"today", "#2026/11/2#", "7", "null", "2026-11-02", false},
      {"no rhythm", "#2026/10/25#", "0", "null", "2026-10-25", false},
      {"no frequency", "#2026/10/25#", "null", "null", "2026-10-25", false},
      {"no visit", "null", "7", "null", "null", false},
  };
  const auto old = FileAt(30);
  int client = 0;
  for (const Visit& each : cases) {
    ++client;
    const auto run = [&](const QString& statement) { old->RunSQL(statement); };
    run("INSERT INTO Clients (Status) VALUES ('Active')");
    run(QString("INSERT INTO Client_Services (Client_ID, Status, Next_Visit, Frequency) "
                "VALUES (%1, 'Regular', %2, %3)")
            .arg(client)
            .arg(each.next, each.frequency));
    run(QString("INSERT INTO Diary (Client_ID, Status, Schedule_Date) VALUES (%1, 'J', %2)")
            .arg(client)
            .arg(each.job));
  }
  ClimbTo(*old, 30, 31);
  EXPECT_EQ(refusals, QStringList());
  client = 0;
  for (const Visit& each : cases) {
    ++client;
    const Sql visit("SELECT Next_Visit FROM Client_Services WHERE Client_ID = {}", client);
    EXPECT_EQ(Shown(old->RunSQL(visit)).toStdString(), each.stored) << each.what;
    EXPECT_EQ(rebuilt.count(client), each.isRebuilt ? 1 : 0) << each.what;
  }
}

}  // namespace
}  // namespace quillary::session
