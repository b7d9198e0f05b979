#include "reports/ProfitAndLoss.h"

#include "domain/BillingWords.h"
#include "domain/EntryStatus.h"
#include "reports/ListReport.h"

#include <QHash>
#include <QSet>

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

/// The lines of jobs with numbers from `first` on for some thousand, each with what tells its
/// day: null where its job does not count. They are added up here and not by the store, which would
/// sort them all by day first, in twice the time; and in portions, so that only few lie in memory.
/// The outer join has the jobs looked up line by line, not the other way round.
constexpr qint64 kLinesAtOnce = 20'000;
Sql LinesFrom(qint64 first, bool onCash) {
  const Sql day = onCash ? Sql("Diary.Payment_ID")
                         : Sql("IIf(Diary.Status IN {}, Diary.Schedule_Date, Null)",
                               CodesOf(EntryGroup::LiveJobs));
  return Sql("SELECT ") + day +
         Sql(" AS Counts_On, Diary_Services.Diary_ID, Diary_Services.Service_ID, "
             "Diary_Services.Price, Diary_Services.GST FROM "
             "Diary_Services LEFT JOIN Diary ON Diary_Services.Diary_ID = Diary.Diary_ID WHERE "
             "Diary_Services.Diary_Service_ID BETWEEN {} AND {}",
             first, first + kLinesAtOnce - 1);
}

/// The jobs that count on some day.
Sql JobsThatCount(bool onCash) {
  return onCash ? Sql(" FROM Diary WHERE Payment_ID IS NOT NULL")
                : Sql(" FROM Diary WHERE Status IN {}", CodesOf(EntryGroup::LiveJobs));
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
  LoadPayments(business, days);
  LoadJobs(business, days);
  LoadLedger(business, days);
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

void BookDays::LoadPayments(Business& business, const DateRange& days) {
  // In the order in which they lie: by days they would be looked up all over the table.
  const Recordset payments =
      business.RunSQL(Sql("SELECT Payment_ID, Payment_Date, Amount, GST_Included FROM Payments"));
  dayOfPayment_.reserve(static_cast<qsizetype>(payments.RowCount()));
  for (const Record row : payments) {
    const QDate day = row[u"Payment_Date"].ToDate();
    if (!days.Contains(day)) continue;
    dayOfPayment_.insert(row[u"Payment_ID"].ToLong(), day);
    DaySum& sum = cash_.Of(day, 0);
    sum.amount += row[u"Amount"].ToMoney();
    sum.tax += row[u"GST_Included"].ToMoney();
  }
}

std::optional<QDate> BookDays::DayOf(const Record& job, bool onCash) const {
  const Value& on = job[u"Counts_On"];
  if (on.IsNull()) return std::nullopt;
  if (!onCash) return on.ToDate();
  const auto at = dayOfPayment_.constFind(on.ToLong());
  return at == dayOfPayment_.constEnd() ? std::nullopt : std::optional(*at);
}

void BookDays::LoadJobs(Business& business, const DateRange& days) {
  QHash<qint64, size_t> accountOfService;
  for (const Record row :
       business.RunSQL(Sql("SELECT Service_ID, Default_GL_Account_ID FROM Services")))
    accountOfService[row[u"Service_ID"].ToLong()] = PlaceOf(row[u"Default_GL_Account_ID"].ToLong());
  const bool onCash = IsOnCash(business);
  // Hardly ever is there one without lines, and counting is quicker than looking for it.
  const qint64 count =
      business.FirstField(Sql("SELECT Count(*) AS How_Many") + JobsThatCount(onCash)).ToLong();
  QSet<qint64> jobsWithLines;
  jobsWithLines.reserve(count);
  const auto nextLine = [&](qint64 from) {
    return business.FirstField(
        Sql("SELECT MIN(Diary_Service_ID) AS First_ID FROM Diary_Services "
            "WHERE Diary_Service_ID >= {}",
            from));
  };
  for (Value first = nextLine(0); !first.IsNull();
       first = nextLine(first.ToLong() + kLinesAtOnce)) {
    for (const Record line : business.RunSQL(LinesFrom(first.ToLong(), onCash))) {
      if (line[u"Counts_On"].IsNull()) continue;
      jobsWithLines.insert(line[u"Diary_ID"].ToLong());
      const auto day = DayOf(line, onCash);
      if (!day || !days.Contains(*day)) continue;
      const qint64 service = line[u"Service_ID"].ToLong();
      DaySum& sum = jobs_.Of(*day, accountOfService.value(service, accounts_.size() - 1));
      sum.amount += line[u"Price"].ToMoney();
      sum.tax += line[u"GST"].ToMoney();
    }
  }
  if (count == jobsWithLines.size()) return;
  const Sql fields = Sql("SELECT Diary_ID, Total_Price, Total_GST, {} AS Counts_On",
                         Sql(onCash ? "Payment_ID" : "Schedule_Date"));
  for (const Record job : business.RunSQL(fields + JobsThatCount(onCash))) {
    const auto day = DayOf(job, onCash);
    if (!day || !days.Contains(*day) || jobsWithLines.contains(job[u"Diary_ID"].ToLong())) continue;
    DaySum& sum = jobs_.Of(*day, accounts_.size() - 1);
    sum.amount += job[u"Total_Price"].ToMoney();
    sum.tax += job[u"Total_GST"].ToMoney();
  }
}

void BookDays::LoadLedger(Business& business, const DateRange& days) {
  for (const Record row : business.RunSQL(
           Sql("SELECT Entry_Date, GL_Account_ID, Sum(GL_Amount) AS SumOfGL_Amount, "
               "Sum(GST_Included) AS SumOfGST_Included FROM General_Ledger_Entries "
               "WHERE Not IsNull(Purchase_ID) AND ") +
           reports::Within("Entry_Date", days) + Sql(" GROUP BY Entry_Date, GL_Account_ID")))
    ledger_.sums.push_back({row[u"Entry_Date"].ToDate(), PlaceOf(row[u"GL_Account_ID"].ToLong()),
                            row[u"SumOfGL_Amount"].ToMoney(), row[u"SumOfGST_Included"].ToMoney()});
}

BookDays::DaySum& BookDays::DaySums::Of(QDate day, size_t account) {
  if (places_.size() <= account) places_.resize(account + 1);
  size_t& place = places_[account][day.toJulianDay()];
  if (place == 0) {
    sums.push_back({day, account, {}, {}});
    place = sums.size();
  }
  return sums[place - 1];
}

std::vector<AccountSum> BookDays::SumOf(const DaySums& sums, const DateRange& days,
                                        bool isOfLedger) const {
  std::vector<std::optional<AccountSum>> byAccount(accounts_.size());
  for (const DaySum& sum : sums.sums) {
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
  for (const DaySum& sum : cash_.sums) {
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
