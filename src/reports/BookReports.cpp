#include "domain/BillingWords.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ProfitAndLoss.h"
#include "reports/ReportKinds.h"
#include "reports/TaxReport.h"

#include <QHash>

/// The reports of what the business spent and owns.
namespace quillary::reports {
namespace {

ReportData CollectAssets(Business& business, const ReportCriteria&) {
  ListReport list;
  list.columns = {
      FieldColumn("Asset", "<+1.5in", CellKind::Text, "Description"),
      FieldColumn("Supplier", "<+1in", CellKind::Text, "Supplier_Name"),
      FieldColumn("Purchase date", "^+.80in", CellKind::Day, "Purchase_Date"),
      FieldColumn("Cost", ">+1in", CellKind::Money, "Amount"),
      FieldColumn("Model", "<+1in", CellKind::Text, "Model"),
      FieldColumn("Serial No.", "<+1in", CellKind::Text, "Serial_Number"),
      FieldColumn("Depreciation (%)", "^+.95in", CellKind::Text, "Depreciation"),
  };
  list.hasTotal = false;
  list.link = LinkTo(ReportLink::To::Purchase, "Purchase_ID");
  ReportData data{.title = QStringLiteral("Asset Register")};
  data.scope = {SystemName()};
  data.sections = {CollectList(
      list, business.RunSQL(Sql(
                "SELECT Purchases.*, Suppliers.Supplier_Name FROM Purchases LEFT JOIN Suppliers "
                "ON Purchases.Supplier_ID = Suppliers.Supplier_ID "
                "WHERE Purchases.Capital = True ORDER BY Purchases.Description;")))};
  return data;
}

// Purchases, as they were made or as the ledger holds them.

std::vector<ListColumn> PurchaseColumns(const Business& business, const char* amount,
                                        CellOf account) {
  return {
      FieldColumn("Supplier", "<+1in", CellKind::Text, "Supplier_Name", Total::Word),
      FieldColumn("Item Description", "<+1.5in", CellKind::Text, "Description", Total::Count),
      FieldColumn("Purchase date", "^+.85in", CellKind::Day, "Purchase_Date"),
      FieldColumn("Invoice #", "<+.75in", CellKind::Text, "Invoice_Number"),
      CellColumn(QStringLiteral("Account"), "<+1.75in", CellKind::Text, std::move(account)),
      FieldColumn("Cost", ">+.75in", CellKind::Money, amount, Total::Sum),
      CellColumn(
          TaxHeading(business), ">+.65in", CellKind::Money,
          [](const Record& row) { return row[u"GST_Included"]; }, Total::Sum),
  };
}

/// The accounts of the purchases of the days, each named once.
QHash<qint64, QStringList> AccountsOfPurchases(Business& business, const DateRange& days) {
  QHash<qint64, QStringList> accounts;
  for (const Record row : business.RunSQL(
           Sql("SELECT General_Ledger_Entries.Purchase_ID, "
               "General_Ledger_Accounts.GL_Account_Name FROM (Purchases INNER JOIN "
               "General_Ledger_Entries ON Purchases.Purchase_ID = "
               "General_Ledger_Entries.Purchase_ID) INNER JOIN General_Ledger_Accounts ON "
               "General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE ") +
           Within("Purchases.Purchase_Date", days) +
           Sql(" ORDER BY General_Ledger_Accounts.GL_Account_Name"))) {
    QStringList& names = accounts[row[u"Purchase_ID"].ToLong()];
    const QString name = row[u"GL_Account_Name"].ToText();
    if (!names.contains(name)) names += name;
  }
  return accounts;
}

ReportData PurchasesHead(const ReportCriteria& criteria) {
  ReportData data{.title = QStringLiteral("Purchases Made")};
  data.scope = {FromTo(criteria.days)};
  return data;
}

ReportData CollectPurchases(Business& business, const ReportCriteria& criteria) {
  const auto accounts = AccountsOfPurchases(business, criteria.days);
  ListReport list;
  list.columns = PurchaseColumns(business, "Amount", [accounts](const Record& row) -> Value {
    const QStringList names = accounts.value(row[u"Purchase_ID"].ToLong());
    return names.isEmpty() ? QStringLiteral("(none)") : names.join(u'\n');
  });
  list.link = LinkTo(ReportLink::To::Purchase, "Purchase_ID");
  const Sql order = criteria.sort == u"supplier"
                        ? Sql(" ORDER BY Supplier_Name, Purchases.Purchase_ID;")
                        : Sql(" ORDER BY Purchase_Date, Purchases.Purchase_ID;");
  ReportData data = PurchasesHead(criteria);
  data.sections = {CollectList(
      list, business.RunSQL(Sql("SELECT Purchases.*, Suppliers.Supplier_Name FROM Purchases LEFT "
                                "JOIN Suppliers ON Purchases.Supplier_ID = Suppliers.Supplier_ID "
                                "WHERE ") +
                            Within("Purchase_Date", criteria.days) + order))};
  return data;
}

ReportData CollectPurchasesByAccount(Business& business, const ReportCriteria& criteria) {
  const auto account = [](const Record& row) {
    return row[u"GL_Account_Name"].ToText(QStringLiteral("(No specific account)"));
  };
  ListReport list;
  list.columns = PurchaseColumns(business, "GL_Amount",
                                 [account](const Record& row) -> Value { return account(row); });
  list.group = [account](const Record& row) {
    return GroupKey{account(row), row[u"GL_Account_ID"].ToLong()};
  };
  list.link = LinkTo(ReportLink::To::Purchase, "Purchase_ID");
  ReportData data = PurchasesHead(criteria);
  data.scope += QStringLiteral(
      "This report is based on the Account amount and not the actual purchase amount");
  data.sections = {CollectList(
      list,
      business.RunSQL(
          Sql("SELECT Purchases.Purchase_ID, Purchases.Description, Purchases.Purchase_Date, "
              "Purchases.Invoice_Number, Suppliers.Supplier_Name, "
              "General_Ledger_Entries.GL_Account_ID, General_Ledger_Entries.GL_Amount, "
              "General_Ledger_Entries.GST_Included, General_Ledger_Accounts.GL_Account_Name "
              "FROM ((General_Ledger_Entries INNER JOIN Purchases ON "
              "General_Ledger_Entries.Purchase_ID = Purchases.Purchase_ID) LEFT JOIN Suppliers ON "
              "Purchases.Supplier_ID = Suppliers.Supplier_ID) LEFT JOIN General_Ledger_Accounts "
              "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
              "WHERE ") +
          Within(criteria.record ? "Entry_Date" : "Purchase_Date", criteria.days) +
          OfAccount("General_Ledger_Entries.GL_Account_ID", criteria.record) +
          Sql(" ORDER BY GL_Account_Name, General_Ledger_Entries.GL_Account_ID, Purchase_Date, "
              "Purchases.Purchase_ID, General_Ledger_Entries.GL_Entry_ID;")))};
  return data;
}

ReportData CollectUnpresentedCheques(Business& business, const ReportCriteria&) {
  ListReport list;
  list.columns = {
      FieldColumn("Cheque No.", "<+1.5in", CellKind::Text, "Cheque_Number", Total::Word),
      FieldColumn("Supplier", "<+2in", CellKind::Text, "Supplier_Name"),
      FieldColumn("Purchase date", "<+1.5in", CellKind::Day, "Purchase_Date"),
      FieldColumn("Amount", ">+1.5in", CellKind::Money, "Amount", Total::Sum),
  };
  list.link = LinkTo(ReportLink::To::Purchase, "Purchase_ID");
  ReportData data{.title = QStringLiteral("Unpresented Cheques")};
  data.scope = {SystemName()};
  data.sections = {CollectList(
      list,
      business.RunSQL(Sql("SELECT Purchases.Purchase_ID, Purchases.Cheque_Number, "
                          "Suppliers.Supplier_Name, Purchases.Purchase_Date, Purchases.Amount "
                          "FROM Purchases LEFT JOIN Suppliers ON Purchases.Supplier_ID = "
                          "Suppliers.Supplier_ID WHERE (((Purchases.Payment_Method)={}) AND "
                          "((Purchases.Cheque_Reconciled)=False)) "
                          "ORDER BY Purchases.Purchase_Date, Purchases.Purchase_ID; ",
                          PaymentMethod::Cheque)))};
  return data;
}

}  // namespace

std::vector<ReportKind> BookReportKinds() {
  std::vector<ReportKind> kinds = ProfitAndLossKinds();
  const auto tax = TaxReportKinds();
  kinds.insert(kinds.end(), tax.begin(), tax.end());
  kinds.insert(kinds.end(),
               {{"asset-register", "Assets", "Asset Register.doc", Asks::Nothing, CollectAssets},
                {"purchases",
                 "Purchases made",
                 "Purchases.doc",
                 Asks::Days,
                 CollectPurchases,
                 {{"date", "Purchase date"}, {"supplier", "Supplier"}}},
                {"purchases-by-account", "Purchases made, by account", "Purchases.doc", Asks::Days,
                 CollectPurchasesByAccount},
                {"unpresented-cheques", "Unpresented cheques", "Unpresented Cheques.doc",
                 Asks::Nothing, CollectUnpresentedCheques}});
  return kinds;
}

}  // namespace quillary::reports
