#pragma once

#include "clients/ClientList.h"
#include "kit/GridColumns.h"
#include "kit/Screen.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::clients {

/// The door to the clients: finds, opens, adds and deletes them.
class frmClientList : public Screen {
  Q_OBJECT

 public:
  frmClientList(Business& business, const ScreenTools& tools);

  void ShowYourself();
  void LoadClientsIntoGrid();
  void Reload() override { LoadClientsIntoGrid(); }
  Tables Shows() const override { return {"Clients", "Client_Services"}; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void ShowFound();
  void View();
  void Delete();

  Business& business_;
  ScreenTools tools_;
  ClientList list_;
  std::vector<GridRow> rows_;  // of the whole list, so that a search only picks from them

  QLineEdit* txtSearch;
  QComboBox* cboStatus;
  QCheckBox* chkRegular;
  QPushButton* cmdRefresh;
  Grid* grdClients;
  QLabel* lblCount;
  QPushButton* cmdDelete;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdMailMerge;
  QPushButton* cmdClose;
  QPushButton* cmdNew;
  QPushButton* cmdView;
};

}  // namespace quillary::clients
