#include "billing/PaymentsTest.h"
#include "billing/payments/PaymentJobs.h"
#include "billing/payments/PaymentsList.h"

namespace quillary::billing {
namespace {

TEST_F(PaymentsTest, ServicesOfItsJobsAreListedOneByOne) {
  const Id<Entry> job = AddPricedJob(1, "JI", Whole(30));
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 2, 12.5)", job));
  const Id<Entry> bare = AddJob(2, "JD", "2026-10-21", 10, 0);
  Run(Sql("INSERT INTO Invoices (Invoice_Number) VALUES ('1004')"));
  Run(Sql("UPDATE Diary SET Invoice_ID = 1 WHERE Diary_ID = {}", job));
  const Id<Payment> payment = Store(1, Whole(50));
  for (const Id<Entry> one : {job, bare}) TickJob(business(), payment, one, true);
  const PaidServices services = LoadPaidServices(business(), payment);
  QStringList rows;
  for (const PaidService& row : services.rows)
    rows += QStringLiteral("%1 %2 %3 %4 %5")
                .arg(row.service, row.price.ToText(), row.accountName)
                .arg(NumberOrZero(row.invoiceId))
                .arg(row.invoiceNumber);
  EXPECT_EQ(rows.join('|'), "Hedge 12.5  1 1004|Lawn 30 Lawns 1 1004| 0  0 ");
  EXPECT_EQ(services.total, Money::FromUnits(425'000));
}

TEST_F(PaymentsTest, AllocationOffersTheWholeGroupAndTicksAtOnce) {
  const Id<Entry> old = AddPricedJob(1, "JI", Whole(30), "2026-08-01");
  const Id<Entry> open = AddPricedJob(2, "J", Whole(40), "2026-11-20");
  const Id<Entry> paid = AddPricedJob(2, "JD", Whole(50), "2026-09-01");
  AddPricedJob(1, "JC", Whole(9));
  AddPricedJob(1, "V", Whole(9));
  AddPricedJob(3, "JD", Whole(9));
  const Id<Payment> earlier = Store(1, Whole(50));
  TickJob(business(), earlier, paid, true);
  const Id<Payment> payment = Store(1, Whole(70));
  const auto listed = [&] {
    QStringList rows;
    for (const PayableJob& job : LoadAllocation(business(), payment).jobs)
      rows += QStringLiteral("%1 %2 %3%4")
                  .arg(job.diaryId.Number())
                  .arg(job.StatusWords(), job.isTicked ? "T" : "-", job.isPaid ? "P" : "-");
    return rows.join('|');
  };
  EXPECT_EQ(listed(), QStringLiteral("%1 Job NOT DONE --|%2 Job DONE -P|%3 Job INVOICED --")
                          .arg(open.Number())
                          .arg(paid.Number())
                          .arg(old.Number()));
  TickJob(business(), payment, old, true);
  TickJob(business(), payment, paid, true);
  EXPECT_EQ(listed(), QStringLiteral("%2 Job DONE TP|%3 Job INVOICED TP|%1 Job NOT DONE --")
                          .arg(open.Number())
                          .arg(paid.Number())
                          .arg(old.Number()))
      << "its own jobs come first";
  const AllocationSums sums = LoadAllocation(business(), payment).Sums();
  EXPECT_EQ(sums.jobs, 2);
  EXPECT_EQ(sums.jobsTotal, Whole(80));
  EXPECT_EQ(sums.Difference(), Whole(-10));
  EXPECT_EQ(Link(old), QStringLiteral("JI %1").arg(payment.Number())) << "a tick leaves the status";
  const auto glAmountOf = [&](Id<Payment> id) {
    for (const PaymentRow& row : LoadPaymentsByAClient(business(), 1_client).rows)
      if (row.paymentId == id) return row.glAmount;
    return Money::FromWhole(-1);
  };
  EXPECT_EQ(glAmountOf(earlier), Money()) << "the job was taken from the other payment";
  EXPECT_EQ(glAmountOf(payment), Whole(80));
  TickJob(business(), payment, old, false);
  EXPECT_EQ(Link(old), "JI -");
}

TEST_F(PaymentsTest, AttachingLeavesTheStatus) {
  const Id<Entry> job = AddPricedJob(1, "JI", Whole(30));
  EXPECT_EQ(AttachJob(business(), std::nullopt, job)->message,
            "Please select a payment record first.");
  EXPECT_EQ(Link(job), "JI -");
  const Id<Payment> payment = Store(1, Whole(30));
  EXPECT_FALSE(AttachJob(business(), payment, job));
  EXPECT_EQ(Link(job), QStringLiteral("JI %1").arg(payment.Number()));
}

TEST_F(PaymentsTest, JobsAreRequiredWhileSomeWait) {
  const struct {
    const char* what;
    const char* status;
    qint64 clientId;
    bool required;
  } cases[] = {
      {"a done job of a site waits", "JD", 2, true},
      {"an invoiced job waits", "JI", 1, true},
      {"older forms of done wait", "JU", 1, true},
      {"what is not done does not wait", "J", 1, false},
      {"a cancelled job does not wait", "JC", 1, false},
      {"a stranger's job does not wait", "JD", 3, false},
  };
  const Id<Payment> payment = Store(1, Whole(10));
  EXPECT_FALSE(RequiresJobs(business(), payment));
  for (const auto& [what, status, clientId, required] : cases) {
    const Id<Entry> job = AddPricedJob(clientId, status, Whole(10));
    EXPECT_EQ(RequiresJobs(business(), payment), required) << what;
    TickJob(business(), payment, job, true);
    EXPECT_FALSE(RequiresJobs(business(), payment)) << what << ", and is covered";
    TickJob(business(), 99_payment, job, true);
    EXPECT_FALSE(RequiresJobs(business(), payment)) << what << ", on another payment";
    Run(Sql("DELETE FROM Diary"));
  }
  EXPECT_FALSE(RequiresJobs(business(), 99_payment)) << "a payment that does not exist";
}

}  // namespace
}  // namespace quillary::billing
