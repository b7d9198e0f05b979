#pragma once

#include "mail/Courier.h"
#include "mail/SmtpServer.h"

#include <functional>
#include <memory>

namespace quillary::mail {

class SmtpConversation;

/// Hands mails to a mail server, all of them over one connection. The server's certificate has to
/// be good; a password is never sent over a line that others can read.
class SmtpCourier : public Courier {
 public:
  /// `keepGoing` is asked every now and then while we wait for the server; false gives up.
  explicit SmtpCourier(SmtpServer server, std::function<bool()> keepGoing = nullptr);
  ~SmtpCourier() override;

  Route By() const override { return Route::Smtp; }
  Delivery Send(const Message& message) override;

 private:
  SmtpServer server_;
  std::unique_ptr<SmtpConversation> conversation_;
};

}  // namespace quillary::mail
