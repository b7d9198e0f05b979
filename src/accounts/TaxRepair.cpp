#include "accounts/TaxRepair.h"

#include "data/ActivityLog.h"

namespace quillary::accounts {
namespace {

/// The rate as its digits read. The bare single-precision number would carry its noise into the
/// fourth decimal of large amounts.
double RateOf(const Business& business) {
  return QString::number(static_cast<double>(business.values.gstPercentage), 'g', 6).toDouble();
}

}  // namespace

void RecalculateGSTOfAllRecords(Business& business) {
  LogActivity(business, QStringLiteral("Recalculate GST Component"));
  const double rate = RateOf(business);
  const auto run = [&](const char* statement) { business.RunSQL(Sql(statement, rate, rate)); };
  Transaction repair(business);
  run("UPDATE Payments SET GST_Included = Amount * ({} / (1 + {})) WHERE Tax_Exempt = False");
  business.RunSQL(Sql("UPDATE Payments SET GST_Included = 0 WHERE Tax_Exempt = True"));
  run("UPDATE Purchases SET GST_Included = Amount * ({} / (1 + {})) WHERE Tax_Exempt = False");
  business.RunSQL(Sql("UPDATE Purchases SET GST_Included = 0 WHERE Tax_Exempt = True"));
  run("UPDATE Diary SET Total_GST = Total_Price * ({} / (1 + {}))");
  run("UPDATE Diary_Services SET GST = Price * ({} / (1 + {}))");
  run("UPDATE General_Ledger_Entries SET GST_Included = GL_Amount * ({} / (1 + {}))");
  ZeroTaxOfExemptLedgerEntries(business);
  run("UPDATE Invoices SET Total_GST = Total_Amount * ({} / (1 + {}))");
  run("UPDATE Invoice_Items SET Item_GST = Item_Amount * ({} / (1 + {}))");
  repair.Commit();
}

void ZeroTaxOfExemptLedgerEntries(Business& business) {
  Transaction zeroing(business);
  business.RunSQL(
      Sql("UPDATE General_Ledger_Entries INNER JOIN Payments "
          "ON General_Ledger_Entries.Payment_ID = Payments.Payment_ID "
          "SET General_Ledger_Entries.GST_Included = 0 WHERE Payments.Tax_Exempt = True"));
  business.RunSQL(
      Sql("UPDATE General_Ledger_Entries INNER JOIN Purchases "
          "ON General_Ledger_Entries.Purchase_ID = Purchases.Purchase_ID "
          "SET General_Ledger_Entries.GST_Included = 0 WHERE Purchases.Tax_Exempt = True"));
  zeroing.Commit();
}

bool RecalculateGSTAfterAsking(Business& business, Prompter& prompter) {
  const QString& tax = business.values.taxName;
  const Answer answer = prompter.Ask(
      QStringLiteral("Are you sure you want to re-calculate and update the %1 based on the formula "
                     ": \n\n%1 = [Value With %1 Included] * (Percentage / (1 + Percentage))")
          .arg(tax));
  if (answer != Answer::Yes) return false;
  {
    const BusyWhile busy(business.World().busy);
    RecalculateGSTOfAllRecords(business);
  }
  prompter.Tell(Tone::Information, QStringLiteral("Re-calculation done."));
  return true;
}

}  // namespace quillary::accounts
