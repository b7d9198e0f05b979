#include "documents/billing/PrintedInvoices.h"
#include "gui/Sweep.h"
#include "setup/demo/DemoBusiness.h"
#include "shell/MenuTree.h"

namespace quillary {
namespace {

// Buttons that must be seen to write: what the sweep no longer reaches proves nothing. Of others it
// is taken back just as well.
const std::set<QString> kWriting = {
    "dlgEmailDocuments/cmdSend",
    "dlgFromDate/cmdOK",
    "dlgPaymentJobs/cmdClose",
    "dlgPaymentJobs/cmdPrintGrid",
    "dlgPaymentOptions/cmdCreateNewPayment",
    "dlgPaymentOptions/cmdSelectAnExisting",
    "frmBankAccounts/cmdDelete",
    "frmBankAccounts/cmdInsert",
    "frmBankAccounts/cmdUpdate",
    "frmBanking/cmdDelete",
    "frmBanking/cmdSave",
    "frmBanks/cmdDelete",
    "frmBanks/cmdInsert",
    "frmBanks/cmdUpdate",
    "frmClientList/cmdDelete",
    "frmClients/cmdAddNewService",
    "frmClients/cmdAddPayment",
    "frmClients/cmdAddService",
    "frmClients/cmdCloseAndSave",
    "frmClients/cmdCreateInvoice",
    "frmClients/cmdDeleteFutureJob",
    "frmClients/cmdDeleteInvoice",
    "frmClients/cmdDeletePastJob",
    "frmClients/cmdRemoveService",
    "frmClients/cmdReschedule",
    "frmClients/cmdSave",
    "frmClients/cmdSaveService",
    "frmClients/cmdTransferPayments",
    "frmCountries/cmdDelete",
    "frmCountries/cmdInsert",
    "frmCountries/cmdUpdate",
    "frmCreateAQuote/cmdSave",
    "frmCreateCustomBackup/cmdCreateBackup",
    "frmDiary/cmdCancelled",
    "frmDiary/cmdDoneUnPaid",
    "frmDiary/cmdNext",
    "frmDivisions/cmdDelete",
    "frmDivisions/cmdInsert",
    "frmDivisions/cmdUpdate",
    "frmEmployees/cmdAdd",
    "frmEmployees/cmdRemove",
    "frmGeneralLedgerAccounts/cmdDeleteExpense",
    "frmGeneralLedgerAccounts/cmdDeleteRevenue",
    "frmGeneralLedgerAccounts/cmdUpdateExpense",
    "frmGeneralLedgerAccounts/cmdUpdateRevenue",
    "frmHoliday/cmdDelete",
    "frmHoliday/cmdInsert",
    "frmInvoice/cmdRemoveJob",
    "frmInvoice/cmdSave",
    "frmInvoice/cmdSaveAndClose",
    "frmInvoicesList/cmdDeleteInvoice",
    "frmInvoicesList/cmdNewInvoice",
    "frmInvoicesList/cmdPrintInvoices",
    "frmJobs/cmdAddPayment",
    "frmJobs/cmdExtraWork",
    "frmJobs/cmdRemoveService",
    "frmJobs/cmdSaveAndClose",
    "frmJobs/cmdSaveOnly",
    "frmJobs/cmdUpdate",
    "frmJobs/imgStopGo",
    "frmJobsAndPaymentChecker/cmdDeleteJob",
    "frmJobsAndPaymentChecker/cmdDeletePayment",
    "frmJobsList/cmdDeleteJob",
    "frmListOfJobs/cmdAttachJobsToInvoice",
    "frmMiscellaneousSettings/cmdCloseAndSave",
    "frmPaymentMethods/cmdDelete",
    "frmPaymentMethods/cmdInsert",
    "frmPaymentMethods/cmdUpdate",
    "frmPaymentMethodsDialog/cmdDelete",
    "frmPaymentMethodsDialog/cmdInsert",
    "frmPaymentMethodsDialog/cmdUpdate",
    "frmPayments/cmdAddRevenueAccount",
    "frmPayments/cmdChangeJobsPaidFor",
    "frmPayments/cmdRemoveRevenueAccount",
    "frmPayments/cmdSave",
    "frmPayments/cmdSaveOnly",
    "frmPayments/cmdShowPaymentMethods",
    "frmPayments/cmdUpdateRevenueAccount",
    "frmPaymentsByAClient/cmdAttachJob",
    "frmPaymentsList/cmdDelete",
    "frmPersonalInformation/cmdCloseAndSave",
    "frmPersonalInformation/cmdSave",
    "frmPurchase/cmdAddExpenseAccount",
    "frmPurchase/cmdAttachReceipt",
    "frmPurchase/cmdSaveOnly",
    "frmPurchase/cmdShowSuppliers",
    "frmPurchase/cmdUpdateExpenseAccount",
    "frmReschedule/cmdRecreate",
    "frmSetJobPricesForMonthly/cdmStart",
    "frmSuburb_Position/cmdRemove",
    "frmSuppliers/cmdAdd",
    "frmSuppliers/cmdRemove",
    "frmSuppliers/cmdUpdate",
    "frmSuppliersDialog/cmdAdd",
    "frmSuppliersDialog/cmdMore",
    "frmSuppliersDialog/cmdRemove",
    "frmSuppliersDialog/cmdUpdate",
    "frmToday/cmdInvoiceJobs",
    "frmToday/cmdMakeDocuments",
    "frmToday/cmdMarkDone",
    "frmVisit/cmdDelete",
    "frmVisit/cmdSaveAndClose",
    "frmVisitFrequencies/cmdAdd",
    "frmVisitFrequencies/cmdRemove",
    "mnuFinancialPaymentsReceived",
    "mnuFirstnameSurnameFormat",
    "mnuFunctionsRecalculateBudgets",
    "mnuRecalculateGSTComponent",
    "wndReportPreview/cmdPrint",
};

/// Left out is what leads to another file, ends the history, or fails by design.
bool IsLeftAlone(const shell::MenuEntry& entry) {
  static const std::set<QString> kNames = {
      "mnuFunctionsRestoreBackup", "mnuCreateDBOfAllTransferredClients", "mnuSetupTechnicalODBC",
      "mnuUpdateRevenueAccountIntoDefault"};
  return entry.action.kind != shell::MenuAction::Kind::Screen || kNames.contains(entry.name);
}

void AddCommands(const std::vector<shell::MenuEntry>& entries, QStringList& commands) {
  for (const shell::MenuEntry& entry : entries) {
    if (!IsLeftAlone(entry)) commands += QString::fromLatin1(entry.name);
    AddCommands(entry.entries, commands);
  }
}

class UndoSweepTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    Outside world = outside.Ports();
    Business business(world, File());
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, {.clients = 20, .months = 1});
    // Their table comes with the first document, and a change of the schema ends the history.
    documents::NotePrinted(business, {});
    business.CloseConnection();
  }
  YesSayer yes;
};

TEST_F(UndoSweepTest, WhatEachButtonWroteIsTakenBackAndMadeAgain) {
  const Outside world{
      outside.clock,  yes, outside.errors, outside.busy, outside.settings, outside.headOffice,
      outside.desktop};
  QDir::setCurrent(folder.path());
  program = std::make_unique<shell::Program>(world, navigator, folder.path());
  program->UseFile(File());
  ASSERT_TRUE(program->Start({}));
  Sweep sweep(*program, outside.errors);
  QStringList commands;
  AddCommands(shell::MenuTree(), commands);
  for (const QString& command : commands) sweep.Go(command);
  for (const QString& button : kWriting)
    EXPECT_TRUE(sweep.Wrote().contains(button)) << button.toStdString() << " wrote nothing";
}

}  // namespace
}  // namespace quillary
