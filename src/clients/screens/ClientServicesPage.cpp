#include "clients/screens/ClientServicesPage.h"

#include "clients/ClientChoices.h"
#include "clients/screens/ClientFields.h"
#include "clients/screens/ClientGrids.h"
#include "clients/screens/WordCombo.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "lists/Choices.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTimer>

/// How the services look, which field goes with which, and what becomes of what is typed.
namespace quillary::clients {

namespace {

bool RepeatsAs(const QString& jobType) {
  return StoredJobType(jobType).Is(JobType::Regular);
}

}  // namespace

ClientServicesPage::ClientServicesPage(ClientDesk& desk) : desk_(desk) {
  MakeControls();
  MakeCommands();
  LayOut();
  ConnectControls();
  fields_.Watch({cmbService, txtPrice, cmbJobType, cmbFrequency, dtpServiceNextVisit, cmbEmployee,
                 txtNotes, chkSameScheduleAsMain});
}

void ClientServicesPage::MakeControls() {
  grdServices = ForField("services", new Grid(QStringLiteral("grdServices")));
  grdServices->setAccessibleName(tr("Services of the client"));
  grdServices->SetColumns(ServiceColumns());
  grdServices->RememberIn(desk_.business.World().settings);
  grdServices->SetEmptyText(tr("This client has no services yet."),
                            tr("Fill in the fields below and press Update: the first service "
                               "becomes the main one."));
  grdServices->setMinimumHeight(31 + 2 * 35 + 2);
  txtClientServiceID = Named(new QLineEdit(this), "txtClientServiceID");
  txtClientServiceID->hide();  // the key of the chosen service is nothing to look at
  cmbService = ForField("service", Named(new ComboSearch, "cmbService"));
  txtPrice = ForField("price", Named(new QLineEdit, "txtPrice"));
  txtPrice->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  SelectAllText(txtPrice);
  cmbJobType = ForField("jobType", Named(new QComboBox, "cmbJobType"));
  cmbFrequency = ForField("frequency", new WordCombo("cmbFrequency"));
  new KeyFilter(cmbFrequency->lineEdit(), KeyMode::Digits);
  cmbFrequency->setCompleter(nullptr);  // a number is whole as typed: 14 is not to become 140
  dtpServiceNextVisit =
      ForField("nextVisit", Named(new DateField(desk_.business.Today()), "dtpServiceNextVisit"));
  dtpServiceNextVisit->setFixedWidth(168);
  cmbEmployee = ForField("employee", Named(new ComboSearch, "cmbEmployee"));
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setFixedHeight(48);
  chkSameScheduleAsMain = Named(new QCheckBox(tr("Same schedule as the &main service")),
                                "chkSameScheduleAsMain", tr("Same schedule as the main service"));
  for (QComboBox* combo :
       std::initializer_list<QComboBox*>{cmbService, cmbJobType, cmbFrequency, cmbEmployee})
    combo->setMinimumContentsLength(5);
}

void ClientServicesPage::MakeCommands() {
  cmdRemoveService = MakeButton("cmdRemoveService", tr("Rem&ove Service?"), ButtonKind::Danger);
  cmdAddNewService = MakeButton("cmdAddNewService", tr("Add new service?"));
  cmdAddNewService->setToolTip(tr("Adds an empty service to the list, to be filled in"));
  cmdClearServiceFields = MakeButton("cmdClearServiceFields", tr("Clear fields"));
  cmdAddService = MakeButton("cmdAddService", tr("Add as a ne&w..."));
  cmdAddService->setToolTip(tr("Stores the fields as a further service"));
  cmdSaveService = MakeButton("cmdSaveService", tr("&Update"), ButtonKind::Main);
  cmdSaveService->setToolTip(tr("Stores the fields in the chosen service"));
  cmdReschedule =
      MakeButton("cmdReschedule", tr("Create schedule &based on the services shown above..."));
  cmdAddOnceOff = MakeButton("cmdAddOnceOff", tr("Add &job"));
  cmdAddVisit = MakeButton("cmdAddVisit", tr("Add a &visit"));
}

QBoxLayout* ClientServicesPage::FieldRows() {
  auto* rows = new QVBoxLayout;
  rows->setSpacing(8);
  auto* follow = new QVBoxLayout;
  follow->addStretch(1);
  follow->addWidget(chkSameScheduleAsMain);
  follow->addSpacing(4);
  rows->addLayout(InLine({{LabelOver(cmbService, tr("Serv&ice")), 3},
                          {LabelOver(txtPrice, tr("&Price")), 1},
                          {follow, 0}}));
  fraDiffSchedule = new QWidget;
  fraDiffSchedule->setObjectName(QStringLiteral("fraDiffSchedule"));
  auto* frequency = LabelOver(cmbFrequency, tr("Frequency (days)"));
  lblFrequency = qobject_cast<QLabel*>(frequency->itemAt(0)->widget());
  auto* schedule = InLine({{LabelOver(cmbJobType, tr("Job &type")), 3},
                           {frequency, 2},
                           {LabelOver(dtpServiceNextVisit, tr("Start date (Base date)")), 0},
                           {LabelOver(cmbEmployee, tr("&Employee")), 4}});
  schedule->setContentsMargins(0, 0, 0, 0);
  fraDiffSchedule->setLayout(schedule);
  rows->addWidget(fraDiffSchedule);
  rows->addLayout(LabelOver(
      txtNotes, QStringLiteral("Re&gular job notes: these notes will appear on your work sheet.")));
  return rows;
}

QLayout* ClientServicesPage::ServiceCommands() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(cmdRemoveService);
  line->addStretch(1);
  for (QPushButton* button :
       {cmdAddNewService, cmdClearServiceFields, cmdAddService, cmdSaveService})
    line->addWidget(button);
  return line;
}

