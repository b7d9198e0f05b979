#pragma once

#include "clients/ClientChoices.h"
#include "clients/screens/ClientDesk.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class ComboSearch;
class Grid;
}  // namespace quillary

namespace quillary::clients {

/// The invoices made out to a client.
class ClientInvoicesPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientInvoicesPage(ClientDesk& desk);

  size_t LoadInvoices();
  void EnableFrame(bool on);

 private:
  void LayOut();
  void EnableCommands();
  void DeleteSelected();

  ClientDesk& desk_;
  QWidget* fraPreviousInvoices;
  QLineEdit* txtInvoiceFilter;
  Grid* grdInvoices;
  QPushButton* cmdDeleteInvoice;
  QPushButton* cmdCreateInvoice;
  QPushButton* cmdEditInvoice;
};

/// The payments recorded under a client, and their way to another.
class ClientPaymentsPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientPaymentsPage(ClientDesk& desk);

  void LoadChoices();
  size_t LoadPayments();
  void EnableFrame(bool on, bool note);

 private:
  void MakeControls();
  void LayOut();
  void EnableCommands();
  void Transfer();

  ClientDesk& desk_;
  QLabel* lblPaymentNote;
  std::vector<ClientPayment> payments_;
  QWidget* fraPayments;
  QLineEdit* txtPaymentFilter;
  Grid* grdPayments;
  ComboSearch* cmbTransferTo;
  QPushButton* cmdTransferPayments;
  QPushButton* cmdAddPayment;
  QPushButton* cmdEditPayment;
};

/// The clients who are billed to this one.
class ClientSitesPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientSitesPage(ClientDesk& desk);

  size_t LoadSites();

 private:
  ClientDesk& desk_;
  QLineEdit* txtSiteFilter;
  Grid* grdAttachedClients;
  QPushButton* cmdOpenSite;
};

}  // namespace quillary::clients
