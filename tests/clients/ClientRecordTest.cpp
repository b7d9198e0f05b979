#include "clients/BillingChoice.h"
#include "clients/ClientChoices.h"
#include "clients/ClientColumns.h"
#include "clients/ClientCommands.h"
#include "clients/ClientJobs.h"
#include "clients/ClientMoney.h"
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
      if (column.IsYesNo()) client.*std::get<bool ClientRecord::*>(column.member) = (yes = !yes);
    }
  }
  client.status = ClientStatus::BadDebtor;
  client.statementType = StatementType::Monthly;
  client.suburb = " kew ";
  client.debtorSince = Day("2026-09-01");
  ASSERT_FALSE(SaveClientDetails(business(), client, NewClientRecord()));
  EXPECT_EQ(client.suburb, "KEW");
  EXPECT_EQ(client.Payer(), client.clientId) << "a new client pays for itself";
  EXPECT_EQ(LoadClientDetails(business(), *client.clientId), client);

  const ClientRecord loaded = client;
  client.otherPayer = AddClient("Payer").clientId;
  client.phone1.clear();
  client.debtorSince.reset();
  ASSERT_FALSE(SaveClientDetails(business(), client, loaded));
  EXPECT_EQ(LoadClientDetails(business(), *client.clientId), client);
  EXPECT_EQ(Rows(Sql("SELECT Is_Billed_To, Phone_1, Debtor_Since FROM Clients WHERE Client_ID = {}",
                     client.clientId)),
            "False - -");
  EXPECT_EQ(LoadClientDetails(business(), 99_client), std::nullopt);
}

TEST_F(ClientsTest, ARecordThatIsNotCompleteIsNotSaved) {
  ClientRecord good = NewClientRecord();
  good.displayName = "Smith";
  good.status = ClientStatus::Active;
  const struct {
    const char* fault;
    std::function<void(ClientRecord&)> spoil;
    const char* message;
    const char* field;
  } cases[] = {
      {"client without status", [](ClientRecord& client) { client.status = {}; },
       "Please select a client status.", "status"},
      {"prospect made a client by saving",
       [](ClientRecord& client) { client.status = ClientStatus::QuoteOnly; },
       "Please select a client status.", "status"},
      {"client without a name in any list", [](ClientRecord& client) { client.displayName = " "; },
       "Please enter the Billing name/Display name.", "displayName"},
      {"client who gets no bill of any kind",
       [](ClientRecord& client) { client.statementType = {}; }, "Please select the invoicing type.",
       "statementType"},
  };
  for (const auto& [fault, spoil, message, field] : cases) {
    ClientRecord client = good;
    spoil(client);
    const auto refusal = SaveClientDetails(business(), client, NewClientRecord());
    ASSERT_TRUE(refusal) << fault;
    EXPECT_EQ(refusal->message, message) << fault;
    EXPECT_EQ(refusal->field, field) << fault;
    EXPECT_TRUE(client.IsNew()) << fault;
  }
  ClientRecord empty;
  EXPECT_EQ(SaveClientDetails(business(), empty, {})->field, "status") << "the first check wins";
  EXPECT_EQ(Count("Clients"), 0);
}

TEST_F(ClientsTest, CancellingTakesOpenJobsAlone) {
  ClientRecord client = AddClient("Smith");
  for (const char* status : {"J", "JD", "JI", "V", "Q"}) {
    AddJob(client.clientId, status, "2026-12-01");
  }
  AddJob(AddClient("Jones").clientId, "J", "2026-12-01");
  client.status = ClientStatus::Transferred;
  ASSERT_FALSE(SaveClientDetails(business(), client, *LoadClientDetails(business(), 1_client)));
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Diary ORDER BY Diary_ID")), "J,JD,JI,V,Q,J");
  client.status = StoredClientStatus("cancelled");
  ASSERT_FALSE(SaveClientDetails(business(), client, *LoadClientDetails(business(), 1_client)));
  EXPECT_EQ(client.status.Text(), "Cancelled") << "a word typed in other letters is the list's";
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Diary ORDER BY Diary_ID")), "JC,JD,JI,V,Q,J");
}

TEST_F(ClientsTest, AnOldRowWithoutBillingClientPaysForItself) {
  Run(Sql("INSERT INTO Clients (Display_Name, Debtor_Since) VALUES ('Old', {})",
          Day("1899-12-30")));
  const auto client = LoadClientDetails(business(), 1_client);
  ASSERT_TRUE(client);
  EXPECT_TRUE(client->IsBilledTo());
  EXPECT_FALSE(client->debtorSince) << "midnight is no date";
}

