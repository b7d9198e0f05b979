#include "data/store/Connection.h"
#include "lists/Choices.h"
#include "lists/Countries.h"
#include "lists/Divisions.h"
#include "lists/Frequencies.h"
#include "lists/HolidayUpkeep.h"
#include "lists/PaymentMethods.h"
#include "lists/Services.h"
#include "lists/SuburbPositions.h"
#include "roll/ScheduleTest.h"

namespace quillary::lists {
namespace {

using ReferenceListsTest = ScheduleTest;

QString MessageOf(const std::optional<Refusal>& refusal) {
  return refusal ? refusal->message : QString();
}

TEST_F(ReferenceListsTest, HolidaysThatAreNoDays) {
  const char* const kDay = "Please enter a valid day/month.";
  const char* const kYear = "Please enter a valid year.";
  struct Case {
    const char* fault;
    HolidayForm form;
    const char* message;
    const char* stored;  // day and year
  };
  const Case cases[] = {
      {"blank holiday", {"", "2027", "", false}, kDay, nullptr},
      {"month before day", {"12/25", "2027", "", false}, kDay, nullptr},
      {"leap day of a common year", {"29/02", "2027", "", false}, kDay, nullptr},
      {"both wrong, told by the year", {"31/04", "soon", "", false}, kDay, nullptr},
      {"no year", {"26/12", "", "", false}, kYear, nullptr},
      {"year of two digits never matches", {"26/12", "27", "", false}, kYear, nullptr},
      {"leap day refused in a leap year", {"29/02", "2028", "", false}, "", "29/02 2028"},
      {"leap day may not recur", {"29/02", "", "", true}, "", "29/02 0"},
      {"disabled year checked", {"26/12", "soon", "", true}, "", "26/12 0"},
      {"disabled year stored", {"26/12", "2027", "", true}, "", "26/12 0"},
      {"short form never matches", {" 1-5 ", "2027", "", false}, "", "01/05 2027"},
  };
  Run(Sql("DELETE FROM Holiday"));
  for (const Case& holiday : cases) {
    SCOPED_TRACE(holiday.fault);
    const Transaction undone(business());
    EXPECT_EQ(MessageOf(InsertHoliday(business(), holiday.form)), holiday.message);
    EXPECT_EQ(Rows("SELECT Hol_Date, Hol_Year FROM Holiday"),
              holiday.stored ? QStringList(holiday.stored) : QStringList());
    Run(Sql("INSERT INTO Holiday (Hol_Date) VALUES ('x')"));
    const auto key = business().FirstField(Sql("SELECT MAX(Hol_ID) FROM Holiday")).ToId<Holiday>();
    EXPECT_EQ(MessageOf(UpdateHoliday(business(), key, holiday.form)), holiday.message);
  }
}

TEST_F(ReferenceListsTest, HolidaysOfAYearMoveVisitsAfterTheyAreLoaded) {
  EXPECT_FALSE(InsertHoliday(business(), {"9/11", "2026", "Cup Day", false}));
  EXPECT_FALSE(InsertHoliday(business(), {"03/01", "2020", "Long ago", false}));
  QStringList listed;
  for (const ListedHoliday& holiday : ListHolidays(business(), 2026)) listed += holiday.dayMonth;
  EXPECT_EQ(listed, (QStringList{"01/01", "09/11", "25/12"}));
  EXPECT_EQ(ListHolidayYears(business()),
            (std::vector<int>{2020, 2025, 2026, 2027, 2028, 2029, 2030, 2031}));

  EXPECT_FALSE(IsHoliday(business().holidays, Day("2026-11-09")));
  LoadHolidaysIntoArray(business());
  EXPECT_TRUE(IsHoliday(business().holidays, Day("2026-11-09")));

  const HolidayForm form{"09/11", "", "Cup Day", true};
  EXPECT_EQ(MessageOf(UpdateHoliday(business(), {}, form)), "Please choose a record to update.");
  EXPECT_EQ(MessageOf(DeleteHoliday(business(), {})), "Please choose a record to delete.");
  EXPECT_FALSE(UpdateHoliday(business(), Id<Holiday>(3), form));
  EXPECT_EQ(ListHolidays(business(), 2031).size(), 3u);
  EXPECT_FALSE(DeleteHoliday(business(), Id<Holiday>(3)));
  EXPECT_EQ(ListHolidays(business(), 2031).size(), 2u);
}

TEST_F(ReferenceListsTest, SuburbsAreAcquiredOnceAndOrderedByHand) {
  for (const char* suburb : {"KEW", "BALWYN", "Kew", "", "HAWTHORN"}) {
    Run(Sql("UPDATE Clients SET Suburb = {} WHERE Client_ID = {}", suburb, AddClient()));
  }
  const auto listed = [&] {
    QStringList names;
    for (const SuburbPosition& suburb : ListSuburbPositions(business())) {
      names += suburb.suburbName.toUpper() + QString::number(suburb.position);
    }
    return names;
  };
  EXPECT_EQ(AcquireSuburbsFromClients(business()), 3);
  EXPECT_EQ(listed(), (QStringList{"BALWYN1", "HAWTHORN2", "KEW3"}));
  EXPECT_EQ(AcquireSuburbsFromClients(business()), 0);

  StoreSuburbOrder(business(), {"Kew", "BALWYN", "HAWTHORN"});
  EXPECT_EQ(listed(), (QStringList{"KEW1", "BALWYN2", "HAWTHORN3"}));
  ChangeSuburbPosition(business(), QStringLiteral("KEW"), 9);
  Run(Sql("INSERT INTO Clients (Suburb) VALUES ('D''ARCY')"));
  EXPECT_EQ(AcquireSuburbsFromClients(business()), 1);
  EXPECT_EQ(listed(), (QStringList{"BALWYN2", "HAWTHORN3", "KEW9", "D'ARCY10"}));

  EXPECT_EQ(MessageOf(RemoveSuburb(business(), outside.prompter, {})),
            "Please select the suburb you want to remove.");
  outside.prompter.Expect("D'ARCY", Answer::No);
  RemoveSuburb(business(), outside.prompter, QStringLiteral("D'ARCY"));
  EXPECT_EQ(listed().size(), 4);
  outside.prompter.Expect("D'ARCY", Answer::Yes);
  RemoveSuburb(business(), outside.prompter, QStringLiteral("D'ARCY"));
  EXPECT_EQ(listed().size(), 3);
}

TEST_F(ReferenceListsTest, AServiceIsRefusedForItsFirstFault) {
  struct Case {
    const char* fault;
    ServiceForm form;
    const char* inserting;
    const char* updating;
  };
  const char* const kCode = "Please enter a service code.";
  const char* const kAccount = "Please select the default ledger account for this service.";
  const Case cases[] = {
      {"service without name",
       {" ", "", {}, false, false},
       "Please enter a value for the service.",
       "Please enter a value the service."},
      {"service without code leaves jobs undescribed",
       {"Mowing", "", {}, false, false},
       kCode,
       kCode},
      {"revenue without account", {"Mowing", "MW", {}, false, false}, kAccount, kAccount},
      {"change of nothing",
       {"Mowing", "MW", Id<Account>(1), true, true},
       "",
       "Please choose a record to update."},
  };
  for (const Case& service : cases) {
    SCOPED_TRACE(service.fault);
    EXPECT_EQ(MessageOf(UpdateService(business(), {}, service.form)), service.updating);
    EXPECT_EQ(MessageOf(InsertService(business(), service.form)), service.inserting);
  }
  EXPECT_EQ(Count("Services"), 4);
}

TEST_F(ReferenceListsTest, ServicesAreListedWithTheirAccountAndOrphanTheirLines) {
  Run(
      Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Fuel', 'Expense')"));
  Run(
      Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Sales', 'Revenue')"));
  ASSERT_EQ(ListRevenueAccountChoices(business()).size(), 1u);
  const Id<Account> account = ListRevenueAccountChoices(business())[0].id;
  LoadDefaultService(business());
  EXPECT_FALSE(business().values.defaultService);
  EXPECT_FALSE(UpdateService(business(), Id<Service>(3), {"Windows", "WC", account, true, true}));
  EXPECT_FALSE(
      UpdateService(business(), Id<Service>(2), {"Hedges", "HT", Id<Account>(99), false, true}));
  LoadDefaultService(business());
  EXPECT_EQ(business().values.defaultService, Id<Service>(2));
  const std::vector<ListedService> services = ListServices(business());
  ASSERT_EQ(services.size(), 3u);
  EXPECT_EQ(services[1].accountName, "") << "a service whose account is gone is still listed";
  EXPECT_EQ(services[2].accountName, "Sales");
  EXPECT_TRUE(services[2].regular && services[2].isDefault);

  AddService(AddClient(), {.service = 3});
  EXPECT_EQ(MessageOf(DeleteService(business(), outside.prompter, {})),
            "Please choose a record to delete.");
  outside.prompter.Expect("may cause problems.\n\nAre you sure", Answer::No);
  DeleteService(business(), outside.prompter, Id<Service>(3));
  EXPECT_EQ(Count("Services"), 3);
  outside.prompter.Expect("jobs with this service will be orphaned", Answer::Yes);
  DeleteService(business(), outside.prompter, Id<Service>(3));
  EXPECT_EQ(Count("Services"), 2);
  EXPECT_EQ(Count("Client_Services"), 1);
  outside.prompter.Expect("connected on the internet. Continue?", Answer::No);
  EXPECT_FALSE(MayDownloadServices(outside.prompter));
}

TEST_F(ReferenceListsTest, AFrequencyIsAWholeNumberOfDaysWithinAYear) {
  const Id<Frequency> added = AddFrequency(business());
  EXPECT_EQ(ListFrequencies(business()).front().id, added) << "0 days come first";
  for (const char* typed : {"0", "366", "-7", "", "weekly", "7.5", "99999999999"}) {
    EXPECT_EQ(MessageOf(ChangeFrequencyDays(business(), added, typed)),
              "Please enter a value between 1 - 365.")
        << typed;
  }
  EXPECT_EQ(ListFrequencies(business()).front().days, 0);
  for (const char* typed : {"1", " 365 "}) {
    EXPECT_FALSE(ChangeFrequencyDays(business(), added, typed)) << typed;
  }
  EXPECT_EQ(ListFrequencies(business()).back().days, 365);
  const qint64 before = Count("lstFrequencies");
  EXPECT_EQ(MessageOf(RemoveFrequency(business(), {})), "Please select a record to delete.");
  EXPECT_FALSE(RemoveFrequency(business(), added));
  EXPECT_EQ(Count("lstFrequencies"), before - 1);
}

TEST_F(ReferenceListsTest, DivisionsNumberThemselves) {
  const qint64 highest =
      business().FirstField(Sql("SELECT MAX(Division_ID) FROM Divisions")).ToLong();
  const Id<Division> added(highest + 1);
  const DivisionForm form{"Aardvark Care", "Pets"};
  EXPECT_EQ(MessageOf(InsertDivision(business(), {" ", "Pets"})),
            "Please enter the division name.");
  EXPECT_FALSE(InsertDivision(business(), form));
  EXPECT_EQ(ListDivisions(business()).front().id, added);
  EXPECT_EQ(MessageOf(UpdateDivision(business(), {}, form)), "Please choose a record to update.");
  EXPECT_EQ(MessageOf(UpdateDivision(business(), added, {"", "Pets"})),
            "Please enter the division name.");
  EXPECT_FALSE(UpdateDivision(business(), added, {"Aardvark Homes", ""}));
  EXPECT_EQ(ListDivisions(business()).front().name, "Aardvark Homes");
  EXPECT_EQ(MessageOf(DeleteDivision(business(), {})), "Please choose a record to delete.");
  EXPECT_FALSE(DeleteDivision(business(), added));
  EXPECT_EQ(Count("Divisions"), 31);
}

TEST_F(ReferenceListsTest, EmployeesStandInTheOrderThatTheirListNeeds) {
  for (const char* name : {"Zoe", "Adam"})
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ({})", name));
  const auto words = [](const auto& choices) {
    QStringList listed;
    for (const auto& choice : choices) listed += choice.words;
    return listed.join(u' ');
  };
  const QString made = words(ListEmployeeChoices(business()));
  EXPECT_TRUE(made.endsWith(u"Zoe Adam")) << made.toStdString() << ": the first is the default";
  EXPECT_TRUE(words(ListEmployeesByName(business())).startsWith(u"Adam"));
}

/// What a record that has gone meanwhile says to each command of its list.
TEST_F(ReferenceListsTest, ARecordThatHasGoneIsToldAndNothingIsWritten) {
  const auto gone = [this](const char* what, const auto& command) {
    SCOPED_TRACE(what);
    const int before = business().StoreConnection().TransactionDepth();
    EXPECT_THROW(command(), WriteFailed);
    EXPECT_EQ(business().StoreConnection().TransactionDepth(), before);
  };
  const ServiceForm service{"Mowing", "MW", Id<Account>(1), false, false};
  gone("country", [&] { UpdateCountry(business(), Id<Country>(99), {"Fiji", "", ""}); });
  gone("country", [&] { DeleteCountry(business(), Id<Country>(99)); });
  gone("division", [&] { UpdateDivision(business(), Id<Division>(99), {"Pets", ""}); });
  gone("division", [&] { DeleteDivision(business(), Id<Division>(99)); });
  gone("frequency", [&] { ChangeFrequencyDays(business(), Id<Frequency>(99), "7"); });
  gone("frequency", [&] { RemoveFrequency(business(), Id<Frequency>(99)); });
  gone("method", [&] { UpdatePaymentMethod(business(), Id<PaymentMethodRow>(99), "CASH"); });
  gone("method", [&] { DeletePaymentMethod(business(), Id<PaymentMethodRow>(99)); });
  gone("service", [&] { UpdateService(business(), Id<Service>(99), service); });
  gone("holiday", [&] { DeleteHoliday(business(), Id<Holiday>(99)); });
  // An order that names a suburb which has gone leaves the others where they stood.
  Run(Sql("INSERT INTO Suburb_Position (Suburb_Name, Position) VALUES ('KEW', 7)"));
  gone("suburb", [&] { StoreSuburbOrder(business(), {"KEW", "ATLANTIS"}); });
  EXPECT_EQ(ListSuburbPositions(business()).front().position, 7);
}

}  // namespace
}  // namespace quillary::lists
