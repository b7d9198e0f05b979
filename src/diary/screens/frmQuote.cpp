#include "diary/screens/frmQuote.h"

#include "diary/screens/dlgQuotePostponed.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "lists/Choices.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace quillary::diary {

frmQuote::frmQuote(Business& business, const ScreenTools& tools, const QuoteVisit& visit)
    : Dialog("frmQuote", tr("Quote visit"), business.World().prompter),
      business_(business),
      visit_(visit) {
  MakeControls();
  MakeCommands();
  LayOut();
  state_.Watch({cmbClient, dtpDate, cmbEmployee, txtNotes, status_[0], status_[1], status_[2]});
  line_.Watch({cmbService, txtPrice});
  const auto on = [&](QPushButton* button, void (frmQuote::*command)()) {
    tools.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdExtraWork, &frmQuote::AddLine);
  on(cmdUpdate, &frmQuote::SaveService);
  on(cmdRemoveService, &frmQuote::RemoveLine);
  on(cmdPostpone, &frmQuote::Postpone);
  tools.runner.OnClick(cmdDeleteJob, objectName(), [this] {
    if (DeleteQuoteVisit(business_, business_.World().prompter, visit_.entry)) Close(Accepted);
  });
  tools.runner.OnClick(cmdSave, objectName(), [this] {
    if (SaveQuote() && MayLeave()) Close(Accepted);  // a line may be typed and not stored
  });
  ConnectControls();
  tools.runner.Run(objectName(), QStringLiteral("ShowQuote"), [this] {
    FillCombo(cmbClient, lists::ListClientChoices(business_));
    FillCombo(cmbEmployee, lists::ListEmployeeChoices(business_));
    FillCombo(cmbService, lists::ListServiceChoices(business_));
    ShowQuote();
    ShowServices();
  });
}

void frmQuote::MakeControls() {
  cmbClient = ForField("client", Named(new ComboSearch, "cmbClient"));
  dtpDate = Named(new DateField(business_.Today()), "dtpDate");
  cmbEmployee = ForField("employee", Named(new ComboSearch, "cmbEmployee"));
  status_ = {Named(new QRadioButton(tr("Re&jected")), "optRejected", tr("Rejected")),
             Named(new QRadioButton(tr("Pendi&ng")), "optPending", tr("Pending")),
             Named(new QRadioButton(tr("N&ot Done")), "optQuoteNotDone", tr("Not Done"))};
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(72);
  lblPaid =
      MakeLabel("lblPaid", QStringLiteral("WARNING: This quote has an existing payment record."),
                LabelRole::Warning);
  lblPaid->setWordWrap(true);
  grdServices = new Grid(QStringLiteral("grdServices"));
  grdServices->setAccessibleName(tr("Services of the quote"));
  grdServices->SetColumns({{tr("Service"), ColumnKind::StrongText, 120},
                           {{}, ColumnKind::HiddenId},
                           {tr("Price"), ColumnKind::Money, 112}});
  grdServices->SetEmptyText(tr("No services yet."), tr("Add what the client asks for."));
  grdServices->setMinimumHeight(112);
  lblServicesTotal = MakeLabel("lblServicesTotal", {}, LabelRole::Figure);
  cmbService = ForField("service", Named(new ComboSearch, "cmbService"));
  txtPrice = Named(new CurrencyField, "txtPrice");
}

void frmQuote::MakeCommands() {
  cmdRemoveService = MakeButton("cmdRemoveService", tr("Re&move"), ButtonKind::Danger);
  cmdExtraWork = MakeButton("cmdExtraWork", QStringLiteral("E&xtra work?"));
  cmdExtraWork->setToolTip(tr("Adds one more service without a price"));
  cmdUpdate = MakeButton("cmdUpdate", tr("&Update service"));
  cmdDeleteJob =
      MakeButton("cmdDeleteJob", QStringLiteral("De&lete this quote?"), ButtonKind::Danger);
  cmdPostpone = MakeButton("cmdPostpone", tr("Postpo&ne…"));
  cmdPostpone->setToolTip(tr("Puts the visit on another day"));
  cmdClose = MakeButton("cmdClose", tr("&Cancel"));
  cmdSave = MakeButton("cmdSave", tr("&Save && Close"), ButtonKind::Main);
}

void frmQuote::LayOut() {
  auto* sides = new QHBoxLayout;
  sides->setSpacing(24);
  sides->addLayout(VisitColumn(), 1);
  sides->addLayout(LinesColumn(), 1);
  SetContent(sides);
  SetRoom({880, 440});
  AddActions({cmdDeleteJob, cmdPostpone, cmdClose, cmdSave});
}

