#include "kit/RecordFields.h"

#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "kit/CurrencyField.h"
#include "kit/Form.h"
#include "kit/Keys.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillary {

namespace {

QWidget* MakeControl(const RecordField& field) {
  switch (field.kind) {
    case FieldKind::Tick:
      return new QCheckBox(field.label);
    case FieldKind::Choice:
    case FieldKind::Words:
      return new ComboSearch;
    case FieldKind::Money:
      return new CurrencyField;
    default:
      auto* line = new QLineEdit;
      if (field.kind == FieldKind::Digits) new KeyFilter(line, KeyMode::Digits);
      if (field.kind == FieldKind::DayAndMonth) new KeyFilter(line, KeyMode::DigitsAndSlash);
      SelectAllText(line);
      return line;
  }
}

/// Picks the entry of those words, whatever their case; words that the list lacks stay to be seen.
void ShowWords(ComboSearch* combo, const QString& words) {
  const int at = words.isEmpty() ? -1 : combo->findText(words, Qt::MatchFixedString);
  SelectComboItem(combo, at < 0 ? QVariant() : combo->itemData(at));
  if (at < 0) combo->setEditText(words);
}

}  // namespace

void RecordFields::Build(const std::vector<RecordField>& fields, QVBoxLayout* into) {
  fields_ = fields;
  QHBoxLayout* line = nullptr;
  for (const RecordField& field : fields_) {
    QWidget* control = MakeControl(field);
    control->setObjectName(QLatin1StringView(field.name));
    ForField(field.field, control);
    LimitTo(control, field.width);
    controls_.insert(control->objectName(), control);
    if (field.fill) field.fill(qobject_cast<QComboBox*>(control));
    if (field.kind == FieldKind::Tick) {
      control->setAccessibleName(PlainCaption(field.label));
      into->addWidget(control);
      continue;
    }
    auto* pair = new QVBoxLayout;
    pair->setSpacing(4);
    QLabel* label = MakeLabelFor(control, field.label);
    label->setObjectName(QLatin1StringView(field.labelName));
    pair->addWidget(label);
    pair->addWidget(control);
    if (!field.beside) {
      line = new QHBoxLayout;
      line->setSpacing(8);
      into->addLayout(line);
    }
    line->addLayout(pair, 1);
  }
}

template <typename Control>
Control* RecordFields::Find(const char* name) const {
  auto* control = qobject_cast<Control*>(controls_.value(QLatin1StringView(name)));
  Q_ASSERT_X(control, "RecordFields", name);
  return control;
}

QString RecordFields::Text(const char* name) const {
  const QWidget* control = controls_.value(QLatin1StringView(name));
  if (const auto* words = qobject_cast<const QComboBox*>(control)) return words->currentText();
  return Find<QLineEdit>(name)->text();
}

bool RecordFields::IsTicked(const char* name) const {
  return Find<QCheckBox>(name)->isChecked();
}

Money RecordFields::Amount(const char* name) const {
  return Find<CurrencyField>(name)->Amount();
}

std::optional<qint64> RecordFields::ChosenKey(const char* name) const {
  return ComboKey(Find<QComboBox>(name));
}

void RecordFields::Enable(const char* name, bool on) const {
  Find<QWidget>(name)->setEnabled(on);
}

void RecordFields::Show(const GridRow* row) const {
  for (const RecordField& field : fields_) {
    const Value value =
        row && field.column >= 0 ? row->cells[static_cast<size_t>(field.column)].value : Value();
    QWidget* control = controls_.value(QLatin1StringView(field.name));
    if (auto* tick = qobject_cast<QCheckBox*>(control))
      tick->setChecked(value.ToBool());
    else if (field.kind == FieldKind::Words)
      ShowWords(qobject_cast<ComboSearch*>(control), value.ToText());
    else if (auto* choice = qobject_cast<QComboBox*>(control))
      SelectComboItem(choice, value.IsNull() ? QVariant() : QVariant(value.ToLong()));
    else if (auto* money = qobject_cast<CurrencyField*>(control))
      money->SetAmount(value.ToMoney());
    else if (auto* line = qobject_cast<QLineEdit*>(control))
      line->setText(value.ToText());
  }
}

QList<QWidget*> RecordFields::Controls() const {
  QList<QWidget*> controls;
  for (const RecordField& field : fields_)
    controls.append(controls_.value(QLatin1StringView(field.name)));
  return controls;
}

}  // namespace quillary
