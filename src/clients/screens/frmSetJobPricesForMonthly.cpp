#include "clients/screens/frmSetJobPricesForMonthly.h"

#include "clients/ClientRecord.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"

#include <QCheckBox>

namespace quillary::clients {

namespace {

std::vector<GridColumn> MonthlyJobColumns() {
  return {{{}, ColumnKind::Tick, 40},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 112},
          {QObject::tr("Services"), ColumnKind::StrongText, 240},
          {QObject::tr("Status"), ColumnKind::Text, 128},
          {QObject::tr("Price"), ColumnKind::Money, 104}};
}

}  // namespace

frmSetJobPricesForMonthly::frmSetJobPricesForMonthly(Business& business, const ScreenTools& tools,
                                                     Id<Client> client)
    : Dialog("frmSetJobPricesForMonthly",
             QStringLiteral("Set job prices for client who pays monthly..."),
             business.World().prompter),
      business_(business),
      client_(client) {
  const auto record = LoadClientDetails(business, client);
  lblClientName =
      MakeLabel("lblClientName", record ? record->displayName : QString(), LabelRole::Title);
  const DateRange month = DateRange::MonthOf(business.Today());
  dtFrom = Named(new DateField(business.Today()), "dtFrom");
  dtTo = Named(new DateField(business.Today()), "dtTo");
  for (DateField* field : {dtFrom, dtTo}) field->setFixedWidth(168);
  dtFrom->SetDate(month.from);
  dtTo->SetDate(month.to);
  cmdList = MakeButton("cmdList", tr("&Load jobs..."));
  txtAmount = ForField("amount", Named(new CurrencyField, "txtAmount"));
  chkTickUntickAll = MakeTickAllBox();
  fgJobs = ForField("jobs", new Grid(QStringLiteral("fgJobs")));
  fgJobs->setAccessibleName(tr("Jobs of the client"));
  fgJobs->SetColumns(MonthlyJobColumns());
  fgJobs->SetEmptyText(tr("No job lies in these days."),
                       tr("Choose other days and press Load jobs."));
  ticks_ = new RowTicks(fgJobs, 0, chkTickUntickAll);
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cdmStart = MakeButton("cdmStart", tr("&Start"), ButtonKind::Main);
  LayOut();
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdList, objectName(), [this] { LoadJobs(); });
  tools.runner.OnClick(cdmStart, objectName(), [this] { Start(); });
  tools.runner.Run(objectName(), QStringLiteral("LoadJobsForThisClient"), [this] { LoadJobs(); });
}

void frmSetJobPricesForMonthly::LayOut() {
  auto* button = new QVBoxLayout;
  button->addStretch(1);
  button->addWidget(cmdList);
  auto* gap = new QVBoxLayout;
  gap->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(lblClientName);
  column->addLayout(InLine({{LabelOver(dtFrom, tr("&From")), 0},
                            {LabelOver(dtTo, tr("T&o")), 0},
                            {button, 0},
                            {gap, 1},
                            {LabelOver(txtAmount, tr("Monthly &amount")), 0}}));
  column->addWidget(MakeParagraph(
      "lblNote", QStringLiteral("The monthly amount is equally allotted to the jobs selected")));
  auto* ticks = new QHBoxLayout;
  ticks->addWidget(chkTickUntickAll);
  ticks->addStretch(1);
  column->addLayout(ticks);
  column->addWidget(fgJobs, 1);
  SetContent(column);
  SetRoom({720, 520});
  AddActions({cmdClose, cdmStart});
}

void frmSetJobPricesForMonthly::LoadJobs() {
  std::vector<GridRow> rows;
  for (const MonthlyJob& job :
       LoadJobsForThisClient(business_, client_, {dtFrom->Date(), dtTo->Date()}))
    rows.push_back(
        {{false, job.entry, job.scheduleDate, job.description, job.statusWords, job.totalPrice}});
  fgJobs->SetRows(std::move(rows));
  ticks_->TakeRows();
}

void frmSetJobPricesForMonthly::Start() {
  if (!quillary::Accepted(business_.World().prompter, this,
                          SetJobPricesForMonthly(business_, client_, txtAmount->Amount(),
                                                 ticks_->TickedIds<Entry>())))
    return;
  LoadJobs();
}

}  // namespace quillary::clients
