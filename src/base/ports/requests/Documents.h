#pragma once

/// Requests for the reports, one each, since each opens its own criteria or its own viewer.
namespace quillary {

struct OpenSentDocuments {};
struct ReportOnClients {};
struct ReportOnBadDebtors {};
struct ReportOnInvoices {};
struct ReportOnJobs {};
struct ReportOnOverdueJobs {};
struct ReportOnJobsSummary {};
struct ReportOnPaymentsReceived {};
struct ReportOnWorkDone {};
struct ReportOnGST {};
struct ReportOnDebtors {};
struct ReportOnPurchases {};
struct ReportOnAssets {};
struct ReportOnProfitAndLoss {
  bool withGST = true;
};
struct ReportOnUnpresentedCheques {};

}  // namespace quillary
