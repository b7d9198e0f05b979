#pragma once

#include <QIcon>

namespace quillary {

/// The program's own sign, for windows, the tray and the splash.
QIcon ProgramIcon();

}  // namespace quillary
