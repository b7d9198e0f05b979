#pragma once

#include "clients/BillingChoice.h"
#include "clients/screens/ClientDesk.h"
#include "lists/Choices.h"

#include <QWidget>

#include <array>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace quillary {
class ComboSearch;
class DateField;
}  // namespace quillary

namespace quillary::clients {

class WordCombo;

/// Who pays for the client, what it owes, and what its documents show.
class ClientBillingPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientBillingPage(ClientDesk& desk);

  /// Refuses what is typed for the client who pays while that is nobody.
  std::optional<Refusal> CheckPayer() const;
  void LoadChoices();
  void LoadPayers();
  /// Lets the user pick the client who pays; nothing changes until then.
  void AskForPayer();
  /// The list of those who could pay. It stands beside whatever asks who pays, on this page or on
  /// another.
  QWidget* PayerFrame() { return fraBillExistingAddress; }
  QBoxLayout* PayerSlot() { return payerSlot_; }
  /// Enters the list of payers after the field that asks who pays, and gives its last control.
  QWidget* PayerFollowsInTabOrder(QWidget* field) const;
  QWidget* LastChoice() const;
  /// Who pays, with the frame that belongs to it.
  void ShowBilling();
  void ShowOwing();
  void ShowDebtorSince();
  void TakeDebtorSince() const;
  QWidget* DebtorSinceField() const;
  void EnableCommands();
  /// The name of the client that pays, where another does.
  QString PayerName() const;
  /// Brings a field to light that stands in the frame not shown.
  void Reveal(const QString& field);
  QList<QWidget*> OwnFields() const;

 signals:
  void billingChosen(quillary::clients::BillingChoice choice);
  void payerChosen(quillary::Id<quillary::Client> payer);

 private:
  void MakeControls();
  void MakeTicks();
  void LayOut();
  QWidget* SameAddressFrame();
  QWidget* ExistingAddressFrame();
  QBoxLayout* DocumentColumn();
  void ConnectControls();
  void OpenPayer();
  void SetMonthlyPrices();

  ClientDesk& desk_;
  std::vector<lists::Choice<Client>> payers_;
  QBoxLayout* payerSlot_;

  std::array<QRadioButton*, 3> choices_;  // in the order of BillingChoice
  QWidget* fraBillSameAddress;
  QComboBox* cmbInvoiceType;
  DateField* dtDebtorSince;
  QLineEdit* txtCurrentlyOwing;
  QPlainTextEdit* txtSampleBillingAddress;
  QWidget* fraBillExistingAddress;
  ComboSearch* cmbOtherAddressToBill;
  QPushButton* cmdEditExisingAddress;
  QPushButton* cmdSetJobPricesForMonthly;
  std::array<QCheckBox*, 6> ticks_;
  QLineEdit* txtClaimNumber;
  WordCombo* cmbWorkCoverLabel;
};

}  // namespace quillary::clients
