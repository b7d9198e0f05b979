#include "clients/screens/frmClients.h"

#include "base/DateTime.h"
#include "clients/screens/ClientBillingPage.h"
#include "clients/screens/ClientDetailsPage.h"
#include "clients/screens/ClientFields.h"
#include "clients/screens/ClientGrids.h"
#include "clients/screens/ClientJobsPage.h"
#include "clients/screens/ClientMailsPage.h"
#include "clients/screens/ClientMoneyPages.h"
#include "clients/screens/ClientServicesPage.h"
#include "clients/screens/ClientSidePanel.h"
#include "kit/Chip.h"
#include "kit/Layouts.h"
#include "kit/PageTabs.h"

/// What the client screen shows: its frame, loading, and which part may be used.
namespace quillary::clients {

frmClients::frmClients(Business& business, const ScreenTools& tools)
    : Screen(QString::fromLatin1(kClientScreen), tr("Client: ")), desk_(business, tools) {
  EquipDesk();
  MakePages();
  MakeFrame();
  BindClientFields(this);
  LimitClientFields(business, this);
  record_.Watch(ClientFieldControls(this) + billing_->OwnFields());
  ConnectPages();
  ConnectCommands();
}

frmClients::~frmClients() = default;

void frmClients::EquipDesk() {
  desk_.takeFields = [this] { TakeFields(); };
  desk_.showRecord = [this] { ShowRecord(); };
  desk_.showIfSaved = [this] { ShowIfSaved(); };
  desk_.showBalance = [this] { ShowBalance(); };
  desk_.loadJobs = [this] { LoadJobs(); };
  desk_.loadMoney = [this] { LoadMoney(); };
  desk_.accepted = [this](const std::optional<Refusal>& refusal) { return Accept(refusal); };
}

void frmClients::MakePages() {
  details_ = new ClientDetailsPage(desk_);
  services_ = new ClientServicesPage(desk_);
  billing_ = new ClientBillingPage(desk_);
  future_ = new ClientJobsPage(desk_, JobsWhen::Future);
  past_ = new ClientJobsPage(desk_, JobsWhen::Past);
  invoices_ = new ClientInvoicesPage(desk_);
  payments_ = new ClientPaymentsPage(desk_);
  sites_ = new ClientSitesPage(desk_);
  mails_ = new ClientMailsPage(desk_);
  side_ = new ClientSidePanel(desk_);
  pages_ = new PageTabs("pages", tr("Parts of the client"));
  pages_->AddPage(details_, tr("Details"));
  pages_->AddPage(services_, tr("Services"));
  pages_->AddPage(billing_, tr("Billing"));
  pages_->AddPage(future_, tr("Future jobs"));
  pages_->AddPage(past_, tr("Past jobs"));
  pages_->AddPage(invoices_, tr("Invoices"));
  pages_->AddPage(payments_, tr("Payments"));
  pages_->AddPage(sites_, tr("Sites"));
  pages_->AddPage(mails_, tr("Mails"));
}

QLayout* frmClients::Header() {
  lblClientName = MakeLabel("lblClientName", {}, LabelRole::Title);
  lblClientName->setMinimumWidth(80);
  lblClientName->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  lblStatus = new Chip("lblStatus");
  lblStatus->setAccessibleName(tr("Status"));
  lblFacts = MakeLabel("lblFacts", {}, LabelRole::Muted);
  lblFacts->setMinimumWidth(40);
  lblFacts->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblOwing = MakeLabel("lblOwing", {}, LabelRole::Figure);
  lblOwing->setAccessibleName(tr("Currently owing"));
  lblOwingSince = MakeLabel("lblOwingSince", {}, LabelRole::Muted);
  auto* line = new QHBoxLayout;
  line->setSpacing(12);
  line->addWidget(lblClientName);
  line->addWidget(lblStatus);
  line->addWidget(lblFacts, 1);
  line->addWidget(MakeLabel("lblCurrentlyOwing", tr("Currently owing"), LabelRole::Muted));
  line->addWidget(lblOwing);
  line->addWidget(lblOwingSince);
  cmdAccountOfClient = MakeButton("cmdAccountOfClient", tr("Why?"), ButtonKind::Link);
  cmdAccountOfClient->setToolTip(tr("Every job and payment, with what was owed after each"));
  desk_.tools.runner.OnClick(cmdAccountOfClient, objectName(), [this] {
    if (const auto client = ClientId()) desk_.tools.navigator.Open(ShowAccountOfClient{client});
  });
  line->addWidget(cmdAccountOfClient);
  return line;
}

QLayout* frmClients::CommandLine() {
  cmdReloadClientScreen =
      MakeButton("cmdReloadClientScreen", tr("Refresh screen"), ButtonKind::Plain, "view-refresh");
  cmdReloadClientScreen->setToolTip(tr("Loads the client again (F5)"));
  cmdClose = MakeButton("cmdClose", QStringLiteral("&Close"));
  cmdSave = MakeButton("cmdSave", QStringLiteral("&Save"));
  cmdSave->setToolTip(tr("Ctrl+S"));
  cmdCloseAndSave =
      MakeButton("cmdCloseAndSave", QStringLiteral("Close && Save"), ButtonKind::Main);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(cmdReloadClientScreen);
  line->addStretch(1);
  for (QPushButton* button : {cmdClose, cmdSave, cmdCloseAndSave}) line->addWidget(button);
  return line;
}

void frmClients::MakeFrame() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(8);
  column->addLayout(Header());
  column->addWidget(pages_, 1);
  column->addLayout(CommandLine());
  PlaceShared();
}

