#include "kit/CommandRunner.h"

#include "base/Errors.h"
#include "kit/Controls.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QScopeGuard>

#include <new>

namespace quillary {

namespace {

/// A cell that is being edited, whatever its editor: the table takes it as Enter would.
void TakeCellEdit(QWidget* editor) {
  if (!editor || !editor->parentWidget()) return;
  auto* table = qobject_cast<QAbstractItemView*>(editor->parentWidget()->parentWidget());
  if (!table || table->viewport() != editor->parentWidget()) return;
  QAbstractItemDelegate* delegate = table->itemDelegate();
  emit delegate->commitData(editor);
  emit delegate->closeEditor(editor);
}

/// A mnemonic presses a button while the field that is being typed into keeps the focus; the
/// command has to see what stands there.
void TakeTyped(const QWidget* button) {
  QWidget* field = button->window()->focusWidget();
  if (auto* combo = qobject_cast<QComboBox*>(field); combo && combo->isEditable())
    emit combo->lineEdit()->editingFinished();
  if (auto* line = qobject_cast<QLineEdit*>(field)) emit line->editingFinished();
  TakeCellEdit(field);
}

}  // namespace

bool CommandRunner::Run(const QString& form, const QString& procedure,
                        const std::function<void()>& command) {
  // What a command does in passing, such as loading a list, is part of it.
  if (!forms_.isEmpty()) return RunNamed({}, form, procedure, command);
  return RunNamed(QObject::tr("Change in %1").arg(form.mid(form.startsWith(u"frm") ? 3 : 0)), form,
                  procedure, command);
}

bool CommandRunner::RunNamed(const QString& what, const QString& form, const QString& procedure,
                             const std::function<void()>& command) {
  const std::shared_ptr<void> scope = scope_ && !what.isEmpty() ? scope_(what) : nullptr;
  forms_.append(form);
  const auto leave = qScopeGuard([this] { forms_.removeLast(); });
  try {
    command();
    return true;
  } catch (const std::exception& error) {
    errors_.Report(form, procedure, error);
  } catch (...) {
    const ProgramError unknown(5, QStringLiteral("A failure without a name"));
    errors_.ReportError(form, ErrorLine(unknown), procedure);
  }
  return false;
}

bool CommandRunner::RunBusy(const QString& form, const QString& procedure,
                            const std::function<void()>& command) {
  // The pointer is given back before the error screen shows.
  return Run(form, procedure, [&] {
    const BusyWhile busy(busy_);
    command();
  });
}

void CommandRunner::OnClick(QAbstractButton* button, const QString& form,
                            std::function<void()> command) {
  QObject::connect(button, &QAbstractButton::clicked, button,
                   [this, button, form, name = button->objectName(), command = std::move(command)] {
                     const QString what = PlainCaption(button->text()).trimmed();
                     RunNamed(what, form, name + QStringLiteral("_Click"), [&] {
                       TakeTyped(button);
                       command();
                     });
                   });
}

void ReportMemoryOrCrash(Prompter& prompter, const std::exception& error) {
  const auto* numbered = dynamic_cast<const ProgramError*>(&error);
  const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
                      (numbered != nullptr && numbered->Number() == 7);
  if (memory) {
    prompter.Tell(
        Tone::Stop,
        QStringLiteral(
            "Your computer is running VERY low on memory - Please close some programs so that "
            "Quillary "
            "can continue running. (If this continues to be a problem, you may want to consider "
            "upgrading your RAM)"));
    return;
  }
  prompter.Tell(Tone::Stop, QStringLiteral("Attention! An error that would have crashed the system "
                                           "has been caught, to save you from "
                                           "losing anything.\n\nPlease contact one of the IT guys "
                                           "straight away, with the details of the "
                                           "error. (these will be displayed when you click OK)"));
}

}  // namespace quillary
