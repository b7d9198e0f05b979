#include "diary/screens/frmVisit.h"

#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/Layouts.h"
#include "lists/Choices.h"

#include <QPlainTextEdit>
#include <QRadioButton>

namespace quillary::diary {

namespace {

/// The width of Diary.Description.
constexpr int kPurposeWidth = 255;

}  // namespace

frmVisit::frmVisit(Business& business, const ScreenTools& tools, const Visit& visit)
    : Dialog("frmVisit", visit.IsNew() ? tr("New visit") : tr("Visit"), business.World().prompter),
      business_(business),
      visit_(visit) {
  MakeControls();
  LayOut();
  state_.WatchFieldsOf(this);
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdDelete, objectName(), [this] { Delete(); });
  tools.runner.OnClick(cmdSaveAndClose, objectName(), [this] {
    if (SaveVisit()) Close(Accepted);
  });
  tools.runner.Run(objectName(), QStringLiteral("ShowVisit"), [this] { ShowVisit(); });
}

void frmVisit::MakeControls() {
  cmbClients = ForField("client", Named(new ComboSearch, "cmbClients"));
  txtDate = Named(new DateField(business_.Today()), "txtDate");
  cmbEmployee = ForField("employee", Named(new ComboSearch, "cmbEmployee"));
  txtPurpose = Named(new QLineEdit, "txtPurpose");
  LimitTo(txtPurpose, kPurposeWidth);
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(72);
  optNotDone = Named(new QRadioButton(tr("Not &done")), "optNotDone", tr("Not done"));
  optDone = Named(new QRadioButton(tr("D&one")), "optDone", tr("Done"));
  optCancelled = Named(new QRadioButton(tr("Cance&lled")), "optCancelled", tr("Cancelled"));
  cmdDelete = MakeButton("cmdDelete", tr("Delete &visit…"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("&Cancel"));
  cmdSaveAndClose = MakeButton("cmdSaveAndClose", tr("&Save && Close"), ButtonKind::Main);
  cmdDelete->setVisible(!visit_.IsNew());
}

void frmVisit::LayOut() {
  auto* states = new QHBoxLayout;
  states->setSpacing(16);
  for (QRadioButton* state : {optNotDone, optDone, optCancelled}) states->addWidget(state);
  states->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(cmbClients, tr("Clie&nt")));
  column->addLayout(
      InLine({{LabelOver(txtDate, tr("D&ate")), 0}, {LabelOver(cmbEmployee, tr("&Employee"))}}));
  column->addLayout(LabelOver(txtPurpose, tr("&Purpose")));
  column->addLayout(LabelOver(txtNotes, tr("No&tes")), 1);
  column->addLayout(states);
  SetContent(column);
  SetRoom({560, 416});
  AddActions({cmdDelete, cmdClose, cmdSaveAndClose});
}

void frmVisit::ShowVisit() {
  FillCombo(cmbClients, lists::ListClientChoices(business_));
  FillCombo(cmbEmployee, lists::ListEmployeeChoices(business_));
  SelectComboItem(cmbClients, visit_.client);
  SelectComboItem(cmbEmployee, visit_.employee);
  txtDate->SetDate(visit_.date);
  txtPurpose->setText(visit_.purpose);
  txtNotes->setPlainText(visit_.notes);
  optNotDone->setChecked(visit_.status == EntryStatus::VisitOpen);
  optDone->setChecked(visit_.status == EntryStatus::VisitDone);
  optCancelled->setChecked(visit_.status == EntryStatus::VisitCancelled);
  state_.ClearDataChanged();
  (visit_.client ? static_cast<QWidget*>(txtPurpose) : cmbClients)->setFocus();
}

Visit frmVisit::Typed() const {
  Visit visit = visit_;
  visit.client = ComboId<Client>(cmbClients);
  visit.date = txtDate->Date();
  visit.employee = ComboId<Employee>(cmbEmployee);
  visit.purpose = txtPurpose->text();
  visit.notes = txtNotes->toPlainText();
  visit.status = optDone->isChecked()        ? EntryStatus::VisitDone
                 : optCancelled->isChecked() ? EntryStatus::VisitCancelled
                                             : EntryStatus::VisitOpen;
  return visit;
}

bool frmVisit::SaveVisit() {
  Visit visit = Typed();
  if (!IsAccepted(quillary::diary::SaveVisit(business_, visit))) return false;
  visit_ = visit;
  state_.ClearDataChanged();
  return true;
}

void frmVisit::Delete() {
  if (visit_.entry && DeleteVisit(business_, business_.World().prompter, *visit_.entry))
    Close(Accepted);
}

}  // namespace quillary::diary
