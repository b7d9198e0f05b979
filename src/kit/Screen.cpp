#include "kit/Screen.h"

#include <QShortcut>

namespace quillary {

Screen::Screen(const QString& name, const QString& title) {
  setObjectName(name);
  setWindowTitle(title);
  auto* reload = new QShortcut(QKeySequence::Refresh, this);
  reload->setContext(Qt::WidgetWithChildrenShortcut);
  connect(reload, &QShortcut::activated, this, [this] { Reload(); });
}

}  // namespace quillary
