#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class TodayCommandsTest : public CompanionTest {};

TEST_F(TodayCommandsTest, TellsTheFiguresOfTheScreen) {
  Done({"new", "d.mdb"});
  const QJsonObject empty = Json({"today", "d.mdb"}).object();
  EXPECT_EQ(empty["figures"]["Jobs"].toInt(-1), 0);
  EXPECT_EQ(empty["months"].toArray().size(), 13);
  for (const char* statement :
       {"INSERT INTO Clients (Display_Name, Status, Is_Billed_To, Statement_Type, Account_Balance) "
        "VALUES ('Able', 'Active', True, 'With Job', -75)",
        "UPDATE Clients SET Billing_Client_ID = Client_ID",
        "INSERT INTO Diary (Client_ID, Schedule_Date, Status, Total_Price, Employee_ID) "
        "VALUES (1, #2026/11/2#, 'JD', 50, 1)",
        "INSERT INTO Diary (Client_ID, Schedule_Date, Status, Total_Price) "
        "VALUES (1, #2026/9/20#, 'JD', 40)",
        "INSERT INTO Payments (Payment_Method, Amount, Payment_Date) "
        "VALUES ('CASH', 15, #2026/11/1#)"})
    Done({"sql", "d.mdb", statement});
  const QJsonObject told = Json({"today", "d.mdb"}).object();
  const std::pair<const char*, double> figures[] = {{"Jobs", 1},
                                                    {"Jobs_Amount", 50},
                                                    {"Owed", 75},
                                                    {"Owed_By_Clients", 1},
                                                    {"Owed_To_30_Days", 50},
                                                    {"Owed_31_To_60_Days", 25},
                                                    {"Month_So_Far", 50},
                                                    {"Due_For_Invoice", 2},
                                                    {"Due_For_Invoice_Amount", 90},
                                                    {"Cash_To_Bank", 15},
                                                    {"Week_To_Invoice", 2},
                                                    {"Week_To_Bank", 1},
                                                    {"Week_Done", 1}};
  for (const auto& [name, value] : figures)
    EXPECT_EQ(told["figures"][name].toDouble(-1), value) << name;
  EXPECT_EQ(told["months"][10]["Done"].toDouble(), 40);
  EXPECT_EQ(told["months"][12]["Received"].toDouble(), 15);
  EXPECT_TRUE(Done({"today", "d.mdb"}).contains("Owed_Over_90_Days"));
  EXPECT_EQ(Run({"today"}).exitCode, 2);
}

}  // namespace
}  // namespace quillary::cli