TEST_F(ClientsTest, SavingRecomputesWhoIsBilled) {
  const ClientRecord payer = AddClient("Payer");
  const ClientRecord site = AddClient("Site", "Active", payer.clientId);
  AddJob(site.clientId, "JD", "2026-10-01");
  ClientEdit edit = *LoadClientEdit(business(), *site.clientId);
  ASSERT_FALSE(SaveClient(business(), edit));
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-10,-");
  ClientRecord shown = *LoadClientDetails(business(), *payer.clientId);
  EXPECT_EQ(shown.CurrentlyOwing().ToText(), "10");
  EXPECT_EQ(shown.debtorSince, Day("2026-11-02"));
}

TEST_F(ClientsTest, ChoosingWhoPays) {
  const ClientRecord payer = AddClient("Payer");
  ClientRecord client = AddClient("Smith");
  BillExistingAddress(business(), outside.prompter, client, *payer.clientId);
  EXPECT_EQ(BillingChoiceOf(client), BillingChoice::ExistingAddress);
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
  ASSERT_FALSE(
      SaveClientDetails(business(), client, *LoadClientDetails(business(), *client.clientId)));
  const ClientParts parts = PartsOf(client);
  EXPECT_TRUE(parts.paymentNote && !parts.invoicesAndPayments && parts.schedule);

  TakeNewBillingAddress(business(), outside.prompter, client, std::nullopt);
  EXPECT_EQ(BillingChoiceOf(client), BillingChoice::SameAddress);
  EXPECT_TRUE(PartsOf(client).invoicesAndPayments);

  Pay(client.clientId, 10);
  TakeNewBillingAddress(business(), outside.prompter, client, payer.clientId);
  EXPECT_EQ(client.Payer(), payer.clientId);
  EXPECT_TRUE(outside.prompter.TakeTold().join(QString()).contains("manually transfer"));
  client.status = ClientStatus::BillingAddress;
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
  address.statementType = StatementType::Monthly;
  address.suburb = "kew";
  ASSERT_FALSE(SaveBillingAddress(business(), address));
  EXPECT_EQ(Rows(Sql("SELECT Status, Billing_Client_ID, Is_Billed_To FROM Clients "
                     "WHERE Client_ID = {}",
                     *address.clientId)),
            QStringLiteral("Billing address %1 True").arg(address.clientId->Number()));
  const auto others = ListBillableOthers(business(), *client.clientId);
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
  const Id<Entry> own = AddJob(payer.clientId, "J", "2026-11-20");
  const auto shown = [](const std::vector<ClientJob>& list) {
    QStringList ids;
    for (const ClientJob& job : list) {
      ids += QStringLiteral("%1%2").arg(job.displayName.left(1)).arg(job.entry.Number());
    }
    return ids.join(u' ');
  };
  EXPECT_EQ(shown(LoadFutureJobs(business(), payer)),
            QStringLiteral("S1 S6 P%1").arg(own.Number()));
  EXPECT_EQ(shown(LoadPastJobs(business(), payer)), "S3 S2 S5");
  EXPECT_EQ(shown(LoadFutureJobs(business(), site)), "N1 N6") << "named Name when billed elsewhere";
  EXPECT_EQ(WordsOf(LoadPastJobs(business(), site)[0].status), "Job DONE");
}

TEST_F(ClientsTest, DeletingAJobTakesItsLinesAndItsPrice) {
  const ClientRecord payer = AddClient("Payer");
  const ClientRecord site = AddClient("Site", "Active", payer.clientId);
  AddJob(site.clientId, "JD", "2026-10-01", 10);
  const Id<Entry> wrong = AddJob(site.clientId, "JD", "2026-10-08", 30);
  EXPECT_EQ(DeleteClientJob(business(), outside.prompter, std::nullopt)->message,
            "Please select a job to delete.");
  outside.prompter.Expect("delete this job", Answer::No);
  EXPECT_FALSE(DeleteClientJob(business(), outside.prompter, wrong));
  EXPECT_EQ(Count("Diary"), 2);
  outside.prompter.Expect("delete this job", Answer::Yes);
  EXPECT_FALSE(DeleteClientJob(business(), outside.prompter, wrong));
  EXPECT_EQ(Count("Diary_Services"), 1);
  EXPECT_EQ(LoadClientDetails(business(), *payer.clientId)->accountBalance.ToText(), "-10");
}

