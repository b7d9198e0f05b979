#include "data/schema/UpgradeRungs.h"

#include "data/schema/UpgradeWork.h"

#include <map>

namespace quillary {
namespace {

using namespace upgrade;  // NOLINT: the table below is the one reader of those names

using Steps = std::vector<UpgradeStep>;

UpgradeStep Do(void (*work)(Business&, const Upgrader::Options&)) {
  return {nullptr, work};
}

constexpr char kLinesHaveFrequencies[] = "ALTER TABLE Diary_Services ADD COLUMN Frequency INT";

constexpr UpgradeStep kNameTaxes[] = {
    {"ALTER TABLE Countries ADD COLUMN Tax_Name TEXT (50);"},
    {"UPDATE Countries SET Tax_Name = 'GST' "
     "WHERE UCASE(Country_Name) IN ('AUSTRALIA', 'CANADA', 'NEW ZEALAND');"},
    {"UPDATE Countries SET Tax_Name = 'VAT' WHERE UCASE(Country_Name) = 'UK';"},
};

Steps EarlySteps(int version) {
  switch (version) {
    case 13:
      return {{"ALTER TABLE Clients ADD COLUMN Work_Cover_Number TEXT (50)"}};
    case 14:
      return {{"ALTER TABLE Clients ADD COLUMN Display_Name TEXT (100)"},
              {"UPDATE Clients SET Display_Name = Billing_Name; "},
              {"ALTER TABLE Clients DROP COLUMN Billing_Name"}};
    case 15:
      return {{"ALTER TABLE Invoices ADD COLUMN Made_Out_To_Temp TEXT (255)"}};
    case 16:
      return {{"UPDATE Invoices SET Made_Out_To_Temp = Made_Out_To; "}};
    case 17:
      return {{"ALTER TABLE Invoices DROP COLUMN Made_Out_To"}};
    case 18:
      return {{"ALTER TABLE Invoices ADD COLUMN Made_Out_To TEXT (255); "}};
    case 19:
      return {{"UPDATE Invoices SET Made_Out_To = Made_Out_To_Temp; "}};
    case 20:
      return {{"ALTER TABLE Invoices DROP COLUMN Made_Out_To_Temp; "}};
    case 21:
      return {{"ALTER TABLE Invoices ADD COLUMN Done_For TEXT(255)"}};
    case 22:
      return {{"ALTER TABLE Invoices ADD COLUMN Invoice_Number TEXT(50);"}};
    case 23:
      return {{"UPDATE Invoices SET Invoice_Number = Invoice_ID; "}};
    case 24:
      return {{"ALTER TABLE Clients ADD COLUMN Requires_Statement YESNO; "}};
    case 25:
      return {{"ALTER TABLE General_Ledger_Entries ADD COLUMN Payment_ID NUMBER; "}};
    case 26:
      return {{"ALTER TABLE General_Ledger_Entries ADD COLUMN Purchase_ID NUMBER; "}};
    case 27:
      return {Do(TieLedgerEntries)};
    case 28:
      return {{"ALTER TABLE Diary ADD COLUMN Payment_ID NUMBER; "}};
    case 29:
      return {Do(TotalInvoices)};
    case 30:
      return {
          {"UPDATE Clients SET Account_Balance = 0 "
           "WHERE Account_Balance > (-.01) and Account_Balance < (.01); "}};
    case 31:
      // The column belongs to version 36, but the lines of jobs that are made anew here need it.
      return {{kLinesHaveFrequencies}, Do(RepairSchedules)};
    default:
      return {};
  }
}

Steps MiddleSteps(int version) {
  switch (version) {
    case 32:
      return {Do(ReloadDivisions),
              Do(ReloadCountries),
              {"ALTER TABLE infPersonalDetails ADD COLUMN Division_ID NUMBER"},
              {"ALTER TABLE infPersonalDetails ADD COLUMN Country_ID NUMBER"},
              {"ALTER TABLE lstInvoicesToPrint ADD COLUMN Next_Job_Date TEXT 50"},
              {"ALTER TABLE Clients ADD COLUMN InvoiceWithOutstanding YESNO"},
              {"ALTER TABLE Clients ADD COLUMN InvoiceWithNextJob YESNO"},
              {"ALTER TABLE Clients ADD COLUMN InvoiceWithUnpaidPastJobs YESNO"},
              {"ALTER TABLE Clients ADD COLUMN StatementWithPayments YESNO"},
              {"UPDATE Clients SET InvoiceWithOutstanding = True, InvoiceWithNextJob = True, "
               "InvoiceWithUnpaidPastJobs = False, StatementWithPayments = False"},
              {"UPDATE Clients SET Display_Name = Surname + ', ' + First_Name "
               "WHERE Display_Name = '' OR Isnull(Display_Name)"},
              {"UPDATE Clients SET First_Name = Display_Name "
               "WHERE (First_Name = '' OR Isnull(First_Name)) "
               "AND (Surname = '' OR Isnull(Surname))"},
              {"UPDATE infPersonalDetails SET Division_ID = 1, Country_ID = 1"},
              {"CREATE TABLE lstClientsToPrint (Client_ID NUMBER)"}};
    case 33:
      return {{"DELETE FROM General_Ledger_Entries "
               "WHERE Isnull(Payment_ID) AND Isnull(Purchase_ID)"},
              {"DELETE General_Ledger_Entries.* FROM Payments RIGHT JOIN General_Ledger_Entries "
               "ON Payments.Payment_ID = General_Ledger_Entries.Payment_ID "
               "WHERE Isnull(Purchase_ID) AND Isnull(Payments.Payment_ID);"}};
    case 34:
      return {
          {"DELETE General_Ledger_Entries.* FROM General_Ledger_Entries LEFT JOIN Payments "
           "ON General_Ledger_Entries.Payment_ID = Payments.Payment_ID "
           "Where IsNull(Purchase_ID) AND Isnull(Payments.Payment_ID)"}};
    case 35:
      return {{"ALTER TABLE lstClientsToPrint ALTER COLUMN Client_ID INT"}};
    case 36:
      return {{"CREATE TABLE Holiday (Hol_ID Autoincrement, Hol_Date TEXT(5), Hol_Year INT, "
               "Hol_Recurring YESNO, Hol_Description Text(50))"},
              Do(AddFirstHolidays),
              {"ALTER TABLE Clients ADD COLUMN WorkCoverLabel TEXT(50)"},
              {"ALTER TABLE infSystem ADD COLUMN Invoice_Number INT"},
              Do(StartInvoiceCounter),
              Do(ListUsedPaymentMethods),
              {"ALTER TABLE Purchases ADD COLUMN Tax_Exempt YESNO"},
              {"UPDATE Purchases SET Tax_Exempt = False"},
              {"ALTER TABLE Payments ADD COLUMN Tax_Exempt YESNO"},
              {"UPDATE Payments SET Tax_Exempt = False"},
              {kLinesHaveFrequencies},
              {"UPDATE (Diary INNER JOIN Diary_Services ON Diary.Diary_ID = "
               "Diary_Services.Diary_ID) INNER JOIN Client_Services "
               "ON (Diary_Services.Service_ID = Client_Services.Service_ID) "
               "AND (Diary.Client_ID = Client_Services.Client_ID) "
               "SET Diary_Services.Frequency = Client_Services.Frequency"}};
    case 37:
      return {{"ALTER TABLE Clients ADD COLUMN Private_Notes MEMO"},
              {"ALTER TABLE infOptions ADD COLUMN Invoice_Notes MEMO"}};
    case 38:
      return {{"ALTER TABLE Bankings ADD COLUMN Cash_Unbanked CURRENCY"},
              {"UPDATE Bankings SET Cash_Unbanked = 0"}};
    case 39:
      return {{"ALTER TABLE Clients ADD COLUMN InvoiceWithTelNo YESNO"},
              {"UPDATE Clients SET InvoiceWithTelNo = False"}};
    case 40:
      return {{"ALTER TABLE Clients ADD COLUMN Debtor_Since DATE;"}, Do(StampDebtors)};
    case 41:
      return {Do(AddWindowDivision),
              {"UPDATE Clients SET Suburb = UCASE(Trim(Suburb))"},
              {"CREATE TABLE Suburb_Position (Suburb_Name TEXT(50), Position INT)"},
              Do(NumberSuburbs)};
    default:
      return {};
  }
}

Steps LateSteps(int version) {
  switch (version) {
    case 42:
      return {{"CREATE TABLE Quotes (Quote_ID Autoincrement, Client_ID INT, Quote_Date DATE, "
               "Description TEXT (255))"},
              {"CREATE TABLE Quote_Services (Quote_Service_ID Autoincrement, Quote_ID INT, "
               "Service_ID INT, Price CURRENCY, Notes MEMO)"},
              Do(MakeQuotes)};
    case 43:
      return {{"UPDATE Payments SET Payment_Method = UCase(Payment_Method);"}};
    case 44:
      return {{"ALTER TABLE Invoices ADD COLUMN Invoice_Notes MEMO, IsPaid YESNO"}};
    case 45:
      return {std::begin(kNameTaxes), std::end(kNameTaxes)};
    case 47: {
      // The taxes once more, for files that met this version before the one that names them. Their
      // column is there already, so its statement is refused and the rest runs again.
      Steps steps(std::begin(kNameTaxes), std::end(kNameTaxes));
      steps.push_back({"ALTER TABLE infOptions ADD COLUMN TermsOfTrade MEMO"});
      steps.push_back(Do(SetTermsOfTrade));
      return steps;
    }
    case 48:
      return {
          {"ALTER TABLE infPersonalDetails ADD COLUMN Account_Name TEXT(150), "
           "BSB_Account_Number TEXT(25)"}};
    case 49:
      // No statement of the dialect, and refused; version 52 makes the change.
      return {{"ALTER TABLE infPersonalDetails UPDATE COLUMN BSB_Account_Number TEXT(30)"}};
    case 50:
      return {{"ALTER TABLE infOptions ADD COLUMN EnableLogging YESNO; "}};
    case 51:
      return {{"CREATE INDEX CustIndex ON Clients (Client_ID); "},
              {"CREATE INDEX DiaryCustIndex ON Diary (Client_ID); "},
              {"CREATE INDEX PaymentCustIndex ON Payments (Client_ID); "},
              {"CREATE INDEX CustStatusIndex ON Clients (Status); "},
              {"CREATE INDEX DiaryStatusIndex ON Diary (Status); "},
              {"CREATE INDEX CustBillingIndex ON Clients (Billing_Client_ID); "},
              {"ALTER TABLE infOptions ADD COLUMN Default_Email_Message MEMO;"},
              {"ALTER TABLE infOptions ADD COLUMN AdobePath TEXT(255);"}};
    case 52:
      return {{"ALTER TABLE infOptions ADD COLUMN RecalculateClientAmtsOwingOnPrint YESNO; "},
              {"ALTER TABLE infPersonalDetails ALTER COLUMN BSB_Account_Number TEXT(30)"}};
    case 53:
      return {{"ALTER TABLE infOptions ADD COLUMN CCEmailAddress TEXT(255);"}};
    case 54:
      return {{"ALTER TABLE infOptions ADD COLUMN EnableOstrel4WebServices YESNO; "},
              {"UPDATE infOptions SET EnableOstrel4WebServices = True;"}};
    case 56:
      return {{"ALTER TABLE infOptions ADD COLUMN DatabaseUploaded YESNO; "},
              {"UPDATE infOptions SET DatabaseUploaded = False;"}};
    case 57:
      return {{"ALTER TABLE infOptions ADD COLUMN CompactDatabaseBeforeUpload YESNO; "},
              {"UPDATE infOptions SET CompactDatabaseBeforeUpload = False;"}};
    default:
      return {};
  }
}

}  // namespace

const std::vector<UpgradeStep>& UpgradeStepsOf(int version) {
  static std::map<int, Steps> ladder = [] {
    std::map<int, Steps> steps;
    for (int rung = 13; rung <= 31; ++rung) steps[rung] = EarlySteps(rung);
    for (int rung = 32; rung <= 41; ++rung) steps[rung] = MiddleSteps(rung);
    for (int rung = 42; rung <= 57; ++rung) steps[rung] = LateSteps(rung);
    return steps;
  }();
  return ladder[version];
}

}  // namespace quillary
