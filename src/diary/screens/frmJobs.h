#pragma once

#include "diary/JobServices.h"
#include "diary/Jobs.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace quillary {
class ComboSearch;
class CurrencyField;
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// One job with its service lines: a new one for a client, or one of the diary. The job itself is
/// stored by saving, its lines at once.
class frmJobs : public Dialog {
  Q_OBJECT

 public:
  frmJobs(Business& business, const ScreenTools& tools, const Job& job);

 protected:
  bool IsDataChanged() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void MakeLineControls();
  void MakeCommands();
  void LayOut();
  QLayout* JobColumn();
  QLayout* LinesColumn();
  QLayout* BilledLine();
  void ConnectControls();

  void ShowJob();
  /// The job as it stands in the file now.
  void ShowStored();
  void ShowServices();
  /// What follows from the job's payment and invoice.
  void ShowBilling();
  void ShowSelectedLine();
  Job Typed() const;
  bool SaveJob();
  void StoreLine(SaveLine as);
  void RemoveLine();
  void Pay();

  Business& business_;
  ScreenTools tools_;
  Job job_;
  JobServices services_;
  FormState line_;

  ComboSearch* cmbClient;
  DateField* dtpDate;
  ComboSearch* cmbEmployee;
  QComboBox* cmbStatus;
  QLineEdit* txtJobDescription;
  QPlainTextEdit* txtNotes;
  QPushButton* cmdSetDescriptionBasedOnServices;
  QLabel* lblHasBeenPaid;
  QLabel* lblInvoice_ID;
  Grid* grdServices;
  QLabel* lblServicesTotal;
  ComboSearch* cmbService;
  CurrencyField* txtPrice;
  QPushButton* cmdRemoveService;
  QPushButton* cmdExtraWork;
  QPushButton* cmdUpdate;
  QPushButton* cmdAddPayment;
  QPushButton* cmdClose;
  QPushButton* cmdSaveOnly;
  QPushButton* cmdSaveAndClose;
};

}  // namespace quillary::diary
