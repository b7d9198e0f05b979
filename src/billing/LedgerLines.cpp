#include "billing/LedgerLines.h"

#include "domain/BillingWords.h"

namespace quillary::billing {
namespace {

/// Follows "WHERE " or stands in the list of an insert.
Sql ColumnOf(const BookedRecord& record) {
  return std::holds_alternative<Id<Payment>>(record) ? Sql("Payment_ID") : Sql("Purchase_ID");
}

qint64 NumberOf(const BookedRecord& record) {
  return std::visit([](const auto& id) { return id.Number(); }, record);
}

Id<LedgerEntry> InsertEmptyLine(Business& business, const BookedRecord& record) {
  return business.InsertReturningKey<LedgerEntry>(Sql("INSERT INTO General_Ledger_Entries (") +
                                                  ColumnOf(record) +
                                                  Sql(") VALUES ({})", NumberOf(record)));
}

std::optional<Refusal> CheckAccountOf(Business& business, const LedgerLineForm& line,
                                      AccountType type, const char* message) {
  const bool exists =
      line.glAccountId && business
                              .RunSQL(Sql("SELECT GL_Account_ID FROM General_Ledger_Accounts "
                                          "WHERE GL_Account_ID = {} AND GL_Account_Type = {}",
                                          line.glAccountId, TextOf(type)))
                              .HasRows();
  if (exists) return std::nullopt;
  return Refusal{QString::fromLatin1(message), QStringLiteral("ledgerAccount")};
}

std::optional<Refusal> CheckAccountFor(Business& business, const BookedRecord& record,
                                       const LedgerLineForm& line) {
  return std::holds_alternative<Id<Payment>>(record) ? CheckRevenueAccount(business, line)
                                                     : CheckExpenseAccount(business, line);
}

}  // namespace

LedgerLines LoadAccounts(Business& business, BookedRecord record) {
  LedgerLines lines;
  for (const Record row : business.RunSQL(
           Sql("SELECT General_Ledger_Entries.GL_Entry_ID, General_Ledger_Entries.GL_Account_ID, "
               "General_Ledger_Accounts.GL_Account_Name, General_Ledger_Entries.GL_Amount, "
               "General_Ledger_Entries.GST_Included "
               "FROM General_Ledger_Entries LEFT JOIN General_Ledger_Accounts "
               "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE General_Ledger_Entries.") +
           ColumnOf(record) +
           Sql(" = {} ORDER BY General_Ledger_Entries.GL_Entry_ID;", NumberOf(record)))) {
    lines.rows.push_back({Id<LedgerEntry>(row[u"GL_Entry_ID"].ToLong()),
                          row[u"GL_Account_ID"].ToId<Account>(), row[u"GL_Account_Name"].ToText(),
                          row[u"GL_Amount"].ToMoney(), row[u"GST_Included"].ToMoney()});
    lines.totalAmount += lines.rows.back().amount;
    lines.totalGST += lines.rows.back().gst;
  }
  return lines;
}

std::optional<Refusal> CheckRevenueAccount(Business& business, const LedgerLineForm& line) {
  return CheckAccountOf(business, line, AccountType::Revenue, "Please select a revenue account.");
}

std::optional<Refusal> CheckExpenseAccount(Business& business, const LedgerLineForm& line) {
  return CheckAccountOf(business, line, AccountType::Expense, "Please select a Expense account.");
}

std::optional<Refusal> SaveAccount(Business& business, BookedRecord record,
                                   const LedgerLineForm& line, SaveLedgerLine as) {
  if (const auto refusal = CheckAccountFor(business, record, line)) return refusal;
  if (as == SaveLedgerLine::Picked && !line.glEntryId)
    return Refusal{QStringLiteral("Please select a record to update."), {}};
  Transaction save(business);
  const Id<LedgerEntry> glEntryId =
      as == SaveLedgerLine::AsNew ? InsertEmptyLine(business, record) : *line.glEntryId;
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
