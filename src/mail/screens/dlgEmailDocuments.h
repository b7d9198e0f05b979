#pragma once

#include "base/ports/requests/Mail.h"
#include "kit/Dialog.h"
#include "mail/Outbox.h"

class QComboBox;
class QPlainTextEdit;
class QProgressBar;
class QRadioButton;

namespace quillary::mail {

/// Puts a document for each client into the outbox: which one, with which text, by which route.
class dlgEmailDocuments : public Dialog {
  Q_OBJECT

 public:
  dlgEmailDocuments(Business& business, const EmailDocuments& asked);

 private:
  void MakeControls();
  void LayOut();
  Contents Chosen() const;
  QString Facts() const;
  void Queue();

  Business& business_;
  EmailDocuments asked_;
  QRadioButton* optInvoices;
  QRadioButton* optStatements;
  QRadioButton* optReminders;
  QComboBox* cmbRoute;
  QPlainTextEdit* txtMessage;
  QLabel* lblFacts;
  QProgressBar* prgRun;
  QPushButton* cmdCancel;
  QPushButton* cmdSend;
};

}  // namespace quillary::mail
