#pragma once

#include "shell/MenuBuilder.h"

#include <QLineEdit>

class QCompleter;
class QStandardItemModel;

namespace quillary {

/// Finds a command by any part of its words and runs it: the whole menu under the fingers.
class CommandSearch : public QLineEdit {
  Q_OBJECT

 public:
  explicit CommandSearch(const std::vector<MenuCommand>& commands, QWidget* parent = nullptr);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Offers the commands that can be run now.
  void Fill();
  void RunAt(const QModelIndex& found);

  const std::vector<MenuCommand>& commands_;
  QStandardItemModel* offered_;
  QCompleter* completer_;
};

}  // namespace quillary
