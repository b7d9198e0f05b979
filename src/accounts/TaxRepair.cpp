#include "accounts/TaxRepair.h"

#include "data/ActivityLog.h"
#include "domain/TaxRate.h"

namespace quillary::accounts {

void RecalculateGSTOfAllRecords(Business& business) {
  LogActivity(business, QStringLiteral("Recalculate GST Component"));
  const TaxRate rate = TaxRate::Of(business);
  const auto run = [&](const char* statement, const char* column) {
    business.RunSQL(Sql(statement, rate.Inside(column)));
  };
  Transaction repair(business);
  run("UPDATE Payments SET GST_Included = {} WHERE Tax_Exempt = False", "Amount");
  business.Write(Sql("UPDATE Payments SET GST_Included = 0 WHERE Tax_Exempt = True"));
  run("UPDATE Purchases SET GST_Included = {} WHERE Tax_Exempt = False", "Amount");
  business.Write(Sql("UPDATE Purchases SET GST_Included = 0 WHERE Tax_Exempt = True"));
  run("UPDATE Diary SET Total_GST = {}", "Total_Price");
  run("UPDATE Diary_Services SET GST = {}", "Price");
  run("UPDATE General_Ledger_Entries SET GST_Included = {}", "GL_Amount");
  ZeroTaxOfExemptLedgerEntries(business);
  run("UPDATE Invoices SET Total_GST = {}", "Total_Amount");
  run("UPDATE Invoice_Items SET Item_GST = {}", "Item_Amount");
  repair.Commit();
}

void ZeroTaxOfExemptLedgerEntries(Business& business) {
  Transaction zeroing(business);
  // Only those that have some: a report asks for this each time it is made, and is made again
  // whenever an entry was written.
  const Sql withTax(
      " AND (General_Ledger_Entries.GST_Included <> 0 OR General_Ledger_Entries.GST_Included IS "
      "NULL)");
  business.Write(
      Sql("UPDATE General_Ledger_Entries INNER JOIN Payments "
          "ON General_Ledger_Entries.Payment_ID = Payments.Payment_ID "
          "SET General_Ledger_Entries.GST_Included = 0 WHERE Payments.Tax_Exempt = True") +
      withTax);
  business.Write(
      Sql("UPDATE General_Ledger_Entries INNER JOIN Purchases "
          "ON General_Ledger_Entries.Purchase_ID = Purchases.Purchase_ID "
          "SET General_Ledger_Entries.GST_Included = 0 WHERE Purchases.Tax_Exempt = True") +
      withTax);
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
