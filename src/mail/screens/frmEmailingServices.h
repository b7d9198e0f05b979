#pragma once

#include "kit/Screen.h"
#include "mail/OutboxRun.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::mail {

/// The outbox: what waits, what failed and what is in doubt, and what to do about it.
class frmEmailingServices : public Screen {
  Q_OBJECT

 public:
  frmEmailingServices(Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override { return TablesOfOutbox(); }
  /// Sends what waits, by its routes, behind a box that tells how far it has come and can pause it.
  static void SendAll(Business& business);

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void EnableCommands();
  const StoredMail* Selected() const;
  /// Changes the selected mail in the outbox.
  void Change(const std::function<void(Outbox&, const StoredMail&)>& how);
  void RemoveSelected();

  Business& business_;
  ScreenTools tools_;
  std::vector<StoredMail> mails_;
  QLineEdit* txtFilter;
  QCheckBox* chkShowSent;
  Grid* grdOutbox;
  QLabel* lblCount;
  QLabel* lblReason;
  QPushButton* cmdRemove;
  QPushButton* cmdOpenDocument;
  QPushButton* cmdArrived;
  QPushButton* cmdSendAgain;
  QPushButton* cmdRetry;
  QPushButton* cmdClose;
  QPushButton* cmdSendNow;
};

}  // namespace quillary::mail
