#include "InvoiceTest.h"
#include "billing/invoices/InvoiceJobs.h"
#include "billing/invoices/InvoiceList.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/invoices/InvoiceTexts.h"
#include "billing/runs/MonthlyReminder.h"
#include "clients/ClientMoney.h"
#include "roll/DiaryEntries.h"

namespace quillary::billing {
namespace {

const QDate kDay(2026, 10, 20);

class InvoiceRecordTest : public InvoiceTest {
 protected:
  /// Those invoices as the list shows them.
  std::vector<InvoiceListRow> Listed(const std::vector<Id<Invoice>>& invoices) {
    std::vector<InvoiceListRow> rows =
        LoadInvoicesList(business(), InvoicesOfMonth(business().Today(), false));
    std::erase_if(rows, [&](const InvoiceListRow& row) {
      return std::ranges::find(invoices, row.invoiceId) == invoices.end();
    });
    return rows;
  }
};

TEST_F(InvoiceRecordTest, ChecksSpeakInTheOrderOfTheScreen) {
  struct Case {
    const char* fault;
    std::optional<Id<Client>> client;
    const char* number;
    const char* type;
    const char* message;
    const char* field;
  };
  const Case cases[] = {
      {"all wrong", {}, "", "", "Please select the billed client.", "client"},
      {"blank number", 1_client, "  ", "", "Please enter the invoice number.", "number"},
      {"number 0", 1_client, "0", "With job", "Please enter the invoice number.", "number"},
      {"letters before digits", 1_client, "A12", "With job", "Please enter the invoice number.",
       "number"},
      {"no type", 1_client, "12", "", "Please select the type of this invoice.", "type"},
      {"old type of statements", 1_client, "12", "Statement",
       "Please select the type of this invoice.", "type"},
  };
  for (const Case& c : cases) {
    InvoiceForm form = NewInvoice(business(), std::nullopt, std::nullopt);
    form.clientId = c.client;
    form.number = c.number;
    form.statementType = c.type;
    const auto refusal = SaveInvoices(business(), form);
    ASSERT_TRUE(refusal) << c.fault;
    EXPECT_EQ(refusal->message, c.message) << c.fault;
    EXPECT_EQ(refusal->field, c.field) << c.fault;
  }
  EXPECT_EQ(Count("Invoices"), 0);
}

TEST_F(InvoiceRecordTest, NumbersAreBurntTypedAndRepeated) {
  NewInvoice(business(), 1_client, std::nullopt);  // and cancelled
  EXPECT_EQ(Count("Invoices"), 0);
  EXPECT_EQ(Number(Sql("SELECT Invoice_Number FROM infSystem")), 1001);
  InvoiceForm first = AddInvoice(1_client);
  EXPECT_EQ(first.number, "1002");
  first.number = "12A";
  InvoiceForm second = AddInvoice(1_client);
  second.number = "12A";
  EXPECT_FALSE(SaveInvoices(business(), first));
  EXPECT_FALSE(SaveInvoices(business(), second));
  EXPECT_EQ(Rows(Sql("SELECT Invoice_Number FROM Invoices")), "12A,12A");
  EXPECT_EQ(LoadInvoiceDetails(business(), *second.invoiceId)->number, "12");
  EXPECT_EQ(Number(Sql("SELECT Invoice_Number FROM infSystem")), 1003);
}

TEST_F(InvoiceRecordTest, WhoPaysIsBilledUnderItsAddress) {
  const Id<Entry> job = AddJob(3, "J", kDay);
  EXPECT_EQ(NewInvoice(business(), 3_client, std::nullopt).clientId, 2_client);
  EXPECT_EQ(NewInvoice(business(), std::nullopt, job).clientId, 2_client);
  EXPECT_FALSE(NewInvoice(business(), std::nullopt, std::nullopt).clientId);
  Run(Sql("UPDATE Clients SET Account_Balance = -55.5 WHERE Client_ID = 1"));
  InvoiceForm form;
  form.madeOutTo = "typed before";
  const auto client = ChooseBilledClient(business(), form, 1_client);
  EXPECT_EQ(form.madeOutTo, "Abbott\n18 High St\nKEW 3101");
  EXPECT_EQ(client->OutstandingWords(), "Current outstanding amount is $55.50");
  EXPECT_EQ(form.options, (InvoiceOptions{false, true, false}));
}

TEST_F(InvoiceRecordTest, ListsWhoIsBilled) {
  AddClient("Aaron", "Cancelled", "Monthly", 4);
  const auto names = [&](BilledClients which) {
    QStringList words;
    for (const lists::Choice<Client>& choice : ListBilledClients(business(), which))
      words += choice.words;
    return words.join(u',');
  };
  EXPECT_EQ(names(BilledClients::Active), "Abbott,Strata");
  EXPECT_EQ(names(BilledClients::All), "Aaron,Abbott,Strata");
  // What a client says of itself is what the list does with it.
  AddClient("Zander", "billing address", "Monthly", 5);
  AddClient("Zoe", "Active", "Monthly", 6);
  Run(Sql("UPDATE Clients SET Is_Billed_To = False WHERE Display_Name = 'Zoe'"));
  const QStringList active = names(BilledClients::Active).split(u',');
  for (const Record client : Run(Sql("SELECT Client_ID, Display_Name FROM Clients"))) {
    const auto billed = LoadBilledClient(business(), Id<Client>(client[size_t{0}].ToLong()));
    ASSERT_TRUE(billed);
    EXPECT_EQ(billed->isListedAsActive, active.contains(billed->displayName))
        << billed->displayName.toStdString();
  }
}

TEST_F(InvoiceRecordTest, OneDateGoesIntoAllThreeAndOptionsToTheClient) {
  InvoiceForm form = NewInvoice(business(), 1_client, std::nullopt);
  form.date = {2026, 9, 1};
  form.madeOutTo = "it's\nmine";
  form.notes = "  note ";
  form.statementType = "Monthly";
  form.isPaid = true;
  form.totalAmount = Money::FromWhole(33);
  form.totalGST = Money::FromWhole(3);
  form.options = {true, false, true};
  EXPECT_FALSE(SaveInvoices(business(), form));
  EXPECT_EQ(Rows(Sql("SELECT From_Date, To_Date, Generation_Date, Invoice_Description, "
                     "Total_Amount, Total_GST, Statement_Type, IsPaid, Done_For, "
                     "Balance_Carried_Across FROM Invoices")),
            "2026-09-01 2026-09-01 2026-09-01 TAX INVOICE 33 3 Monthly True - -");
  EXPECT_EQ(Rows(Sql("SELECT InvoiceWithOutstanding, InvoiceWithNextJob, "
                     "InvoiceWithUnpaidPastJobs FROM Clients WHERE Client_ID = 1")),
            "True False True");
  const auto loaded = LoadInvoiceDetails(business(), *form.invoiceId);
  EXPECT_EQ(loaded->madeOutTo, "it's\nmine");
  EXPECT_EQ(loaded->notes, "note");
  EXPECT_EQ(loaded->statementType, "Monthly");
  EXPECT_TRUE(loaded->isPaid);
  Run(Sql("UPDATE Invoices SET Statement_Type = 'With Job', Generation_Date = NULL"));
  EXPECT_EQ(LoadInvoiceDetails(business(), *form.invoiceId)->statementType, "With job");
  EXPECT_EQ(LoadInvoiceDetails(business(), *form.invoiceId)->date, business().Today());
  EXPECT_FALSE(LoadInvoiceDetails(business(), 99_invoice));
}

TEST_F(InvoiceRecordTest, OnlyTheJobAnInvoiceIsMadeForBecomesInvoiced) {
  const Id<Entry> made = AddJob(1, "JD", kDay);
  const Id<Entry> also = AddJob(1, "J", kDay);
  InvoiceForm form = NewInvoice(business(), 1_client, made);
  EXPECT_EQ(form.totalAmount, Money::FromWhole(110)) << "the job's amounts, before it is attached";
  form.jobsToAttach = {also};
  EXPECT_FALSE(SaveInvoices(business(), form));
  EXPECT_EQ(JobStates(), "JI 1,J 1");
  Run(Sql("UPDATE Diary SET Status = 'JC'"));
  EXPECT_FALSE(SaveInvoices(business(), form));
  EXPECT_EQ(JobStates(), "JC 1,JC 1") << "later saves leave the jobs alone";
}

TEST_F(InvoiceRecordTest, StatusAndInvoiceOfAJobMoveIndependently) {
  struct Case {
    const char* fault;
    std::function<void(InvoiceForm&, Id<Entry>)> act;
    const char* state;
  };
  const Case cases[] = {
      {"removing changed the status",
       [&](InvoiceForm& form, Id<Entry> job) { EXPECT_FALSE(RemoveJob(business(), form, job)); },
       "JI -"},
      {"deleting from the list changed the status",
       [&](InvoiceForm& form, Id<Entry>) {
         outside.prompter.Expect("Are you sure you want to delete ticked invoices ", Answer::Yes);
         DeleteTickedInvoices(business(), outside.prompter, Listed({*form.invoiceId}));
       },
       "JI -"},
      {"deleting from the client left the status",
       [&](InvoiceForm& form, Id<Entry>) {
         outside.prompter.Expect("Are you sure you want to delete this invoice?", Answer::Yes);
         clients::DeleteClientInvoice(business(), outside.prompter, form.invoiceId);
       },
       "JD -"},
  };
  for (const Case& c : cases) {
    const Id<Entry> job = AddJob(1, "JU", kDay);
    InvoiceForm form = NewInvoice(business(), 1_client, job);
    EXPECT_FALSE(SaveInvoices(business(), form));
    EXPECT_EQ(StateOf(job), QStringLiteral("JI %1").arg(form.invoiceId->Number()));
    c.act(form, job);
    EXPECT_EQ(StateOf(job), c.state) << c.fault;
  }
  InvoiceForm form = AddInvoice(1_client);
  EXPECT_EQ(RemoveJob(business(), form, std::nullopt)->message, "Please select a job to remove.");
}

TEST_F(InvoiceRecordTest, AttachingMovesAJobAndLeavesOldTotalsStale) {
  const Id<Entry> job = AddJob(3, "J", kDay);
  InvoiceForm first = NewInvoice(business(), 2_client, std::nullopt);
  first.jobsToAttach = {job};
  AttachedJobs jobs = LoadAttachedJobs(business(), first);
  first.totalAmount = jobs.totalAmount;
  EXPECT_FALSE(SaveInvoices(business(), first));
  const InvoiceForm second = AddInvoice(2_client);
  AttachJobs(business(), *second.invoiceId, {job});
  EXPECT_EQ(StateOf(job), "J 2");
  EXPECT_TRUE(LoadAttachedJobs(business(), first).rows.empty());
  EXPECT_EQ(LoadInvoiceDetails(business(), *first.invoiceId)->totalAmount, Money::FromWhole(110));
  Run(Sql("UPDATE Diary SET Total_Price = 220, Total_GST = NULL"));
  jobs = LoadAttachedJobs(business(), second);
  ASSERT_EQ(jobs.rows.size(), 1U);
  EXPECT_EQ(jobs.rows[0].displayName, "Site");
  EXPECT_EQ(jobs.totalAmount, Money::FromWhole(220)) << "live, not as stored";
  EXPECT_EQ(jobs.totalGST, Money());
}

TEST_F(InvoiceRecordTest, InvoicesMoveNoBalance) {
  Run(Sql("UPDATE Clients SET Account_Balance = -42"));
  const Id<Entry> job = AddJob(1, "JD", kDay);
  InvoiceForm form = NewInvoice(business(), 1_client, job);
  EXPECT_FALSE(SaveInvoices(business(), form));
  EXPECT_FALSE(RemoveJob(business(), form, job));
  DeleteInvoices(business(), {*form.invoiceId});
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-42,-42,-42");
}

TEST_F(InvoiceRecordTest, NotesAreListedOnceAndTheGeneralOneLast) {
  for (const char* note : {"Thanks", "", "Away in May", "Thanks"})
    Run(Sql("INSERT INTO Invoices (Invoice_Notes) VALUES ({})", note));
  Run(Sql("UPDATE infOptions SET Invoice_Notes = 'A general note'"));
  EXPECT_EQ(ListInvoiceNotes(business()).join(u'|'), "Away in May|Thanks|A general note");
  EXPECT_EQ(CheckNoteSelected(false)->message, "Please select a note from the list");
}

struct RateCase {
  const char* fault;
  Value rate;
  const char* lines;
  const char* total;
};

TEST_F(InvoiceRecordTest, TaxOfAnEntryCountsWholePercents) {
  const Id<Entry> job = AddJob(1, "J", kDay, 100, 99);
  const Id<Entry> bare = AddJob(1, "J", kDay, 100, 99);
  for (const double price : {55.0, 44.44})
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 1, {})", job,
            price));
  const RateCase cases[] = {
      {"lines were rounded", 0.1, "5,4.04", "9.04"},
      {"half a percent did not go up", 0.125, "6.3274,5.1126", "11.44"},
      {"a broken percent was used", 0.124, "5.8929,4.7614", "10.65"},
      {"no rate", Value(), "0,0", "0"},
  };
  for (const RateCase& c : cases) {
    Run(Sql("UPDATE infOptions SET GST_Percentage = {}", c.rate));
    roll::RecalculateDiaryEntryGST(business(), job);
    EXPECT_EQ(Rows(Sql("SELECT GST FROM Diary_Services ORDER BY Diary_Service_ID")), c.lines)
        << c.fault;
    EXPECT_EQ(Rows(Sql("SELECT Total_GST FROM Diary WHERE Diary_ID = {}", job)), c.total)
        << c.fault;
  }
  roll::RecalculateDiaryEntryGST(business(), bare);
  EXPECT_EQ(Rows(Sql("SELECT Total_GST FROM Diary WHERE Diary_ID = {}", bare)), "99");
}

