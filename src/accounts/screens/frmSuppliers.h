#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::accounts {

/// The suppliers, and what was bought from the chosen one.
class frmSuppliers : public RecordListScreen {
  Q_OBJECT

 public:
  frmSuppliers(Business& business, const ScreenTools& tools);

  /// A double click chooses from now on.
  void LetChoose();

 signals:
  void chosen(qint64 supplier);

 private:
  void MakePreviousPurchases();
  void ShowPreviousPurchases();
  void ToggleMore();
  void AddPurchaseOfChosen();

  Business& business_;
  ScreenTools tools_;
  QWidget* fraPreviousPurchases;
  Grid* grdPreviousPurchases;
  QPushButton* cmdMore;
  QPushButton* cmdAddPurchase;
};

/// The list in front of the dialog that looks for a supplier; nothing when none was chosen.
std::optional<Id<Supplier>> PickSupplierFromList(Business& business, const ScreenTools& tools);

}  // namespace quillary::accounts
