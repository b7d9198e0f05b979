#pragma once

#include "base/Id.h"

/// The numbers of rows in tests: 1_client, 2_entry.
namespace quillary {

constexpr Id<Account> operator""_account(unsigned long long number) {
  return Id<Account>(static_cast<qint64>(number));
}
constexpr Id<Client> operator""_client(unsigned long long number) {
  return Id<Client>(static_cast<qint64>(number));
}
constexpr Id<Entry> operator""_entry(unsigned long long number) {
  return Id<Entry>(static_cast<qint64>(number));
}
constexpr Id<Invoice> operator""_invoice(unsigned long long number) {
  return Id<Invoice>(static_cast<qint64>(number));
}
constexpr Id<Payment> operator""_payment(unsigned long long number) {
  return Id<Payment>(static_cast<qint64>(number));
}
constexpr Id<Service> operator""_service(unsigned long long number) {
  return Id<Service>(static_cast<qint64>(number));
}

}  // namespace quillary
