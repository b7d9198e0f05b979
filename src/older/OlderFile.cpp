#include "older/OlderFile.h"

#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillary::older {
namespace {

struct SourceTable {
  const char* name;
  std::vector<const char*> columns;
  bool isVital = false;  // without it, it is no business of that product
};

const std::vector<SourceTable> kSourceTables = {
    {"tblTrailers", {"TrailerID", "Trailer_Name"}},
    {"tblGeneralLedger", {"GL_ID", "GL_Name", "GL_Number", "GL_Type", "Budget"}},
    {"tblGLTrans",
     {"GL_ID", "Trans_Date", "Description", "Amount", "GST", "PaymentID", "PurchaseID"}},
    {"tblMowingServices", {"Job_Type_Code", "Job_Type_Description", "GL_ID", "Seq"}},
    {"tblSupplier",
     {"SupplierID", "Supplier_Name", "Contact", "Number", "Street", "Suburb", "PostCode", "Phone",
      "Fax", "Email", "ABN", "Payment_Type", "GL_ID"}},
    {"tblPurchases",
     {"PurchaseID", "SupplierID", "Item", "Purchase_Date", "Amount", "GST", "Payment_Type",
      "Cheque_No", "Invoice_No", "Notes", "Capital", "Model", "Serial_No", "Depreciation",
      "GL_ID"}},
    {"tblMyBanks", {"BankAccID", "Account_Name", "Account_No"}},
    {"tblBankings", {"BankingID", "BankAccID", "Banking_Date", "Cash_Banked", "Total_Banked"}},
    {"tblCorp",
     {"corpid", "CorpName", "CorpContact", "CorpAddress", "Corp Suburb", "CorpPostcode",
      "CorpPhone", "CorpFax", "CorpEmail", "Corp_Bank_Name", "Corp_Branch_Name",
      "Corp_Bank_Acc_Name", "Corp_Owing", "Payment_Type", "Statement_Type"},
     true},
    {"tblClients",
     {"ClientID",
      "Corp_Name",
      "Client_Name",
      "Given_Name",
      "Family_Name",
      "Unit",
      "Number",
      "Street",
      "Suburb_Name",
      "PostCode",
      "Melway",
      "Phone",
      "Phone2",
      "General_Notes",
      "Status",
      "Bill_To",
      "Normal_Job_Type",
      "TrailerID",
      "Std_Price",
      "GST_Std_Price",
      "Price_Is_Net",
      "Current_Frequency",
      "Next_Job_Scheduled",
      "Time_Est",
      "Preferred_Day",
      "Preferred_Time",
      "Scheduling_ Notes"},
     true},
    {"tblJobs",
     {"JobID", "ClientID", "Job_Date", "Code", "Action", "TrailerID", "Job_Type_Code",
      "Charged_Amount", "GST_Charged_Amount", "Job_Type_Code1", "Charged_Amount1",
      "GST_Charged_Amount1", "Job_Type_Code2", "Charged_Amount2", "GST_Charged_Amount2",
      "Job_Notes"},
     true},
    {"tblPayments",
     {"PaymentID", "CorpID", "Payment_Date", "Amount", "GST", "Payment_Type", "Cheque_No",
      "Bank_Name", "Branch_Name", "Bank_Acc_Name", "BankingID", "Notes"}},
    {"tblBanks", {"Bank_Name"}},
    {"tblFrequency", {"Frequency_Days"}},
    {"tblPaymentTypes", {"Payment_Type"}},
    {"tblMyCompany",
     {"Company_Title", "Company_Phone", "Company_Mobile", "Company_Contact", "Company_email",
      "Company_ACN", "Company_BPN", "HO_FSE_Code", "Providor_NO", "Default_GST_Percent"}},
    {"tblFraction", {"Months_Scheduled"}},
};

const SourceTable* FindSource(const QString& name) {
  const auto& tables = kSourceTables;
  const auto at = std::find_if(tables.begin(), tables.end(), [&](const SourceTable& table) {
    return name.compare(QLatin1StringView(table.name), Qt::CaseInsensitive) == 0;
  });
  return at == tables.end() ? nullptr : &*at;
}

constexpr qsizetype kMostTroubles = 500;
constexpr qint64 kRowsAtOnce = 2000;

std::string Bracketed(const QString& name) {
  return "[" + name.toStdString() + "]";
}

/// Numbers and amounts are kept as they were read, also texts where a number should be: a column
/// here takes anything.
const char* TypeOf(jet::ColumnType type) {
  switch (type) {
    case jet::ColumnType::Counter:
    case jet::ColumnType::Long:
      return "LONG";
    case jet::ColumnType::Single:
    case jet::ColumnType::Double:
      return "DOUBLE";
    case jet::ColumnType::Currency:
      return "CURRENCY";
    case jet::ColumnType::Date:
      return "DATE";
    case jet::ColumnType::YesNo:
      return "YESNO";
    default:
      return "MEMO";
  }
}

}  // namespace