void frmClients::PlaceShared() {
  if (pages_->IsShown(details_)) {
    details_->SideSlot()->addWidget(side_);
    details_->PayerSlot()->addWidget(billing_->PayerFrame());
    side_->FollowInTabOrder(billing_->PayerFollowsInTabOrder(details_->LastField()));
  } else if (pages_->IsShown(services_)) {
    services_->SideSlot()->addWidget(side_);
    side_->FollowInTabOrder(services_->LastField());
  } else if (pages_->IsShown(billing_)) {
    billing_->PayerSlot()->addWidget(billing_->PayerFrame());
    billing_->PayerFollowsInTabOrder(billing_->LastChoice());
  }
}

bool frmClients::ShowYourself(std::optional<Id<Client>> client) {
  return Load(client);
}

void frmClients::Enter() {
  FocusField(this,
             desk_.edit.client.IsNew() ? QStringLiteral("txtFirstname") : pages_->objectName());
}

void frmClients::ShowTransferOfPayments() {
  pages_->ShowPage(payments_);
  FocusField(this, QStringLiteral("cmbTransferTo"));
}

bool frmClients::Load(std::optional<Id<Client>> client) {
  Business& business = desk_.business;
  auto edit = client ? LoadClientEdit(business, *client) : NewClientEdit();
  if (!edit) {
    desk_.Prompt().Tell(Tone::Exclamation, tr("This client is no longer in the file."));
    return false;
  }
  const bool isSame = desk_.edit.client.clientId == client;
  desk_.edit = std::move(*edit);
  RefreshBillingDetails(business, desk_.edit.client);
  LoadChoices();
  ShowRecord();
  services_->ShowServices(isSame ? services_->Element() : 0);
  LoadJobs();
  LoadMoney();
  pages_->SetCount(sites_, sites_->LoadSites());
  return true;
}

void frmClients::LoadChoices() {
  details_->LoadChoices();
  services_->LoadChoices();
  billing_->LoadChoices();
  payments_->LoadChoices();
}

void frmClients::ShowRecord() {
  ShowClientFields(this, desk_.edit.client);
  details_->ShowClient();
  billing_->ShowBilling();
  billing_->ShowDebtorSince();
  billing_->ShowOwing();
  setWindowTitle(tr("Client: ") +
                 (desk_.edit.client.IsNew() ? tr("new") : desk_.edit.client.displayName));
  const StoredClientStatus& status = desk_.edit.client.status;
  lblStatus->ShowStatus(status.Text(), HueOf(status));
  ShowHeader();
  // What the lists do not offer cannot be shown, and is no change that the user made.
  TakeFields();
  desk_.edit.loaded = desk_.edit.client;
  record_.ClearDataChanged();
  EnableParts();
}

