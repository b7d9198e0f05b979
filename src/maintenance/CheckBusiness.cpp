#include "maintenance/CheckBusiness.h"

#include "balances/ClientBalance.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "data/store/Integrity.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace quillary::maintenance {
namespace {

enum class Weight { Wrong, Note };

/// A column that holds the key of another table; null and 0 stand for none.
struct Link {
  const char* table;
  const char* key;  // how a row is named to the user
  const char* column;
  const char* target;
  const char* targetKey;
  Weight weight;
};

// A row that the money depends on may not hang loose. What names a person or a word may outlive it:
// the reference lists can be edited at any time, and a monthly run that comes to nothing leaves its
// burnt number in the jobs.
constexpr Link kLinks[] = {
    // The future of a cancelled client goes without its lines; the repair of all records takes
    // them.
    {"Diary_Services", "Diary_Service_ID", "Diary_ID", "Diary", "Diary_ID", Weight::Note},
    {"Diary", "Diary_ID", "Client_ID", "Clients", "Client_ID", Weight::Wrong},
    {"Diary", "Diary_ID", "Payment_ID", "Payments", "Payment_ID", Weight::Wrong},
    {"Diary", "Diary_ID", "Invoice_ID", "Invoices", "Invoice_ID", Weight::Note},
    {"Diary", "Diary_ID", "Employee_ID", "Employees", "Employee_ID", Weight::Note},
    {"Diary_Services", "Diary_Service_ID", "Service_ID", "Services", "Service_ID", Weight::Note},
    {"Client_Services", "Client_Service_ID", "Client_ID", "Clients", "Client_ID", Weight::Wrong},
    {"Client_Services", "Client_Service_ID", "Service_ID", "Services", "Service_ID", Weight::Note},
    {"Client_Services", "Client_Service_ID", "Employee_ID", "Employees", "Employee_ID",
     Weight::Note},
    {"Client_Services", "Client_Service_ID", "Other_Schedule_Client_Service_ID", "Client_Services",
     "Client_Service_ID", Weight::Note},
    {"Clients", "Client_ID", "Billing_Client_ID", "Clients", "Client_ID", Weight::Wrong},
    {"Quotes", "Quote_ID", "Client_ID", "Clients", "Client_ID", Weight::Wrong},
    {"Quote_Services", "Quote_Service_ID", "Quote_ID", "Quotes", "Quote_ID", Weight::Wrong},
    {"Invoices", "Invoice_ID", "Client_ID", "Clients", "Client_ID", Weight::Note},
    {"Invoice_Items", "Invoice_ID", "Invoice_ID", "Invoices", "Invoice_ID", Weight::Wrong},
    {"Payments", "Payment_ID", "Client_ID", "Clients", "Client_ID", Weight::Wrong},
    {"Payments", "Payment_ID", "Banking_ID", "Bankings", "Banking_ID", Weight::Wrong},
    {"Purchases", "Purchase_ID", "Supplier_ID", "Suppliers", "Supplier_ID", Weight::Note},
    {"General_Ledger_Entries", "GL_Entry_ID", "Payment_ID", "Payments", "Payment_ID",
     Weight::Wrong},
    {"General_Ledger_Entries", "GL_Entry_ID", "Purchase_ID", "Purchases", "Purchase_ID",
     Weight::Wrong},
    {"General_Ledger_Entries", "GL_Entry_ID", "GL_Account_ID", "General_Ledger_Accounts",
     "GL_Account_ID", Weight::Note},
    {"lstInvoicesToPrint", "Invoice_ID", "Invoice_ID", "Invoices", "Invoice_ID", Weight::Note},
};

/// A total kept in the head beside the amounts of its lines.
struct KeptTotal {
  const char* table;
  const char* key;
  const char* total;
  const char* lines;
  const char* amount;
  Weight weight;
  int centsPerLine = 0;  // the tax inside a total and the taxes inside its lines round apart
  bool mayHaveNoLines = false;
};

// An invoice may be older than the lines that are kept of it; a job without lines costs nothing.
constexpr KeptTotal kTotals[] = {
    {"Diary", "Diary_ID", "Total_Price", "Diary_Services", "Price", Weight::Wrong},
    {"Diary", "Diary_ID", "Total_GST", "Diary_Services", "GST", Weight::Note, 1},
    {"Invoices", "Invoice_ID", "Total_Amount", "Invoice_Items", "Item_Amount", Weight::Note, 0,
     true},
    {"Invoices", "Invoice_ID", "Total_GST", "Invoice_Items", "Item_GST", Weight::Note, 1, true},
};

/// The rows of one kind, of which the first few are named.
class FoundRows {
 public:
  void Add(const QString& row) {
    constexpr qsizetype kNamed = 5;
    ++count_;
    if (named_.size() < kNamed) named_ += row;
  }
  bool IsEmpty() const { return count_ == 0; }
  QString Text() const {
    const QString more = count_ > named_.size() ? QStringLiteral(", ...") : QString();
    return QStringLiteral("%1 %2: %3%4")
        .arg(count_)
        .arg(count_ == 1 ? QStringLiteral("row") : QStringLiteral("rows"))
        .arg(named_.join(QStringLiteral(", ")), more);
  }

