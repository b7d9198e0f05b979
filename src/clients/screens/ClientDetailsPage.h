#pragma once

#include "clients/BillingChoice.h"
#include "clients/ClientChoices.h"
#include "clients/screens/ClientDesk.h"

#include <QWidget>

class QBoxLayout;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace quillary::clients {

class WordCombo;

/// Who the client is, where the work is done, how to reach it, and who pays.
class ClientDetailsPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientDetailsPage(ClientDesk& desk);

  /// Fills the lists from the business.
  void LoadChoices();
  /// What is no plain field: the client's number and who pays.
  void ShowClient();
  StoredClientStatus Status() const;
  /// The room at the right that this page shares with others.
  QBoxLayout* SideSlot() { return sideSlot_; }
  /// The room beside the choice of who pays.
  QBoxLayout* PayerSlot() { return payerSlot_; }
  void ShowChoice(BillingChoice choice);
  QWidget* LastField() const;

 signals:
  void statusChosen();
  void nameTyped(const QString& displayName);
  void billingChosen(quillary::clients::BillingChoice choice);

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void FillStatuses();
  void TakePostCodeOf(const QString& suburb);
  void UpdateName();

  ClientDesk& desk_;
  SuburbChoices suburbs_;
  QBoxLayout* sideSlot_;
  QBoxLayout* payerSlot_;

  QLineEdit* txtFirstname;
  QLineEdit* txtSurname;
  QComboBox* cmbStatus;
  QLineEdit* txtDisplayName;
  QPushButton* cmdUpdateBillingName;
  QLineEdit* txtClientID;
  QLineEdit* txtStreetNumber;
  QLineEdit* txtStreet;
  WordCombo* cmbSuburb;
  WordCombo* cmbPostcode;
  QLineEdit* txtMap;
  QLineEdit* txtPhone1;
  QLineEdit* txtPhone2;
  QLineEdit* txtFax;
  QLineEdit* txtEmail;
  QComboBox* cmbBillingGoesTo;
};

}  // namespace quillary::clients
