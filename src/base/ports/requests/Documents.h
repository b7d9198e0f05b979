#pragma once

#include <QStringList>

#include <vector>

/// Requests for the reports, one each, since each opens its own criteria or its own viewer.
namespace quillary {

struct OpenSentDocuments {};
/// A list as it stands on its screen.
struct PrintList {
  QString title;
  QStringList headings;
  std::vector<QStringList> rows;
};
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