TEST_F(InvoiceRecordTest, ListShowsThePeriodAndTheMonthlyOnes) {
  const qint64 bad = AddClient("Gone", "Bad debtor", "Monthly", 4);
  const auto add = [&](qint64 client, const char* type, const DateTime& day, const char* number) {
    Run(
        Sql("INSERT INTO Invoices (Client_ID, Statement_Type, Generation_Date, Invoice_Number) "
            "VALUES ({}, {}, {}, {})",
            client, type, day, number));
  };
  add(1, "With job", QDate(2026, 11, 1), "1");
  add(2, "Monthly", DateTime({2026, 11, 30}, {23, 58}), "2");
  add(1, "Monthly", QDate(2026, 11, 5), "client is not billed by the month");
  add(bad, "Monthly", QDate(2026, 11, 5), "bad debtor");
  add(1, "Statement", QDate(2026, 11, 2), "old statement");
  add(1, "With job", QDate(2026, 12, 1), "next month");
  const auto numbers = [&](bool monthly) {
    QStringList words;
    const auto query = InvoicesOfMonth(business().Today(), monthly);
    for (const InvoiceListRow& row : LoadInvoicesList(business(), query))
      words += row.invoiceNumber;
    return words.join(u',');
  };
  EXPECT_EQ(numbers(false), "2,client is not billed by the month,bad debtor,1");
  EXPECT_EQ(numbers(true), "2");
}

