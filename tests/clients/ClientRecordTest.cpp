#include "balances/ClientBalance.h"
#include "clients/BillingChoice.h"
#include "clients/ClientChoices.h"
#include "clients/ClientColumns.h"
#include "clients/ClientCommands.h"
#include "clients/ClientJobs.h"
#include "clients/ClientMoney.h"
#include "clients/ClientStatus.h"
#include "clients/ClientsTest.h"
#include "clients/NewBillingAddress.h"

namespace quillary::clients {
namespace {

TEST_F(ClientsTest, EveryFieldSurvivesSaveAndLoad) {
  ClientRecord client = NewClientRecord();
  bool yes = false;
  for (const ClientColumn& column : ClientColumns()) {
    if (const auto* text = std::get_if<QString ClientRecord::*>(&column.member)) {
      client.*(*text) = QStringLiteral("O'%1").arg(QString(column.column));
    } else {
      client.*std::get<bool ClientRecord::*>(column.member) = (yes = !yes);
    }
  }
  client.status = "Bad debtor";
  client.statementType = "Monthly";
  client.suburb = " kew ";
  client.debtorSince = Day("2026-09-01");
  ASSERT_FALSE(SaveClientDetails(business(), client));
  EXPECT_EQ(client.suburb, "KEW");
  EXPECT_EQ(client.billingClientId, client.clientId) << "a new client pays for itself";
  EXPECT_EQ(LoadClientDetails(business(), client.clientId), client);

  client.billingClientId = AddClient("Payer").clientId;
  client.phone1.clear();
  client.debtorSince.reset();
  ASSERT_FALSE(SaveClientDetails(business(), client));
  EXPECT_EQ(LoadClientDetails(business(), client.clientId), client);
  EXPECT_EQ(Rows(Sql("SELECT Is_Billed_To, Phone_1, Debtor_Since FROM Clients WHERE Client_ID = {}",
                     client.clientId)),
            "False - -");
  EXPECT_EQ(LoadClientDetails(business(), 99), std::nullopt);
}

TEST_F(ClientsTest, ARecordThatIsNotCompleteIsNotSaved) {
  ClientRecord good = NewClientRecord();
  good.displayName = "Smith";
  good.status = "Active";
  struct {
    const char* fault;
    QString ClientRecord::*member;
    const char* value;
    const char* message;
    const char* field;
  } const cases[] = {
      {"client without status", &ClientRecord::status, "", "Please select a client status.",
       "cmbStatus"},
      {"prospect made a client by saving", &ClientRecord::status, "Quote only",
       "Please select a client status.", "cmbStatus"},
      {"client without a name in any list", &ClientRecord::displayName, " ",
       "Please enter the Billing name/Display name.", "txtDisplayName"},
      {"client who gets no bill of any kind", &ClientRecord::statementType, "",
       "Please select the invoicing type.", "cmbInvoiceType"},
  };
  for (const auto& [fault, member, value, message, field] : cases) {
    ClientRecord client = good;
    client.*member = value;
    const auto refusal = SaveClientDetails(business(), client);
    ASSERT_TRUE(refusal) << fault;
    EXPECT_EQ(refusal->message, message) << fault;
    EXPECT_EQ(refusal->field, field) << fault;
    EXPECT_TRUE(client.IsNew()) << fault;
  }
  ClientRecord empty;
  EXPECT_EQ(SaveClientDetails(business(), empty)->field, "cmbStatus") << "the first check wins";
  EXPECT_EQ(Count("Clients"), 0);
}

TEST_F(ClientsTest, CancellingTakesOpenJobsAlone) {
  ClientRecord client = AddClient("Smith");
  for (const char* status : {"J", "JD", "JI", "V", "Q"}) {
    AddJob(client.clientId, status, "2026-12-01");
  }
  AddJob(AddClient("Jones").clientId, "J", "2026-12-01");
  client.status = "Transferred";
  ASSERT_FALSE(SaveClientDetails(business(), client));
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Diary ORDER BY Diary_ID")), "J,JD,JI,V,Q,J");
  client.status = "cancelled";
  ASSERT_FALSE(SaveClientDetails(business(), client));
  EXPECT_EQ(client.status, "Cancelled") << "a word typed in other letters is the list's";
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Diary ORDER BY Diary_ID")), "JC,JD,JI,V,Q,J");
}

TEST_F(ClientsTest, AnOldRowWithoutBillingClientPaysForItself) {
  Run(Sql("INSERT INTO Clients (Display_Name, Debtor_Since) VALUES ('Old', {})",
          Day("1899-12-30")));
  const auto client = LoadClientDetails(business(), 1);
  ASSERT_TRUE(client);
  EXPECT_TRUE(client->IsBilledTo());
  EXPECT_FALSE(client->debtorSince) << "midnight is no date";
}

TEST_F(ClientsTest, SavingRecomputesWhoIsBilled) {
  const ClientRecord payer = AddClient("Payer");
  ClientRecord site = AddClient("Site", "Active", payer.clientId);
  AddJob(site.clientId, "JD", "2026-10-01");
  ClientServiceArray services = LoadClientServicesIntoArray(business(), site.clientId);
  ASSERT_FALSE(SaveClient(business(), site, services));
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-10,-");
  ClientRecord shown = *LoadClientDetails(business(), payer.clientId);
  EXPECT_EQ(shown.CurrentlyOwing().ToText(), "10");
  EXPECT_EQ(shown.debtorSince, Day("2026-11-02"));
}

TEST_F(ClientsTest, ChoosingWhoPays) {
  const ClientRecord payer = AddClient("Payer");
  ClientRecord client = AddClient("Smith");
  BillExistingAddress(business(), outside.prompter, client, payer.clientId);
  EXPECT_EQ(BillingChoiceOf(client), BillingChoice::ExistingAddress);
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
  ASSERT_FALSE(SaveClientDetails(business(), client));
  const ClientParts parts = PartsOf(client);
  EXPECT_TRUE(parts.paymentNote && !parts.invoicesAndPayments && parts.schedule);

  TakeNewBillingAddress(business(), outside.prompter, client, std::nullopt);
  EXPECT_EQ(BillingChoiceOf(client), BillingChoice::SameAddress);
  EXPECT_TRUE(PartsOf(client).invoicesAndPayments);

  Pay(client.clientId, 10);
  TakeNewBillingAddress(business(), outside.prompter, client, payer.clientId);
  EXPECT_EQ(client.billingClientId, payer.clientId);
  EXPECT_TRUE(outside.prompter.TakeTold().join(QString()).contains("manually transfer"));
  client.status = "Billing address";
  EXPECT_FALSE(PartsOf(client).schedule);
  EXPECT_TRUE(PartsOf(client).invoicesAndPayments) << "only an active client loses them";
}

TEST_F(ClientsTest, ANewBillingAddressBillsItselfAndCanBeChosen) {
  const ClientRecord client = AddClient("Smith");
  BillingAddress address;
  EXPECT_EQ(SaveBillingAddress(business(), address)->message, "Please enter the billing name.");
  address.billingName = "Head & Co's";
  EXPECT_EQ(SaveBillingAddress(business(), address)->message, "Please select the statement type.");
  EXPECT_EQ(Count("Clients"), 1);
  address.statementType = "Monthly";
  address.suburb = "kew";
  ASSERT_FALSE(SaveBillingAddress(business(), address));
  EXPECT_EQ(Rows(Sql("SELECT Status, Billing_Client_ID, Is_Billed_To FROM Clients "
                     "WHERE Client_ID = {}",
                     *address.clientId)),
            QStringLiteral("Billing address %1 True").arg(*address.clientId));
  const auto others = ListBillableOthers(business(), client.clientId);
  ASSERT_EQ(others.size(), 1u);
  EXPECT_EQ(others[0].words, "Head & Co's");

  address.phone1 = "9876 5432";
  ASSERT_FALSE(SaveBillingAddress(business(), address));
  EXPECT_EQ(LoadBillingAddress(business(), *address.clientId), address);
  EXPECT_EQ(Count("Clients"), 2);
}

TEST_F(ClientsTest, BillingNamesFollowTheUsersOrder) {
  EXPECT_EQ(UpdateBillingName(business(), "Ann", "Lee"), "Ann Lee");
  EXPECT_EQ(UpdateBillingName(business(), "Acme Ltd", ""), "Acme Ltd");
  outside.settings.Write("Display Format", "Billing Name Format", "SF");
  EXPECT_EQ(UpdateBillingName(business(), "Ann", "Lee"), "Lee Ann");

  ClientRecord client;
  client.displayName = "Lee %2";
  client.streetNumber = "1A";
  client.street = "High St";
  client.suburb = "KEW";
  client.postCode = "3101";
  EXPECT_EQ(SampleBillingAddress(client), "Lee %2\n1A High St\nKEW 3101");
}

TEST_F(ClientsTest, SuburbsBringTheirPostCode) {
  for (const auto& [suburb, postCode] : {std::pair{"KEW", ""},
                                         {"KEW", "3101"},
                                         {"kew", "3101"},
                                         {"RICHMOND", "3121"},
                                         {"", "3101"}}) {
    Run(Sql("INSERT INTO Clients (Suburb, Post_Code, WorkCoverLabel) VALUES ({}, {}, {})", suburb,
            postCode, suburb));
  }
  const SuburbChoices choices = ListSuburbChoices(business());
  EXPECT_EQ(choices.suburbs.join(u','), "KEW,RICHMOND");
  EXPECT_EQ(choices.postCodes.size(), 2);
  EXPECT_EQ(choices.PostCodeOf(" kew "), "3101");
  EXPECT_EQ(choices.PostCodeOf("Nowhere"), "");
  EXPECT_FALSE(ListWorkCoverLabels(business()).contains(QString()));
}

TEST_F(ClientsTest, JobsAreFutureOrPastByDayOrByBeingDone) {
  const ClientRecord payer = AddClient("Payer");
  const ClientRecord site = AddClient("Site", "Active", payer.clientId);
  struct {
    const char* status;
    const char* day;
  } const jobs[] = {{"J", "2026-11-02"},  {"J", "2026-11-01"},  {"JD", "2026-11-09"},
                    {"JC", "2026-11-09"}, {"JC", "2026-10-01"}, {"V", "2026-11-03"},
                    {"VD", "2026-11-03"}};
  for (const auto& [status, day] : jobs) AddJob(site.clientId, status, day);
  const qint64 own = AddJob(payer.clientId, "J", "2026-11-20");
  const auto shown = [](const std::vector<ClientJob>& list) {
    QStringList ids;
    for (const ClientJob& job : list) {
      ids += QStringLiteral("%1%2").arg(job.displayName.left(1)).arg(job.diaryId);
    }
    return ids.join(u' ');
  };
  EXPECT_EQ(shown(LoadFutureJobs(business(), payer)), QStringLiteral("S1 S6 P%1").arg(own));
  EXPECT_EQ(shown(LoadPastJobs(business(), payer)), "S3 S2 S5");
  EXPECT_EQ(shown(LoadFutureJobs(business(), site)), "N1 N6") << "named Name when billed elsewhere";
  EXPECT_EQ(WordsOf(LoadPastJobs(business(), site)[0].status), "Job DONE");
}

TEST_F(ClientsTest, DeletingAJobTakesItsLinesAndItsPrice) {
  const ClientRecord payer = AddClient("Payer");
  const ClientRecord site = AddClient("Site", "Active", payer.clientId);
  AddJob(site.clientId, "JD", "2026-10-01", 10);
  const qint64 wrong = AddJob(site.clientId, "JD", "2026-10-08", 30);
  EXPECT_EQ(DeleteClientJob(business(), outside.prompter, std::nullopt)->message,
            "Please select a job to delete.");
  outside.prompter.Expect("delete this job", Answer::No);
  EXPECT_FALSE(DeleteClientJob(business(), outside.prompter, Id<Entry>(wrong)));
  EXPECT_EQ(Count("Diary"), 2);
  outside.prompter.Expect("delete this job", Answer::Yes);
  EXPECT_FALSE(DeleteClientJob(business(), outside.prompter, Id<Entry>(wrong)));
  EXPECT_EQ(Count("Diary_Services"), 1);
  EXPECT_EQ(LoadClientDetails(business(), payer.clientId)->accountBalance.ToText(), "-10");
}

TEST_F(ClientsTest, TransferredPaymentsLeaveBalancesToTheNextRecalculation) {
  const ClientRecord from = AddClient("From");
  const ClientRecord to = AddClient("To's");
  Pay(from.clientId, 10);
  Pay(to.clientId, 5);
  const std::vector<qint64> payments = {
      LoadClientPayments(business(), from.clientId).front().paymentId};
  EXPECT_EQ(TransferPayments(business(), outside.prompter, payments, std::nullopt)->message,
            "Please select a client first.");
  outside.prompter.Expect("the payments listed above to To's?", Answer::Yes);
  EXPECT_FALSE(TransferPayments(business(), outside.prompter, payments, to.clientId));
  EXPECT_EQ(LoadClientPayments(business(), to.clientId).size(), 2u);
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-,-");
}

TEST_F(ClientsTest, AnInvoiceDeletedHereLeavesItsJobsDone) {
  const ClientRecord client = AddClient("Smith");
  AddJob(client.clientId, "J", "2026-10-01");
  Run(Sql("INSERT INTO Invoices (Client_ID) VALUES ({})", client.clientId));
  Run(Sql("INSERT INTO Invoice_Items (Invoice_ID) VALUES (1)"));
  Run(Sql("UPDATE Diary SET Invoice_ID = 1"));
  EXPECT_EQ(DeleteClientInvoice(business(), outside.prompter, std::nullopt)->message,
            "Please select an invoice record to delete.");
  outside.prompter.Expect("delete this invoice?", Answer::Yes);
  EXPECT_FALSE(DeleteClientInvoice(business(), outside.prompter, 1));
  EXPECT_EQ(Rows(Sql("SELECT Status, Invoice_ID FROM Diary")), "JD -");
  EXPECT_EQ(Count("Invoices") + Count("Invoice_Items"), 0);
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-") << "no invoice moves a balance";
}

TEST_F(ClientsTest, ColumnsAreSetByNameWithinTheirWidth) {
  ClientRecord client = AddClient("Smith");
  const QString payer = QString::number(AddClient("Strata").clientId);
  const ClientRecord billedElsewhere = AddClient("Site", "Active", payer.toLongLong());
  const QString site = QString::number(billedElsewhere.clientId);
  struct {
    const char* column;
    QString value;
    const char* field;  // of the refusal; null when it is taken
  } const cases[] = {
      {"phone_1", "9876 5432", nullptr},
      {"InvoiceWithTelNo", "Yes", nullptr},
      {"InvoiceWithTelNo", "maybe", "chkInvoiceWithTelNo"},
      {"Display_Name", QString(101, u'x'), "txtDisplayName"},
      {"Notes", QString(5000, u'x'), nullptr},
      {"Account_Balance", "0", ""},
      {"Status", "aCTIVE", nullptr},
      {"debtor_since", "3/10/2026", nullptr},
      {"Debtor_Since", "31/2/2026", "dtDebtorSince"},
      {"Billing_Client_ID", payer, nullptr},
      {"Billing_Client_ID", site, "cmbOtherAddressToBill"},
      {"Billing_Client_ID", "99", "cmbOtherAddressToBill"},
      {"Billing_Client_ID", "Strata", "cmbOtherAddressToBill"},
      {"Client_ID", "7", ""},
  };
  for (const auto& [column, value, field] : cases) {
    const auto refusal = SetClientColumn(business(), client, column, value);
    EXPECT_EQ(refusal.has_value(), field != nullptr) << column;
    EXPECT_EQ(refusal.value_or(Refusal{}).field, QString(field ? field : "")) << column;
  }
  EXPECT_EQ(client.phone1, "9876 5432");
  EXPECT_TRUE(client.invoiceWithTelNo);
  EXPECT_EQ(client.displayName, "Smith");
  EXPECT_EQ(client.debtorSince, QDate(2026, 10, 3));
  EXPECT_EQ(client.billingClientId, payer.toLongLong());
  EXPECT_FALSE(
      SetClientColumn(business(), client, "Billing_Client_ID", QString::number(client.clientId)));
  EXPECT_TRUE(client.IsBilledTo()) << "the own key bills the client itself";
  EXPECT_FALSE(SetClientColumn(business(), client, "Debtor_Since", ""));
  EXPECT_FALSE(client.debtorSince);
  EXPECT_FALSE(SaveClientDetails(business(), client));
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Clients WHERE Client_ID = {}", client.clientId)), "Active")
      << "in the spelling of the list";
  EXPECT_EQ(ColumnWidth(business(), "clients", "display_name"), 100);
  EXPECT_EQ(ColumnWidth(business(), "Clients", "Notes"), std::nullopt);
}

TEST_F(ClientsTest, NothingIsSavedForAClientThatIsGone) {
  ClientRecord client = AddClient("Smith");
  ClientServiceArray services(2);
  services.front().serviceId = 1;
  ClientServiceForm form = ClearedServiceForm(business());
  form.serviceId = 1;
  form.jobType = "Casual";
  Run(Sql("DELETE FROM Clients"));
  const std::pair<const char*, std::function<std::optional<Refusal>()>> saves[] = {
      {"the record", [&] { return SaveClientDetails(business(), client); }},
      {"all", [&] { return SaveClient(business(), client, services); }},
      {"the schedule", [&] { return CreateScheduleOfClient(business(), client, services); }},
      {"a service",
       [&] {
         return SaveClientServiceToDB(business(), client.clientId, services, form,
                                      SaveServiceAs::New);
       }},
      {"an empty service",
       [&] { return AddEmptyClientService(business(), client.clientId, services); }},
  };
  for (const auto& [what, save] : saves) {
    const auto refusal = save();
    ASSERT_TRUE(refusal) << what;
    EXPECT_EQ(refusal->message, "This client was deleted in the meantime. Nothing was saved.")
        << what;
  }
  EXPECT_EQ(Count("Clients") + Count("Client_Services") + Count("Diary"), 0);
}

TEST_F(ClientsTest, AJobIsAddedToASavedRecordOnly) {
  const ClientRecord stored = AddClient("Smith");
  ClientRecord client = stored;
  EXPECT_TRUE(SaveBeforeAddingJob(business(), outside.prompter, client, stored).yes);
  client.displayName.clear();
  outside.prompter.Expect("Personal information has changed.", Answer::No);
  EXPECT_FALSE(SaveBeforeAddingJob(business(), outside.prompter, client, stored).yes);
  outside.prompter.Expect("Personal information has changed.", Answer::Yes);
  const MayGoOn refused = SaveBeforeAddingJob(business(), outside.prompter, client, stored);
  EXPECT_FALSE(refused.yes);
  EXPECT_EQ(refused.refusal->field, "txtDisplayName");
}

}  // namespace
}  // namespace quillary::clients