TEST_F(ClientsTest, TransferredPaymentsMoveBothBalances) {
  const ClientRecord from = AddClient("From");
  const ClientRecord to = AddClient("To's");
  Pay(from.clientId, 10);
  Pay(to.clientId, 5);
  const auto payments = LoadClientPayments(business(), *from.clientId);
  EXPECT_EQ(TransferPayments(business(), outside.prompter, *from.clientId, payments, std::nullopt)
                ->message,
            "Please select a client first.");
  outside.prompter.Expect("the payments listed above to To's?\n\n1 payment, $10.00", Answer::Yes);
  EXPECT_FALSE(
      TransferPayments(business(), outside.prompter, *from.clientId, payments, to.clientId));
  EXPECT_EQ(LoadClientPayments(business(), *to.clientId).size(), 2u);
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "0,15");
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
  EXPECT_FALSE(DeleteClientInvoice(business(), outside.prompter, 1_invoice));
  EXPECT_EQ(Rows(Sql("SELECT Status, Invoice_ID FROM Diary")), "JD -");
  EXPECT_EQ(Count("Invoices") + Count("Invoice_Items"), 0);
  EXPECT_EQ(Rows(Sql("SELECT Account_Balance FROM Clients")), "-10")
      << "its job counts as done now";
}

TEST_F(ClientsTest, ColumnsAreSetByNameWithinTheirWidth) {
  ClientRecord client = AddClient("Smith");
  const ClientRecord strata = AddClient("Strata");
  const QString payer = QString::number(strata.clientId->Number());
  const QString site =
      QString::number(AddClient("Site", "Active", strata.clientId).clientId->Number());
  struct {
    const char* column;
    QString value;
    const char* field;  // of the refusal; null when it is taken
  } const cases[] = {
      {"phone_1", "9876 5432", nullptr},
      {"InvoiceWithTelNo", "Yes", nullptr},
      {"InvoiceWithTelNo", "maybe", "invoiceWithTelNo"},
      {"Display_Name", QString(101, u'x'), "displayName"},
      {"Notes", QString(5000, u'x'), nullptr},
      {"Account_Balance", "0", ""},
      {"Status", "aCTIVE", nullptr},
      {"debtor_since", "3/10/2026", nullptr},
      {"Debtor_Since", "31/2/2026", "debtorSince"},
      {"Billing_Client_ID", payer, nullptr},
      {"Billing_Client_ID", site, "payer"},
      {"Billing_Client_ID", "99", "payer"},
      {"Billing_Client_ID", "Strata", "payer"},
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
  EXPECT_EQ(client.otherPayer, strata.clientId);
  EXPECT_FALSE(SetClientColumn(business(), client, "Billing_Client_ID",
                               QString::number(client.clientId->Number())));
  EXPECT_TRUE(client.IsBilledTo()) << "the own key bills the client itself";
  EXPECT_FALSE(SetClientColumn(business(), client, "Debtor_Since", ""));
  EXPECT_FALSE(client.debtorSince);
  EXPECT_FALSE(
      SaveClientDetails(business(), client, *LoadClientDetails(business(), *client.clientId)));
  EXPECT_EQ(Rows(Sql("SELECT Status FROM Clients WHERE Client_ID = {}", client.clientId)), "Active")
      << "in the spelling of the list";
  EXPECT_EQ(ColumnWidth(business(), "clients", "display_name"), 100);
  EXPECT_EQ(ColumnWidth(business(), "Clients", "Notes"), std::nullopt);
}

TEST_F(ClientsTest, NothingIsSavedForAClientThatIsGone) {
  const ClientRecord client = AddClient("Smith");
  ClientEdit edit = *LoadClientEdit(business(), *client.clientId);
  edit.services = ClientServiceArray(2);
  edit.services.front().serviceId = 1_service;
  ClientServiceForm form = ClearedServiceForm(business());
  form.serviceId = 1_service;
  form.jobType = JobType::Casual;
  Run(Sql("DELETE FROM Clients"));
  const std::pair<const char*, std::function<std::optional<Refusal>()>> saves[] = {
      {"the record",
       [&] {
         ClientRecord record = client;
         return SaveClientDetails(business(), record, client);
       }},
      {"all", [&] { return SaveClient(business(), edit); }},
      {"the schedule", [&] { return CreateScheduleOfClient(business(), edit); }},
      {"a service",
       [&] {
         return SaveServiceAndAsk(business(), outside.prompter, edit, form, SaveServiceAs::New, 0)
             .refusal;
       }},
      {"an empty service", [&] { return AddService(business(), edit); }},
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
  ClientEdit edit = *LoadClientEdit(business(), *AddClient("Smith").clientId);
  EXPECT_TRUE(SaveBeforeAddingJob(business(), outside.prompter, edit).yes);
  edit.client.displayName.clear();
  outside.prompter.Expect("Personal information has changed.", Answer::No);
  EXPECT_FALSE(SaveBeforeAddingJob(business(), outside.prompter, edit).yes);
  outside.prompter.Expect("Personal information has changed.", Answer::Yes);
  const MayGoOn refused = SaveBeforeAddingJob(business(), outside.prompter, edit);
  EXPECT_FALSE(refused.yes);
  EXPECT_EQ(refused.refusal->field, "displayName");
}

}  // namespace
}  // namespace quillary::clients
