#include "billing/screens/dlgPaymentJobs.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"
#include "kit/ShownList.h"

#include <QScrollBar>

#include <algorithm>

namespace quillary::billing {

namespace {

enum Column { kTick, kDiary };

std::vector<GridColumn> Columns() {
  return {{{}, ColumnKind::Tick, 40},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 104},
          {QObject::tr("Client"), ColumnKind::StrongText, 208},
          {QObject::tr("Description"), ColumnKind::Text, 176},
          {QObject::tr("Invoice"), ColumnKind::Text, 80},
          {QObject::tr("Status"), ColumnKind::Chip, 176},
          {QObject::tr("Price"), ColumnKind::Money, 104}};
}

GridRow RowOf(const PayableJob& job) {
  const QString words =
      job.isPaid ? QObject::tr("%1 · paid").arg(job.StatusWords()) : job.StatusWords();
  GridRow row;
  row.cells = {job.isTicked,
               job.diaryId,
               job.scheduleDate,
               job.displayName,
               job.description,
               job.invoiceNumber,
               GridCell(job.status, words),
               job.totalPrice};
  row.hue = job.isPaid                            ? Hue::Blue
            : job.status.Is(EntryStatus::JobOpen) ? Hue::Neutral
                                                  : Hue::Green;
  return row;
}

}  // namespace

dlgPaymentJobs::dlgPaymentJobs(Business& business, const ScreenTools& tools, Id<Payment> paymentId)
    : Dialog("dlgPaymentJobs", tr("Jobs of this payment"), business.World().prompter),
      business_(business),
      tools_(tools),
      paymentId_(paymentId) {
  MakeControls();
  LayOut();
  connect(ticks_, &RowTicks::ticksChanged, this, &dlgPaymentJobs::TakeTicks);
  connect(cmdClose, &QPushButton::clicked, this, [this] { Close(Accepted); });
  tools_.runner.OnClick(cmdPrintGrid, objectName(), [this] {
    tools_.navigator.Open(ShownList(windowTitle(), grdJobs, tr("Covered")));
  });
  tools_.runner.Run(objectName(), QStringLiteral("ShowPayment"), [this] { Load(); });
  grdJobs->SelectFirst();
  grdJobs->setFocus();
}

void dlgPaymentJobs::MakeControls() {
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdJobs = new Grid(QStringLiteral("grdJobs"));
  grdJobs->SetColumns(Columns());
  grdJobs->SetEmptyText(tr("This client has no jobs."),
                        tr("The jobs of everyone billed to the client are offered here."));
  grdJobs->FilterBy(txtFilter);
  grdJobs->setMinimumHeight(240);
  ticks_ = new RowTicks(grdJobs, kTick);
  const auto figure = [](const char* name, const QString& heardAs) {
    return Named(MakeLabel("", {}, LabelRole::Figure), name, heardAs);
  };
  lblJobsTicked = MakeLabel("lblJobsTicked", {}, LabelRole::Muted);
  txtJobsTotal = figure("txtJobsTotal", tr("Sum of the ticked jobs"));
  txtPaymentAmount = figure("txtPaymentAmount", tr("Amount of the payment"));
  txtDifference = figure("txtDifference", tr("Difference"));
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print list"), ButtonKind::Plain, "document-print");
  cmdPrintGrid->setEnabled(tools_.navigator.CanOpen<PrintList>());
  cmdClose = MakeButton("cmdClose", tr("&Close"), ButtonKind::Main);
}

QLayout* dlgPaymentJobs::Head() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  QLabel* heading =
      MakeLabelFor(grdJobs, QStringLiteral("&Tick any jobs which this payment covers..."));
  heading->setObjectName(QStringLiteral("lblHeading"));
  line->addWidget(heading);
  line->addStretch(1);
  line->addWidget(txtFilter);
  return line;
}

QLayout* dlgPaymentJobs::SumsLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(lblJobsTicked);
  line->addWidget(txtJobsTotal);
  line->addSpacing(16);
  line->addWidget(MakeLabel("lblPayment", tr("payment"), LabelRole::Muted));
  line->addWidget(txtPaymentAmount);
  line->addSpacing(16);
  line->addWidget(MakeLabel("lblDifference", tr("difference"), LabelRole::Muted));
  line->addWidget(txtDifference);
  line->addStretch(1);
  line->addWidget(
      MakeLabel("lblLegend",
                QStringLiteral("Blue - Paid (the job has already been added in a payment record)"),
                LabelRole::Hint));
  return line;
}

void dlgPaymentJobs::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(Head());
  column->addWidget(grdJobs, 1);
  column->addLayout(SumsLine());
  SetContent(column);
  SetRoom({1000, 560});
  AddActions({cmdPrintGrid, cmdClose});
}

void dlgPaymentJobs::Load() {
  allocation_ = LoadAllocation(business_, paymentId_);
  ShowRows();
  ShowSums();
}

void dlgPaymentJobs::ShowRows() {
  const auto selected = grdJobs->SelectedRow();
  const qint64 key = selected ? grdJobs->Key(*selected) : 0;
  const int scrolled = grdJobs->verticalScrollBar()->value();
  std::vector<GridRow> rows;
  for (const PayableJob& job : allocation_.jobs) rows.push_back(RowOf(job));
  grdJobs->SetRows(std::move(rows));
  ticks_->TakeRows();
  if (selected) grdJobs->SelectKey(key);
  grdJobs->verticalScrollBar()->setValue(scrolled);
}

void dlgPaymentJobs::ShowSums() {
  const AllocationSums sums = allocation_.Sums();
  lblJobsTicked->setText(sums.jobs == 1 ? tr("1 job ticked, worth")
                                        : tr("%1 jobs ticked, worth").arg(sums.jobs));
  txtJobsTotal->setText(sums.jobsTotal.ToCurrencyText());
  txtPaymentAmount->setText(sums.paymentAmount.ToCurrencyText());
  txtDifference->setText(sums.Difference().ToCurrencyText());
}

void dlgPaymentJobs::TakeTicks() {
  const bool done = tools_.runner.Run(objectName(), QStringLiteral("grdJobs_AfterEdit"), [this] {
    const auto ticked = ticks_->TickedIds<Entry>();
    for (PayableJob& job : allocation_.jobs) {
      const bool on = std::ranges::find(ticked, job.diaryId) != ticked.end();
      if (on == job.isTicked) continue;
      TickJob(business_, paymentId_, job.diaryId, on);
      job.isTicked = job.isPaid = on;
    }
    ShowRows();  // in the order in which they stood, so that nothing jumps away under the hand
    ShowSums();
  });
  if (!done) Load();
}

}  // namespace quillary::billing
