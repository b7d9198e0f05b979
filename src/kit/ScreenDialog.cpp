#include "kit/ScreenDialog.h"

#include <QApplication>
#include <QVBoxLayout>

namespace quillary {

ScreenDialog::ScreenDialog(Screen* screen)
    : QDialog(QApplication::activeModalWidget()), screen_(screen) {
  setObjectName(screen->objectName() + QStringLiteral("Dialog"));
  setWindowTitle(screen->windowTitle());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(screen);
  resize(screen->sizeHint().expandedTo({720, 480}));
  connect(screen, &Screen::closeRequested, this, &ScreenDialog::reject);
  screen->Reload();
  screen->setFocus();
}

void ScreenDialog::reject() {
  if (screen_->MayClose()) QDialog::reject();
}

}  // namespace quillary
