#include "maintenance/screens/FolderField.h"

#include "kit/Layouts.h"

#include <QFileDialog>
#include <QLineEdit>

namespace quillary::maintenance {

FolderField::FolderField(const char* name, const QString& label) {
  box_ = Named(new QLineEdit, name);
  setFocusProxy(box_);
  cmdSearch = MakeButton("cmdSearchFolder", tr("Sea&rch..."));
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(8);
  line->addLayout(LabelOver(box_, label), 1);
  line->addWidget(cmdSearch, 0, Qt::AlignBottom);
  connect(cmdSearch, &QPushButton::clicked, this, [this] { Choose(); });
  connect(box_, &QLineEdit::editingFinished, this, [this] {
    if (box_->isModified()) emit folderChosen(Folder());
    box_->setModified(false);
  });
}

QString FolderField::Folder() const {
  return box_->text().trimmed();
}

void FolderField::SetFolder(const QString& folder) {
  box_->setText(folder);
}

void FolderField::Choose() {
  const QString chosen = QFileDialog::getExistingDirectory(this, box_->accessibleName(), Folder());
  if (chosen.isEmpty()) return;
  SetFolder(chosen);
  emit folderChosen(chosen);
}

}  // namespace quillary::maintenance