TEST_F(InvoiceRecordTest, TickedInvoicesGoAfterOneQuestion) {
  const InvoiceForm one = AddInvoice(1_client, {AddJob(1, "J", kDay)});
  const InvoiceForm two = AddInvoice(1_client, {AddJob(1, "JI", kDay)});
  const InvoiceForm kept = AddInvoice(1_client, {AddJob(1, "JP", kDay)});
  Run(Sql("INSERT INTO Invoice_Items (Invoice_ID) VALUES ({})", one.invoiceId));
  Run(Sql("INSERT INTO Invoice_Items (Invoice_ID) VALUES ({})", kept.invoiceId));
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("delete ticked invoices \n\n2 invoices, $0.00", answer);
    EXPECT_EQ(DeleteTickedInvoices(business(), outside.prompter,
                                   Listed({*one.invoiceId, *two.invoiceId})),
              answer == Answer::Yes);
    EXPECT_EQ(Count("Invoices"), answer == Answer::Yes ? 1 : 3);
  }
  EXPECT_EQ(Count("Invoice_Items"), 1);
  EXPECT_EQ(JobStates(), "J -,JI -,JP 3");
}

TEST_F(InvoiceRecordTest, PrintingSelectsAnewAndRecomputesWhereAsked) {
  AddJob(1, "JD", kDay);
  outside.headOffice.sessionKey = "S";
  SelectInvoicesToPrint(business(), {7_invoice, 8_invoice});
  SelectInvoicesToPrint(business(), {5_invoice});
  PrepareInvoicePrint(business());
  EXPECT_EQ(Rows(Sql("SELECT Invoice_ID FROM lstInvoicesToPrint")), "5");
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")), "0");
  EXPECT_TRUE(outside.headOffice.activities.isEmpty());
  business().values.recalculateClientAmtsOwingOnPrint = true;
  PrepareInvoicePrint(business());
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")), "-110");
  EXPECT_EQ(
      outside.headOffice.activities,
      QStringList({"cmdPrintInvoice_Click (RecalculateAmountOwingOfAllClients)->09:00:00",
                   "cmdPrintInvoice_Click (RecalculateAmountOwingOfAllClients End)->09:00:00"}));
  SelectInvoicesToPrint(business(), {});
  EXPECT_EQ(Count("lstInvoicesToPrint"), 0);
  EXPECT_EQ(CheckInvoicePrint(0)->message, "Please select jobs to included on the invoice.");
}

TEST_F(InvoiceRecordTest, ReminderIsMovedByTheOwnerAlone) {
  EXPECT_FALSE(LoadMonthlyReminder(business()).stored);
  EXPECT_EQ(LoadMonthlyReminder(business()).proposed, QDate(2026, 12, 2));
  SaveMonthlyReminder(business(), QDate(2026, 12, 24));
  EXPECT_EQ(LoadMonthlyReminder(business()).stored, QDate(2026, 12, 24));
  SaveMonthlyReminder(business(), std::nullopt);
  EXPECT_FALSE(LoadMonthlyReminder(business()).stored);
}

}  // namespace
}  // namespace quillary::billing
