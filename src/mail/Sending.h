#pragma once

#include "mail/Outbox.h"
#include "mail/OutboxRun.h"

#include <functional>
#include <memory>

namespace quillary::mail {

/// The route that the user's settings choose for documents: head office, or the local mail client.
Route ChosenRoute(const Business& business);
/// The route for what goes out without the user looking at each mail: head office where that is
/// chosen, otherwise the mail server, since nobody wants three hundred windows of a mail program.
Route RouteOfRuns(const Business& business);

std::unique_ptr<Courier> MakeCourier(Business& business, Route route,
                                     std::function<bool()> keepGoing = nullptr);

/// Gives a file the name that tells whom it was sent to, "Invoice [ann@example.org].pdf", and
/// returns its path. Throws std::runtime_error when it cannot be renamed, as with an address that
/// no file name can hold.
QString NameAfterReceiver(const QString& file, const QString& address);

/// Sends one mail now: it goes through the outbox like all others. The file, when there is one, is
/// named after the receiver first. False when it has not left; the user has been told why.
bool SendNow(Business& business, NewMail mail);

/// Sends a plain text by the mail server, for reports of errors: no outbox, no business that could
/// be what is broken. False when it failed, which the user has been told.
bool SendMailDirectly(Business& business, const QString& to, const QString& subject,
                      const QString& text);

}  // namespace quillary::mail
