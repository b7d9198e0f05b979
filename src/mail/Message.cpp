#include "mail/Message.h"

#include <QRegularExpression>
#include <QUuid>

namespace quillary::mail {
namespace {

struct RouteFacts {
  Route route;
  const char* code;
  const char* word;
};
constexpr RouteFacts kRoutes[] = {{Route::HeadOffice, "headoffice", "Head office"},
                                  {Route::LocalMailClient, "client", "Local mail client"},
                                  {Route::Smtp, "smtp", "Mail server"}};

const RouteFacts& FactsOf(Route route) {
  for (const RouteFacts& facts : kRoutes)
    if (facts.route == route) return facts;
  return kRoutes[0];
}

}  // namespace

QString CodeOf(Route route) {
  return QString::fromLatin1(FactsOf(route).code);
}

QString WordOf(Route route) {
  return QString::fromLatin1(FactsOf(route).word);
}

std::optional<Route> RouteFromCode(const QString& code) {
  for (const RouteFacts& facts : kRoutes)
    if (code == QLatin1StringView(facts.code)) return facts.route;
  return std::nullopt;
}

QStringList AddressesIn(const QString& field) {
  static const QRegularExpression between(QStringLiteral("[\\s,;]+"));
  QStringList addresses = field.split(between, Qt::SkipEmptyParts);
  addresses.removeDuplicates();
  return addresses;
}

std::optional<QString> FaultOfAddress(const QString& address) {
  // Plain addresses only: quoted ones and those with letters beyond ASCII are refused by many
  // servers, and every other sign could end the address within a command of the conversation.
  static const QRegularExpression plain(
      QStringLiteral("\\A[A-Za-z0-9.!#$%&'*+/=?^_`{|}~-]+@[A-Za-z0-9]([A-Za-z0-9.-]*[A-Za-z0-9])?"
                     "\\z"));
  if (address.isEmpty()) return QStringLiteral("Please enter an email address.");
  constexpr qsizetype kLongest = 254;
  if (plain.match(address).hasMatch() && address.size() <= kLongest) return std::nullopt;
  return QStringLiteral("\"%1\" is no email address. Please correct it.")
      .arg(address.simplified().left(80));
}

QString NewMessageId() {
  return QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral("@quillary");
}

}  // namespace quillary::mail
