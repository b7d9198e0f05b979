#include "clients/screens/frmCreateAQuote.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "clients/screens/WordCombo.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "lists/Choices.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTabBar>

/// What the screen of quotes shows and stores.
namespace quillary::clients {
namespace {

const char* const kNewServiceTab = "New service...";

}  // namespace

frmCreateAQuote::frmCreateAQuote(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmCreateAQuote"), QStringLiteral("Quotes")),
      business_(business),
      tools_(tools) {
  MakeClientControls();
  MakeQuoteControls();
  MakeServiceControls();
  MakeCommands();
  LayOut();
  state_.Watch({txtFirstname, txtSurname, txtDisplayName, txtStreetNumber, txtStreet, cmbSuburb,
                txtPostCode, txtMap, txtPhone1, txtEmail, txtNotes, dtQuoteDate, cmbService,
                txtPrice, txtServiceNotes});
  ConnectControls();
  ConnectCommands();
  quote_ = NewQuote(business_);
}

void frmCreateAQuote::ConnectControls() {
  connect(cmbClients, &ComboSearch::picked, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("cmbClients_Click"),
                           [this] { TakeClient(); });
  });
  connect(cmbSuburb, &WordCombo::wordsTaken, this, [this](const QString& suburb) {
    const QString code = suburbs_.PostCodeOf(suburb);
    if (!code.isEmpty()) txtPostCode->setText(code);
  });
  connect(tabServices, &QTabBar::currentChanged, this, [this](int) {
    TakeService();
    ShowService();
  });
  connect(cmbService, &ComboSearch::picked, this, [this] {
    TakeService();
    ShowTotal();
  });
  connect(txtPrice, &CurrencyField::textChanged, this, &frmCreateAQuote::ShowTotal);
  connect(txtPrice, &CurrencyField::amountRefused, this, [this] {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please enter a valid amount."));
  });
  connect(fgExistingQuotes, &Grid::rowOpened, cmdLoadQuote, &QPushButton::click);
  connect(fgExistingQuotes, &Grid::selectedRowChanged, this,
          [this] { cmdLoadQuote->setEnabled(fgExistingQuotes->SelectedRow().has_value()); });
  fgExistingQuotes->OfferCommands({cmdLoadQuote, cmdPrint, cmdRemoveQuote});
}

