#include "ClientsTest.h"
#include "balances/ClientBalance.h"
#include "clients/quotes/Prospects.h"

namespace quillary::clients {
namespace {

class QuotesTest : public ClientsTest {
 protected:
  QuoteService Line(int service, const char* name, const char* price, const char* notes = "") {
    return {.service = Id<Service>(service),
            .name = QString(name),
            .price = *Money::Parse(QString(price)),
            .notes = QString(notes)};
  }
  QString Clients() {
    return Rows(Sql("SELECT Client_ID, Status, Display_Name, Billing_Client_ID FROM Clients"));
  }
  QString Quotes() {
    return Rows(Sql("SELECT Quote_ID, Client_ID, Quote_Date, Description FROM Quotes"));
  }
  QString Lines() {
    return Rows(
        Sql("SELECT Quote_Service_ID, Quote_ID, Service_ID, Price, Notes FROM "
            "Quote_Services ORDER BY Quote_Service_ID"));
  }
  QString Services() {
    return Rows(
        Sql("SELECT Client_ID, Service_ID, Price, Frequency, Status, Next_Visit, Notes "
            "FROM Client_Services ORDER BY Client_Service_ID"));
  }
};

TEST_F(QuotesTest, ASaveStoresTheProspectOnceAndTheLinesThatHaveAService) {
  Prospect prospect{.firstName = "Zoe", .surname = "Zimmer", .suburb = "Kew"};
  QuoteForm quote = NewQuote(business());
  quote.services = {Line(1, "Lawn", "$45.50", "front only"), {.price = Money::FromWhole(9)}, {}};
  ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  EXPECT_EQ(Clients(), "1 Quote only Zoe Zimmer 1") << "a quote client bills itself";
  EXPECT_EQ(Quotes(), "1 1 2026-11-02 Lawn");
  EXPECT_EQ(Lines(), "1 1 1 45.5 front only") << "a line without service is none";

  quote.services[1] = Line(2, "Hedge", "80");
  quote.services[0].price = Money::FromWhole(50);
  quote.date = Day("2026-11-09");
  ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  EXPECT_EQ(Quotes(), "1 1 2026-11-09 Lawn, Hedge");
  EXPECT_EQ(Lines(), "1 1 1 50 front only,2 1 2 80 -") << "updated, and one more";
  const auto again = LoadQuote(business(), *quote.quote);
  ASSERT_TRUE(again);
  EXPECT_EQ(again->Total(), Money::FromWhole(130));
  EXPECT_EQ(again->services[1].name, "Hedge");
}

TEST_F(QuotesTest, AClientWhoWasBilledToAnotherOwesItsJobsItself) {
  for (const char* name : {"Payer", "Zimmer"})
    Run(
        Sql("INSERT INTO Clients (Status, Display_Name, Billing_Client_ID, Is_Billed_To) "
            "VALUES ('Active', {}, 1, True)",
            name));
  AddJob(2, "JD", "2026-10-01", 30);
  balances::RecalculateClientBalance(business(), Id<Client>(2));
  const auto owed = [&] { return Rows(Sql("SELECT Account_Balance FROM Clients")); };
  ASSERT_EQ(owed(), "-30,0");
  Prospect prospect = *LoadProspect(business(), Id<Client>(2));
  QuoteForm quote = NewQuote(business());
  ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  EXPECT_EQ(owed(), "0,-30");
}

TEST_F(QuotesTest, TheNameIsFormedInTheUsersOrder) {
  struct Case {
    const char* order;
    Prospect typed;
    const char* name;  // null: refused
  };
  for (const Case& c : {Case{"FS", {.firstName = "Ann", .surname = "Ant"}, "Ann Ant"},
                        Case{"SF", {.firstName = "Ann", .surname = "Ant"}, "Ant Ann"},
                        Case{"SF", {.firstName = "Ant Pty Ltd"}, "Ant Pty Ltd"},
                        Case{"FS", {.displayName = "The Ants", .firstName = "Ann"}, "The Ants"},
                        Case{"FS", {.street = "High St"}, nullptr}}) {
    outside.settings.Write("Display Format", "Billing Name Format", c.order);
    Prospect prospect = c.typed;
    QuoteForm quote = NewQuote(business());
    const auto refusal = SaveRecords(business(), prospect, quote);
    EXPECT_EQ(refusal.has_value(), c.name == nullptr);
    EXPECT_EQ(prospect.displayName, QString(c.name));
    EXPECT_EQ(prospect.client.has_value(), c.name != nullptr);
  }
  EXPECT_EQ(Count("Clients"), 4);
}

TEST_F(QuotesTest, BeingMadeActiveReplacesTheServices) {
  Run(Sql("INSERT INTO Clients (Status, Display_Name) VALUES ('Quote only', 'Zimmer')"));
  for (const int client : {1, 7})
    Run(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Price, Frequency, Status) "
            "VALUES ({}, 2, 20, 14, 'Quote only')",
            client));
  Prospect prospect = *LoadProspect(business(), Id<Client>(1));
  QuoteForm quote = NewQuote(business());
  quote.services = {Line(1, "Lawn", "45", "  front only "), Line(2, "Hedge", "80")};
  outside.prompter.Expect(
      "You did not select a quote to be made as client services. Do you want to continue?",
      Answer::Yes);
  const QString question =
      "This will make Zimmer an Active client. \nWARNING: This will also delete existing services "
      "and will be replaced by the loaded quote services!\nDo you want to continue?\n\nServices "
      "that go: Hedge\nServices that come: Lawn $45.00, Hedge $80.00";
  outside.prompter.Expect(question, Answer::No);
  EXPECT_FALSE(MakeActiveAfterAsking(business(), outside.prompter, prospect, quote));
  EXPECT_EQ(Count("Quotes"), 0);

  ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  outside.prompter.Expect(question, Answer::Yes);
  EXPECT_TRUE(MakeActiveAfterAsking(business(), outside.prompter, prospect, quote));
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"Please check all the client details in the Client screen as well as its "
                        "schedule."});
  EXPECT_EQ(Clients(), "1 Active Zimmer 1");
  EXPECT_EQ(Services(),
            "7 2 20 14 Quote only - -,1 1 45 0  2026-11-02 front only,1 2 80 0  2026-11-02 -")
      << "without rhythm and kind until they are set up";
}

