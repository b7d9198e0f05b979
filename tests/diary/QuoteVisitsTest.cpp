#include "diary/QuoteVisits.h"
#include "support/BusinessTest.h"

namespace quillary::diary {
namespace {

class QuoteVisitsTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.gstPercentage = 0.1F;
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Lawn', 'LM')"));
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Hedge', 'HT')"));
    business().values.defaultService = Id<Service>(1);
    entry = Build().Add<Entry>({{"Client_ID", 1},
                                {"Employee_ID", 1},
                                {"Status", "Q"},
                                {"Schedule_Date", QDate(2026, 11, 5)}});
  }
  QString Row() {
    const Recordset row =
        Run(Sql("SELECT Client_ID, Employee_ID, Schedule_Date, Status, Notes, Description, "
                "Total_Price, Total_GST FROM Diary"));
    QStringList fields;
    for (size_t at = 0; at < row.Columns().size(); ++at) fields += row.Field(at).ToText("-");
    return fields.join('|');
  }

  Id<Entry> entry{0};
};

TEST_F(QuoteVisitsTest, ARatingIsStored) {
  QuoteVisit visit = *LoadQuoteVisit(business(), entry);
  EXPECT_EQ(visit.status, EntryStatus::QuoteOpen);
  for (const EntryStatus status : kQuoteStatuses) {
    visit.status = status;
    visit.notes = "by phone";
    ASSERT_FALSE(SaveQuoteVisit(business(), visit));
    EXPECT_EQ(Row().section('|', 3, 4), TextOf(status) + "|by phone");
  }
  struct Case {
    void (*spoil)(QuoteVisit&);
    const char* message;
  };
  for (const Case& c :
       {Case{[](QuoteVisit& v) { v.employee.reset(); }, "Please select the employee."},
        Case{[](QuoteVisit& v) { v.client.reset(); }, "Please select a quote client."}}) {
    c.spoil(visit);
    const auto refusal = SaveQuoteVisit(business(), visit);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->message, c.message);
  }
  EXPECT_FALSE(LoadQuoteVisit(business(), Id<Entry>(99)));
}

TEST_F(QuoteVisitsTest, LinesMakeDescriptionPriceAndTax) {
  const auto lines = [&] {
    QStringList ids;
    for (const Record row : Run(Sql("SELECT Service_ID & ':' & Price & ':' & GST FROM "
                                    "Diary_Services ORDER BY Diary_Service_ID")))
      ids += row[size_t{0}].ToText();
    return ids.join(' ');
  };
  AddExtraWork(business(), entry);
  EXPECT_EQ(lines(), "1:0:0");
  EXPECT_EQ(Row().section('|', 5), "LM|0|0");
  ASSERT_FALSE(
      SaveQuoteLine(business(), entry, {std::nullopt, Id<Service>(2), Money::FromWhole(55)}));
  ASSERT_FALSE(
      SaveQuoteLine(business(), entry, {Id<EntryLine>(1), Id<Service>(1), Money::FromWhole(11)}));
  EXPECT_EQ(lines(), "1:11:1 2:55:5");
  EXPECT_EQ(Row().section('|', 5), "HT, LM|66|6") << "by name of the service";
  EXPECT_TRUE(SaveQuoteLine(business(), entry, {std::nullopt, std::nullopt, Money::FromWhole(5)}));
  EXPECT_TRUE(RemoveQuoteLine(business(), entry, std::nullopt));
  ASSERT_FALSE(RemoveQuoteLine(business(), entry, Id<EntryLine>(2)));
  EXPECT_EQ(Row().section('|', 5), "LM|11|1");
}

TEST_F(QuoteVisitsTest, DeletingAsksAndTakesTheLinesToo) {
  AddExtraWork(business(), entry);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("Are you sure you want to delete this job?", answer);
    EXPECT_EQ(DeleteQuoteVisit(business(), outside.prompter, entry), answer == Answer::Yes);
    EXPECT_EQ(Count("Diary") + Count("Diary_Services"), answer == Answer::Yes ? 0 : 2);
  }
}

}  // namespace
}  // namespace quillary::diary
