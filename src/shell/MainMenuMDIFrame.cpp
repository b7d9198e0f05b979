#include "data/ActivityLog.h"
#include "session/StartUp.h"
#include "shell/MainMenuMDI.h"
#include "shell/ProgramIcon.h"
#include "shell/Version.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTabBar>
#include <QTimer>

/// The frame itself: its tabs, its place on the display, the tray, and the way out.
namespace quillary {

namespace {

const QString kWindow = QStringLiteral("Main window");

}  // namespace

void MainMenuMDI::ShowScreen(Screen* screen) {
  const int index = tabs_->addTab(screen, QString(screen->windowTitle()).replace("&", "&&"));
  connect(screen, &QWidget::windowTitleChanged, this, [this, screen](const QString& title) {
    tabs_->setTabText(tabs_->indexOf(screen), QString(title).replace("&", "&&"));
  });
  connect(screen, &Screen::closeRequested, this,
          [this, screen] { CloseTab(tabs_->indexOf(screen)); });
  centre_->setCurrentWidget(tabs_);
  tabs_->setCurrentIndex(index);
  TabChanged();
}

Screen* MainMenuMDI::BringToFront(const QString& name) {
  for (int tab = 0; tab < tabs_->count(); ++tab) {
    if (tabs_->widget(tab)->objectName() != name) continue;
    tabs_->setCurrentIndex(tab);
    return qobject_cast<Screen*>(tabs_->widget(tab));
  }
  return nullptr;
}

Screen* MainMenuMDI::CurrentScreen() const {
  return qobject_cast<Screen*>(tabs_->currentWidget());
}

void MainMenuMDI::CloseTab(int index) {
  auto* screen = qobject_cast<Screen*>(tabs_->widget(index));
  if (!screen || !screen->MayClose()) return;
  tabs_->removeTab(index);
  screen->deleteLater();
  if (tabs_->count() == 0) centre_->setCurrentIndex(0);
  TabChanged();
}

void MainMenuMDI::TabChanged() {
  const Screen* screen = CurrentScreen();
  tools_->MarkScreen(screen ? screen->objectName() : QString());
  StoreWindow();
}

void MainMenuMDI::RestoreWindow() {
  const SettingsStore& store = business_.World().settings;
  const QByteArray place =
      QByteArray::fromBase64(store.Read(kWindow, QStringLiteral("Place")).toLatin1());
  if (!place.isEmpty()) restoreGeometry(place);
}

void MainMenuMDI::RestoreTabs() {
  const SettingsStore& store = business_.World().settings;
  // A first start begins with the day's work.
  const QString kept = store.Read(kWindow, QStringLiteral("Tabs"), QStringLiteral("frmDiary"));
  const QString current = store.Read(kWindow, QStringLiteral("Tab"));
  restoring_ = true;
  for (const QString& screen : kept.split(u',', Qt::SkipEmptyParts)) {
    const MenuEntry* entry = EntryOfScreen(screen.toLatin1().constData());
    if (!entry || !entry->action.canOpen(navigator_)) continue;
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
  for (int tab = 0; tab < tabs_->count(); ++tab) screens += tabs_->widget(tab)->objectName();
  // A blank in place of nothing, which would read as a first start.
  store.Write(kWindow, QStringLiteral("Tabs"),
              screens.isEmpty() ? QStringLiteral(",") : screens.join(u','));
  const Screen* current = CurrentScreen();
  store.Write(kWindow, QStringLiteral("Tab"), current ? current->objectName() : QString());
  store.Write(kWindow, QStringLiteral("Place"), QString::fromLatin1(saveGeometry().toBase64()));
}

void MainMenuMDI::closeEvent(QCloseEvent* event) {
  if (leaving_) return event->accept();
  const Answer answer = business_.World().prompter.Ask(
      QStringLiteral("Are you sure you want to exit from the system?"));
  if (answer != Answer::Yes) return event->ignore();
  StoreWindow();
  leaving_ = true;
  runner_.Run(objectName(), QStringLiteral("FinishUp"), [this] {
    LogActivity(business_, QStringLiteral("Logoff"));
    FinishUp(business_, settings_);
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
  if (!tray_) {
    tray_ = new QSystemTrayIcon(ProgramIcon(), this);
    connect(tray_, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
              if (reason != QSystemTrayIcon::DoubleClick) return;
              showNormal();
              activateWindow();
              LeaveTray();
            });
  }
  tray_->setToolTip(QStringLiteral("Quillary version ") + VersionText());
  tray_->show();
  // Hiding inside the change itself would be undone by it.
  QTimer::singleShot(0, this, &QWidget::hide);
}

void MainMenuMDI::LeaveTray() {
  if (tray_) tray_->hide();
}

}  // namespace quillary
