#include "data/schema/Schema.h"

#include "data/schema/SchemaTables.h"
#include "data/schema/SeedRows.h"
#include "data/store/Connection.h"

#include <QFile>

namespace quillary {
namespace {

struct StoreIndex {
  const char* name;
  const char* table;
  std::vector<const char*> columns;
};

// A search without one of these reads a whole table for each row of another.
const std::vector<StoreIndex>& StoreIndexes() {
  static const std::vector<StoreIndex> indexes = {
      {"StoreDiaryClientDate", "Diary", {"Client_ID", "Schedule_Date"}},
      // Days are also summed, which then reads no row of the table itself.
      {"StoreDiaryDaySums", "Diary", {"Schedule_Date", "Sequence", "Status", "Total_Price"}},
      {"StoreDiaryInvoiceStatus", "Diary", {"Invoice_ID", "Status", "Schedule_Date"}},
      {"StoreDiaryPayment", "Diary", {"Payment_ID"}},
      {"StoreDiaryServicesDiary", "Diary_Services", {"Diary_ID"}},
      {"StoreClientServicesClient", "Client_Services", {"Client_ID"}},
      {"StoreClientsDisplayName", "Clients", {"Display_Name"}},
      {"StoreQuotesClient", "Quotes", {"Client_ID"}},
      {"StoreQuoteServicesQuote", "Quote_Services", {"Quote_ID"}},
      {"StoreInvoicesClientPaid", "Invoices", {"Client_ID", "IsPaid", "Generation_Date"}},
      {"StoreInvoicesDaySums", "Invoices", {"Generation_Date", "Statement_Type", "Total_Amount"}},
      {"StoreInvoiceItemsInvoice", "Invoice_Items", {"Invoice_ID"}},
      {"StorePaymentsBanking", "Payments", {"Banking_ID"}},
      {"StorePaymentsDaySums", "Payments", {"Payment_Date", "Amount"}},
      {"StorePurchasesDate", "Purchases", {"Purchase_Date"}},
      {"StoreEntriesPayment", "General_Ledger_Entries", {"Payment_ID"}},
      {"StoreEntriesPurchase", "General_Ledger_Entries", {"Purchase_ID"}},
      {"StoreEntriesAccount", "General_Ledger_Entries", {"GL_Account_ID"}},
      {"StoreSuburbName", "Suburb_Position", {"Suburb_Name"}},
  };
  return indexes;
}

void FillLists(Connection& file) {
  for (const auto& rows : {CountryRows(), DivisionRows(), HolidayRows()}) {
    for (const Sql& row : rows) file.Run(row);
  }
  file.Run(
      "UPDATE Countries SET Tax_Name = 'GST' "
      "WHERE Country_Name IN ('Australia', 'Canada', 'New Zealand')");
  file.Run("UPDATE Countries SET Tax_Name = 'VAT' WHERE Country_Name = 'UK'");
}

void FillOneRowTable(Connection& file, const QString& table) {
  if (table == u"infOptions") {
    file.Run(
        Sql("INSERT INTO infOptions (GST_Percentage, Accounting_Method, "
            "EnableOstrel4WebServices, TermsOfTrade) VALUES (.1, 'Cash', True, {})",
            TermsOfTradeText()));
  } else if (table == u"infPersonalDetails") {
    file.Run(
        Sql("INSERT INTO infPersonalDetails (FSE_Code, Division_ID, Country_ID) "
            "VALUES ('FSECODE', 1, 1)"));
  } else {
    file.Run(
        Sql("INSERT INTO infSystem (Database_Version, Invoice_Number, Done_Initial_Setup) "
            "VALUES ({}, 0, False)",
            kSchemaVersion));
  }
}

const QStringList& OneRowTables() {
  static const QStringList names = {QStringLiteral("infOptions"),
                                    QStringLiteral("infPersonalDetails"),
                                    QStringLiteral("infSystem")};
  return names;
}

void MakeTables(Connection& file) {
  file.Begin();
  for (const TableDefinition& table : TableDefinitions()) file.Run(table.statement);
  for (const char* index : NamedIndexes()) file.Run(index);
  EnsureStoreIndexes(file);
  FillLists(file);
  for (const QString& table : OneRowTables()) FillOneRowTable(file, table);
  file.Commit();
}

bool HasColumns(const jet::Table& table, const std::vector<const char*>& columns) {
  return std::all_of(columns.begin(), columns.end(), [&](const char* column) {
    return table.Find(QString::fromLatin1(column)) != nullptr;
  });
}

}  // namespace

const QStringList& BusinessTables() {
  static const QStringList names = [] {
    QStringList list;
    for (const TableDefinition& table : TableDefinitions()) list += QString(table.name);
    return list;
  }();
  return names;
}

const QStringList& WorkTables() {
  static const QStringList names = {QStringLiteral("lstClientsToPrint"),
                                    QStringLiteral("lstInvoicesToPrint"),
                                    QStringLiteral("tmprptWorkSummary")};
  return names;
}

const std::vector<const char*>& NamedIndexes() {
  static const std::vector<const char*> statements = {
      "CREATE INDEX CustIndex ON Clients (Client_ID)",
      "CREATE INDEX CustStatusIndex ON Clients (Status)",
      "CREATE INDEX CustBillingIndex ON Clients (Billing_Client_ID)",
      "CREATE INDEX DiaryCustIndex ON Diary (Client_ID)",
      "CREATE INDEX DiaryStatusIndex ON Diary (Status)",
      "CREATE INDEX PaymentCustIndex ON Payments (Client_ID)",
  };
  return statements;
}

QStringList EnsureBusinessTables(Connection& file) {
  QStringList touched;
  file.Begin();
  try {
    const Recordset system = file.Schema().FindTable(u"infSystem") != nullptr
                                 ? file.Run("SELECT Database_Version FROM infSystem")
                                 : Recordset();
    const bool isOld =
        system.IsOpen() && system.HasRows() && system.Field(size_t{0}).ToLong() < kSchemaVersion;
    for (const TableDefinition& table : TableDefinitions()) {
      const QString name = QString::fromLatin1(table.name);
      if (isOld || file.Schema().FindTable(name) != nullptr) continue;
      file.Run(table.statement);
      touched += name;
    }
    for (const QString& table : OneRowTables()) {
      if (isOld || file.Run("SELECT * FROM " + table.toStdString()).HasRows()) continue;
      FillOneRowTable(file, table);
      if (!touched.contains(table)) touched += table;
    }
    file.Commit();
  } catch (const std::exception&) {
    file.Rollback();
    throw;
  }
  return touched;
}

void CreateEmptyBusiness(const QString& path) {
  Connection file(path);
  file.Open(OpenMode::Create);
  try {
    MakeTables(file);
    file.Close();
  } catch (const std::exception&) {
    QFile::remove(path);
    throw;
  }
}

void EnsureStoreIndexes(Connection& file) {
  for (const StoreIndex& index : StoreIndexes()) {
    const jet::Table* table = file.Schema().FindTable(QString(index.table));
    if (table != nullptr && HasColumns(*table, index.columns)) {
      file.EnsureIndex(index.name, index.table, index.columns);
    }
  }
}

}  // namespace quillary
