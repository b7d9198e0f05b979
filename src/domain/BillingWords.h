#pragma once

#include "domain/Vocabulary.h"

/// The words that money is billed, paid and booked by.
namespace quillary {

/// How a client is billed, and by what an invoice was made. Statement stands on rows of earlier
/// files alone, which are no invoices.
enum class StatementType { Monthly, WithJob, None, Statement };

enum class StatementGroup {
  OfClients,  // what a client can be billed by
  OnInvoice,  // what an invoice can be by hand
};

struct StatementTypeFacts {
  StatementType value;
  QStringView word;
  QStringView onInvoice;  // as the screen of an invoice writes it; empty when it cannot
  Groups<StatementGroup> groups;
};
std::span<const StatementTypeFacts> TableOf(StatementType);

using StoredStatementType = Stored<StatementType>;

/// The ways to pay that the house itself knows. A list of the owner's holds these and others, and a
/// payment keeps the word alone.
enum class PaymentMethod {
  Cash,
  Cheque,
  Visa,
  Master,
  Credit,
  Eft,
  BankCard,
  Adjustment,
  CreditVoucher,
};

enum class PaymentGroup {
  BankedAsCash,
  BankedAsCheque,
  BankedAsCard,    // cards and other electronic money
  TakesAnyAmount,  // nothing and less than nothing too
};

struct PaymentMethodFacts {
  PaymentMethod value;
  QStringView word;
  Groups<PaymentGroup> groups;
};
std::span<const PaymentMethodFacts> TableOf(PaymentMethod);

/// "('CASH')" for a statement, to be compared with the word in upper case.
inline Sql MethodsOf(PaymentGroup group) {
  return ListOf<PaymentMethod>(group);
}
/// Whether a payment made that way may be of nothing or less. To the letter: a method that the
/// owner spelled otherwise is the owner's own, and lets no refund through by accident.
bool TakesAnyAmount(const QString& paymentMethod);

/// What an account of the general ledger is for.
enum class AccountType { Expense, Revenue, Asset };

struct AccountTypeFacts {
  AccountType value;
  QStringView word;
};
std::span<const AccountTypeFacts> TableOf(AccountType);

}  // namespace quillary
