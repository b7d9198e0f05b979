#include "clients/MonthlyPrices.h"

#include "balances/ClientBalance.h"
#include "domain/EntryStatus.h"
#include "domain/TaxRate.h"

namespace quillary::clients {
namespace {

QString StatusWords(const QString& code) {
  // Only jobs are listed, and one whose code nobody knows counts as done.
  const StoredEntryStatus status(code);
  return FoldedWordsOf(status.Known() ? status : StoredEntryStatus(EntryStatus::JobDone));
}

Money ShareOf(Money amount, qint64 parts) {
  return Money::FromDouble(RoundHalfEven(amount.ToDouble() / static_cast<double>(parts), 2));
}

/// False when the job has no lines to spread its share over.
bool SetPriceOfJob(Business& business, Id<Entry> entry, Money share) {
  const TaxRate rate = TaxRate::Of(business);
  business.Write(Sql("UPDATE Diary SET Total_Price = {}, Total_GST = {} WHERE Diary_ID = {}; ",
                     share, rate.CalculateGSTComponent(share), entry),
                 Rows::Exactly(1));
  const qint64 lines =
      business
          .FirstField(
              Sql("SELECT Count(Diary_Service_ID) FROM Diary_Services WHERE Diary_ID = {}", entry))
          .ToLong();
  if (lines == 0) return false;
  const Money price = ShareOf(share, lines);
  business.Write(Sql("UPDATE Diary_Services Set Price = {}, GST = {} WHERE Diary_ID = {};", price,
                     rate.CalculateGSTComponent(price), entry));
  return true;
}

void ReportJobWithoutLines(Business& business) {
  const ProgramError nothingToSpreadOver(11, QStringLiteral("Division by zero"));
  business.World().errors.ReportError(QStringLiteral("frmSetJobPricesForMonthly"),
                                      ErrorLine(nothingToSpreadOver),
                                      QStringLiteral("cdmStart_Click"));
}

}  // namespace

std::vector<MonthlyJob> LoadJobsForThisClient(Business& business, Id<Client> client,
                                              const DateRange& days) {
  std::vector<MonthlyJob> jobs;
  const Recordset rows = business.RunSQL(
      Sql("SELECT * FROM Diary WHERE {} AND Schedule_Date BETWEEN {} AND {} "
          "AND Client_ID = {} ORDER BY Schedule_Date DESC;",
          IsOfKind("Status", EntryKind::Job), days.from, EndOfDay(days.to), client));
  for (const Record row : rows) {
    jobs.push_back({Id<Entry>(row[u"Diary_ID"].ToLong()), row[u"Schedule_Date"].ToDate(),
                    row[u"Description"].ToText(), row[u"Total_Price"].ToMoney(),
                    StatusWords(row[u"Status"].ToText())});
  }
  return jobs;
}

std::optional<Refusal> CheckMonthlyPrices(Money amount, const std::vector<Id<Entry>>& ticked) {
  if (amount < Money::FromWhole(1))
    return Refusal{"Please enter an amount greater than 0.", "amount"};
  if (ticked.empty()) return Refusal{"You did not select any job.", "jobs"};
  return std::nullopt;
}

std::optional<Refusal> SetJobPricesForMonthly(Business& business, Id<Client> client, Money amount,
                                              const std::vector<Id<Entry>>& ticked) {
  if (auto refusal = CheckMonthlyPrices(amount, ticked)) return refusal;
  int withoutLines = 0;
  {
    const BusyWhile busy(business.World().busy);
    const Money share = ShareOf(amount, static_cast<qint64>(ticked.size()));
    Transaction spread(business);
    for (const Id<Entry> entry : ticked)
      if (!SetPriceOfJob(business, entry, share)) ++withoutLines;
    balances::RecalculateClientAndPayer(business, client);
    spread.Commit();
  }
  for (; withoutLines > 0; --withoutLines) ReportJobWithoutLines(business);
  return std::nullopt;
}

}  // namespace quillary::clients
