#include "shell/ProgramIcon.h"

static void LoadShellResources() {
  Q_INIT_RESOURCE(shell);
}

namespace quillary::shell {

QIcon ProgramIcon() {
  LoadShellResources();
  return QIcon(QStringLiteral(":/shell/quillary.svg"));
}

}  // namespace quillary::shell
