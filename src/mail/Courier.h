#pragma once

#include "mail/Message.h"

namespace quillary::mail {

/// What became of an attempt to send.
enum class Outcome {
  Sent,
  Refused,      // for good: another attempt would end the same
  TryLater,     // not this time, and certainly not sent
  Unreachable,  // nobody to talk to, so no other mail would leave either
  InDoubt,      // all of it was handed over, and no answer came
};
struct Delivery {
  Outcome outcome = Outcome::Sent;
  QString reason = {};  // in words for the user; empty when it was sent
};

/// Sends mails by one route, one after the other.
class Courier {
 public:
  virtual ~Courier() = default;
  virtual Route By() const = 0;
  virtual Delivery Send(const Message& message) = 0;
};

}  // namespace quillary::mail
