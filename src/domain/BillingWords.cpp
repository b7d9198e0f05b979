#include "domain/BillingWords.h"

#include <array>

namespace quillary {
namespace {

constexpr auto MakeStatementTypes() {
  using enum StatementGroup;
  return std::array{
      StatementTypeFacts{StatementType::Monthly, u"Monthly", u"Monthly", {OfClients, OnInvoice}},
      StatementTypeFacts{StatementType::WithJob, u"With Job", u"With job", {OfClients, OnInvoice}},
      StatementTypeFacts{StatementType::None, u"None", u"", {OfClients}},
      StatementTypeFacts{StatementType::Statement, u"Statement", u"", {}},
  };
}
constexpr auto kStatementTypes = MakeStatementTypes();
static_assert(IsInOrder(kStatementTypes));

// "DIRECT DEBIT" is none of ours: what comes by it stands in the bank already.
constexpr auto MakePaymentMethods() {
  using enum PaymentGroup;
  return std::array{
      PaymentMethodFacts{PaymentMethod::Cash, u"CASH", {BankedAsCash}},
      PaymentMethodFacts{PaymentMethod::Cheque, u"CHEQUE", {BankedAsCheque}},
      PaymentMethodFacts{PaymentMethod::Visa, u"VISA", {BankedAsCard}},
      PaymentMethodFacts{PaymentMethod::Master, u"MASTER", {BankedAsCard}},
      PaymentMethodFacts{PaymentMethod::Credit, u"CREDIT", {BankedAsCard}},
      PaymentMethodFacts{PaymentMethod::Eft, u"EFT", {BankedAsCard}},
      PaymentMethodFacts{PaymentMethod::BankCard, u"BANK CARD", {BankedAsCard}},
      PaymentMethodFacts{PaymentMethod::Adjustment, u"ADJUSTMENT", {PaymentGroup::TakesAnyAmount}},
      PaymentMethodFacts{PaymentMethod::CreditVoucher, u"CREDIT V", {PaymentGroup::TakesAnyAmount}},
  };
}
constexpr auto kPaymentMethods = MakePaymentMethods();
static_assert(IsInOrder(kPaymentMethods));

constexpr std::array kAccountTypes = {
    AccountTypeFacts{AccountType::Expense, u"Expense"},
    AccountTypeFacts{AccountType::Revenue, u"Revenue"},
    AccountTypeFacts{AccountType::Asset, u"Asset"},
};
static_assert(IsInOrder(kAccountTypes));

}  // namespace

std::span<const StatementTypeFacts> TableOf(StatementType) {
  return kStatementTypes;
}

std::span<const PaymentMethodFacts> TableOf(PaymentMethod) {
  return kPaymentMethods;
}

std::span<const AccountTypeFacts> TableOf(AccountType) {
  return kAccountTypes;
}

bool TakesAnyAmount(const QString& paymentMethod) {
  for (const PaymentMethodFacts& method : kPaymentMethods) {
    if (paymentMethod == method.word) return method.groups.Has(PaymentGroup::TakesAnyAmount);
  }
  return false;
}

}  // namespace quillary
