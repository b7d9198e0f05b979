#include "ReportsFixture.h"
#include "domain/ClientStatus.h"

namespace quillary::reports {
namespace {

class ListFiguresTest : public ReportsTest, public ::testing::WithParamInterface<Source> {
 protected:
  void SetUp() override {
    ReportsTest::SetUp();
    Load(GetParam());
  }

  struct Sum {
    qint64 rows = 0;
    Money amount;
    bool operator==(const Sum&) const = default;
    friend void PrintTo(const Sum& sum, std::ostream* out) {
      *out << sum.rows << " rows of " << sum.amount.ToText().toStdString();
    }
  };

  template <typename Counts>
  Sum SumOf(const char* table, const char* amount, const Counts& counts) {
    Sum sum;
    for (const Books::Row& row : (*books)[table]) {
      if (!counts(row)) continue;
      ++sum.rows;
      sum.amount += row.at(amount).ToMoney();
    }
    return sum;
  }

  /// What a report lists, counted by its rows, with the amount in the column of that heading.
  static Sum Listed(const ReportSection& section, const char* heading) {
    size_t column = 0;
    while (section.columns[column].heading != heading) ++column;
    Sum sum;
    for (const ReportGroup& group : section.groups) {
      for (const ReportRow& row : group.rows) {
        ++sum.rows;
        sum.amount += row.cells[column].ToMoney();
      }
    }
    EXPECT_EQ(section.totals[column].ToMoney(), sum.amount) << "the grand total";
    return sum;
  }
};

TEST_P(ListFiguresTest, EachListHoldsTheRowsOfItsTable) {
  const DateRange year = GetParam().year;
  const auto within = [&](const char* field) {
    return [field, &year](const Books::Row& row) { return IsWithin(row.at(field), year); };
  };
  struct Case {
    const char* report;
    const char* heading;
    ReportCriteria criteria;
    Sum expected;
  };
  const Sum payments = SumOf("Payments", "Amount", within("Payment_Date"));
  const Sum purchases = SumOf("Purchases", "Amount", within("Purchase_Date"));
  const QDate from = year.to.addMonths(-2);
  const std::vector<Case> cases = {
      {"payments", "Amount", {.days = year}, payments},
      {"payments", "Amount", {.days = year, .sort = "date"}, payments},
      {"purchases", "Cost", {.days = year}, purchases},
      {"purchases", "Cost", {.days = year, .sort = "supplier"}, purchases},
      {"jobs",
       "Price",
       {.days = year},
       SumOf("Diary", "Total_Price",
             [&](const Books::Row& row) {
               return IsWithin(row.at("Schedule_Date"), year) &&
                      row.at("Status").ToText().startsWith('J');
             })},
      {"overdue-jobs",
       "Price",
       {.days = {from, from}},
       SumOf("Diary", "Total_Price",
             [&](const Books::Row& row) {
               const QDate day = row.at("Schedule_Date").ToDate();
               return row.at("Status").ToText() == "J" && from <= day && day < business().Today();
             })},
      {"invoice-list",
       "Amount",
       {.days = year},
       SumOf("Invoices", "Total_Amount",
             [&](const Books::Row& row) {
               return IsWithin(row.at("Generation_Date"), year) &&
                      row.at("Statement_Type").ToText("-") != "Statement";
             })},
      {"asset-register",
       "Cost",
       {},
       SumOf("Purchases", "Amount",
             [](const Books::Row& row) { return row.at("Capital").ToBool(); })},
      {"unpresented-cheques", "Amount", {}, SumOf("Purchases", "Amount", [](const Books::Row& row) {
         return row.at("Payment_Method").ToText().toUpper() == "CHEQUE" &&
                !row.at("Cheque_Reconciled").ToBool();
       })}};
  for (const Case& c : cases) {
    const ReportSection section = Collect(c.report, c.criteria).sections.front();
    if (QString(c.report) == "asset-register") {
      EXPECT_TRUE(section.totals.empty());
      EXPECT_EQ(section.groups.empty() ? 0 : section.groups.front().rows.size(),
                static_cast<size_t>(c.expected.rows));
      continue;
    }
    EXPECT_EQ(Listed(section, c.heading), c.expected) << c.report;
  }
}

TEST_P(ListFiguresTest, WorkDoneIsTheSameByClientByServiceAndInTheDiary) {
  const DateRange year = GetParam().year;
  Money lines;
  const auto entries = books->ById("Diary", "Diary_ID");
  for (const Books::Row& line : (*books)["Diary_Services"]) {
    const auto entry = entries.find(line.at("Diary_ID").ToLong());
    if (entry != entries.end() && IsDone(entry->second) &&
        IsWithin(entry->second.at("Schedule_Date"), year))
      lines += line.at("Price").ToMoney();
  }
  std::set<qint64> withLines;
  for (const Books::Row& line : (*books)["Diary_Services"])
    withLines.insert(line.at("Diary_ID").ToLong());
  for (const auto& [id, entry] : entries)
    if (!withLines.contains(id) && IsDone(entry) && IsWithin(entry.at("Schedule_Date"), year))
      lines += entry.at("Total_Price").ToMoney();

  const ReportSection work = Collect("work-done", {.days = year}).sections.front();
  EXPECT_EQ(Listed(work, "Price").amount, lines);
  const ReportSection summary =
      Collect("work-done", {.days = year, .option = "summary"}).sections.front();
  Money clients;
  for (const ReportGroup& group : summary.groups) clients += group.totals[4].ToMoney();
  EXPECT_EQ(clients, lines);
  EXPECT_EQ(summary.totals[4].ToMoney(), lines);
  const auto bySummary = Collect("job-summary", {.days = year}).sections;
  Money days;
  for (const ReportGroup& group : bySummary.front().groups) days += group.totals[1].ToMoney();
  EXPECT_EQ(days, lines);
  EXPECT_EQ(bySummary.back().totals[1].ToMoney(), lines);
}

TEST_P(ListFiguresTest, TickedClientsAreListedAndNoOthers) {
  const DateRange year = GetParam().year;
  std::vector<Id<Client>> some;
  for (const Books::Row& client : (*books)["Clients"])
    if (some.size() < 7) some.emplace_back(client.at("Client_ID").ToLong());
  const Sum expected = SumOf("Payments", "Amount", [&](const Books::Row& row) {
    const Id<Client> client(row.at("Client_ID").ToLong());
    return IsWithin(row.at("Payment_Date"), year) &&
           std::find(some.begin(), some.end(), client) != some.end();
  });
  for (int time = 0; time < 2; ++time)
    EXPECT_EQ(
        Listed(Collect("payments", {.days = year, .clients = some}).sections.front(), "Amount"),
        expected)
        << "time " << time;
}

TEST_P(ListFiguresTest, DebtorsAndCreditorsAreTheBalances) {
  const auto data = Collect("debtors-creditors");
  Books after(business());
  Money owed;
  Money credit;
  for (const Books::Row& client : after["Clients"]) {
    const QString status = client.at("Status").ToText();
    if (status == "Bad debtor" || status == "Cancelled" || status == "Transferred") continue;
    const Money balance = client.at("Account_Balance").ToMoney();
    (balance < Money() ? owed : credit) += -balance;
  }
  EXPECT_EQ(Listed(data.sections.front(), "Amount owing").amount, owed);
  EXPECT_EQ(Listed(data.sections.back(), "Amount owing").amount, credit);
  EXPECT_NE(owed, Money());
  const ReportSection debtors = Collect("debtors", {.sort = "amount"}).sections.front();
  for (const ReportRow& row : debtors.groups.front().rows)
    EXPECT_GT(row.cells[3].ToMoney(), Money());
}

TEST_P(ListFiguresTest, TheAccountOfEachClientEndsInItsBalance) {
  balances::RecalculateAmountOwingOfAllClients(business());
  Books after(business());
  int checked = 0;
  for (const Books::Row& client : after["Clients"]) {
    const qint64 id = client.at("Client_ID").ToLong();
    const qint64 payer = client.at("Billing_Client_ID").ToLong();
    if ((payer != 0 && payer != id) || !client.at("Is_Billed_To").ToBool()) continue;
    const ReportSection account = Collect("account-of-client", {.record = id}).sections.front();
    EXPECT_EQ(account.totals.back().ToMoney(), -client.at("Account_Balance").ToMoney())
        << "client " << id;
    Money owing;
    for (const ReportRow& row : account.groups.front().rows) {
      owing += row.cells[3].ToMoney() - row.cells[4].ToMoney();
      EXPECT_EQ(row.cells[5].ToMoney(), owing.Rounded(2)) << "client " << id;
    }
    ++checked;
  }
  EXPECT_GT(checked, 20);
}

TEST_P(ListFiguresTest, ClientsAreListedWithEachOfTheirServicesOnce) {
  std::map<qint64, int> services;
  for (const Books::Row& line : (*books)["Client_Services"])
    ++services[line.at("Client_ID").ToLong()];
  qint64 expected = 0;
  for (const Books::Row& client : (*books)["Clients"])
    expected += std::max(1, services[client.at("Client_ID").ToLong()]);
  for (const char* report : {"clients-by-status", "clients-by-suburb"}) {
    const ReportSection section = Collect(report).sections.front();
    EXPECT_EQ(Listed(section, "Price").rows, expected) << report;
    EXPECT_EQ(section.totals[3].ToLong(), expected) << report;
  }
  Money regular;
  const auto clients = books->ById("Clients", "Client_ID");
  for (const Books::Row& line : (*books)["Client_Services"]) {
    const auto client = clients.find(line.at("Client_ID").ToLong());
    if (line.at("Status").ToText().toUpper() == "REGULAR" && client != clients.end() &&
        client->second.at("Status").ToText().toUpper() == "ACTIVE")
      regular += line.at("Price").ToMoney();
  }
  EXPECT_EQ(
      Listed(Collect("clients-by-status", {.option = "regular"}).sections.front(), "Price").amount,
      regular);
}

TEST_P(ListFiguresTest, QuotesAreAcceptedRejectedOrPendingAndNothingElse) {
  const DateRange always{QDate(2000, 1, 1), QDate(2099, 12, 31)};
  const ReportSection section = Collect("conversion-rate", {.days = always}).sections.front();
  const std::vector<Value>& all = section.totals;
  EXPECT_EQ(all[1].ToLong(), static_cast<qint64>((*books)["Quotes"].size()));
  EXPECT_EQ(all[1].ToLong(), all[3].ToLong() + all[5].ToLong() + all[7].ToLong());
  EXPECT_EQ(all[2].ToMoney(), all[4].ToMoney() + all[6].ToMoney() + all[8].ToMoney());
  Money quoted;
  for (const Books::Row& line : (*books)["Quote_Services"]) quoted += line.at("Price").ToMoney();
  EXPECT_EQ(all[2].ToMoney(), quoted);
}

INSTANTIATE_TEST_SUITE_P(Lists, ListFiguresTest, ::testing::Values(kDemo, kConverted),
                         [](const auto& source) { return std::string(source.param.name); });

}  // namespace
}  // namespace quillary::reports
