#include "help/screens/frmShortcuts.h"

#include "kit/Controls.h"

#include <QVBoxLayout>

namespace quillary::help {

frmShortcuts::frmShortcuts(const std::vector<ShortcutGroup>& groups, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("frmShortcuts"));
  setWindowTitle(tr("Shortcuts"));
  txtFilter = MakeFilterBox(this);
  grdShortcuts = new Grid(QStringLiteral("grdShortcuts"));
  grdShortcuts->setAccessibleName(tr("Shortcuts"));
  grdShortcuts->SetColumns({{tr("Where"), ColumnKind::Text, 200},
                            {tr("Keys"), ColumnKind::Text, 130},
                            {tr("What they do"), ColumnKind::Text, 320}});
  std::vector<GridRow> rows;
  for (const ShortcutGroup& group : groups)
    for (const ShortcutLine& line : group.lines)
      rows.push_back({.cells = {group.title, line.keys, line.what}});
  grdShortcuts->SetRows(std::move(rows));
  grdShortcuts->FilterBy(txtFilter);
  grdShortcuts->SetEmptyText(tr("No key does that"), tr("Fewer or shorter words find more."));
  cmdClose = MakeButton("cmdClose", tr("&Close"), ButtonKind::Main);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(8);
  column->addWidget(txtFilter);
  column->addWidget(grdShortcuts, 1);
  column->addWidget(cmdClose, 0, Qt::AlignRight);
  resize(720, 560);
  grdShortcuts->setFocus();
  grdShortcuts->SelectFirst();
}

}  // namespace quillary::help
