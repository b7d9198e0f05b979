#include "setup/screens/frmPersonalInformation.h"

#include "kit/Combos.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "lists/Countries.h"
#include "lists/Divisions.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPixmap>

namespace quillary::setup {
namespace {

constexpr QSize kLogoRoom(180, 72);

/// A text box of the form, with the field that it shows and the width of its column.
struct TextField {
  const char* control;
  const char* field;
  QString PersonalInformation::*text;
  int width;
};
constexpr TextField kTextFields[] = {
    {"txtFSECode", "fseCode", &PersonalInformation::fseCode, 20},
    {"txtCompany", "companyName", &PersonalInformation::companyName, 100},
    {"txtFirstName", "firstName", &PersonalInformation::firstName, 50},
    {"txtSurname", "surname", &PersonalInformation::surname, 50},
    {"txtStreetNumber", "streetNumber", &PersonalInformation::streetNumber, 20},
    {"txtStreet", "street", &PersonalInformation::street, 50},
    {"txtSuburb", "suburb", &PersonalInformation::suburb, 50},
    {"txtPostCode", "postCode", &PersonalInformation::postCode, 10},
    {"txtPhone1", "phone1", &PersonalInformation::phone1, 20},
    {"txtPhone2", "phone2", &PersonalInformation::phone2, 20},
    {"txtFax", "fax", &PersonalInformation::fax, 20},
    {"txtEmail", "email", &PersonalInformation::email, 100},
    {"txtABN", "abn", &PersonalInformation::abn, 30},
    {"txtACN", "acn", &PersonalInformation::acn, 30},
    {"txtProvider", "provider", &PersonalInformation::provider, 30},
    {"txtAccount_Name", "accountName", &PersonalInformation::accountName, 150},
    {"txtBSB_Account_Number", "bsbAccountNumber", &PersonalInformation::bsbAccountNumber, 30},
};

}  // namespace

frmPersonalInformation::frmPersonalInformation(Business& business, const ScreenTools& tools,
                                               const QString& programFolder)
    : Dialog("frmPersonalInformation", QStringLiteral("Your company information"),
             business.World().prompter),
      business_(business),
      programFolder_(programFolder) {
  MakeControls();
  SetContent(Fields());
  SetRoom({760, 560});
  AddActions({cmdClose, cmdSave, cmdCloseAndSave});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(cboDivision, &QComboBox::currentIndexChanged, this, [this] { ShowLogo(); });
  connect(cboCountry, &QComboBox::currentIndexChanged, this, [this] { ShowRegistration(); });
  tools.runner.OnClick(cmdSave, objectName(), [this] { Save(); });
  tools.runner.OnClick(cmdCloseAndSave, objectName(), [this] {
    if (Save()) Close(Accepted);
  });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"), [this] { Load(); });
  state_.WatchFieldsOf(this);
}

void frmPersonalInformation::MakeControls() {
  cboDivision = ForField("division", Named(new QComboBox, "cboDivision"));
  cboCountry = ForField("country", Named(new QComboBox, "cboCountry"));
  lblRegLabel = MakeLabel("lblRegLabel", {}, LabelRole::Muted);
  imgLogo = MakeLabel("imgLogo", {}, LabelRole::Hint);
  imgLogo->setAccessibleName(tr("Logo of the division"));
  imgLogo->setMinimumSize(kLogoRoom);
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdSave = MakeButton("cmdSave", tr("&Save"));
  cmdCloseAndSave = MakeButton("cmdCloseAndSave", tr("Save and c&lose"), ButtonKind::Main);
}

QLayout* frmPersonalInformation::Fields() {
  QHash<QString, QLineEdit*> boxes;
  for (const TextField& each : kTextFields) {
    auto* box = ForField(each.field, Named(new QLineEdit, each.control));
    LimitTo(box, each.width);
    SelectAllText(box);
    boxes.insert(QString::fromLatin1(each.control), box);
  }
  const auto over = [&](const char* control, const QString& label) {
    return LabelOver(boxes.value(QString::fromLatin1(control)), label);
  };
  // The label names the country's tax number, so it changes with the country.
  auto* registration = new QVBoxLayout;
  registration->setSpacing(4);
  registration->addWidget(lblRegLabel);
  registration->addWidget(boxes.value(QStringLiteral("txtABN")));

  auto* fields = new QVBoxLayout;
  fields->setSpacing(12);
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  auto* names = new QVBoxLayout;
  names->setSpacing(12);
  names->addLayout(InLine(
      {{LabelOver(cboDivision, tr("&Division")), 3}, {over("txtFSECode", tr("FSE cod&e")), 2}}));
  names->addLayout(InLine({{over("txtCompany", tr("Co&mpany")), 1}}));
  head->addLayout(names, 1);
  head->addWidget(imgLogo, 0, Qt::AlignTop | Qt::AlignRight);
  fields->addLayout(head);
  fields->addLayout(InLine(
      {{over("txtFirstName", tr("&First name")), 1}, {over("txtSurname", tr("S&urname")), 1}}));
  fields->addLayout(InLine({{over("txtStreetNumber", tr("Street &no.")), 1},
                            {over("txtStreet", tr("S&treet")), 3},
                            {over("txtSuburb", tr("Su&burb")), 2},
                            {over("txtPostCode", tr("P&ost code")), 1}}));
  fields->addLayout(InLine({{LabelOver(cboCountry, tr("Count&ry")), 2},
                            {over("txtPhone1", tr("Phone &1")), 2},
                            {over("txtPhone2", tr("Phone &2")), 2},
                            {over("txtFax", tr("Fa&x")), 2}}));
  fields->addLayout(InLine({{over("txtEmail", tr("Ema&il")), 1}}));
  fields->addLayout(InLine({{registration, 1},
                            {over("txtACN", tr("&ACN")), 1},
                            {over("txtProvider", tr("&Provider")), 1}}));
  fields->addLayout(InLine({{over("txtAccount_Name", tr("Acc Na&me")), 3},
                            {over("txtBSB_Account_Number", tr("BSB - ACC No (&k)")), 2}}));
  fields->addWidget(MakeParagraph(
      "lblAbout",
      tr("These details head your invoices, statements and reminders. Details that you "
         "leave empty are left out."),
      LabelRole::Hint));
  fields->addStretch(1);
  return fields;
}

void frmPersonalInformation::Load() {
  EmptyCombo(cboDivision);
  for (const lists::ListedDivision& division : lists::ListDivisions(business_))
    cboDivision->addItem(division.name, division.id.Number());
  EmptyCombo(cboCountry);
  for (const lists::ListedCountry& country : lists::ListCountries(business_))
    cboCountry->addItem(country.name, country.id.Number());
  const PersonalInformation info = LoadPersonalInformation(business_);
  for (const TextField& each : kTextFields)
    findChild<QLineEdit*>(QString::fromLatin1(each.control))->setText(info.*each.text);
  SelectComboItem(cboDivision, info.divisionId ? info.divisionId->Number() : QVariant());
  SelectComboItem(cboCountry, info.countryId ? info.countryId->Number() : QVariant());
  ShowRegistration();
  ShowLogo();
}

PersonalInformation frmPersonalInformation::Form() const {
  PersonalInformation info;
  for (const TextField& each : kTextFields)
    info.*each.text = findChild<QLineEdit*>(QString::fromLatin1(each.control))->text().trimmed();
  if (const auto key = ComboKey(cboDivision)) info.divisionId = Id<Division>(*key);
  if (const auto key = ComboKey(cboCountry)) info.countryId = Id<Country>(*key);
  return info;
}

void frmPersonalInformation::ShowRegistration() {
  lblRegLabel->setText(RegistrationLabelOf(business_, Form().countryId));
  findChild<QLineEdit*>(QStringLiteral("txtABN"))->setAccessibleName(lblRegLabel->text());
}

void frmPersonalInformation::ShowLogo() {
  const QString picture = LogoOfDivision(business_, Form().divisionId, programFolder_);
  const QPixmap logo(picture);
  if (logo.isNull())
    imgLogo->setText(tr("No logo"));
  else
    imgLogo->setPixmap(logo.scaled(kLogoRoom, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  imgLogo->setAlignment(Qt::AlignCenter);
}

bool frmPersonalInformation::Save() {
  if (!IsAccepted(SavePersonalInformation(business_, Form()))) return false;
  state_.ClearDataChanged();
  return true;
}

}  // namespace quillary::setup
