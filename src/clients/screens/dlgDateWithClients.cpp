#include "clients/screens/dlgDateWithClients.h"

#include "base/ports/requests/Documents.h"
#include "clients/ClientList.h"
#include "clients/screens/ClientGrids.h"
#include "diary/DiaryDay.h"
#include "kit/Combos.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/PeriodField.h"
#include "kit/RowTicks.h"

#include <QCheckBox>
#include <QComboBox>

namespace quillary::clients {

namespace {

std::vector<GridColumn> TickedClientColumns() {
  return {{{}, ColumnKind::Tick, 40},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Client"), ColumnKind::StrongText, 216},
          {QObject::tr("Suburb"), ColumnKind::Text, 136},
          {QObject::tr("Status"), ColumnKind::Chip, 136}};
}

}  // namespace

dlgDateWithClients::dlgDateWithClients(Business& business, const ScreenTools& tools)
    : Dialog("dlgDateWithClients", QStringLiteral("Please select"), business.World().prompter),
      business_(business) {
  MakeControls();
  LayOut();
  const Navigator& to = tools.navigator;
  cmdPreview->setEnabled(to.CanOpen<ReportOnWorkDone>() || to.CanOpen<ReportOnPaymentsReceived>());
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdPreview, objectName(), [this] { Preview(); });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"), [this] { LoadClients(); });
}

void dlgDateWithClients::MakeControls() {
  days_ = new PeriodField(business_, {.remembered = "dlgDateWithClients"});
  cmbSortBy = Named(new QComboBox, "cmbSortBy");
  FillComboWithWords(cmbSortBy, {tr("Client"), tr("Date")});
  cmbSortBy->setCurrentIndex(0);
  chkSummaryOnly = Named(new QCheckBox(tr("Summar&y only")), "chkSummaryOnly", tr("Summary only"));
  chkTickUntickAll = MakeTickAllBox();
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdClients = ForField("clients", new Grid(QStringLiteral("grdClients")));
  grdClients->setAccessibleName(tr("Clients"));
  grdClients->SetColumns(TickedClientColumns());
  grdClients->FilterBy(txtFilter);
  grdClients->SetEmptyText(tr("There are no clients yet."), tr("Add a client first."));
  ticks_ = new RowTicks(grdClients, 0, chkTickUntickAll);
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdPreview = MakeButton("cmdPreview", tr("&Preview"), ButtonKind::Main);
}

void dlgDateWithClients::LayOut() {
  auto* gap = new QVBoxLayout;
  gap->addStretch(1);
  gap->addWidget(chkSummaryOnly);
  gap->addSpacing(6);
  auto* over = new QHBoxLayout;
  over->addWidget(chkTickUntickAll);
  over->addStretch(1);
  over->addWidget(txtFilter);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(days_);
  column->addLayout(InLine({{LabelOver(cmbSortBy, tr("&Sorted by")), 1}, {gap, 1}}));
  column->addLayout(over);
  column->addWidget(grdClients, 1);
  SetContent(column);
  SetRoom({680, 560});
  AddActions({cmdCancel, cmdPreview});
}

void dlgDateWithClients::LoadClients() {
  std::vector<GridRow> rows;
  const ClientList list = ClientList::Load(business_);
  for (const ClientListRow& client : list.Rows()) {
    GridRow row;
    row.cells = {false, client.client, client.displayName, client.suburb, client.status};
    row.hue = HueOf(client.status);
    rows.push_back(std::move(row));
  }
  grdClients->SetRows(std::move(rows));
  ticks_->TakeRows();
}

DatesWithClients dlgDateWithClients::Chosen() const {
  return {.days = days_->Days(),
          .clients = ticks_->TickedIds<Client>(),
          .summaryOnly = chkSummaryOnly->isChecked(),
          .order = static_cast<DatesWithClients::Order>(cmbSortBy->currentIndex())};
}

void dlgDateWithClients::Preview() {
  std::optional<Refusal> refusal;
  if (!days_->Days().IsValid())
    refusal = Refusal{QString::fromLatin1(diary::kInvalidDateRange), QStringLiteral("from")};
  else if (ticks_->TickedIds<Client>().empty())
    refusal = Refusal{tr("Please tick a client first."), QStringLiteral("clients")};
  if (!quillary::Accepted(business_.World().prompter, this, refusal)) return;
  days_->Remember();
  Close(QDialog::Accepted);
}

}  // namespace quillary::clients
