#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The words that a payment or purchase can be made by. These keep the word itself, so a method can
/// be renamed or deleted whether it is in use or not, and what was paid stays as it was written.
namespace quillary::lists {

struct ListedPaymentMethod {
  Id<PaymentMethodRow> id;
  QString word;  // in upper case
};
std::vector<ListedPaymentMethod> ListPaymentMethods(Business& business);  // by sequence

/// Each refuses a blank word and stores it in upper case. A new one goes last.
std::optional<Refusal> InsertPaymentMethod(Business& business, const QString& word);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdatePaymentMethod(Business& business,
                                           std::optional<Id<PaymentMethodRow>> method,
                                           const QString& word);
std::optional<Refusal> DeletePaymentMethod(Business& business,
                                           std::optional<Id<PaymentMethodRow>> method);

}  // namespace quillary::lists
