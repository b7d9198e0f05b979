#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "lists/Choices.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// Whom the business buys from, and how it usually does.
namespace quillary::accounts {

/// What a supplier is; also what the screen holds of one that is not stored yet.
struct SupplierForm {
  std::optional<Id<Supplier>> supplierId = {};
  QString name = {};
  QString contactName = {};
  QString streetNumber = {};
  QString street = {};
  QString suburb = {};
  QString postCode = {};
  QString phone = {};
  QString fax = {};
  QString email = {};
  QString abn = {};
  QString paymentType = {};                     // the usual method, as its word
  std::optional<Id<Account>> glAccountId = {};  // the usual account of expense
};
std::vector<SupplierForm> ListSuppliers(Business& business);  // by name
std::vector<lists::Choice<Supplier>> ListSupplierChoices(Business& business);

/// Refuses a supplier without name, and one without an account that is there.
std::optional<Refusal> CheckSupplier(Business& business, const SupplierForm& form);
/// Stores the supplier, inserting it first when it is new, and gives `form` its key. Writes nothing
/// when CheckSupplier() refuses.
std::optional<Refusal> SaveSupplierDetails(Business& business, SupplierForm& form);
/// Asks by name, then deletes. What was bought from the supplier stays. Refuses when none is
/// selected.
std::optional<Refusal> RemoveSupplier(Business& business, Prompter& prompter,
                                      std::optional<Id<Supplier>> supplier);

/// How the business usually pays a supplier.
struct SupplierHabits {
  std::optional<Id<Account>> glAccountId;
  QString paymentMethod;
};
SupplierHabits HabitsOf(Business& business, Id<Supplier> supplier);
/// What was bought there before, each item once, by name.
QStringList ListItemsOf(Business& business, Id<Supplier> supplier);

struct PreviousPurchase {
  Id<Purchase> purchase;
  QString description;
  Money amount;
  QDate purchaseDate;
};
std::vector<PreviousPurchase> ListPurchasesOf(Business& business,
                                              Id<Supplier> supplier);  // the newest first

/// The label of a supplier's tax number in the country of the business: "ABN".
QString SupplierRegistrationLabel(Business& business);

}  // namespace quillary::accounts
