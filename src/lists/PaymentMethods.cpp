#include "lists/PaymentMethods.h"

namespace quillary::lists {
namespace {

std::optional<Refusal> CheckWord(const QString& word) {
  if (!word.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter a value for the Payment Method."),
                 QStringLiteral("word")};
}

}  // namespace

std::vector<ListedPaymentMethod> ListPaymentMethods(Business& business) {
  std::vector<ListedPaymentMethod> methods;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM lstPayment_Methods ORDER BY Sequence, Payment_Method_ID;")))
    methods.push_back({Id<PaymentMethodRow>(row[u"Payment_Method_ID"].ToLong()),
                       row[u"Payment_Method"].ToText().toUpper()});
  return methods;
}

std::optional<Refusal> InsertPaymentMethod(Business& business, const QString& word) {
  if (std::optional<Refusal> refusal = CheckWord(word)) return refusal;
  Transaction insertion(business);
  const qint64 sequence =
      business.FirstField(Sql("SELECT MAX(Sequence) + 1 FROM lstPayment_Methods")).ToLong(1);
  business.Write(Sql("INSERT INTO lstPayment_Methods (Payment_Method, Sequence) VALUES ({}, {})",
                     word.trimmed().toUpper(), sequence));
  insertion.Commit();
  return std::nullopt;
}

std::optional<Refusal> UpdatePaymentMethod(Business& business,
                                           std::optional<Id<PaymentMethodRow>> method,
                                           const QString& word) {
  if (std::optional<Refusal> refusal = CheckWord(word)) return refusal;
  if (!method) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.Write(
      Sql("UPDATE lstPayment_Methods SET Payment_Method = {} WHERE Payment_Method_ID = {}",
          word.trimmed().toUpper(), method),
      Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeletePaymentMethod(Business& business,
                                           std::optional<Id<PaymentMethodRow>> method) {
  if (!method) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.Write(Sql("DELETE FROM lstPayment_Methods WHERE Payment_Method_ID = {}", method),
                 Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::lists
