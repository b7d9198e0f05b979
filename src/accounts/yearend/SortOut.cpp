#include "accounts/yearend/SortOut.h"

#include "accounts/yearend/PreviousRecords.h"
#include "data/ActivityLog.h"

#include <unordered_map>

namespace quillary::accounts {
namespace {

/// One step that is a statement. Where the statement also hits rows that it leaves as they are,
/// `counted` says how many it changes.
struct Step {
  const char* what;
  const char* statement;
  const char* counted = nullptr;
};

constexpr Step kBeforeSplits[] = {
    {"clients named by their surname and first name",
     "UPDATE Clients SET Display_Name = Surname + ', ' + First_Name WHERE Display_Name = '' OR "
     "Isnull(Display_Name);",
     "SELECT COUNT(*) FROM Clients WHERE (Display_Name = '' OR Isnull(Display_Name)) AND NOT "
     "Isnull(Surname + First_Name)"},
    {"clients given their billing name as first name",
     "UPDATE Clients SET First_Name = Display_Name WHERE (First_Name = '' OR Isnull(First_Name)) "
     "AND (Surname = '' OR Isnull(Surname));",
     "SELECT COUNT(*) FROM Clients WHERE (First_Name = '' OR Isnull(First_Name)) AND (Surname = '' "
     "OR Isnull(Surname)) AND Display_Name <> ''"},
    {"payments of nothing or of nobody deleted",
     "DELETE FROM Payments WHERE Amount = 0 OR Isnull(Amount) OR Client_ID = 0 OR "
     "Isnull(Client_ID);"},
    {"purchases of nothing deleted", "DELETE FROM Purchases WHERE Amount = 0 OR Isnull(Amount)"},
    {"ledger entries of nothing deleted",
     "DELETE FROM General_Ledger_Entries WHERE (Isnull(Payment_ID) AND Isnull(Purchase_ID)) OR "
     "GL_Amount = 0;"},
    {"ledger entries without their payment deleted",
     "DELETE General_Ledger_Entries.* FROM Payments RIGHT JOIN General_Ledger_Entries ON "
     "Payments.Payment_ID = General_Ledger_Entries.Payment_ID WHERE Isnull(Purchase_ID) AND "
     "Isnull(Payments.Payment_ID);"},
    {"job lines without a job deleted",
     "DELETE Diary_Services.* FROM Diary_Services LEFT JOIN Diary ON Diary_Services.Diary_ID = "
     "Diary.Diary_ID WHERE IsNull(Diary_Services.Diary_ID);"},
};
constexpr Step kBetweenSplits[] = {
    {"jobs taken off the payment 0", "UPDATE Diary SET Payment_ID = NULL WHERE Payment_ID = 0;"},
};
constexpr Step kAfterSplits[] = {
    {"diary entries without a date deleted", "DELETE FROM Diary WHERE IsNull(Schedule_Date )"},
    {"lines of jobs that are gone deleted",
     "DELETE Diary_Services.* FROM Diary RIGHT JOIN Diary_Services ON Diary.Diary_ID = "
     "Diary_Services.Diary_ID WHERE IsNull(Diary.Diary_ID);"},
    {"invoice numbers trimmed", "UPDATE Invoices SET Invoice_Number = Trim(Invoice_Number)",
     "SELECT COUNT(*) FROM Invoices WHERE Len(Invoice_Number) <> Len(Trim(Invoice_Number))"},
    {"invoices without a number numbered 0",
     "UPDATE Invoices SET Invoice_Number = '0' WHERE Isnull(Invoice_Number);"},
    {"invoices that no job points at deleted",
     "DELETE Invoices.* FROM Diary RIGHT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID "
     "WHERE Isnull(Diary.Invoice_ID);"},
};

/// The tables whose splits into ledger entries are looked at, with their statements.
struct SplitKind {
  const char* what;
  const char* sums;
  const char* key;
  const char* drop;
};
constexpr SplitKind kPaymentSplits = {
    "splits of payments that do not add up deleted",
    "SELECT Payment_ID, Amount, (SELECT SUM(GL_Amount) FROM General_Ledger_Entries WHERE "
    "General_Ledger_Entries.Payment_ID = Payments.Payment_ID) AS GL_Amount FROM Payments",
    "Payment_ID", "DELETE FROM General_Ledger_Entries WHERE Payment_ID = {}"};
constexpr SplitKind kPurchaseSplits = {
    "splits of purchases that do not add up deleted",
    "SELECT Purchase_ID, Amount, (SELECT SUM(GL_Amount) FROM General_Ledger_Entries WHERE "
    "General_Ledger_Entries.Purchase_ID = Purchases.Purchase_ID) AS GL_Amount FROM Purchases",
    "Purchase_ID", "DELETE FROM General_Ledger_Entries WHERE Purchase_ID = {}"};

struct JobTotals {
  Money price;
  Money gst;
  bool operator==(const JobTotals&) const = default;
};

/// A run through all steps.
class SortingOut {
 public:
  SortingOut(Business& business, const StepProgress& progress)
      : business_(business), progress_(progress) {}

