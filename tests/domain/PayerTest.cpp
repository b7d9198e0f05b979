#include "domain/Payer.h"
#include "support/BusinessTest.h"

namespace quillary {
namespace {

class PayerTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    // Client 1 pays for itself, 2 for nobody that is named, 3 likewise in the other spelling; 4 is
    // paid for by 1, and 5 by a client who is gone.
    for (const Value& payer : {Value(1), Value(), Value(0), Value(1), Value(99)})
      Run(Sql("INSERT INTO Clients (Billing_Client_ID) VALUES ({})", payer));
    for (const Value& client : {Value(2), Value(4), Value(77), Value()})
      Run(Sql("INSERT INTO Diary (Client_ID) VALUES ({})", client));
  }

  std::vector<qint64> Numbers(const Sql& statement) {
    std::vector<qint64> numbers;
    for (const Record row : Run(statement)) numbers.push_back(row[size_t{0}].ToLong());
    return numbers;
  }
};

TEST_F(PayerTest, WhoNamesNobodyPaysForItself) {
  const std::pair<int, std::optional<int>> cases[] = {{1, 1}, {2, 2},  {3, 3},
                                                      {4, 1}, {5, 99}, {6, {}}};
  for (const auto& [client, payer] : cases) {
    const auto found = PayerOf(business(), Id<Client>(client));
    EXPECT_EQ(Value(found), Value(payer)) << "of client " << client;
  }
}

TEST_F(PayerTest, AnEntryIsPaidForByThePayerOfItsClient) {
  const std::pair<int, std::optional<int>> cases[] = {{1, 2}, {2, 1}, {3, {}}, {4, {}}, {5, {}}};
  for (const auto& [entry, payer] : cases) {
    const auto found = PayerOf(business(), Id<Entry>(entry));
    EXPECT_EQ(Value(found), Value(payer)) << "of entry " << entry;
  }
}

TEST_F(PayerTest, StatementsReadPayersAlike) {
  for (const int payer : {1, 2, 3, 4, 99}) {
    std::vector<qint64> group;
    for (int client = 1; client <= 5; ++client) {
      if (PayerOf(business(), Id<Client>(client)) == Id<Client>(payer)) group.push_back(client);
    }
    EXPECT_EQ(Numbers(Sql("SELECT Client_ID FROM Clients AS C WHERE {} ORDER BY Client_ID",
                          IsPaidBy("C", Id<Client>(payer)))),
              group)
        << payer;
    EXPECT_EQ(Numbers(Sql("SELECT Client_ID FROM Clients WHERE {} = {} ORDER BY Client_ID",
                          PayerColumn("Clients"), payer)),
              group)
        << payer;
  }
}

}  // namespace
}  // namespace quillary
