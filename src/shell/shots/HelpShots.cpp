#include "base/ports/requests/Help.h"
#include "base/ports/requests/Screens.h"
#include "help/screens/frmManual.h"
#include "shell/shots/Shots.h"

#include <QApplication>

/// The pictures of the manual's window and of the sheet of shortcuts.
namespace quillary::shell {

void Shots::Help() {
  Navigator& navigator = program_.MainMenu()->Tools().navigator;
  navigator.Open(OpenDiary{});
  SaveRequest(OpenShortcuts{});
  navigator.Open(OpenManual{});
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* manual = qobject_cast<help::frmManual*>(window);
    if (!manual) continue;
    Save(manual, QStringLiteral("frmManual"));
    manual->ShowPlace(QStringLiteral("index.html"));
    Save(manual, QStringLiteral("frmManual-contents"));
    manual->ShowPlace(QStringLiteral("keys.html"));
    manual->findChild<QLineEdit*>(QStringLiteral("txtFind"))->setText(QStringLiteral("invoice"));
    Save(manual, QStringLiteral("frmManual-searched"));
    manual->resize(720, 480);
    manual->ShowPlace(QStringLiteral("week.html#frmBanking"));
    Save(manual, QStringLiteral("frmManual-at-150-percent"));
    manual->close();
  }
}

}  // namespace quillary::shell
