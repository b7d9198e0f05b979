#pragma once

#include "clients/MonthlyPrices.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace quillary {
class CurrencyField;
class DateField;
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::clients {

/// Spreads a monthly amount evenly over the jobs that the user ticks.
class frmSetJobPricesForMonthly : public Dialog {
  Q_OBJECT

 public:
  frmSetJobPricesForMonthly(Business& business, const ScreenTools& tools, Id<Client> client);

 private:
  void LayOut();
  void LoadJobs();
  void Start();

  Business& business_;
  Id<Client> client_;

  QLabel* lblClientName;
  DateField* dtFrom;
  DateField* dtTo;
  QPushButton* cmdList;
  CurrencyField* txtAmount;
  QCheckBox* chkTickUntickAll;
  Grid* fgJobs;
  RowTicks* ticks_;
  QPushButton* cmdClose;
  QPushButton* cdmStart;
};

}  // namespace quillary::clients
