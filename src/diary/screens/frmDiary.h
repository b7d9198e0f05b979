#pragma once

#include "diary/MarkedEntries.h"
#include "kit/ComboSearch.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "kit/Screen.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <memory>

namespace quillary::diary {

class RowButtons;

/// Where the owner runs the day: the jobs, visits and quote visits of one date or of a range, to be
/// marked done or cancelled, put in order and given to an employee. Every change is written at
/// once; there is nothing to save.
class frmDiary : public Screen {
  Q_OBJECT

 public:
  frmDiary(Business& business, const ScreenTools& tools);
  ~frmDiary() override;

  /// Sets all dates to today and loads.
  void ShowYourself();
  /// The same for days of somebody else's choice.
  void ShowDays(const DateRange& days);
  /// Shows what the dates, the employee and the order ask for, and the totals. The selected entry
  /// stays selected while it is listed.
  void LoadScheduleGrid();
  void Reload() override { LoadScheduleGrid(); }
  Tables Shows() const override {
    return {"Diary", "Diary_Services", "Clients", "Payments", "Employees"};
  }

 private:
  void MakeControls();
  void LayOut();
  QLayout* DateLine();
  QLayout* ListLine();
  QLayout* TotalsLine();
  QLayout* LegendLine();
  QLayout* CommandLine();
  void ConnectControls();
  void ConnectCommands();
  void EnableCommands();
  /// The selected entry may be one that no screen can show.
  void EnableEditJob();

  DateRange Days() const;
  /// Nothing while what stands in the list of employees is nobody's name.
  std::optional<DiaryQuery> Query() const;
  void Show(const DiaryList& list);
  void LoadEmployees();
  void MoveDay(int days);
  void ShowRange();
  void AfterEdit(int row, int column, const Value& value);
  /// Null when none is selected.
  const DiaryRow* FindSelected() const;
  /// The selected entry; without one the user is told so.
  const DiaryRow* SelectedJob(const char* noneSelected = "Please select a job.");
  /// The entries that are marked; without one the user is told so.
  Entries MarkedEntries();
  /// Runs a command on the marked entries, loads again and takes the marks away unless the command
  /// was given up.
  void ChangeMarked(const std::function<bool(const Entries&)>& change);

  void EditSelected();
  void OpenClientOfSelected();
  void CreateInvoiceForSelected();
  void PayForSelected();
  void PayAndMarkDone();
  void GiveMarkedTo(const Value& employee);
  void MoveMarked();
  void RescheduleSelected();
  void PrintSheet();
  void PrintTotals();

  Business& business_;
  ScreenTools tools_;
  DiaryList list_;
  std::unique_ptr<RowButtons> rowButtons_;

  QRadioButton* optShowJobsOn;
  DateField* dtJobDate;
  QPushButton* cmdPreviousDay;
  QPushButton* cmdNextDay;
  QPushButton* cmdToday;
  QRadioButton* optShowJobsBetween;
  DateField* dtFrom;
  DateField* dtTo;
  QPushButton* cmdList;
  ComboSearch* cmbEmployees;
  QCheckBox* chkSort;
  QPushButton* cmdShowSuburbDefinition;
  QLineEdit* txtFilter;
  QPushButton* cmdRefreshList;
  Grid* grdSchedule;
  QLabel* txtTotalNoOfJobs;
  QLabel* txtTotalAmountOfJobs;
  QLabel* lblWarningSign;
  QLabel* lblNoEmployee;
  QPushButton* cmdEditJob;
  QPushButton* cmdClientDetails;
  QPushButton* cmdCreateInvoice;
  QPushButton* cmdViewCreatePayment;
  QPushButton* cmdPrint;
  QPushButton* cmdPrintDailyTotals;
  QPushButton* cmdCancelled;
  QPushButton* cmdMoveTo;
  QPushButton* cmdNext;
  QPushButton* cmdDoneUnPaid;
  QPushButton* cmdDonePaid;
  QPushButton* cmdClose;
};

}  // namespace quillary::diary