void frmClients::ShowIfSaved() {
  if (desk_.edit.client == desk_.edit.loaded) ShowRecord();
}

void frmClients::ShowHeader() {
  const ClientRecord& client = desk_.edit.client;
  const QString name = client.displayName.trimmed();
  lblClientName->setText(name.isEmpty() ? tr("New client") : name);
  QStringList facts;
  facts += client.IsNew() ? tr("not stored yet") : tr("Client %1").arg(client.clientId->Number());
  const QString jobType = desk_.edit.services.front().status.Text();
  if (!jobType.isEmpty()) facts += jobType;
  const QString payer = billing_->PayerName();
  facts += client.IsBilledTo() ? tr("billed to the same address")
           : payer.isEmpty()   ? tr("billed to a client that is no longer there")
                               : tr("billed to %1").arg(payer);
  lblFacts->setText(facts.join(QStringLiteral(" · ")));
  lblFacts->setToolTip(lblFacts->text());
  const bool owes = client.CurrentlyOwing() > Money() && client.debtorSince;
  lblOwing->setText(client.CurrentlyOwing().ToCurrencyText());
  lblOwingSince->setText(owes ? tr("since %1").arg(ToShortDateText(*client.debtorSince))
                              : QString());
  lblOwingSince->setVisible(owes);
  cmdAccountOfClient->setVisible(ClientId() &&
                                 desk_.tools.navigator.CanOpen<ShowAccountOfClient>());
}

void frmClients::ShowBilling() {
  TakeFields();
  details_->ShowClient();
  billing_->ShowBilling();
  ShowHeader();
  EnableParts();
}

void frmClients::ShowBalance() {
  QWidget* since = billing_->DebtorSinceField();
  const bool typed = record_.IsChanged(since);
  auto& [client, loaded, services, loadedServices] = desk_.edit;
  RefreshBillingDetails(desk_.business, client);
  loaded.accountBalance = client.accountBalance;
  billing_->ShowOwing();
  if (typed) {
    billing_->TakeDebtorSince();  // a day that the user has typed stays
  } else {
    loaded.debtorSince = client.debtorSince;
    billing_->ShowDebtorSince();
    record_.TakeAsStored(since);
  }
  ShowHeader();
}

void frmClients::TakeFields() {
  TakeClientFields(this, desk_.edit.client);
  billing_->TakeDebtorSince();
}

void frmClients::LoadJobs() {
  future_->LoadJobs();
  past_->LoadJobs();
  side_->ShowJobs(future_->Jobs());
  pages_->SetCount(future_, future_->Jobs().size());
  pages_->SetCount(past_, past_->Jobs().size());
}

void frmClients::LoadMoney() {
  pages_->SetCount(invoices_, invoices_->LoadInvoices());
  pages_->SetCount(payments_, payments_->LoadPayments());
  pages_->SetCount(mails_, mails_->LoadMails());
}

void frmClients::EnableParts() {
  const ClientParts parts = PartsOf(desk_.edit.client);
  for (const QWidget* page : std::initializer_list<const QWidget*>{
           services_, billing_, future_, past_, invoices_, payments_, sites_, mails_})
    pages_->EnablePage(page, parts.otherTabs);
  services_->EnableSchedule(parts.schedule);
  invoices_->EnableFrame(parts.invoicesAndPayments);
  payments_->EnableFrame(parts.invoicesAndPayments, parts.paymentNote);
}

bool frmClients::IsDataChanged() const {
  return record_.IsDataChanged() || services_->IsDataChanged() ||
         desk_.edit.client.otherPayer != desk_.edit.loaded.otherPayer;
}

}  // namespace quillary::clients
