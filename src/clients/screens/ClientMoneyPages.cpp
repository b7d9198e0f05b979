#include "clients/screens/ClientMoneyPages.h"

#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "clients/screens/ClientGrids.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "lists/Choices.h"

#include <algorithm>
#include <iterator>

namespace quillary::clients {

namespace {

Grid* MakeGrid(const ClientDesk& desk, const char* name, const QString& heardAs,
               std::vector<GridColumn> columns, QLineEdit* filter) {
  auto* grid = new Grid(QString::fromLatin1(name));
  grid->setAccessibleName(heardAs);
  grid->SetColumns(std::move(columns));
  grid->RememberIn(desk.business.World().settings);
  grid->FilterBy(filter);
  grid->setMinimumHeight(140);
  return grid;
}

/// The search box, the list and the commands, destructive ones apart at the left.
QVBoxLayout* Page(QLineEdit* filter, Grid* grid, const QList<QWidget*>& left,
                  const QList<QWidget*>& right) {
  filter->setFixedWidth(240);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  for (QWidget* control : left) commands->addWidget(control);
  commands->addStretch(1);
  for (QWidget* control : right) commands->addWidget(control);
  auto* column = new QVBoxLayout;
  column->setContentsMargins(0, 12, 0, 8);
  column->setSpacing(12);
  column->addWidget(filter);
  column->addWidget(grid, 1);
  column->addLayout(commands);
  return column;
}

QWidget* Frame(const char* name, QLayout* content) {
  auto* frame = new QWidget;
  frame->setObjectName(QLatin1StringView(name));
  frame->setLayout(content);
  return frame;
}

}  // namespace

ClientInvoicesPage::ClientInvoicesPage(ClientDesk& desk) : desk_(desk) {
  txtInvoiceFilter = MakeFilterBox(this, "txtInvoiceFilter");
  grdInvoices = MakeGrid(desk, "grdInvoices", tr("Invoices"), InvoiceColumns(), txtInvoiceFilter);
  grdInvoices->SetEmptyText(tr("No invoice was made out to this client."),
                            tr("Invoices come from done jobs."));
  cmdDeleteInvoice = MakeButton("cmdDeleteInvoice", tr("De&lete invoice"), ButtonKind::Danger);
  cmdCreateInvoice = MakeButton("cmdCreateInvoice", tr("&Create invoice..."));
  cmdEditInvoice = MakeButton("cmdEditInvoice", tr("&Edit invoice..."), ButtonKind::Main);
  LayOut();
  desk_.OnClick(cmdDeleteInvoice, [this] { DeleteSelected(); });
  desk_.OnClick(cmdCreateInvoice, [this] {
    desk_.tools.navigator.Open(AddInvoice{.client = desk_.edit.client.clientId});
    desk_.loadMoney();
    desk_.loadJobs();
  });
  desk_.OnClick(cmdEditInvoice, [this] {
    const auto invoice = grdInvoices->SelectedId<Invoice>();
    if (!invoice) return;
    desk_.tools.navigator.Open(EditInvoice{*invoice});
    desk_.loadMoney();
  });
  connect(grdInvoices, &Grid::selectedRowChanged, this, &ClientInvoicesPage::EnableCommands);
  connect(grdInvoices, &Grid::rowOpened, cmdEditInvoice, &QPushButton::click);
  EnableCommands();
}

void ClientInvoicesPage::LayOut() {
  fraPreviousInvoices = Frame(
      "fraPreviousInvoices",
      Page(txtInvoiceFilter, grdInvoices, {cmdDeleteInvoice}, {cmdCreateInvoice, cmdEditInvoice}));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(fraPreviousInvoices);
}

void ClientInvoicesPage::EnableCommands() {
  const Navigator& to = desk_.tools.navigator;
  cmdCreateInvoice->setEnabled(to.CanOpen<AddInvoice>());
  cmdEditInvoice->setEnabled(to.CanOpen<EditInvoice>() && grdInvoices->SelectedRow());
}

size_t ClientInvoicesPage::LoadInvoices() {
  const auto kept = grdInvoices->SelectedId<Invoice>();
  const auto client = desk_.edit.client.clientId;
  const auto invoices =
      client ? LoadClientInvoices(desk_.business, *client) : std::vector<ClientInvoice>();
  grdInvoices->SetRows(InvoiceRows(invoices));
  if (kept) grdInvoices->SelectId(*kept);
  EnableCommands();
  return invoices.size();
}

void ClientInvoicesPage::EnableFrame(bool on) {
  fraPreviousInvoices->setEnabled(on);
}

void ClientInvoicesPage::DeleteSelected() {
  if (!desk_.accepted(
          DeleteClientInvoice(desk_.business, desk_.Prompt(), grdInvoices->SelectedId<Invoice>())))
    return;
  desk_.loadMoney();
  desk_.loadJobs();
  desk_.showBalance();
}

ClientPaymentsPage::ClientPaymentsPage(ClientDesk& desk) : desk_(desk) {
  MakeControls();
  LayOut();
  desk_.OnClick(cmdTransferPayments, [this] { Transfer(); });
  desk_.OnClick(cmdAddPayment, [this] {
    if (!MayAddPaymentWithoutJob(desk_.Prompt())) return;
    desk_.tools.navigator.Open(AddPayment{.client = desk_.edit.client.clientId});
    desk_.loadMoney();
    desk_.showBalance();
  });
  desk_.OnClick(cmdEditPayment, [this] {
    const auto payment = grdPayments->SelectedId<Payment>();
    if (!payment) return;
    desk_.tools.navigator.Open(ViewPayment{*payment});
    desk_.loadMoney();
    desk_.showBalance();
  });
  connect(grdPayments, &Grid::selectedRowChanged, this, &ClientPaymentsPage::EnableCommands);
  connect(grdPayments, &Grid::rowOpened, cmdEditPayment, &QPushButton::click);
  EnableCommands();
}

void ClientPaymentsPage::MakeControls() {
  lblPaymentNote =
      MakeLabel("lblPaymentNote", QString::fromLatin1(kPaymentNote), LabelRole::Warning);
  txtPaymentFilter = MakeFilterBox(this, "txtPaymentFilter");
  grdPayments = MakeGrid(desk_, "grdPayments", tr("Payments"), PaymentColumns(), txtPaymentFilter);
  grdPayments->SetEmptyText(tr("No payment of this client is recorded."), {});
  cmbTransferTo = ForField("transferTo", Named(new ComboSearch, "cmbTransferTo"));
  cmbTransferTo->setMinimumContentsLength(8);
  cmbTransferTo->setFixedWidth(240);
  cmdTransferPayments = MakeButton("cmdTransferPayments", tr("&Transfer..."));
  cmdAddPayment = MakeButton("cmdAddPayment", tr("Add pa&yment..."));
  cmdEditPayment = MakeButton("cmdEditPayment", tr("&Edit payment..."), ButtonKind::Main);
}

void ClientPaymentsPage::LayOut() {
  fraPayments = Frame("fraPayments",
                      Page(txtPaymentFilter, grdPayments, {}, {cmdAddPayment, cmdEditPayment}));
  // Outside the frame: a client whose payments now belong to its payer is the one to transfer them.
  auto* transfer = new QHBoxLayout;
  transfer->setSpacing(8);
  transfer->setContentsMargins(0, 0, 0, 8);
  transfer->addWidget(MakeLabelFor(cmbTransferTo, tr("Transfer the payments listed above t&o")));
  transfer->addWidget(cmbTransferTo);
  transfer->addWidget(cmdTransferPayments);
  transfer->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  lblPaymentNote->setContentsMargins(0, 12, 0, 0);
  column->addWidget(lblPaymentNote);
  column->addWidget(fraPayments, 1);
  column->addLayout(transfer);
}

void ClientPaymentsPage::LoadChoices() {
  FillCombo(cmbTransferTo, lists::ListClientChoices(desk_.business));
}

size_t ClientPaymentsPage::LoadPayments() {
  const auto kept = grdPayments->SelectedId<Payment>();
  const auto client = desk_.edit.client.clientId;
  payments_ = client ? LoadClientPayments(desk_.business, *client) : std::vector<ClientPayment>();
  grdPayments->SetRows(PaymentRows(payments_));
  if (kept) grdPayments->SelectId(*kept);
  EnableCommands();
  return payments_.size();
}

void ClientPaymentsPage::EnableFrame(bool on, bool note) {
  fraPayments->setEnabled(on);
  lblPaymentNote->setVisible(note);
}

void ClientPaymentsPage::EnableCommands() {
  const Navigator& to = desk_.tools.navigator;
  cmdAddPayment->setEnabled(to.CanOpen<AddPayment>());
  cmdEditPayment->setEnabled(to.CanOpen<ViewPayment>() && grdPayments->SelectedRow());
}

void ClientPaymentsPage::Transfer() {
  const std::vector<qint64> shown = grdPayments->ShownKeys();
  std::vector<ClientPayment> listed;
  std::ranges::copy_if(payments_, std::back_inserter(listed), [&](const ClientPayment& payment) {
    return std::ranges::find(shown, payment.payment.Number()) != shown.end();
  });
  if (!desk_.accepted(TransferPayments(desk_.business, desk_.Prompt(), *desk_.edit.client.clientId,
                                       listed, ComboId<Client>(cmbTransferTo))))
    return;
  desk_.loadMoney();
  desk_.showBalance();
}

ClientSitesPage::ClientSitesPage(ClientDesk& desk) : desk_(desk) {
  txtSiteFilter = MakeFilterBox(this, "txtSiteFilter");
  grdAttachedClients = MakeGrid(desk, "grdAttachedClients", tr("Sites billed to this client"),
                                SiteColumns(), txtSiteFilter);
  grdAttachedClients->SetEmptyText(tr("Nobody is billed to this client."),
                                   tr("A client who pays for itself is its own first site."));
  cmdOpenSite = MakeButton("cmdOpenSite", tr("Cl&ient details..."), ButtonKind::Main);
  setLayout(Page(txtSiteFilter, grdAttachedClients, {}, {cmdOpenSite}));
  desk_.OnClick(cmdOpenSite, [this] {
    if (const auto site = grdAttachedClients->SelectedId<Client>())
      desk_.tools.navigator.Open(OpenClient{*site});
  });
  connect(grdAttachedClients, &Grid::selectedRowChanged, this,
          [this] { cmdOpenSite->setEnabled(grdAttachedClients->SelectedRow().has_value()); });
  connect(grdAttachedClients, &Grid::rowOpened, cmdOpenSite, &QPushButton::click);
  cmdOpenSite->setEnabled(false);
}

size_t ClientSitesPage::LoadSites() {
  const auto kept = grdAttachedClients->SelectedId<Client>();
  const auto client = desk_.edit.client.clientId;
  const auto sites =
      client ? quillary::clients::LoadSites(desk_.business, *client) : std::vector<Site>();
  grdAttachedClients->SetRows(SiteRows(sites));
  if (kept) grdAttachedClients->SelectId(*kept);
  return sites.size();
}

}  // namespace quillary::clients
