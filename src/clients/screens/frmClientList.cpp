#include "clients/screens/frmClientList.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "clients/DeleteClient.h"
#include "clients/screens/ClientGrids.h"
#include "kit/Combos.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"
#include "kit/ShownList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>

namespace quillary::clients {

frmClientList::frmClientList(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmClientList"), QStringLiteral("Clients")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
}

void frmClientList::MakeControls() {
  txtSearch = MakeFilterBox(this, "txtSearch");
  txtSearch->setPlaceholderText(tr("Find by name, street, suburb or phone"));
  txtSearch->setAccessibleName(tr("Find a client by name, street, suburb or phone"));
  txtSearch->setMinimumWidth(280);
  txtSearch->installEventFilter(this);
  cboStatus = Named(new QComboBox, "cboStatus");
  FillComboWithWords(cboStatus, ClientListStatuses());
  cboStatus->setCurrentIndex(0);
  chkRegular =
      Named(new QCheckBox(tr("Re&gular clients only")), "chkRegular", tr("Regular clients only"));
  cmdRefresh = MakeButton("cmdRefresh", tr("Refresh"), ButtonKind::Plain, "view-refresh");
  cmdRefresh->setToolTip(tr("Loads the list again (F5)"));
  grdClients = new Grid(QStringLiteral("grdClients"));
  grdClients->setAccessibleName(tr("Clients"));
  grdClients->SetColumns(ClientListColumns());
  grdClients->RememberIn(business_.World().settings);
  grdClients->setMinimumHeight(120);
  lblCount = MakeLabel("lblCount", {}, LabelRole::Muted);
  cmdDelete = MakeButton("cmdDelete", tr("De&lete client"), ButtonKind::Danger);
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdPrintGrid->setShortcut(QKeySequence::Print);
  cmdPrintGrid->setEnabled(tools_.navigator.CanOpen<PrintList>());
  cmdMailMerge = MakeButton("cmdMailMerge", tr("Mail &merge..."));
  cmdMailMerge->setToolTip(tr("Writes a file that word processors merge into letters"));
  cmdMailMerge->setEnabled(tools_.navigator.CanOpen<OpenMailMerge>());
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdNew = MakeButton("cmdNew", tr("Add ne&w client"), ButtonKind::Plain, "list-add");
  cmdNew->setToolTip(tr("Ctrl+N"));
  cmdView = MakeButton("cmdView", tr("De&tails..."), ButtonKind::Main);
}

void frmClientList::LayOut() {
  auto* status = new QWidget;
  auto* pair = new QHBoxLayout(status);
  pair->setContentsMargins(0, 0, 0, 0);
  pair->setSpacing(8);
  pair->addWidget(MakeLabelFor(cboStatus, tr("Stat&us")));
  pair->addWidget(cboStatus);
  auto* over = new FlowLayout;
  over->AddWidgets({txtSearch, status, chkRegular});
  over->AddWidgets({cmdRefresh}, Qt::AlignRight);
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdDelete, cmdPrintGrid, cmdMailMerge, lblCount});
  commands->AddWidgets({cmdClose, cmdNew, cmdView}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grdClients, 1);
  column->addLayout(commands);
}

void frmClientList::ConnectControls() {
  const auto onClick = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  connect(txtSearch, &QLineEdit::textChanged, this, &frmClientList::ShowFound);
  connect(cboStatus, &QComboBox::currentIndexChanged, this, &frmClientList::LoadClientsIntoGrid);
  connect(chkRegular, &QCheckBox::toggled, this, &frmClientList::LoadClientsIntoGrid);
  connect(cmdRefresh, &QPushButton::clicked, this, &frmClientList::LoadClientsIntoGrid);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdClients, &Grid::rowOpened, cmdView, &QPushButton::click);
  onClick(cmdView, [this] { View(); });
  onClick(cmdNew, [this] { tools_.navigator.Open(AddClient{}); });
  onClick(cmdDelete, [this] { Delete(); });
  onClick(cmdMailMerge, [this] { tools_.navigator.Open(OpenMailMerge{}); });
  onClick(cmdPrintGrid, [this] { tools_.navigator.Open(ShownList(windowTitle(), grdClients)); });
  AddShortcut(this, QKeySequence::New, cmdNew);
}

void frmClientList::ShowYourself() {
  LoadClientsIntoGrid();
  txtSearch->setFocus();
}

void frmClientList::LoadClientsIntoGrid() {
  tools_.runner.Run(objectName(), QStringLiteral("LoadClientsIntoGrid"), [this] {
    list_ = ClientList::Load(business_, {.status = ClientListStatusOf(cboStatus->currentText()),
                                         .kinds = chkRegular->isChecked() ? ClientKinds::RegularOnly
                                                                          : ClientKinds::All});
    rows_.clear();
    rows_.reserve(list_.Rows().size());
    for (const ClientListRow& client : list_.Rows()) rows_.push_back(ClientListGridRow(client));
    ShowFound();
  });
}

void frmClientList::ShowFound() {
  const auto kept = grdClients->SelectedId<Client>();
  std::vector<GridRow> found;
  for (const size_t at : list_.Search(txtSearch->text())) found.push_back(rows_[at]);
  lblCount->setText(ListCountWords(found.size()));
  const bool searching = !txtSearch->text().trimmed().isEmpty() && !rows_.empty();
  grdClients->SetEmptyText(
      searching ? tr("No client has all these words.") : tr("No client is in this list."),
      searching ? tr("Type less, or choose another status.")
                : tr("Choose another status, or add a client."));
  grdClients->SetRows(std::move(found));
  if (!kept || !grdClients->SelectId(*kept)) grdClients->SelectFirst();
}

bool frmClientList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != txtSearch || event->type() != QEvent::KeyPress)
    return Screen::eventFilter(watched, event);
  // One types, sees the client and opens it without leaving the box.
  auto* key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      cmdView->click();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      QCoreApplication::sendEvent(grdClients, event);
      return true;
    default:
      return Screen::eventFilter(watched, event);
  }
}

void frmClientList::View() {
  const auto client = grdClients->SelectedId<Client>();
  if (Accepted(business_.World().prompter, this,
               CheckClientSelected(ClientListCommand::View, client)))
    tools_.navigator.Open(OpenClient{*client});
}

void frmClientList::Delete() {
  const auto client = grdClients->SelectedId<Client>();
  if (!Accepted(business_.World().prompter, this,
                CheckClientSelected(ClientListCommand::Delete, client)))
    return;
  if (DeleteClientAfterAsking(business_, business_.World().prompter, *client))
    LoadClientsIntoGrid();
}

}  // namespace quillary::clients
