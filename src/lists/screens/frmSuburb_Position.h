#pragma once

#include "kit/Dialog.h"
#include "kit/Screen.h"

#include <QStringList>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Business;
class Grid;
class Value;
}  // namespace quillary

namespace quillary::lists {

/// The order in which the diary goes through the suburbs, changed by dragging.
class frmSuburb_Position : public Dialog {
  Q_OBJECT

 public:
  frmSuburb_Position(Business& business, const ScreenTools& tools);

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void LoadSuburbsIntoGrid();
  /// In the order in which they show.
  QStringList Suburbs() const;
  void Select(const QString& suburb);
  void AfterEdit(int row, const Value& typed);
  void Remove();

  Business& business_;
  ScreenTools tools_;
  QLineEdit* txtFilter;
  Grid* grdSuburbs;
  QLabel* lblCount;
  QPushButton* cmdAcquireSuburbsFromClient;
  QPushButton* cmdRemove;
  QPushButton* cmdClose;
};

}  // namespace quillary::lists
