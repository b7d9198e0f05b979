#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "link/AcquiredServices.h"
#include "link/OstrelHeadOffice.h"

class QComboBox;

namespace quillary {
class Grid;
}

namespace quillary::link {

/// Replaces the catalogue of services by those of a division at head office.
class frmAcquireServices : public Dialog {
  Q_OBJECT

 public:
  frmAcquireServices(Business& business, const ScreenTools& tools, const QString& archive);
  /// Fetches the list. False, after telling the user, when head office does not give it.
  bool LoadFrom(const HeadOfficeAccount& account);

 protected:
  bool IsDataChanged() const override { return false; }

 private:
  QString Division() const;
  void LoadServicesToList();
  void Download();

  Business& business_;
  QString archive_;
  std::vector<OfferedService> offered_;
  QComboBox* cboDivisions;
  Grid* grdServices;
  QPushButton* cmdLoadServicesToList;
  QPushButton* cmdClose;
  QPushButton* cmdDownload;
};

}  // namespace quillary::link
