#include "clients/screens/ClientDetailsPage.h"

#include "clients/screens/ClientFields.h"
#include "clients/screens/WordCombo.h"
#include "kit/Combos.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QPainter>

namespace quillary::clients {

namespace {

constexpr int kSwatch = 12;

QLineEdit* Line(const char* name) {
  auto* line = Named(new QLineEdit, name);
  SelectAllText(line);
  return line;
}

/// The colour of a status, as a square before its word.
QIcon Swatch(unsigned colour) {
  QPixmap picture(kSwatch, kSwatch);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(0x80, 0x80, 0x80));
  painter.setBrush(QColor::fromRgb(colour));
  painter.drawRoundedRect(QRectF(0.5, 0.5, kSwatch - 1, kSwatch - 1), 2, 2);
  return QIcon(picture);
}

}  // namespace

ClientDetailsPage::ClientDetailsPage(ClientDesk& desk) : desk_(desk) {
  MakeControls();
  LayOut();
  ConnectControls();
}

void ClientDetailsPage::MakeControls() {
  txtFirstname = Line("txtFirstname");
  txtSurname = Line("txtSurname");
  cmbStatus = Named(new QComboBox, "cmbStatus");
  cmbStatus->setIconSize({kSwatch, kSwatch});
  FillStatuses();
  txtDisplayName = Line("txtDisplayName");
  cmdUpdateBillingName = MakeButton("cmdUpdateBillingName", tr("U&pdate from names"));
  cmdUpdateBillingName->setToolTip(tr("Makes the billing name of first name and surname"));
  txtClientID = Named(new QLineEdit, "txtClientID");
  txtClientID->setReadOnly(true);
  txtClientID->setFocusPolicy(Qt::ClickFocus);
  txtClientID->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtStreetNumber = Line("txtStreetNumber");
  txtStreet = Line("txtStreet");
  cmbSuburb = new WordCombo("cmbSuburb");
  cmbPostcode = new WordCombo("cmbPostcode");
  txtMap = Line("txtMap");
  txtPhone1 = Line("txtPhone1");
  txtPhone2 = Line("txtPhone2");
  txtFax = Line("txtFax");
  txtEmail = Line("txtEmail");
  cmbBillingGoesTo = Named(new QComboBox, "cmbBillingGoesTo");
  for (QComboBox* combo :
       std::initializer_list<QComboBox*>{cmbStatus, cmbSuburb, cmbPostcode, cmbBillingGoesTo})
    combo->setMinimumContentsLength(4);
}

void ClientDetailsPage::LayOut() {
  auto* button = new QVBoxLayout;
  button->setSpacing(0);
  button->addStretch(1);
  button->addWidget(cmdUpdateBillingName);

  auto* fields = new QVBoxLayout;
  fields->setSpacing(12);
  fields->addLayout(
      InLine({{LabelOver(txtFirstname, tr("F&irst name (a company's name goes here)")), 4},
              {LabelOver(txtSurname, tr("Surna&me")), 3},
              {LabelOver(cmbStatus, tr("S&tatus")), 2}}));
  fields->addLayout(InLine({{LabelOver(txtDisplayName, tr("&Billing name/Display name")), 6},
                            {button, 0},
                            {LabelOver(txtClientID, tr("Client number")), 1}}));
  fields->addLayout(InLine({{LabelOver(txtStreetNumber, tr("Street no.")), 2},
                            {LabelOver(txtStreet, tr("Street")), 5},
                            {LabelOver(cmbSuburb, tr("S&uburb")), 4},
                            {LabelOver(cmbPostcode, tr("P&ost code")), 2},
                            {LabelOver(txtMap, tr("Map")), 2}}));
  fields->addLayout(InLine({{LabelOver(txtPhone1, tr("Phone &1")), 3},
                            {LabelOver(txtPhone2, tr("Phone &2")), 3},
                            {LabelOver(txtFax, tr("Fax")), 3},
                            {LabelOver(txtEmail, tr("&Email")), 5}}));
  auto* payer = new QHBoxLayout;
  payer->setSpacing(8);
  payer->addLayout(LabelOver(cmbBillingGoesTo, tr("Billin&g goes to")), 4);
  payerSlot_ = new QVBoxLayout;
  payer->addLayout(payerSlot_, 7);
  fields->addLayout(payer);
  fields->addStretch(1);

  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 12, 0, 8);
  line->setSpacing(16);
  line->addLayout(fields, 19);
  sideSlot_ = new QVBoxLayout;
  line->addLayout(sideSlot_, 10);
}

void ClientDetailsPage::ConnectControls() {
  connect(cmbStatus, &QComboBox::activated, this, &ClientDetailsPage::statusChosen);
  connect(txtDisplayName, &QLineEdit::textChanged, this, &ClientDetailsPage::nameTyped);
  connect(cmbSuburb, &WordCombo::wordsTaken, this, &ClientDetailsPage::TakePostCodeOf);
  connect(cmbBillingGoesTo, &QComboBox::activated, this,
          [this](int at) { emit billingChosen(static_cast<BillingChoice>(at)); });
  desk_.OnClick(cmdUpdateBillingName, [this] { UpdateName(); });
}

void ClientDetailsPage::FillStatuses() {
  FillComboWithWords(cmbStatus, WordsIn<ClientStatus>(ClientGroup::OfferedByHand));
  for (int at = 0; at < cmbStatus->count(); ++at)
    cmbStatus->setItemIcon(at, Swatch(ColourOf(StoredClientStatus(cmbStatus->itemText(at)))));
}

void ClientDetailsPage::LoadChoices() {
  suburbs_ = ListSuburbChoices(desk_.business);
  FillComboWithWords(cmbSuburb, suburbs_.suburbs);
  FillComboWithWords(cmbPostcode, suburbs_.postCodes);
  FillComboWithWords(cmbBillingGoesTo, BillingChoiceWords());
}

void ClientDetailsPage::ShowClient() {
  const ClientRecord& client = desk_.edit.client;
  txtClientID->setText(client.IsNew() ? tr("new") : QString::number(client.clientId->Number()));
  ShowChoice(BillingChoiceOf(client));
}

void ClientDetailsPage::ShowChoice(BillingChoice choice) {
  cmbBillingGoesTo->setCurrentIndex(static_cast<int>(choice));
}

QWidget* ClientDetailsPage::LastField() const {
  return cmbBillingGoesTo;
}

StoredClientStatus ClientDetailsPage::Status() const {
  return StoredClientStatus(cmbStatus->currentText());
}

void ClientDetailsPage::TakePostCodeOf(const QString& suburb) {
  const QString code = suburbs_.PostCodeOf(suburb);
  if (!code.isEmpty()) ShowWords(cmbPostcode, code);
}

void ClientDetailsPage::UpdateName() {
  txtDisplayName->setText(
      UpdateBillingName(desk_.business, txtFirstname->text(), txtSurname->text()));
  txtDisplayName->setFocus();
}

}  // namespace quillary::clients
