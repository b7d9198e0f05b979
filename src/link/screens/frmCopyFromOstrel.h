#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "link/OstrelHeadOffice.h"

class QCheckBox;
class QLineEdit;

namespace quillary::link {

/// Replaces what the user ticks by what head office holds of the business.
class frmCopyFromOstrel : public Dialog {
  Q_OBJECT

 public:
  frmCopyFromOstrel(Business& business, const ScreenTools& tools, const HeadOfficeAccount& account,
                    const QString& archive);

 protected:
  bool IsDataChanged() const override { return false; }

 private:
  void Generate();

  Business& business_;
  HeadOfficeAccount account_;
  QString archive_;
  QLineEdit* txtFSE_ID;
  QLineEdit* txtPassword;
  QCheckBox* chkDownloadFSEDetails;
  QCheckBox* chkDownloadServices;
  QCheckBox* chkDownloadClients;
  QPushButton* cmdClose;
  QPushButton* cmdGenerate;
};

}  // namespace quillary::link
