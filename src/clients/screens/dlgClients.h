#pragma once

#include "base/ports/requests/Clients.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

#include <array>

class QPushButton;
class QRadioButton;

namespace quillary::clients {

/// Which clients a report lists, and in which order.
class dlgClients : public Dialog {
  Q_OBJECT

 public:
  dlgClients(Prompter& prompter, const ScreenTools& tools);

  ClientReportCriteria Criteria() const;

 private:
  std::array<QRadioButton*, 4> which_;
  std::array<QRadioButton*, 2> order_;
  QPushButton* cmdCancel;
  QPushButton* cmdPreview;
};

}  // namespace quillary::clients
