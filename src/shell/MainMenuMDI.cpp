#include "shell/MainMenuMDI.h"

#include "base/Text.h"
#include "base/Version.h"
#include "data/ActivityLog.h"
#include "kit/Controls.h"
#include "kit/Theme.h"
#include "session/BusinessFacts.h"
#include "shell/MainMenuMDI_Splash.h"
#include "shell/ProgramIcon.h"

#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quillary::shell {

MainMenuMDI::MainMenuMDI(Business& business, LocalSettings& settings, Navigator& navigator,
                         CommandRunner& runner)
    : business_(business), settings_(settings), navigator_(navigator), runner_(runner) {
  setObjectName(QStringLiteral("MainMenuMDI"));
  setWindowIcon(ProgramIcon());
  setContextMenuPolicy(Qt::NoContextMenu);
  BuildCommands();
  BuildCentre();
  BuildStatusBar();
  BuildLastDone();
  FollowCommits();
  resize(1280, 720);
}

MainMenuMDI::~MainMenuMDI() {
  runner_.RunWithin(nullptr);
}

void MainMenuMDI::BuildCommands() {
  commands_ = BuildMenus(menuBar(), [this](const MenuEntry& entry) { Choose(entry); });
  for (const MenuCommand& command : commands_) {
    if (!command.path.contains(QStringLiteral("Appearance"))) continue;
    command.action->setCheckable(true);
  }
  for (QAction* menu : menuBar()->actions()) menuCaptions_.emplace(menu, menu->text());
  tools_ = new ToolStrip(menuBar());
  addToolBar(tools_);
  BuildUndoTool();
  txtFind = new MainSearch(business_, commands_, navigator_, runner_);
  tools_->AddAtEnd(txtFind);
  AddShortcut(this, QKeySequence(Qt::CTRL | Qt::Key_K), tr("Finds a client, job or command"),
              [this] {
                txtFind->setFocus(Qt::ShortcutFocusReason);
                txtFind->selectAll();
              });
  // Both, whichever the desktop takes for its own.
  for (const auto keys : {Qt::CTRL | Qt::Key_W, Qt::CTRL | Qt::Key_F4})
    AddShortcut(this, keys, tr("Closes the screen in front"), [this] {
      if (centre_->currentWidget() == tabs_) CloseTab(tabs_->currentIndex());
    });
  AddTabShortcuts();
  Find("mnuHelpManual").setShortcut(QKeySequence::HelpContents);
  Find("mnuHelpShortcuts").setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F1));
}

QAction& MainMenuMDI::Find(const char* command) const {
  return *menuBar()->findChild<QAction*>(QLatin1StringView(command));
}

std::vector<ShortcutLine> MainMenuMDI::OwnShortcuts() const {
  std::vector<ShortcutLine> lines = ShortcutsOf(this, tabs_);
  for (const MenuCommand& command : commands_)
    if (!command.action->shortcut().isEmpty())
      lines.push_back(
          {command.action->shortcut().toString(QKeySequence::NativeText), command.path.last()});
  for (const auto& [menu, caption] : menuCaptions_)
    if (const QKeySequence keys = QKeySequence::mnemonic(menu->text()); !keys.isEmpty())
      lines.push_back(
          {keys.toString(QKeySequence::NativeText), tr("Menu: %1").arg(PlainCaption(caption))});
  return lines;
}

void MainMenuMDI::BuildCentre() {
  tabs_ = new QTabWidget;
  tabs_->setObjectName(QStringLiteral("tabs"));
  tabs_->setTabsClosable(true);
  tabs_->setMovable(true);
  tabs_->tabBar()->setExpanding(false);
  tabs_->tabBar()->setAccessibleName(tr("Open screens"));
  connect(tabs_, &QTabWidget::tabCloseRequested, this, &MainMenuMDI::CloseTab);
  connect(tabs_, &QTabWidget::currentChanged, this, &MainMenuMDI::TabChanged);

  auto* start = new QWidget;
  auto* column = new QVBoxLayout(start);
  column->setSpacing(8);
  column->addStretch(2);
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(64, 64));
  column->addWidget(picture, 0, Qt::AlignHCenter);
  column->addWidget(MakeLabel("lblNoScreen", tr("No screen is open."), LabelRole::Title), 0,
                    Qt::AlignHCenter);
  column->addWidget(MakeLabel("lblNextStep",
                              tr("Choose a command above, or press Ctrl+K and type what you want "
                                 "to do."),
                              LabelRole::Muted),
                    0, Qt::AlignHCenter);
  column->addStretch(3);
  centre_ = new QStackedWidget;
  centre_->addWidget(start);
  centre_->addWidget(tabs_);
  setCentralWidget(centre_);
}

