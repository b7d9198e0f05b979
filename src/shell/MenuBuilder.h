#pragma once

#include "shell/MenuTree.h"

#include <QAction>
#include <QMenu>

#include <functional>
#include <vector>

class QMenuBar;

namespace quillary::shell {

/// A command as it stands in the menus, with the words on the way to it.
struct MenuCommand {
  const MenuEntry* entry;
  QAction* action;
  QStringList path;  // plain captions, its own last
};

/// Builds the bar from the tree. Every entry becomes an action, every submenu a menu, under its
/// name; `choose` is called with what the user chooses.
std::vector<MenuCommand> BuildMenus(QMenuBar* bar,
                                    const std::function<void(const MenuEntry&)>& choose);

}  // namespace quillary::shell
