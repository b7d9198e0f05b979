#pragma once

#include "base/ports/requests/Maintenance.h"
#include "data/Business.h"
#include "kit/Screen.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/oneclient/ClientComparison.h"

#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace quillary {
class ComboSearch;
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::maintenance {

/// One client of a backup beside the same client today, and what of it is to come back.
class frmRestoreClient : public Screen {
  Q_OBJECT

 public:
  frmRestoreClient(Business& business, const ScreenTools& tools, const QString& archive);

  void ShowYourself(const OpenRestoreClient& request);
  /// Compares anew; the backup stays open.
  void Reload() override;
  Tables Shows() const override;

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void ListBackupFiles();
  void AddBackup(const BackupFacts& facts);
  /// Opens the picked backup and lists its clients, the one before being picked again.
  void OpenPicked(std::optional<Id<Client>> client);
  void SearchOtherFile();
  void Compare();
  void ShowRows();
  void BringBackTicked();

  Business& business_;
  ScreenTools tools_;
  QString archive_;
  std::unique_ptr<OpenedBackup> backup_;
  std::unique_ptr<ClientComparison> comparison_;

  QComboBox* cboBackup;
  QPushButton* cmdSearchOtherFile;
  ComboSearch* cboClient;
  QLabel* lblNames;
  QCheckBox* chkTickUntickAll;
  QCheckBox* chkShowNew;
  Grid* grdDifferences;
  RowTicks* ticks_;
  QPushButton* cmdClose;
  QPushButton* cmdBringBack;
};

}  // namespace quillary::maintenance
