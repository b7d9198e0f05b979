#include "base/Version.h"
#include "data/ActivityLog.h"
#include "session/StartUp.h"
#include "shell/MainMenuMDI.h"
#include "shell/ProgramIcon.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScrollArea>
#include <QSet>
#include <QShortcut>
#include <QTabBar>
#include <QTimer>

/// The frame itself: its tabs, its place on the display, the tray, and the way out.
namespace quillary::shell {

namespace {

const QString kWindow = QStringLiteral("Main window");

}  // namespace

void MainMenuMDI::ShowScreen(Screen* screen) {
  // On a small display a screen scrolls rather than being squeezed.
  auto* area = new QScrollArea;
  area->setObjectName(QStringLiteral("screen"));
  area->setWidgetResizable(true);
  area->setWidget(screen);
  const int index = tabs_->addTab(area, QString(screen->windowTitle()).replace("&", "&&"));
  connect(screen, &QWidget::windowTitleChanged, this, [this, area](const QString& title) {
    tabs_->setTabText(tabs_->indexOf(area), QString(title).replace("&", "&&"));
  });
  connect(screen, &Screen::closeRequested, this, [this, area] { CloseTab(tabs_->indexOf(area)); });
  centre_->setCurrentWidget(tabs_);
  tabs_->setCurrentIndex(index);
  TabChanged();
}

Screen* MainMenuMDI::BringToFront(const QString& name) {
  for (int tab = 0; tab < tabs_->count(); ++tab) {
    if (ScreenAt(tab)->objectName() != name) continue;
    tabs_->setCurrentIndex(tab);
    return ScreenAt(tab);
  }
  return nullptr;
}

Screen* MainMenuMDI::ScreenAt(int tab) const {
  const auto* area = qobject_cast<QScrollArea*>(tabs_->widget(tab));
  return area ? qobject_cast<Screen*>(area->widget()) : nullptr;
}

Screen* MainMenuMDI::CurrentScreen() const {
  return ScreenAt(tabs_->currentIndex());
}

void MainMenuMDI::CloseTab(int index) {
  Screen* screen = ScreenAt(index);
  // A dialog stands over a command of the screen, which is to go on afterwards.
  if (QApplication::activeModalWidget()) return;
  if (!screen || !screen->MayClose()) return;
  QWidget* area = tabs_->widget(index);
  tabs_->removeTab(index);
  area->deleteLater();
  if (tabs_->count() == 0) centre_->setCurrentIndex(0);
  TabChanged();
  // The keys go on where the work does.
  if (Screen* next = CurrentScreen(); next && !next->isAncestorOf(QApplication::focusWidget()))
    next->setFocus();
}

void MainMenuMDI::AddTabShortcuts() {
  // Of the window, so that they work where nothing has the focus, too.
  const auto key = [this](const QKeySequence& keys, const QString& what, auto run) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setWhatsThis(what);
    connect(shortcut, &QShortcut::activated, this, run);
  };
  for (int number = 1; number <= 8; ++number)
    key(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number),
        tr("Shows screen number %1").arg(number), [this, number] { GoToTab(number - 1); });
  const auto step = [this](int by) {
    if (const int count = tabs_->count()) GoToTab((tabs_->currentIndex() + by + count) % count);
  };
  key(Qt::CTRL | Qt::Key_Tab, tr("Shows the next screen"), [step] { step(1); });
  key(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, tr("Shows the screen before"), [step] { step(-1); });
}

void MainMenuMDI::GoToTab(int index) {
  if (index >= tabs_->count() || QApplication::activeModalWidget()) return;
  tabs_->setCurrentIndex(index);
  if (Screen* screen = CurrentScreen(); !screen->isAncestorOf(QApplication::focusWidget()))
    screen->setFocus();
}

void MainMenuMDI::TabChanged() {
  const Screen* screen = CurrentScreen();
  tools_->MarkScreen(screen ? screen->objectName() : QString());
  YieldMnemonics(screen);
  StoreWindow();
}

// Alt and a letter that both a menu and a command of the screen in front claim would only move the
// focus between the two. The screen is where the work is, so the menu gives way while it shows.
void MainMenuMDI::YieldMnemonics(const Screen* screen) {
  QSet<QString> taken;
  if (screen) {
    for (const auto* button : screen->findChildren<QAbstractButton*>())
      taken += QKeySequence::mnemonic(button->text()).toString();
    for (const auto* label : screen->findChildren<QLabel*>())
      if (label->buddy()) taken += QKeySequence::mnemonic(label->text()).toString();
  }
  for (const auto& [menu, caption] : menuCaptions_) {
    const bool yields = taken.contains(QKeySequence::mnemonic(caption).toString());
    menu->setText(yields ? QString(caption).remove(u'&') : caption);
  }
}