QWidget* ClientServicesPage::ScheduleFrame() {
  fraSchedule = new QWidget;
  fraSchedule->setObjectName(QStringLiteral("fraSchedule"));
  auto* column = new QVBoxLayout(fraSchedule);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addWidget(grdServices, 1);
  column->addLayout(FieldRows());
  column->addLayout(ServiceCommands());
  column->addSpacing(4);
  auto* diary = new QHBoxLayout;
  diary->setSpacing(8);
  for (QPushButton* button : {cmdReschedule, cmdAddOnceOff, cmdAddVisit}) diary->addWidget(button);
  diary->addStretch(1);
  column->addLayout(diary);
  return fraSchedule;
}

void ClientServicesPage::LayOut() {
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 12, 0, 8);
  line->setSpacing(16);
  line->addWidget(ScheduleFrame(), 19);
  sideSlot_ = new QVBoxLayout;
  line->addLayout(sideSlot_, 10);
}

void ClientServicesPage::ConnectControls() {
  connect(grdServices, &Grid::selectedRowChanged, this, [this] {
    if (!fields_.IsDataChanged())
      RowChosen();
    else  // it may have to be refused, which must not happen while the list answers the click
      QTimer::singleShot(0, this, &ClientServicesPage::RowChosen);
  });
  connect(cmbJobType, &QComboBox::activated, this, [this] {
    if (!RepeatsAs(cmbJobType->currentText())) ShowWords(cmbFrequency, QStringLiteral("0"));
    EnableFields();
  });
  connect(chkSameScheduleAsMain, &QCheckBox::clicked, this, &ClientServicesPage::FollowMain);
  connect(cmbFrequency->lineEdit(), &QLineEdit::editingFinished, this,
          &ClientServicesPage::FrequencyLeft, Qt::QueuedConnection);
  connect(txtPrice, &QLineEdit::editingFinished, this, &ClientServicesPage::PriceLeft);
  desk_.OnClick(cmdSaveService, [this] { Save(SaveServiceAs::Selected); });
  desk_.OnClick(cmdAddService, [this] { Save(SaveServiceAs::New); });
  desk_.OnClick(cmdAddNewService, [this] { AddNewService(); });
  desk_.OnClick(cmdRemoveService, [this] { RemoveService(); });
  desk_.OnClick(cmdClearServiceFields, [this] { ClearFields(); });
  desk_.OnClick(cmdReschedule, [this] { Reschedule(); });
  desk_.OnClick(cmdAddOnceOff, [this] { AddAJob(); });
  desk_.OnClick(cmdAddVisit, [this] { AddAVisit(); });
}

void ClientServicesPage::LoadChoices() {
  FillCombo(cmbService, lists::ListServiceChoices(desk_.business));
  FillComboWithWords(cmbJobType, WordsIn<JobType>(JobTypeGroup::OfferedByHand));
  FillComboWithWords(cmbFrequency, ListFrequencyDays(desk_.business));
  FillCombo(cmbEmployee, lists::ListEmployeesByName(desk_.business));
  const QString price = QStringLiteral("&Price (%1 inc.)").arg(desk_.business.values.taxName);
  for (QLabel* label : findChildren<QLabel*>())
    if (label->buddy() == txtPrice) label->setText(price);
}

void ClientServicesPage::ShowServices(std::optional<size_t> element) {
  {
    const QSignalBlocker quiet(grdServices);
    grdServices->SetRows(ServiceRows(desk_.edit.services));
    if (!element || !grdServices->SelectKey(static_cast<qint64>(*element)))
      grdServices->SelectFirst();
  }
  ShowSelected();
}

QWidget* ClientServicesPage::LastField() const {
  return cmdAddVisit;
}

void ClientServicesPage::EnableSchedule(bool on) {
  fraSchedule->setEnabled(on);
}

