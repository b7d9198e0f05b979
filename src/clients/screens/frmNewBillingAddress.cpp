#include "clients/screens/frmNewBillingAddress.h"

#include "clients/BillingChoice.h"
#include "clients/ClientColumns.h"
#include "clients/screens/ClientFields.h"
#include "clients/screens/WordCombo.h"
#include "domain/FixedLists.h"
#include "kit/Combos.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QPlainTextEdit>

namespace quillary::clients {

frmNewBillingAddress::frmNewBillingAddress(Business& business, const ScreenTools& tools,
                                           std::optional<Id<Client>> clientId)
    : Dialog("frmNewBillingAddress", clientId ? tr("Billing address") : tr("New billing address"),
             business.World().prompter),
      business_(business) {
  MakeControls();
  SetContent(Fields());
  SetRoom({720, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdSave = MakeButton("cmdSave", tr("&Save"), ButtonKind::Main);
  AddActions({cmdCancel, cmdSave});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cboSuburb, &WordCombo::wordsTaken, this, [this](const QString& suburb) {
    const QString code = suburbs_.PostCodeOf(suburb);
    if (!code.isEmpty()) cboPostCode->ShowWords(code);
  });
  tools.runner.OnClick(cmdUpdateBillingName, objectName(), [this] {
    txtBillingName->setText(UpdateBillingName(business_, txtFirstName->text(), txtSurname->text()));
  });
  tools.runner.OnClick(cmdSave, objectName(), [this] { Save(); });
  tools.runner.Run(objectName(), QStringLiteral("ShowYourself"), [&] {
    LoadChoices();
    if (clientId) address_ = LoadBillingAddress(business_, *clientId).value_or(BillingAddress());
    Show();
  });
  state_.WatchFieldsOf(this);
}

void frmNewBillingAddress::MakeControls() {
  const auto line = [this](const char* name, const char* column) {
    auto* field = Named(new QLineEdit, name);
    SelectAllText(field);
    LimitTo(field, ColumnWidth(business_, QStringLiteral("Clients"), column).value_or(0));
    return field;
  };
  txtFirstName = line("txtFirstName", "First_Name");
  txtSurname = line("txtSurname", "Surname");
  txtBillingName = ForField("billingName", line("txtBillingName", "Display_Name"));
  cmdUpdateBillingName = MakeButton("cmdUpdateBillingName", tr("&Update from names"));
  txtStreetNumber = line("txtStreetNumber", "Street_Number");
  txtStreet = line("txtStreet", "Street");
  txtPhone1 = line("txtPhone1", "Phone_1");
  txtPhone2 = line("txtPhone2", "Phone_2");
  txtEmail = line("txtEmail", "Email");
  txtFax = line("txtFax", "Fax");
  cboSuburb = new WordCombo("cboSuburb");
  cboPostCode = new WordCombo("cboPostCode");
  cboPostCode->setMinimumContentsLength(5);
  for (const auto& [combo, column] : {std::pair(cboSuburb, "Suburb"), {cboPostCode, "Post_Code"}})
    LimitTo(combo, ColumnWidth(business_, QStringLiteral("Clients"), column).value_or(0));
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setFixedHeight(72);
  cmbStatementType = ForField("statementType", Named(new QComboBox, "cmbStatementType"));
}

QLayout* frmNewBillingAddress::Fields() {
  auto* button = new QVBoxLayout;
  button->addStretch(1);
  button->addWidget(cmdUpdateBillingName);
  auto* rows = new QVBoxLayout;
  rows->setSpacing(12);
  rows->addLayout(InLine({{LabelOver(txtFirstName, tr("&First name (a company's name goes here)"))},
                          {LabelOver(txtSurname, tr("Su&rname"))}}));
  rows->addLayout(
      InLine({{LabelOver(txtBillingName, tr("&Billing name/Display name"))}, {button, 0}}));
  rows->addLayout(InLine({{LabelOver(txtStreetNumber, tr("Street &no.")), 2},
                          {LabelOver(txtStreet, tr("S&treet")), 5},
                          {LabelOver(cboSuburb, tr("Suburb")), 4},
                          {LabelOver(cboPostCode, tr("P&ost code")), 2}}));
  rows->addLayout(InLine({{LabelOver(txtPhone1, tr("Phone &1")), 3},
                          {LabelOver(txtPhone2, tr("Phone &2")), 3},
                          {LabelOver(txtFax, tr("Fa&x")), 3},
                          {LabelOver(txtEmail, tr("&Email")), 4}}));
  auto* type = LabelOver(cmbStatementType, tr("State&ment type"));
  type->addStretch(1);
  rows->addLayout(InLine({{LabelOver(txtNotes, tr("Notes")), 3}, {type, 1}}));
  return rows;
}

void frmNewBillingAddress::LoadChoices() {
  suburbs_ = ListSuburbChoices(business_);
  FillComboWithWords(cboSuburb, suburbs_.suburbs);
  FillComboWithWords(cboPostCode, suburbs_.postCodes);
  FillComboWithWords(cmbStatementType, Lists().statementTypes);
}

void frmNewBillingAddress::Show() {
  txtBillingName->setText(address_.billingName);
  txtFirstName->setText(address_.firstName);
  txtSurname->setText(address_.surname);
  txtStreetNumber->setText(address_.streetNumber);
  txtStreet->setText(address_.street);
  ShowWords(cboSuburb, address_.suburb);
  ShowWords(cboPostCode, address_.postCode);
  txtPhone1->setText(address_.phone1);
  txtPhone2->setText(address_.phone2);
  txtEmail->setText(address_.email);
  txtFax->setText(address_.fax);
  for (QLineEdit* line : {txtBillingName, txtFirstName, txtStreet, txtEmail})
    line->setCursorPosition(0);
  txtNotes->setPlainText(address_.notes);
  ShowWords(cmbStatementType, address_.statementType.Text());
}

BillingAddress frmNewBillingAddress::Taken() const {
  BillingAddress taken = address_;
  taken.billingName = txtBillingName->text();
  taken.firstName = txtFirstName->text();
  taken.surname = txtSurname->text();
  taken.streetNumber = txtStreetNumber->text();
  taken.street = txtStreet->text();
  taken.suburb = cboSuburb->currentText();
  taken.postCode = cboPostCode->currentText();
  taken.phone1 = txtPhone1->text();
  taken.phone2 = txtPhone2->text();
  taken.email = txtEmail->text();
  taken.fax = txtFax->text();
  taken.notes = txtNotes->toPlainText();
  taken.statementType = StoredStatementType(cmbStatementType->currentText());
  return taken;
}

void frmNewBillingAddress::Save() {
  BillingAddress address = Taken();
  if (!quillary::Accepted(business_.World().prompter, this, SaveBillingAddress(business_, address)))
    return;
  saved_ = address.clientId;
  Close(QDialog::Accepted);
}

}  // namespace quillary::clients
