#include "maintenance/screens/frmRestoreBackup.h"

#include "base/ports/requests/Maintenance.h"
#include "kit/Layouts.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>

namespace quillary::maintenance {
namespace {

constexpr char kNothingLost[] =
    "HOWEVER: your current database will be backed up automatically, and you can restore it at any "
    "time to revert to the latest again.";
constexpr char kNewDataLost[] =
    "NOTE: when you restore a backup, you will lose any new data and changes you made since the "
    "backup was made.";

std::vector<GridColumn> BackupColumns() {
  return {{QObject::tr("Backup"), ColumnKind::StrongText, 340},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Made"), ColumnKind::Text, 150},
          {QObject::tr("Clients"), ColumnKind::Number, 72},
          {QObject::tr("Jobs"), ColumnKind::Number, 72},
          {QObject::tr("Owed"), ColumnKind::Money, 104},
          {QObject::tr("Size"), ColumnKind::Text, 80}};
}

}  // namespace

frmRestoreBackup::frmRestoreBackup(Business& business, const ScreenTools& tools,
                                   const QString& archive)
    : Dialog("frmRestoreBackup", QStringLiteral("Backup restoration"), business.World().prompter),
      business_(business),
      archive_(archive) {
  LayOut();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(lstBackups, &Grid::rowOpened, cmdRestore, &QPushButton::click);
  tools.runner.OnClick(cmdRestore, objectName(), [this] { RestorePicked(); });
  tools.runner.OnClick(cmdRestoreClient, objectName(), [this, tools] {
    const auto row = lstBackups->SelectedRow();
    const QString backup =
        row ? backups_[static_cast<size_t>(lstBackups->Key(*row))].file : QString();
    Close(Rejected);
    tools.navigator.Open(OpenRestoreClient{{}, backup});
  });
  cmdRestoreClient->setEnabled(tools.navigator.CanOpen<OpenRestoreClient>());
  tools.runner.OnClick(cmdSearchOtherFile, objectName(), [this] { SearchOtherFile(); });
  tools.runner.RunBusy(objectName(), QStringLiteral("Form_Load"), [this] { LoadBackups(); });
}

void frmRestoreBackup::LayOut() {
  lstBackups = new Grid(QStringLiteral("lstBackups"));
  lstBackups->SetColumns(BackupColumns());
  lstBackups->SetEmptyText(tr("There are no backups in the folder Archive."),
                           tr("Search for one that lies elsewhere."));
  lstBackups->setMinimumHeight(220);
  auto* column = LabelOver(lstBackups, QStringLiteral("Please select a &backup to restore from:"));
  column->setStretch(1, 1);
  column->addSpacing(8);
  column->addWidget(
      MakeParagraph("lblNote", QString::fromLatin1(kNewDataLost), LabelRole::Warning));
  column->addWidget(MakeParagraph("lblHowever", QString::fromLatin1(kNothingLost)));
  SetContent(column);
  SetRoom({920, 440});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdSearchOtherFile =
      MakeButton("cmdSearchOtherFile", QStringLiteral("&Search for other backup files..."));
  cmdRestoreClient = MakeButton("cmdRestoreClient", tr("Restore &one client..."));
  cmdRestore = MakeButton("cmdRestore", tr("&Restore"), ButtonKind::Main);
  AddActions({cmdCancel, cmdSearchOtherFile, cmdRestoreClient, cmdRestore});
}

void frmRestoreBackup::LoadBackups() {
  if (!QFileInfo(archive_).isReadable() && QFileInfo::exists(archive_)) {
    business_.World().prompter.Tell(Tone::Exclamation, QStringLiteral("Error occured."));
    return;
  }
  backups_ = ListBackups(archive_);
  std::vector<GridRow> rows;
  const QLocale locale;
  for (size_t at = 0; at < backups_.size(); ++at) {
    const BackupFacts& backup = backups_[at];
    const QString words =
        backup.description.isEmpty() ? QFileInfo(backup.file).fileName() : backup.description;
    rows.push_back(
        {{words, static_cast<qint64>(at), backup.made.toString(QStringLiteral("d MMM yyyy, HH:mm")),
          backup.clients, backup.jobs, backup.owed, locale.formattedDataSize(backup.bytes, 1)}});
  }
  lstBackups->SetRows(std::move(rows));
  lstBackups->setFocus();
}

void frmRestoreBackup::RestorePicked() {
  const auto row = lstBackups->SelectedRow();
  if (!row) {
    business_.World().prompter.Tell(
        Tone::Exclamation, QStringLiteral("You must select which backup you want to restore."));
    lstBackups->setFocus();
    return;
  }
  Restore(backups_[static_cast<size_t>(lstBackups->Key(*row))].file);
}

void frmRestoreBackup::SearchOtherFile() {
  const QString chosen = QFileDialog::getOpenFileName(this, QStringLiteral("Search a backup..."),
                                                      archive_, tr("Backups (*.mdb *.MDB)"));
  if (chosen.isEmpty()) {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("You did not select a database to restore."));
    return;
  }
  Restore(chosen);
}

void frmRestoreBackup::Restore(const QString& backup) {
  Prompter& prompter = business_.World().prompter;
  if (const auto refusal = CheckRestorable(business_, backup)) {
    prompter.Tell(Tone::Stop, refusal->message);
    return;
  }
  RestoreBackup(business_, backup, archive_);
  prompter.Tell(Tone::Information,
                QStringLiteral("Backup restored! NOTE: you can go back your previous database by "
                               "restoring \"Automatic backup before restoration.\"."));
  prompter.Tell(Tone::Information,
                QStringLiteral("Quillary also needs to be re-started after the restoration. Please "
                               "click on OK to close the system."));
  Close(Accepted);
  business_.World().desktop.EndProcess(0);
}

}  // namespace quillary::maintenance
