#include "clients/ClientCommands.h"
#include "clients/ClientServices.h"
#include "clients/ClientsTest.h"

#include <functional>

namespace quillary::clients {
namespace {

class ClientServicesTest : public ClientsTest {
 protected:
  void SetUp() override {
    ClientsTest::SetUp();
    client = AddClient("Smith");
    business().holidays.insert(business().holidays.begin(), {"25/12", 0, true, "Christmas"});
  }

  /// The fields of a weekly mowing from 9 November by Ann.
  static ClientServiceForm Mowing() {
    ClientServiceForm form;
    form.serviceId = 1;
    form.jobType = "Regular";
    form.nextVisit = Day("2026-11-09");
    form.frequency = "7";
    form.employeeId = 1;
    form.price = "$55.00";
    return form;
  }
  void Store(ClientServiceForm form) {
    EXPECT_FALSE(
        SaveClientServiceToDB(business(), client.clientId, Load(), form, SaveServiceAs::New));
  }
  ClientServiceArray Load() { return LoadClientServicesIntoArray(business(), client.clientId); }
  QString Stored() {
    return Rows(
        Sql("SELECT Service_ID, Price, Status, Frequency, Next_Visit, "
            "Other_Schedule_Client_Service_ID FROM Client_Services "
            "ORDER BY Client_Service_ID"));
  }

  ClientRecord client;
};

TEST_F(ClientServicesTest, EachFieldIsCheckedInTurn) {
  using Form = ClientServiceForm;
  struct {
    const char* fault;
    std::function<void(Form&)> spoil;
    const char* message;  // its beginning; null when it is taken
    const char* field;
  } const cases[] = {
      {"today is refused", [](Form& form) { form.nextVisit = Day("2026-11-02"); }, nullptr, ""},
      {"visit of no service", [](Form& form) { form = Form(); }, "Please select a service first.",
       "cmbService"},
      {"service that the roll passes over", [](Form& form) { form.jobType.clear(); },
       "Please select the job type.", "cmbJobType"},
      {"text taken for a date", [](Form& form) { form.nextVisit.reset(); },
       "Please enter a valid date.", "dtpServiceNextVisit"},
      {"visit on a holiday", [](Form& form) { form.nextVisit = Day("2026-12-25"); },
       "This date is a holiday. No job will be scheduled on this date.", "dtpServiceNextVisit"},
      {"past holiday told as past", [](Form& form) { form.nextVisit = Day("2025-12-25"); },
       "This date is a holiday.", "dtpServiceNextVisit"},
      {"visit yesterday", [](Form& form) { form.nextVisit = Day("2026-11-01"); },
       "Start date should be the same or later than the date today.\nIf this is a Regular job",
       "dtpServiceNextVisit"},
      {"regular service that never repeats", [](Form& form) { form.frequency = "0"; },
       "Please enter a valid frequency value (in no. of days).", "cmbFrequency"},
      {"words after the number are refused", [](Form& form) { form.frequency = "14 days"; },
       nullptr, ""},
      {"casual service needs a frequency",
       [](Form& form) {
         form.jobType = "Casual";
         form.frequency = "0";
       },
       nullptr, ""},
      {"job of nobody", [](Form& form) { form.employeeId.reset(); }, "Please select an employee.",
       "cmbEmployee"},
      {"price that is no number", [](Form& form) { form.price = "free"; },
       "Please enter a valid price.", "txtPrice"},
  };
  for (const auto& [fault, spoil, message, field] : cases) {
    Form form = Mowing();
    spoil(form);
    const auto refusal = CheckClientService(business(), form);
    ASSERT_EQ(refusal.has_value(), message != nullptr) << fault;
    if (!refusal) continue;
    EXPECT_TRUE(refusal->message.startsWith(message)) << fault;
    EXPECT_EQ(refusal->field, field) << fault;
    EXPECT_TRUE(
        SaveClientServiceToDB(business(), client.clientId, Load(), form, SaveServiceAs::New))
        << fault;
  }
  EXPECT_EQ(Count("Client_Services"), 0);
}

TEST(ClientServiceFrequency, IsCheckedWhenItsFieldIsLeft) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "Please enter or select a valid frequency."},
      {"0", "Please enter a value between 1 - 365."},
      {"366", "Please enter a value between 1 - 365."},
      {"often", "Please enter a value between 1 - 365."},
      {"-7", "Please enter a value between 1 - 365."},
  };
  for (const auto& [typed, message] : cases) {
    EXPECT_EQ(CheckServiceFrequency(typed)->message, message) << typed;
  }
  EXPECT_FALSE(CheckServiceFrequency("1"));
  EXPECT_FALSE(CheckServiceFrequency("365"));
}

