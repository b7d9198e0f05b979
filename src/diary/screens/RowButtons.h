#pragma once

#include <QObject>
#include <QPushButton>

#include <functional>
#include <vector>

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// The row commands, repeated on every visible row of a table for those who prefer a click on the
/// row to a selection. A click selects the row and presses the command's own button.
class RowButtons : public QObject {
  Q_OBJECT

 public:
  /// The buttons stand at the right end of the rows, in a column kept free for them.
  RowButtons(Grid* grid, std::vector<QPushButton*> commands);

  /// Puts a set on each visible row. Called after each load and each scroll.
  void MoveButtons();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeSet();

  Grid* grid_;
  std::vector<QPushButton*> commands_;
  std::vector<QWidget*> sets_;
};

}  // namespace quillary::diary