QLayout* frmQuote::VisitColumn() {
  auto* states = new QHBoxLayout;
  states->setSpacing(16);
  for (QRadioButton* state : status_) states->addWidget(state);
  states->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(cmbClient, tr("Cl&ient")));
  column->addLayout(
      InLine({{LabelOver(dtpDate, tr("D&ate")), 0}, {LabelOver(cmbEmployee, tr("&Employee"))}}));
  column->addLayout(states);
  column->addLayout(LabelOver(txtNotes, tr("No&tes")), 1);
  column->addWidget(lblPaid);
  return column;
}

QLayout* frmQuote::LinesColumn() {
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabelFor(grdServices, tr("Ser&vices of this quote")));
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

void frmQuote::ConnectControls() {
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(grdServices, &Grid::selectedRowChanged, this, &frmQuote::ShowSelectedLine);
  txtPrice->installEventFilter(this);
  cmbService->installEventFilter(this);  // the list keeps the focus, not its line
}

bool frmQuote::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return Dialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return Dialog::eventFilter(watched, event);
  // Enter stores the line that is being typed; it must not save and close over it.
  grdServices->setFocus();
  cmdUpdate->click();
  return true;
}

bool frmQuote::IsDataChanged() const {
  return state_.IsDataChanged() || line_.IsDataChanged();
}

void frmQuote::ShowQuote() {
  SelectComboItem(cmbClient, visit_.client);
  SelectComboItem(cmbEmployee, visit_.employee);
  dtpDate->SetDate(visit_.date);
  txtNotes->setPlainText(visit_.notes);
  for (size_t at = 0; at < status_.size(); ++at)
    status_[at]->setChecked(visit_.status == kQuoteStatuses[at]);
  lblPaid->setVisible(visit_.hasPayment);
  state_.ClearDataChanged();
}

void frmQuote::ShowServices() {
  services_ = LoadServices(business_, visit_.entry);
  std::vector<GridRow> rows;
  for (const JobService& line : services_.rows)
    rows.push_back({{line.serviceCode, line.line, line.price}});
  grdServices->SetRows(std::move(rows));
  lblServicesTotal->setText(services_.TotalWords());
  ShowSelectedLine();
}

void frmQuote::ShowSelectedLine() {
  const auto row = grdServices->SelectedRow();
  const JobService* line = row ? &services_.rows[static_cast<size_t>(*row)] : nullptr;
  SelectComboItem(cmbService, line ? line->service : std::nullopt);
  txtPrice->SetAmount(line ? line->price : Money());
  cmdUpdate->setText(line ? tr("&Update service") : tr("&Insert as new service"));
  cmdRemoveService->setEnabled(line != nullptr);
  line_.ClearDataChanged();
}

QuoteVisit frmQuote::Typed() const {
  QuoteVisit visit = visit_;
  visit.client = ComboId<Client>(cmbClient);
  visit.employee = ComboId<Employee>(cmbEmployee);
  visit.date = dtpDate->Date();
  visit.notes = txtNotes->toPlainText();
  for (size_t at = 0; at < status_.size(); ++at)
    if (status_[at]->isChecked()) visit.status = kQuoteStatuses[at];
  return visit;
}

bool frmQuote::SaveQuote() {
  const QuoteVisit visit = Typed();
  if (!IsAccepted(SaveQuoteVisit(business_, visit))) return false;
  visit_ = visit;
  state_.ClearDataChanged();
  return true;
}

void frmQuote::SaveService() {
  const JobServiceForm form{grdServices->SelectedId<EntryLine>(), ComboId<Service>(cmbService),
                            txtPrice->Amount()};
  if (!IsAccepted(SaveQuoteLine(business_, visit_.entry, form))) return;
  ShowServices();
  if (form.line) grdServices->SelectId(*form.line);
  cmbService->setFocus();
}

void frmQuote::AddLine() {
  AddExtraWork(business_, visit_.entry);
  ShowServices();
  const std::vector<qint64> lines = grdServices->Keys();
  if (!lines.empty()) grdServices->SelectKey(*std::max_element(lines.begin(), lines.end()));
  cmbService->setFocus();
}

void frmQuote::RemoveLine() {
  if (!IsAccepted(RemoveQuoteLine(business_, visit_.entry, grdServices->SelectedId<EntryLine>())))
    return;
  ShowServices();
  grdServices->setFocus();
}

void frmQuote::Postpone() {
  const auto day = dlgQuotePostponed::GetDate(business_.World().prompter, business_.Today());
  if (!day) return;
  dtpDate->SetDate(*day);
  dtpDate->setFocus();
}

}  // namespace quillary::diary
