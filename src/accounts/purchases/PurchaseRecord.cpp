#include "accounts/purchases/PurchaseRecord.h"

#include "accounts/purchases/Suppliers.h"
#include "domain/BillingWords.h"

#include <algorithm>

namespace quillary::accounts {
namespace {

bool IsSupplier(Business& business, std::optional<Id<Supplier>> supplier) {
  return supplier &&
         business.RunSQL(Sql("SELECT Supplier_ID FROM Suppliers WHERE Supplier_ID = {}", supplier))
             .HasRows();
}

void WritePurchase(Business& business, const PurchaseForm& form) {
  business.Write(Sql("UPDATE Purchases SET Supplier_ID = {}, Description = {}, Amount = {}, "
                     "GST_Included = {}, Tax_Exempt = {}, Purchase_Date = {}, Notes = {}, "
                     "Invoice_Number = {}, Payment_Method = {}, Cheque_Number = {}, Capital = {}, "
                     "Serial_Number = {}, Model = {}, Depreciation = {} WHERE Purchase_ID = {}",
                     form.supplierId, form.description, form.amount, form.gst, form.taxExempt,
                     form.purchaseDate, form.notes, form.invoiceNumber.trimmed(),
                     form.paymentMethod, form.chequeNumber, form.capital, form.serialNumber,
                     form.model, form.depreciation, form.purchaseId),
                 Rows::Exactly(1));
}

}  // namespace

PurchaseForm BlankPurchase(Business& business, std::optional<Id<Supplier>> supplier) {
  PurchaseForm form;
  form.purchaseDate = business.Today();
  form.paymentMethod = TextOf(PaymentMethod::Cash);
  if (!IsSupplier(business, supplier)) return form;
  form.supplierId = supplier;
  const QString usual = HabitsOf(business, *supplier).paymentMethod;
  if (!usual.isEmpty()) form.paymentMethod = usual;
  return form;
}

std::optional<PurchaseForm> LoadPurchase(Business& business, Id<Purchase> purchase) {
  const Recordset stored =
      business.RunSQL(Sql("SELECT * FROM Purchases WHERE Purchase_ID = {}", purchase));
  if (stored.EndOfFile()) return std::nullopt;
  PurchaseForm form;
  form.purchaseId = purchase;
  form.supplierId = stored.Field(u"Supplier_ID").ToId<Supplier>();
  form.description = stored.Field(u"Description").ToText();
  form.amount = stored.Field(u"Amount").ToMoney();
  form.gst = stored.Field(u"GST_Included").ToMoney();
  form.taxExempt = stored.Field(u"Tax_Exempt").ToBool();
  form.purchaseDate = stored.Field(u"Purchase_Date").ToDate(business.Today());
  form.notes = stored.Field(u"Notes").ToText();
  form.invoiceNumber = stored.Field(u"Invoice_Number").ToText();
  form.paymentMethod = stored.Field(u"Payment_Method").ToText();
  form.chequeNumber = stored.Field(u"Cheque_Number").ToText();
  form.capital = stored.Field(u"Capital").ToBool();
  form.serialNumber = stored.Field(u"Serial_Number").ToText();
  form.model = stored.Field(u"Model").ToText();
  const Value& depreciation = stored.Field(u"Depreciation");
  if (!depreciation.IsNull()) form.depreciation = depreciation.ToDouble();
  return form;
}

std::optional<Refusal> CheckPurchase(Business& business, const PurchaseForm& form) {
  if (!IsSupplier(business, form.supplierId))
    return Refusal{QStringLiteral("Please select a supplier."), QStringLiteral("supplierId")};
  if (form.amount == Money())
    return Refusal{QStringLiteral("Please enter a valid amount."), QStringLiteral("amount")};
  return std::nullopt;
}

std::optional<Refusal> SavePurchase(Business& business, PurchaseForm& form) {
  if (const auto refusal = CheckPurchase(business, form)) return refusal;
  Transaction save(business);
  PurchaseForm stored = form;
  if (form.IsNew()) {
    stored.purchaseId = business.InsertReturningKey<Purchase>(
        Sql("INSERT INTO Purchases (Description) VALUES ('...New purchase');"));
  }
  WritePurchase(business, stored);
  business.Write(
      Sql("UPDATE General_Ledger_Entries SET GL_Entry_Description = {}, "
          "Entry_Date = {} WHERE Purchase_ID = {}",
          stored.description, stored.purchaseDate, stored.purchaseId));
  save.Commit();
  form = stored;
  return std::nullopt;
}

bool IsTotalEqual(const billing::LedgerLines& lines, Money cost) {
  return lines.totalAmount == cost.Rounded(2);
}

}  // namespace quillary::accounts
