#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"
#include "kit/Screen.h"
#include "kit/Shortcuts.h"
#include "shell/MainSearch.h"
#include "shell/MenuBuilder.h"
#include "shell/ToolStrip.h"

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QSystemTrayIcon>
#include <QTabWidget>
#include <QToolButton>

#include <map>

namespace quillary::shell {

/// The frame of the program: the menu bar is its command surface, the screens open as tabs, the
/// status bar names the business. Closing it asks first and does the work of the exit.
class MainMenuMDI : public QMainWindow, public ScreenHost {
  Q_OBJECT

 public:
  MainMenuMDI(Business& business, LocalSettings& settings, Navigator& navigator,
              CommandRunner& runner);
  ~MainMenuMDI() override;

  /// Shows the frame with its caption, the splash over it and the tabs of last time.
  void ShowYourself();
  /// Puts the name of the tax in place of "GST" in four captions.
  void RenameMenuCaptions(const QString& taxName);
  /// The screen that the user is at; null when none is open.
  Screen* CurrentScreen() const;
  /// The keys of the frame itself, without those of its screens.
  std::vector<ShortcutLine> OwnShortcuts() const;
  ScreenTools Tools() { return {navigator_, *this, runner_}; }

  void ShowScreen(Screen* screen) override;
  Screen* BringToFront(const QString& name) override;

 signals:
  /// The user has left the program, and everything has been closed.
  void left();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildCommands();
  void BuildCentre();
  void BuildStatusBar();
  QAction& Find(const char* command) const;
  void Choose(const MenuEntry& entry);
  void RunOwn(const QString& name);
  void EnableCommands();
  bool IsEnabled(const MenuEntry& entry) const;
  void EnableHeadOfficeCommands();
  void RefreshStatus();
  void UseTheme(const QString& name);

  void ReconnectToInternet();
  void RegisterComponents();
  void DebugTest1();

  Screen* ScreenAt(int tab) const;
  void CloseTab(int index);
  void AddTabShortcuts();
  void GoToTab(int index);
  bool AllTabsMayClose();
  void TabChanged();
  void YieldMnemonics(const Screen* screen);
  void RestoreWindow();
  void RestoreTabs();
  void StoreWindow();
  void MakeTray();
  void ComeBack();
  void LeaveTray();

  void FollowCommits();
  void BuildUndoTool();
  void BuildLastDone();
  void ShowHistory();
  /// Takes the latest commands back, one after the other, until one cannot be.
  void Undo(int commands = 1);
  void Redo();

  Business& business_;
  LocalSettings& settings_;
  Navigator& navigator_;
  CommandRunner& runner_;
  std::vector<MenuCommand> commands_;
  std::map<QAction*, QString> menuCaptions_;  // of the bar, with their mnemonics
  bool leaving_ = false;
  bool restoring_ = false;

  ToolStrip* tools_;
  MainSearch* txtFind;
  QStackedWidget* centre_;
  QTabWidget* tabs_;
  QLabel* lblBusiness;
  QLabel* lblDatabase;
  QLabel* lblHeadOffice;
  QLabel* lblScheduleFilledTo;
  QSystemTrayIcon* tray_ = nullptr;
  QLabel* lblLastDone;
  QPushButton* cmdUndoLast;
  QToolButton* tool_undo;
  Subscription commits_;
  Subscription historyChanges_;
};

}  // namespace quillary::shell
