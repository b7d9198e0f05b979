#include "older/ImportOlder.h"

#include "balances/ClientBalance.h"
#include "base/OwnFiles.h"
#include "base/Text.h"
#include "data/ActivityLog.h"
#include "data/access/ReceiptFile.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"
#include "older/Copying.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::older {
namespace {

/// What hangs on rows that go, and would point at nobody.
constexpr const char* kAlsoEmptied[] = {
    "Invoice_Items", "Invoices",       "Quote_Services",    "Quotes",
    "Budgets",       "Budget_Periods", "lstClientsToPrint", "lstInvoicesToPrint"};

void CopyAll(Copying& copying) {
  for (const char* table : kAlsoEmptied) copying.business.Write(Sql("DELETE FROM {}", Sql(table)));
  CopyTrailers(copying);
  CopyGLAccounts(copying);
  CopyGLEntries(copying);
  CopyServices(copying);
  CopySuppliers(copying);
  CopyPurchases(copying);
  CopyBankAccounts(copying);
  CopyBankings(copying);
  CopyClients(copying);
  CopyDiary(copying);
  CopyPayments(copying);
  CopyBanks(copying);
  CopyFrequencies(copying);
  CopyPaymentMethods(copying);
  CopyCompany(copying);
  LinkGLEntries(copying);
}

void CompareBalances(Copying& copying) {
  Business& business = copying.business;
  copying.Step("Computing balances", 0, 1);
  balances::RecalculateAmountOwingOfAllClients(business);
  QHash<qint64, Money> now;
  for (const Record row : business.RunSQL(Sql("SELECT Client_ID, Account_Balance FROM Clients")))
    now.insert(row[u"Client_ID"].ToLong(), row[u"Account_Balance"].ToMoney());
  size_t at = 0;
  copying.source.ForEach("tblCorp", [&](const OlderRow& corp) {
    const auto id = corp.Number("corpid");
    if (id) copying.receipt.balances[at++].now = now.value(copying.parties.value(*id));
  });
  copying.Step("Computing balances", 1, 1);
}

QString ArchiveBackup(Business& business, const QString& archive) {
  if (!MakeOwnFolder(archive))
    throw StorageFailure(StorageFault::CannotOpen,
                         QStringLiteral("The folder %1 cannot be made.").arg(archive));
  const QString copy = QDir(archive).filePath(maintenance::BeforeRestorationName(business.Now()));
  maintenance::BackupDatabaseTo(business, QStringLiteral("Before the import of the older product"),
                                copy);
  return copy;
}

QString CountedRows(Business& business) {
  QStringList words;
  for (const auto& [table, word] : {std::pair("Clients", "client"),
                                    {"Diary", "diary entry"},
                                    {"Payments", "payment"},
                                    {"Purchases", "purchase"},
                                    {"Invoices", "invoice"}}) {
    const qint64 rows = business.FirstField(Sql("SELECT Count(*) FROM {}", Sql(table))).ToLong();
    words += QStringLiteral("%1 %2").arg(rows).arg(
        QString::fromLatin1(word) == u"diary entry" && rows != 1 ? QStringLiteral("diary entries")
        : rows == 1                                              ? QString::fromLatin1(word)
                    : QString::fromLatin1(word) + u's');
  }
  return words.join(QStringLiteral(", "));
}

}  // namespace

int ImportReceipt::BalancesThatDiffer() const {
  int differ = 0;
  for (const BalanceBeside& balance : balances) differ += balance.older != balance.now;
  return differ;
}

QString ImportReceipt::Words() const {
  QStringList lines = troubles;
  lines += QStringLiteral("%1 of %2 balances differ from what the older product said.")
               .arg(BalancesThatDiffer())
               .arg(balances.size());
  for (const BalanceBeside& balance : balances)
    if (balance.older != balance.now)
      lines += QStringLiteral("%1: %2 there, %3 here")
                   .arg(balance.name, balance.older.ToCurrencyText(), balance.now.ToCurrencyText());
  return lines.join(u'\n');
}

ImportReceipt ImportOlder(Business& business, const QString& olderFile, const QString& archive,
                          const ImportProgress& progress, const AccessLimits& limits) {
  ImportReceipt receipt;
  if (progress) progress(QStringLiteral("Reading the older database"), 0, 1);
  OlderFile source(olderFile, limits);
  receipt.archived = ArchiveBackup(business, archive);
  Transaction import(business);
  Copying copying(business, source, receipt, progress);
  CopyAll(copying);
  CompareBalances(copying);
  business.Write(Sql("UPDATE infSystem SET Database_Version = 0"));
  import.Commit();
  business.PastCommands().End();
  receipt.troubles = source.Told().All() + receipt.troubles;
  return receipt;
}

bool ImportOlderAfterAsking(Business& business, Prompter& prompter, const QString& olderFile,
                            const QString& archive, const ImportProgress& progress) {
  if (olderFile.trimmed().isEmpty()) {
    prompter.Tell(Tone::Exclamation, QStringLiteral("Please select a Bravanti One database."));
    return false;
  }
  const QString question =
      QStringLiteral(
          "This business is emptied first: %1. A copy of it goes into %2.\n\nDo you "
          "want to import %3 now?")
          .arg(CountedRows(business), archive, olderFile);
  if (prompter.AskBeforeLosing(question) != Answer::Yes) return false;
  LogActivity(business, QStringLiteral("Import from Bravanti One"));
  ImportReceipt receipt;
  try {
    const BusyWhile busy(business.World().busy);
    receipt = ImportOlder(business, olderFile, archive, progress);
  } catch (const ProgramError& failure) {  // the file, a row of it, or the disk
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Nothing was imported; the business is as it was.\n\n") +
                      QString::fromUtf8(failure.what()));
    return false;
  }
  const QString kept = KeepReceipt(receipt.tables, olderFile, business.DatabaseFile(),
                                   business.Now(), receipt.Words());
  QStringList told{QStringLiteral("Imported: ") + CountedRows(business) + u'.'};
  told += QStringLiteral("%1 of %2 balances differ from what the older product said.")
              .arg(receipt.BalancesThatDiffer())
              .arg(receipt.balances.size());
  if (!receipt.troubles.isEmpty())
    told += Counted(static_cast<size_t>(receipt.troubles.size()), "field") +
            QStringLiteral(" could not be taken over as they stand.");
  if (!kept.isEmpty()) told += QStringLiteral("The receipt lies in %1.").arg(kept);
  prompter.Tell(Tone::Information, told.join(u'\n'));
  return true;
}

}  // namespace quillary::older
