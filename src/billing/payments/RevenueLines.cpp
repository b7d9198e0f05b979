#include "billing/payments/RevenueLines.h"

namespace quillary::billing {
namespace {

Id<LedgerEntry> InsertEmptyLine(Business& business, Id<Payment> paymentId) {
  return business.InsertReturningKey<LedgerEntry>(
      Sql("INSERT INTO General_Ledger_Entries (Payment_ID) VALUES ({})", paymentId));
}

}  // namespace

QString RevenueLines::TotalWords() const {
  return QStringLiteral("Total = ") + totalAmount.ToCurrencyText();
}

RevenueLines LoadAccounts(Business& business, Id<Payment> paymentId) {
  RevenueLines lines;
  for (const Record row : business.RunSQL(
           Sql("SELECT General_Ledger_Entries.GL_Entry_ID, General_Ledger_Entries.GL_Account_ID, "
               "General_Ledger_Accounts.GL_Account_Name, General_Ledger_Entries.GL_Amount, "
               "General_Ledger_Entries.GST_Included "
               "FROM General_Ledger_Entries LEFT JOIN General_Ledger_Accounts "
               "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE General_Ledger_Entries.Payment_ID = {} "
               "ORDER BY General_Ledger_Entries.GL_Entry_ID;",
               paymentId))) {
    lines.rows.push_back({Id<LedgerEntry>(row[u"GL_Entry_ID"].ToLong()),
                          row[u"GL_Account_ID"].ToId<Account>(), row[u"GL_Account_Name"].ToText(),
                          row[u"GL_Amount"].ToMoney(), row[u"GST_Included"].ToMoney()});
    lines.totalAmount += lines.rows.back().amount;
    lines.totalGST += lines.rows.back().gst;
  }
  return lines;
}

std::optional<Refusal> CheckRevenueAccount(const RevenueLineForm& line) {
  if (line.glAccountId) return std::nullopt;
  return Refusal{QStringLiteral("Please select a revenue account."),
                 QStringLiteral("revenueAccount")};
}

std::optional<Refusal> SaveAccount(Business& business, Id<Payment> paymentId,
                                   const RevenueLineForm& line, SaveRevenueLine as) {
  if (const auto refusal = CheckRevenueAccount(line)) return refusal;
  if (as == SaveRevenueLine::Picked && !line.glEntryId)
    return Refusal{QStringLiteral("Please select a record to update."), {}};
  Transaction save(business);
  const Id<LedgerEntry> glEntryId =
      as == SaveRevenueLine::AsNew ? InsertEmptyLine(business, paymentId) : *line.glEntryId;
  business.Write(Sql("UPDATE General_Ledger_Entries SET GL_Account_ID = {}, GL_Amount = {}, "
                     "GST_Included = {} WHERE GL_Entry_ID = {}",
                     line.glAccountId, line.amount, line.gst, glEntryId),
                 Rows::Exactly(1));
  save.Commit();
  return std::nullopt;
}

std::optional<Refusal> RemoveAccount(Business& business, std::optional<Id<LedgerEntry>> glEntryId) {
  if (!glEntryId) return Refusal{QStringLiteral("Please select an account to remove."), {}};
  business.Write(Sql("DELETE FROM General_Ledger_Entries WHERE GL_Entry_ID = {}", glEntryId),
                 Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::billing
