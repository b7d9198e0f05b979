#pragma once

#include "base/ports/requests/Clients.h"
#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
class PeriodField;
class RowTicks;
}  // namespace quillary

namespace quillary::clients {

/// The days and the clients of a report.
class dlgDateWithClients : public Dialog {
  Q_OBJECT

 public:
  dlgDateWithClients(Business& business, const ScreenTools& tools);

  DatesWithClients Chosen() const;

 private:
  void MakeControls();
  void LayOut();
  void LoadClients();
  void Preview();

  Business& business_;
  PeriodField* days_;
  QComboBox* cmbSortBy;
  QCheckBox* chkSummaryOnly;
  QCheckBox* chkTickUntickAll;
  QLineEdit* txtFilter;
  Grid* grdClients;
  RowTicks* ticks_;
  QPushButton* cmdCancel;
  QPushButton* cmdPreview;
};

}  // namespace quillary::clients
