#pragma once

#include "base/ports/Navigator.h"
#include "data/Changes.h"
#include "kit/CommandRunner.h"

#include <QWidget>

namespace quillary {

/// One screen, shown as a tab of the main window. Its objectName is its given name, its
/// windowTitle the word on the tab.
class Screen : public QWidget {
  Q_OBJECT

 public:
  Screen(const QString& name, const QString& title);
  /// Shows what stands in the business now; F5 and coming back to the tab call it.
  virtual void Reload() {}
  /// The tables whose rows it shows: after a commit that wrote one of them it loads again, at once
  /// when it is in view, otherwise when it comes to the front.
  virtual Tables Shows() const { return {}; }
  /// Whether loading again would lose what the user has typed. Then he is asked by a bar first.
  virtual bool HasEdits() const { return false; }
  /// Tells the screen what a commit wrote.
  void TakeCommit(const Tables& written);
  /// False keeps the tab open, for example because the user wants to save first.
  virtual bool MayClose() { return true; }

 signals:
  void closeRequested();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void CatchUp();
  void AskBeforeReloading();
  void PlaceBar();

  bool isStale_ = false;
  QWidget* bar_ = nullptr;  // while the user is asked
};

/// Where screens show.
class ScreenHost {
 public:
  virtual ~ScreenHost() = default;
  /// Shows the screen in a tab of its own and takes it over.
  virtual void ShowScreen(Screen* screen) = 0;
  /// Brings the open screen of that name to the front; null when none is open.
  virtual Screen* BringToFront(const QString& name) = 0;
};

/// What every screen is given beside the business.
struct ScreenTools {
  Navigator& navigator;
  ScreenHost& host;
  CommandRunner& runner;
};

/// Shows the screen of that name, making it when none is open, and loads it.
template <typename Make>
void ShowTab(const ScreenTools& tools, const char* name, const Make& make) {
  Screen* screen = tools.host.BringToFront(QLatin1StringView(name));
  if (!screen) {
    screen = make();
    tools.host.ShowScreen(screen);
  }
  screen->Reload();
  screen->setFocus();  // on the list: the arrow keys work at once
}

}  // namespace quillary
