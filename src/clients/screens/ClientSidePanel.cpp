#include "clients/screens/ClientSidePanel.h"

#include "clients/screens/ClientGrids.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QPlainTextEdit>

namespace quillary::clients {

namespace {

constexpr size_t kShownJobs = 3;

QPlainTextEdit* NotesBox(const char* name) {
  auto* box = Named(new QPlainTextEdit, name);
  box->setTabChangesFocus(true);
  box->setMinimumHeight(44);
  return box;
}

/// Words that head a part, and a remark beside them.
QBoxLayout* Heading(QLabel* words, QLabel* remark) {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  QFont strong = words->font();
  strong.setWeight(QFont::DemiBold);
  words->setFont(strong);
  line->addWidget(words);
  remark->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  line->addWidget(remark, 1);
  return line;
}

}  // namespace

ClientSidePanel::ClientSidePanel(ClientDesk&) {
  setObjectName(QStringLiteral("fraSide"));
  lblNextJobs = MakeLabel("lblNextJobs", {}, LabelRole::Muted);
  grdNextJobs = new Grid(QStringLiteral("grdNextJobs"));
  grdNextJobs->SetColumns(NextJobColumns());
  grdNextJobs->SetEmptyText(tr("No job is planned."), {});
  grdNextJobs->setFixedHeight(31 + 3 * 35 + 4);
  grdNextJobs->setMinimumWidth(160);
  txtGeneralNotes = NotesBox("txtGeneralNotes");
  txtPrivateNotes = NotesBox("txtPrivateNotes");

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addLayout(
      Heading(MakeLabelFor(grdNextJobs, tr("Next jobs"), LabelRole::Plain), lblNextJobs));
  column->addWidget(grdNextJobs);
  column->addSpacing(4);
  column->addLayout(Heading(MakeLabelFor(txtGeneralNotes, tr("Diar&y notes"), LabelRole::Plain),
                            MakeLabel("", tr("printed on work sheets"), LabelRole::Muted)));
  column->addWidget(txtGeneralNotes, 3);
  column->addLayout(Heading(MakeLabelFor(txtPrivateNotes, tr("Fi&le notes"), LabelRole::Plain),
                            MakeLabel("", tr("kept to the office"), LabelRole::Muted)));
  column->addWidget(txtPrivateNotes, 2);
  connect(grdNextJobs, &Grid::rowOpened, this,
          [this](int row) { emit jobOpened(grdNextJobs->IdAt<Entry>(row)); });
}

void ClientSidePanel::FollowInTabOrder(QWidget* last) {
  setTabOrder(last, grdNextJobs);
  setTabOrder(grdNextJobs, txtGeneralNotes);
  setTabOrder(txtGeneralNotes, txtPrivateNotes);
}

void ClientSidePanel::ShowJobs(const std::vector<ClientJob>& futureJobs) {
  const size_t shown = qMin(futureJobs.size(), kShownJobs);
  lblNextJobs->setText(futureJobs.empty() ? QString()
                                          : tr("%1 of %2").arg(shown).arg(futureJobs.size()));
  grdNextJobs->SetRows(NextJobRows(futureJobs, kShownJobs));
}

}  // namespace quillary::clients