void Troubles::Add(const QString& what) {
  if (all_.size() == kMostTroubles) all_ += QStringLiteral("... and more");
  if (all_.size() < kMostTroubles) all_ += what;
}

const Value& OlderRow::Field(const char* field) const {
  static const Value none;
  const QString name = QString::fromLatin1(field);
  return rows_.FieldExists(name) ? record_[QStringView(name)] : none;
}

QString OlderRow::Name() const {
  return QStringLiteral("%1 %2").arg(QLatin1StringView(table_), record_[u"Row_No"].ToText());
}

QString OlderRow::Text(const char* field) const {
  return Field(field).ToText().trimmed();
}

std::optional<qint64> OlderRow::Number(const char* field) const {
  const Value& value = Field(field);
  if (value.IsNull() || value.ToText().trimmed().isEmpty()) return std::nullopt;
  // No column here holds a larger one.
  constexpr double kLargest = std::numeric_limits<qint32>::max();
  if (value.IsNumeric() && std::abs(value.ToDouble()) <= kLargest) return value.ToLong();
  troubles_.Add(QStringLiteral("%1: %2 is no number: \"%3\"")
                    .arg(Name(), QLatin1StringView(field), value.ToText()));
  return std::nullopt;
}

Money OlderRow::Amount(const char* field) const {
  const Value& value = Field(field);
  if (value.IsNull() || value.ToText().trimmed().isEmpty()) return {};
  if (value.IsNumeric()) return value.ToMoney();
  troubles_.Add(QStringLiteral("%1: %2 is no amount: \"%3\"")
                    .arg(Name(), QLatin1StringView(field), value.ToText()));
  return {};
}

std::optional<QDate> OlderRow::Day(const char* field) const {
  const Value& value = Field(field);
  if (value.IsNull()) return std::nullopt;
  const QDate day = value.ToDate();
  constexpr int kFirstYear = 1900;
  constexpr int kLastYear = 2200;
  if (day.isValid() && day.year() >= kFirstYear && day.year() <= kLastYear) return day;
  troubles_.Add(QStringLiteral("%1: %2 is no date: \"%3\"")
                    .arg(Name(), QLatin1StringView(field), value.ToText()));
  return std::nullopt;
}

bool OlderRow::Yes(const char* field) const {
  const Value& value = Field(field);
  return value.IsText() ? value.ToText().compare(u"Yes", Qt::CaseInsensitive) == 0 : value.ToBool();
}

/// Lays the tables that are wanted into the temporary file, each row with its number.
class OlderFile::Stage : public AccessVisitor {
 public:
  explicit Stage(OlderFile& file) : file_(file) {}

  void OnTables(const std::vector<AccessTable>& tables) override {
    for (const AccessTable& table : tables) {
      const SourceTable* wanted = FindSource(table.schema.name);
      if (!wanted) continue;
      std::string create = "CREATE TABLE " + Bracketed(wanted->name) + " ([Row_No] COUNTER";
      for (const jet::Column& column : table.schema.columns)
        create += ", " + Bracketed(column.name) + " " + TypeOf(column.type);
      file_.file_.Run(create + ")");
    }
  }
  void OnRow(const AccessTable& table, const std::vector<Value>& cells) override {
    const SourceTable* wanted = FindSource(table.schema.name);
    if (!wanted) return;
    if (table.schema.name != name_) {
      name_ = table.schema.name;
      insert_ = "INSERT INTO " + Bracketed(wanted->name) + " (";
      std::string places;
      for (const jet::Column& column : table.schema.columns) {
        insert_ += (places.empty() ? "" : ", ") + Bracketed(column.name);
        places += places.empty() ? "{}" : ", {}";
      }
      insert_ += ") VALUES (" + places + ")";
    }
    Sql statement(insert_.c_str());
    for (const Value& cell : cells) statement = statement + Sql("", cell);
    file_.file_.Run(statement);
  }
  void OnBadRow(const AccessTable& table, const QString& reason) override {
    if (FindSource(table.schema.name))
      file_.troubles_.Add(
          QStringLiteral("%1: a row cannot be read: %2").arg(table.schema.name, reason));
  }
  void OnTableEnd(const AccessTable&) override {}

