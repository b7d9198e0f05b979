#pragma once

#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "mail/SentDocuments.h"

class QLineEdit;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::mail {

/// The documents that were made, with when, to whom and how they were sent.
class dlgSentDocuments : public Dialog {
  Q_OBJECT

 public:
  dlgSentDocuments(Business& business, const ScreenTools& tools);

 private:
  void MakeControls();
  void LayOut();
  void ShowClientsReport();
  const SentDocument* Selected() const;
  void OpenSelected();
  void SendAgain();

  Business& business_;
  ScreenTools tools_;
  std::vector<SentDocument> documents_;
  QLineEdit* txtFilter;
  Grid* ListView1;
  QPushButton* cmdSendAgain;
  QPushButton* btnClose;
  QPushButton* cmdOpen;
};

}  // namespace quillary::mail
