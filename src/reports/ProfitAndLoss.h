#pragma once

#include "documents/billing/BillingRows.h"
#include "reports/ReportKinds.h"

#include <QHash>

#include <utility>

/// Profit and loss: what was earned by ledger account, and what was spent.
namespace quillary::reports {

/// What an account came to; the tax is part of the amount.
struct AccountSum {
  std::optional<Id<Account>> account;  // nothing: no specific one
  QString number;
  QString name;
  Money amount;
  Money tax;
  bool isExpense = false;
  bool isOfLedger = false;  // of purchases; otherwise of jobs
};

struct ProfitAndLoss {
  std::vector<AccountSum> revenue;  // of jobs, by account
  std::vector<AccountSum> expense;
  Money cashReceived;
  Money taxOfCash;
};

/// The books of some days, summed up day by day and account by account, from which the figures of
/// any days among them are told without reading the tables again.
class BookDays {
 public:
  /// By the accounting method of the business: "Cash" counts the jobs whose payments were made in
  /// these days, and what was received; "Accrual" the jobs of these days that are not cancelled.
  /// Expenses are the ledger entries of purchases of these days, and the jobs of services whose
  /// account is one of expenses. A job's part without an account counts as revenue, and a job
  /// without parts as one.
  BookDays(Business& business, const DateRange& days);
  ProfitAndLoss Within(const DateRange& days) const;

 private:
  struct AccountFacts {
    qint64 id = 0;  // 0: no specific account
    QString number;
    QString name;
    bool isExpense = false;
  };
  struct DaySum {
    QDate day;
    size_t account = 0;
    Money amount;
    Money tax;
  };
  struct DaySums {
    DaySum& Of(QDate day, size_t account);

    std::vector<DaySum> sums;

   private:
    std::vector<QHash<qint64, size_t>> places_;  // by account and day, counted from 1
  };

  void LoadAccounts(Business& business);
  /// What was received, and the day of each payment.
  void LoadPayments(Business& business, const DateRange& days);
  void LoadJobs(Business& business, const DateRange& days);
  void LoadLedger(Business& business, const DateRange& days);
  /// When a job or line counts; nothing when it is paid on no day of these books.
  std::optional<QDate> DayOf(const Record& job, bool onCash) const;
  /// The place of an account of that number, of none when there is no such account.
  size_t PlaceOf(qint64 account) const;
  std::vector<AccountSum> SumOf(const DaySums& sums, const DateRange& days, bool isOfLedger) const;

  std::vector<AccountFacts> accounts_;
  DaySums jobs_;
  DaySums ledger_;
  DaySums cash_;
  QHash<qint64, QDate> dayOfPayment_;
};

/// The figures of these days alone.
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
