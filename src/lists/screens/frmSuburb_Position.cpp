#include "lists/screens/frmSuburb_Position.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "lists/SuburbPositions.h"

namespace quillary::lists {

namespace {

enum SuburbColumn { kPosition, kRow, kSuburb };

}  // namespace

frmSuburb_Position::frmSuburb_Position(Business& business, const ScreenTools& tools)
    : Dialog("frmSuburb_Position", QStringLiteral("Suburb sequence for Diary sorting"),
             business.World().prompter),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  tools_.runner.Run(objectName(), QStringLiteral("LoadSuburbsIntoGrid"), [this] {
    LoadSuburbsIntoGrid();
    grdSuburbs->SelectFirst();
  });
  grdSuburbs->setFocus();
}

void frmSuburb_Position::MakeControls() {
  txtFilter = MakeFilterBox(this);
  txtFilter->setMaximumWidth(240);
  lblCount = MakeLabel("lblCount", {}, LabelRole::Muted);
  cmdAcquireSuburbsFromClient =
      MakeButton("cmdAcquireSuburbsFromClient",
                 QStringLiteral("&Update list by acquiring suburbs from Client details"));
  grdSuburbs = new Grid(QStringLiteral("grdSuburbs"));
  grdSuburbs->setAccessibleName(tr("Suburbs in their order"));
  grdSuburbs->SetColumns({{tr("Position"), ColumnKind::Number, 88, true},
                          {{}, ColumnKind::HiddenId},
                          {tr("Suburb"), ColumnKind::StrongText, 320}});
  grdSuburbs->SetEmptyText(tr("No suburbs are listed yet."),
                           tr("Update the list from the details of your clients."));
  grdSuburbs->AllowReordering();
  grdSuburbs->FilterBy(txtFilter);
  grdSuburbs->setMinimumHeight(176);
  cmdRemove = MakeButton("cmdRemove", tr("&Remove…"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("&Close"), ButtonKind::Main);
}

void frmSuburb_Position::LayOut() {
  auto* top = new QHBoxLayout;
  top->setSpacing(8);
  top->addWidget(cmdAcquireSuburbsFromClient);
  top->addStretch(1);
  top->addWidget(txtFilter, 1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(top);
  column->addWidget(grdSuburbs, 1);
  auto* bottom = new QHBoxLayout;
  bottom->setSpacing(16);
  bottom->addWidget(
      MakeParagraph("lblDragHint",
                    QStringLiteral("To sort the suburbs, just click and drag them to where you "
                                   "want them to be..."),
                    LabelRole::Hint),
      1);
  bottom->addWidget(lblCount, 0, Qt::AlignTop);
  column->addLayout(bottom);
  SetContent(column);
  SetRoom({720, 560});
  AddActions({cmdRemove, cmdClose});
}

void frmSuburb_Position::ConnectControls() {
  connect(cmdClose, &QPushButton::clicked, this, [this] { Close(Accepted); });
  tools_.runner.OnClick(cmdRemove, objectName(), [this] { Remove(); });
  tools_.runner.OnClick(cmdAcquireSuburbsFromClient, objectName(), [this] {
    AcquireSuburbsFromClients(business_);
    LoadSuburbsIntoGrid();
  });
  connect(grdSuburbs, &Grid::reordered, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("grdSuburbs_AfterMoveRow"), [this] {
      const auto row = grdSuburbs->SelectedRow();
      const QString moved = row ? Suburbs().value(*row) : QString();
      StoreSuburbOrder(business_, Suburbs());
      LoadSuburbsIntoGrid();
      Select(moved);
    });
  });
  // Queued, because the editor that made the change is still open and goes with the old rows.
  connect(
      grdSuburbs, &Grid::edited, this,
      [this](int row, int, const Value& typed) {
        tools_.runner.Run(objectName(), QStringLiteral("grdSuburbs_AfterEdit"),
                          [&] { AfterEdit(row, typed); });
      },
      Qt::QueuedConnection);
}

void frmSuburb_Position::LoadSuburbsIntoGrid() {
  std::vector<GridRow> rows;
  for (const SuburbPosition& suburb : ListSuburbPositions(business_))
    rows.push_back({{suburb.position, static_cast<qint64>(rows.size()), suburb.suburbName}});
  const size_t count = rows.size();
  grdSuburbs->SetRows(std::move(rows));
  lblCount->setText(count == 1 ? tr("1 suburb") : tr("%1 suburbs").arg(count));
}

QStringList frmSuburb_Position::Suburbs() const {
  QStringList names;
  for (const GridRow& row : grdSuburbs->Rows()) names.append(row.cells[kSuburb].value.ToText());
  return names;
}

void frmSuburb_Position::Select(const QString& suburb) {
  const qsizetype row = Suburbs().indexOf(suburb);
  if (row >= 0) grdSuburbs->SelectKey(row);
}

void frmSuburb_Position::AfterEdit(int row, const Value& typed) {
  const QString suburb = Suburbs().value(row);
  ChangeSuburbPosition(business_, suburb, static_cast<int>(typed.ToLong()));
  LoadSuburbsIntoGrid();
  Select(suburb);
  grdSuburbs->setFocus();
}

void frmSuburb_Position::Remove() {
  const auto row = grdSuburbs->SelectedRow();
  const auto suburb = row ? std::optional(Suburbs().value(*row)) : std::nullopt;
  if (IsAccepted(RemoveSuburb(business_, business_.World().prompter, suburb)))
    LoadSuburbsIntoGrid();
  grdSuburbs->setFocus();
}

}  // namespace quillary::lists
