#include "accounts/purchases/PurchaseRecord.h"
#include "accounts/purchases/PurchasesList.h"
#include "accounts/purchases/Suppliers.h"
#include "billing/payments/PaymentRecord.h"
#include "cli/Command.h"
#include "cli/LedgerLineOptions.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "diary/DiaryDay.h"

/// Suppliers and what is bought from them, for scripts.
namespace quillary::cli {
namespace {

QString WordOf(const Arguments& arguments, const char* option) {
  return arguments.options.value(QLatin1StringView(option));
}

/// As the list spells it; a method that the list lacks is kept as it was typed.
QString MethodOf(Business& business, const Arguments& arguments, const QString& usual) {
  if (!arguments.Has("method")) return usual;
  const QString typed = WordOf(arguments, "method");
  const QString listed = billing::ListedPaymentMethod(business, typed);
  return listed.isEmpty() ? typed : listed;
}

std::optional<double> DepreciationOf(const Arguments& arguments) {
  if (!arguments.Has("depreciation")) return std::nullopt;
  bool isNumber = false;
  const double percent = WordOf(arguments, "depreciation").toDouble(&isNumber);
  if (!isNumber) throw WrongUsage(QStringLiteral("--depreciation takes a percentage"));
  return percent;
}

accounts::PurchaseForm PurchaseFrom(Business& business, const Arguments& arguments, Money amount) {
  accounts::PurchaseForm form =
      accounts::BlankPurchase(business, arguments.Key<Supplier>("supplier"));
  form.description = WordOf(arguments, "item");
  form.amount = amount;
  form.taxExempt = arguments.Has("exempt");
  form.gst = billing::TaxWithin(business, amount, form.taxExempt);
  form.purchaseDate = arguments.Date("date").value_or(form.purchaseDate);
  form.paymentMethod = MethodOf(business, arguments, form.paymentMethod);
  form.chequeNumber = WordOf(arguments, "cheque");
  form.invoiceNumber = WordOf(arguments, "invoice");
  form.capital = arguments.Has("capital");
  form.model = WordOf(arguments, "model");
  form.serialNumber = WordOf(arguments, "serial");
  form.depreciation = DepreciationOf(arguments);
  return form;
}

/// The lines get the purchase's date and item from the save that follows them.
void StoreExpenseLines(Business& business, accounts::PurchaseForm& form,
                       std::vector<billing::LedgerLineForm> lines) {
  if (lines.empty()) return;
  for (billing::LedgerLineForm& line : lines) {
    line.gst = billing::TaxWithin(business, line.amount, form.taxExempt);
    ThrowIf(billing::SaveAccount(business, *form.purchaseId, line, billing::SaveLedgerLine::AsNew));
  }
  if (!accounts::IsTotalEqual(billing::LoadAccounts(business, *form.purchaseId), form.amount))
    throw CommandFailure(QString::fromLatin1(accounts::kLinesMustMatch));
  ThrowIf(accounts::SavePurchase(business, form));
}

void RunPurchase(const Call& call) {
  const Money amount = AmountOf(call.arguments, "amount");
  const std::vector<billing::LedgerLineForm> lines = LedgerLinesOf(call.arguments, "line");
  const auto business = OpenCurrentBusiness(call);
  Transaction all(*business);
  accounts::PurchaseForm form = PurchaseFrom(*business, call.arguments, amount);
  ThrowIf(accounts::SavePurchase(*business, form));
  StoreExpenseLines(*business, form, lines);
  all.Commit();
  business->CloseConnection();
  ResultTable table({"Purchase_ID", "Supplier_ID", "Purchase_Date", "Amount", "GST_Included",
                     "Payment_Method", "Lines"});
  table.AddRow({*form.purchaseId, *form.supplierId, DayCell(call, form.purchaseDate), form.amount,
                form.gst, form.paymentMethod, static_cast<qint64>(lines.size())});
  PrintTable(call, table);
}

void RunPurchases(const Call& call) {
  const auto from = call.arguments.Date("from");
  const auto to = call.arguments.Date("to");
  if (!from || !to) throw WrongUsage(QStringLiteral("purchases needs --from and --to"));
  if (*from > *to) throw CommandFailure(QString::fromLatin1(diary::kInvalidDateRange));
  const auto business = OpenCurrentBusiness(call);
  const accounts::PurchasesList list = accounts::LoadPurchases(*business, {*from, *to});
  business->CloseConnection();
  ResultTable table({"Purchase_ID", "Purchase_Date", "Supplier_Name", "Description", "Amount",
                     "GST_Included", "GL_Account_Name", "Payment_Method", "GL_Amount",
                     "GL_GST_Included", "Matches"});
  for (const accounts::PurchaseRow& row : list.rows)
    table.AddRow({row.purchase, DayCell(call, row.purchaseDate), row.supplierName, row.description,
                  row.amount, row.gst, row.accountName, row.paymentMethod, row.glAmount, row.glGst,
                  !row.IsMismatch()});
  if (call.json) {
    call.out << "{\"rows\": ";
    table.PrintJson(call.out);
    call.out << ", \"Total_Amount\": " << list.totalAmount.ToText()
             << ", \"Total_GST\": " << list.totalGST.ToText() << "}\n";
    return;
  }
  table.PrintAligned(call.out);
  call.out << "total amount: " << list.totalAmount.ToCurrencyText() << '\n'
           << "with tax of:  " << list.totalGST.ToCurrencyText() << '\n';
}

void RunPurchaseDelete(const Call& call) {
  const auto purchase = ParseId<Purchase>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  if (!accounts::LoadPurchase(*business, purchase))
    throw CommandFailure(QStringLiteral("there is no purchase %1").arg(purchase.Number()));
  accounts::RemovePurchase(*business, purchase);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"deleted\": " << purchase.Number() << "}\n";
  else
    call.out << "purchase " << purchase.Number() << " deleted\n";
}

void RunSupplier(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  accounts::SupplierForm form{.name = WordOf(call.arguments, "name"),
                              .paymentType = MethodOf(*business, call.arguments, {}),
                              .glAccountId = call.arguments.Key<Account>("account")};
  ThrowIf(accounts::SaveSupplierDetails(*business, form));
  business->CloseConnection();
  ResultTable table({"Supplier_ID", "Supplier_Name", "GL_Account_ID", "Payment_Type"});
  table.AddRow({*form.supplierId, form.name, form.glAccountId, form.paymentType});
  PrintTable(call, table);
}

Command PurchaseCommand() {
  return {"purchase",
          "FILE --supplier ID --item T --amount A --method M [--line ACCOUNT_ID=AMOUNT]...",
          "Records a purchase with the accounts of expense that it is booked to. With lines, they "
          "have to come to the amount.",
          {{"supplier", "ID", "from whom"},
           {"item", "T", "what was bought"},
           {"amount", "A", "tax included; below 0 for a refund"},
           {"method", "M", "how it was paid; the supplier's habit when missing"},
           {"date", "DATE", "when; today when missing"},
           {"exempt", nullptr, "no tax in it"},
           {"cheque", "N", "the number of the cheque"},
           {"invoice", "N", "the supplier's invoice number"},
           {"capital", nullptr, "an asset"},
           {"model", "T", "of the asset"},
           {"serial", "T", "its serial number"},
           {"depreciation", "P", "its depreciation, in percent"},
           {"line", "ID=A", "an account and what it gets; may be given several times"}},
          1,
          1,
          RunPurchase};
}

}  // namespace

std::vector<Command> PurchaseCommands() {
  return {
      PurchaseCommand(),
      {"purchases",
       "FILE --from DATE --to DATE",
       "Lists the purchases of a period beside what their ledger lines come to.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"}, {"to", "DATE", "the last day"}},
       1,
       1,
       RunPurchases},
      {"purchase-delete",
       "FILE PURCHASE_ID",
       "Deletes a purchase with its ledger lines.",
       {},
       2,
       2,
       RunPurchaseDelete},
      {"supplier",
       "FILE --name T --account ID [--method M]",
       "Stores a supplier with its usual account of expense and way of being paid.",
       {{"name", "T", "its name"},
        {"account", "ID", "the account of expense that it is usually booked to"},
        {"method", "M", "how it is usually paid"}},
       1,
       1,
       RunSupplier},
  };
}

}  // namespace quillary::cli
