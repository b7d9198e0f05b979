#include "diary/screens/StopGoImage.h"
#include "diary/screens/frmJobs.h"
#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QPlainTextEdit>

/// How the job screen looks.
namespace quillary::diary {

namespace {

/// The width of Diary.Description.
constexpr int kDescriptionWidth = 255;

}  // namespace

void frmJobs::MakeControls() {
  cmbClient = ForField("client", Named(new ComboSearch, "cmbClient"));
  dtpDate = ForField("date", Named(new DateField(business_.Today()), "dtpDate"));
  cmbEmployee = ForField("employee", Named(new ComboSearch, "cmbEmployee"));
  cmbStatus = ForField("status", Named(new QComboBox, "cmbStatus"));
  txtJobDescription = Named(new QLineEdit, "txtJobDescription");
  LimitTo(txtJobDescription, kDescriptionWidth);
  cmdSetDescriptionBasedOnServices =
      MakeButton("cmdSetDescriptionBasedOnServices", tr("&From services"));
  cmdSetDescriptionBasedOnServices->setToolTip(
      tr("Sets the description to the codes of the services"));
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(72);
  lblHasBeenPaid =
      MakeLabel("lblHasBeenPaid", QStringLiteral("This job has been added to a payment record."),
                LabelRole::Hint);
  lblHasBeenPaid->setWordWrap(true);
  lblInvoice_ID = MakeLabel("lblInvoice_ID", {}, LabelRole::Hint);
  MakeLineControls();
  MakeCommands();
}

void frmJobs::MakeLineControls() {
  grdServices = new Grid(QStringLiteral("grdServices"));
  grdServices->setAccessibleName(tr("Services of the job"));
  grdServices->SetColumns({{tr("Service"), ColumnKind::StrongText, 80},
                           {{}, ColumnKind::HiddenId},
                           {tr("Price"), ColumnKind::Money, 96},
                           {tr("Revenue account"), ColumnKind::Text, 200}});
  grdServices->SetEmptyText(tr("No services yet."),
                            tr("Choose a service and its price, and insert it."));
  grdServices->setMinimumHeight(112);
  lblServicesTotal = MakeLabel("lblServicesTotal", {}, LabelRole::Figure);
  cmbService = ForField("service", Named(new ComboSearch, "cmbService"));
  txtPrice = Named(new CurrencyField, "txtPrice");
  cmdRemoveService = MakeButton("cmdRemoveService", tr("Re&move"), ButtonKind::Danger);
  cmdExtraWork = MakeButton("cmdExtraWork", QStringLiteral("&Insert as new service"));
  cmdUpdate = MakeButton("cmdUpdate", QStringLiteral("&Update service"));
}

void frmJobs::MakeCommands() {
  cmdAddPayment = MakeButton("cmdAddPayment", {});
  cmdClose = MakeButton("cmdClose", QStringLiteral("&Cancel"));
  cmdSaveOnly = MakeButton("cmdSaveOnly", QStringLiteral("&Save"));
  cmdSaveAndClose =
      MakeButton("cmdSaveAndClose", QStringLiteral("Save && Close"), ButtonKind::Main);
}

void frmJobs::LayOut() {
  auto* sides = new QHBoxLayout;
  sides->setSpacing(24);
  sides->addLayout(JobColumn(), 1);
  sides->addLayout(LinesColumn(), 1);
  SetContent(sides);
  SetRoom({960, 480});
  AddActions({cmdAddPayment, cmdClose, cmdSaveOnly, cmdSaveAndClose});
}

QLayout* frmJobs::JobColumn() {
  auto* description = new QHBoxLayout;
  description->setSpacing(8);
  description->addLayout(LabelOver(txtJobDescription, tr("&Job description")), 1);
  description->addWidget(cmdSetDescriptionBasedOnServices, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(cmbClient, tr("Clie&nt")));
  column->addLayout(
      InLine({{LabelOver(dtpDate, tr("D&ate")), 0}, {LabelOver(cmbStatus, tr("S&tatus"))}}));
  column->addLayout(LabelOver(cmbEmployee, tr("&Employee")));
  column->addLayout(description);
  column->addLayout(LabelOver(txtNotes, tr("N&otes")), 1);
  column->addLayout(BilledLine());
  return column;
}

QLayout* frmJobs::BilledLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  line->addWidget(lblInvoice_ID);
  line->addWidget(lblHasBeenPaid, 1);
  line->addStretch();
  line->addWidget(new StopGoImage);
  return line;
}

QLayout* frmJobs::LinesColumn() {
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(MakeLabelFor(grdServices, tr("Ser&vices of this job")));
  head->addStretch(1);
  head->addWidget(lblServicesTotal);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdRemoveService);
  commands->addStretch(1);
  commands->addWidget(cmdUpdate);
  commands->addWidget(cmdExtraWork);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(head);
  column->addWidget(grdServices, 1);
  column->addLayout(InLine({{LabelOver(cmbService, tr("Se&rvice")), 2},
                            {LabelOver(txtPrice, tr("&Price (tax included)")), 1}}));
  column->addLayout(commands);
  return column;
}

}  // namespace quillary::diary
