#include "older/screens/frmConvY12RY1.h"

#include "base/ports/requests/Setup.h"
#include "kit/Layouts.h"
#include "older/ImportOlder.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QProgressBar>
#include <QStorageInfo>

namespace quillary::older {

namespace {

constexpr char kUsualFolder[] = "BravantiFSE";

/// Where the older product lay on the machine it came from, on any drive of this one.
QString FirstFolder() {
  for (const QStorageInfo& drive : QStorageInfo::mountedVolumes()) {
    const QDir root(drive.rootPath());
    if (drive.isReady() && root.exists(QLatin1String(kUsualFolder)))
      return root.filePath(QLatin1String(kUsualFolder));
  }
  return QDir::homePath();
}

}  // namespace

frmConvY12RY1::frmConvY12RY1(Business& business, const ScreenTools& tools, const QString& archive)
    : Dialog("frmConvY12RY1", QStringLiteral("Bravanti One to Quillary conversion"),
             business.World().prompter),
      business_(business),
      tools_(tools),
      archive_(archive) {
  MakeControls();
  LayOut();
  connect(Drive, &QComboBox::activated, this, [this] {
    Folder->setText(Drive->currentData().toString());
    ShowFiles();
  });
  connect(Folder, &QLineEdit::editingFinished, this, &frmConvY12RY1::ShowFiles);
  connect(cmdBrowse, &QPushButton::clicked, this, &frmConvY12RY1::BrowseFolder);
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools_.runner.OnClick(cmdStart, objectName(), [this] { Start(); });
  ShowDrives();
  Folder->setText(FirstFolder());
  ShowFiles();
}

void frmConvY12RY1::MakeControls() {
  Drive = Named(new QComboBox, "Drive");
  Folder = Named(new QLineEdit, "Folder");
  cmdBrowse = MakeButton("cmdBrowse", tr("&Browse…"), ButtonKind::Plain, "folder-open");
  File = Named(new QComboBox, "File");
  lblStep = MakeLabel("lblStep", {}, LabelRole::Muted);
  prgProgress = Named(new QProgressBar, "prgProgress", tr("Progress"));
  prgProgress->setTextVisible(false);
  prgProgress->hide();
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdStart = MakeButton("cmdStart", tr("&Start"), ButtonKind::Main);
}

void frmConvY12RY1::LayOut() {
  auto* folder = new QHBoxLayout;
  folder->setSpacing(8);
  folder->addLayout(LabelOver(Folder, tr("F&older")), 1);
  folder->addWidget(cmdBrowse, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(
      MakeParagraph("lblSelect", QStringLiteral("Please select the Bravanti One database (e.g. "
                                                "C:\\BravantiFSE\\FSEData.MDB)")));
  column->addLayout(LabelOver(Drive, tr("&Drive")));
  column->addLayout(folder);
  column->addLayout(LabelOver(File, tr("&File")));
  column->addWidget(lblStep);
  column->addWidget(prgProgress);
  column->addStretch(1);
  SetContent(column);
  SetRoom({600, 360});
  AddActions({cmdCancel, cmdStart});
}

void frmConvY12RY1::ShowDrives() {
  for (const QStorageInfo& drive : QStorageInfo::mountedVolumes()) {
    if (!drive.isReady() || drive.bytesTotal() <= 0) continue;
    const QString name = drive.displayName();
    Drive->addItem(name == drive.rootPath() ? name : name + u' ' + drive.rootPath(),
                   drive.rootPath());
  }
}

void frmConvY12RY1::ShowFiles() {
  const QString shown = File->currentText();
  File->clear();
  const QDir folder(Folder->text());
  File->addItems(folder.entryList({QStringLiteral("*.mdb")}, QDir::Files, QDir::Name));
  File->setCurrentIndex(std::max(File->count() == 1 ? 0 : -1, File->findText(shown)));
}

void frmConvY12RY1::BrowseFolder() {
  const QString chosen = QFileDialog::getOpenFileName(
      this, tr("Database of Bravanti One"), Folder->text(), tr("Access databases (*.mdb *.MDB)"));
  if (chosen.isEmpty()) return;
  const QFileInfo file(chosen);
  Folder->setText(file.path());
  ShowFiles();
  File->setCurrentIndex(File->findText(file.fileName()));
}

void frmConvY12RY1::BeginSubProgress(const QString& step, qint64 rows) {
  setWindowTitle(QStringLiteral("Converting data.... "));
  lblStep->setText(step);
  prgProgress->setRange(0, static_cast<int>(std::max<qint64>(1, rows)));
  prgProgress->setValue(0);
  prgProgress->show();
}

void frmConvY12RY1::IncrementSubProgress(qint64 done) {
  prgProgress->setValue(static_cast<int>(done));
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmConvY12RY1::Start() {
  const QString file = File->currentText();
  const QString path = file.isEmpty() ? QString() : QDir(Folder->text()).filePath(file);
  setEnabled(false);
  const bool done = ImportOlderAfterAsking(business_, business_.World().prompter, path, archive_,
                                           [this](const QString& step, qint64 rows, qint64 all) {
                                             if (rows == 0) BeginSubProgress(step, all);
                                             IncrementSubProgress(rows);
                                           });
  setEnabled(true);
  setWindowTitle(QStringLiteral("Bravanti One to Quillary conversion"));
  prgProgress->hide();
  lblStep->clear();
  if (!done) return File->setFocus();
  const Answer answer = business_.World().prompter.Ask(
      QStringLiteral("DONE. You are required to close the system to effect the changes.\nExit?"));
  Close(Accepted);
  if (answer != Answer::Yes) return;
  business_.CloseConnection();
  business_.World().desktop.EndProcess(0);
}

void RegisterOlderScreens(Business& business, const ScreenTools& tools, const QString& archive) {
  tools.navigator.Register<ImportFromBravantiOne>(
      [&business, tools, archive](const ImportFromBravantiOne&) {
        frmConvY12RY1(business, tools, archive).exec();
      });
}

}  // namespace quillary::older
