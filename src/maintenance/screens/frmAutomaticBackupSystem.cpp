#include "maintenance/screens/frmAutomaticBackupSystem.h"

#include "kit/Layouts.h"
#include "maintenance/backups/ExitBackups.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace quillary::maintenance {

frmAutomaticBackupSystem::frmAutomaticBackupSystem(Business& business, LocalSettings& settings)
    : Dialog("frmAutomaticBackupSystem", QStringLiteral("Automatic backups settings"),
             business.World().prompter),
      business_(business),
      settings_(settings) {
  const BackupSettings now = LoadBackupSettings(settings_, QStringLiteral("C:\\"));
  fldFolder = new FolderField("Folder", tr("&Folder where the backup will go into..."));
  fldFolder->SetFolder(now.customPath);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(Tick("chkDailyBackup", tr("Keep &daily backups of the last 7 days"),
                         "DO_DAILY_BACKUP", now.daily));
  column->addWidget(Tick("chkWeeklyBackup", tr("Keep &weekly backups of the last 4 weeks"),
                         "DO_WEEKLY_BACKUP", now.weekly));
  column->addWidget(Tick("chkMonthlyBackup", tr("Keep &monthly backups of the last year"),
                         "DO_MONTHLY_BACKUP", now.monthly));
  column->addWidget(Tick("chkCustomBackup",
                         tr("When I exit, ask me if I want to &back up to the folder specified"),
                         "DO_CUSTOM_BACKUP", now.custom));
  column->addWidget(fldFolder);
  column->addWidget(MakeParagraph(
      "lblAbout",
      tr("Backups are taken as you leave the program, into its folder Archive. Each is checked "
         "before it replaces an older one. A folder on another disk saves you when this one "
         "breaks."),
      LabelRole::Hint));
  column->addStretch(1);
  SetContent(column);
  SetRoom({600, 300});
  cmdClose = MakeButton("cmdClose", tr("&Close"), ButtonKind::Main);
  AddActions({cmdClose});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(fldFolder, &FolderField::folderChosen, this,
          [this](const QString& folder) { TakeFolder(folder); });
}

QCheckBox* frmAutomaticBackupSystem::Tick(const char* name, const QString& words, const char* key,
                                          bool on) {
  auto* box = Named(new QCheckBox(words), name);
  box->setChecked(on);
  connect(box, &QCheckBox::toggled, this, [this, key](bool checked) {
    Store(key, checked ? QStringLiteral("1") : QStringLiteral("0"));
  });
  return box;
}

void frmAutomaticBackupSystem::TakeFolder(const QString& folder) {
  Prompter& prompter = business_.World().prompter;
  if (!QFileInfo(folder).isDir())
    prompter.Tell(Tone::Exclamation,
                  QStringLiteral("That drive isn't available!\nPlease make sure that the drive is "
                                 "existing or a diskette is inserted in the drive."));
  if (QFileInfo(folder) == QFileInfo(business_.DatabaseFolder()))
    prompter.Tell(
        Tone::Exclamation,
        QStringLiteral("WARNING: This is the folder of your main database.\nPlease select "
                       "a different folder."));
  Store("CUSTOM_PATH", folder);
  Store("CUSTOM_DRIVE", QStorageInfo(folder).rootPath());
}

void frmAutomaticBackupSystem::Store(const char* key, const QString& value) {
  settings_.WriteLocalSetting(QStringLiteral("BACKUPS"), QString::fromLatin1(key), value);
}

}  // namespace quillary::maintenance
