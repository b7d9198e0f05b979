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

constexpr std::pair<const char*, const char*> kControls[] = {
    {"displayName", "txtDisplayName"},
    {"firstName", "txtFirstname"},
    {"surname", "txtSurname"},
    {"status", "cmbStatus"},
    {"streetNumber", "txtStreetNumber"},
    {"street", "txtStreet"},
    {"suburb", "cmbSuburb"},
    {"postCode", "cmbPostcode"},
    {"map", "txtMap"},
    {"phone1", "txtPhone1"},
    {"phone2", "txtPhone2"},
    {"fax", "txtFax"},
    {"email", "txtEmail"},
    {"notes", "txtGeneralNotes"},
    {"requiresStatement", "chkMonthlyStatement"},
    {"statementType", "cmbInvoiceType"},
    {"workCoverNumber", "txtClaimNumber"},
    {"invoiceWithOutstanding", "chkShowOutstanding"},
    {"invoiceWithNextJob", "chkShowNextJobdate"},
    {"invoiceWithUnpaidPastJobs", "chkInvoiceWithPastJobs"},
    {"invoiceWithTelNo", "chkInvoiceWithTelNo"},
    {"statementWithPayments", "chkStatementWithPayments"},
    {"workCoverLabel", "cmbWorkCoverLabel"},
    {"privateNotes", "txtPrivateNotes"},
};

QWidget* ControlOf(const QWidget* form, const ClientColumn& column) {
  for (const auto& [field, name] : kControls)
    if (qstrcmp(field, column.field) == 0)
      return form->findChild<QWidget*>(QLatin1StringView(name));
  Q_ASSERT_X(false, "ClientFields", column.field);
  return nullptr;
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

void BindClientFields(QWidget* form) {
  for (const ClientColumn& column : ClientColumns())
    ForField(column.field, ControlOf(form, column));
}

void ShowClientFields(const QWidget* form, const ClientRecord& client) {
  for (const ClientColumn& column : ClientColumns()) {
    const Value value = column.Of(client);
    if (column.IsYesNo())
      qobject_cast<QCheckBox*>(ControlOf(form, column))->setChecked(value.ToBool());
    else
      ShowText(ControlOf(form, column), value.ToText());
  }
}

void TakeClientFields(const QWidget* form, ClientRecord& client) {
  for (const ClientColumn& column : ClientColumns()) {
    const QWidget* control = ControlOf(form, column);
    column.Put(client, column.IsYesNo()
                           ? Value(qobject_cast<const QCheckBox*>(control)->isChecked())
                           : Value(TextOf(control)));
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
            ColumnWidth(business, QStringLiteral("Clients"), column.Name()).value_or(0));
}

}  // namespace quillary::clients
