#pragma once

#include "base/DateRange.h"
#include "data/Business.h"
#include "reports/ReportData.h"

#include <functional>
#include <memory>
#include <optional>

/// The engine of all reports that list rows: declared as columns over the fields of a statement,
/// grouped where a key changes, totalled by column.
namespace quillary::reports {

using CellOf = std::function<Value(const Record&)>;

struct ListColumn {
  ReportColumn column;
  CellOf cell;
};

/// Rows of one id belong together; the words head them.
struct GroupKey {
  QString words = {};
  qint64 id = 0;
};

struct ListReport {
  std::vector<ListColumn> columns = {};
  std::function<GroupKey(const Record&)> group = {};  // none: one group without a heading
  std::function<ReportLink(const Record&)> link = {};
  bool summaryOnly = false;  // a line for each group instead of its rows
  bool hasTotal = true;
};

/// The rows in the order of the recordset; a group ends where its key changes, case aside. The
/// total counts and sums all rows. Throws NoRecordset for a statement that was refused.
ReportSection CollectList(const ListReport& report, const Recordset& rows);

/// The same in portions: `next` gives the rows of the next one, and nothing at the end. No group
/// may have rows in two of them.
using NextRows = std::function<std::optional<Recordset>()>;
std::shared_ptr<GroupStream> StreamList(ListReport report, NextRows next);
/// The section with its columns alone.
ReportSection HeadOf(const ListReport& report);

/// The column's field as its kind.
ListColumn FieldColumn(const char* heading, const char* place, CellKind kind, const char* field,
                       Total total = Total::None);
ListColumn CellColumn(const QString& heading, const char* place, CellKind kind, CellOf cell,
                      Total total = Total::None);

/// Adds rows up, column by column, as the totals of a group do.
class RunningTotals {
 public:
  explicit RunningTotals(const std::vector<ReportColumn>& columns);
  void Add(const std::vector<Value>& cells);
  /// One for each column, `word` in the column that names the total.
  std::vector<Value> Under(const QString& word) const;

 private:
  const std::vector<ReportColumn>* columns_;
  std::vector<Money> sums_;
  qint64 count_ = 0;
};

/// "Schedule_Date BETWEEN ... AND ..." with the whole of the last day.
Sql Within(const char* column, const DateRange& days);
/// " AND column = account" for the account of a report about one; 0 stands for none.
Sql OfAccount(const char* column, const std::optional<qint64>& account);
/// A link to the row of that kind whose number stands in the field; none for null.
std::function<ReportLink(const Record&)> LinkTo(ReportLink::To to, const char* field);

/// "12 High St" over "KEW 3101".
QString AddressLines(const Record& row);
/// One over the other; a missing one leaves no line.
QString TwoLines(const QString& first, const QString& second);

}  // namespace quillary::reports
