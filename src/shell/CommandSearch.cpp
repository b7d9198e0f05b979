#include "shell/CommandSearch.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QTimer>

namespace quillary {

namespace {
constexpr int kActionRole = Qt::UserRole + 1;
}

CommandSearch::CommandSearch(const std::vector<MenuCommand>& commands, QWidget* parent)
    : QLineEdit(parent),
      commands_(commands),
      offered_(new QStandardItemModel(this)),
      completer_(new QCompleter(offered_, this)) {
  setObjectName(QStringLiteral("txtFind"));
  setPlaceholderText(tr("Find a client, job or command Ctrl+K"));
  setAccessibleName(tr("Find a command"));
  setProperty("kind", QStringLiteral("search"));
  setFixedWidth(280);
  completer_->setCaseSensitivity(Qt::CaseInsensitive);
  completer_->setFilterMode(Qt::MatchContains);
  completer_->setMaxVisibleItems(10);
  setCompleter(completer_);
  connect(completer_, QOverload<const QModelIndex&>::of(&QCompleter::activated), this,
          &CommandSearch::RunAt);
}

void CommandSearch::Fill() {
  offered_->clear();
  for (const MenuCommand& command : commands_) {
    if (!command.action->isEnabled() || !command.action->property("opens").toBool()) continue;
    QString words = command.path.last();
    if (command.path.size() > 1)
      words += QStringLiteral("  –  ") +
               command.path.mid(0, command.path.size() - 1).join(QStringLiteral(" › "));
    auto* item = new QStandardItem(words);
    item->setData(QVariant::fromValue(static_cast<QObject*>(command.action)), kActionRole);
    offered_->appendRow(item);
  }
}

void CommandSearch::RunAt(const QModelIndex& found) {
  auto* action = qobject_cast<QAction*>(found.data(kActionRole).value<QObject*>());
  if (!action) return;
  // After the completer has put the chosen words into the field.
  QTimer::singleShot(0, this, [this, action] {
    clear();
    action->trigger();
  });
}

void CommandSearch::focusInEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) Fill();
  QLineEdit::focusInEvent(event);
}

void CommandSearch::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !text().isEmpty() && !completer_->popup()->isVisible()) {
    completer_->setCompletionPrefix(text());
    RunAt(completer_->completionModel()->index(0, 0));
    return;
  }
  if (event->key() == Qt::Key_Escape) clear();
  QLineEdit::keyPressEvent(event);
}

}  // namespace quillary
