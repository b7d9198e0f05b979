#include "maintenance/oneclient/OpenedBackup.h"

#include "base/OwnFiles.h"
#include "data/schema/Schema.h"
#include "data/schema/Upgrader.h"
#include "data/store/Integrity.h"
#include "data/store/Statement.h"
#include "maintenance/backups/Backups.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace quillary::maintenance {
namespace {

int VersionOf(const OtherFile& file) {
  Statement version(file.Handle(), "SELECT Database_Version FROM infSystem");
  return version.Step() ? static_cast<int>(version.Column(0, jet::ColumnType::Long).ToLong()) : 0;
}

/// Climbs the ladder without keeping another copy and without a word: nobody works in this file.
void BringUpToDate(const Outside& outside, const QString& copy, int version) {
  Business business(outside, copy);
  business.ConnectToDatabase();
  // The open diary is not made anew on the way: nothing of it is ever brought back.
  for (int rung = version + 1; rung <= kSchemaVersion; ++rung)
    Upgrader::UpgradeToVersion(business, rung, {});
  business.CloseConnection();
}

}  // namespace

OpenedBackup::OpenedBackup(const Outside& outside, const QString& file) : file_(file) {
  opened_ = std::make_unique<OtherFile>(file, OtherFile::Access::LookOnly);
  const int version = VersionOf(*opened_);
  if (version >= kSchemaVersion) return;
  opened_.reset();
  folder_ = std::make_unique<QTemporaryDir>();
  const QString copy = folder_->filePath(QStringLiteral("backup.mdb"));
  if (!folder_->isValid() || !QFile::copy(file, copy) || !KeepToOwner(copy))
    throw StorageFailure(StorageFault::InputOutput,
                         QStringLiteral("%1 is of an older version, and there is no room to bring "
                                        "a copy of it up to date.")
                             .arg(file));
  BringUpToDate(outside, copy, version);
  opened_ = std::make_unique<OtherFile>(copy, OtherFile::Access::LookOnly);
}

std::optional<Refusal> CheckComparable(const Business& business, const QString& backup) {
  if (auto refusal = CheckRestorable(business, backup)) {
    refusal->message.replace(QStringLiteral("Nothing was restored."),
                             QStringLiteral("Nothing can be brought back from it."));
    return refusal;
  }
  const int version = ReadBackup(backup).version;
  if (version <= kSchemaVersion) return std::nullopt;
  return Refusal{
      QStringLiteral("%1 was made by a newer version of Quillary. Nothing can be brought "
                     "back from it here.")
          .arg(backup),
      QStringLiteral("backup")};
}

std::vector<ClientOfBackup> ListClientsOf(const OpenedBackup& backup, Business& business) {
  QSet<qint64> today;
  for (const Record row : business.RunSQL(Sql("SELECT Client_ID FROM Clients")))
    today.insert(row[size_t{0}].ToLong());
  std::vector<ClientOfBackup> clients;
  Statement rows(backup.Handle(),
                 "SELECT Client_ID, Display_Name FROM Clients ORDER BY Display_Name, Client_ID");
  while (rows.Step()) {
    const qint64 number = rows.Column(0, jet::ColumnType::Long).ToLong();
    const QString name = rows.Column(1, jet::ColumnType::Text).ToText();
    clients.push_back({Id<Client>(number),
                       name.isEmpty() ? QStringLiteral("Client %1").arg(number) : name,
                       today.contains(number) ? QString() : QStringLiteral("no longer there")});
  }
  return clients;
}

}  // namespace quillary::maintenance
