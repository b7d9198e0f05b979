#pragma once

#include "base/DateRange.h"
#include "base/Id.h"

#include <QDate>
#include <QStringList>

#include <optional>
#include <vector>

/// Requests for the reports, one each, since each opens its own criteria or its own viewer.
namespace quillary {

struct OpenSentDocuments {};

/// The three documents of some invoices. Each is written in the format that the user has chosen;
/// the answer is whether a document came out.
struct PrintInvoices {
  using Result = bool;
  std::vector<Id<Invoice>> invoices;
  QString fileNamePart;
  bool priceIncludesGST = true;
};
struct PrintStatements {
  using Result = bool;
  std::vector<Id<Invoice>> invoices;
  QDate from;
  QDate to;
  bool priceIncludesGST = true;
};
struct PrintReminders {
  using Result = bool;
  std::vector<Id<Invoice>> invoices;
  bool priceIncludesGST = true;
};
/// Mails the document that was written last.
struct EmailLastDocument {};

/// A list as it stands on its screen.
struct PrintList {
  QString title;
  QStringList headings;
  std::vector<QStringList> rows;
  std::vector<bool> isAmount =
      {};  // by column; who does not say leaves it to the looks of the rows
};
/// The days for what the title says. Nothing when the user gives up.
struct PickDates {
  using Result = std::optional<DateRange>;
  QString title;
};
struct PrintQuote {
  Id<Quote> quote;
  bool pricesExcludeTax = false;
};
/// The ledger entries of an account in these days.
struct ShowLedgerEntries {
  Id<Account> account;
  DateRange days;
};
struct PrintPayInSlip {
  Id<Banking> banking;
};
/// Why a client owes what it owes; asks for the client when none is named.
struct ShowAccountOfClient {
  std::optional<Id<Client>> client = {};
};
struct ReportOnClients {};
struct ReportOnQuotes {};
struct ReportOnConversionRate {};
struct ReportOnAccountantPack {};
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
