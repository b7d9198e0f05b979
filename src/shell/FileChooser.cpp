#include "shell/FileChooser.h"

#include <QDir>
#include <QStorageInfo>

namespace quillary::shell {

namespace {

/// Where disks and sticks of the user show; the rest is the system's own.
bool IsForUsers(const QStorageInfo& volume) {
  const QString root = volume.rootPath();
  return root == QDir::rootPath() || root.startsWith(QLatin1StringView("/media/")) ||
         root.startsWith(QLatin1StringView("/run/media/")) ||
         root.startsWith(QLatin1StringView("/mnt/")) || root == QLatin1StringView("/home");
}

}  // namespace

FileChooser::FileChooser(Prompter& prompter, const QStringList& filters)
    : Drive(new QComboBox),
      Folder(new QListWidget),
      File(new QListWidget),
      prompter_(prompter),
      filters_(filters) {
  Drive->setObjectName(QStringLiteral("Drive"));
  Folder->setObjectName(QStringLiteral("Folder"));
  File->setObjectName(QStringLiteral("File"));
  // Side by side in equal parts, whatever stands in them.
  Drive->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  for (QListWidget* list : {Folder, File}) {
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    list->setMinimumWidth(160);
  }
  FillDrives();
  connect(Drive, &QComboBox::activated, this, &FileChooser::Drive_Change);
  connect(Folder, &QListWidget::itemActivated, this, &FileChooser::OpenFolder);
  connect(File, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
    if (item) emit fileClicked(QDir(folder_).filePath(item->text()));
  });
  connect(File, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    emit fileOpened(QDir(folder_).filePath(item->text()));
  });
}

void FileChooser::FillDrives() {
  Drive->clear();
  Drive->addItem(QIcon::fromTheme(QStringLiteral("user-home")), tr("Home"), QDir::homePath());
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (!volume.isValid() || !IsForUsers(volume)) continue;
    Drive->addItem(QIcon::fromTheme(QStringLiteral("drive-harddisk")), volume.rootPath(),
                   volume.rootPath());
  }
}

void FileChooser::Drive_Change(int index) {
  const QString path = Drive->itemData(index).toString();
  if (QDir(path).exists()) {
    ShowFolder(path);
    return;
  }
  prompter_.Tell(Tone::Stop, QStringLiteral("That drive isn't available!\nPlease make sure that "
                                            "the drive is existing or a diskette is "
                                            "inserted in the drive."));
  ShowFolder(QDir::rootPath());
}

void FileChooser::ShowFolder(const QString& path) {
  QDir directory(path.isEmpty() ? QDir::homePath() : path);
  while (!directory.exists() && !directory.isRoot()) {
    const QString parent = QFileInfo(directory.absolutePath()).absolutePath();
    if (parent == directory.absolutePath()) break;
    directory.setPath(parent);
  }
  folder_ = directory.absolutePath();
  Folder->clear();
  if (!directory.isRoot())
    Folder->addItem(
        new QListWidgetItem(QIcon::fromTheme(QStringLiteral("go-up")), QStringLiteral("..")));
  const QIcon folderIcon = QIcon::fromTheme(QStringLiteral("folder"));
  for (const QString& name : directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
    Folder->addItem(new QListWidgetItem(folderIcon, name));
  File->clear();
  const QIcon fileIcon = QIcon::fromTheme(QStringLiteral("server-database"));
  for (const QString& name : directory.entryList(filters_, QDir::Files, QDir::Name))
    File->addItem(new QListWidgetItem(fileIcon, name));
  // The place that the folder lies in; "/" when no nearer one is listed.
  int place = -1;
  for (int item = 0; item < Drive->count(); ++item) {
    const QString root = Drive->itemData(item).toString();
    const bool within = folder_ == root || folder_.startsWith(root == u"/" ? root : root + u'/');
    if (within && (place < 0 || root.size() > Drive->itemData(place).toString().size()))
      place = item;
  }
  Drive->setCurrentIndex(place);
  emit folderChanged(folder_);
}

void FileChooser::OpenFolder(QListWidgetItem* item) {
  ShowFolder(QDir::cleanPath(QDir(folder_).filePath(item->text())));
  if (Folder->count() > 0) Folder->setCurrentRow(0);
}

}  // namespace quillary::shell
