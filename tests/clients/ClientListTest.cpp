#include "clients/ClientList.h"
#include "clients/ClientsTest.h"
#include "clients/DeleteClient.h"
#include "clients/GeneralNotes.h"
#include "clients/MonthlyPrices.h"

namespace quillary::clients {
namespace {

class ClientListTest : public ClientsTest {
 protected:
  void SetUp() override {
    ClientsTest::SetUp();
    struct {
      const char* name;
      const char* status;
      const char* street;
      const char* suburb;
      const char* phone;
    } const clients[] = {
        {"Zimmer", "Active", "High St", "KEW", "0412 345 678"},
        {"Örn, Åke", "Active", "Low Rd", "BALWYN", "(03) 9876-5432"},
        {"Abel", "Bad debtor", "High St", "RICHMOND", ""},
        {"Prospect", "Quote only", "High St", "KEW", ""},
        {"Nay", "Quote rejected", "High St", "KEW", ""},
    };
    for (const auto& [name, status, street, suburb, phone] : clients) {
      Run(
          Sql("INSERT INTO Clients (Display_Name, Status, Street, Suburb, Phone_2) "
              "VALUES ({}, {}, {}, {}, {})",
              name, status, street, suburb, phone));
    }
    Run(Sql("INSERT INTO Client_Services (Client_ID, Status) VALUES (1, 'Regular')"));
    Run(Sql("INSERT INTO Client_Services (Client_ID, Status) VALUES (3, 'Casual')"));
  }
  static QString Names(const std::vector<ClientListRow>& rows) {
    QStringList names;
    for (const ClientListRow& row : rows) names += row.displayName;
    return names.join(u'|');
  }
};

TEST_F(ClientListTest, ProspectsAreNoClients) {
  EXPECT_EQ(Names(ClientList::Load(business()).Rows()), "Abel|Örn, Åke|Zimmer");
  EXPECT_EQ(Names(ClientList::Load(business(), {ClientListStatusOf("bad DEBTOR")}).Rows()), "Abel");
  EXPECT_EQ(
      Names(ClientList::Load(business(), {ClientListStatusOf("All"), ClientKinds::RegularOnly})
                .Rows()),
      "Zimmer");
  EXPECT_EQ(ClientList::Load(business()).Rows()[2].phones, "; 0412 345 678");
  EXPECT_EQ(ListCountWords(3), "List Count = 3");
}

TEST_F(ClientListTest, WhatIsTypedFindsNameStreetSuburbAndPhone) {
  const ClientList list = ClientList::Load(business());
  const std::pair<const char*, const char*> cases[] = {
      {"", "Abel|Örn, Åke|Zimmer"},
      {"zim", "Zimmer"},
      {"ÖRN", "Örn, Åke"},
      {"high", "Abel|Zimmer"},
      {"rich high", "Abel"},
      {"0412345", "Zimmer"},
      {"0412 345", "Zimmer"},
      {"(03) 98765", "Örn, Åke"},
      {"nobody", ""},
      {"kewhigh", ""},
  };
  for (const auto& [typed, names] : cases) {
    QStringList found;
    for (const size_t row : list.Search(typed)) found += list.Rows()[row].displayName;
    EXPECT_EQ(found.join(u'|'), names) << typed;
  }
}

TEST_F(ClientListTest, ADeletedClientTakesAllButItsSitesWithIt) {
  AddJob(1, "JD", "2026-10-01");
  AddJob(3, "JD", "2026-10-01");
  Pay(1, 10);
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID) VALUES (1)"));
  Run(Sql("INSERT INTO General_Ledger_Entries (Purchase_ID) VALUES (1)"));
  Run(Sql("INSERT INTO Invoices (Client_ID) VALUES (1)"));
  Run(Sql("INSERT INTO Invoice_Items (Invoice_ID) VALUES (1)"));
  Run(Sql("INSERT INTO Quotes (Client_ID) VALUES (1)"));
  Run(Sql("INSERT INTO Quote_Services (Quote_ID) VALUES (1)"));
  Run(Sql("UPDATE Diary SET Invoice_ID = 1, Payment_ID = 1 WHERE Client_ID = 3"));
  Run(Sql("UPDATE Clients SET Billing_Client_ID = 1 WHERE Client_ID = 3"));
  EXPECT_EQ(CheckClientSelected(ClientListCommand::Delete, std::nullopt)->message,
            "Please select a record to delete.");
  EXPECT_EQ(CheckClientSelected(ClientListCommand::View, std::nullopt)->message,
            "Please select a client to view/edit.");
  const QString question =
      "Are you really sure you want to delete Zimmer?\n\n There will be absolutely no record of "
      "this client afterwards and may "
      "affect your GST/Profit and Loss report!\n\nDeleted with it: 1 job or visit, 1 invoice, "
      "1 payment of $10.00.";
  outside.prompter.Expect(question, Answer::No);
  EXPECT_FALSE(DeleteClientAfterAsking(business(), outside.prompter, 1_client));
  EXPECT_EQ(Count("Clients"), 5);
  outside.prompter.Expect(question, Answer::Yes);
  EXPECT_TRUE(DeleteClientAfterAsking(business(), outside.prompter, 1_client));
  const std::pair<const char*, int> left[] = {
      {"Clients", 4},        {"Client_Services", 1},
      {"Diary", 1},          {"Diary_Services", 1},
      {"Payments", 0},       {"Invoices", 0},
      {"Invoice_Items", 0},  {"Quotes", 0},
      {"Quote_Services", 0}, {"General_Ledger_Entries", 1},
  };
  for (const auto& [table, rows] : left) EXPECT_EQ(Count(table), rows) << table;
  EXPECT_EQ(Rows(Sql("SELECT Status, Invoice_ID, Payment_ID FROM Diary")), "JD - -")
      << "a site's job comes off what paid and billed it";
  EXPECT_EQ(Names(ClientList::Load(business(), {ClientStatus::BadDebtor}).Rows()), "Abel");
}

TEST_F(ClientsTest, AMonthlyAmountIsSpreadAndItsLastCentLost) {
  const std::vector<Id<Entry>> jobs = {AddJob(1, "J", "2026-11-01", 10, 1),
                                       AddJob(1, "JD", "2026-11-30", 10, 2),
                                       AddJob(1, "JI", "2026-11-15", 10, 3)};
  AddJob(1, "J", "2026-12-01");
  AddJob(1, "V", "2026-11-15");
  const DateRange month = DateRange::MonthOf(business().Today());
  EXPECT_EQ(month.to, Day("2026-11-30"));
  const auto listed = LoadJobsForThisClient(business(), 1_client, month);
  ASSERT_EQ(listed.size(), 3u);
  EXPECT_EQ(listed[0].statusWords, "Job DONE");
  EXPECT_EQ(listed[1].statusWords, "Job INVOICED");
  EXPECT_EQ(listed[2].statusWords, "Job NOT DONE");

  EXPECT_EQ(SetJobPricesForMonthly(business(), 1_client, Money::FromDouble(0.99), jobs)->message,
            "Please enter an amount greater than 0.");
  EXPECT_EQ(SetJobPricesForMonthly(business(), 1_client, Money::FromWhole(100), {})->message,
            "You did not select any job.");
  ASSERT_FALSE(SetJobPricesForMonthly(business(), 1_client, Money::FromWhole(100), jobs));
  EXPECT_EQ(Rows(Sql("SELECT Total_Price, Total_GST FROM Diary WHERE Diary_ID <= 3")),
            "33.33 3.03,33.33 3.03,33.33 3.03");
  EXPECT_EQ(Rows(Sql("SELECT DISTINCT Diary_ID, Price, GST FROM Diary_Services "
                     "WHERE Diary_ID <= 3 ORDER BY Diary_ID")),
            "1 33.33 3.03,2 16.66 1.51,3 11.11 1.01");
}

TEST_F(ClientsTest, AJobWithoutLinesIsReportedAndTheOthersGetTheirShare) {
  const std::vector<Id<Entry>> jobs = {AddJob(1, "J", "2026-11-01", 10, 0),
                                       AddJob(1, "J", "2026-11-08", 10, 1)};
  ASSERT_FALSE(SetJobPricesForMonthly(business(), 1_client, Money::FromWhole(50), jobs));
  EXPECT_EQ(Rows(Sql("SELECT Total_Price FROM Diary")), "25,25");
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 1);
  EXPECT_TRUE(reports[0].contains("Division by zero"));
}

TEST_F(ClientsTest, GeneralNotesKeepTheirTextAndCanBeCleared) {
  SaveGeneralNotes(business(), "Don't\npay \"cash\"");
  EXPECT_EQ(LoadGeneralNotes(business()), "Don't\npay \"cash\"");
  SaveGeneralNotes(business(), "");
  EXPECT_EQ(LoadGeneralNotes(business()), "");
}

}  // namespace
}  // namespace quillary::clients
