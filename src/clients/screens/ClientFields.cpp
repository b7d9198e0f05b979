#include "clients/screens/ClientFields.h"

#include "clients/ClientColumns.h"
#include "clients/screens/WordCombo.h"
#include "kit/Form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace quillary::clients {

namespace {

using TextMember = QString ClientRecord::*;
using YesMember = bool ClientRecord::*;

QWidget* ControlOf(const QWidget* form, const ClientColumn& column) {
  auto* control = form->findChild<QWidget*>(QLatin1StringView(column.field));
  Q_ASSERT_X(control, "ClientFields", column.field);
  return control;
}

void ShowText(QWidget* control, const QString& text) {
  if (auto* line = qobject_cast<QLineEdit*>(control)) {
    line->setText(text);
    line->setCursorPosition(0);
  } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
    ShowWords(combo, text);
  } else if (auto* box = qobject_cast<QPlainTextEdit*>(control)) {
    box->setPlainText(text);
  }
}

QString TextOf(const QWidget* control) {
  if (const auto* line = qobject_cast<const QLineEdit*>(control)) return line->text();
  if (const auto* combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
  if (const auto* box = qobject_cast<const QPlainTextEdit*>(control)) return box->toPlainText();
  return {};
}

}  // namespace

void ShowWords(QComboBox* combo, const QString& words) {
  if (auto* free = qobject_cast<WordCombo*>(combo))
    free->ShowWords(words);
  else
    combo->setCurrentIndex(combo->findText(words, Qt::MatchFixedString));
}

void ShowClientFields(const QWidget* form, const ClientRecord& client) {
  for (const ClientColumn& column : ClientColumns()) {
    QWidget* control = ControlOf(form, column);
    if (const auto* text = std::get_if<TextMember>(&column.member))
      ShowText(control, client.**text);
    else
      qobject_cast<QCheckBox*>(control)->setChecked(client.*std::get<YesMember>(column.member));
  }
}

void TakeClientFields(const QWidget* form, ClientRecord& client) {
  for (const ClientColumn& column : ClientColumns()) {
    const QWidget* control = ControlOf(form, column);
    if (const auto* text = std::get_if<TextMember>(&column.member))
      client.** text = TextOf(control);
    else
      client.*std::get<YesMember>(column.member) =
          qobject_cast<const QCheckBox*>(control)->isChecked();
  }
}

QList<QWidget*> ClientFieldControls(const QWidget* form) {
  QList<QWidget*> controls;
  for (const ClientColumn& column : ClientColumns()) controls.append(ControlOf(form, column));
  return controls;
}

void LimitClientFields(Business& business, const QWidget* form) {
  for (const ClientColumn& column : ClientColumns())
    LimitTo(ControlOf(form, column),
            ColumnWidth(business, QStringLiteral("Clients"), column.column).value_or(0));
}

}  // namespace quillary::clients
