#include "diary/screens/frmClients_RescheduleFutureJobs.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"

namespace quillary::diary {

namespace {

enum FutureServiceColumn {
  kFutureService,
  kFutureClientServiceId,
  kFuturePrice,
  kFutureStatus,
  kFutureFrequency,
  kFutureStartDate,
  kFutureEmployee
};

std::vector<GridColumn> FutureServiceColumns() {
  return {{QObject::tr("Service"), ColumnKind::StrongText, 176},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Price"), ColumnKind::Money, 88},
          {QObject::tr("Job type"), ColumnKind::Text, 96},
          {QObject::tr("Frequency (days)"), ColumnKind::Number, 136, true},
          {QObject::tr("Start date"), ColumnKind::Text, 128, true},
          {QObject::tr("Employee"), ColumnKind::Text, 128}};
}

}  // namespace

frmClients_RescheduleFutureJobs::frmClients_RescheduleFutureJobs(Business& business,
                                                                 const ScreenTools& tools,
                                                                 Id<Client> client)
    : Dialog("frmClients_RescheduleFutureJobs", tr("Reschedule future jobs"),
             business.World().prompter),
      business_(business),
      client_(client) {
  grdServices = new Grid(QStringLiteral("grdServices"));
  grdServices->setAccessibleName(tr("Services of the client"));
  grdServices->SetColumns(FutureServiceColumns());
  grdServices->SetEmptyText(tr("This client has no services."),
                            tr("Add a service to the client first."));
  grdServices->setMinimumHeight(144);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblNote",
      QStringLiteral("Note: Please type in the Frequency and Start date for new schedule"),
      LabelRole::Plain));
  column->addWidget(grdServices, 1);
  column->addWidget(MakeParagraph(
      "lblHint",
      tr("Double-click a cell, or press F2, to change it. Jobs of this client that are "
         "not done yet are built again from today on."),
      LabelRole::Hint));
  SetContent(column);
  SetRoom({880, 400});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdReschedule = MakeButton("cmdReschedule", QStringLiteral("&Re-schedule"), ButtonKind::Main);
  cmdReschedule->setEnabled(false);
  AddActions({cmdCancel, cmdReschedule});

  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdReschedule, objectName(), [this] { Reschedule(); });
  // Queued, because the editor that made the change is still open and goes with the old rows.
  connect(
      grdServices, &Grid::edited, this,
      [this, tools](int row, int at, const Value& typed) {
        tools.runner.Run(objectName(), QStringLiteral("grdServices_AfterEdit"),
                         [&] { AfterEdit(row, at, typed); });
      },
      Qt::QueuedConnection);
  tools.runner.Run(objectName(), QStringLiteral("LoadClientServices"),
                   [this] { LoadClientServices(); });
}

void frmClients_RescheduleFutureJobs::LoadClientServices() {
  services_ = LoadServiceRhythms(business_, client_);
  ShowServices();
  grdServices->SelectFirst();
  grdServices->setFocus();
}

void frmClients_RescheduleFutureJobs::ShowServices() {
  std::vector<GridRow> rows;
  for (const ServiceRhythm& service : services_)
    rows.push_back({{service.serviceName, service.clientService, service.price, service.type,
                     service.frequency, service.StartDateText(), service.employeeName}});
  grdServices->SetRows(std::move(rows));
}

void frmClients_RescheduleFutureJobs::AfterEdit(int row, int column, const Value& typed) {
  ServiceRhythm& service = services_[static_cast<size_t>(row)];
  const auto refusal = column == kFutureStartDate
                           ? TypeStartDate(service, typed.ToText(), business_.Today())
                           : TypeFrequency(service, typed.ToText());
  if (IsAccepted(refusal)) {
    cmdReschedule->setEnabled(true);
    ShowServices();
  }
  grdServices->SelectId(service.clientService);
  grdServices->setFocus();
  const QModelIndex cell = grdServices->currentIndex().siblingAtColumn(column);
  grdServices->setCurrentIndex(cell);
  if (refusal) grdServices->edit(cell);
}

void frmClients_RescheduleFutureJobs::Reschedule() {
  {
    const BusyWhile busy(business_.World().busy);
    RescheduleClient(business_, client_, services_);
  }
  Close(Accepted);
}

}  // namespace quillary::diary
