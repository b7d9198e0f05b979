#pragma once

#include "diary/QuoteVisits.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

#include <array>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace quillary {
class ComboSearch;
class CurrencyField;
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// One quote visit of the diary with its lines. The visit is stored by saving, its lines at once.
class frmQuote : public Dialog {
  Q_OBJECT

 public:
  frmQuote(Business& business, const ScreenTools& tools, const QuoteVisit& visit);

 protected:
  bool IsDataChanged() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void MakeCommands();
  void LayOut();
  QLayout* VisitColumn();
  QLayout* LinesColumn();
  void ConnectControls();

  void ShowQuote();
  void ShowServices();
  void ShowSelectedLine();
  QuoteVisit Typed() const;
  bool SaveQuote();
  void SaveService();
  void AddLine();
  void RemoveLine();
  void Postpone();

  Business& business_;
  QuoteVisit visit_;
  JobServices services_;
  FormState line_;

  ComboSearch* cmbClient;
  DateField* dtpDate;
  ComboSearch* cmbEmployee;
  std::array<QRadioButton*, kQuoteStatuses.size()> status_;  // in the order of kQuoteStatuses
  QPlainTextEdit* txtNotes;
  QLabel* lblPaid;
  Grid* grdServices;
  QLabel* lblServicesTotal;
  ComboSearch* cmbService;
  CurrencyField* txtPrice;
  QPushButton* cmdRemoveService;
  QPushButton* cmdExtraWork;
  QPushButton* cmdUpdate;
  QPushButton* cmdDeleteJob;
  QPushButton* cmdPostpone;
  QPushButton* cmdClose;
  QPushButton* cmdSave;
};

}  // namespace quillary::diary