  std::vector<RepairCount> Run() {
    for (const Step& step : kBeforeSplits) Do(step);
    DropSplits(kPaymentSplits);
    for (const Step& step : kBetweenSplits) Do(step);
    DropSplits(kPurchaseSplits);
    for (const Step& step : kAfterSplits) Do(step);
    SumUpJobs();
    return std::move(counts_);
  }

 private:
  static constexpr int kSteps =
      static_cast<int>(std::size(kBeforeSplits) + std::size(kBetweenSplits) +
                       std::size(kAfterSplits)) +
      3;

  void Begin() {
    if (progress_) progress_(static_cast<int>(counts_.size()) + 1, kSteps);
  }
  void Count(const char* what, int rows) { counts_.push_back({QString::fromLatin1(what), rows}); }

  void Do(const Step& step) {
    Begin();
    int changed = -1;
    if (step.counted) changed = static_cast<int>(business_.FirstField(Sql(step.counted)).ToLong());
    const int hit = business_.Write(Sql(step.statement));
    Count(step.what, changed < 0 ? hit : changed);
  }

  /// A split that is a cent off goes whole, and is to be entered again. No lines are no split.
  void DropSplits(const SplitKind& kind) {
    Begin();
    std::vector<qint64> off;
    for (const Record row : business_.RunSQL(Sql(kind.sums))) {
      const Value sum = row[u"GL_Amount"];
      if (!sum.IsNull() && sum.ToMoney().Rounded(2) != row[u"Amount"].ToMoney().Rounded(2))
        off.push_back(row[size_t{0}].ToLong());
    }
    for (const qint64 key : off) business_.Write(Sql(kind.drop, key));
    Count(kind.what, static_cast<int>(off.size()));
  }

  /// Reads both sides once and writes what differs: most jobs are right, and a row that is written
  /// over with what it holds would only be remembered for undoing.
  void SumUpJobs() {
    Begin();
    std::unordered_map<qint64, JobTotals> lines;
    for (const Record row : business_.RunSQL(
             Sql("SELECT Diary_ID, Sum(Price) AS SumPrice, Sum(GST) AS SumGST FROM Diary_Services "
                 "GROUP BY Diary_ID")))
      lines[row[size_t{0}].ToLong()] = {row[1].ToMoney(), row[2].ToMoney()};
    std::vector<std::pair<qint64, JobTotals>> wrong;
    for (const Record row :
         business_.RunSQL(Sql("SELECT Diary_ID, Total_Price, Total_GST FROM Diary"))) {
      const qint64 job = row[size_t{0}].ToLong();
      const auto found = lines.find(job);
      const JobTotals right = found == lines.end() ? JobTotals() : found->second;
      const bool isUnset = row[1].IsNull() || row[2].IsNull();
      if (isUnset || JobTotals{row[1].ToMoney(), row[2].ToMoney()} != right)
        wrong.emplace_back(job, right);
    }
    for (const auto& [job, right] : wrong)
      business_.Write(Sql("UPDATE Diary SET Total_Price = {}, Total_GST = {} WHERE Diary_ID = {}",
                          right.price, right.gst, job),
                      Rows::Exactly(1));
    Count("jobs given the total of their lines", static_cast<int>(wrong.size()));
  }

  Business& business_;
  const StepProgress& progress_;
  std::vector<RepairCount> counts_;
};

}  // namespace

std::vector<RepairCount> SortOutRecords(Business& business, const StepProgress& progress) {
  Transaction repair(business);
  std::vector<RepairCount> counts = SortingOut(business, progress).Run();
  repair.Commit();
  return counts;
}

std::vector<RepairCount> CountWhatToSortOut(Business& business) {
  // Each step sees what those before it did, so the steps are done and taken back.
  const Transaction trial(business);
  return SortingOut(business, {}).Run();
}

bool SortOutAfterAsking(Business& business, Prompter& prompter, const SortOutListener& listener) {
  std::vector<RepairCount> before;
  {
    const BusyWhile busy(business.World().busy);
    before = CountWhatToSortOut(business);
  }
  const Answer answer = prompter.AskBeforeLosing(
      BackupWarning() +
      QStringLiteral("\n\nThis will delete unnecessary records in your database "
                     "\n(e.g. Payments and Purchases with 0.00 amount...)\n\n") +
      QStringLiteral("Continue?\n\n") + WordsOf(before));
  if (answer != Answer::Yes) return false;
  LogActivity(business, QStringLiteral("Sort out Database Records"));
  if (listener.begins) listener.begins(before);
  {
    const BusyWhile busy(business.World().busy);
    SortOutRecords(business, listener.step);
    business.PastCommands().Describe(QStringLiteral("Database records sorted out"));
    if (listener.ended) listener.ended(CountWhatToSortOut(business));
  }
  prompter.Tell(
      Tone::Information,
      QStringLiteral(
          "You might need to check the Payment and Purchase records if these records have "
          "corresponding GL entries. To check: \n"
          "For Payments, click on Financial -> Payments received -> Find old payment\n"
          "For Purchases, click on Financial -> Purchases -> Find old Purchases"));
  return true;
}

}  // namespace quillary::accounts
