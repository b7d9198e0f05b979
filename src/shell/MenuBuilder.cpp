#include "shell/MenuBuilder.h"

#include "kit/Controls.h"

#include <QMenuBar>

namespace quillary::shell {

namespace {

class Builder {
 public:
  explicit Builder(const std::function<void(const MenuEntry&)>& choose) : choose_(choose) {}

  void Fill(QWidget* into, const std::vector<MenuEntry>& entries, const QStringList& path) {
    for (const MenuEntry& entry : entries) Add(into, entry, path);
  }

  std::vector<MenuCommand> commands;

 private:
  void Add(QWidget* into, const MenuEntry& entry, const QStringList& path) {
    const QString name = QString::fromLatin1(entry.name);
    const QString caption = QString::fromLatin1(entry.caption);
    QStringList below = path;
    below += PlainCaption(caption);
    if (entry.action.kind == MenuAction::Kind::Submenu) {
      auto* menu = new QMenu(caption, into);
      menu->setObjectName(name);
      menu->menuAction()->setObjectName(name);
      into->addAction(menu->menuAction());
      Fill(menu, entry.entries, below);
      return;
    }
    auto* action = new QAction(caption, into);
    action->setObjectName(name);
    action->setMenuRole(QAction::NoRole);
    into->addAction(action);
    if (entry.action.kind == MenuAction::Kind::Separator) {
      action->setSeparator(true);
      return;
    }
    QObject::connect(action, &QAction::triggered, action,
                     [choose = choose_, &entry] { choose(entry); });
    action->setProperty("opens", entry.action.kind != MenuAction::Kind::Nothing);
    commands.push_back({&entry, action, below});
  }

  const std::function<void(const MenuEntry&)>& choose_;
};

}  // namespace

std::vector<MenuCommand> BuildMenus(QMenuBar* bar,
                                    const std::function<void(const MenuEntry&)>& choose) {
  Builder builder(choose);
  builder.Fill(bar, MenuTree(), {});
  return std::move(builder.commands);
}

}  // namespace quillary::shell
