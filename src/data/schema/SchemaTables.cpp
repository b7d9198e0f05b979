#include "data/schema/SchemaTables.h"

namespace quillary {

const std::vector<TableDefinition>& TableDefinitions() {
  static const std::vector<TableDefinition> definitions = {
      {"Clients",
       "CREATE TABLE Clients ("
       "[Client_ID] COUNTER, [Billing_Client_ID] LONG, [Is_Billed_To] YESNO, "
       "[Status] TEXT(20), [Display_Name] TEXT(100), [First_Name] TEXT(50), "
       "[Surname] TEXT(50), [Street_Number] TEXT(20), [Street] TEXT(50), [Suburb] TEXT(50), "
       "[Post_Code] TEXT(10), [Map] TEXT(20), [Phone_1] TEXT(20), [Phone_2] TEXT(20), "
       "[Fax] TEXT(20), [Email] TEXT(100), [Notes] MEMO, [Private_Notes] MEMO, "
       "[Quote_Date] DATE, [Cancelled_Date] DATE, [Work_Cover_Number] TEXT(50), "
       "[WorkCoverLabel] TEXT(50), [Statement_Type] TEXT(20), [Requires_Statement] YESNO, "
       "[Account_Balance] CURRENCY, [Previous_Billing_Balance] CURRENCY, "
       "[Debtor_Since] DATE, [Last_Payment_Method] TEXT(20), [Bank] TEXT(50), "
       "[Bank_Branch] TEXT(50), [Bank_Account_Name] TEXT(50), "
       "[InvoiceWithOutstanding] YESNO, [InvoiceWithNextJob] YESNO, "
       "[InvoiceWithUnpaidPastJobs] YESNO, [InvoiceWithTelNo] YESNO, "
       "[StatementWithPayments] YESNO)"},
      {"Client_Services",
       "CREATE TABLE Client_Services ("
       "[Client_Service_ID] COUNTER, [Client_ID] LONG, [Service_ID] LONG, "
       "[Employee_ID] LONG, [Status] TEXT(20), [Price] CURRENCY, [Frequency] LONG, "
       "[Next_Visit] DATE, [Estimated_Time] LONG, [Preferred_Day] TEXT(20), "
       "[Preferred_Time] TEXT(20), [Notes] MEMO, [Other_Schedule_Client_Service_ID] LONG)"},
      {"Diary",
       "CREATE TABLE Diary ("
       "[Diary_ID] COUNTER, [Client_ID] LONG, [Employee_ID] LONG, [Status] TEXT(2), "
       "[Schedule_Date] DATE, [Time_Requested] TEXT(20), [Estimated_Minutes] LONG, "
       "[Sequence] LONG, [Description] TEXT(255), [Notes] MEMO, [Total_Price] CURRENCY, "
       "[Total_GST] CURRENCY, [Invoice_ID] LONG, [Payment_ID] LONG)"},
      {"Diary_Services",
       "CREATE TABLE Diary_Services ("
       "[Diary_Service_ID] COUNTER, [Diary_ID] LONG, [Service_ID] LONG, [Price] CURRENCY, "
       "[GST] CURRENCY, [Frequency] LONG)"},
      {"Quotes",
       "CREATE TABLE Quotes ("
       "[Quote_ID] COUNTER, [Client_ID] LONG, [Quote_Date] DATE, [Description] TEXT(255))"},
      {"Quote_Services",
       "CREATE TABLE Quote_Services ("
       "[Quote_Service_ID] COUNTER, [Quote_ID] LONG, [Service_ID] LONG, [Price] CURRENCY, "
       "[Notes] MEMO)"},
      {"Invoices",
       "CREATE TABLE Invoices ("
       "[Invoice_ID] COUNTER, [Invoice_Number] TEXT(50), [Client_ID] LONG, "
       "[Made_Out_To] TEXT(255), [Done_For] TEXT(255), [From_Date] DATE, [To_Date] DATE, "
       "[Generation_Date] DATE, [Invoice_Description] TEXT(100), [Invoice_Notes] MEMO, "
       "[Total_Amount] CURRENCY, [Total_GST] CURRENCY, [Balance_Carried_Across] CURRENCY, "
       "[Statement_Type] TEXT(20), [IsPaid] YESNO)"},
      {"Invoice_Items",
       "CREATE TABLE Invoice_Items ("
       "[Invoice_ID] LONG, [Item_Description] TEXT(255), [Item_Date] DATE, "
       "[Item_Amount] CURRENCY, [Item_GST] CURRENCY)"},
      {"Payments",
       "CREATE TABLE Payments ("
       "[Payment_ID] COUNTER, [Client_ID] LONG, [Employee_ID] LONG, [Banking_ID] LONG, "
       "[Payment_Date] DATE, [Amount] CURRENCY, [GST_Included] CURRENCY, [Owing] CURRENCY, "
       "[Payment_Method] TEXT(20), [Cheque_Number] TEXT(20), [Reference_Number] TEXT(20), "
       "[Bank] TEXT(50), [Bank_Branch] TEXT(50), [Bank_Account_Name] TEXT(50), "
       "[Description] TEXT(255), [Tax_Exempt] YESNO)"},
      {"Bankings",
       "CREATE TABLE Bankings ("
       "[Banking_ID] COUNTER, [Bank_Account_ID] LONG, [Banking_Date] DATE, "
       "[Cash_Banked] CURRENCY, [Cash_Unbanked] CURRENCY, [Total_Banked] CURRENCY)"},
      {"Bank_Accounts",
       "CREATE TABLE Bank_Accounts ("
       "[Bank_Account_ID] COUNTER, [Bank_Account_Name] TEXT(50), "
       "[Bank_Account_Number] TEXT(30))"},
      {"Purchases",
       "CREATE TABLE Purchases ("
       "[Purchase_ID] COUNTER, [Supplier_ID] LONG, [Employee_ID] LONG, "
       "[GL_Account_ID] LONG, [Description] TEXT(255), [Purchase_Date] DATE, "
       "[Amount] CURRENCY, [GST_Included] CURRENCY, [Payment_Method] TEXT(20), "
       "[Invoice_Number] TEXT(30), [Cheque_Number] TEXT(20), [Cheque_Reconciled] YESNO, "
       "[Tax_Exempt] YESNO, [Notes] MEMO, [Capital] YESNO, [Model] TEXT(50), "
       "[Serial_Number] TEXT(50), [Depreciation] SINGLE)"},
      {"Suppliers",
       "CREATE TABLE Suppliers ("
       "[Supplier_ID] COUNTER, [Supplier_Name] TEXT(100), [Contact_Name] TEXT(50), "
       "[Street_Number] TEXT(20), [Street] TEXT(50), [Suburb] TEXT(50), "
       "[Post_Code] TEXT(10), [Phone] TEXT(20), [Fax] TEXT(20), [Email] TEXT(100), "
       "[ABN] TEXT(20), [Payment_Type] TEXT(20), [GL_Account_ID] LONG)"},
      {"General_Ledger_Accounts",
       "CREATE TABLE General_Ledger_Accounts ("
       "[GL_Account_ID] COUNTER, [GL_Account_Name] TEXT(100), [GL_Account_Number] TEXT(20), "
       "[GL_Account_Type] TEXT(20), [Budget_Amount] CURRENCY)"},
      {"General_Ledger_Entries",
       "CREATE TABLE General_Ledger_Entries ("
       "[GL_Entry_ID] COUNTER, [GL_Account_ID] LONG, [Employee_ID] LONG, [Budget_ID] LONG, "
       "[Payment_ID] LONG, [Purchase_ID] LONG, [Entry_Date] DATE, "
       "[GL_Entry_Description] TEXT(255), [GL_Amount] CURRENCY, [GST_Included] CURRENCY)"},
      {"Budgets",
       "CREATE TABLE Budgets ("
       "[Budget_ID] COUNTER, [Budget_Period_ID] LONG, [GL_Account_ID] LONG, "
       "[Budget_Amount] CURRENCY, [Actual] CURRENCY)"},
      {"Budget_Periods",
       "CREATE TABLE Budget_Periods ("
       "[Budget_Period_ID] COUNTER, [Starting_Date] DATE, [Ending_Date] DATE)"},
      {"Services",
       "CREATE TABLE Services ("
       "[Service_ID] COUNTER, [Service] TEXT(100), [Service_Code] TEXT(20), "
       "[Default_GL_Account_ID] LONG, [Sequence_Number] LONG, [Regular] YESNO, "
       "[Default] YESNO)"},
      {"Employees",
       "CREATE TABLE Employees ("
       "[Employee_ID] COUNTER, [Employee_Name] TEXT(50))"},
      {"Holiday",
       "CREATE TABLE Holiday ("
       "[Hol_ID] COUNTER, [Hol_Date] TEXT(5), [Hol_Year] LONG, [Hol_Recurring] YESNO, "
       "[Hol_Description] TEXT(50))"},
      {"Suburb_Position",
       "CREATE TABLE Suburb_Position ("
       "[Suburb_Name] TEXT(50), [Position] LONG)"},
      {"Divisions",
       "CREATE TABLE Divisions ("
       "[Division_ID] LONG, [Division_Name] TEXT(30), [Nature_Of_Business] TEXT(50))"},
      {"Countries",
       "CREATE TABLE Countries ("
       "[Country_ID] COUNTER, [Country_Name] TEXT(50), [Registration_Name] TEXT(50), "
       "[Tax_Name] TEXT(50))"},
      {"lstClientsToPrint",
       "CREATE TABLE lstClientsToPrint ("
       "[Client_ID] LONG)"},
      {"lstBanks",
       "CREATE TABLE lstBanks ("
       "[Bank_ID] COUNTER, [Bank] TEXT(50))"},
      {"lstFrequencies",
       "CREATE TABLE lstFrequencies ("
       "[Frequency_ID] COUNTER, [Frequency_Days] LONG)"},
      {"lstPayment_Methods",
       "CREATE TABLE lstPayment_Methods ("
       "[Payment_Method_ID] COUNTER, [Payment_Method] TEXT(20), [Sequence] LONG)"},
      {"lstInvoicesToPrint",
       "CREATE TABLE lstInvoicesToPrint ("
       "[Invoice_ID] LONG, [Next_Job_Date] TEXT(50))"},
      {"tmprptWorkSummary",
       "CREATE TABLE tmprptWorkSummary ("
       "[Service_ID] LONG, [Price] CURRENCY, [GST] CURRENCY)"},
      {"infOptions",
       "CREATE TABLE infOptions ("
       "[GST_Percentage] SINGLE, [Accounting_Method] TEXT(20), "
       "[Days_To_Advance_Schedule] LONG, [Manage_Multiple_Employees] YESNO, "
       "[Monthly_Invoices_Reminder] DATE, [Invoice_Notes] MEMO, [TermsOfTrade] MEMO, "
       "[Default_Email_Message] MEMO, [EnableLogging] YESNO, "
       "[EnableOstrel4WebServices] YESNO, [AdobePath] TEXT(255), "
       "[CCEmailAddress] TEXT(255), [RecalculateClientAmtsOwingOnPrint] YESNO, "
       "[DatabaseUploaded] YESNO, [CompactDatabaseBeforeUpload] YESNO)"},
      {"infPersonalDetails",
       "CREATE TABLE infPersonalDetails ("
       "[FSE_Code] TEXT(20), [Company_Name] TEXT(100), [First_Name] TEXT(50), "
       "[Surname] TEXT(50), [Street_Number] TEXT(20), [Street] TEXT(50), [Suburb] TEXT(50), "
       "[Post_Code] TEXT(10), [Phone_1] TEXT(20), [Phone_2] TEXT(20), [Fax] TEXT(20), "
       "[Email] TEXT(100), [ABN] TEXT(30), [ACN] TEXT(30), [Provider] TEXT(30), "
       "[Account_Name] TEXT(150), [BSB_Account_Number] TEXT(30), [Division_ID] LONG, "
       "[Country_ID] LONG)"},
      {"infSystem",
       "CREATE TABLE infSystem ("
       "[Database_Version] LONG, [Invoice_Number] LONG, [Last_Schedule_Ending] DATE, "
       "[Last_Monthly_Invoice_Ending] DATE, [Financial_Year_Starting] DATE, "
       "[Backup_Description] TEXT(255), [Done_Initial_Setup] YESNO)"},
  };
  return definitions;
}

}  // namespace quillary
