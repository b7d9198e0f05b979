#include "mail/screens/frmMailMerge.h"

#include "base/Text.h"
#include "kit/Layouts.h"
#include "mail/MailMerge.h"

#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QStandardPaths>
#include <QStorageInfo>

namespace quillary::mail {

frmMailMerge::frmMailMerge(Business& business, const ScreenTools& tools)
    : Dialog("frmMailMerge", QStringLiteral("Mail merge"), business.World().prompter),
      business_(business) {
  drive = Named(new QComboBox, "drive");
  drive->addItem(tr("Home"), QDir::homePath());
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (volume.isReady() && !volume.isReadOnly() &&
        (volume.isRoot() || volume.rootPath().startsWith(u"/media") ||
         volume.rootPath().startsWith(u"/mnt")))
      drive->addItem(volume.displayName(), volume.rootPath());
  folder = Named(new QListWidget, "folder");
  folder->setMinimumHeight(160);
  txtFileName =
      ForField("fileName", Named(new QLineEdit(QStringLiteral("mailmerge.txt")), "txtFileName"));
  lblPath = MakeParagraph("lblPath", {});
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdOK = MakeButton("cmdOK", tr("&Save"), ButtonKind::Main);
  LayOut();
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  ShowFolders(QDir(documents).exists() ? documents : QDir::homePath());
  connect(drive, &QComboBox::activated, this,
          [this] { ShowFolders(drive->currentData().toString()); });
  connect(folder, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    ShowFolders(QDir::cleanPath(QDir(path_).filePath(item->text())));
  });
  connect(cmdClose, &QPushButton::clicked, this, [this] { Close(Rejected); });
  tools.runner.OnClick(cmdOK, objectName(), [this] { Save(); });
}

void frmMailMerge::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(
      MakeParagraph("lblPrompt", QStringLiteral("Where do you want to save the file?")));
  column->addLayout(LabelOver(drive, tr("&Drive")));
  column->addLayout(LabelOver(folder, tr("&Folder")));
  column->addWidget(lblPath);
  column->addLayout(LabelOver(txtFileName, QStringLiteral("File &name")));
  SetContent(column);
  SetRoom({440, 0});
  AddActions({cmdClose, cmdOK});
}

void frmMailMerge::ShowFolders(const QString& path) {
  path_ = path;
  lblPath->setText(QDir::toNativeSeparators(path_));
  folder->clear();
  if (!QDir(path_).isRoot()) folder->addItem(QStringLiteral(".."));
  folder->addItems(QDir(path_).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
  folder->setCurrentRow(0);
}

void frmMailMerge::Save() {
  const QString name = txtFileName->text().trimmed();
  if (name.isEmpty() || name.contains(u'/')) {
    IsAccepted(Refusal{tr("Please enter a name for the file."), QStringLiteral("fileName")});
    return;
  }
  const QString file = QDir(path_).filePath(name);
  Prompter& prompter = business_.World().prompter;
  if (QFile::exists(file) && prompter.AskBeforeLosing(tr("The file %1 is there already.\nDo you "
                                                         "want to replace it?")
                                                          .arg(file)) != Answer::Yes)
    return;
  const int clients = WriteMailMerge(business_, file);
  prompter.Tell(
      Tone::Information,
      tr("%1 written to %2.")
          .arg(Counted(static_cast<size_t>(clients), "client was", "clients were"), file));
  Close(Accepted);
}

}  // namespace quillary::mail
