#include "setup/import/ClientImport.h"
#include "setup/sheets/ClientSheet.h"
#include "setup/sheets/Delimited.h"
#include "setup/sheets/ScheduleSheet.h"
#include "support/BusinessTest.h"

namespace quillary {
namespace {

TEST(DelimitedTest, CellsAreThoseOfTheSpreadsheet) {
  using Rows = std::vector<QStringList>;
  const struct {
    const char* text;
    Rows rows;
  } cases[] = {
      {"a,b\nc,d\n", {{"a", "b"}, {"c", "d"}}},
      {"a;b\r\n c ;\r\n", {{"a", "b"}, {"c", ""}}},
      {"a\tb,c\td", {{"a", "b,c", "d"}}},
      {"\"a, b\",c", {{"a, b", "c"}}},
      {"\"say \"\"no\"\"\",c", {{"say \"no\"", "c"}}},
      {"\"\",c", {{"", "c"}}},
      {"\"two\nlines\",c", {{"two\nlines", "c"}}},
      {"\n\na,\n\n,\n", {{"a", ""}}},
      {"5\" pipe,c", {{"5\" pipe", "c"}}},
  };
  for (const auto& each : cases) {
    const QString text = each.text;
    EXPECT_EQ(setup::ParseDelimited(text, setup::SeparatorOf(text)), each.rows) << each.text;
  }
}

TEST(DelimitedTest, ExportsOfOlderSpreadsheetsKeepTheirLetters) {
  EXPECT_EQ(setup::TextOfExport("\xEF\xBB\xBFZo\xC3\xAB"), QStringLiteral("Zo\u00EB"));
  EXPECT_EQ(setup::TextOfExport("Zo\xC3\xAB"), QStringLiteral("Zo\u00EB"));
  EXPECT_EQ(setup::TextOfExport("Zo\xEB"), QStringLiteral("Zo\u00EB"));
}

class SheetsTest : public BusinessTest {
 protected:
  qint64 AddClient(const Columns& columns) {
    return Build().Add<quillary::Client>(columns).Number();
  }
  QString Client(const char* column, const char* name) {
    return Run(Sql((QByteArray("SELECT ") + column + " FROM Clients WHERE Display_Name = {}")
                       .constData(),
                   name))
        .Field(size_t{0})
        .ToText();
  }
  QStringList Messages(const setup::SheetOutcome& outcome) {
    QStringList messages;
    for (const auto& trouble : outcome.troubles)
      messages += QStringLiteral("%1 %2").arg(trouble.row).arg(trouble.message);
    return messages;
  }
};

TEST_F(SheetsTest, APastedBlockChangesTheRowsUnderTheCursorAndAddsTheRest) {
  const qint64 ann =
      AddClient({{"Display_Name", "Ann"}, {"Status", "Active"}, {"Statement_Type", "With Job"}});
  const setup::SheetOutcome outcome =
      setup::WriteClients(business(), {.keys = {ann},
                                       .firstColumn = 1,
                                       .rows = {{"Ann", "Abbott"},
                                                {"Ben", "Bold", "", "7", "Elm St", " rye "},
                                                {"Cy", "Cole", "Asleep"},
                                                {"", ""}}});
  EXPECT_EQ(outcome.changed, 1);
  EXPECT_EQ(outcome.added, 1);
  EXPECT_EQ(Client("Surname", "Ann"), "Abbott") << "the billing name stays as it was";
  EXPECT_EQ(Client("Status", "Ben Bold"), "Active");
  EXPECT_EQ(Client("Statement_Type", "Ben Bold"), "With Job");
  EXPECT_EQ(Client("Suburb", "Ben Bold"), "RYE");
  EXPECT_EQ(Messages(outcome), (QStringList{"2 Please select a client status.",
                                            "3 Please enter the Billing name/Display name."}));
  EXPECT_EQ(Count("Clients"), 2) << "a refused row leaves nothing behind";
}

TEST_F(SheetsTest, ASettledRowOfAClientIsARegularServiceInTheDiary) {
  const auto account = Build().Add<Account>({{"GL_Account_Name", "Income"}});
  const auto mowing = Build().Add<Service>(
      {{"Service", "Mowing"}, {"Service_Code", "M"}, {"Default_GL_Account_ID", account}});
  Build().Add<Employee>({{"Employee_Name", "Robin"}});
  const qint64 ann =
      AddClient({{"Display_Name", "Ann"}, {"Status", "Active"}, {"Statement_Type", "With Job"}});
  Build().Add<quillary::Client>({{"Display_Name", "Gone"}, {"Status", "Cancelled"}});
  business().values.defaultService = mowing;
  business().values.daysToAdvanceSchedule = 60;
  auto rows = setup::LoadScheduleSheet(business());
  ASSERT_EQ(rows.size(), 1U) << "only whom we work for";
  EXPECT_EQ(rows[0].key, -ann);

  const auto write = [&](int column, const QStringList& cells) {
    return setup::WriteSchedules(business(), {.keys = {setup::LoadScheduleSheet(business())[0].key},
                                              .firstColumn = column,
                                              .rows = {cells}});
  };
  EXPECT_EQ(write(4, {"14", "", "55"}).added, 1);
  rows = setup::LoadScheduleSheet(business());
  EXPECT_EQ(rows[0].cells,
            (QStringList{"Ann", "Mowing", "Regular", "2 Nov 2026", "14", "Robin", "$55.00", ""}));
  EXPECT_EQ(Count("Diary"), 5) << "2, 16, 30 Nov, 14, 28 Dec: up to sixty days from now";
  const struct {
    int column;
    const char* typed;
    const char* refused;
  } cases[] = {{1, "Ploughing", "0 There is no service \"Ploughing\"."},
               {2, "Sometimes", "0 Please select the job type."},
               {3, "31/2", "0 Please enter a valid date."},
               {4, "400", "0 Please enter a value between 1 - 365."},
               {5, "Nobody", "0 There is no employee \"Nobody\"."},
               {6, "much", "0 Please enter a valid price."}};
  for (const auto& each : cases)
    EXPECT_EQ(Messages(write(each.column, {each.typed})), QStringList{each.refused});
  EXPECT_EQ(setup::LoadScheduleSheet(business())[0].cells, rows[0].cells) << "nothing was taken";
}

TEST_F(SheetsTest, AListIsMappedByItsHeadersAndReadOnce) {
  setup::ClientList list;
  ASSERT_FALSE(setup::ReadClientList(
      "Customer Name,E-mail,Mobile,Shoe size,Zip\nAnn Abbott,ann@example.com,0400 1,7,3130\n"
      ",nobody@example.com,,,\nBen,b@example.com,,,3131,too many\n",
      list));
  QStringList columns;
  for (const auto& mapped : list.columns) columns += mapped.column;
  EXPECT_EQ(columns, (QStringList{"Display_Name", "Email", "Phone_2", "", "Post_Code"}));
  EXPECT_TRUE(setup::MapColumn(list, "Hat", "Notes"));
  EXPECT_TRUE(setup::MapColumn(list, "Shoe size", "Account_Balance")) << "not to be set";
  EXPECT_FALSE(setup::MapColumn(list, "shoe SIZE", "notes"));

  setup::SheetOutcome preview;
  ASSERT_FALSE(setup::PreviewClients(business(), list, preview));
  EXPECT_EQ(preview.added, 1);
  EXPECT_EQ(Count("Clients"), 0) << "a preview writes nothing";
  setup::SheetOutcome outcome;
  ASSERT_FALSE(setup::ImportClients(business(), list, outcome));
  EXPECT_EQ(Messages(outcome), Messages(preview));
  EXPECT_EQ(Messages(outcome), (QStringList{"1 Please enter the Billing name/Display name.",
                                            "2 It has more cells than there are headers."}));
  EXPECT_EQ(Client("Notes", "Ann Abbott"), "7");
  setup::SheetOutcome again;
  ASSERT_FALSE(setup::ImportClients(business(), list, again));
  EXPECT_EQ(again.added, 0) << "who is there already comes once";
  EXPECT_EQ(Count("Clients"), 1);
  EXPECT_FALSE(setup::MapColumn(list, "Customer Name", "-"));
  setup::SheetOutcome nameless;
  EXPECT_TRUE(setup::ImportClients(business(), list, nameless));
}

}  // namespace
}  // namespace quillary
