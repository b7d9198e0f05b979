#include "shell/frmAbout.h"

#include "base/Version.h"
#include "kit/Controls.h"
#include "shell/ProgramIcon.h"

#include <QVBoxLayout>

namespace quillary::shell {

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("About Quillary"));
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(64, 64));
  picture->setAccessibleName(tr("The sign of Quillary"));
  QLabel* title = MakeLabel("lblTitle", QStringLiteral("Quillary"), LabelRole::Title);
  QLabel* version = MakeLabel("lblVersion", tr("Version %1").arg(VersionText()), LabelRole::Muted);
  QLabel* about =
      MakeLabel("lblAbout", tr("The business system for the owner of a home-services franchise."));
  QLabel* licence = MakeLabel(
      "lblLicence", tr("Free software under the GNU General Public License, version 3 or later."),
      LabelRole::Hint);
  cmdClose = MakeButton("cmdClose", tr("&Close"), ButtonKind::Main);
  cmdClose->setDefault(true);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

  auto* words = new QVBoxLayout;
  words->setSpacing(4);
  for (QLabel* line : {title, version}) words->addWidget(line);
  words->addSpacing(8);
  for (QLabel* line : {about, licence}) words->addWidget(line);
  auto* top = new QHBoxLayout;
  top->setSpacing(16);
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addLayout(words, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 24, 24, 16);
  column->setSpacing(16);
  column->addLayout(top);
  column->addWidget(cmdClose, 0, Qt::AlignRight);
  setFixedSize(sizeHint());
}

}  // namespace quillary::shell
