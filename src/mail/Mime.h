#pragma once

#include "mail/Message.h"

#include <QByteArray>

namespace quillary::mail {

/// The mail as a server takes it: headers, the text and the attachment, with lines ended by CR LF.
/// Whatever name, subject or address hold, they add no header; who gets a copy is not told. Throws
/// std::runtime_error when the attachment cannot be read.
QByteArray MimeOf(const Message& message);

}  // namespace quillary::mail
