#include "help/screens/ManualKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

namespace quillary::help {

ManualKey::ManualKey(const Outside& outside, const QString& programs,
                     std::function<QWidget*()> front)
    : outside_(outside), manual_(ManualFolder(programs)), front_(std::move(front)) {
  qApp->installEventFilter(this);
}

ManualKey::~ManualKey() {
  delete window_;
}

bool ManualKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
  ExplainFront();
  return true;
}

QString ManualKey::NameInFront() const {
  if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
    if (const QAction* command = menu->activeAction())
      if (!manual_.PlaceOf(command->objectName()).isEmpty()) return command->objectName();
  QWidget* dialog = QApplication::activeModalWidget();
  QWidget* at = QApplication::focusWidget();
  if (dialog && (!at || !dialog->isAncestorOf(at))) at = dialog;
  for (QWidget* from : {at, front_()})
    for (; from; from = from->parentWidget())
      if (!manual_.PlaceOf(from->objectName()).isEmpty()) return from->objectName();
  return {};
}

void ManualKey::ExplainFront() {
  const QString name = NameInFront();
  while (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  Explain(name);
}

void ManualKey::Explain(const QString& name) {
  if (!window_)
    window_ = new frmManual(manual_, outside_.desktop, outside_.prompter, outside_.settings);
  window_->ShowPlace(manual_.PlaceOf(name));
  window_->StandOver(QApplication::activeModalWidget());
}

}  // namespace quillary::help