 private:
  OlderFile& file_;
  QString name_;
  std::string insert_;
};

OlderFile::OlderFile(const QString& path, const AccessLimits& limits)
    : file_(folder_.filePath(QStringLiteral("older.db"))) {
  file_.Open(OpenMode::Create);
  file_.Begin();
  Stage stage(*this);
  try {
    ReadAccessFile(path, stage, limits);
  } catch (const StatementRefused& refused) {
    throw AccessFailure(
        QStringLiteral("%1 cannot be read. %2").arg(path, QString::fromUtf8(refused.what())));
  }
  for (const SourceTable& table : kSourceTables)
    if (table.isVital && !Has(table.name))
      throw AccessFailure(QStringLiteral("%1 is no database of the older product: it has no table "
                                         "%2.")
                              .arg(path, QLatin1StringView(table.name)));
  TellMissing();
  file_.Run("CREATE INDEX ClientsOfCorp ON [tblClients] ([Corp_Name])");
  file_.Commit();
}

bool OlderFile::Has(const char* table) const {
  return file_.Schema().FindTable(QString::fromLatin1(table)) != nullptr;
}

void OlderFile::TellMissing() {
  for (const SourceTable& table : kSourceTables) {
    const jet::Table* there = file_.Schema().FindTable(QString::fromLatin1(table.name));
    if (!there) {
      troubles_.Add(QStringLiteral("The file has no table %1.").arg(QLatin1StringView(table.name)));
      continue;
    }
    for (const char* column : table.columns) {
      const bool isThere =
          std::any_of(there->columns.begin(), there->columns.end(), [&](const jet::Column& one) {
            return one.name.compare(QLatin1StringView(column), Qt::CaseInsensitive) == 0;
          });
      if (!isThere)
        troubles_.Add(QStringLiteral("%1 has no column %2; it stays empty.")
                          .arg(QLatin1StringView(table.name), QLatin1StringView(column)));
    }
  }
}

qint64 OlderFile::Count(const char* table) {
  if (!Has(table)) return 0;
  return file_.Run("SELECT Count(*) FROM " + Bracketed(table)).Field(size_t{0}).ToLong();
}

qint64 OlderFile::CountWith(const char* table, const char* field, qint64 number) {
  return file_
      .Run(Sql(("SELECT Count(*) FROM " + Bracketed(table) + " WHERE " + Bracketed(field) + " = {}")
                   .c_str(),
               number))
      .Field(size_t{0})
      .ToLong();
}

void OlderFile::ForEach(const char* table, const std::function<void(const OlderRow&)>& take) {
  const qint64 count = Count(table);
  for (qint64 from = 1; from <= count; from += kRowsAtOnce) {
    const Recordset rows = file_.Run(Sql(("SELECT * FROM " + Bracketed(table) +
                                          " WHERE [Row_No] BETWEEN {} AND {} ORDER BY [Row_No]")
                                             .c_str(),
                                         from, from + kRowsAtOnce - 1));
    for (const Record record : rows) take(OlderRow(table, rows, record, troubles_));
  }
}

void OlderFile::ForEachWith(const char* table, const char* field, qint64 number,
                            const std::function<void(const OlderRow&)>& take) {
  const Recordset rows = file_.Run(Sql(("SELECT * FROM " + Bracketed(table) + " WHERE " +
                                        Bracketed(field) + " = {} ORDER BY [Row_No]")
                                           .c_str(),
                                       number));
  for (const Record record : rows) take(OlderRow(table, rows, record, troubles_));
}

Money OlderFile::Sum(const char* table, const char* column) {
  const jet::Table* there = file_.Schema().FindTable(QString::fromLatin1(table));
  if (!there) return {};
  try {
    return file_.Run("SELECT Sum(" + Bracketed(column) + ") FROM " + Bracketed(table))
        .Field(size_t{0})
        .ToMoney();
  } catch (const StatementRefused&) {
    return {};  // told already: there is no such column
  }
}

}  // namespace quillary::older
