#include "accounts/TaxRepair.h"
#include "support/BusinessTest.h"

namespace quillary::accounts {
namespace {

/// One record of 110 in each table that carries tax, each with a wrong tax of 1; payments and
/// purchases twice, the second one exempt, with a ledger entry each.
class TaxRepairTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    for (const int exempt : {0, 1}) {
      Run(
          Sql("INSERT INTO Payments (Amount, GST_Included, Tax_Exempt, Payment_Date) "
              "VALUES (110, 1, {}, #2019/3/5#)",
              exempt));
      Run(Sql("INSERT INTO Purchases (Amount, GST_Included, Tax_Exempt) VALUES (110, 1, {})",
              exempt));
    }
    for (const char* owner : {"Payment_ID", "Purchase_ID"})
      for (const int key : {1, 2})
        business().RunSQL(QStringLiteral("INSERT INTO General_Ledger_Entries "
                                         "(%1, GL_Amount, GST_Included) VALUES (%2, 110, 1)")
                              .arg(QString(owner))
                              .arg(key));
    Run(Sql("INSERT INTO Diary (Total_Price, Total_GST) VALUES (110, 1)"));
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Price, GST) VALUES (1, 110, 1)"));
    Run(Sql("INSERT INTO Invoices (Total_Amount, Total_GST) VALUES (110, 1)"));
    Run(Sql("INSERT INTO Invoice_Items (Invoice_ID, Item_Amount, Item_GST) VALUES (1, 110, 1)"));
  }

  QString Taxes() {
    QStringList taxes;
    for (const char* statement :
         {"SELECT GST_Included FROM Payments ORDER BY Payment_ID",
          "SELECT GST_Included FROM Purchases ORDER BY Purchase_ID", "SELECT Total_GST FROM Diary",
          "SELECT GST FROM Diary_Services",
          "SELECT GST_Included FROM General_Ledger_Entries ORDER BY GL_Entry_ID",
          "SELECT Total_GST FROM Invoices", "SELECT Item_GST FROM Invoice_Items"}) {
      QStringList column;
      for (const Record row : Run(Sql(statement))) column += row[size_t{0}].ToText();
      taxes += column.join(' ');
    }
    return taxes.join('|');
  }
};

TEST_F(TaxRepairTest, RewritesEveryTableAtTodaysRate) {
  const std::pair<float, const char*> cases[] = {
      {0.1F, "10 0|10 0|10|10|10 0 10 0|10|10"},
      {0.125F, "12.2222 0|12.2222 0|12.2222|12.2222|12.2222 0 12.2222 0|12.2222|12.2222"},
      {0, "0 0|0 0|0|0|0 0 0 0|0|0"},
  };
  for (const auto& [rate, taxes] : cases) {
    business().values.gstPercentage = rate;
    RecalculateGSTOfAllRecords(business());
    EXPECT_EQ(Taxes(), taxes) << rate;
  }
}

TEST_F(TaxRepairTest, ALargeAmountShowsNoNoiseOfTheRate) {
  business().values.gstPercentage = 0.1F;
  Run(Sql("UPDATE Invoices SET Total_Amount = 11000000"));
  RecalculateGSTOfAllRecords(business());
  EXPECT_EQ(business().LookupField("Invoices.Total_GST").ToMoney(), Money::FromWhole(1'000'000));
}

TEST_F(TaxRepairTest, LedgerEntriesOfExemptRecordsLoseTheirTaxAlone) {
  ZeroTaxOfExemptLedgerEntries(business());
  EXPECT_EQ(Taxes(), "1 1|1 1|1|1|1 0 1 0|1|1");
}

TEST_F(TaxRepairTest, AsksByTheFormulaFirst) {
  business().values.gstPercentage = 0.1F;
  business().values.taxName = "VAT";
  const QString before = Taxes();
  outside.prompter.Expect(
      "Are you sure you want to re-calculate and update the VAT based on the "
      "formula : \n\nVAT = [Value With VAT Included] * (Percentage / (1 + "
      "Percentage))",
      Answer::No);
  EXPECT_FALSE(RecalculateGSTAfterAsking(business(), outside.prompter));
  EXPECT_EQ(Taxes(), before);
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());

  outside.headOffice.sessionKey = "key";
  business().values.enableOstrel4WebServices = true;
  outside.prompter.Expect("re-calculate and update the VAT", Answer::Yes);
  EXPECT_TRUE(RecalculateGSTAfterAsking(business(), outside.prompter));
  EXPECT_NE(Taxes(), before);
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList("Re-calculation done."));
  EXPECT_EQ(outside.headOffice.activities, QStringList("Recalculate GST Component"));
  EXPECT_EQ(outside.busy.depth, 0);
}

}  // namespace
}  // namespace quillary::accounts
