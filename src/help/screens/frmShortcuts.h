#pragma once

#include "kit/Grid.h"
#include "kit/Shortcuts.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace quillary::help {

/// The keys that work at one place, under its title.
struct ShortcutGroup {
  QString title;
  std::vector<ShortcutLine> lines;
};

/// All keys on one sheet.
class frmShortcuts : public QDialog {
  Q_OBJECT

 public:
  frmShortcuts(const std::vector<ShortcutGroup>& groups, QWidget* parent);

 private:
  QLineEdit* txtFilter;
  Grid* grdShortcuts;
  QPushButton* cmdClose;
};

}  // namespace quillary::help
