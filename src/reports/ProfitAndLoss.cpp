#include "reports/ProfitAndLoss.h"

#include "domain/BillingWords.h"
#include "domain/EntryStatus.h"
#include "reports/ListReport.h"

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

Sql RevenueOfDays(const DateRange& days, bool onCash) {
  const Selection selection = SelectionOf(days, onCash);
  return Sql("SELECT General_Ledger_Accounts.GL_Account_ID, "
             "General_Ledger_Accounts.GL_Account_Number, General_Ledger_Accounts.GL_Account_Name, "
             "General_Ledger_Accounts.GL_Account_Type, "
             "Sum(IIf(Diary_Services.Diary_Service_ID IS NULL, Diary.Total_Price, "
             "Diary_Services.Price)) AS SumOfGL_Amount, "
             "Sum(IIf(Diary_Services.Diary_Service_ID IS NULL, Diary.Total_GST, "
             "Diary_Services.GST)) AS SumOfGST_Included FROM ") +
         selection.from + Sql(kLinesWithAccounts) + selection.where +
         Sql(" GROUP BY General_Ledger_Accounts.GL_Account_ID, "
             "General_Ledger_Accounts.GL_Account_Number, General_Ledger_Accounts.GL_Account_Name, "
             "General_Ledger_Accounts.GL_Account_Type "
             "ORDER BY General_Ledger_Accounts.GL_Account_Type DESC, "
             "General_Ledger_Accounts.GL_Account_Name; ");
}

AccountSum SumFrom(const Record& row) {
  return {row[u"GL_Account_ID"].ToId<Account>(), row[u"GL_Account_Number"].ToText(),
          row[u"GL_Account_Name"].ToText(QString::fromLatin1(kNoAccount)),
          row[u"SumOfGL_Amount"].ToMoney(), row[u"SumOfGST_Included"].ToMoney()};
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

ProfitAndLoss CollectProfitAndLoss(Business& business, const DateRange& days) {
  ProfitAndLoss figures;
  for (const Record row : business.RunSQL(RevenueOfDays(days, IsOnCash(business)))) {
    const auto type = FromText<AccountType>(row[u"GL_Account_Type"].ToText());
    (type == AccountType::Expense ? figures.expense : figures.revenue).push_back(SumFrom(row));
  }
  for (const Record row : business.RunSQL(
           Sql("SELECT General_Ledger_Entries.GL_Account_ID, "
               "General_Ledger_Accounts.GL_Account_Name, "
               "General_Ledger_Accounts.GL_Account_Number, Sum(GL_Amount) AS SumOfGL_Amount, "
               "Sum(GST_Included) AS SumOfGST_Included FROM General_Ledger_Entries LEFT JOIN "
               "General_Ledger_Accounts ON General_Ledger_Entries.GL_Account_ID = "
               "General_Ledger_Accounts.GL_Account_ID WHERE Not IsNull(Purchase_ID) AND ") +
           Within("Entry_Date", days) +
           Sql(" GROUP BY  General_Ledger_Entries.GL_Account_ID, "
               "General_Ledger_Accounts.GL_Account_Name, "
               "General_Ledger_Accounts.GL_Account_Number "
               "ORDER BY General_Ledger_Accounts.GL_Account_Number, "
               "General_Ledger_Accounts.GL_Account_Name;"))) {
    figures.expense.push_back(SumFrom(row));
    figures.expense.back().isOfLedger = true;
  }
  figures.cashReceived =
      business
          .FirstField(Sql("SELECT Sum(Amount) FROM Payments WHERE ") + Within("Payment_Date", days))
          .ToMoney();
  figures.taxOfCash = business
                          .FirstField(Sql("SELECT Sum(GST_Included) FROM Payments WHERE ") +
                                      Within("Payment_Date", days))
                          .ToMoney();
  return figures;
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
