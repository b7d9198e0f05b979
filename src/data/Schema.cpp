#include "data/Schema.h"

#include <QFile>

#include "data/SchemaTables.h"
#include "data/store/Connection.h"

namespace quillary {
namespace {

constexpr const char* kNamedIndexes[] = {
    "CREATE INDEX CustIndex ON Clients (Client_ID)",
    "CREATE INDEX CustStatusIndex ON Clients (Status)",
    "CREATE INDEX CustBillingIndex ON Clients (Billing_Client_ID)",
    "CREATE INDEX DiaryCustIndex ON Diary (Client_ID)",
    "CREATE INDEX DiaryStatusIndex ON Diary (Status)",
    "CREATE INDEX PaymentCustIndex ON Payments (Client_ID)",
};

struct StoreIndex {
  const char* name;
  const char* table;
  std::vector<const char*> columns;
};

// A search without one of these reads a whole table for each row of another.
const std::vector<StoreIndex>& StoreIndexes() {
  static const std::vector<StoreIndex> indexes = {
      {"StoreDiaryClientDate", "Diary", {"Client_ID", "Schedule_Date"}},
      {"StoreDiaryDateSequence", "Diary", {"Schedule_Date", "Sequence"}},
      {"StoreDiaryInvoice", "Diary", {"Invoice_ID"}},
      {"StoreDiaryPayment", "Diary", {"Payment_ID"}},
      {"StoreDiaryServicesDiary", "Diary_Services", {"Diary_ID"}},
      {"StoreClientServicesClient", "Client_Services", {"Client_ID"}},
      {"StoreClientsDisplayName", "Clients", {"Display_Name"}},
      {"StoreQuotesClient", "Quotes", {"Client_ID"}},
      {"StoreQuoteServicesQuote", "Quote_Services", {"Quote_ID"}},
      {"StoreInvoicesClient", "Invoices", {"Client_ID"}},
      {"StoreInvoiceItemsInvoice", "Invoice_Items", {"Invoice_ID"}},
      {"StorePaymentsBanking", "Payments", {"Banking_ID"}},
      {"StorePaymentsDate", "Payments", {"Payment_Date"}},
      {"StorePurchasesDate", "Purchases", {"Purchase_Date"}},
      {"StoreEntriesPayment", "General_Ledger_Entries", {"Payment_ID"}},
      {"StoreEntriesPurchase", "General_Ledger_Entries", {"Purchase_ID"}},
      {"StoreEntriesAccount", "General_Ledger_Entries", {"GL_Account_ID"}},
      {"StoreSuburbName", "Suburb_Position", {"Suburb_Name"}},
  };
  return indexes;
}

struct Country {
  const char* name;
  const char* registrationName;
  const char* taxName;
};

constexpr Country kCountries[] = {
    {"Australia", "ABN:", "GST"}, {"New Zealand", "GST:", "GST"}, {"UK", nullptr, "VAT"},
    {"Canada", "GST:", "GST"},    {"U.S.", nullptr, nullptr},
};

struct Division {
  int id;
  const char* name;
  const char* nature;
};

// The numbers are shared with head office, gaps included.
constexpr Division kDivisions[] = {
    {1, "Gardens", "Garden care"},
    {2, "Lawns", "Lawn mowing"},
    {3, "Windows", "Window cleaning"},
    {4, "Homes", "House cleaning"},
    {5, "Carpets", "Carpet cleaning"},
    {6, "Pools", "Pool care"},
    {7, "Dogs", "Dog washing"},
    {8, "Cars", "Car detailing"},
    {9, "Fences", "Fencing"},
    {10, "Paving", "Paving"},
    {11, "Painting", "Painting"},
    {12, "Tiles", "Tile and grout care"},
    {13, "Roofs", "Roof care"},
    {14, "Gutters", "Gutter cleaning"},
    {15, "Trees", "Tree care"},
    {16, "Handyman", "Repairs around the home"},
    {17, "Plumbing", "Plumbing"},
    {18, "Electrical", "Electrical work"},
    {19, "Antennas", "Antenna installation"},
    {20, "Ovens", "Oven cleaning"},
    {21, "Blinds", "Blind cleaning"},
    {22, "Rubbish", "Rubbish removal"},
    {23, "Pests", "Pest control"},
    {24, "Security", "Home security"},
    {26, "Computers", "Computer help"},
    {27, "Bookkeeping", "Bookkeeping"},
    {28, "Removals", "Removals"},
    {29, "Couriers", "Courier services"},
    {30, "Irrigation", "Irrigation"},
    {31, "Solar panels", "Solar panel cleaning"},
    {33, "Pressure washing", "Pressure washing"},
};

void FillLists(Connection& file) {
  for (const Country& country : kCountries) {
    file.Run(Sql("INSERT INTO Countries (Country_Name, Registration_Name, Tax_Name) "
                 "VALUES ({}, {}, {})",
                 country.name, country.registrationName ? country.registrationName : "",
                 country.taxName ? country.taxName : ""));
  }
  for (const Division& division : kDivisions) {
    file.Run(Sql("INSERT INTO Divisions (Division_ID, Division_Name, Nature_Of_Business) "
                 "VALUES ({}, {}, {})",
                 division.id, division.name, division.nature));
  }
  const std::pair<const char*, const char*> holidays[] = {{"01/01", "New Years Day"},
                                                          {"25/12", "Christmas Day"}};
  for (const auto& [date, description] : holidays) {
    file.Run(Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) "
                 "VALUES ({}, 0, True, {})",
                 date, description));
  }
}

void FillOneRowTables(Connection& file) {
  file.Run(Sql("INSERT INTO infOptions (GST_Percentage, Accounting_Method, "
               "EnableOstrel4WebServices, TermsOfTrade) VALUES (.1, 'Cash', True, {})",
               "Please forward payment of [AMOUNT] within 7 days to:"));
  file.Run(Sql("INSERT INTO infPersonalDetails (FSE_Code, Division_ID, Country_ID) "
               "VALUES ('FSECODE', 1, 1)"));
  file.Run(Sql("INSERT INTO infSystem (Database_Version, Invoice_Number, Done_Initial_Setup) "
               "VALUES ({}, 0, False)",
               kSchemaVersion));
}

void MakeTables(Connection& file) {
  file.Begin();
  for (const TableDefinition& table : TableDefinitions()) file.Run(table.statement);
  for (const char* index : kNamedIndexes) file.Run(index);
  EnsureStoreIndexes(file);
  FillLists(file);
  FillOneRowTables(file);
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
