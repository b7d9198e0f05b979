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
  frmListOfJobs(Business& business, const ScreenTools& tools, std::optional<Id<Invoice>> invoiceId,
                Id<Client> clientId, const std::vector<Id<Entry>>& chosenBefore = {});

  /// The jobs chosen before and those ticked when the user attached.
  std::vector<Id<Entry>> Chosen() const { return {chosen_.begin(), chosen_.end()}; }

 private:
  void MakeControls();
  void LayOut();
  QLayout* ChoiceLine();
  QLayout* LegendLine();
  void ConnectControls();
  void TakeMonth(int month);
  void TakeMonthOf(QDate day);
  void ListJobs();
  void ShowTotals();
  void AttachTicked();

  Business& business_;
  ScreenTools tools_;
  std::optional<Id<Invoice>> invoiceId_;  // nothing for a new one
  Id<Client> clientId_;
  std::set<Id<Entry>> chosen_;
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
