#pragma once

#include "clients/screens/ClientDesk.h"

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace quillary {
struct MailToClient;
class Grid;
}  // namespace quillary

namespace quillary::clients {

/// What was mailed to a client, and what is on its way there.
class ClientMailsPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientMailsPage(ClientDesk& desk);
  ~ClientMailsPage() override;

  size_t LoadMails();

 private:
  const MailToClient* Selected() const;
  void OpenDocument();
  void SendAgain();

  ClientDesk& desk_;
  std::vector<MailToClient> mails_;
  QLineEdit* txtMailFilter;
  Grid* grdMails;
  QPushButton* cmdResendMail;
  QPushButton* cmdOpenMailed;
};

}  // namespace quillary::clients
