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

Steps NameTaxes() {
  return {
      {"ALTER TABLE Countries ADD COLUMN Tax_Name TEXT (50);"},
      {"UPDATE Countries SET Tax_Name = 'GST' "
       "WHERE UCASE(Country_Name) IN ('AUSTRALIA', 'CANADA', 'NEW ZEALAND');"},
      {"UPDATE Countries SET Tax_Name = 'VAT' WHERE UCASE(Country_Name) = 'UK';"},
  };
}

/// The taxes once more, for files that met version 47 before the one that names them. Their column
/// is there already, so its statement is refused and the rest runs again.
Steps NameTaxesAgain() {
  Steps steps = NameTaxes();
  steps.push_back({"ALTER TABLE infOptions ADD COLUMN TermsOfTrade MEMO"});
  steps.push_back(Do(SetTermsOfTrade));
  return steps;
}

/// Version by version, from the oldest that can be upgraded.
const std::map<int, Steps>& Ladder() {
  static const std::map<int, Steps> ladder = {
      {13, {{"ALTER TABLE Clients ADD COLUMN Work_Cover_Number TEXT (50)"}}},
      {14,
       {{"ALTER TABLE Clients ADD COLUMN Display_Name TEXT (100)"},
        {"UPDATE Clients SET Display_Name = Billing_Name; "},
        {"ALTER TABLE Clients DROP COLUMN Billing_Name"}}},
      {15, {{"ALTER TABLE Invoices ADD COLUMN Made_Out_To_Temp TEXT (255)"}}},
      {16, {{"UPDATE Invoices SET Made_Out_To_Temp = Made_Out_To; "}}},
      {17, {{"ALTER TABLE Invoices DROP COLUMN Made_Out_To"}}},
      {18, {{"ALTER TABLE Invoices ADD COLUMN Made_Out_To TEXT (255); "}}},
      {19, {{"UPDATE Invoices SET Made_Out_To = Made_Out_To_Temp; "}}},
      {20, {{"ALTER TABLE Invoices DROP COLUMN Made_Out_To_Temp; "}}},
      {21, {{"ALTER TABLE Invoices ADD COLUMN Done_For TEXT(255)"}}},
      {22, {{"ALTER TABLE Invoices ADD COLUMN Invoice_Number TEXT(50);"}}},
      {23, {{"UPDATE Invoices SET Invoice_Number = Invoice_ID; "}}},
      {24, {{"ALTER TABLE Clients ADD COLUMN Requires_Statement YESNO; "}}},
      {25, {{"ALTER TABLE General_Ledger_Entries ADD COLUMN Payment_ID NUMBER; "}}},
      {26, {{"ALTER TABLE General_Ledger_Entries ADD COLUMN Purchase_ID NUMBER; "}}},
      {27, {Do(TieLedgerEntries)}},
      {28, {{"ALTER TABLE Diary ADD COLUMN Payment_ID NUMBER; "}}},
      {29, {Do(TotalInvoices)}},
      {30,
       {{"UPDATE Clients SET Account_Balance = 0 "
         "WHERE Account_Balance > (-.01) and Account_Balance < (.01); "}}},
      // The column belongs to version 36, but the lines of jobs that are made anew here need it.
      {31, {{kLinesHaveFrequencies}, Do(RepairSchedules)}},
      {32,
       {Do(ReloadDivisions),
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
        {"CREATE TABLE lstClientsToPrint (Client_ID NUMBER)"}}},
      {33,
       {{"DELETE FROM General_Ledger_Entries "
         "WHERE Isnull(Payment_ID) AND Isnull(Purchase_ID)"},
        {"DELETE General_Ledger_Entries.* FROM Payments RIGHT JOIN General_Ledger_Entries "
         "ON Payments.Payment_ID = General_Ledger_Entries.Payment_ID "
         "WHERE Isnull(Purchase_ID) AND Isnull(Payments.Payment_ID);"}}},
      {34,
       {{"DELETE General_Ledger_Entries.* FROM General_Ledger_Entries LEFT JOIN Payments "
         "ON General_Ledger_Entries.Payment_ID = Payments.Payment_ID "
         "Where IsNull(Purchase_ID) AND Isnull(Payments.Payment_ID)"}}},
      {35, {{"ALTER TABLE lstClientsToPrint ALTER COLUMN Client_ID INT"}}},
      {36,
       {{"CREATE TABLE Holiday (Hol_ID Autoincrement, Hol_Date TEXT(5), Hol_Year INT, "
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
         "SET Diary_Services.Frequency = Client_Services.Frequency"}}},
      {37,
       {{"ALTER TABLE Clients ADD COLUMN Private_Notes MEMO"},
        {"ALTER TABLE infOptions ADD COLUMN Invoice_Notes MEMO"}}},
      {38,
       {{"ALTER TABLE Bankings ADD COLUMN Cash_Unbanked CURRENCY"},
        {"UPDATE Bankings SET Cash_Unbanked = 0"}}},
      {39,
       {{"ALTER TABLE Clients ADD COLUMN InvoiceWithTelNo YESNO"},
        {"UPDATE Clients SET InvoiceWithTelNo = False"}}},
      {40, {{"ALTER TABLE Clients ADD COLUMN Debtor_Since DATE;"}, Do(StampDebtors)}},
      {41,
       {Do(AddWindowDivision),
        {"UPDATE Clients SET Suburb = UCASE(Trim(Suburb))"},
        {"CREATE TABLE Suburb_Position (Suburb_Name TEXT(50), Position INT)"},
        Do(NumberSuburbs)}},
      {42,
       {{"CREATE TABLE Quotes (Quote_ID Autoincrement, Client_ID INT, Quote_Date DATE, "
         "Description TEXT (255))"},
        {"CREATE TABLE Quote_Services (Quote_Service_ID Autoincrement, Quote_ID INT, "
         "Service_ID INT, Price CURRENCY, Notes MEMO)"},
        Do(MakeQuotes)}},
      {43, {{"UPDATE Payments SET Payment_Method = UCase(Payment_Method);"}}},
      {44, {{"ALTER TABLE Invoices ADD COLUMN Invoice_Notes MEMO, IsPaid YESNO"}}},
      {45, NameTaxes()},
      {47, NameTaxesAgain()},
      {48,
       {{"ALTER TABLE infPersonalDetails ADD COLUMN Account_Name TEXT(150), "
         "BSB_Account_Number TEXT(25)"}}},
      // No statement of the dialect, and refused; version 52 makes the change.
      {49, {{"ALTER TABLE infPersonalDetails UPDATE COLUMN BSB_Account_Number TEXT(30)"}}},
      {50, {{"ALTER TABLE infOptions ADD COLUMN EnableLogging YESNO; "}}},
      {51,
       {{"CREATE INDEX CustIndex ON Clients (Client_ID); "},
        {"CREATE INDEX DiaryCustIndex ON Diary (Client_ID); "},
        {"CREATE INDEX PaymentCustIndex ON Payments (Client_ID); "},
        {"CREATE INDEX CustStatusIndex ON Clients (Status); "},
        {"CREATE INDEX DiaryStatusIndex ON Diary (Status); "},
        {"CREATE INDEX CustBillingIndex ON Clients (Billing_Client_ID); "},
        {"ALTER TABLE infOptions ADD COLUMN Default_Email_Message MEMO;"},
        {"ALTER TABLE infOptions ADD COLUMN AdobePath TEXT(255);"}}},
      {52,
       {{"ALTER TABLE infOptions ADD COLUMN RecalculateClientAmtsOwingOnPrint YESNO; "},
        {"ALTER TABLE infPersonalDetails ALTER COLUMN BSB_Account_Number TEXT(30)"}}},
      {53, {{"ALTER TABLE infOptions ADD COLUMN CCEmailAddress TEXT(255);"}}},
      {54,
       {{"ALTER TABLE infOptions ADD COLUMN EnableOstrel4WebServices YESNO; "},
        {"UPDATE infOptions SET EnableOstrel4WebServices = True;"}}},
      {56,
       {{"ALTER TABLE infOptions ADD COLUMN DatabaseUploaded YESNO; "},
        {"UPDATE infOptions SET DatabaseUploaded = False;"}}},
      {57,
       {{"ALTER TABLE infOptions ADD COLUMN CompactDatabaseBeforeUpload YESNO; "},
        {"UPDATE infOptions SET CompactDatabaseBeforeUpload = False;"}}},
  };
  return ladder;
}

}  // namespace

const std::vector<UpgradeStep>& UpgradeStepsOf(int version) {
  static const Steps none;
  const auto rung = Ladder().find(version);
  return rung == Ladder().end() ? none : rung->second;
}

}  // namespace quillary
