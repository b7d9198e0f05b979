#pragma once

#include "shell/MenuBuilder.h"

#include <QToolBar>

class QToolButton;

namespace quillary::shell {

/// The commands of every day, with icon and word. Each presses its entry in the menus and follows
/// that entry's state; the one whose screen is in front is marked.
class ToolStrip : public QToolBar {
  Q_OBJECT

 public:
  explicit ToolStrip(const QMenuBar* menus);
  /// Follows the state of the menus.
  void Refresh();
  void MarkScreen(const QString& screen);
  /// At the right end.
  void AddAtEnd(QWidget* widget);

 protected:
  /// Where words do not fit the icons stand alone.
  void resizeEvent(QResizeEvent* event) override;

 private:
  QToolButton* MakeTool(const char* name, const QString& word, const char* icon);

  struct Tool {
    QToolButton* button;
    QAction* action;
    QMenu* menu;
    QStringList screens;
  };
  std::vector<Tool> tools_;
};

}  // namespace quillary::shell
