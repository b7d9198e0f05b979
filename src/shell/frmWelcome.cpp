#include "shell/frmWelcome.h"

#include "kit/Layouts.h"
#include "shell/ProgramIcon.h"
#include "shell/RecentFiles.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QVBoxLayout>

namespace quillary::shell {
namespace {

const QString kForm = QStringLiteral("Form");
const QString kShow = QStringLiteral("Show Doors");
constexpr int kIcon = 64;
constexpr QSize kRoom(940, 600);

/// A path as its owner would say it: from the home folder on.
QString SpokenPath(const QString& path) {
  const QString home = QDir::homePath() + u'/';
  return path.startsWith(home) ? path.mid(home.size()) : path;
}

QFrame* MakeFrame(const char* name) {
  auto* frame = new QFrame;
  frame->setObjectName(QLatin1StringView(name));
  frame->setProperty("role", QStringLiteral("card"));
  return frame;
}

}  // namespace

frmWelcome::frmWelcome(SettingsStore& settings) : settings_(settings) {
  setObjectName(QStringLiteral("frmWelcome"));
  setWindowTitle(QStringLiteral("Quillary"));
  chkShowAtStart = new QCheckBox(tr("Show this window at &start"));
  chkShowAtStart->setObjectName(QStringLiteral("chkShowAtStart"));
  chkShowAtStart->setChecked(IsWanted(settings));
  LayOut();
  resize(kRoom);
}

bool frmWelcome::IsWanted(const SettingsStore& settings) {
  return settings.Read(kForm, kShow, QStringLiteral("0")) == u"1";
}

QWidget* frmWelcome::DoorCard(const char* name, const QString& title, const QString& about,
                              QPushButton* command, Door door) {
  QFrame* frame = MakeFrame(name);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(24, 24, 24, 24);
  column->setSpacing(16);
  column->addWidget(MakeLabel("lblDoor", title, LabelRole::Figure));
  column->addWidget(MakeParagraph("lblAbout", about));
  column->addStretch(1);
  column->addWidget(command, 0, Qt::AlignLeft);
  connect(command, &QPushButton::clicked, this, [this, door] { Take(door); });
  return frame;
}

QWidget* frmWelcome::RecentCard() {
  QFrame* frame = MakeFrame("cardRecent");
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(16, 8, 16, 8);
  column->setSpacing(4);
  int number = 0;
  const QStringList paths = RecentFiles(settings_).Paths();
  for (const QString& path : paths) {
    const QFileInfo file(path);
    if (!file.isFile()) continue;
    auto* line = new QHBoxLayout;
    auto* name = MakeLabel("lblFolder", file.dir().dirName());
    name->setProperty("role", QStringLiteral("heading"));
    line->addWidget(name);
    line->addWidget(MakeLabel("lblPath", SpokenPath(path), LabelRole::Muted), 1);
    line->addWidget(MakeLabel("lblWhen", file.lastModified().toString(QStringLiteral("d MMM yyyy")),
                              LabelRole::Muted));
    ++number;
    auto* open = MakeButton(qPrintable(QStringLiteral("cmdRecent%1").arg(number)),
                            tr("Open &%1").arg(number), ButtonKind::Link);
    open->setAccessibleName(tr("Open %1").arg(path));
    connect(open, &QPushButton::clicked, this, [this, path] {
      recentFile_ = path;
      Take(Door::RecentFile);
    });
    line->addWidget(open);
    column->addLayout(line);
  }
  frame->setVisible(number > 0);
  return frame;
}

void frmWelcome::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 24, 24, 24);
  column->setSpacing(16);
  column->addStretch(1);
  QLabel* icon = MakeLabel("imgIcon", {});
  icon->setPixmap(ProgramIcon().pixmap(kIcon));
  icon->setAccessibleName(tr("Quillary"));
  column->addWidget(icon, 0, Qt::AlignHCenter);
  column->addWidget(MakeLabel("lblWelcome", tr("Welcome to Quillary!"), LabelRole::Title), 0,
                    Qt::AlignHCenter);
  column->addWidget(MakeLabel("lblQuestion", tr("One file is one business. Which one is yours?"),
                              LabelRole::Muted),
                    0, Qt::AlignHCenter);
  auto* doors = new QHBoxLayout;
  doors->setSpacing(16);
  QPushButton* cmdNew = MakeButton("cmdNewBusiness", tr("&New business..."), ButtonKind::Main);
  cmdNew->setDefault(true);
  doors->addWidget(
      DoorCard("cardNew", tr("Start a new business"),
               tr("A name, a folder, your country. Ready for the first client in two minutes, "
                  "without a network."),
               cmdNew, Door::NewBusiness),
      1);
  doors->addWidget(DoorCard("cardOpen", tr("Open what you have"),
                            tr("A business of Quillary, a backup, an Access file of an earlier "
                               "version or of the older product."),
                            MakeButton("cmdOpenFile", tr("&Open a file...")), Door::OpenFile),
                   1);
  doors->addWidget(DoorCard("cardDemo", tr("Look around first"),
                            tr("An invented garden business with a year and a half behind it. Try "
                               "everything; it can be thrown away."),
                            MakeButton("cmdDemo", tr("Open the &demo")), Door::Demo),
                   1);
  column->addLayout(doors);
  column->addWidget(RecentCard());
  auto* foot = new QHBoxLayout;
  foot->addWidget(chkShowAtStart);
  foot->addStretch(1);
  QPushButton* cmdExit = MakeButton("cmdExit", tr("E&xit"));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
  foot->addWidget(cmdExit);
  column->addLayout(foot);
  column->addStretch(1);
}

void frmWelcome::Take(Door door) {
  chosen_ = door;
  accept();
}

frmWelcome::Door frmWelcome::Choose() {
  chosen_ = Door::Leave;
  exec();
  settings_.Write(kForm, kShow, chkShowAtStart->isChecked() ? "1" : "0");
  return chosen_;
}

}  // namespace quillary::shell
