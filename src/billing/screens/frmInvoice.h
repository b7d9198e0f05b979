#pragma once

#include "billing/invoices/InvoiceJobs.h"
#include "billing/invoices/InvoiceRecord.h"
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
}  // namespace quillary

namespace quillary::billing {

/// One invoice with its jobs: a new one, or one that is stored. The invoice is stored by saving;
/// the jobs of a stored one are attached and removed at once.
class frmInvoice : public Dialog {
  Q_OBJECT

 public:
  frmInvoice(Business& business, const ScreenTools& tools, const InvoiceForm& form);

  /// Whether it was saved at least once, however the screen was closed.
  bool WasSaved() const { return wasSaved_; }

 private:
  void MakeControls();
  void MakeFields();
  void MakeOptions();
  void MakeJobs();
  void MakeCommands();
  void LayOut();
  QLayout* HeadLine();
  QLayout* NumberLine();
  QLayout* TextsLine();
  QLayout* OptionsLine();
  QLayout* TotalsLine();
  void LayOutJobs();
  void ConnectControls();

  void LoadClientsIntoCombo();
  void ShowInvoice();
  void ShowOptions();
  void ClientChosen();
  void LoadAttachedJobs();
  InvoiceForm Typed() const;
  bool Save();
  void SaveAndClose();
  void ShowListOfJobs();
  void RemoveSelectedJob();
  void SelectNote();
  void Print();

  Business& business_;
  ScreenTools tools_;
  InvoiceForm form_;
  AttachedJobs jobs_;
  bool wasSaved_ = false;

  ComboSearch* cmdBilledClient;
  QCheckBox* chkActiveClients;
  DateField* dtInvoiceDate;
  QComboBox* cmbType;
  QLineEdit* txtInvoiceDescription;
  QLineEdit* txtInvoiceNumber;
  QPushButton* cmdGetLastNumber;
  QPlainTextEdit* txtMadeOutTo;
  QPlainTextEdit* txtInvoiceNotes;
  QPushButton* cmdShowInvoiceNotes;
  QLabel* lblOutstanding;
  QCheckBox* chkShowOutstanding;
  QCheckBox* chkShowNextJobdate;
  QCheckBox* chkInvoiceWithPastJobs;
  QWidget* fraLstOfAttachedJobs;
  Grid* fgJobs;
  QPushButton* cmdShowListOfJobs;
  QPushButton* cmdRemoveJob;
  QCheckBox* chkIsPaid;
  QCheckBox* chkPriceExcludesGST;
  CurrencyField* txtInvoiceAmount;
  CurrencyField* txtGSTIncluded;
  QLabel* lblTotalGSTInc;
  QPushButton* cmdEmailInvoice;
  QPushButton* cmdPrintInvoice;
  QPushButton* cmdClose;
  QPushButton* cmdSave;
  QPushButton* cmdSaveAndClose;
};

}  // namespace quillary::billing
