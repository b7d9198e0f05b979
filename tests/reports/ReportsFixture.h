#pragma once

#include "balances/ClientBalance.h"
#include "data/access/ConvertAccessFile.h"
#include "reports/ReportKinds.h"
#include "setup/demo/DemoBusiness.h"
#include "support/BusinessTest.h"

#include <map>
#include <stdexcept>

namespace quillary::reports {

/// The tables as they are, row by row: sums are made of them here by loops, and not by statements.
class Books {
 public:
  using Row = std::map<QString, Value>;
  using Table = std::vector<Row>;

  explicit Books(Business& business) : business_(business) {}

  const Table& operator[](const char* name) {
    const QString key = QString::fromLatin1(name);
    if (!tables_.contains(key)) tables_[key] = Load(key);
    return tables_[key];
  }
  std::map<qint64, Row> ById(const char* table, const char* key) {
    std::map<qint64, Row> rows;
    for (const Row& row : (*this)[table]) rows[row.at(key).ToLong()] = row;
    return rows;
  }

 private:
  Table Load(const QString& name) {
    Table table;
    const Recordset rows = business_.RunSQL(QStringLiteral("SELECT * FROM %1").arg(name));
    for (const Record record : rows) {
      Row row;
      for (size_t at = 0; at < record.Size(); ++at) row[rows.Columns()[at].name] = record[at];
      table.push_back(std::move(row));
    }
    return table;
  }

  Business& business_;
  std::map<QString, Table> tables_;
};

inline bool IsWithin(const Value& date, const DateRange& days) {
  const QDate day = date.ToDate();
  return day.isValid() && days.Contains(day);
}
inline bool IsDone(const Books::Row& entry) {
  const QString status = entry.at("Status").ToText();
  return status == "JD" || status == "JU" || status == "JP" || status == "JI";
}

struct Source {
  const char* name;
  int accessVersion;  // 0: the invented business
  DateRange year;
};
inline const Source kDemo{"demo", 0, {{2025, 11, 1}, {2026, 10, 31}}};
inline const Source kConverted{"converted", 57, {{2015, 1, 1}, {2026, 12, 31}}};

/// Reports on a business with something in it: the invented one, or a converted file.
class ReportsTest : public BusinessTest {
 protected:
  void Load(const Source& source) {
    if (source.accessVersion == 0) {
      setup::WriteDemoBusiness(BusinessTest::business(), {.clients = 60, .months = 8});
    } else {
      const QString path = folder.filePath("CONVERTED.MDB");
      ConvertAccessFile(
          QStringLiteral(QUILLARY_TEST_DATA "/access-v%1.mdb").arg(source.accessVersion), path);
      converted_ = std::make_unique<Business>(outside.Ports(), path);
      converted_->ConnectToDatabase();
      converted_->OnRefusedStatement([](const RefusedStatement& refused) {
        ADD_FAILURE() << refused.statement.toStdString() << "\n" << refused.reason.toStdString();
      });
    }
    LoadSharedValues(business());
    books = std::make_unique<Books>(business());
  }
  void TearDown() override {
    books.reset();
    converted_.reset();
    BusinessTest::TearDown();
  }
  Business& business() { return converted_ ? *converted_ : BusinessTest::business(); }

  ReportData Collect(const char* name, const ReportCriteria& criteria = {}) {
    const ReportKind* kind = FindReportKind(QString::fromLatin1(name));
    if (!kind) throw std::runtime_error(std::string("no report is named ") + name);
    return CollectReport(business(), *kind, criteria);
  }

  std::unique_ptr<Books> books;

 private:
  std::unique_ptr<Business> converted_;
};

/// The last cell of a kind's column in a group's or section's totals.
inline Money LastOf(const std::vector<Value>& cells) {
  return cells.empty() ? Money() : cells.back().ToMoney();
}

}  // namespace quillary::reports
