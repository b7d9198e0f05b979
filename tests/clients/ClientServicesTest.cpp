#include "clients/ClientCommands.h"
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
    form.serviceId = 1_service;
    form.jobType = JobType::Regular;
    form.nextVisit = Day("2026-11-09");
    form.frequency = "7";
    form.employeeId = Id<Employee>(1);
    form.price = "$55.00";
    return form;
  }
  std::optional<Refusal> SaveAsNew(const ClientServiceForm& form) {
    ClientServiceArray services = Load();
    return SaveClientServiceToDB(business(), *client.clientId, services, services, form,
                                 services.size() - 1);
  }
  std::optional<Refusal> SaveAs(const ClientServiceForm& form, size_t element) {
    ClientServiceArray services = Load();
    return SaveClientServiceToDB(business(), *client.clientId, services, services, form, element);
  }
  ClientServiceArray Load() { return LoadClientServicesIntoArray(business(), *client.clientId); }
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
       "service"},
      {"service that the roll passes over", [](Form& form) { form.jobType = {}; },
       "Please select the job type.", "jobType"},
      {"text taken for a date", [](Form& form) { form.nextVisit.reset(); },
       "Please enter a valid date.", "nextVisit"},
      {"visit on a holiday", [](Form& form) { form.nextVisit = Day("2026-12-25"); },
       "This date is a holiday. No job will be scheduled on this date.", "nextVisit"},
      {"past holiday told as past", [](Form& form) { form.nextVisit = Day("2025-12-25"); },
       "This date is a holiday.", "nextVisit"},
      {"visit yesterday", [](Form& form) { form.nextVisit = Day("2026-11-01"); },
       "Start date should be the same or later than the date today.\nIf this is a Regular job",
       "nextVisit"},
      {"regular service that never repeats", [](Form& form) { form.frequency = "0"; },
       "Please enter a valid frequency value (in no. of days).", "frequency"},
      {"words after the number are refused", [](Form& form) { form.frequency = "14 days"; },
       nullptr, ""},
      {"casual service needs a frequency",
       [](Form& form) {
         form.jobType = JobType::Casual;
         form.frequency = "0";
       },
       nullptr, ""},
      {"job of nobody", [](Form& form) { form.employeeId.reset(); }, "Please select an employee.",
       "employee"},
      {"price that is no number", [](Form& form) { form.price = "free"; },
       "Please enter a valid price.", "price"},
  };
  for (const auto& [fault, spoil, message, field] : cases) {
    Form form = Mowing();
    spoil(form);
    const auto refusal = CheckClientService(business(), form);
    ASSERT_EQ(refusal.has_value(), message != nullptr) << fault;
    if (!refusal) continue;
    EXPECT_TRUE(refusal->message.startsWith(message)) << fault;
    EXPECT_EQ(refusal->field, field) << fault;
    EXPECT_TRUE(SaveAsNew(form)) << fault;
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
  EXPECT_FALSE(SaveAsNew(Mowing()));
  ClientServiceForm hedge = Mowing();
  hedge.serviceId = 2_service;
  hedge.frequency = "28";
  EXPECT_FALSE(SaveAsNew(hedge));
  ClientServiceForm fields = WithScheduleOfMain(ServiceFormOf(Load()[1]), Load());
  EXPECT_EQ(fields.frequency, "7");
  fields.sameScheduleAsMain = true;
  fields.price = "60.005";
  ASSERT_FALSE(SaveAs(fields, 1));
  EXPECT_EQ(Stored(), "1 55 Regular 7 2026-11-09 0,2 60 Regular 28 2026-11-09 1");

  ClientServiceForm main = ServiceFormOf(Load()[0]);
  main.sameScheduleAsMain = true;
  ASSERT_FALSE(SaveAs(main, 0));
  EXPECT_FALSE(Load()[0].otherScheduleClientServiceId) << "the main service follows nobody";

  ClientServiceArray services = Load();
  EXPECT_TRUE(RemoveClientService(business(), *client.clientId, services, Load(), 0)
                  ->message.startsWith("You cannot delete this service as other services"));
  EXPECT_FALSE(RemoveClientService(business(), *client.clientId, services, Load(), 1));
  EXPECT_FALSE(RemoveClientService(business(), *client.clientId, services, Load(), 0));
  EXPECT_EQ(Count("Client_Services"), 0);
}

TEST_F(ClientServicesTest, TheArrayEndsInAnEmptyElementThatIsNeverStored) {
  ClientServiceArray services = Load();
  ASSERT_EQ(services.size(), 1u);
  EXPECT_EQ(AddEmptyClientService(business(), *client.clientId, services, Load())->message,
            "Please enter the main service first before adding a new one.");
  SaveClientServiceToArray(Mowing(), services, 0);
  ASSERT_EQ(services.size(), 2u);
  SaveClientServicesArrayToDB(business(), *client.clientId, services, Load());
  SaveClientServicesArrayToDB(business(), *client.clientId, services, Load());
  EXPECT_EQ(Stored(), "1 55 Regular 7 2026-11-09 0");

  ASSERT_FALSE(AddEmptyClientService(business(), *client.clientId, services, Load()));
  EXPECT_EQ(services.size(), 3u);
  EXPECT_EQ(services[1].nextVisit, business().Today()) << "without a next visit it shows today";
  EXPECT_EQ(Count("Client_Services"), 2);
}

TEST_F(ClientServicesTest, TheDiaryFollowsASavedServiceOnlyOnYes) {
  ClientEdit edit = *LoadClientEdit(business(), *client.clientId);
  ClientServiceForm form = Mowing();
  outside.prompter.Expect("clicking on the \"Re-create schedule of this client...\" button.",
                          Answer::No);
  EXPECT_FALSE(
      SaveServiceAndAsk(business(), outside.prompter, edit, form, SaveServiceAs::New, 0).refusal);
  EXPECT_EQ(Count("Diary"), 0);
  form.price = "60";
  outside.prompter.Expect("clicking on the 'Re-create schedule of this client' button.",
                          Answer::Yes);
  EXPECT_FALSE(
      SaveServiceAndAsk(business(), outside.prompter, edit, form, SaveServiceAs::Selected, 0)
          .refusal);
  EXPECT_EQ(Rows(Sql("SELECT Schedule_Date, Status, Total_Price FROM Diary")),
            "2026-11-09 J 60,2026-11-16 J 60");
  EXPECT_EQ(Count("Client_Services"), 1);
}

TEST_F(ClientServicesTest, ARefusedRecordStopsTheWholeSave) {
  ClientEdit edit = *LoadClientEdit(business(), *client.clientId);
  SaveClientServiceToArray(Mowing(), edit.services, 0);
  edit.client.displayName.clear();
  EXPECT_TRUE(SaveClient(business(), edit));
  EXPECT_TRUE(CreateScheduleOfClient(business(), edit));
  EXPECT_EQ(Count("Client_Services") + Count("Diary"), 0);
  EXPECT_FALSE(edit.services[0].clientServiceId);
}

}  // namespace
}  // namespace quillary::clients
