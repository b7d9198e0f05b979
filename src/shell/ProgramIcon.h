#pragma once

#include <QIcon>

namespace quillary::shell {

/// The program's own sign, for windows, the tray and the splash.
QIcon ProgramIcon();

}  // namespace quillary::shell
