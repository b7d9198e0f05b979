#include "mail/screens/frmEmailList.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "mail/DocumentMails.h"
#include "mail/Sending.h"

#include <QComboBox>
#include <QPlainTextEdit>

namespace quillary::mail {

void FillWithRoutes(QComboBox* combo, const std::vector<Route>& routes, Route chosen) {
  for (const Route route : routes) combo->addItem(WordOf(route), CodeOf(route));
  combo->setCurrentIndex(combo->findData(CodeOf(chosen)));
}

Route ChosenIn(const QComboBox* combo) {
  return RouteFromCode(combo->currentData().toString()).value_or(Route::HeadOffice);
}

frmEmailList::frmEmailList(Business& business, const ScreenTools& tools,
                           const std::vector<Id<Client>>& clients)
    : Dialog("frmEmailList", QStringLiteral("Email List"), business.World().prompter),
      business_(business) {
  txtFilter = MakeFilterBox(this);
  fgEmailList = new Grid(QStringLiteral("fgEmailList"));
  fgEmailList->setAccessibleName(tr("Email addresses"));
  fgEmailList->SetColumns({{{}, ColumnKind::HiddenId},
                           {tr("Client"), ColumnKind::StrongText, 240},
                           {tr("Email"), ColumnKind::Text, 280}});
  fgEmailList->SetEmptyText(tr("No address is known."),
                            tr("Type one below, or enter it in the client's record."));
  fgEmailList->FilterBy(txtFilter);
  fgEmailList->RememberIn(business.World().settings);
  fgEmailList->setMinimumHeight(136);
  lblSelectedEmail = ForField("address", Named(new QLineEdit, "lblSelectedEmail"));
  txtMessage = Named(new QPlainTextEdit, "txtMessage");
  txtMessage->setTabChangesFocus(true);
  txtMessage->setMinimumHeight(104);
  txtMessage->setPlainText(DefaultText(business));
  cmbRoute = Named(new QComboBox, "cmbRoute");
  FillWithRoutes(cmbRoute, {Route::HeadOffice, Route::LocalMailClient, Route::Smtp},
                 ChosenRoute(business));
  cmdCancel = MakeButton("cmdCancel", QStringLiteral("&Cancel"));
  cmdOK = MakeButton("cmdOK", QStringLiteral("Send"), ButtonKind::Main);
  LayOut();
  LoadClientEmail(clients);
  connect(fgEmailList, &Grid::selectedRowChanged, this, &frmEmailList::TakeRow);
  connect(fgEmailList, &Grid::rowOpened, cmdOK, &QPushButton::click);
  connect(cmdCancel, &QPushButton::clicked, this, [this] { Close(Rejected); });
  tools.runner.OnClick(cmdOK, objectName(), [this] { Send(); });
}

void frmEmailList::LayOut() {
  auto* over = new QHBoxLayout;
  over->addWidget(MakeLabel("lblChoose", QStringLiteral("PLEASE CHOOSE AN EMAIL ADDRESS")), 1);
  over->addWidget(txtFilter);
  txtFilter->setFixedWidth(240);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(fgEmailList, 1);
  column->addLayout(InLine({{LabelOver(lblSelectedEmail, tr("Send &to")), 2},
                            {LabelOver(cmbRoute, tr("Send &by")), 1}}));
  column->addLayout(LabelOver(txtMessage, QStringLiteral("EMAIL BOD&Y")));
  SetContent(column);
  SetRoom({640, 480});
  AddActions({cmdCancel, cmdOK});
}

void frmEmailList::LoadClientEmail(const std::vector<Id<Client>>& clients) {
  addresses_ =
      clients.empty() ? LoadAllEmail(business_) : mail::LoadClientEmail(business_, clients);
  std::vector<GridRow> rows;
  for (size_t at = 0; at < addresses_.size(); ++at)
    rows.push_back(
        {.cells = {static_cast<qint64>(at), addresses_[at].name, addresses_[at].address}});
  fgEmailList->SetRows(std::move(rows));
  // Of one client the first address is meant; among everybody's, none is.
  if (!clients.empty() && !addresses_.empty()) {
    fgEmailList->SelectFirst();
    TakeRow();
  }
}

void frmEmailList::TakeRow() {
  if (const auto row = fgEmailList->SelectedRow())
    lblSelectedEmail->setText(addresses_[static_cast<size_t>(*row)].address);
}

void frmEmailList::Send() {
  if (const auto fault = FaultOfAddress(lblSelectedEmail->text().trimmed())) {
    IsAccepted(Refusal{*fault, QStringLiteral("address")});
    return;
  }
  Close(Accepted);
}

std::optional<SelectedEmail> frmEmailList::SelectAnEmail() {
  if (exec() != Accepted) return std::nullopt;
  SelectedEmail selected;
  selected.address = lblSelectedEmail->text().trimmed();
  selected.name = selected.address;
  selected.text = txtMessage->toPlainText();
  selected.route = ChosenIn(cmbRoute);
  const auto known = std::ranges::find(addresses_, selected.address, &ClientAddress::address);
  if (known != addresses_.end()) {
    selected.name = known->name;
    selected.client = known->client;
  }
  return selected;
}

}  // namespace quillary::mail
