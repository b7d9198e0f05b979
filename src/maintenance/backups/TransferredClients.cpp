#include "maintenance/backups/TransferredClients.h"

#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "maintenance/backups/BackupPlaces.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quillary::maintenance {
namespace {

constexpr const char* kEmptying[] = {"DELETE FROM Bankings;",
                                     "DELETE FROM Bank_Accounts;",
                                     "DROP TABLE Clients;",
                                     "DROP TABLE Client_Services;",
                                     "DELETE FROM Diary;",
                                     "DELETE FROM Diary_Services;",
                                     "DELETE FROM General_Ledger_Entries;",
                                     "DELETE FROM Invoices;",
                                     "DELETE FROM Invoice_Items;",
                                     "DELETE FROM Payments;",
                                     "DELETE FROM Purchases;",
                                     "DELETE FROM Quotes;",
                                     "DELETE FROM Quote_Services;"};

/// Empties the copy and fetches the two tables from the business anew.
void KeepTransferredOnly(const Outside& outside, const QString& copy, const QString& source) {
  Business target(outside, copy);
  target.ConnectToDatabase();
  for (const char* statement : kEmptying) target.Write(Sql(statement));
  // The name of the source stands in the statement itself, where no value can stand for it.
  const QString from = SQLValue(source);
  const auto fetch = [&](const QString& statement) {
    target.Write(Sql(statement.arg(from).toUtf8().constData()));
  };
  fetch(QStringLiteral("SELECT * INTO Clients FROM Clients IN %1 WHERE Status = 'Transferred';"));
  fetch(QStringLiteral(
      "SELECT Client_Services.* INTO Client_Services FROM (Clients INNER JOIN Client_Services ON "
      "Clients.Client_ID = Client_Services.Client_ID) IN %1 WHERE Clients.Status = "
      "'Transferred';"));
  target.CloseConnection();
}

}  // namespace

void CreateDBOfTransferred(Business& business, const QString& path) {
  FileInTheMaking made(path, FileInTheMaking::Place::Replacing);
  try {
    business.ConnectToDatabase();
    CopyProven(business.StoreConnection(), made.Path());
    business.CloseConnection();  // or its lock would keep the second connection out
    KeepTransferredOnly(business.World(), made.Path(), business.DatabaseFile());
    made.TakeItsPlace();
  } catch (...) {
    business.ConnectToDatabase();
    throw;
  }
  business.ConnectToDatabase();
}

BackupOutcome CreateDBOfTransferredAfterAsking(Business& business, Prompter& prompter,
                                               const CustomBackup& target) {
  const QString name = target.name.trimmed();
  if (name.isEmpty() || name.contains(u'/'))
    return {Refusal{QStringLiteral("Please enter a valid filename."), QStringLiteral("name")}};
  const QString folder = TrimmedFolder(target.folder);
  const Answer answer = prompter.Ask(
      QStringLiteral("Do you want to create a new database with all the transferred clients to %1?")
          .arg(folder));
  if (answer != Answer::Yes) return {};
  if (!QFileInfo(folder).isDir())
    return {Refusal{QStringLiteral("The path/folder (%1) for backup doesn't exist. Please select "
                                   "which folder the backup will go to...")
                        .arg(folder),
                    QStringLiteral("folder")}};
  const QString path = QDir(folder).filePath(name + QStringLiteral(".mdb"));
  if (QFileInfo(path) == QFileInfo(business.DatabaseFile()))
    return {Refusal{QStringLiteral("The file you have selected is your main database file. Please "
                                   "select a new one."),
                    QStringLiteral("name")}};
  CreateDBOfTransferred(business, path);
  prompter.Tell(Tone::Information, QStringLiteral("%1 has successfully been created.").arg(path));
  return {std::nullopt, true};
}

}  // namespace quillary::maintenance
