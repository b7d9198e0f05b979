#include "shell/MenuTree.h"

#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Help.h"
#include "base/ports/requests/Mail.h"
#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "base/ports/requests/Setup.h"

#include <cstring>

namespace quillary::shell {

namespace {

using Entries = std::vector<MenuEntry>;

constexpr MenuAction kNothing{MenuAction::Kind::Nothing};
constexpr MenuAction kMainWindow{MenuAction::Kind::MainWindow};

template <typename Request, auto... arguments>
MenuAction Opens() {
  return {MenuAction::Kind::Screen,
          [](const Navigator& navigator) { return navigator.CanOpen<Request>(); },
          [](const Navigator& navigator) { navigator.Open(Request{arguments...}); }};
}

MenuEntry Menu(const char* name, const char* caption, Entries entries) {
  return {name, caption, {}, "", "", std::move(entries)};
}

MenuEntry Break(const char* name) {
  return {name, "", {MenuAction::Kind::Separator}};
}

Entries Financial() {
  return {
      {"mnuFinancialPaymentsReceived", "Payments received", Opens<OpenPaymentsList>(),
       "Payments Received", "frmPaymentsList"},
      {"mnuFinancialDebtors", "Debtors/Creditors", Opens<OpenDebtors>(), "Debtors/Creditors",
       "frmDebtors"},
      {"mnuFinancialBanking", "Banking", Opens<OpenBanking>(), "Banking", "frmBanking"},
      {"mnuFinancialChequeReconciliation", "Che&que reconciliation",
       Opens<OpenChequeReconciliation>(), "Cheque Reconciliation", "frmChequeReconciliation"},
      Break("mnuFinancialBreak1"),
      {"mnuFinancialEnterInvoices", "Enter invoices", kNothing},
      {"mnuInvoicesList", "Invoices, Statements, && Reminders", Opens<OpenInvoicesList>(),
       "Invoice, Statements and Reminders", "frmInvoicesList"},
      {"mnuFinancialStatements", "Monthly Invoice && Statement", kNothing},
      Break("mnuFinancialBreak2"),
      {"mnuFinancialPurchases", "Purchases made", Opens<OpenPurchasesList>(), "Purchases made",
       "frmPurchasesList"},
      {"mnuFinancialSuppliers", "Suppliers", Opens<OpenSuppliers>(), "Suppliers", "frmSuppliers"},
      Break("mnuFinancialBreak3"),
      {"mmuJobsList", "Jobs", Opens<OpenJobsList>(), "Jobs", "frmJobsList"},
      Break("mnuFinancialBreak4"),
      {"mnuFinancialBudgets", "Yearly budgets", Opens<OpenBudgets>(), "Yearly budgets",
       "frmBudgets"},
  };
}

Entries Reports() {
  return {
      {"mnuSentDocuments", "Sent Documents", Opens<OpenSentDocuments>(), "Client Report"},
      {"mnuOutbox", "Outbox", Opens<OpenOutbox>(), "Outbox", "frmEmailingServices"},
      Break("mnuReportsBreak_0"),
      {"mnuReportsClients", "Clients", Opens<ReportOnClients>(), "Client Report"},
      {"mnuReportsQuotes", "Quotes", Opens<ReportOnQuotes>(), "Quotes Report"},
      {"mnuReportsBadDebtors", "Bad debtors", Opens<ReportOnBadDebtors>(), "Bad Debtors Report"},
      Break("mnuReportsBreak_1"),
      {"mnuInvoiceList", "Invoice list", Opens<ReportOnInvoices>(), "Invoice List"},
      {"mnuReportsJobsList", "Jobs list", Opens<ReportOnJobs>(), "Jobs List"},
      {"mnuReportsOverdueJobs", "Overdue jobs", Opens<ReportOnOverdueJobs>(), "Overdue Jobs"},
      {"mnuReportsWorkSummary", "Jobs summary", Opens<ReportOnJobsSummary>(), "Jobs Summary"},
      {"mnuPaymentsReceived", "Payments received", Opens<ReportOnPaymentsReceived>(),
       "Payments Received"},
      {"mnuWorkDoneForClient", "Work done for clients", Opens<ReportOnWorkDone>(),
       "Work done for Clients"},
      Break("mnuReportsBreak0"),
      {"mnuReportsGST", "GST", Opens<ReportOnGST>(), "GST"},
      {"mnuReportsDebtors", "Debtors/Creditors", Opens<ReportOnDebtors>(),
       "Debtors/Creditors Report"},
      {"mnuReportsPurchases", "Purchases made", Opens<ReportOnPurchases>(),
       "Purchases made Report"},
      {"mnuReportsAssets", "Assets", Opens<ReportOnAssets>(), "Assets Report"},
      Menu("mnuReportsPL", "Ledger accounts (Profit/Loss)",
           {
               {"mnuPLWithGST", "With GST", Opens<ReportOnProfitAndLoss, true>(),
                "Profit and Lost (with GST) Report"},
               {"mnuPLWithoutGST", "Without GST", Opens<ReportOnProfitAndLoss, false>(),
                "Profit and Lost (without GST) Report"},
           }),
      {"mnuReportsUnpresentedCheques", "Unpresented cheques", Opens<ReportOnUnpresentedCheques>(),
       "Unpresented Cheques Report"},
      Break("mnuReportsBreak2"),
      {"mnuReportsConversionRate", "Conversion rate", Opens<ReportOnConversionRate>(),
       "Conversion Rate Report"},
      Break("mnuReportsBreak3"),
      {"mnuReportsAccountOfClient", "Account of a client", Opens<ShowAccountOfClient>(),
       "Account Of Client Report"},
      {"mnuReportsAccountantPack", "Accountant's pack", Opens<ReportOnAccountantPack>(),
       "Accountant Pack"},
      Break("mnuReportsBreak4"),
      {"mnuToday", "Today at a glance", Opens<OpenToday>(), "Today", "frmToday"},
  };
}

Entries Functions() {
  return {
      {"mnuFunctionsAdjustPrices", "Adjust prices", kNothing},
      Menu(
          "mnuBackup", "Backup",
          {
              {"mnuFunctionsRestoreBackup", "Restore backup", Opens<OpenRestoreBackup>(),
               "Restore Backup"},
              {"mnuRestoreClient", "Restore one client", Opens<OpenRestoreClient>(),
               "Restore one client", "frmRestoreClient"},
              {"mnuCreateBackup", "Create custom backup", Opens<OpenCreateCustomBackup>(),
               "Create Custom Backup"},
              {"mnuSetupTechnicalBackups", "Automatic backups", Opens<OpenAutomaticBackups>(),
               "Automatic Backups"},
              Break("mnuSep"),
              {"mnuCreateDBOfAllTransferredClients",
               "Create new database of all transferred clients", Opens<OpenCreateDBOfTransferred>(),
               "Create new database of all transferred clients"},
          }),
      {"mnuFunctionsRecalculateBudgets", "Recalculate budgets", Opens<RecalculateBudgets>()},
      {"mnuFunctionsReschedule", "Reschedule", Opens<OpenReschedule>(), "Reschedule",
       "frmReschedule"},
      {"mnuFunctionsMailMergeClients", "Mail merge clients", kNothing},
      Break("mnuFunctionsBreak1"),
      {"mnuSetDBVersion", "Set db version", Opens<SetDBVersion>()},
      {"mnuClientsPastJobsAndPayments", "Client's Jobs and Payments",
       Opens<OpenJobsAndPaymentChecker>(), "Clients Jobs and Payments", "frmJobsAndPaymentChecker"},
      {"mnuRecalculateGSTComponent", "Re-calculate GST component",
       Opens<RecalculateGSTComponent>()},
      {"mnuRecomputeAmountOwing", "Re-calculate Amount Owing of all Clients",
       Opens<RecomputeAmountOwing>()},
      {"mnuSortoutDatabaseRecords", "Sort-out database records", Opens<SortOutDatabaseRecords>(),
       "Sort out Database Records"},
      Menu("mnuUpdateBillingName", "Update Billing Name/Display Name into",
           {
               {"mnuFirstnameSurnameFormat", "(Firstname Surname) format",
                Opens<UpdateBillingNames, true>(),
                "Update Billing/Disply name fomrat (Firstname/Surname)"},
               {"mnuSurnameFirstnameFormat", "(Surname, Firstname) format",
                Opens<UpdateBillingNames, false>(),
                "Update Billing/Disply name fomrat (Surname/FirstName)"},
           }),
      {"mnuTransferPaymentsToOtherClient", "Transfer client payments to another client",
       Opens<OpenTransferOfPayments>()},
      {"mnuListOfClientsWithJobSchedulingProblem", "List of clients with job scheduling problem",
       Opens<OpenListOfClientsWithSchedulingProblem>(),
       "List Of Clients With Job Scheduling Problem", "frmListOfClientsWithSchedulingProblem"},
      {"mnuDeletePreviousFinancialRecords", "Delete previous financial year records",
       Opens<DeletePreviousFinancialRecords>(), "Delete Previous Financial Records"},
      {"mnuUpdateRevenueAccountIntoDefault", "Update Revenue Account of Payments into its default",
       Opens<UpdateRevenueAccountIntoDefault>()},
      Break("mnuBreak"),
      Menu("mnuFunctionsDataEditing", "Data editing",
           {
               {"mnuFunctionsDataEditingFixClientDetails", "Fix client details",
                Opens<OpenFixClientDetails>(), "", "frmInitialSetup_ClientDetails"},
               {"mnuFunctionsDataEditingScheduleClients", "Schedule clients",
                Opens<OpenScheduleClients>(), "", "frmInitialSetup_Schedules"},
               {"mnuFunctionsDataEditingAllocateClientsToOperator", "Allocate clients to operator",
                kNothing},
           }),
      Menu("mnuFunctionsImportDataFrom", "Import data from somewhere",
           {
               {"mnuFunctionsImportFromBravantiOne", "Import from Bravanti One",
                Opens<ImportFromBravantiOne>()},
               {"mnuFunctionsImportFromVerdo", "Import from Verdo", kNothing},
           }),
      Menu("mnuFunctionsDebugTools", "Debug tools",
           {
               {"mnuFunctionsDebugTest1", "Test #1", kMainWindow},
           }),
      {"mnuRegisterComponents", "Register Components", kMainWindow, "Register Components"},
      {"cmdReconnectToInternet", "Reconnect to Internet", kMainWindow},
      {"mnuUploadDatabase", "Upload database to Ostrel4 Server", Opens<UploadDatabase>(),
       "Upload Database File Start"},
      {"mnuCopyFromOstrel", "Download data from Bravanti's Online...", Opens<OpenCopyFromOstrel>(),
       "Copy From Head Office"},
  };
}

Entries Setup() {
  return {
      {"mnuSetupPersonalInfo", "Your personal information", Opens<OpenPersonalInformation>(),
       "Setup Personal Information", "frmPersonalInformation"},
      {"mnuSetupServices", "Services provided", Opens<OpenServices>(), "Setup Services",
       "frmServices"},
      {"mnuSetupPeople", "Employees", Opens<OpenEmployees>(), "Setup Employees", "frmEmployees"},
      {"mnuSetupMisc", "Miscellaneous settings", Opens<OpenMiscellaneousSettings>(),
       "Setup Miscellaneous Settings", "frmMiscellaneousSettings"},
      Break("mnuSetupBreak1"),
      Menu("mnuSetupFinancial", "Financial settings",
           {
               {"mnuSetupFinancialGLAccounts", "General Ledger Accounts",
                Opens<OpenGeneralLedgerAccounts>(), "Setup General Ledger Accounts",
                "frmGeneralLedgerAccounts"},
               {"mnuSetupFinancialBankAccounts", "Bank accounts", Opens<OpenBankAccounts>(),
                "Setup Bank Accounts", "frmBankAccounts"},
               {"mnuSetupFinancialBudgets", "Budgets", Opens<OpenSetupBudgets>(), "Setup Budgets",
                "frmSetupBudgets"},
           }),
      Menu("mnuSetupTechnical", "Technical settings",
           {
               {"mnuSetupTechnicalODBC", "Database (ODBC) connection", Opens<OpenODBCConnection>()},
           }),
      Menu("mnuSetupLists", "Miscellaneous lists",
           {
               {"mnuSetupListsBanks", "Banks to list", Opens<OpenBanks>(), "", "frmBanks"},
               {"mnuSetupListsScheduleFrequencies", "Schedule frequencies",
                Opens<OpenVisitFrequencies>(), "", "frmVisitFrequencies"},
               {"mnuSetupListsPaymentMethods", "Payment methods", Opens<OpenPaymentMethods>(), "",
                "frmPaymentMethods"},
               {"mnuDivisions", "Divisions", Opens<OpenDivisions>(), "", "frmDivisions"},
               {"mnuCountries", "Countries", Opens<OpenCountries>(), "", "frmCountries"},
               {"mnuHoliday", "Holiday", Opens<OpenHoliday>(), "", "frmHoliday"},
           }),
      // At the end, apart from the settings of the business: the look of this user's program.
      Menu("mnuAppearance", "Appearance",
           {
               {"mnuAppearanceSystem", "As the system", kMainWindow},
               {"mnuAppearanceLight", "Light", kMainWindow},
               {"mnuAppearanceDark", "Dark", kMainWindow},
           }),
  };
}

Entries Help() {
  return {
      {"mnuHelpManual", "User manual", Opens<OpenManual>()},
      {"mnuHelpFAQ", "FAQ", Opens<OpenFAQ>()},
      {"mnuHelpShortcuts", "Shortcuts", Opens<OpenShortcuts>()},
      {"mnuHelpIndex", "User manual (on the internet)", Opens<OpenManualInBrowser>()},
      Break("mnuHelpBreak1"),
      {"mnuHelpAboutQuillary", "About Quillary", Opens<OpenAbout>()},
  };
}

Entries MakeTree() {
  return {
      {"mnuDiary", "&Diary...", Opens<OpenDiary>(), "Diary", "frmDiary"},
      {"mnuClientsAddClient", "&Add client...", Opens<AddClient>(), "Add Client"},
      {"mnuClientFindClient", "&Clients...", Opens<OpenClientList>(), "Find Client",
       "frmClientList"},
      {"mnuQuote", "&Quotes...", Opens<OpenCreateAQuote>(), "Create Quote", "frmCreateAQuote"},
      Menu("mnuFinancial", "&Financial", Financial()),
      Menu("mnuReports", "&Reports", Reports()),
      Menu("mnuFunctions", "Fu&nctions", Functions()),
      Menu("mnuSetup", "&Setup", Setup()),
      Menu("mnuHelp", "&Help", Help()),
      {"mnuExit", "E&xit", kMainWindow},
  };
}

const MenuEntry* Find(const Entries& entries, const char* screen) {
  for (const MenuEntry& entry : entries) {
    if (*entry.screen && std::strcmp(entry.screen, screen) == 0) return &entry;
    if (const MenuEntry* below = Find(entry.entries, screen)) return below;
  }
  return nullptr;
}

}  // namespace

const std::vector<MenuEntry>& MenuTree() {
  static const Entries tree = MakeTree();
  return tree;
}

const MenuEntry* EntryOfScreen(const char* screen) {
  return Find(MenuTree(), screen);
}

}  // namespace quillary::shell
