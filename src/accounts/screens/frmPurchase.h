#pragma once

#include "accounts/purchases/PurchaseRecord.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quillary {
class ComboSearch;
class CurrencyField;
class DateField;
class SplitLines;
}  // namespace quillary

namespace quillary::accounts {

class ReceiptsFrame;

/// One purchase and the accounts that it is booked to. The purchase is stored by saving, its lines
/// at once, after it. It is left with its lines adding up, or by "Save", which does not ask.
class frmPurchase : public Dialog {
  Q_OBJECT

 public:
  frmPurchase(Business& business, const ScreenTools& tools, PurchaseForm purchase);

  /// Gives up, but not on a stored purchase whose lines do not add up.
  void reject() override;

 protected:
  bool IsDataChanged() const override;

 private:
  void MakeControls();
  void MakeCapitalControls();
  void MakeCommands();
  void LayOut();
  QLayout* PurchaseColumn();
  QLayout* SupplierLine();
  QLayout* CostLine();
  QLayout* MethodLine();
  QWidget* CapitalFrame();
  QLayout* BookedColumn();
  void ConnectFields();
  void ConnectCommands();

  void FillLists();
  void FillSuppliers();
  void ShowPurchase();
  void LoadAccounts();
  /// The supplier's items; of a new purchase its habits too.
  void TakeSupplier();
  void ShowTax();
  void DisplayChequeNumber();
  void ShowCapital();
  PurchaseForm Typed() const;
  bool SavePurchase();
  /// Tells when the lines do not come to the cost.
  bool LinesMatch();
  void StoreLine(billing::SaveLedgerLine as);
  void RemoveLine();
  void ShowSuppliers();
  void PasteCost();

  Business& business_;
  ScreenTools tools_;
  PurchaseForm form_;
  bool saved_ = false;

  ComboSearch* cmbSupplier;
  QPushButton* cmdShowSuppliers;
  ComboSearch* cmbItemPurchased;
  DateField* dtpPurchaseDate;
  CurrencyField* txtCost;
  CurrencyField* txtGST;
  QCheckBox* chkTaxExempt;
  QPushButton* cmdCopy;
  QPushButton* cmdPast;
  ComboSearch* cmbPaymentMethod;
  QLabel* lblChequeNumber;
  QLineEdit* txtChequeNumber;
  QLineEdit* txtInvoiceNumber;
  QPlainTextEdit* txtNotes;
  QCheckBox* chkCapital;
  QWidget* fraCapital;
  QLineEdit* txtSerialNumber;
  QLineEdit* txtModel;
  QLineEdit* txtDepreciation;
  SplitLines* lines_;
  ReceiptsFrame* receipts_;
  QPushButton* cmdClose;
  QPushButton* cmdSaveOnly;
  QPushButton* cmdSave;
};

}  // namespace quillary::accounts
