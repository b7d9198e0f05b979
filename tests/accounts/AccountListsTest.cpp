#include "accounts/LedgerAccounts.h"
#include "lists/Countries.h"
#include "support/BusinessTest.h"

namespace quillary::accounts {
namespace {

using AccountListsTest = BusinessTest;
constexpr auto kRevenue = LedgerAccountType::Revenue;
constexpr auto kExpense = LedgerAccountType::Expense;

TEST_F(AccountListsTest, ANumberIsUniqueWithinItsType) {
  ASSERT_FALSE(InsertLedgerAccount(business(), kRevenue, {"Lawns", "4-1000"}));
  ASSERT_FALSE(InsertLedgerAccount(business(), kRevenue, {"Hedges", "4-2000"}));
  const Id<Account> hedges = ListLedgerAccounts(business(), kRevenue)[0].account;
  struct Case {
    const char* what;
    LedgerAccountType type;
    std::optional<Id<Account>> edited;
    LedgerAccountForm form;
    const char* message;  // "" when it is taken
    const char* field;
  };
  const char* taken = "GL Account number already exists, please enter new value.";
  const Case cases[] = {
      {"no name",
       kRevenue,
       {},
       {" ", "1"},
       "Please enter the name of the Revenue Account.",
       "name"},
      {"no name on the other tab",
       kExpense,
       {},
       {"", ""},
       "Please enter the name of the Expense Account.",
       "name"},
      {"a number in use", kRevenue, {}, {"Mulch", " 4-1000 "}, taken, "number"},
      {"a number of another row", kRevenue, hedges, {"Hedges", "4-1000"}, taken, "number"},
      {"its own number", kRevenue, hedges, {"Hedging", "4-2000"}, "", ""},
      {"the number of the other type", kExpense, {}, {"Fuel", "4-1000"}, "", ""},
      {"no number", kRevenue, {}, {"Tips", ""}, "", ""},
      {"no number again", kRevenue, {}, {"Gifts", "  "}, "", ""},
  };
  for (const Case& c : cases) {
    const auto refusal = c.edited ? UpdateLedgerAccount(business(), c.type, c.edited, c.form)
                                  : InsertLedgerAccount(business(), c.type, c.form);
    EXPECT_EQ(refusal ? refusal->message : QString(), c.message) << c.what;
    EXPECT_EQ(refusal ? refusal->field : QString(), c.field) << c.what;
  }
  QStringList names;
  for (const LedgerAccount& account : ListLedgerAccounts(business(), kRevenue))
    names += account.name;
  EXPECT_EQ(names.join(','), "Gifts,Hedging,Lawns,Tips");
  EXPECT_EQ(ListLedgerAccounts(business(), kExpense).size(), 1U);
  EXPECT_EQ(UpdateLedgerAccount(business(), kRevenue, {}, {"X", ""})->message,
            "Please choose a record to update.");
}

TEST_F(AccountListsTest, AnAccountInUseCanGo) {
  ASSERT_FALSE(InsertLedgerAccount(business(), kExpense, {"Fuel", ""}));
  const Id<Account> fuel = ListLedgerAccounts(business(), kExpense)[0].account;
  Run(Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID) VALUES ({})", fuel));
  EXPECT_EQ(DeleteLedgerAccount(business(), {})->message, "Please choose a record to delete.");
  EXPECT_FALSE(DeleteLedgerAccount(business(), fuel));
  EXPECT_EQ(Count("General_Ledger_Accounts"), 0);
  EXPECT_EQ(Count("General_Ledger_Entries"), 1);
}

TEST_F(AccountListsTest, CountriesAreKeptByName) {
  Run(Sql("DELETE FROM Countries"));
  EXPECT_EQ(lists::InsertCountry(business(), {" ", "ABN:", "GST"})->message,
            "Please enter the name of the country.");
  for (const char* name : {"Tonga", "Fiji"})
    ASSERT_FALSE(lists::InsertCountry(business(), {name, "TIN:", ""}));
  const lists::ListedCountry fiji = lists::ListCountries(business())[0];
  EXPECT_EQ(fiji.name, "Fiji");
  EXPECT_EQ(lists::UpdateCountry(business(), fiji.id, {"", "", ""})->field, "name");
  EXPECT_EQ(lists::UpdateCountry(business(), {}, {"X", "", ""})->message,
            "Please choose a record to update.");
  ASSERT_FALSE(lists::UpdateCountry(business(), fiji.id, {"Fiji", "VAT no:", "VAT"}));
  EXPECT_EQ(lists::ListCountries(business())[0].registrationName, "VAT no:");
  EXPECT_EQ(lists::ListCountries(business())[0].taxName, "VAT");
  Run(Sql("UPDATE infPersonalDetails SET Country_ID = {}", fiji.id));
  EXPECT_EQ(lists::DeleteCountry(business(), {})->message, "Please choose a record to delete.");
  EXPECT_FALSE(lists::DeleteCountry(business(), fiji.id)) << "nothing keeps a country in use";
  EXPECT_EQ(lists::ListCountries(business()).size(), 1U);
}

}  // namespace
}  // namespace quillary::accounts
