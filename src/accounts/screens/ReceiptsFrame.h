#pragma once

#include "accounts/purchases/Receipts.h"
#include "kit/Screen.h"

#include <functional>

class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// The receipts of one purchase: attached by a button or by dropping files, opened by a double
/// click.
class ReceiptsFrame : public QWidget {
  Q_OBJECT

 public:
  /// `stored` gives the purchase its key, storing it first when it has none; nothing when it would
  /// not be stored.
  ReceiptsFrame(Business& business, const ScreenTools& tools,
                std::function<std::optional<Id<Purchase>>()> stored);

  void ShowReceiptsOf(std::optional<Id<Purchase>> purchase);
  void Attach(const QStringList& paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void ChooseAndAttach();
  void DetachSelected();
  void OpenReceipt(int row);

  Business& business_;
  ScreenTools tools_;
  std::function<std::optional<Id<Purchase>>()> stored_;
  std::vector<StoredReceipt> receipts_;
  Grid* grdReceipts;
  QPushButton* cmdAttachReceipt;
  QPushButton* cmdRemoveReceipt;
};

}  // namespace quillary::accounts