 private:
  qint64 count_ = 0;
  QStringList named_;
};

class Check {
 public:
  explicit Check(Business& business) : business_(business) {}

  std::vector<Finding> Run() {
    for (const Link& link : kLinks) CheckLink(link);
    CheckJobsWithoutClient();
    CheckLooseEntries();
    for (const KeptTotal& total : kTotals) CheckTotal(total);
    CheckBalances();
    return std::move(findings_);
  }

 private:
  bool Has(const char* table, std::initializer_list<const char*> columns) const {
    const jet::Table* found =
        business_.StoreConnection().Schema().FindTable(QString::fromLatin1(table));
    if (found == nullptr) return false;
    return std::all_of(columns.begin(), columns.end(), [&](const char* column) {
      return found->Find(QString::fromLatin1(column)) != nullptr;
    });
  }

  void Add(const char* table, const FoundRows& rows, const QString& what, Weight weight) {
    if (rows.IsEmpty()) return;
    findings_.push_back({QString::fromLatin1(table), what + QStringLiteral(", ") + rows.Text(),
                         weight == Weight::Note});
  }

  Recordset Read(const std::string& statement) {
    const Recordset rows = business_.RunSQL(Sql(statement.c_str()));
    if (!rows.IsOpen()) throw NoRecordset();
    return rows;
  }

  void CheckLink(const Link& link) {
    if (!Has(link.table, {link.key, link.column}) || !Has(link.target, {link.targetKey})) return;
    const std::string column = std::string("a.") + link.column;
    const Recordset loose =
        Read(std::string("SELECT a.") + link.key + ", " + column + " FROM " + link.table +
             " AS a LEFT JOIN " + link.target + " AS b ON " + column + " = b." + link.targetKey +
             " WHERE b." + link.targetKey + " IS NULL AND " + column + " <> 0");
    FoundRows rows;
    for (const Record row : loose) {
      rows.Add(QStringLiteral("%1 (%2)").arg(row[size_t{0}].ToText(), row[size_t{1}].ToText()));
    }
    Add(link.table, rows,
        QStringLiteral("%1 points to nothing in %2")
            .arg(QString::fromLatin1(link.column), QString::fromLatin1(link.target)),
        link.weight);
  }

  void AddKeys(const char* table, const Recordset& keys, const QString& what, Weight weight) {
    FoundRows rows;
    for (const Record row : keys) rows.Add(row[size_t{0}].ToText());
    Add(table, rows, what, weight);
  }

  void CheckJobsWithoutClient() {
    if (!Has("Diary", {"Diary_ID", "Client_ID", "Status"})) return;
    AddKeys("Diary",
            Read("SELECT Diary_ID FROM Diary WHERE Status LIKE 'J*' AND "
                 "(Client_ID IS NULL OR Client_ID = 0)"),
            QStringLiteral("a job of no client"), Weight::Note);
  }

