#include "balances/ClientBalance.h"
#include "data/access/ConvertAccessFile.h"
#include "data/schema/Upgrader.h"
#include "diary/DiaryDay.h"
#include "session/StartUp.h"
#include "support/BusinessTest.h"

#include <QDir>
#include <QFile>

namespace quillary::session {
namespace {

constexpr char kAlwaysRefused[] =
    "ALTER TABLE Countries ADD COLUMN Tax_Name TEXT (50);\n"
    "ALTER TABLE infPersonalDetails UPDATE COLUMN BSB_Account_Number TEXT(30)";

class QuietScreens : public StartUpScreens {
 public:
  std::function<std::unique_ptr<Business>()> select;
  int repaints = 0;
  std::unique_ptr<Business> SelectDatabaseToAccess() override { return select(); }
  void ShowProgress() override {}
  void Advance() override {}
  void ShowFirstTime(Business&) override {}
  void ShowMainMenu(Business&) override {}
  void CheckClientSchedules(Business&) override {}
  void OpenMonthlyInvoices(Business&) override {}
  void RenameMenuCaptions(const QString&) override {}
  void Repaint() override { ++repaints; }
  void FillProgress() override {}
  void CloseProgress() override {}
  void StepReached(const QString&) override {}
};

class OldFilesTest : public BusinessTest {
 protected:
  /// The file of that version, converted, started and so brought up to the current version.
  std::unique_ptr<Business> Start(int version) {
    const QString file = folder.filePath(QStringLiteral("V%1.MDB").arg(version));
    ConvertAccessFile(
        QStringLiteral("%1/access-v%2.mdb").arg(QString(QUILLARY_TEST_DATA)).arg(version), file);
    QuietScreens screens;
    screens.select = [&] {
      auto business = OpenDatabase(ports, file, folder.path());
      business->OnRefusedStatement(
          [this](const RefusedStatement& refused) { refusals += refused.statement.trimmed(); });
      return business;
    };
    auto started = StartUp(ports, settings, {}, screens);
    repaints = screens.repaints;
    const QStringList told = outside.prompter.TakeTold();
    EXPECT_TRUE(told.value(0).contains("This business was kept at version"))
        << told.join('\n').toStdString();
    return started;
  }
  Value First(Business& old, const char* statement) { return old.FirstField(Sql(statement)); }

