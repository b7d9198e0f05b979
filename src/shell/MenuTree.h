#pragma once

#include "base/ports/Navigator.h"

#include <vector>

/// The command surface of the program, declared as data: what stands where, under which words, what
/// it opens and which activity it records.
namespace quillary::shell {

/// What choosing an entry does.
struct MenuAction {
  enum class Kind {
    Submenu,
    Separator,
    Nothing,    // a reserved place: stands there enabled and does nothing
    Screen,     // asks the navigator
    MainWindow  // the main window does it itself
  };
  Kind kind = Kind::Submenu;
  bool (*canOpen)(const Navigator&) = nullptr;
  void (*open)(const Navigator&) = nullptr;
};

struct MenuEntry {
  const char* name;
  const char* caption;
  MenuAction action;
  const char* logs = "";    // the activity recorded before it opens
  const char* screen = "";  // the tab that it opens, where it opens one
  std::vector<MenuEntry> entries = {};
};

/// The whole tree in its order.
const std::vector<MenuEntry>& MenuTree();

/// The entry that opens the screen of that name; null when none does.
const MenuEntry* EntryOfScreen(const char* screen);

}  // namespace quillary::shell
