#include "reports/ListReport.h"

#include "documents/reports/Report.h"

#include <utility>

namespace quillary::reports {
namespace {

/// The cell as its column says, so that sums and other programs meet one type only.
Value Typed(CellKind kind, const Value& cell) {
  if (cell.IsNull()) return {};
  switch (kind) {
    case CellKind::Money:
      return cell.ToMoney();
    case CellKind::Day: {
      const QDate day = cell.ToDate();
      return day.isValid() ? Value(day) : Value();
    }
    case CellKind::Count:
      return cell.ToLong();
    case CellKind::Percent:
    case CellKind::Text:
      break;
  }
  return cell;
}

QString Joined(const Record& row, const char16_t* first, const char16_t* second) {
  return QStringLiteral("%1 %2").arg(row[first].ToText(), row[second].ToText()).trimmed();
}

bool SameGroup(const GroupKey& one, const GroupKey& other) {
  return one.id == other.id && one.words.compare(other.words, Qt::CaseInsensitive) == 0;
}

/// Fills a section row by row.
class ListCollector {
 public:
  ListCollector(const ListReport& report, ReportSection& section)
      : report_(report), section_(section), group_(section.columns), all_(section.columns) {}

  void Take(const Record& row) {
    const GroupKey key = report_.group ? report_.group(row) : GroupKey();
    if (section_.groups.empty() || !SameGroup(key, key_)) Begin(key);
    ReportRow made;
    made.cells.reserve(report_.columns.size());
    for (const ListColumn& column : report_.columns)
      made.cells.push_back(Typed(column.column.kind, column.cell(row)));
    if (report_.link) made.link = report_.link(row);
    group_.Add(made.cells);
    all_.Add(made.cells);
    if (!report_.summaryOnly) section_.groups.back().rows.push_back(std::move(made));
  }

  /// The group that is open has no more rows.
  void End() {
    if (section_.groups.empty() || !report_.group) return;
    ReportGroup& group = section_.groups.back();
    group.showsKey = !report_.summaryOnly;
    if (report_.hasTotal)
      group.totals = group_.Under(report_.summaryOnly ? group.key : QStringLiteral("Total"));
  }

  void Finish() {
    End();
    if (report_.hasTotal)
      section_.totals =
          all_.Under(report_.group ? QStringLiteral("Grand Total") : QStringLiteral("Total"));
  }

 private:
  void Begin(const GroupKey& key) {
    End();
    key_ = key;
    section_.groups.push_back({.key = key.words, .rows = {}, .totals = {}, .showsKey = false});
    group_ = RunningTotals(section_.columns);
  }

  const ListReport& report_;
  ReportSection& section_;
  GroupKey key_;
  RunningTotals group_;
  RunningTotals all_;
};

}  // namespace

RunningTotals::RunningTotals(const std::vector<ReportColumn>& columns)
    : columns_(&columns), sums_(columns.size()) {}

void RunningTotals::Add(const std::vector<Value>& cells) {
  ++count_;
  for (size_t at = 0; at < sums_.size(); ++at)
    if ((*columns_)[at].total == Total::Sum) sums_[at] += cells[at].ToMoney();
}

std::vector<Value> RunningTotals::Under(const QString& word) const {
  std::vector<Value> totals;
  for (size_t at = 0; at < sums_.size(); ++at) {
    switch ((*columns_)[at].total) {
      case Total::None:
        totals.emplace_back();
        break;
      case Total::Word:
        totals.emplace_back(word);
        break;
      case Total::Count:
        totals.emplace_back(count_);
        break;
      case Total::Sum:
        if ((*columns_)[at].kind == CellKind::Money)
          totals.emplace_back(sums_[at]);
        else
          totals.emplace_back(sums_[at].Units() / Money::kUnitsPerOne);
        break;
    }
  }
  return totals;
}

ReportSection HeadOf(const ListReport& report) {
  ReportSection section;
  for (const ListColumn& column : report.columns) section.columns.push_back(column.column);
  return section;
}

ReportSection CollectList(const ListReport& report, const Recordset& rows) {
  ReportSection section = HeadOf(report);
  ListCollector collector(report, section);
  for (const Record row : rows) collector.Take(row);
  collector.Finish();
  return section;
}

namespace {

class ListStream : public GroupStream {
 public:
  ListStream(ListReport report, NextRows next)
      : report_(std::move(report)),
        next_(std::move(next)),
        section_(HeadOf(report_)),
        collector_(report_, section_) {}

  std::optional<std::vector<ReportGroup>> Next() override {
    const std::optional<Recordset> rows = next_();
    if (!rows) {
      collector_.Finish();
      return std::nullopt;
    }
    for (const Record row : *rows) collector_.Take(row);
    collector_.End();
    return std::exchange(section_.groups, {});
  }
  std::vector<Value> Totals() const override { return section_.totals; }

 private:
  ListReport report_;
  NextRows next_;
  ReportSection section_;
  ListCollector collector_;
};

}  // namespace

std::shared_ptr<GroupStream> StreamList(ListReport report, NextRows next) {
  return std::make_shared<ListStream>(std::move(report), std::move(next));
}

ListColumn FieldColumn(const char* heading, const char* place, CellKind kind, const char* field,
                       Total total) {
  return CellColumn(
      QString::fromUtf8(heading), place, kind,
      [name = QString::fromLatin1(field)](const Record& row) { return row[QStringView(name)]; },
      total);
}

ListColumn CellColumn(const QString& heading, const char* place, CellKind kind, CellOf cell,
                      Total total) {
  return {{heading, QString::fromLatin1(place), kind, total}, std::move(cell)};
}

Sql Within(const char* column, const DateRange& days) {
  return Sql("{} BETWEEN {} AND {}", Sql(column), days.from, EndOfDay(days.to));
}

Sql OfAccount(const char* column, const std::optional<qint64>& account) {
  if (!account) return Sql("");
  if (*account == 0) return Sql(" AND ({} IS NULL OR {} = 0)", Sql(column), Sql(column));
  return Sql(" AND {} = {}", Sql(column), *account);
}

std::function<ReportLink(const Record&)> LinkTo(ReportLink::To to, const char* field) {
  return [to, name = QString::fromLatin1(field)](const Record& row) {
    const qint64 id = row[QStringView(name)].ToLong();
    return id == 0 ? ReportLink() : ReportLink{to, id};
  };
}

QString AddressLines(const Record& row) {
  return TwoLines(Joined(row, u"Street_Number", u"Street"), Joined(row, u"Suburb", u"Post_Code"));
}

QString TwoLines(const QString& first, const QString& second) {
  if (first.isEmpty()) return second;
  return second.isEmpty() ? first : first + u'\n' + second;
}

QString ShownCell(CellKind kind, const Value& cell) {
  if (cell.IsNull()) return {};
  if (cell.IsText()) return cell.ToText();  // words where an amount would stand
  switch (kind) {
    case CellKind::Money:
      return cell.ToMoney().ToCurrencyText();
    case CellKind::Day:
      return documents::ReportDateText(cell.ToDate());
    case CellKind::Percent:
      return QString::number(cell.ToDouble(), 'f', 1) + QStringLiteral(" %");
    case CellKind::Count:
    case CellKind::Text:
      break;
  }
  return cell.ToText();
}

}  // namespace quillary::reports