void frmCreateAQuote::ConnectCommands() {
  const auto on = [this](QPushButton* button, void (frmCreateAQuote::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdAddQuote, &frmCreateAQuote::AddQuoteClient);
  on(cmdLoadQuote, &frmCreateAQuote::LoadQuote);
  on(cmdAddNewQuote, &frmCreateAQuote::AddNewQuote);
  on(cmdRemoveQuote, &frmCreateAQuote::RemoveQuote);
  on(cmdAddAService, &frmCreateAQuote::AddAService);
  on(cmdRemoveService, &frmCreateAQuote::RemoveService);
  on(cmdMakeActive, &frmCreateAQuote::MakeActive);
  on(cmdPrint, &frmCreateAQuote::Print);
  tools_.runner.OnClick(cmdSave, objectName(), [this] { SaveRecords(); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
}

bool frmCreateAQuote::HasEdits() const {
  return state_.IsDataChanged() || linesChanged_;
}

bool frmCreateAQuote::MayLoseEdits() {
  if (!HasEdits()) return true;
  return business_.World().prompter.AskBeforeLosing(tr(
             "The quote has changes that are not saved. Do you want to lose them?")) == Answer::Yes;
}

bool frmCreateAQuote::MayClose() {
  return MayLoseEdits();
}

void frmCreateAQuote::ShowClient(std::optional<Id<Client>> client) {
  if (client == prospect_.client && HasEdits()) return;
  if (!MayLoseEdits()) return;
  prospect_ = Prospect{.client = client};
  ClearTabs();
  Reload();
  (client ? static_cast<QWidget*>(cmbService) : cmbClients)->setFocus();
}

void frmCreateAQuote::Reload() {
  const QSignalBlocker still(cmbClients);
  FillCombo(cmbClients, lists::ListClientChoices(business_));
  FillCombo(cmbService, lists::ListServiceChoices(business_));
  LoadSuburbsIntoCombo();
  LoadClientDetails();
  LoadExistingQuotes();
  if (!quote_.IsLoaded()) return ShowTabs(shownService_);
  // Of a quote that has gone meanwhile its services stay, as a new one.
  const int shown = shownService_;
  if (const auto stored = clients::LoadQuote(business_, *quote_.quote)) {
    quote_ = *stored;
  } else {
    quote_.quote.reset();
    for (QuoteService& line : quote_.services) line.line.reset();
  }
  ShowQuote();
  if (shown >= 0 && shown < tabServices->count()) tabServices->setCurrentIndex(shown);
}

void frmCreateAQuote::LoadSuburbsIntoCombo() {
  suburbs_ = ListSuburbChoices(business_);
  FillComboWithWords(cmbSuburb, suburbs_.suburbs);
}

void frmCreateAQuote::LoadClientDetails() {
  if (prospect_.client) prospect_ = LoadProspect(business_, *prospect_.client).value_or(Prospect());
  ShowProspect();
}

void frmCreateAQuote::ShowProspect() {
  SelectComboItem(cmbClients, prospect_.client);
  lblStatus->setText(prospect_.client ? prospect_.status.Text() : tr("Not stored yet"));
  txtFirstname->setText(prospect_.firstName);
  txtSurname->setText(prospect_.surname);
  txtDisplayName->setText(prospect_.displayName);
  txtStreetNumber->setText(prospect_.streetNumber);
  txtStreet->setText(prospect_.street);
  cmbSuburb->ShowWords(prospect_.suburb);
  txtPostCode->setText(prospect_.postCode);
  txtMap->setText(prospect_.map);
  txtPhone1->setText(prospect_.phone1);
  txtEmail->setText(prospect_.email);
  txtNotes->setPlainText(prospect_.notes);
  cmdMakeActive->setEnabled(prospect_.client && prospect_.IsQuoteClient());
  state_.ClearDataChanged();
}

void frmCreateAQuote::LoadExistingQuotes() {
  std::vector<GridRow> rows;
  if (prospect_.client) {
    for (const QuoteRow& quote : ListQuotes(business_, prospect_.client))
      rows.push_back({{quote.quote, quote.date, quote.description, quote.total}});
  }
  fgExistingQuotes->SetRows(std::move(rows));
  if (quote_.quote) fgExistingQuotes->SelectId(*quote_.quote);
  cmdLoadQuote->setEnabled(fgExistingQuotes->SelectedRow().has_value());
}

void frmCreateAQuote::ClearTabs() {
  quote_ = NewQuote(business_);
  ShowQuote();
}

void frmCreateAQuote::ShowQuote() {
  dtQuoteDate->SetDate(quote_.date);
  lblQuote->setText(quote_.IsLoaded() ? tr("Quote %1").arg(quote_.quote->Number())
                                      : tr("New quote"));
  ShowTabs(0);
  linesChanged_ = false;
  state_.ClearDataChanged();
}

void frmCreateAQuote::ShowTabs(int current) {
  if (quote_.services.empty()) quote_.services.emplace_back();
  {
    const QSignalBlocker still(tabServices);
    while (tabServices->count() > 0) tabServices->removeTab(0);
    for (const QuoteService& line : quote_.services)
      tabServices->addTab(line.name.isEmpty() ? QString::fromLatin1(kNewServiceTab) : line.name);
    tabServices->setCurrentIndex(std::clamp(current, 0, tabServices->count() - 1));
  }
  ShowService();
}

void frmCreateAQuote::ShowService() {
  shownService_ = tabServices->currentIndex();
  if (shownService_ < 0) return;
  const QuoteService& line = quote_.services[static_cast<size_t>(shownService_)];
  SelectComboItem(cmbService, line.service);
  txtPrice->SetAmount(line.price);
  txtServiceNotes->setPlainText(line.notes);
  for (QWidget* field : {static_cast<QWidget*>(cmbService), static_cast<QWidget*>(txtPrice),
                         static_cast<QWidget*>(txtServiceNotes)})
    state_.TakeAsStored(field);
  ShowTotal();
}

void frmCreateAQuote::ShowTotal() {
  Money total = quote_.Total();
  // What is being typed counts at once.
  if (shownService_ >= 0) {
    const QuoteService& line = quote_.services[static_cast<size_t>(shownService_)];
    if (line.service) total -= line.price;
    if (ComboId<Service>(cmbService))
      total += Money::Parse(txtPrice->text()).value_or(txtPrice->Amount());
  }
  lblTotal->setText(QStringLiteral("Total = ") + total.ToCurrencyText());
}

void frmCreateAQuote::TakeService() {
  if (shownService_ < 0 || static_cast<size_t>(shownService_) >= quote_.services.size()) return;
  QuoteService& line = quote_.services[static_cast<size_t>(shownService_)];
  QuoteService typed = line;
  typed.service = ComboId<Service>(cmbService);
  typed.name = typed.service ? cmbService->currentText() : QString();
  typed.price = txtPrice->Amount();
  typed.notes = txtServiceNotes->toPlainText();
  if (typed == line) return;
  line = typed;
  linesChanged_ = true;
  tabServices->setTabText(shownService_,
                          line.name.isEmpty() ? QString::fromLatin1(kNewServiceTab) : line.name);
}

void frmCreateAQuote::TakeTyped() {
  prospect_.firstName = txtFirstname->text();
  prospect_.surname = txtSurname->text();
  prospect_.displayName = txtDisplayName->text();
  prospect_.streetNumber = txtStreetNumber->text();
  prospect_.street = txtStreet->text();
  prospect_.suburb = cmbSuburb->currentText();
  prospect_.postCode = txtPostCode->text();
  prospect_.map = txtMap->text();
  prospect_.phone1 = txtPhone1->text();
  prospect_.email = txtEmail->text();
  prospect_.notes = txtNotes->toPlainText();
  quote_.date = dtQuoteDate->Date();
  TakeService();
}

void frmCreateAQuote::TakeClient() {
  const auto client = ComboId<Client>(cmbClients);
  if (client == prospect_.client) return;
  if (!MayLoseEdits()) {
    SelectComboItem(cmbClients, prospect_.client);
    return;
  }
  prospect_ = Prospect{.client = client};
  ClearTabs();
  LoadClientDetails();
  LoadExistingQuotes();
}

void frmCreateAQuote::AddQuoteClient() {
  if (!MayLoseEdits()) return;
  prospect_ = Prospect{.firstName = QString::fromLatin1(kNewProspectName)};
  ClearTabs();
  ShowProspect();
  LoadExistingQuotes();
  txtFirstname->setFocus();
  txtFirstname->selectAll();
}

void frmCreateAQuote::LoadQuote() {
  const auto chosen = fgExistingQuotes->SelectedId<Quote>();
  if (!chosen || !MayLoseEdits()) return;
  const auto stored = clients::LoadQuote(business_, *chosen);
  if (!stored) return LoadExistingQuotes();
  quote_ = *stored;
  ShowQuote();
  cmbService->setFocus();
}

void frmCreateAQuote::AddNewQuote() {
  if (!MayLoseEdits()) return;
  ClearTabs();
  cmbService->setFocus();
}

void frmCreateAQuote::RemoveQuote() {
  if (!RemoveQuoteAfterAsking(business_, business_.World().prompter, quote_.quote)) return;
  ClearTabs();
  LoadExistingQuotes();
}

void frmCreateAQuote::AddAService() {
  TakeService();
  const QuoteService& shown = quote_.services[static_cast<size_t>(shownService_)];
  if (!shown.service) {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please select a service..."));
    cmbService->setFocus();
    return;
  }
  quote_.services.emplace_back();
  ShowTabs(static_cast<int>(quote_.services.size()) - 1);
  cmbService->setFocus();
}

void frmCreateAQuote::RemoveService() {
  if (shownService_ < 0) return;
  const auto at = quote_.services.begin() + shownService_;
  if (at->line) RemoveQuoteService(business_, *at->line);
  linesChanged_ = true;
  quote_.services.erase(at);
  ShowTabs(shownService_);
  cmbService->setFocus();
}

bool frmCreateAQuote::SaveRecords() {
  TakeTyped();
  if (!Accepted(business_.World().prompter, this,
                clients::SaveRecords(business_, prospect_, quote_)))
    return false;
  linesChanged_ = false;
  state_.ClearDataChanged();
  Reload();
  return true;
}

void frmCreateAQuote::MakeActive() {
  TakeTyped();
  if (!MakeActiveAfterAsking(business_, business_.World().prompter, prospect_, quote_)) {
    if (!prospect_.client) cmbClients->setFocus();
    return;
  }
  const Id<Client> client = *prospect_.client;
  linesChanged_ = false;
  state_.ClearDataChanged();
  ClearTabs();
  Reload();
  // Its services have no rhythm yet: that is set where the client is edited.
  tools_.navigator.Open(OpenClient{client});
}

void frmCreateAQuote::Print() {
  if (!quote_.IsLoaded()) {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please select and load a quote to print."));
    return;
  }
  if (HasEdits() && !SaveRecords()) return;
  tools_.navigator.Open(PrintQuote{*quote_.quote, chkPricesExcludeGST->isChecked()});
}

}  // namespace quillary::clients