void MainMenuMDI::RestoreWindow() {
  const SettingsStore& store = business_.World().settings;
  const QByteArray place =
      QByteArray::fromBase64(store.Read(kWindow, QStringLiteral("Place")).toLatin1());
  if (!place.isEmpty()) restoreGeometry(place);
}

void MainMenuMDI::RestoreTabs() {
  const SettingsStore& store = business_.World().settings;
  // A first start begins with the day's work in front, and how the business stands beside it.
  const QString kept =
      store.Read(kWindow, QStringLiteral("Tabs"), QStringLiteral("frmToday,frmDiary"));
  const QString current = store.Read(kWindow, QStringLiteral("Tab"));
  restoring_ = true;
  for (const QString& screen : kept.split(u',', Qt::SkipEmptyParts)) {
    const MenuEntry* entry = EntryOfScreen(screen.toLatin1().constData());
    if (!entry || !IsEnabled(*entry)) continue;
    runner_.Run(objectName(), QStringLiteral("RestoreTabs"),
                [&] { entry->action.open(navigator_); });
  }
  if (!current.isEmpty()) BringToFront(current);
  restoring_ = false;
}

void MainMenuMDI::StoreWindow() {
  if (restoring_ || leaving_ || !isVisible()) return;
  SettingsStore& store = business_.World().settings;
  QStringList screens;
  for (int tab = 0; tab < tabs_->count(); ++tab) screens += ScreenAt(tab)->objectName();
  // A blank in place of nothing, which would read as a first start.
  store.Write(kWindow, QStringLiteral("Tabs"),
              screens.isEmpty() ? QStringLiteral(",") : screens.join(u','));
  const Screen* current = CurrentScreen();
  store.Write(kWindow, QStringLiteral("Tab"), current ? current->objectName() : QString());
  store.Write(kWindow, QStringLiteral("Place"), QString::fromLatin1(saveGeometry().toBase64()));
}

bool MainMenuMDI::AllTabsMayClose() {
  const int current = tabs_->currentIndex();
  for (int tab = 0; tab < tabs_->count(); ++tab) {
    tabs_->setCurrentIndex(tab);  // what is asked is about what shows
    if (!ScreenAt(tab)->MayClose()) return false;
  }
  tabs_->setCurrentIndex(current);
  return true;
}

void MainMenuMDI::closeEvent(QCloseEvent* event) {
  if (leaving_) return event->accept();
  const Answer answer = business_.World().prompter.Ask(
      QStringLiteral("Are you sure you want to exit from the system?"));
  if (answer != Answer::Yes || !AllTabsMayClose()) return event->ignore();
  StoreWindow();
  leaving_ = true;
  runner_.Run(objectName(), QStringLiteral("FinishUp"), [this] {
    LogActivity(business_, QStringLiteral("Logoff"));
    session::FinishUp(business_, settings_);
  });
  LeaveTray();
  event->accept();
  emit left();
}

void MainMenuMDI::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  if (!isMinimized()) return LeaveTray();
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
  if (!tray_) MakeTray();
  tray_->setToolTip(QStringLiteral("Quillary version ") + VersionText());
  tray_->show();
  // Hiding inside the change itself would be undone by it.
  QTimer::singleShot(0, this, &QWidget::hide);
}

void MainMenuMDI::MakeTray() {
  tray_ = new QSystemTrayIcon(ProgramIcon(), this);
  tray_->setObjectName(QStringLiteral("tray"));
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("mnuTray"));
  connect(menu->addAction(tr("&Restore")), &QAction::triggered, this, &MainMenuMDI::ComeBack);
  connect(menu->addAction(tr("E&xit")), &QAction::triggered, this, [this] {
    ComeBack();  // what it asks is asked over the window
    close();
  });
  tray_->setContextMenu(menu);
  // Some trays send one click and never two, others two and never one.
  connect(tray_, &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason != QSystemTrayIcon::Context) ComeBack();
          });
}

void MainMenuMDI::ComeBack() {
  showNormal();
  activateWindow();
  LeaveTray();
}

void MainMenuMDI::LeaveTray() {
  if (tray_) tray_->hide();
}

}  // namespace quillary::shell
