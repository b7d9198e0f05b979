#pragma once

#include "diary/screens/DiaryScreens.h"
#include "gui/GuiTest.h"
#include "kit/Dialog.h"
#include "kit/Grid.h"
#include "lists/screens/ListScreens.h"

#include <QPushButton>

#include <functional>

namespace quillary {

/// A business with two clients, their services and some jobs, and the screens of the schedule over
/// it. Screens open as tabs do, dialogs as they stand over them.
class ScreenFixture : public BusinessTest {
 protected:
  void SetUp() override;

  /// Opens a screen that shows as a tab.
  template <typename Request>
  Screen& OpenTab(const Request& request) {
    navigator.Open(request);
    return *host.shown;
  }
  /// Opens a screen that stands over the others and uses it meanwhile. It is closed in the end,
  /// unless `use` has closed it; returns what it answered.
  template <typename Request>
  bool UseDialog(const Request& request, const std::function<void(Dialog&)>& use) {
    bool answer = false;
    Meanwhile(use);
    if constexpr (std::is_void_v<Navigator::ResultOf<Request>>)
      navigator.Open(request);
    else
      answer = navigator.Open(request);
    return answer;
  }

  qint64 Number(const Sql& statement) { return business().FirstField(statement).ToLong(); }
  QString Word(const Sql& statement) { return business().FirstField(statement).ToText(); }
  /// What was told, when it was one message.
  QString Told();
  /// The cells of a row as they read, without the hidden ones.
  static QString RowText(const Grid* grid, int row);
  static QPoint Middle(const Grid* grid, int row, int column);
  /// Types into a cell by keyboard and leaves it by Enter.
  static void TypeInto(Grid* grid, int row, int column, const QString& typed);

  Navigator navigator;
  SingleHost host;
  CommandRunner runner{outside.errors, outside.busy};

 private:
  void Meanwhile(const std::function<void(Dialog&)>& use);
};

/// Picks an entry of a combo by typing its first letters.
void TypeChoice(const QObject* in, const char* combo, const QString& letters);
/// Types over what a field holds, as after Tab.
void TypeOver(const QObject* in, const char* field, const QString& typed);

}  // namespace quillary
