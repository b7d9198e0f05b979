#include "accounts/purchases/Suppliers.h"

#include "accounts/TaxNames.h"

#include <algorithm>

namespace quillary::accounts {
namespace {

bool IsExpenseAccount(Business& business, std::optional<Id<Account>> account) {
  const auto choices = lists::ListExpenseAccountChoices(business);
  return std::ranges::any_of(
      choices, [account](const lists::Choice<Account>& choice) { return choice.id == account; });
}

void WriteSupplier(Business& business, const SupplierForm& form) {
  business.Write(
      Sql("UPDATE Suppliers SET Supplier_Name = {}, Contact_Name = {}, Street_Number = {}, "
          "Street = {}, Suburb = {}, Post_Code = {}, Phone = {}, Fax = {}, Email = {}, ABN = {}, "
          "Payment_Type = {}, GL_Account_ID = {} WHERE Supplier_ID = {}",
          form.name, form.contactName, form.streetNumber, form.street, form.suburb, form.postCode,
          form.phone, form.fax, form.email, form.abn, form.paymentType, form.glAccountId,
          form.supplierId),
      Rows::Exactly(1));
}

}  // namespace

std::vector<SupplierForm> ListSuppliers(Business& business) {
  std::vector<SupplierForm> suppliers;
  for (const Record row :
       business.RunSQL(Sql("SELECT * FROM Suppliers ORDER BY Supplier_Name, Supplier_ID;"))) {
    suppliers.push_back({.supplierId = row[u"Supplier_ID"].ToId<Supplier>(),
                         .name = row[u"Supplier_Name"].ToText(),
                         .contactName = row[u"Contact_Name"].ToText(),
                         .streetNumber = row[u"Street_Number"].ToText(),
                         .street = row[u"Street"].ToText(),
                         .suburb = row[u"Suburb"].ToText(),
                         .postCode = row[u"Post_Code"].ToText(),
                         .phone = row[u"Phone"].ToText(),
                         .fax = row[u"Fax"].ToText(),
                         .email = row[u"Email"].ToText(),
                         .abn = row[u"ABN"].ToText(),
                         .paymentType = row[u"Payment_Type"].ToText(),
                         .glAccountId = row[u"GL_Account_ID"].ToId<Account>()});
  }
  return suppliers;
}

std::vector<lists::Choice<Supplier>> ListSupplierChoices(Business& business) {
  std::vector<lists::Choice<Supplier>> choices;
  for (const SupplierForm& supplier : ListSuppliers(business))
    choices.push_back({*supplier.supplierId, supplier.name});
  return choices;
}

std::optional<Refusal> CheckSupplier(Business& business, const SupplierForm& form) {
  if (form.name.trimmed().isEmpty()) {
    return Refusal{QStringLiteral("Please enter the name of the supplier."),
                   QStringLiteral("name")};
  }
  if (!IsExpenseAccount(business, form.glAccountId)) {
    return Refusal{QStringLiteral("Please select the default Ledger account."),
                   QStringLiteral("glAccountId")};
  }
  return std::nullopt;
}

std::optional<Refusal> SaveSupplierDetails(Business& business, SupplierForm& form) {
  if (const auto refusal = CheckSupplier(business, form)) return refusal;
  Transaction save(business);
  SupplierForm stored = form;
  stored.name = form.name.trimmed();
  if (!stored.supplierId) {
    stored.supplierId = business.InsertReturningKey<Supplier>(
        Sql("INSERT INTO Suppliers (Supplier_Name) VALUES ('..New Supplier');"));
  }
  WriteSupplier(business, stored);
  save.Commit();
  form = stored;
  return std::nullopt;
}

std::optional<Refusal> RemoveSupplier(Business& business, Prompter& prompter,
                                      std::optional<Id<Supplier>> supplier) {
  if (!supplier) return Refusal{QStringLiteral("Please select a supplier to delete."), {}};
  const QString name =
      business
          .FirstField(Sql("SELECT Supplier_Name FROM Suppliers WHERE Supplier_ID = {}", supplier))
          .ToText();
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to remove this supplier %1?").arg(name));
  if (answer == Answer::Yes)
    business.Write(Sql("DELETE FROM Suppliers WHERE Supplier_ID = {}", supplier), Rows::Exactly(1));
  return std::nullopt;
}

SupplierHabits HabitsOf(Business& business, Id<Supplier> supplier) {
  const Recordset row = business.RunSQL(
      Sql("SELECT GL_Account_ID, Payment_Type FROM Suppliers WHERE Supplier_ID = {}", supplier));
  if (row.EndOfFile()) return {};
  return {row.Field(u"GL_Account_ID").ToId<Account>(), row.Field(u"Payment_Type").ToText()};
}

QStringList ListItemsOf(Business& business, Id<Supplier> supplier) {
  QStringList items;
  for (const Record row :
       business.RunSQL(Sql("SELECT DISTINCT Description FROM Purchases WHERE Supplier_ID = {} "
                           "ORDER BY Description;",
                           supplier))) {
    const QString item = row[u"Description"].ToText();
    if (!item.isEmpty()) items += item;
  }
  return items;
}

std::vector<PreviousPurchase> ListPurchasesOf(Business& business, Id<Supplier> supplier) {
  std::vector<PreviousPurchase> purchases;
  for (const Record row :
       business.RunSQL(Sql("SELECT Purchase_ID, Description, Amount, Purchase_Date FROM Purchases "
                           "WHERE Supplier_ID = {} ORDER BY Purchase_Date DESC, Purchase_ID DESC; ",
                           supplier)))
    purchases.push_back({Id<Purchase>(row[u"Purchase_ID"].ToLong()), row[u"Description"].ToText(),
                         row[u"Amount"].ToMoney(), row[u"Purchase_Date"].ToDate()});
  return purchases;
}

QString SupplierRegistrationLabel(Business& business) {
  const auto country =
      business.FirstField(Sql("SELECT Country_ID FROM infPersonalDetails")).ToId<Country>();
  QString label = GetCountryTaxNames(business, country).registrationName.trimmed();
  if (label.endsWith(u':')) label.chop(1);
  return label.isEmpty() ? QStringLiteral("ABN") : label;
}

}  // namespace quillary::accounts
