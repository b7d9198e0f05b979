#pragma once

#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "mail/ClientAddresses.h"
#include "mail/Message.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::mail {

/// What the user chose for a document that is to be mailed.
struct SelectedEmail {
  QString address;
  QString name;
  QString text;
  Route route = Route::HeadOffice;
  std::optional<Id<Client>> client;
};

/// Chooses the address that a document goes to, and the text that goes with it.
class frmEmailList : public Dialog {
  Q_OBJECT

 public:
  frmEmailList(Business& business, const ScreenTools& tools,
               const std::vector<Id<Client>>& clients);

  /// Shows the list; nothing when the user gives up.
  std::optional<SelectedEmail> SelectAnEmail();

 private:
  void LayOut();
  void LoadClientEmail(const std::vector<Id<Client>>& clients);
  void TakeRow();
  void Send();

  Business& business_;
  std::vector<ClientAddress> addresses_;
  QLineEdit* txtFilter;
  Grid* fgEmailList;
  QLineEdit* lblSelectedEmail;
  QPlainTextEdit* txtMessage;
  QComboBox* cmbRoute;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

/// The routes to choose from, that of the settings chosen.
void FillWithRoutes(QComboBox* combo, const std::vector<Route>& routes, Route chosen);
Route ChosenIn(const QComboBox* combo);

}  // namespace quillary::mail
