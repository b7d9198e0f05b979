#include "clients/screens/ClientBillingPage.h"
#include "clients/screens/ClientDetailsPage.h"
#include "clients/screens/ClientGrids.h"
#include "clients/screens/ClientJobsPage.h"
#include "clients/screens/ClientServicesPage.h"
#include "clients/screens/ClientSidePanel.h"
#include "clients/screens/frmClients.h"
#include "clients/screens/frmNewBillingAddress.h"
#include "kit/Chip.h"
#include "kit/PageTabs.h"
#include "kit/Shortcuts.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

/// The client screen's commands, and how it is left.
namespace quillary::clients {

void frmClients::ConnectPages() {
  connect(pages_, &QTabWidget::currentChanged, this, &frmClients::PlaceShared);
  connect(details_, &ClientDetailsPage::statusChosen, this, [this] {
    const StoredClientStatus status = details_->Status();
    desk_.edit.client.status = status;
    lblStatus->ShowStatus(status.Text(), HueOf(status));
    EnableParts();
  });
  connect(details_, &ClientDetailsPage::nameTyped, this, [this](const QString& name) {
    lblClientName->setText(name.trimmed().isEmpty() ? tr("New client") : name.trimmed());
  });
  const auto choose = [this](BillingChoice choice) {
    desk_.Run("cmbBillingGoesTo_Click", [&] { ChooseBilling(choice); });
  };
  connect(details_, &ClientDetailsPage::billingChosen, this, choose);
  connect(billing_, &ClientBillingPage::billingChosen, this, choose);
  connect(billing_, &ClientBillingPage::payerChosen, this, [this](Id<Client> payer) {
    desk_.Run("cmbOtherAddressToBill_Click", [&] { ChoosePayer(payer); });
  });
  connect(side_, &ClientSidePanel::jobOpened, this, [this](Id<Entry> entry) {
    desk_.Run("grdNextJobs_DblClick", [&] { future_->OpenJob(entry); });
  });
  for (ClientJobsPage* page : {future_, past_})
    connect(page, &ClientJobsPage::addWanted, this,
            [this] { desk_.Run("cmdAddOnceOff_Click", [this] { services_->AddAJob(); }); });
}

void frmClients::ConnectCommands() {
  desk_.OnClick(cmdSave, [this] { Save(); });
  desk_.OnClick(cmdCloseAndSave, [this] { CloseAndSave(); });
  desk_.OnClick(cmdReloadClientScreen, [this] { ReloadAfterAsking(); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  AddShortcut(this, QKeySequence::Save, cmdSave);
}

bool frmClients::Accept(const std::optional<Refusal>& refusal) {
  if (refusal) billing_->Reveal(refusal->field);
  return Accepted(desk_.Prompt(), this, refusal);
}

void frmClients::ChooseBilling(BillingChoice choice) {
  TakeFields();
  if (choice == BillingChoice::SameAddress) {
    BillSameAddress(desk_.edit.client);
    ShowBilling();
  } else if (choice == BillingChoice::NewAddress) {
    frmNewBillingAddress dialog(desk_.business, desk_.tools);
    dialog.exec();
    TakeNewBillingAddress(desk_.business, desk_.Prompt(), desk_.edit.client, dialog.ClientId());
    billing_->LoadPayers();
    ShowBilling();
  } else {
    details_->ShowChoice(choice);
    billing_->AskForPayer();
  }
}

void frmClients::ChoosePayer(Id<Client> payer) {
  TakeFields();
  BillExistingAddress(desk_.business, desk_.Prompt(), desk_.edit.client, payer);
  ShowBilling();
}

bool frmClients::TakeAll() {
  TakeFields();
  return Accept(billing_->CheckPayer()) && services_->TakeEdited();
}

void frmClients::Save() {
  if (!TakeAll() || !Accept(SaveClient(desk_.business, desk_.edit))) return;
  services_->ShowServices(services_->Element());
  ShowRecord();
  LoadJobs();
}

void frmClients::CloseAndSave() {
  if (!TakeAll() || !Accept(SaveClientAndLeave(desk_.business, desk_.edit))) return;
  leaving_ = true;
  emit closeRequested();
}

bool frmClients::MayClose() {
  if (leaving_ || !IsDataChanged()) return true;
  return desk_.Prompt().AskBeforeLosing(QStringLiteral("Close without saving changes?")) ==
         Answer::Yes;
}

void frmClients::Reload() {
  if (desk_.edit.client.IsNew()) return;
  desk_.Run("ShowYourself", [this] {
    if (!IsDataChanged()) {
      Load(desk_.edit.client.clientId);
      return;
    }
    LoadJobs();
    LoadMoney();
  });
}

void frmClients::ReloadAfterAsking() {
  if (desk_.edit.client.IsNew()) return;
  if (IsDataChanged() && desk_.Prompt().AskBeforeLosing(
                             tr("The changes made on this screen are not stored "
                                "yet.\nDiscard them and load the client again?")) != Answer::Yes)
    return;
  Load(desk_.edit.client.clientId);
}

}  // namespace quillary::clients
