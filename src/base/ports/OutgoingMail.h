#pragma once

#include "base/Id.h"

#include <vector>

namespace quillary {

/// What is known of the mails on their way, for those who have no dealings with mails themselves.
class OutgoingMail {
 public:
  virtual ~OutgoingMail() = default;
  /// Of which nobody knows whether they have left.
  virtual int InDoubt() = 0;
  /// Those of the invoices that no mail carries, or did.
  virtual std::vector<Id<Invoice>> NotMailed(const std::vector<Id<Invoice>>& invoices) = 0;
};

}  // namespace quillary
