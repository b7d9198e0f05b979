#pragma once

#include "diary/JobsList.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// The jobs of a period, with what they come to. Status and sequence are edited in their cells.
class frmJobsList : public Screen {
  Q_OBJECT

 public:
  frmJobsList(Business& business, const ScreenTools& tools);

  /// This month, all jobs.
  void ShowYourself();
  void ShowJobs(const JobsListQuery& query);
  void LoadScheduleGrid();
  void Reload() override { LoadScheduleGrid(); }
  Tables Shows() const override { return {"Diary", "Diary_Services", "Clients"}; }

 private:
  void MakeControls();
  void LayOut();
  QLayout* ChoiceLine();
  QLayout* TotalsLine();
  QLayout* CommandLine();
  void ConnectControls();
  void Show(const JobsList& list);
  /// The selected entry may be one that no screen can show.
  void EnableViewJob();
  void AfterEdit(int row, int column, const Value& value);
  /// The selected job; without one the user is told to select one.
  const JobsListRow* Selected(JobsListCommand command);
  void ViewJob();
  void OpenClientOfJob();
  void DeleteSelected();

  Business& business_;
  ScreenTools tools_;
  JobsList list_;
  DateField* dtFrom;
  DateField* dtTo;
  QComboBox* cboJobStatus;
  QPushButton* cmdList;
  QLineEdit* txtFilter;
  Grid* grdSchedule;
  QLabel* txtTotalNoOfJobs;
  QLabel* txtTotalAmountOfJobs;
  QLabel* txtTotalAmountOfGST;
  QPushButton* cmdEditJob;
  QPushButton* cmdClientDetails;
  QPushButton* cmdPrintJobs;
  QPushButton* cmdDeleteJob;
  QPushButton* cmdClose;
};

}  // namespace quillary::diary
