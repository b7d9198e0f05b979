#include "data/schema/Upgrader.h"

#include "base/OwnFiles.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "data/schema/UpgradeRungs.h"
#include "data/store/Connection.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::Upgrader {
namespace {

/// Keeps a copy of the old file beside the backups, under a name that tells version and time.
QString KeepCopy(Business& business, qint64 version, const QString& folder) {
  const QFileInfo file(business.DatabaseFile());
  const QString stamp = ToIsoText(business.Now()).replace(u':', u'-');
  const QString path = QDir(folder).filePath(QStringLiteral("%1 version %2 %3.%4")
                                                 .arg(file.completeBaseName())
                                                 .arg(version)
                                                 .arg(stamp, file.suffix()));
  MakeOwnFolder(folder);
  business.StoreConnection().CopyTo(path);
  return path;
}

}  // namespace

void Initialize(Business& business, const Options& options) {
  const int version =
      static_cast<int>(business.LookupField(QStringLiteral("infSystem.Database_Version")).ToLong());
  if (version >= kSchemaVersion) return;
  const BusyWhile busy(business.World().busy);
  const QString copy = KeepCopy(business, version, options.archiveFolder);
  for (int rung = version + 1; rung <= kSchemaVersion; ++rung) {
    UpgradeToVersion(business, rung, options);
  }
  EnsureStoreIndexes(business.StoreConnection());
  business.World().prompter.Tell(
      Tone::Information,
      QStringLiteral("This business was kept at version %1 and is at version %2 now. A copy of the "
                     "file as it was lies in %3.")
          .arg(version)
          .arg(kSchemaVersion)
          .arg(copy));
}

void UpgradeToVersion(Business& business, int version, const Options& options) {
  Transaction rung(business);
  for (const UpgradeStep& step : UpgradeStepsOf(version)) {
    if (step.statement != nullptr) business.RunSQL(Sql(step.statement));
    if (step.work != nullptr) step.work(business, options);
    options.repaint();
  }
  business.RunSQL(Sql("UPDATE infSystem SET Database_Version = {}; ", version));
  rung.Commit();
}

}  // namespace quillary::Upgrader
