#pragma once

#include "base/DateTime.h"

#include <QString>
#include <QStringList>

#include <optional>

/// Mails: what goes out, by which way, and what became of it.
namespace quillary::mail {

/// The ways by which a mail can leave.
enum class Route {
  HeadOffice,       // the group's server sends it
  LocalMailClient,  // the machine's own mail program opens with it, and the user sends it there
  Smtp,             // we hand it to a mail server ourselves
};
/// "headoffice", "client", "smtp": as it is stored, and typed for the companion.
QString CodeOf(Route route);
std::optional<Route> RouteFromCode(const QString& code);
/// "Head office", "Local mail client", "Mail server".
QString WordOf(Route route);

struct Message {
  QString from;
  QString fromName;
  QString to;
  QString toName;
  QString copyTo;  // gets it too, unseen by the receiver; empty for nobody
  QString subject;
  QString text;
  QString attachment;  // path of the file; empty for none
  QString messageId;   // without its brackets
  DateTime date;
};

/// The addresses of a field, in which commas, semicolons and blanks part them.
QStringList AddressesIn(const QString& field);
/// What is wrong with one address, in words for the user; nothing when mail can go there. What
/// could add a line or a second receiver to a mail is refused here.
std::optional<QString> FaultOfAddress(const QString& address);
/// A new id, unlike any other: "3f2c...@quillary".
QString NewMessageId();

}  // namespace quillary::mail
