#pragma once

#include "data/Business.h"
#include "mail/Courier.h"

namespace quillary::mail {

/// Lets the group's server send: it gets the file, then the mail with the settings by which it is
/// to send it.
class HeadOfficeCourier : public Courier {
 public:
  explicit HeadOfficeCourier(Business& business) : business_(business) {}

  Route By() const override { return Route::HeadOffice; }
  Delivery Send(const Message& message) override;

 private:
  QString UploadFile(const QString& path);

  Business& business_;
};

/// Whether a session with the group's server stands, opening one when there is a connection.
bool IsInternetConnected(HeadOffice& headOffice);

}  // namespace quillary::mail
