#pragma once

#include "mail/Outbox.h"

#include <functional>

namespace quillary::mail {

/// What a run of the outbox did.
struct RunResult {
  int sent = 0;
  int failed = 0;
  int inDoubt = 0;
  int left = 0;     // that still wait
  QString stopped;  // why the run ended early: nobody to talk to; empty otherwise

  /// "12 mails were sent, 1 failed ...", for the user.
  QString InWords() const;
};

/// Told after each mail how many of how many are done; false pauses the run.
using MailProgress = std::function<bool(int done, int total)>;

/// What every mail of the business has: the sender, who gets copies.
Message MessageOf(Business& business, const StoredMail& mail);
/// The sender's address: that of the business, or the one of the service that a business without
/// one sends by.
QString SenderAddress(Business& business);

/// Sends what waits for this courier's route, each once, in the order in which it came. What a
/// server puts off is tried twice more before it fails. Ends when nobody answers.
RunResult SendWaiting(Business& business, Outbox& outbox, Courier& courier,
                      const MailProgress& progress = nullptr);

}  // namespace quillary::mail
