#pragma once

#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "reports/ReportKinds.h"

class QComboBox;
class QLabel;
class QRadioButton;

namespace quillary {
class ComboSearch;
class PeriodField;
}  // namespace quillary

namespace quillary::reports {

/// One of the orders or forms that a dialog offers.
struct CriteriaChoice {
  const char* name;     // of its button
  const char* caption;  // with its mnemonic
  const char* value;    // what the report calls it
  const char* note = "";
};

/// What a dialog of criteria asks: each of them is a declaration over one form.
struct CriteriaForm {
  const char* name;
  QString title;
  bool days = true;
  bool employee = false;
  bool client = false;
  std::vector<CriteriaChoice> sorts = {};
  const char* remembered = "";  // under which the days are, where not under the dialog's name
  const char* accept = "&Preview";
};

/// Asks for the days of a report and what else it needs.
class CriteriaDialog : public Dialog {
  Q_OBJECT

 public:
  CriteriaDialog(Business& business, const ScreenTools& tools, const CriteriaForm& form);

  ReportCriteria Criteria() const;

 private:
  void MakeControls();
  void LayOut();
  void Preview();
  const CriteriaChoice* Chosen() const;
  void ShowNote();

  Business& business_;
  CriteriaForm form_;
  PeriodField* days_ = nullptr;
  QComboBox* cmbEmployees = nullptr;
  ComboSearch* cmbClient = nullptr;
  std::vector<QRadioButton*> sorts_;
  QLabel* note_ = nullptr;
  QPushButton* cmdCancel;
  QPushButton* cmdPreview;
};

// The dialogs, by their names.
CriteriaForm DatesForm(const QString& title, const char* remembered);
CriteriaForm DatesWithEmployeeForm();
CriteriaForm ExpensesForm();
CriteriaForm DebtorsForm();
CriteriaForm ClientForm();

}  // namespace quillary::reports
