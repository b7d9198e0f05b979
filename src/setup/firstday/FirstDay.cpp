#include "setup/firstday/FirstDay.h"

#include "base/OwnFiles.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"

#include <QDir>
#include <QFile>

namespace quillary::setup {
namespace {

const QString kSection = QStringLiteral("PRE_DATABASE");
const QString kKey = QStringLiteral("RAN_INITIAL_SETUP_8");

bool HasRows(Business& business, const char* statement) {
  return business.RunSQL(Sql(statement)).HasRows();
}

/// The entry of that name in a folder, however it is spelt; empty when there is none.
QString Entry(const QString& folder, const QString& name, QDir::Filters kind) {
  for (const QString& entry : QDir(folder).entryList(kind))
    if (entry.compare(name, Qt::CaseInsensitive) == 0) return QDir(folder).filePath(entry);
  return {};
}

QString FolderIn(const QString& folder, const QString& name) {
  return folder.isEmpty() ? QString() : Entry(folder, name, QDir::Dirs | QDir::NoDotAndDotDot);
}

QString FileIn(const QString& folder, const QString& name) {
  return folder.isEmpty() ? QString() : Entry(folder, name, QDir::Files);
}

}  // namespace

bool IsDone(Business& business, SetUpStep step) {
  switch (step) {
    case SetUpStep::YourInformation:
      return HasRows(business,
                     "SELECT FSE_Code FROM infPersonalDetails WHERE Company_Name <> '' AND "
                     "Division_ID IS NOT NULL AND Phone_1 <> ''");
    case SetUpStep::Services:
      return HasRows(business, "SELECT Service_ID FROM Services");
    case SetUpStep::LedgerAccounts:
      return HasRows(business, "SELECT GL_Account_ID FROM General_Ledger_Accounts");
    case SetUpStep::Employees:
      return HasRows(business,
                     "SELECT Employee_ID FROM Employees WHERE Employee_Name <> 'Default'");
    case SetUpStep::Miscellaneous:
      return HasRows(business,
                     "SELECT GST_Percentage FROM infOptions WHERE Days_To_Advance_Schedule > 0 "
                     "AND GST_Percentage IS NOT NULL");
    case SetUpStep::ClientDetails:
      return HasRows(business, "SELECT Client_ID FROM Clients");
    case SetUpStep::ClientSchedules:
      return HasRows(business, "SELECT Client_Service_ID FROM Client_Services");
  }
  return false;
}

bool SetUpIsDue(const LocalSettings& settings) {
  return settings.ReadLocalSetting(kSection, kKey, QStringLiteral("0")) == u"0";
}

void SetSetUpDue(LocalSettings& settings, bool due) {
  settings.WriteLocalSetting(kSection, kKey, due ? QStringLiteral("0") : QStringLiteral("1"));
}

QString DriveOfOlderProducts() {
#ifdef Q_OS_WIN
  return QStringLiteral("C:/");
#else
  return QDir::home().filePath(QStringLiteral(".wine/drive_c"));
#endif
}

OlderData FindOlderData(const QString& drive) {
  return {.bravantiOne =
              FileIn(FolderIn(drive, QStringLiteral("BravantiFSE")), QStringLiteral("fseprog.mdb")),
          .verdo = FolderIn(drive, QStringLiteral("Verdo398")),
          .headOfficeFile = FileIn(drive, QStringLiteral("Ostrel32RY1.MDB"))};
}

void TakeHeadOfficeFile(const QString& drive, const QString& headOfficeFile) {
  QFile source(headOfficeFile);
  if (!source.open(QIODevice::ReadOnly))
    throw StorageFailure(StorageFault::CannotOpen,
                         QStringLiteral("%1 cannot be read").arg(headOfficeFile));
  const QString folder =
      QDir(drive).filePath(QStringLiteral("Program Files/Bravanti/Bravanti One"));
  MakeOwnFolder(folder);
  WriteWhole(QDir(folder).filePath(QStringLiteral("data.mdb")), source.readAll());
  source.remove();
}

}  // namespace quillary::setup
