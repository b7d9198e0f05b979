#include "BillingFixture.h"
#include "data/schema/Schema.h"
#include "setup/demo/DemoBusiness.h"

namespace quillary::documents {
namespace {

class BillingContentTest : public BillingFixture {
 protected:
  static size_t JobCount(const JobSection& section) {
    size_t count = 0;
    for (const ClientJobs& client : section.clients) count += client.jobs.size();
    return count;
  }
  InvoiceContent Collect(qint64 invoice, TaxMode mode = TaxMode::Included) {
    return CollectInvoice(business(), Id<Invoice>(invoice), ReadBillingFrame(business(), mode))
        .value();
  }
};

TEST_F(BillingContentTest, AnInvoiceShowsAndAddsUpWhatItsModeAndFlagsAskFor) {
  const qint64 invoice = AddFullInvoice();
  struct Case {
    const char* name;
    TaxMode mode;
    bool pastJobs;
    bool outstanding;
    qint64 balance;  // cents
    qint64 jobs;     // total of the jobs, in cents
    qint64 total;    // of the invoice
    qint64 payable;
    const char* totalLine;
  };
  const Case cases[] = {{"with tax", TaxMode::Included, false, false, -999, 23100, 23100, 23100,
                         "INVOICE TOTAL (GST inc.) : $231.00"},
                        {"less tax", TaxMode::Excluded, false, false, -999, 21000, 21000, 21000,
                         "INVOICE TOTAL : $210.00"},
                        {"past jobs count", TaxMode::Included, true, false, -999, 23100, 25350,
                         25350, "INVOICE TOTAL (GST inc.) : $253.50"},
                        {"past jobs less tax", TaxMode::Excluded, true, false, -999, 21000, 23045,
                         23045, "INVOICE TOTAL : $230.45"},
                        {"the whole debt", TaxMode::Included, false, true, -45678, 23100, 23100,
                         45678, "INVOICE TOTAL (GST inc.) : $231.00"},
                        {"in credit", TaxMode::Excluded, true, true, 1050, 21000, 23045, -1050,
                         "INVOICE TOTAL : $230.45"}};
  for (const Case& c : cases) {
    Run(
        Sql("UPDATE Clients SET InvoiceWithUnpaidPastJobs = {}, InvoiceWithOutstanding = {}, "
            "Account_Balance = {} WHERE Client_ID = {}",
            c.pastJobs, c.outstanding, Cents(c.balance), payer));
    const InvoiceContent content = Collect(invoice, c.mode);
    EXPECT_EQ(content.jobs.total, (Amounts{Cents(c.jobs), Cents(2100)})) << c.name;
    EXPECT_EQ(content.pastJobs.has_value(), c.pastJobs) << c.name;
    EXPECT_EQ(content.invoiceTotal, Cents(c.total)) << c.name;
    EXPECT_EQ(content.amountPayable, Cents(c.payable)) << c.name;
    EXPECT_EQ(content.totalLine, c.totalLine) << c.name;
    EXPECT_EQ(
        content.terms.first(),
        QStringLiteral("Please pay %1 within 14 days.").arg(Cents(c.payable).ToCurrencyText()))
        << c.name;
  }
}

TEST_F(BillingContentTest, JobsStandWithTheirClientsAndPastOnesOnlyWhenUnpaid) {
  const InvoiceContent content = Collect(AddFullInvoice());
  ASSERT_EQ(content.jobs.clients.size(), 2u);
  EXPECT_EQ(JobCount(content.jobs), 3u);
  EXPECT_EQ(content.jobs.clients[0].workCover, "");
  EXPECT_EQ(content.jobs.clients[1].displayName, "Tenant's Cottage");
  EXPECT_EQ(content.jobs.clients[1].address, "3 Fern St NUNAWADING 3131");
  EXPECT_EQ(content.jobs.clients[1].workCover, "Order : W-88");
  EXPECT_EQ(content.jobs.clients[0].jobs[0].nextVisit, QDate(2026, 11, 16));
  EXPECT_FALSE(content.jobs.clients[1].jobs[0].nextVisit.isValid());
  ASSERT_EQ(JobCount(*content.pastJobs), 1u);
  EXPECT_EQ(content.pastJobs->clients[0].jobs[0].date, QDate(2026, 9, 8));
}

TEST_F(BillingContentTest, WithoutATaxNameNothingNamesATax) {
  business().values.taxName.clear();
  const qint64 invoice = AddFullInvoice();
  EXPECT_EQ(Collect(invoice).totalLine, "INVOICE TOTAL : $253.50");
  EXPECT_EQ(ReadBillingFrame(business(), TaxMode::Included).taxHeading, "");
}

TEST_F(BillingContentTest, WhatIsGoneOrEmptyIsPassedOver) {
  Select({99, 99, 98});
  EXPECT_EQ(billing::SelectedInvoices(business()).size(), 2u);
  const BillingFrame frame = ReadBillingFrame(business(), TaxMode::Included);
  EXPECT_FALSE(CollectInvoice(business(), Id<Invoice>(99), frame));
  EXPECT_TRUE(CollectReminders(business(), frame).empty());
  EXPECT_TRUE(CollectStatements(business(), {}, frame).empty());
  const qint64 bare = AddInvoice(payer, "", Money(), Money());
  AddJob(payer, QDate(2026, 10, 1), Cents(100), Money(), bare);
  Run(Sql("UPDATE Invoices SET Made_Out_To = NULL, Invoice_Notes = NULL, Generation_Date = NULL"));
  Run(Sql("UPDATE Diary_Services SET Price = NULL, GST = NULL"));
  Run(Sql("UPDATE infOptions SET TermsOfTrade = NULL, Invoice_Notes = NULL"));
  const InvoiceContent content = Collect(bare);
  EXPECT_TRUE(content.madeOutTo.isEmpty() && content.notes.isEmpty() && content.terms.isEmpty());
  EXPECT_EQ(content.invoiceTotal, Money());
}

TEST_F(BillingContentTest, AStatementTakesThePastAndThePaymentsOfItsDays) {
  const qint64 invoice = AddFullInvoice();
  const qint64 second = AddInvoice(payer, "0999", Cents(1100), Cents(100), QDate(2026, 9, 30));
  const qint64 other = AddInvoice(tenant, "0998", Money(), Money());
  Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, {})", payer,
          DateTime(QDate(2026, 10, 31), QTime(17, 30)), Cents(8000)));
  Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, {})", payer,
          QDate(2026, 8, 31), Cents(7000)));
  Select({invoice, other, second});
  const auto statements = CollectStatements(business(), {QDate(2026, 9, 1), QDate(2026, 10, 31)},
                                            ReadBillingFrame(business(), TaxMode::Excluded));
  ASSERT_EQ(statements.size(), 2u);
  const StatementContent& first = statements[0];
  ASSERT_EQ(first.invoices.size(), 2u);
  EXPECT_EQ(first.invoices[0].number, "0999");
  EXPECT_EQ(first.total, (Amounts{Cents(22000), Cents(2200)}));
  EXPECT_EQ(first.paymentsTotal, Cents(8000));
  // The jobs of the invoices themselves belong to it, as long as nobody paid them.
  EXPECT_EQ(JobCount(*first.pastJobs), 4u);
  EXPECT_TRUE(first.HasClosing());
  EXPECT_EQ(statements[1].total.price, Money());
  EXPECT_TRUE(statements[1].HasClosing()) << "the last one";
  const auto reminders =
      CollectReminders(business(), ReadBillingFrame(business(), TaxMode::Included));
  ASSERT_EQ(reminders.size(), 2u);
  EXPECT_EQ(reminders[0].total, (Amounts{Cents(24200), Cents(2200)}));
}

TEST(BillingSums, EveryInvoiceOfABusinessAddsUpToItsRow) {
  ScriptedOutside outside;
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("DEMO.MDB"));
  CreateEmptyBusiness(path);
  Business business(outside.Ports(), path);
  business.ConnectToDatabase();
  setup::WriteDemoBusiness(business, {.clients = 60, .months = 8});
  int invoices = 0;
  for (const TaxMode mode : {TaxMode::Included, TaxMode::Excluded}) {
    const BillingFrame frame = ReadBillingFrame(business, mode);
    for (const Record row :
         business.RunSQL(Sql("SELECT Invoice_ID, Total_Amount, Total_GST FROM Invoices"))) {
      const Money amount = row[u"Total_Amount"].ToMoney();
      const Money tax = row[u"Total_GST"].ToMoney();
      const auto invoice =
          CollectInvoice(business, Id<Invoice>(row[u"Invoice_ID"].ToLong()), frame);
      ASSERT_TRUE(invoice);
      EXPECT_EQ(invoice->jobs.total,
                (Amounts{mode == TaxMode::Included ? amount : amount - tax, tax}));
      ++invoices;
    }
  }
  EXPECT_GT(invoices, 100);
}

}  // namespace
}  // namespace quillary::documents
