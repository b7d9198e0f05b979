#include "maintenance/screens/frmCreateCustomBackup.h"

#include "base/OwnFiles.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QProgressBar>

namespace quillary::maintenance {

FileOfBusinessDialog::FileOfBusinessDialog(Business& business, const ScreenTools& tools,
                                           const Kind& kind, const QString& folder)
    : Dialog(kind.name, kind.title, business.World().prompter) {
  txtFilename = ForField("name", Named(new QLineEdit(kind.proposedName), "txtFilename"));
  SelectAllText(txtFilename);
  fldFolder = ForField("folder", new FolderField("Folder", tr("&Folder")));
  fldFolder->SetFolder(folder);
  pb = Named(new QProgressBar, "pb", tr("How far the copy has come"));
  pb->hide();
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(txtFilename, kind.nameLabel));
  column->addWidget(fldFolder);
  column->addWidget(MakeParagraph("lblAbout", kind.about, LabelRole::Hint));
  column->addWidget(pb);
  column->addStretch(1);
  SetContent(column);
  SetRoom({560, 240});
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdCreateBackup = MakeButton("cmdCreateBackup", kind.createCaption, ButtonKind::Main);
  AddActions({cmdClose, cmdCreateBackup});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  if (kind.folderChosen) connect(fldFolder, &FolderField::folderChosen, this, kind.folderChosen);
  tools.runner.OnClick(cmdCreateBackup, objectName(), [this, kind] { Create(kind); });
}

void FileOfBusinessDialog::Create(const Kind& kind) {
  setEnabled(false);  // nothing may be clicked while the copy is made
  const auto progress = [this](int done, int total) {
    pb->setMaximum(total);
    pb->setValue(done);
    pb->show();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  };
  BackupOutcome outcome;
  try {
    outcome = kind.create({txtFilename->text(), fldFolder->Folder()}, progress);
  } catch (...) {
    setEnabled(true);
    pb->hide();
    throw;
  }
  setEnabled(true);
  pb->hide();
  IsAccepted(outcome.refusal);
  if (outcome.made) cmdClose->setFocus();
}

void OpenFrmCreateCustomBackup(Business& business, const ScreenTools& tools,
                               const QString& archive) {
  MakeOwnFolder(archive);
  FileOfBusinessDialog(
      business, tools,
      {.name = "frmCreateCustomBackup",
       .title = QStringLiteral("Custom backup"),
       .nameLabel = QObject::tr("&Name of the backup"),
       .proposedName = ProposedBackupName(business.Today()),
       .about =
           QObject::tr("A backup of the same name in that folder is replaced, once the new one "
                       "has been checked."),
       .createCaption = QStringLiteral("&Create custom backup now..."),
       .create =
           [&business](const CustomBackup& backup, const CopyProgress& progress) {
             Prompter& prompter = business.World().prompter;
             const BackupOutcome outcome = CreateCustomBackup(business, prompter, backup, progress);
             if (outcome.made)
               prompter.Tell(Tone::Information, QStringLiteral("Backup successfully created."));
             return outcome;
           }},
      archive)
      .exec();
}

void OpenFrmCreateDBOfTransferred(Business& business, const ScreenTools& tools,
                                  const QString& archive,
                                  std::function<void(const QString&)> rememberFolder) {
  MakeOwnFolder(archive);
  FileOfBusinessDialog(
      business, tools,
      {.name = "frmCreateDBOfTransferred",
       .title = QObject::tr("Database of transferred clients"),
       .nameLabel = QObject::tr("&Name of new database"),
       .proposedName = {},
       .about = QStringLiteral(
           "Please note that this will only copy clients with status 'Transferred'..."),
       .createCaption = QObject::tr("C&reate database now..."),
       .create =
           [&business](const CustomBackup& target, const CopyProgress&) {
             return CreateDBOfTransferredAfterAsking(business, business.World().prompter, target);
           },
       .folderChosen = std::move(rememberFolder)},
      archive)
      .exec();
}

}  // namespace quillary::maintenance
