#pragma once

#include "documents/billing/BillingRows.h"
#include "reports/ReportKinds.h"

/// Profit and loss: what was earned by ledger account, and what was spent.
namespace quillary::reports {

/// What an account came to; the tax is part of the amount.
struct AccountSum {
  std::optional<Id<Account>> account;  // nothing: no specific one
  QString number;
  QString name;
  Money amount;
  Money tax;
  bool isOfLedger = false;  // of purchases; otherwise of jobs
};

struct ProfitAndLoss {
  std::vector<AccountSum> revenue;  // of jobs, by account
  std::vector<AccountSum> expense;
  Money cashReceived;
  Money taxOfCash;
};

/// By the accounting method of the business: "Cash" counts the jobs whose payments were made in
/// these days, and what was received; "Accrual" the jobs of these days that are not cancelled.
/// Expenses are the ledger entries of purchases of these days, and the jobs of services whose
/// account is one of expenses. A job's part without an account counts as revenue.
ProfitAndLoss CollectProfitAndLoss(Business& business, const DateRange& days);
bool IsOnCash(const Business& business);

/// The statement of the lines of jobs behind the revenue, one by one, for the account; its fields
/// are those of a line, a job and a client.
Sql RevenueLines(const Business& business, const DateRange& days,
                 const std::optional<qint64>& account);

/// The figures with or less tax.
struct Results {
  Money jobsRevenue;
  Money cashReceived;
  Money expense;
  Money revenue;  // that the result counts: what was received on cash, else that of the jobs
  Money Profit() const { return revenue - expense; }
};
Results ResultsOf(const ProfitAndLoss& figures, documents::TaxMode mode, bool onCash);

std::vector<ReportKind> ProfitAndLossKinds();

}  // namespace quillary::reports
