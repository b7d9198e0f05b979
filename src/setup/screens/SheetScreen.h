#pragma once

#include "data/Business.h"
#include "kit/Screen.h"
#include "setup/sheets/Sheet.h"

#include <functional>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}

namespace quillary::setup {

/// A sheet declared as data: what it shows and how a block of it is written.
struct SheetDeclaration {
  const char* name;
  QString title;
  QString gridName;
  QString about;
  QString one;  // what a row is: "client", "clients"
  QString many;
  Tables shows;
  int firstTyped = 0;    // the columns before it are not typed into
  bool growing = false;  // an empty row at the end takes a new one
  std::function<std::vector<SheetColumn>()> columns;
  std::function<std::vector<SheetRow>()> load;
  std::function<SheetOutcome(const SheetBlock&)> write;
};

/// The screen of such a sheet. Typing begins in the cell that the cursor is in, Enter goes down,
/// Tab to the right, Ctrl+V writes a block copied from a spreadsheet.
class SheetScreen : public Screen {
  Q_OBJECT

 public:
  SheetScreen(SheetDeclaration sheet, Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override { return sheet_.shows; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// A further command, before the others.
  void AddCommand(QPushButton* command);

 private:
  void LayOut();
  void ConnectControls();
  void TypeCell(int row, int column, const QString& typed);
  void Paste();
  void Write(const SheetBlock& block, bool told);
  void GoTo(std::optional<qint64> key, int column, int down);
  /// The keys of the rows from the cursor down, as they are shown.
  std::vector<qint64> KeysFromCursor() const;
  qint64 KeyShownIn(int row) const;

  SheetDeclaration sheet_;
  Business& business_;
  ScreenTools tools_;
  QBoxLayout* commands_;
  Grid* grid_;
  QLineEdit* txtFilter;
  QLabel* lblOutcome;
  QPushButton* cmdPaste;
  QPushButton* cmdClose;
};

SheetDeclaration ClientDetailsSheet(Business& business);
SheetDeclaration SchedulesSheet(Business& business);

}  // namespace quillary::setup
