#pragma once

#include "mail/Outbox.h"

namespace quillary::mail {

/// A document that was made, and what is known of where it went.
struct SentDocument {
  QString file;  // full path
  DateTime date;
  std::optional<StoredMail> mail;  // that carried it, the newest

  /// "yyyy-MM-dd hh:mm:ss", by which they are sorted.
  QString DateHidden() const;
};

/// The files of `folder`, which holds the documents, and those that only the outbox has; the newest
/// first. Makes no file.
std::vector<SentDocument> ShowClientsReport(Business& business, const QString& folder);

/// What was sent to a client or is on its way there; the newest first. Of everybody without one.
std::vector<StoredMail> LoadSent(Business& business, std::optional<Id<Client>> client);

/// Opens a document: a PDF file in the viewer of the business's choice, the rest as the machine
/// does. False when it is gone, which the user has been told.
bool OpenDocument(Business& business, const QString& file);

}  // namespace quillary::mail