  void CheckLooseEntries() {
    if (!Has("General_Ledger_Entries", {"GL_Entry_ID", "Payment_ID", "Purchase_ID"})) return;
    AddKeys("General_Ledger_Entries",
            Read("SELECT GL_Entry_ID FROM General_Ledger_Entries WHERE "
                 "(Payment_ID IS NULL OR Payment_ID = 0) AND "
                 "(Purchase_ID IS NULL OR Purchase_ID = 0)"),
            QStringLiteral("an entry of neither a payment nor a purchase"), Weight::Wrong);
  }

  void CheckTotal(const KeptTotal& total) {
    if (!Has(total.table, {total.key, total.total}) || !Has(total.lines, {total.key, total.amount}))
      return;
    struct Lines {
      Money sum;
      qint64 count = 0;
    };
    std::map<qint64, Lines> sums;
    for (const Record row : Read(std::string("SELECT ") + total.key + ", Sum(" + total.amount +
                                 "), Count(*) FROM " + total.lines + " GROUP BY " + total.key)) {
      sums[row[size_t{0}].ToLong()] = {row[size_t{1}].ToMoney(), row[size_t{2}].ToLong()};
    }
    FoundRows rows;
    for (const Record row :
         Read(std::string("SELECT ") + total.key + ", " + total.total + " FROM " + total.table)) {
      const auto sum = sums.find(row[size_t{0}].ToLong());
      if (sum == sums.end() && total.mayHaveNoLines) continue;
      const auto [lines, count] = sum == sums.end() ? Lines{} : sum->second;
      const Money kept = row[size_t{1}].ToMoney();
      const Money apart = kept.Rounded(2) - lines.Rounded(2);
      const qint64 bearable = count * total.centsPerLine * (Money::kUnitsPerOne / 100);
      if (std::abs(apart.Units()) <= bearable) continue;
      rows.Add(QStringLiteral("%1 (%2, lines %3)")
                   .arg(row[size_t{0}].ToText(), kept.ToCurrencyText(), lines.ToCurrencyText()));
    }
    Add(total.table, rows,
        QStringLiteral("%1 is not the sum of its lines").arg(QString::fromLatin1(total.total)),
        total.weight);
  }

  std::map<qint64, Money> Balances() {
    std::map<qint64, Money> balances;
    for (const Record row : Read("SELECT Client_ID, Account_Balance FROM Clients")) {
      balances[row[size_t{0}].ToLong()] = row[size_t{1}].ToMoney();
    }
    return balances;
  }

  /// Computes all balances anew, compares, and takes the new ones back.
  void CheckBalances() {
    const Value version = business_.LookupField(QStringLiteral("infSystem.Database_Version"));
    if (version.ToLong() < kSchemaVersion) return;  // the rule needs tables of the current version
    const std::map<qint64, Money> kept = Balances();
    std::map<qint64, Money> computed;
    {
      const Transaction undone(business_);
      balances::RecalculateAmountOwingOfAllClients(business_);
      computed = Balances();
    }
    FoundRows rows;
    for (const auto& [client, balance] : kept) {
      if (balance.Rounded(2) == computed[client].Rounded(2)) continue;
      rows.Add(QStringLiteral("%1 (%2, computed %3)")
                   .arg(client)
                   .arg(balance.ToCurrencyText(), computed[client].ToCurrencyText()));
    }
    // A balance is a cache that any recalculation brings up to date.
    Add("Clients", rows, QStringLiteral("Account_Balance is not what jobs and payments come to"),
        Weight::Note);
  }

  Business& business_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> CheckTables(Business& business) {
  business.ConnectToDatabase();
  return Check(business).Run();
}

std::vector<Finding> CheckBusiness(const Outside& outside, const QString& file) {
  std::vector<Finding> findings;
  for (const QString& damage : FindDamage(file)) {
    findings.push_back({QStringLiteral("file"), damage});
  }
  if (!findings.empty()) return findings;
  Business business(outside, file);
  findings = CheckTables(business);
  business.CloseConnection();
  return findings;
}

bool IsWrong(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return !finding.isNote; });
}

}  // namespace quillary::maintenance
