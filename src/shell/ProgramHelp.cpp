#include "base/ports/requests/Help.h"
#include "help/screens/frmShortcuts.h"
#include "shell/Program.h"

#include <QUrl>

/// What the menu Help opens.
namespace quillary::shell {

void Program::RegisterHelp() {
  navigator_.Register<OpenManual>([this](const OpenManual&) { manual_.ExplainFront(); });
  navigator_.Register<OpenFAQ>([this](const OpenFAQ&) { manual_.Explain(QStringLiteral("faq")); });
  navigator_.Register<OpenManualInBrowser>(
      [this](const OpenManualInBrowser&) { OpenManualPage(); });
  navigator_.Register<OpenShortcuts>([this](const OpenShortcuts&) { ShowShortcuts(); });
}

void Program::OpenManualPage() {
  QString page = session::ReadSupport(settings_).manualPage;
  if (page.isEmpty())
    page = QUrl::fromLocalFile(manual_.Pages().Folder() + QStringLiteral("/index.html")).toString();
  if (outside_.desktop.OpenInBrowser(page)) return;
  outside_.prompter.Tell(
      Tone::Exclamation,
      QStringLiteral("No browser answers on this machine. The address is\n%1\n\nThe same manual "
                     "opens here with F1, without the internet.")
          .arg(page));
}

void Program::ShowShortcuts() {
  std::vector<help::ShortcutGroup> groups;
  if (const Screen* screen = mainMenu_->CurrentScreen())
    groups.push_back({screen->windowTitle(), ShortcutsOf(screen)});
  groups.push_back({QStringLiteral("Main window"), mainMenu_->OwnShortcuts()});
  groups.push_back({QStringLiteral("Everywhere"), ShortcutsEverywhere()});
  help::frmShortcuts(groups, mainMenu_.get()).exec();
}

}  // namespace quillary::shell