void MainMenuMDI::BuildStatusBar() {
  auto* sb = statusBar();
  sb->setObjectName(QStringLiteral("sb"));
  sb->setSizeGripEnabled(false);
  lblBusiness = MakeLabel("lblBusiness", {});
  lblDatabase = MakeLabel("lblDatabase", {});
  lblHeadOffice = MakeLabel("lblHeadOffice", {});
  lblScheduleFilledTo = MakeLabel("lblScheduleFilledTo", {});
  for (QLabel* panel : {lblBusiness, lblDatabase, lblHeadOffice}) sb->addWidget(panel);
  sb->addPermanentWidget(lblScheduleFilledTo);
  sb->setContentsMargins(8, 0, 8, 0);
}

void MainMenuMDI::ShowYourself() {
  setWindowTitle(QStringLiteral("Quillary version %1 -> [Database = %2]")
                     .arg(VersionText(), business_.DatabaseFile()));
  EnableCommands();
  RefreshStatus();
  RestoreWindow();
  show();
  auto* splash = new MainMenuMDI_Splash(session::ReadBusinessFacts(business_).companyName, this);
  splash->ShowOver(this, business_.World().clock.Now().time);
  activateWindow();  // the keyboard belongs to the frame at once
  RestoreTabs();
  business_.PastCommands().End();  // what the start did is not the user's to take back
}

void MainMenuMDI::RefreshStatus() {
  const session::BusinessFacts facts = session::ReadBusinessFacts(business_);
  lblBusiness->setText(facts.companyName);
  lblBusiness->setVisible(!facts.companyName.isEmpty());
  lblDatabase->setText(FileNameOfPath(business_.DatabaseFile()));
  lblDatabase->setToolTip(business_.DatabaseFile());
  lblHeadOffice->setText(business_.World().headOffice.Online() ? tr("Head office: connected")
                                                               : tr("Head office: offline"));
  lblScheduleFilledTo->setText(
      facts.scheduleFilledTo.isValid()
          ? tr("Schedule filled to %1").arg(ToShortDateText(facts.scheduleFilledTo))
          : tr("Schedule not filled yet"));
}

void MainMenuMDI::Choose(const MenuEntry& entry) {
  if (entry.action.kind == MenuAction::Kind::Nothing) return;
  const QString name = QString::fromLatin1(entry.name);
  runner_.Run(objectName(), name + QStringLiteral("_Click"), [&] {
    if (*entry.logs) LogActivity(business_, QString::fromLatin1(entry.logs));
    if (entry.action.kind == MenuAction::Kind::Screen)
      entry.action.open(navigator_);
    else
      RunOwn(name);
  });
}

void MainMenuMDI::EnableCommands() {
  for (const MenuCommand& command : commands_)
    if (command.entry->action.canOpen)
      command.action->setEnabled(command.entry->action.canOpen(navigator_));
  EnableHeadOfficeCommands();
  const ThemeChoice choice = ReadThemeChoice(business_.World().settings);
  const auto check = [this](const char* name, bool checked) {
    menuBar()->findChild<QAction*>(QLatin1StringView(name))->setChecked(checked);
  };
  check("mnuAppearanceSystem", choice == ThemeChoice::System);
  check("mnuAppearanceLight", choice == ThemeChoice::Light);
  check("mnuAppearanceDark", choice == ThemeChoice::Dark);
  tools_->Refresh();
}

bool MainMenuMDI::IsEnabled(const MenuEntry& entry) const {
  return std::any_of(commands_.begin(), commands_.end(), [&](const MenuCommand& command) {
    return command.entry == &entry && command.action->isEnabled();
  });
}

void MainMenuMDI::EnableHeadOfficeCommands() {
  const bool online = business_.World().headOffice.Online();
  const bool isOnItsOwn = !business_.values.enableOstrel4WebServices;
  for (const MenuCommand& command : commands_) {
    const QLatin1StringView name(command.entry->name);
    if (name == QLatin1StringView("mnuSetupServices") ||
        name == QLatin1StringView("mnuUploadDatabase") ||
        name == QLatin1StringView("mnuCopyFromOstrel"))
      command.action->setEnabled(
          command.entry->action.canOpen(navigator_) &&
          (online || (isOnItsOwn && name == QLatin1StringView("mnuSetupServices"))));
  }
}

void MainMenuMDI::RenameMenuCaptions(const QString& taxName) {
  const QString word = QString(taxName).replace(u'&', QStringLiteral("&&"));
  const std::pair<const char*, QString> captions[] = {
      {"mnuReportsGST", word},
      {"mnuPLWithGST", QStringLiteral("With ") + word},
      {"mnuPLWithoutGST", QStringLiteral("Without ") + word},
      {"mnuRecalculateGSTComponent", QStringLiteral("Re-calculate %1 component").arg(word)}};
  for (const auto& [name, caption] : captions)
    menuBar()->findChild<QAction*>(QLatin1StringView(name))->setText(caption);
  for (MenuCommand& command : commands_) command.path.last() = PlainCaption(command.action->text());
}

}  // namespace quillary::shell
