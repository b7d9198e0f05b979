#pragma once

#include "data/Business.h"
#include "diary/JobPicker.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

#include <set>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class DateField;
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::billing {

/// The jobs that an invoice can take, with what the ticked ones come to. Those of a stored invoice
/// are attached at once; a new one gets them with its first save.
class frmListOfJobs : public Dialog {
  Q_OBJECT

 public:
  frmListOfJobs(Business& business, const ScreenTools& tools, qint64 invoiceId, qint64 clientId,
                const std::vector<qint64>& chosenBefore = {});

  /// The jobs chosen before and those ticked when the user attached.
  std::vector<qint64> Chosen() const { return {chosen_.begin(), chosen_.end()}; }

 private:
  void MakeControls();
  void LayOut();
  QLayout* ChoiceLine();
  QLayout* LegendLine();
  void ConnectControls();
  void TakeMonth(int month);
  void ListJobs();
  void ShowTotals();
  void AttachTicked();

  Business& business_;
  ScreenTools tools_;
  qint64 invoiceId_;
  qint64 clientId_;
  std::set<qint64> chosen_;
  std::vector<diary::PickableJob> jobs_;

  QComboBox* cboMonth;
  DateField* dtStartDate;
  DateField* dtEndDate;
  QPushButton* cmdList;
  QLineEdit* txtFilter;
  QCheckBox* chkTickUntickAll;
  Grid* fgJobs;
  RowTicks* ticks_;
  QLabel* lblTickedTotal;
  QPushButton* cmdClose;
  QPushButton* cmdAttachJobsToInvoice;
};

}  // namespace quillary::billing
