#include "reports/ProfitAndLoss.h"

#include "domain/BillingWords.h"
#include "domain/EntryStatus.h"
#include "reports/ListReport.h"

#include <QHash>

#include <algorithm>

namespace quillary::reports {
namespace {

using documents::TaxMode;

const char* const kNoAccount = "(No specific account)";

/// The lines of jobs with the account of their service, an entry without lines once for itself.
const char* const kLinesWithAccounts =
    "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) LEFT JOIN Services ON "
    "Diary_Services.Service_ID = Services.Service_ID) LEFT JOIN General_Ledger_Accounts ON "
    "Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID WHERE ";

/// What the lines are joined to, and which of them count.
struct Selection {
  Sql from;
  Sql where;
};
Selection SelectionOf(const DateRange& days, bool onCash) {
  if (onCash)
    return {Sql("(((Payments INNER JOIN Diary ON Payments.Payment_ID = Diary.Payment_ID) "),
            Within("Payments.Payment_Date", days)};
  return {Sql("((Diary "), Sql("Diary.Status IN {} AND ", CodesOf(EntryGroup::LiveJobs)) +
                               Within("Schedule_Date", days)};
}

/// One pass over the diary in its own order. On cash the days are tried on the sums: tried on the
/// rows, the jobs would be looked up payment by payment, all over the table, in twice the time.
Sql SumsByDayAndService(const DateRange& days, bool onCash) {
  const Sql sums(
      "Diary_Services.Service_ID, Sum(IIf(Diary_Services.Diary_Service_ID IS NULL, "
      "Diary.Total_Price, Diary_Services.Price)) AS SumOfGL_Amount, "
      "Sum(IIf(Diary_Services.Diary_Service_ID IS NULL, Diary.Total_GST, Diary_Services.GST)) AS "
      "SumOfGST_Included FROM ");
  const Sql lines("LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID ");
  if (onCash)
    return Sql("SELECT Payments.Payment_Date AS On_Day, ") + sums +
           Sql("(Diary LEFT JOIN Payments ON Diary.Payment_ID = Payments.Payment_ID) ") + lines +
           Sql("GROUP BY Payments.Payment_Date, Diary_Services.Service_ID HAVING ") +
           Within("Payments.Payment_Date", days);
  return Sql("SELECT Diary.Schedule_Date AS On_Day, ") + sums + Sql("Diary ") + lines +
         Sql("WHERE Diary.Status IN {} AND ", CodesOf(EntryGroup::LiveJobs)) +
         Within("Diary.Schedule_Date", days) +
         Sql(" GROUP BY Diary.Schedule_Date, Diary_Services.Service_ID");
}

Money AmountOf(const AccountSum& sum, TaxMode mode) {
  return mode == TaxMode::Included ? sum.amount : sum.amount - sum.tax;
}

Money TotalOf(const std::vector<AccountSum>& sums, TaxMode mode) {
  Money total;
  for (const AccountSum& sum : sums) total += AmountOf(sum, mode);
  return total;
}

}  // namespace

bool IsOnCash(const Business& business) {
  return business.values.accountingMethod.compare(QStringLiteral("Accrual"), Qt::CaseInsensitive) !=
         0;
}

BookDays::BookDays(Business& business, const DateRange& days) {
  LoadAccounts(business);
  LoadJobs(business, days);
  LoadLedger(business, days);
  LoadCash(business, days);
}

void BookDays::LoadAccounts(Business& business) {
  for (const Record row : business.RunSQL(
           Sql("SELECT GL_Account_ID, GL_Account_Number, GL_Account_Name, GL_Account_Type FROM "
               "General_Ledger_Accounts ORDER BY GL_Account_Type DESC, GL_Account_Name")))
    accounts_.push_back(
        {row[u"GL_Account_ID"].ToLong(), row[u"GL_Account_Number"].ToText(),
         row[u"GL_Account_Name"].ToText(QString::fromLatin1(kNoAccount)),
         FromText<AccountType>(row[u"GL_Account_Type"].ToText()) == AccountType::Expense});
  accounts_.push_back({0, {}, QString::fromLatin1(kNoAccount), false});
}

size_t BookDays::PlaceOf(qint64 account) const {
  for (size_t at = 0; at + 1 < accounts_.size(); ++at)
    if (accounts_[at].id == account) return at;
  return accounts_.size() - 1;
}

void BookDays::LoadJobs(Business& business, const DateRange& days) {
  QHash<qint64, size_t> accountOfService;
  for (const Record row :
       business.RunSQL(Sql("SELECT Service_ID, Default_GL_Account_ID FROM Services")))
    accountOfService[row[u"Service_ID"].ToLong()] = PlaceOf(row[u"Default_GL_Account_ID"].ToLong());
  for (const Record row : business.RunSQL(SumsByDayAndService(days, IsOnCash(business)))) {
    jobs_.push_back({row[u"On_Day"].ToDate(),
                     accountOfService.value(row[u"Service_ID"].ToLong(), accounts_.size() - 1),
                     row[u"SumOfGL_Amount"].ToMoney(), row[u"SumOfGST_Included"].ToMoney()});
  }
}

void BookDays::LoadLedger(Business& business, const DateRange& days) {
  for (const Record row : business.RunSQL(
           Sql("SELECT Entry_Date, GL_Account_ID, Sum(GL_Amount) AS SumOfGL_Amount, "
               "Sum(GST_Included) AS SumOfGST_Included FROM General_Ledger_Entries "
               "WHERE Not IsNull(Purchase_ID) AND ") +
           reports::Within("Entry_Date", days) + Sql(" GROUP BY Entry_Date, GL_Account_ID")))
    ledger_.push_back({row[u"Entry_Date"].ToDate(), PlaceOf(row[u"GL_Account_ID"].ToLong()),
                       row[u"SumOfGL_Amount"].ToMoney(), row[u"SumOfGST_Included"].ToMoney()});
}

void BookDays::LoadCash(Business& business, const DateRange& days) {
  for (const Record row :
       business.RunSQL(Sql("SELECT Payment_Date, Sum(Amount) AS SumOfAmount, Sum(GST_Included) AS "
                           "SumOfGST_Included FROM Payments WHERE ") +
                       reports::Within("Payment_Date", days) + Sql(" GROUP BY Payment_Date")))
    cash_.push_back({row[u"Payment_Date"].ToDate(), 0, row[u"SumOfAmount"].ToMoney(),
                     row[u"SumOfGST_Included"].ToMoney()});
}

std::vector<AccountSum> BookDays::SumOf(const DaySums& sums, const DateRange& days,
                                        bool isOfLedger) const {
  std::vector<std::optional<AccountSum>> byAccount(accounts_.size());
  for (const DaySum& sum : sums) {
    if (!days.Contains(sum.day)) continue;
    const AccountFacts& facts = accounts_[sum.account];
    auto& of = byAccount[sum.account];
    if (!of)
      of = AccountSum{facts.id == 0 ? std::nullopt : std::optional(Id<Account>(facts.id)),
                      facts.number,
                      facts.name,
                      {},
                      {},
                      facts.isExpense || isOfLedger,
                      isOfLedger};
    of->amount += sum.amount;
    of->tax += sum.tax;
  }
  std::vector<AccountSum> all;
  for (const auto& sum : byAccount)
    if (sum) all.push_back(*sum);
  return all;
}

ProfitAndLoss BookDays::Within(const DateRange& days) const {
  ProfitAndLoss figures;
  for (const AccountSum& sum : SumOf(jobs_, days, false))
    (sum.isExpense ? figures.expense : figures.revenue).push_back(sum);
  std::vector<AccountSum> spent = SumOf(ledger_, days, true);
  std::stable_sort(spent.begin(), spent.end(), [](const AccountSum& a, const AccountSum& b) {
    return a.number != b.number ? a.number < b.number : a.name < b.name;
  });
  figures.expense.insert(figures.expense.end(), spent.begin(), spent.end());
  for (const DaySum& sum : cash_) {
    if (!days.Contains(sum.day)) continue;
    figures.cashReceived += sum.amount;
    figures.taxOfCash += sum.tax;
  }
  return figures;
}

ProfitAndLoss CollectProfitAndLoss(Business& business, const DateRange& days) {
  return BookDays(business, days).Within(days);
}

Sql RevenueLines(const Business& business, const DateRange& days,
                 const std::optional<qint64>& account) {
  const Selection selection = SelectionOf(days, IsOnCash(business));
  return Sql("SELECT Diary.Diary_ID, Diary.Client_ID, Clients.Display_Name, "
             "Diary.Schedule_Date, Diary.Status, Diary.Description, "
             "General_Ledger_Accounts.GL_Account_ID, General_Ledger_Accounts.GL_Account_Name, "
             "IIf(Diary_Services.Diary_Service_ID IS NULL, Diary.Total_Price, "
             "Diary_Services.Price) AS Amount, IIf(Diary_Services.Diary_Service_ID IS NULL, "
             "Diary.Total_GST, Diary_Services.GST) AS Tax, Services.Service FROM (") +
         selection.from + Sql("LEFT JOIN Clients ON Diary.Client_ID = Clients.Client_ID) ") +
         Sql(kLinesWithAccounts) + selection.where +
         OfAccount("General_Ledger_Accounts.GL_Account_ID", account) +
         Sql(" ORDER BY General_Ledger_Accounts.GL_Account_Name, "
             "General_Ledger_Accounts.GL_Account_ID, Diary.Schedule_Date, Diary.Diary_ID, "
             "Services.Service;");
}

Results ResultsOf(const ProfitAndLoss& figures, TaxMode mode, bool onCash) {
  Results results;
  results.jobsRevenue = TotalOf(figures.revenue, mode);
  results.cashReceived =
      mode == TaxMode::Included ? figures.cashReceived : figures.cashReceived - figures.taxOfCash;
  results.expense = TotalOf(figures.expense, mode);
  results.revenue = onCash ? results.cashReceived : results.jobsRevenue;
  return results;
}

}  // namespace quillary::reports
