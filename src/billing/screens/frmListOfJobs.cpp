#include "billing/screens/frmListOfJobs.h"

#include "billing/invoices/InvoiceJobs.h"
#include "billing/screens/InvoiceMonths.h"
#include "diary/DiaryDay.h"
#include "kit/Chip.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"

#include <QCheckBox>
#include <QComboBox>

#include <algorithm>

namespace quillary::billing {

frmListOfJobs::frmListOfJobs(Business& business, const ScreenTools& tools,
                             std::optional<Id<Invoice>> invoiceId, Id<Client> clientId,
                             const std::vector<Id<Entry>>& chosenBefore)
    : Dialog("frmListOfJobs", tr("Attach jobs to the invoice"), business.World().prompter),
      business_(business),
      tools_(tools),
      invoiceId_(invoiceId),
      clientId_(clientId),
      chosen_(chosenBefore.begin(), chosenBefore.end()) {
  MakeControls();
  LayOut();
  ConnectControls();
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] {
    FillWithMonths(cboMonth, business_.Today());
    TakeMonthOf(MonthOfInvoice(business_, invoiceId_));
    ListJobs();
    fgJobs->setFocus();
  });
}

void frmListOfJobs::MakeControls() {
  cboMonth = Named(new QComboBox, "cboMonth");
  dtStartDate = Named(new DateField(business_.Today()), "dtStartDate");
  dtEndDate = Named(new DateField(business_.Today()), "dtEndDate");
  for (DateField* field : {dtStartDate, dtEndDate}) field->setFixedWidth(168);
  cmdList = MakeButton("cmdList", tr("&List jobs"), ButtonKind::Plain, "view-refresh");
  txtFilter = MakeFilterBox(this);
  chkTickUntickAll = MakeTickAllBox();
  fgJobs = new Grid(QStringLiteral("fgJobs"));
  fgJobs->setAccessibleName(tr("Jobs that the invoice can take"));
  fgJobs->SetColumns({{{}, ColumnKind::Tick, 40},
                      {{}, ColumnKind::HiddenId},
                      {tr("Client"), ColumnKind::StrongText, 168},
                      {tr("Services"), ColumnKind::Text, 144},
                      {tr("Date"), ColumnKind::Date, 104},
                      {tr("Price"), ColumnKind::Money, 96},
                      {business_.values.taxName + QStringLiteral(" inc."), ColumnKind::Money, 88},
                      {tr("Status"), ColumnKind::Chip, 144},
                      {tr("Invoiced"), ColumnKind::Text, 80}});
  fgJobs->SetEmptyText(tr("No job lies in these days."), tr("Choose another month."));
  fgJobs->FilterBy(txtFilter);
  fgJobs->RememberIn(business_.World().settings);
  fgJobs->setMinimumHeight(160);
  ticks_ = new RowTicks(fgJobs, 0, chkTickUntickAll);
  lblTickedTotal = MakeLabel("lblTickedTotal", {}, LabelRole::Figure);
  cmdClose = MakeButton("cmdClose", tr("&Cancel"));
  cmdAttachJobsToInvoice =
      MakeButton("cmdAttachJobsToInvoice", tr("&Attach ticked jobs"), ButtonKind::Main);
}

void frmListOfJobs::LayOut() {
  auto* ticks = new QHBoxLayout;
  ticks->addWidget(chkTickUntickAll);
  ticks->addStretch(1);
  ticks->addWidget(lblTickedTotal);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(ChoiceLine());
  column->addLayout(ticks);
  column->addWidget(fgJobs, 1);
  column->addLayout(LegendLine());
  SetContent(column);
  SetRoom({960, 600});
  AddActions({cmdClose, cmdAttachJobsToInvoice});
}

QLayout* frmListOfJobs::ChoiceLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabelFor(cboMonth, tr("&Month")), cboMonth,
                    MakeLabelFor(dtStartDate, tr("Jobs &from")), dtStartDate,
                    MakeLabelFor(dtEndDate, tr("t&o")), dtEndDate});
  line->AddWidgets({txtFilter, cmdList}, Qt::AlignRight);
  return line;
}