TEST_F(QuotesTest, BeingMadeActiveWithoutAQuoteLeavesNoServices) {
  Run(Sql("INSERT INTO Clients (Status, Display_Name) VALUES ('Quote only', 'Zimmer')"));
  Run(Sql("INSERT INTO Client_Services (Client_ID, Service_ID) VALUES (1, 2)"));
  Prospect nobody;
  QuoteForm quote = NewQuote(business());
  EXPECT_FALSE(MakeActiveAfterAsking(business(), outside.prompter, nobody, quote));
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please select a client."});
  Prospect prospect = *LoadProspect(business(), Id<Client>(1));
  ASSERT_FALSE(MakeActive(business(), prospect, quote));
  EXPECT_EQ(Clients(), "1 Active Zimmer 1");
  EXPECT_EQ(Services(), "");
}

TEST_F(QuotesTest, AQuoteGoesWithItsLinesAndOnlyOnceLoaded) {
  AddClient("Zimmer");
  for (const char* name : {"Lawn", "Hedge"}) {
    Prospect prospect = *LoadProspect(business(), Id<Client>(1));
    QuoteForm quote = NewQuote(business());
    quote.services = {Line(1, name, "10"), Line(2, name, "20")};
    ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  }
  const auto listed = ListQuotes(business(), Id<Client>(1));
  ASSERT_EQ(listed.size(), 2U);
  EXPECT_EQ(listed[1].total, Money::FromWhole(30));
  EXPECT_EQ(listed[1].description, "Hedge, Hedge");
  EXPECT_TRUE(ListQuotes(business(), Id<Client>(2)).empty());

  EXPECT_FALSE(RemoveQuoteAfterAsking(business(), outside.prompter, std::nullopt));
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"Please load the quote first before removing it to make sure that you're "
                        "removing the correct quote."});
  outside.prompter.Expect("Are you sure you want to remove the selected quote.", Answer::Yes);
  EXPECT_TRUE(RemoveQuoteAfterAsking(business(), outside.prompter, listed[0].quote));
  EXPECT_EQ(Rows(Sql("SELECT Quote_ID FROM Quote_Services")), "2,2");
  EXPECT_THROW(RemoveQuote(business(), listed[0].quote), WriteFailed) << "it has gone";
}

TEST_F(QuotesTest, ASaveOfALineThatHasGoneStoresNothing) {
  AddClient("Zimmer");
  Prospect prospect = *LoadProspect(business(), Id<Client>(1));
  QuoteForm quote = NewQuote(business());
  quote.services = {Line(1, "Lawn", "10"), Line(2, "Hedge", "20")};
  ASSERT_FALSE(SaveRecords(business(), prospect, quote));
  RemoveQuoteService(business(), *quote.services[1].line);
  quote.services[0].price = Money::FromWhole(99);
  prospect.phone1 = "0400";
  EXPECT_THROW(SaveRecords(business(), prospect, quote), WriteFailed);
  EXPECT_EQ(Lines(), "1 1 1 10 -");
  EXPECT_EQ(LoadProspect(business(), Id<Client>(1))->phone1, "");
}

}  // namespace
}  // namespace quillary::clients
