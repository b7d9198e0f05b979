#include "setup/screens/frmNewBusiness.h"

#include "base/CountryHabits.h"
#include "kit/Layouts.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>

namespace quillary::setup {

frmNewBusiness::frmNewBusiness(const Outside& outside, CommandRunner& runner,
                               const QString& documents)
    : Dialog("frmNewBusiness", tr("New business"), outside.prompter),
      outside_(outside),
      documents_(documents) {
  MakeControls();
  SetContent(Fields());
  SetRoom({560, 380});
  AddActions({cmdClose, cmdCreate});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdFolder, &QPushButton::clicked, this, &frmNewBusiness::ChooseFolder);
  connect(txtCompany, &QLineEdit::textChanged, this, &frmNewBusiness::ProposeFolder);
  connect(txtFolder, &QLineEdit::textEdited, this, [this] { ownFolder_ = true; });
  connect(cboCountry, &QComboBox::currentIndexChanged, this, &frmNewBusiness::ShowTax);
  runner.OnClick(cmdCreate, objectName(), [this] { Create(); });
  ProposeFolder();
  ShowTax();
  state_.Watch({txtCompany});
}

void frmNewBusiness::MakeControls() {
  txtCompany = ForField("companyName", Named(new QLineEdit, "txtCompany"));
  LimitTo(txtCompany, 100);
  cboDivision = ForField("natureOfBusiness", Named(new QComboBox, "cboDivision"));
  cboDivision->addItems(NaturesOfBusiness());
  cboCountry = ForField("country", Named(new QComboBox, "cboCountry"));
  for (const CountryHabits& habits : AllCountryHabits())
    cboCountry->addItem(habits.country.toString());
  cboCountry->setCurrentText(HabitsOfMachine().country.toString());
  lblTax = MakeParagraph("lblTax", {}, LabelRole::Hint);
  txtFolder = ForField("folder", Named(new QLineEdit, "txtFolder"));
  cmdFolder = MakeButton("cmdFolder", tr("C&hoose..."));
  cmdClose = MakeButton("cmdClose", tr("&Back"));
  cmdCreate = MakeButton("cmdCreate", tr("Create &business"), ButtonKind::Main);
}

QLayout* frmNewBusiness::Fields() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(txtCompany, tr("&Name of your business")));
  column->addLayout(InLine({{LabelOver(cboDivision, tr("&What it does")), 1},
                            {LabelOver(cboCountry, tr("Count&ry")), 1}}));
  column->addWidget(lblTax);
  auto* folder = new QHBoxLayout;
  folder->setSpacing(8);
  folder->addWidget(txtFolder, 1);
  folder->addWidget(cmdFolder);
  column->addWidget(MakeLabelFor(txtFolder, tr("&Folder")));
  column->addLayout(folder);
  column->addWidget(MakeParagraph(
      "lblAbout",
      tr("Everything of the business lies in one file, DATA.MDB, in this folder. All of it can be "
         "changed later, in the menu Setup."),
      LabelRole::Hint));
  column->addStretch(1);
  return column;
}

void frmNewBusiness::ProposeFolder() {
  if (!ownFolder_) txtFolder->setText(FolderForBusiness(documents_, txtCompany->text()));
}

void frmNewBusiness::ChooseFolder() {
  const QString chosen =
      QFileDialog::getExistingDirectory(this, tr("Folder of the business"), txtFolder->text());
  if (chosen.isEmpty()) return;
  ownFolder_ = true;
  txtFolder->setText(chosen);
}

void frmNewBusiness::ShowTax() {
  const auto habits = HabitsOfCountry(cboCountry->currentText());
  if (!habits) return;
  lblTax->setText(habits->taxRate == 0
                      ? tr("Begins without tax; set your rate in Miscellaneous settings.")
                      : tr("Begins with %1 at %2 %.")
                            .arg(habits->taxName.toString())
                            .arg(habits->taxRate * 100));
}

NewBusinessForm frmNewBusiness::Form() const {
  return {.companyName = txtCompany->text(),
          .natureOfBusiness = cboDivision->currentText(),
          .country = cboCountry->currentText(),
          .folder = txtFolder->text()};
}

void frmNewBusiness::Create() {
  if (!IsAccepted(CheckNewBusiness(Form()))) return;
  const BusyWhile busy(outside_.busy);
  made_ = CreateNewBusiness(outside_, Form());
  Close(Accepted);
}

QString frmNewBusiness::Make() {
  exec();
  return made_;
}

}  // namespace quillary::setup