size_t ClientServicesPage::SelectedElement() const {
  const auto row = grdServices->SelectedRow();
  return row ? static_cast<size_t>(grdServices->Key(*row)) : desk_.edit.services.size() - 1;
}

void ClientServicesPage::RowChosen() {
  desk_.Run("grdServices_RowColChange", [this] {
    const size_t chosen = SelectedElement();
    if (chosen == element_) return;
    if (TakeEdited()) {
      ShowServices(chosen);
      return;
    }
    const QSignalBlocker quiet(grdServices);
    if (!grdServices->SelectKey(static_cast<qint64>(element_))) grdServices->clearSelection();
  });
}

bool ClientServicesPage::TakeEdited() {
  if (!fields_.IsDataChanged()) return true;
  const ClientServiceForm form = Fields();
  const size_t element = element_;
  ClientServiceArray& services = desk_.edit.services;
  if (!desk_.accepted(CheckTakenService(desk_.business, form, services.at(element)))) return false;
  SaveClientServiceToArray(form, services, element);
  ShowServices(element);
  return true;
}

void ClientServicesPage::ShowSelected() {
  element_ = SelectedElement();
  const ClientServiceRecord& service = desk_.edit.services.at(element_);
  ShowFields(service.IsEmpty() ? ClearedServiceForm(desk_.business) : ServiceFormOf(service));
}

void ClientServicesPage::ShowFields(const ClientServiceForm& form) {
  own_ = form;
  txtClientServiceID->setText(QString::number(NumberOrZero(form.clientServiceId)));
  SelectComboItem(cmbService, form.serviceId);
  txtPrice->setText(form.price);
  txtNotes->setPlainText(form.notes);
  chkSameScheduleAsMain->setChecked(form.sameScheduleAsMain);
  ShowSchedule(form.sameScheduleAsMain ? WithScheduleOfMain(form, desk_.edit.services) : form);
  EnableFields();
  fields_.ClearDataChanged();
}

void ClientServicesPage::ShowSchedule(const ClientServiceForm& form) {
  ShowWords(cmbJobType, form.jobType.Text());
  ShowWords(cmbFrequency, form.frequency);
  dtpServiceNextVisit->SetDate(form.nextVisit.value_or(QDate()));
  SelectComboItem(cmbEmployee, form.employeeId);
}

ClientServiceForm ClientServicesPage::Fields() const {
  ClientServiceForm form;
  form.clientServiceId = own_.clientServiceId;
  form.serviceId = ComboId<Service>(cmbService);
  form.service = cmbService->currentText();
  form.jobType = StoredJobType(cmbJobType->currentText());
  const QDate start = dtpServiceNextVisit->Date();
  if (start.isValid()) form.nextVisit = start;
  form.frequency = cmbFrequency->currentText();
  form.employeeId = ComboId<Employee>(cmbEmployee);
  form.employeeName = cmbEmployee->currentText();
  form.price = txtPrice->text();
  form.notes = txtNotes->toPlainText();
  form.sameScheduleAsMain = chkSameScheduleAsMain->isChecked();
  return form;
}

void ClientServicesPage::FollowMain(bool follow) {
  if (follow) {
    own_ = Fields();
    ShowSchedule(WithScheduleOfMain(own_, desk_.edit.services));
  } else {
    ShowSchedule(own_);
  }
  EnableFields();
}

void ClientServicesPage::EnableFields() {
  const bool follows = chkSameScheduleAsMain->isChecked();
  const bool repeats = RepeatsAs(cmbJobType->currentText());
  const bool hasMain = desk_.edit.services.front().clientServiceId.has_value();
  fraDiffSchedule->setEnabled(!follows);
  cmbFrequency->setEnabled(repeats);
  lblFrequency->setEnabled(repeats);
  // There is nothing to follow without a main service, and the main service follows nobody.
  chkSameScheduleAsMain->setEnabled(hasMain && element_ != 0);
  cmdRemoveService->setEnabled(grdServices->SelectedRow().has_value());
}

void ClientServicesPage::FrequencyLeft() {
  const QString typed = cmbFrequency->currentText();
  const bool inside = cmbFrequency->lineEdit()->hasFocus();
  if (inside || !cmbFrequency->isEnabled() || !isVisible()) return;
  const auto refusal = CheckServiceFrequency(typed);
  if (!refusal) {
    toldFrequency_.clear();
  } else if (toldFrequency_ != u'x' + typed) {
    toldFrequency_ = u'x' + typed;
    desk_.accepted(refusal);
  }
}

void ClientServicesPage::PriceLeft() {
  if (const auto amount = Money::Parse(txtPrice->text()))
    txtPrice->setText(amount->ToCurrencyText());
}

}  // namespace quillary::clients
