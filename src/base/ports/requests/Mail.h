#pragma once

#include "base/DateRange.h"
#include "base/DateTime.h"
#include "base/Id.h"

#include <QString>

#include <vector>

/// Requests that send mails and show what was sent.
namespace quillary {

/// Sends one plain mail without asking the user; whether it left is the answer.
struct SendMail {
  using Result = bool;
  QString to;
  QString subject;
  QString body;
};
/// Lets the user choose an address and write a text, and mails a file with them; whether it left.
struct EmailFile {
  using Result = bool;
  QString subject;
  QString file;
  // Whom it is about; nobody in particular without any of them.
  std::vector<Id<Client>> clients = {};
  std::vector<Id<Invoice>> invoices = {};
};
/// Mails a document of the invoices to each of their clients.
struct EmailDocuments {
  std::vector<Id<Invoice>> invoices;
  DateRange days;  // of statements
  bool priceIncludesGST = true;
};
struct OpenOutbox {};
/// Writes the file that word processors merge into letters to clients.
struct OpenMailMerge {};

/// A mail to a client, as her page shows it.
struct MailToClient {
  qint64 number = 0;
  QString state;
  int hue = 0;  // a Hue
  DateTime when;
  QString to;
  QString subject;
  QString route;
  QString document;  // path; empty for none
};
struct ListMailsTo {
  using Result = std::vector<MailToClient>;
  Id<Client> client;
};
/// Opens a document that was sent.
struct OpenMailedDocument {
  QString file;
};

}  // namespace quillary
