#pragma once

#include "base/Value.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// What a report says, before anything is known of pages: rows in groups with their totals. Screen,
/// paper, the word processor, CSV, plain text and JSON are all made of it, so that they cannot
/// differ.
namespace quillary::reports {

enum class CellKind { Text, Money, Day, Count, Percent };

/// What stands in a column below the rows of a group.
enum class Total {
  None,
  Word,   // "Total"
  Count,  // of the rows
  Sum,
};

struct ReportColumn {
  QString heading = {};
  QString place = {};  // alignment and width as the composer reads them: ">+.75in"
  CellKind kind = CellKind::Text;
  Total total = Total::None;
};

/// What a row is made of, for whoever wants to see that.
struct ReportLink {
  enum class To {
    Nothing,
    Client,
    Entry,
    Payment,
    Purchase,
    Invoice,
    RevenueAccount,
    LedgerAccount
  };
  To to = To::Nothing;
  qint64 id = 0;  // 0 for an account: what has none
};

struct ReportRow {
  std::vector<Value> cells = {};  // one for each column; null shows nothing
  ReportLink link = {};
  bool strong = false;
  bool ruleAbove = false;
};

struct ReportGroup {
  QString key = {};
  std::vector<ReportRow> rows = {};
  std::vector<Value> totals = {};  // one for each column; none when the group has no total
  bool showsKey = true;            // as a heading above its rows
};

/// One table of a report.
struct ReportSection {
  QString title = {};  // above the table; usually none
  std::vector<ReportColumn> columns = {};
  std::vector<ReportGroup> groups = {};
  std::vector<Value> totals = {};  // of all groups; none when the section has no total
  bool showsHeadings = true;       // the headings of the columns
};

/// The groups of a long list, read in portions, so that its first pages can be shown while others
/// are still to come and no more than a portion lies in memory.
class GroupStream {
 public:
  virtual ~GroupStream() = default;
  /// The groups that follow; nothing at the end. A group is never split.
  virtual std::optional<std::vector<ReportGroup>> Next() = 0;
  /// Of all groups; known when there are no more.
  virtual std::vector<Value> Totals() const = 0;
};

/// One bar of the small chart below a report, and what it stands beside.
struct ChartBar {
  QString label = {};
  Money amount = {};
  Money before = {};  // the same a year earlier
};

struct ReportData {
  QString title = {};
  QStringList scope = {};  // the headings between the title and the day of printing
  QString fileName = {};   // where it is not that of its kind
  QString letterhead =
      {};  // not empty: the business's head with this word, instead of the headings
  std::vector<ReportSection> sections = {};
  std::vector<ReportSection> printed = {};  // on pages instead of the sections, where they differ
  QStringList notes = {};                   // below the tables
  std::vector<ChartBar> chart = {};
  bool landscape = false;
  QStringList troubles = {};           // what the reader has to be told aloud
  std::vector<ReportData> parts = {};  // reports that follow, each on pages of its own
  /// What the only section has besides its groups and totals, still to be read.
  std::shared_ptr<GroupStream> rest = {};

  const std::vector<ReportSection>& OnPages() const { return printed.empty() ? sections : printed; }
};

/// A cell as people read it: "$55.00", "02-Nov-2026", "41.7 %".
QString ShownCell(CellKind kind, const Value& cell);

}  // namespace quillary::reports
