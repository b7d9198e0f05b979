#pragma once

#include "billing/LedgerLines.h"
#include "billing/payments/PaymentJobs.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quillary {
class ComboSearch;
class CurrencyField;
class DateField;
class Grid;
class SplitLines;
}  // namespace quillary

namespace quillary::billing {

/// One payment, the jobs that it covers and the accounts that it is booked to. The payment is
/// stored by saving; its lines and its jobs at once, after it.
class frmPayments : public Dialog {
  Q_OBJECT

 public:
  /// Without a payment it says that there is none.
  frmPayments(Business& business, const ScreenTools& tools,
              const std::optional<PaymentForm>& payment);

  /// Gives up, but not on a stored payment whose jobs have still to be told.
  void reject() override;

 protected:
  bool IsDataChanged() const override;

 private:
  void MakeControls();
  void MakeChequeControls();
  void MakeJobControls();
  void MakeCommands();
  void LayOut();
  QLayout* Caption();
  QLayout* PaymentColumn();
  QLayout* MethodLine();
  QWidget* ChequeFrame();
  QLayout* CoverColumn();
  QWidget* JobsFrame();
  QLayout* TaxLine();
  void ConnectFields();
  void ConnectCommands();

  void FillLists();
  void FillMethods();
  void ShowPayment();
  void ShowPaymentID();
  void ShowMethod(const QString& word);
  void ShowBank(const QString& name);
  void TakeHabits();
  void ShowTax();
  void ShowJobs();
  void ShowMissing();
  void LoadAccounts();
  PaymentForm Typed() const;
  bool SavePaymentDetails();
  /// Whether the payment may go without jobs; tells and opens the allocation when it may not.
  bool HasItsJobs();
  void ChangeJobsPaidFor();
  void OpenPickedJob();
  void StoreLine(SaveLedgerLine as);
  void RemoveLine();

  Business& business_;
  ScreenTools tools_;
  PaymentForm form_;
  bool exists_;
  bool jobsChanged_ = false;
  bool saved_ = false;

  QLabel* lblCaption;
  QLabel* lblPaymentID;
  QLabel* txtPaymentID;
  ComboSearch* cmbClient;
  DateField* dtpPaymentDate;
  CurrencyField* txtAmount;
  CurrencyField* txtGST;
  QCheckBox* chkTaxExempt;
  ComboSearch* cmbPaymentMethod;
  QPushButton* cmdShowPaymentMethods;
  QWidget* fraCheque;
  QLineEdit* txtChequeNumber;
  ComboSearch* cmbBank;
  QLineEdit* txtBankBranch;
  QLineEdit* txtBankAccountName;
  QPlainTextEdit* txtNotes;
  QWidget* fraJobsBeingPaidFor;
  Grid* grdJobsPaidFor;
  QLabel* txtTotal;
  QPushButton* cmdChangeJobsPaidFor;
  QCheckBox* chkMarkInvoiceAsPaid;
  SplitLines* lines_;
  QPushButton* cmdCancel;
  QPushButton* cmdSaveOnly;
  QPushButton* cmdSave;
};

}  // namespace quillary::billing
