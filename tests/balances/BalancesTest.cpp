#include "balances/ClientBalance.h"
#include "balances/Debtors.h"
#include "support/BusinessTest.h"

#include <QRandomGenerator>

#include <optional>

namespace quillary::balances {
namespace {

QDate Day(const char* iso) {
  return QDate::fromString(QString(iso), Qt::ISODate);
}

/// Payer 1 pays for itself, address 2 receives bills, and site 3 is billed to whom a case tells.
class BalancesTest : public BusinessTest {
 protected:
  void AddClient(const char* name, const char* status, const Value& billingClient) {
    Build().Add<Client>({{"Display_Name", name},
                         {"Status", status},
                         {"Billing_Client_ID", billingClient},
                         {"Is_Billed_To", true}});
  }
  void AddThree(int siteIsBilledTo) {
    AddClient("Payer", "Active", 1);
    AddClient("Address", "billing ADDRESS", 2);
    AddClient("Site", "Active", siteIsBilledTo);
  }
  void AddJob(int client, const char* status, const Value& price, const char* day = "2026-10-01",
              const Value& payment = {}) {
    Build().Add<Entry>({{"Client_ID", client},
                        {"Status", status},
                        {"Total_Price", price},
                        {"Schedule_Date", Day(day)},
                        {"Payment_ID", payment}});
  }
  void Pay(int client, const Value& amount) {
    Run(Sql("INSERT INTO Payments (Client_ID, Amount, Payment_Date) VALUES ({}, {}, {})", client,
            amount, Day("2026-10-15")));
  }
  /// "payer address site" as plain digits.
  QString Balances() {
    QStringList balances;
    for (const Record row : Run(Sql("SELECT Account_Balance FROM Clients ORDER BY Client_ID"))) {
      balances += row[u"Account_Balance"].ToText(QStringLiteral("-"));
    }
    return balances.join(u' ');
  }
  Value DebtorSince(int client) {
    return business().FirstField(
        Sql("SELECT Debtor_Since FROM Clients WHERE Client_ID = {}", client));
  }
};

struct Movement {
  int client;
  const char* status;  // of a job; null for a payment
  double amount;
};

struct BalanceCase {
  const char* fault;
  int siteIsBilledTo;
  std::vector<Movement> movements;
  int recalculated;
  const char* balances;
};

const BalanceCase kCases[] = {
    {"nothing leaves no figure", 1, {}, 1, "0 - -"},
    {"a kind of done is left out, or an open job counted",
     3,
     {{1, "JP", 1},
      {1, "JU", 2},
      {1, "JD", 4},
      {1, "JI", 8},
      {1, "J", 16},
      {1, "JC", 32},
      {1, "V", 64}},
     1,
     "-15 - -"},
    {"codes of old files in small letters are lost", 3, {{1, "jd", 4}}, 1, "-4 - -"},
    {"jobs of a site are not its payer's", 1, {{1, "JD", 10}, {3, "JD", 5}}, 1, "-15 - -"},
    {"a payer is credited with a site's payment",
     1,
     {{1, "JD", 10}, {3, nullptr, 4}},
     1,
     "-10 - -"},
    {"an address is not credited with a site's payment",
     2,
     {{3, "JD", 10}, {3, nullptr, 4}},
     2,
     "- -6 -"},
    {"jobs and payments of an address itself are lost",
     2,
     {{2, "JD", 10}, {2, nullptr, 3}, {3, nullptr, 2}},
     2,
     "- -5 -"},
    {"a site keeps a balance, or its payer is forgotten",
     1,
     {{1, "JD", 10}, {3, "JD", 5}, {1, nullptr, 20}},
     3,
     "5 - 0"},
    {"a payment of a site does not count when the site is recalculated",
     1,
     {{1, "JD", 10}, {3, nullptr, 4}},
     3,
     "-6 - 0"},
    {"thirds of a cent remain with the payer",
     3,
     {{1, "JD", 33.3333}, {1, "JD", 33.3333}, {1, "JD", 33.3334}, {1, nullptr, 100}},
     1,
     "0 - -"},
    {"the sums are rounded after they are subtracted",
     3,
     {{1, "JD", 0.005}, {1, nullptr, 0.01}},
     1,
     "0.01 - -"},
    {"the payer's side is rounded when a site is recalculated",
     1,
     {{3, "JD", 0.005}, {1, nullptr, 0.01}},
     3,
     "0.005 - 0"},
    {"one billed to nobody known is no payer", 99, {{3, "JD", 5}}, 3, "- - 0"},
    {"client 0 is recalculated", 1, {{1, "JD", 5}}, 0, "- - -"},
    {"a client who is gone is recalculated", 1, {{9, "JD", 5}}, 9, "- - -"},
};

TEST_F(BalancesTest, TheThreeKindsOfClient) {
  for (const BalanceCase& balanceCase : kCases) {
    SCOPED_TRACE(balanceCase.fault);
    const Transaction undoneAfterTheCase(business());
    AddThree(balanceCase.siteIsBilledTo);
    for (const auto& [client, status, amount] : balanceCase.movements) {
      status ? AddJob(client, status, amount) : Pay(client, amount);
    }
    RecalculateClientBalance(business(), Value(balanceCase.recalculated).ToId<Client>());
    EXPECT_EQ(Balances(), balanceCase.balances);
  }
}

TEST_F(BalancesTest, WhoNamesNobodyPaysForItself) {
  for (const char* status : {"Active", "Billing address"}) {
    for (const Value& nobody : {Value(), Value(0)}) {
      SCOPED_TRACE(status);
      const Transaction undoneAfterTheCase(business());
      AddClient("Left over from an old file", status, nobody);
      AddJob(1, "JD", 10);
      Pay(1, 4);
      RecalculateClientBalance(business(), Id<Client>(1));
      EXPECT_EQ(Balances(), "-6");
      Run(Sql("UPDATE Clients SET Account_Balance = 0"));
      RecalculateAmountOwingOfAllClients(business());
      EXPECT_EQ(Balances(), "-6") << "all at once read it otherwise";
    }
  }
}

TEST_F(BalancesTest, ARefusedWriteUndoesTheRecalculation) {
  AddThree(1);
  AddJob(3, "JD", 10);
  Run(Sql("ALTER TABLE Clients DROP COLUMN Debtor_Since"));
  ExpectRefused("Debtor_Since");
  EXPECT_THROW(RecalculateClientBalance(business(), Id<Client>(3)), ProgramError);
  EXPECT_EQ(Balances(), "- - -") << "a balance was stored without its date";
}

struct SinceCase {
  const char* fault;
  Value before;
  std::vector<std::pair<const char*, const char*>> jobs;  // status and day, priced 10 each
  bool areJobsOnAPayment = false;
  double paid = 0;
  Value after;
};

TEST_F(BalancesTest, DebtorSinceMoves) {
  const Value today = Day("2026-11-02");
  const Value september = Day("2026-09-01");
  const SinceCase cases[] = {
      {"a paid debt keeps its date", september, {{"JD", "2026-10-01"}}, false, 10, {}},
      {"a credit has a date", september, {}, false, 5, {}},
      {"a new debt starts in the past", {}, {{"JD", "2026-10-01"}}, false, 0, today},
      {"the zero date is taken for a date",
       Day("1899-12-30"),
       {{"JD", "2026-10-01"}},
       false,
       0,
       today},
      {"the clock does not move to the oldest job",
       september,
       {{"JD", "2026-10-08"}, {"JD", "2026-08-01"}},
       false,
       0,
       Day("2026-08-01")},
      {"an invoiced job moves the clock", september, {{"JI", "2026-08-01"}}, false, 0, september},
      {"a job on a payment moves the clock", september, {{"JD", "2026-08-01"}}, true, 0, september},
      {"a job done ahead of its day moves the clock",
       september,
       {{"JD", "2026-11-09"}},
       false,
       0,
       september},
      {"a loose payment moves the clock",
       september,
       {{"JD", "2026-08-01"}},
       false,
       5,
       Day("2026-08-01")},
  };
  AddClient("Payer", "Active", 1);
  for (const SinceCase& sinceCase : cases) {
    SCOPED_TRACE(sinceCase.fault);
    Run(Sql("DELETE FROM Diary"));
    Run(Sql("DELETE FROM Payments"));
    Run(Sql("UPDATE Clients SET Debtor_Since = {}", sinceCase.before));
    for (const auto& [status, day] : sinceCase.jobs) {
      AddJob(1, status, 10, day, sinceCase.areJobsOnAPayment ? Value(7) : Value());
    }
    if (sinceCase.paid != 0) Pay(1, sinceCase.paid);
    RecalculateClientBalance(business(), Id<Client>(1));
    EXPECT_EQ(DebtorSince(1), sinceCase.after);
  }
}

TEST_F(BalancesTest, RecalculatingASiteLeavesSinceWhenItsPayerOwes) {
  AddThree(1);
  Run(Sql("UPDATE Clients SET Debtor_Since = {}", Day("2026-09-01")));
  AddJob(3, "JD", 10, "2026-08-01");
  RecalculateClientBalance(business(), Id<Client>(3));
  EXPECT_EQ(Balances(), "-10 - 0");
  EXPECT_TRUE(DebtorSince(3).IsNull());
  EXPECT_EQ(DebtorSince(1), Value(Day("2026-09-01")));
  RecalculateClientBalance(business(), Id<Client>(1));
  EXPECT_EQ(DebtorSince(1), Value(Day("2026-08-01")));
}

/// The figures of a business in which everything that can be odd is, as a walk over the clients
/// leaves them.
class WholeBusinessTest : public BalancesTest {
 protected:
  void AddMuddle(quint32 seed) {
    QRandomGenerator dice(seed);
    const char* statuses[] = {"Active", "Billing address", "Cancelled", ""};
    const char* codes[] = {"J", "JD", "JD", "JI", "JP", "JU", "JC", "jd", "V"};
    for (int client = 1; client <= 40; ++client) {
      const int billed = dice.bounded(3) == 0 ? dice.bounded(44) : client;
      Run(
          Sql("INSERT INTO Clients (Status, Billing_Client_ID, Is_Billed_To, Debtor_Since, "
              "Account_Balance) VALUES ({}, {}, {}, {}, {})",
              statuses[dice.bounded(4)], billed == 0 ? Value() : Value(billed),
              dice.bounded(4) != 0, dice.bounded(2) == 0 ? Value() : Value(Day("2026-09-01")),
              dice.bounded(2) == 0 ? Value() : Value(5)));
    }
    for (int job = 0; job < 200; ++job) {
      AddJob(dice.bounded(44), codes[dice.bounded(9)], Money::FromUnits(dice.bounded(2000000)),
             qPrintable(Day("2026-07-01").addDays(dice.bounded(180)).toString(Qt::ISODate)),
             dice.bounded(3) == 0 ? Value(1) : Value());
      Pay(dice.bounded(44), Money::FromUnits(dice.bounded(2000000)));
    }
  }
  std::vector<Value> Figures() {
    std::vector<Value> figures;
    for (const Record row :
         Run(Sql("SELECT Account_Balance, Debtor_Since FROM Clients ORDER BY Client_ID"))) {
      figures.push_back(row[u"Account_Balance"]);
      figures.push_back(row[u"Debtor_Since"]);
    }
    return figures;
  }
};

TEST_F(WholeBusinessTest, AllAtOnceGivesTheFiguresOfOneByOne) {
  for (quint32 seed = 1; seed <= 5; ++seed) {
    SCOPED_TRACE(seed);
    const Transaction undoneAfterTheSeed(business());
    AddMuddle(seed);
    std::vector<Value> oneByOne;
    {
      const Transaction undone(business());
      for (const Record row : Run(Sql("SELECT Client_ID FROM Clients WHERE Is_Billed_To = True"))) {
        RecalculateClientBalance(business(), row[u"Client_ID"].ToId<Client>());
      }
      oneByOne = Figures();
    }
    RecalculateAmountOwingOfAllClients(business());
    EXPECT_EQ(Figures(), oneByOne);
  }
}

TEST_F(BalancesTest, TheMenuCommandAsksFirst) {
  AddThree(1);
  AddJob(1, "JD", 10);
  outside.prompter.Expect("Amount owing = Payments - Total amount of Jobs", Answer::No);
  EXPECT_FALSE(RecomputeAmountOwingAfterAsking(business(), outside.prompter));
  EXPECT_EQ(Balances(), "- - -");
  outside.prompter.Expect("re-calculate and update the Amount owing", Answer::Yes);
  EXPECT_TRUE(RecomputeAmountOwingAfterAsking(business(), outside.prompter));
  EXPECT_EQ(Balances(), "-10 0 0");
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList("Re-calculation done."));
  EXPECT_EQ(outside.busy.depth, 0);
}

TEST_F(BalancesTest, DebtorsAndCreditorsShowWhatIsOwing) {
  const std::tuple<const char*, const char*, bool, Value> clients[] = {
      {"Zoe", "Active", true, -20},         {"Ann", "Cancelled", true, -30},
      {"Bob", "Bad debtor", true, -5},      {"Site", "Active", false, -40},
      {"Even", "Active", true, 0},          {"New", "Active", true, nullptr},
      {"Cleo", "Billing address", true, 7}, {"Gone", "Transferred", true, 8},
  };
  for (const auto& [name, status, isBilledTo, balance] : clients) {
    Run(
        Sql("INSERT INTO Clients (Display_Name, Status, Is_Billed_To, Account_Balance) "
            "VALUES ({}, {}, {}, {})",
            name, status, isBilledTo, balance));
  }
  const auto shown = [](const std::vector<DebtorRow>& rows) {
    QStringList list;
    for (const DebtorRow& row : rows) list += row.displayName + u' ' + row.amountOwing.ToText();
    return list.join(u',');
  };
  EXPECT_EQ(shown(ListDebtors(business(), DebtorFilter::All)), "Ann 30,Bob 5,Zoe 20");
  EXPECT_EQ(shown(ListDebtors(business(), DebtorFilter::Active)), "Bob 5,Zoe 20");
  EXPECT_EQ(shown(ListCreditors(business(), DebtorFilter::All)), "Cleo -7,Gone -8");
  EXPECT_EQ(shown(ListCreditors(business(), DebtorFilter::Active)), "Cleo -7");
}

}  // namespace
}  // namespace quillary::balances
