#include "kit/Form.h"

#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>

namespace quillary {

namespace {

/// What a field holds, in words that differ when the field does. Money is the same amount however
/// it is written.
QString Held(const QWidget* field) {
  if (const auto* money = qobject_cast<const CurrencyField*>(field)) {
    const QString typed = money->text().trimmed();
    const auto amount = typed.isEmpty() ? Money() : Money::Parse(typed);
    return amount ? amount->ToText() : typed;
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(field)) return line->text();
  if (const auto* combo = qobject_cast<const QComboBox*>(field))
    return combo->currentData().toString() + u'\n' + combo->currentText();
  if (const auto* button = qobject_cast<const QAbstractButton*>(field))
    return button->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(field)) return text->toPlainText();
  return {};
}

bool IsField(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
         qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget) ||
         qobject_cast<const QPlainTextEdit*>(widget);
}

/// Whether the widget belongs to another control: the text box of a combo, an editor in a table.
bool IsPartOfAControl(const QWidget* widget, const QWidget* form) {
  for (const QWidget* over = widget->parentWidget(); over && over != form;
       over = over->parentWidget())
    if (qobject_cast<const QComboBox*>(over) || qobject_cast<const QAbstractItemView*>(over))
      return true;
  return false;
}

}  // namespace

void FormState::Watch(const QList<QWidget*>& fields) {
  for (QWidget* field : fields) {
    if (auto* line = qobject_cast<QLineEdit*>(field))
      connect(line, &QLineEdit::textChanged, this, &FormState::Check);
    else if (auto* combo = qobject_cast<QComboBox*>(field)) {
      connect(combo, &QComboBox::currentIndexChanged, this, &FormState::Check);
      connect(combo, &QComboBox::editTextChanged, this, &FormState::Check);
    } else if (auto* button = qobject_cast<QAbstractButton*>(field))
      connect(button, &QAbstractButton::toggled, this, &FormState::Check);
    else if (auto* text = qobject_cast<QPlainTextEdit*>(field))
      connect(text, &QPlainTextEdit::textChanged, this, &FormState::Check);
    else
      continue;
    fields_.append(field);
    stored_.append(Held(field));
  }
}

void FormState::WatchFieldsOf(const QWidget* form) {
  QList<QWidget*> fields;
  for (QWidget* widget : form->findChildren<QWidget*>()) {
    const bool search = widget->property("kind").toString() == QLatin1StringView("search");
    if (IsField(widget) && !search && !IsPartOfAControl(widget, form)) fields.append(widget);
  }
  Watch(fields);
}

bool FormState::IsChanged(const QWidget* field) const {
  for (qsizetype at = 0; at < fields_.size(); ++at)
    if (fields_[at] == field) return Held(field) != stored_[at];
  return false;
}

void FormState::TakeAsStored(const QWidget* field) {
  for (qsizetype at = 0; at < fields_.size(); ++at)
    if (fields_[at] == field) stored_[at] = Held(field);
  Check();
}

void FormState::ClearDataChanged() {
  for (qsizetype at = 0; at < fields_.size(); ++at) stored_[at] = Held(fields_[at]);
  Check();
}

void FormState::Check() {
  bool differs = false;
  for (qsizetype at = 0; at < fields_.size() && !differs; ++at)
    differs = Held(fields_[at]) != stored_[at];
  if (differs == changed_) return;
  changed_ = differs;
  emit changed(changed_);
}

void ClearControls(QWidget* form) {
  for (QLineEdit* line : form->findChildren<QLineEdit*>())
    if (!IsPartOfAControl(line, form)) {
      if (auto* money = qobject_cast<CurrencyField*>(line))
        money->SetAmount({});
      else
        line->clear();
    }
  for (QPlainTextEdit* text : form->findChildren<QPlainTextEdit*>()) text->clear();
  for (QComboBox* combo : form->findChildren<QComboBox*>()) {
    if (!combo->isEditable() || IsPartOfAControl(combo, form)) continue;
    if (auto* search = qobject_cast<ComboSearch*>(combo)) search->SelectComboItem({});
    combo->setCurrentIndex(-1);
    combo->clearEditText();
  }
}

namespace {

QWidget* ControlFor(const QWidget* form, const QString& field) {
  if (field.isEmpty()) return nullptr;
  for (QWidget* control : form->findChildren<QWidget*>()) {
    if (control->property("formField").toString() == field) return control;
  }
  return form->findChild<QWidget*>(field);
}

}  // namespace

bool FocusField(QWidget* form, const QString& name) {
  QWidget* field = ControlFor(form, name);
  if (!field) return false;
  for (QWidget* page = field; page && page != form; page = page->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(page)) area->ensureWidgetVisible(field);
    if (auto* tabs = qobject_cast<QTabWidget*>(page))
      for (int at = 0; at < tabs->count(); ++at)
        if (tabs->widget(at)->isAncestorOf(field)) tabs->setCurrentIndex(at);
  }
  field->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
  return true;
}

bool Accepted(Prompter& prompter, QWidget* form, const std::optional<Refusal>& refusal) {
  if (!refusal) return true;
  prompter.Tell(Tone::Exclamation, refusal->message);
  FocusField(form, refusal->field);
  return false;
}

void LimitTo(QWidget* field, int width) {
  if (width <= 0) return;
  if (auto* line = qobject_cast<QLineEdit*>(field)) {
    line->setMaxLength(width);
  } else if (auto* combo = qobject_cast<QComboBox*>(field)) {
    if (combo->lineEdit()) combo->lineEdit()->setMaxLength(width);
  } else if (auto* text = qobject_cast<QPlainTextEdit*>(field)) {
    QObject::connect(text, &QPlainTextEdit::textChanged, text, [text, width] {
      const QString held = text->toPlainText();
      if (held.size() <= width) return;
      // What was typed last goes, wherever it was typed.
      const int over = static_cast<int>(held.size()) - width;
      QTextCursor cursor = text->textCursor();
      const int at = qMax(cursor.position(), over);
      cursor.setPosition(at - over);
      cursor.setPosition(at, QTextCursor::KeepAnchor);
      cursor.removeSelectedText();
    });
  }
}

}  // namespace quillary
