#include "billing/screens/frmInvoiceNotesSelection.h"

#include "billing/invoices/InvoiceTexts.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

namespace quillary::billing {

frmInvoiceNotesSelection::frmInvoiceNotesSelection(Business& business, const ScreenTools& tools)
    : Dialog("frmInvoiceNotesSelection", tr("Existing invoice notes"), business.World().prompter) {
  txtFilter = MakeFilterBox(this);
  fgNotes = ForField("notes", new Grid(QStringLiteral("fgNotes")));
  fgNotes->setAccessibleName(tr("Notes of earlier invoices"));
  fgNotes->SetColumns({{tr("Note"), ColumnKind::Text, 480}, {{}, ColumnKind::HiddenId}});
  fgNotes->SetEmptyText(tr("No invoice has notes yet."), tr("Type them on the invoice."));
  fgNotes->FilterBy(txtFilter);
  fgNotes->setMinimumHeight(160);
  cmdClose = MakeButton("cmdClose", tr("&Cancel"));
  cmdSelect = MakeButton("cmdSelect", tr("&Select"), ButtonKind::Main);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(txtFilter);
  column->addWidget(fgNotes, 1);
  SetContent(column);
  SetRoom({640, 400});
  AddActions({cmdClose, cmdSelect});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  connect(fgNotes, &Grid::rowOpened, cmdSelect, &QPushButton::click);
  tools.runner.OnClick(cmdSelect, objectName(), [this] { Select(); });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"), [&] {
    notes_ = ListInvoiceNotes(business);
    std::vector<GridRow> rows;
    for (const QString& note : notes_) {
      GridRow row;
      row.cells = {note.simplified(), static_cast<qint64>(rows.size())};
      row.note = note;  // whole, with its lines
      rows.push_back(std::move(row));
    }
    fgNotes->SetRows(std::move(rows));
    fgNotes->setFocus();
  });
}

void frmInvoiceNotesSelection::Select() {
  const auto row = fgNotes->SelectedRow();
  if (!IsAccepted(CheckNoteSelected(row.has_value()))) return;
  note_ = notes_.at(*row);
  Close(Accepted);
}

}  // namespace quillary::billing
