#pragma once

#include "base/ports/OutgoingMail.h"
#include "data/Business.h"

namespace quillary::mail {

/// What the outbox tells those who show figures of mails. While another program or a run holds the
/// outbox there is no figure to be had: nothing is said to be in doubt or still to be sent.
class MailsUnderWay : public OutgoingMail {
 public:
  explicit MailsUnderWay(Business& business) : business_(business) {}

  int InDoubt() override;
  std::vector<Id<Invoice>> NotMailed(const std::vector<Id<Invoice>>& invoices) override;

 private:
  Business& business_;
};

}  // namespace quillary::mail
