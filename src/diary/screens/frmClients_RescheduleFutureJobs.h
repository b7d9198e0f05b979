#pragma once

#include "diary/Rescheduling.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

#include <vector>

class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// Gives the services of a client a new rhythm and builds its coming jobs by it. Only frequency and
/// start date are edited, in their cells.
class frmClients_RescheduleFutureJobs : public Dialog {
  Q_OBJECT

 public:
  frmClients_RescheduleFutureJobs(Business& business, const ScreenTools& tools, Id<Client> client);

 private:
  void LoadClientServices();
  void ShowServices();
  void AfterEdit(int row, int column, const Value& typed);
  void Reschedule();

  Business& business_;
  Id<Client> client_;
  std::vector<ServiceRhythm> services_;
  Grid* grdServices;
  QPushButton* cmdCancel;
  QPushButton* cmdReschedule;
};

}  // namespace quillary::diary
