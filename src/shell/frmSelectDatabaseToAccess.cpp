#include "shell/frmSelectDatabaseToAccess.h"

#include "base/Text.h"
#include "kit/Controls.h"
#include "session/AccessConversion.h"
#include "session/ProgramFolder.h"
#include "session/StartUp.h"
#include "shell/FrontDoor.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QMenuBar>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace quillary::shell {

namespace {

const QString kSelection = QStringLiteral("Form");
const QString kShowSelection = QStringLiteral("Show DB Selection");

}  // namespace

frmSelectDatabaseToAccess::frmSelectDatabaseToAccess(const Outside& outside,
                                                     const QString& programFolder)
    : outside_(outside),
      programFolder_(programFolder),
      recent_(outside.settings),
      chooser_(outside.prompter, {QStringLiteral("*.mdb")}) {
  setObjectName(QStringLiteral("frmSelectDatabaseToAccess"));
  setWindowTitle(QStringLiteral("Select a Quillary database"));
  MakeControls();
  LayOut();
  Load();
  connect(&chooser_, &FileChooser::fileClicked, txtPath, &QLineEdit::setText);
  connect(&chooser_, &FileChooser::fileOpened, this, [this](const QString& path) {
    txtPath->setText(path);
    cmdOK_Click();
  });
  connect(cmdOK, &QPushButton::clicked, this, &frmSelectDatabaseToAccess::cmdOK_Click);
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSelectDatabaseToAccess::MakeControls() {
  mnFile = new QMenu(QStringLiteral("&Recently Opened File(s)"), this);
  mnFile->setObjectName(QStringLiteral("mnFile"));
  txtPath = new QLineEdit;
  txtPath->setObjectName(QStringLiteral("txtPath"));
  chkShowThisWindow =
      new QCheckBox(QStringLiteral("Show this &window the next time you run the program"));
  chkShowThisWindow->setObjectName(QStringLiteral("chkShowThisWindow"));
  cmdOK = MakeButton("cmdOK", tr("&OK"), ButtonKind::Main);
  cmdOK->setDefault(true);
  cmdExit = MakeButton("cmdExit", tr("E&xit"));
  chooser_.File->setAccessibleName(tr("Database files"));
}

void frmSelectDatabaseToAccess::LayOut() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(6);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->addWidget(MakeLabelFor(chooser_.Drive, tr("&Drive")), 0, 0);
  grid->addWidget(chooser_.Drive, 1, 0);
  grid->addWidget(
      MakeLabelFor(chooser_.Folder, QStringLiteral("Double-click the &folder to open...")), 2, 0);
  grid->addWidget(chooser_.Folder, 3, 0);
  grid->addWidget(MakeLabelFor(chooser_.File, tr("D&atabases in this folder")), 2, 1);
  grid->addWidget(chooser_.File, 3, 1);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(chkShowThisWindow);
  buttons->addStretch(1);
  buttons->addWidget(cmdExit);
  buttons->addWidget(cmdOK);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(6);
  auto* bar = new QMenuBar;
  bar->addMenu(mnFile);
  column->setMenuBar(bar);
  column->addLayout(grid, 1);
  column->addSpacing(6);
  column->addWidget(MakeLabelFor(txtPath, QStringLiteral("File &to Open")));
  column->addWidget(txtPath);
  column->addWidget(MakeLabel(
      "lblNote", QStringLiteral("Note: Your database is the file with the MDB file extension"),
      LabelRole::Hint));
  column->addSpacing(6);
  column->addLayout(buttons);
  resize(640, 480);
  QWidget* const order[] = {chooser_.Drive,    chooser_.Folder, chooser_.File, txtPath,
                            chkShowThisWindow, cmdExit,         cmdOK};
  for (size_t at = 1; at < std::size(order); ++at) setTabOrder(order[at - 1], order[at]);
}

void frmSelectDatabaseToAccess::Load() {
  FillRecent();
  QString proposed =
      outside_.settings.Read(QStringLiteral("LastAccessedFile"), QStringLiteral("File")).trimmed();
  // There is no machine-wide list of data sources here; what an installation brings along lies in
  // the program's folder.
  if (proposed.isEmpty()) proposed = QDir(programFolder_).filePath(QStringLiteral("DATA.MDB"));
  Propose(proposed);
  chkShowThisWindow->setChecked(
      outside_.settings.Read(kSelection, kShowSelection, QStringLiteral("1")).toInt() != 0);
}

void frmSelectDatabaseToAccess::Propose(const QString& path) {
  txtPath->setText(path);
  chooser_.ShowFolder(ParentFolder(path));
}

void frmSelectDatabaseToAccess::FillRecent() {
  mnFile->clear();
  int number = 0;
  for (const QString& path : recent_.Paths()) {
    QAction* item = mnFile->addAction(QString(path).replace(u'&', QStringLiteral("&&")));
    item->setObjectName(QStringLiteral("mnuMRU%1").arg(number++));
    connect(item, &QAction::triggered, this, [this, path] {
      recent_.PutInFront(path);
      Propose(path);
      QTimer::singleShot(0, this, &frmSelectDatabaseToAccess::FillRecent);
    });
  }
  if (recent_.Paths().isEmpty()) mnFile->addAction(tr("No file yet"))->setEnabled(false);
}

void frmSelectDatabaseToAccess::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous() && !chkShowThisWindow->isChecked())
    QTimer::singleShot(0, this, &frmSelectDatabaseToAccess::cmdOK_Click);
}

void frmSelectDatabaseToAccess::cmdOK_Click() {
  const QString path = txtPath->text().trimmed();
  if (!QFileInfo(path).isFile()) {
    outside_.prompter.Tell(Tone::Exclamation,
                           QStringLiteral("Couldn't find the database file : ") + path);
    return;
  }
  // What opening throws ends the start-up, which waits for this dialog; it cannot travel through
  // the event loop between the two.
  try {
    Open(path);
  } catch (...) {
    failure_ = std::current_exception();
    reject();
  }
}

void frmSelectDatabaseToAccess::Open(const QString& path) {
  if (AskToTheFront(path, programFolder_)) return reject();
  const QString file =
      session::ConvertIfAccessFile(outside_, path, session::ArchiveUnder(programFolder_));
  if (file.isEmpty()) return;
  const BusyWhile busy(outside_.busy);
  recent_.PutInFront(file);
  recent_.Save();
  outside_.settings.Write(kSelection, kShowSelection, chkShowThisWindow->isChecked() ? "1" : "0");
  business_ = session::OpenDatabase(outside_, file, programFolder_);
  accept();
}

std::unique_ptr<Business> frmSelectDatabaseToAccess::Choose() {
  exec();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  return std::move(business_);
}

}  // namespace quillary::shell