  Outside ports = outside.Ports();
  LocalSettings settings{folder.path(), outside.prompter};
  QStringList refusals;
  int repaints = 0;
};

struct OldFile {
  int version;
  Money payments;  // of the file as it was delivered
  Money jobs;      // those that are done
};

TEST_F(OldFilesTest, TheirDaysAreListedAndTheirBalancesAddUp) {
  const OldFile files[] = {
      {12, Money::FromUnits(674600500), Money::FromUnits(867490000)},
      {44, Money::FromUnits(2095865000), Money::FromUnits(2639954000)},
  };
  for (const OldFile& file : files) {
    SCOPED_TRACE(file.version);
    const auto old = Start(file.version);
    ASSERT_TRUE(old);
    const diary::DiaryList list =
        diary::LoadDiary(*old, {.days = DateRange::Of(QDate(2026, 12, 1))});
    EXPECT_EQ(static_cast<int>(list.rows.size()),
              First(*old, "SELECT COUNT(*) FROM Diary WHERE Schedule_Date = #2026/12/1#").ToLong());
    EXPECT_GT(list.totalNoOfJobs, 0);
    Money total;
    for (const diary::DiaryRow& row : list.rows) {
      total += row.totalPrice;
      EXPECT_FALSE(row.displayName.isEmpty());
    }
    EXPECT_EQ(list.totalAmountOfJobs, total);

    EXPECT_EQ(First(*old,
                    "SELECT COUNT(*) FROM Diary LEFT JOIN Diary_Services "
                    "ON Diary.Diary_ID = Diary_Services.Diary_ID "
                    "WHERE Diary_Services.Diary_ID IS NULL"),
              Value(0));

    balances::RecalculateAmountOwingOfAllClients(*old);
    EXPECT_EQ(First(*old, "SELECT SUM(Account_Balance) FROM Clients WHERE Is_Billed_To = True")
                  .ToMoney()
                  .ToCurrencyText(),
              (file.payments - file.jobs).ToCurrencyText());
  }
}

TEST_F(OldFilesTest, AFileOfVersion44Arrives) {
  const auto old = Start(44);
  ASSERT_TRUE(old);
  EXPECT_EQ(First(*old, "SELECT Database_Version FROM infSystem"), Value(57));
  EXPECT_EQ(First(*old, "SELECT COUNT(*) FROM Countries WHERE Tax_Name = 'GST'"), Value(3));
  EXPECT_EQ(First(*old, "SELECT COUNT(*) FROM Countries WHERE Tax_Name = 'VAT'"), Value(1));
  EXPECT_EQ(First(*old, "SELECT TermsOfTrade FROM infOptions"),
            Value("Please forward payment of [AMOUNT] within 7 days to:"));
  EXPECT_EQ(First(*old, "SELECT EnableOstrel4WebServices FROM infOptions"), Value(true));
  // The second naming of the taxes meets its column, and one statement is none of the dialect.
  EXPECT_EQ(refusals.join('\n').toStdString(), kAlwaysRefused);
  // What was there is still there, and the roll filled the diary up to its horizon.
  EXPECT_EQ(First(*old, "SELECT SUM(Amount) FROM Payments"), Value(Money::FromUnits(2095865000)));
  EXPECT_GT(First(*old,
                  "SELECT COUNT(*) FROM Diary WHERE Schedule_Date > #2026/11/30# "
                  "AND Status = 'J'")
                .ToLong(),
            50);
  const QStringList kept =
      QDir(folder.filePath("Archive")).entryList({"V44 version 44 *.MDB"}, QDir::Files);
  ASSERT_EQ(kept.size(), 1);
  Business copy(ports, folder.filePath("Archive/" + kept.first()));
  EXPECT_EQ(First(copy, "SELECT Database_Version FROM infSystem"), Value(44));
}

TEST_F(OldFilesTest, AFileOfVersion12ClimbsTheWholeLadder) {
  const auto old = Start(12);
  ASSERT_TRUE(old);
  // The lists that are made anew were not there to be dropped, and a column came early.
  EXPECT_EQ(refusals.join('\n').toStdString(),
            std::string("DROP TABLE Divisions\nDROP TABLE Countries\n"
                        "ALTER TABLE Diary_Services ADD COLUMN Frequency INT\n") +
                kAlwaysRefused);
  EXPECT_GT(repaints, 90) << "a sign of life after each statement";
  EXPECT_EQ(First(*old, "SELECT Database_Version FROM infSystem"), Value(57));
  EXPECT_EQ(First(*old, "SELECT COUNT(*) FROM Clients WHERE Display_Name IS NULL"), Value(0));
  EXPECT_FALSE(old->RunSQL(Sql("SELECT * FROM Clients")).FieldExists(u"Billing_Name"));
  EXPECT_EQ(First(*old, "SELECT SUM(Total_Amount) FROM Invoices"),
            First(*old, "SELECT SUM(Item_Amount) FROM Invoice_Items"));
  EXPECT_EQ(First(*old, "SELECT COUNT(*) FROM Invoices WHERE Invoice_Number IS NULL"), Value(0));
  EXPECT_EQ(First(*old, "SELECT Invoice_Number FROM infSystem"),
            First(*old, "SELECT MAX(Invoice_ID) FROM Invoices"));
  EXPECT_EQ(First(*old,
                  "SELECT COUNT(*) FROM General_Ledger_Entries "
                  "WHERE Payment_ID IS NULL AND Purchase_ID IS NULL"),
            Value(0));
  EXPECT_EQ(First(*old, "SELECT COUNT(*) FROM Quotes"),
            First(*old, "SELECT COUNT(*) FROM Clients WHERE Status = 'Quote only'"));
  EXPECT_EQ(First(*old,
                  "SELECT COUNT(*) FROM Clients "
                  "WHERE Account_Balance < 0 AND Debtor_Since IS NULL"),
            Value(0));
  EXPECT_EQ(
      First(*old, "SELECT COUNT(*) FROM Suburb_Position"),
      Value(static_cast<int>(
          old->RunSQL(Sql("SELECT DISTINCT Suburb FROM Clients WHERE Suburb <> ''")).RowCount())));
  EXPECT_GT(First(*old,
                  "SELECT COUNT(*) FROM Diary WHERE Schedule_Date > #2026/11/30# "
                  "AND Status = 'J'")
                .ToLong(),
            20);
}

TEST_F(OldFilesTest, AStoppedRungLeavesTheOneBelowIt) {
  // A number with letters stops the rung that reads the highest one.
  Run(Sql("UPDATE infSystem SET Database_Version = 35"));
  Run(Sql("INSERT INTO Invoices (Invoice_Number) VALUES ('A17')"));
  for (const char* part : {"CREATE TABLE", "ALTER TABLE", "CREATE INDEX", "CLng"}) {
    ExpectRefused(part);
  }
  Upgrader::Options options;
  options.archiveFolder = folder.filePath("Archive");
  EXPECT_THROW(Upgrader::Initialize(business(), options), NoRecordset);
  EXPECT_EQ(business().LookupField("infSystem.Database_Version"), Value(35));
  EXPECT_EQ(Count("Holiday"), 2);  // the rung's earlier steps are undone with it

  Run(Sql("UPDATE Invoices SET Invoice_Number = '17'"));
  outside.clock.now.time = QTime(9, 1);
  Upgrader::Initialize(business(), options);
  EXPECT_EQ(business().LookupField("infSystem.Database_Version"), Value(57));
  EXPECT_EQ(business().LookupField("infSystem.Invoice_Number"), Value(17));
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
}

TEST_F(OldFilesTest, AFileAboveTheCurrentVersionIsLeftAlone) {
  Run(Sql("UPDATE infSystem SET Database_Version = 58"));
  Upgrader::Initialize(business(), {});
  EXPECT_EQ(business().LookupField("infSystem.Database_Version"), Value(58));
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
}

}  // namespace
}  // namespace quillary::session
