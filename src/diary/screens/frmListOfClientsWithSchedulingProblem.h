#pragma once

#include "kit/Screen.h"
#include "roll/ScheduleCheck.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// The clients whose regular visits are missing from the diary, as far as one can tell.
class frmListOfClientsWithSchedulingProblem : public Screen {
  Q_OBJECT

 public:
  frmListOfClientsWithSchedulingProblem(Business& business, const ScreenTools& tools);

  void ShowFound(const std::vector<roll::ScheduleProblem>& found);
  void Reload() override;

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void OpenSelectedClient();

  Business& business_;
  ScreenTools tools_;
  std::vector<roll::ScheduleProblem> found_;
  QLineEdit* txtFilter;
  QPushButton* cmdRefresh;
  Grid* grdClients;
  QCheckBox* chkShowAfterStartup;
  QPushButton* cmdClientDetails;
  QPushButton* cmdReschedule;
  QPushButton* cmdPrint;
  QPushButton* cmdClose;
};

}  // namespace quillary::diary