TEST_F(ClientServicesTest, AFollowerPointsAtTheMainServiceAndKeepsItsOwnSchedule) {
  Store(Mowing());
  ClientServiceForm hedge = Mowing();
  hedge.serviceId = 2;
  hedge.frequency = "28";
  Store(hedge);
  ClientServiceForm fields = WithScheduleOfMain(ServiceFormOf(Load()[1]), Load());
  EXPECT_EQ(fields.frequency, "7");
  fields.sameScheduleAsMain = true;
  fields.price = "60.005";
  ASSERT_FALSE(
      SaveClientServiceToDB(business(), client.clientId, Load(), fields, SaveServiceAs::Selected));
  EXPECT_EQ(Stored(), "1 55 Regular 7 2026-11-09 0,2 60 Regular 28 2026-11-09 1");

  ClientServiceForm main = ServiceFormOf(Load()[0]);
  main.sameScheduleAsMain = true;
  ASSERT_FALSE(
      SaveClientServiceToDB(business(), client.clientId, Load(), main, SaveServiceAs::Selected));
  EXPECT_EQ(Load()[0].otherScheduleClientServiceId, 0) << "the main service follows nobody";

  ClientServiceArray services = Load();
  EXPECT_TRUE(RemoveClientService(business(), client.clientId, services, 1)
                  ->message.startsWith("You cannot delete this service as other services"));
  EXPECT_FALSE(RemoveClientService(business(), client.clientId, services, 2));
  EXPECT_FALSE(RemoveClientService(business(), client.clientId, services, 1));
  EXPECT_EQ(Count("Client_Services"), 0);
}

TEST_F(ClientServicesTest, TheArrayEndsInAnEmptyElementThatIsNeverStored) {
  ClientServiceArray services = Load();
  ASSERT_EQ(services.size(), 1u);
  EXPECT_EQ(AddEmptyClientService(business(), client.clientId, services)->message,
            "Please enter the main service first before adding a new one.");
  SaveClientServiceToArray(Mowing(), services, 0);
  ASSERT_EQ(services.size(), 2u);
  SaveClientServicesArrayToDB(business(), client.clientId, services);
  SaveClientServicesArrayToDB(business(), client.clientId, services);
  EXPECT_EQ(Stored(), "1 55 Regular 7 2026-11-09 0");

  ASSERT_FALSE(AddEmptyClientService(business(), client.clientId, services));
  EXPECT_EQ(services.size(), 3u);
  EXPECT_EQ(services[1].nextVisit, business().Today()) << "without a next visit it shows today";
  EXPECT_EQ(Count("Client_Services"), 2);
}

TEST_F(ClientServicesTest, TheDiaryFollowsASavedServiceOnlyOnYes) {
  ClientServiceArray services = Load();
  ClientServiceForm form = Mowing();
  outside.prompter.Expect("clicking on the \"Re-create schedule of this client...\" button.",
                          Answer::No);
  EXPECT_FALSE(
      SaveServiceAndAsk(business(), outside.prompter, client, services, form, SaveServiceAs::New));
  EXPECT_EQ(Count("Diary"), 0);
  form.price = "60";
  outside.prompter.Expect("clicking on the 'Re-create schedule of this client' button.",
                          Answer::Yes);
  EXPECT_FALSE(SaveServiceAndAsk(business(), outside.prompter, client, services, form,
                                 SaveServiceAs::Selected));
  EXPECT_EQ(Rows(Sql("SELECT Schedule_Date, Status, Total_Price FROM Diary")),
            "2026-11-09 J 60,2026-11-16 J 60");
  EXPECT_EQ(Count("Client_Services"), 1);
}

TEST_F(ClientServicesTest, ARefusedRecordStopsTheWholeSave) {
  ClientServiceArray services = Load();
  SaveClientServiceToArray(Mowing(), services, 0);
  client.displayName.clear();
  EXPECT_TRUE(SaveClient(business(), client, services));
  EXPECT_TRUE(CreateScheduleOfClient(business(), client, services));
  EXPECT_EQ(Count("Client_Services") + Count("Diary"), 0);
  EXPECT_EQ(services[0].clientServiceId, 0);
}

}  // namespace
}  // namespace quillary::clients
