#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The catalogue of services.
class frmServices : public RecordListScreen {
  Q_OBJECT

 public:
  frmServices(Business& business, const ScreenTools& tools);

 private:
  QPushButton* cmdDownloadServices;
};

}  // namespace quillary::lists
