#pragma once

#include "clients/BillingChoice.h"
#include "clients/screens/ClientDesk.h"
#include "kit/Form.h"
#include "kit/Screen.h"

class QLabel;
class QPushButton;

namespace quillary {
class Chip;
class PageTabs;
}  // namespace quillary

namespace quillary::clients {

class ClientBillingPage;
class ClientDetailsPage;
class ClientInvoicesPage;
class ClientJobsPage;
class ClientPaymentsPage;
class ClientServicesPage;
class ClientSidePanel;
class ClientMailsPage;
class ClientSitesPage;

/// All that is known of a client: its record, its services, who pays for it, its jobs, invoices,
/// payments and sites. A new client is stored by its first save; until then it has its details
/// only.
class frmClients : public Screen {
  Q_OBJECT

 public:
  frmClients(Business& business, const ScreenTools& tools);
  ~frmClients() override;

  /// Shows a client, or the fields of a new one. False when there is none of that key any more.
  bool ShowYourself(std::optional<Id<Client>> client);
  /// Puts the cursor where one begins: in the first field of a new client, on the pages of another.
  void Enter();
  /// The payments, with the choice of the client who gets them.
  void ShowTransferOfPayments();
  /// Nothing for one that is not stored.
  std::optional<Id<Client>> ClientId() const { return desk_.edit.client.clientId; }

  /// Loads the lists again; the fields too unless the user has changed them.
  void Reload() override;
  Tables Shows() const override {
    return {"Clients", "Client_Services", "Diary", "Payments", "Invoices", "(outbox)"};
  }
  bool HasEdits() const override { return IsDataChanged(); }
  bool MayClose() override;

 private:
  void MakePages();
  void MakeFrame();
  QLayout* Header();
  QLayout* CommandLine();
  void ConnectPages();
  void ConnectCommands();
  void EquipDesk();

  void LoadChoices();
  bool Load(std::optional<Id<Client>> client);
  void ShowRecord();
  void ShowIfSaved();
  void ShowHeader();
  void ShowBilling();
  void ShowBalance();
  void TakeFields();
  void LoadJobs();
  void LoadMoney();
  void EnableParts();
  /// Moves what several pages share to the one in view.
  void PlaceShared();
  bool Accept(const std::optional<Refusal>& refusal);
  bool IsDataChanged() const;
  /// Takes what stands in all fields. False when a service was refused.
  bool TakeAll();

  void ChooseBilling(BillingChoice choice);
  void ChoosePayer(Id<Client> payer);
  void Save();
  void CloseAndSave();
  void ReloadAfterAsking();

  ClientDesk desk_;
  FormState record_;
  bool leaving_ = false;  // the user has answered already

  QLabel* lblClientName;
  Chip* lblStatus;
  QLabel* lblFacts;
  QLabel* lblOwing;
  QLabel* lblOwingSince;
  QPushButton* cmdAccountOfClient;
  PageTabs* pages_;
  ClientDetailsPage* details_;
  ClientServicesPage* services_;
  ClientBillingPage* billing_;
  ClientJobsPage* future_;
  ClientJobsPage* past_;
  ClientInvoicesPage* invoices_;
  ClientPaymentsPage* payments_;
  ClientSitesPage* sites_;
  ClientMailsPage* mails_;
  ClientSidePanel* side_;
  QPushButton* cmdReloadClientScreen;
  QPushButton* cmdClose;
  QPushButton* cmdSave;
  QPushButton* cmdCloseAndSave;
};

}  // namespace quillary::clients
