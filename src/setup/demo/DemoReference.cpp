#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

namespace quillary::setup::demo {
namespace {

constexpr int kDaysAhead = 60;

void WriteAccountsAndServices(Business& business) {
  for (const LedgerAccount& account : kAccounts) {
    business.RunSQL(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Number, "
            "GL_Account_Type, Budget_Amount) VALUES ({}, {}, {}, {})",
            account.name, account.number, account.type, Money::FromWhole(account.budget)));
  }
  int sequence = 0;
  for (const CatalogueService& service : kServices) {
    const CatalogueService& income = service;
    const qint64 account =
        business
            .FirstField(Sql(
                "SELECT GL_Account_ID FROM General_Ledger_Accounts WHERE GL_Account_Number = {}",
                kAccounts[static_cast<size_t>(income.account)].number))
            .ToLong();
    business.RunSQL(
        Sql("INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, "
            "Sequence_Number, Regular, [Default]) VALUES ({}, {}, {}, {}, {}, {})",
            service.name, service.code, account, sequence + 1, service.regular, sequence == 0));
    ++sequence;
  }
}

void WriteLists(Business& business) {
  for (const char* employee : kEmployees) {
    business.RunSQL(Sql("INSERT INTO Employees (Employee_Name) VALUES ({})", employee));
  }
  for (const int days : kFrequencies) {
    business.RunSQL(Sql("INSERT INTO lstFrequencies (Frequency_Days) VALUES ({})", days));
  }
  int sequence = 0;
  for (const char* method : kPaymentMethods) {
    business.RunSQL(
        Sql("INSERT INTO lstPayment_Methods (Payment_Method, [Sequence]) "
            "VALUES ({}, {})",
            method, ++sequence));
  }
  for (const char* bank : kBanks) {
    business.RunSQL(Sql("INSERT INTO lstBanks (Bank) VALUES ({})", bank));
  }
  int position = 0;
  for (const Suburb& suburb : kSuburbs) {
    business.RunSQL(Sql("INSERT INTO Suburb_Position (Suburb_Name, [Position]) VALUES ({}, {})",
                        suburb.name, ++position));
  }
  for (const auto& [day, words] :
       {std::pair{"26/01", "Australia Day"}, std::pair{"25/04", "Anzac Day"}}) {
    business.RunSQL(
        Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) "
            "VALUES ({}, 0, True, {})",
            day, words));
  }
  business.RunSQL(
      Sql("INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) "
          "VALUES ({}, {})",
          "Greenleaf trading account", "000-000 1234 5678"));
}

void WriteOwner(Business& business) {
  const qint64 country = business
                             .FirstField(Sql("SELECT Country_ID FROM Countries "
                                             "WHERE Country_Name = 'Australia'"))
                             .ToLong();
  const qint64 division =
      business.FirstField(Sql("SELECT MIN(Division_ID) FROM Divisions")).ToLong();
  business.RunSQL(
      Sql("UPDATE infPersonalDetails SET FSE_Code = 'GGC042', "
          "Company_Name = 'Greenleaf Garden Care', First_Name = 'Robin', Surname = 'Vale', "
          "Street_Number = '12', Street = 'Wattlebird Gr', Suburb = 'BLACKBURN', "
          "Post_Code = '3130', Phone_1 = '03 9555 0142', Phone_2 = '0412 555 142', "
          "Email = 'robin.vale@example.com', ABN = '00 000 000 000', "
          "Account_Name = 'Greenleaf Garden Care', BSB_Account_Number = '000-000 1234 5678', "
          "Division_ID = {}, Country_ID = {}",
          division, country));
}

}  // namespace

void WriteReferenceData(Business& business, const QDate& today) {
  WriteAccountsAndServices(business);
  WriteLists(business);
  WriteOwner(business);
  business.RunSQL(
      Sql("UPDATE infOptions SET GST_Percentage = .1, Accounting_Method = 'Cash', "
          "Days_To_Advance_Schedule = {}, Manage_Multiple_Employees = True, Invoice_Notes = {}, "
          "Default_Email_Message = {}",
          kDaysAhead, "Thank you for having us in your garden.",
          "Please find our invoice attached.\r\n\r\nKind regards,\r\nGreenleaf Garden Care"));
  const int financialYear = today.month() >= 7 ? today.year() : today.year() - 1;
  business.RunSQL(
      Sql("UPDATE infSystem SET Last_Schedule_Ending = {}, Last_Monthly_Invoice_Ending = {}, "
          "Financial_Year_Starting = {}, Done_Initial_Setup = True",
          today.addDays(1), QDate(today.year(), today.month(), 1).addDays(-1),
          QDate(financialYear, 7, 1)));
}

}  // namespace quillary::setup::demo