QLayout* frmListOfJobs::LegendLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  const auto add = [&](const char* name, const QString& words, Hue hue) {
    auto* chip = new Chip(name);
    chip->ShowStatus(words, hue);
    line->addWidget(chip);
  };
  add("lblNotDone", tr("Not done"), Hue::Neutral);
  add("lblDone", tr("Done"), Hue::Green);
  add("lblHasInvoice", tr("On an invoice already"), Hue::StrongGreen);
  line->addStretch(1);
  return line;
}

void frmListOfJobs::ConnectControls() {
  tools_.runner.OnClick(cmdList, objectName(), [this] { ListJobs(); });
  tools_.runner.OnClick(cmdAttachJobsToInvoice, objectName(), [this] { AttachTicked(); });
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(cboMonth, &QComboBox::activated, this, [this](int month) {
    TakeMonth(month);
    cmdList->click();
  });
  for (DateField* field : {dtStartDate, dtEndDate})
    connect(field, &DateField::dateChosen, cmdList, &QPushButton::click);
  connect(ticks_, &RowTicks::ticksChanged, this, &frmListOfJobs::ShowTotals);
}

void frmListOfJobs::TakeMonth(int month) {
  const diary::MonthChoice days = MonthAt(business_.Today(), month);
  dtStartDate->SetDate(days.days.from);
  dtEndDate->SetDate(days.days.to);
}

void frmListOfJobs::TakeMonthOf(QDate day) {
  if (const auto month = diary::PickerMonthOf(business_.Today(), day)) {
    cboMonth->setCurrentIndex(static_cast<int>(*month));
    return TakeMonth(cboMonth->currentIndex());
  }
  cboMonth->setCurrentIndex(-1);
  const DateRange days = DateRange::MonthOf(day);
  dtStartDate->SetDate(days.from);
  dtEndDate->SetDate(days.to);
}

void frmListOfJobs::ListJobs() {
  jobs_ = diary::ListPickableJobs(business_, clientId_, {dtStartDate->Date(), dtEndDate->Date()});
  std::vector<GridRow> rows;
  for (const diary::PickableJob& job : jobs_) {
    const bool ticked = job.IsOn(invoiceId_) || chosen_.contains(job.entry);
    GridRow row;
    row.cells = {ticked,
                 job.entry,
                 job.displayName,
                 job.description,
                 job.scheduleDate,
                 job.totalPrice,
                 job.totalGST,
                 GridCell(job.status, ListedWordsOf(job.status)),
                 job.HasInvoiceWord()};
    row.hue = job.RowHue();
    rows.push_back(std::move(row));
  }
  fgJobs->SetRows(std::move(rows));
  ticks_->TakeRows();
  fgJobs->SelectFirst();
  ShowTotals();
}

void frmListOfJobs::ShowTotals() {
  const auto ticked = ticks_->TickedIds<Entry>();
  const std::set<Id<Entry>> keys(ticked.begin(), ticked.end());
  Money total;
  for (const diary::PickableJob& job : jobs_)
    if (keys.contains(job.entry)) total += job.totalPrice;
  lblTickedTotal->setText(
      keys.size() == 1 ? tr("1 job ticked = %1").arg(total.ToCurrencyText())
                       : tr("%1 jobs ticked = %2").arg(keys.size()).arg(total.ToCurrencyText()));
}

void frmListOfJobs::AttachTicked() {
  const auto ticked = ticks_->TickedIds<Entry>();
  const QString question = QuestionBeforeAttaching(business_, invoiceId_, ticked);
  if (!question.isEmpty() && business_.World().prompter.AskBeforeLosing(question) != Answer::Yes)
    return;
  if (invoiceId_) AttachJobs(business_, *invoiceId_, ticked);
  chosen_.insert(ticked.begin(), ticked.end());
  Close(Accepted);
}

}  // namespace quillary::billing
