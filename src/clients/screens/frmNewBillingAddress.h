#pragma once

#include "clients/ClientChoices.h"
#include "clients/NewBillingAddress.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quillary::clients {

class WordCombo;

/// An address that clients are billed at, without work of its own.
class frmNewBillingAddress : public Dialog {
  Q_OBJECT

 public:
  /// A new one, or the stored one of that key.
  frmNewBillingAddress(Business& business, const ScreenTools& tools,
                       std::optional<Id<Client>> clientId = {});

  /// The key of what was saved; nothing while nothing was.
  std::optional<Id<Client>> ClientId() const { return saved_; }

 private:
  void MakeControls();
  QLayout* Fields();
  void LoadChoices();
  void Show();
  BillingAddress Taken() const;
  void Save();

  Business& business_;
  BillingAddress address_;
  std::optional<Id<Client>> saved_;
  SuburbChoices suburbs_;

  QLineEdit* txtBillingName;
  QPushButton* cmdUpdateBillingName;
  QLineEdit* txtFirstName;
  QLineEdit* txtSurname;
  QLineEdit* txtStreetNumber;
  QLineEdit* txtStreet;
  WordCombo* cboSuburb;
  WordCombo* cboPostCode;
  QLineEdit* txtPhone1;
  QLineEdit* txtPhone2;
  QLineEdit* txtEmail;
  QLineEdit* txtFax;
  QPlainTextEdit* txtNotes;
  QComboBox* cmbStatementType;
  QPushButton* cmdCancel;
  QPushButton* cmdSave;
};

}  // namespace quillary::clients
