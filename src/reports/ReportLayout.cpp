#include "reports/ReportLayout.h"

#include "documents/billing/Letterhead.h"
#include "reports/ReportChart.h"

#include <QElapsedTimer>

#include <limits>

namespace quillary::reports {
namespace {

using documents::Report;
using documents::Table;
using documents::TableRow;

constexpr double kGapBetweenSections = 60;      // twips
const documents::PageFont kGapFont{.size = 4};  // of the blank below a group
const char* const kIndent = "     ";            // of the rows of a group, below its key

QString FormatOf(const ReportSection& section) {
  QStringList places;
  for (const ReportColumn& column : section.columns) places += column.place;
  return places.join(u'|');
}

QStringList TextsOf(const ReportSection& section, const std::vector<Value>& cells) {
  QStringList texts;
  for (size_t at = 0; at < section.columns.size(); ++at)
    texts += at < cells.size() ? ShownCell(section.columns[at].kind, cells[at]) : QString();
  return texts;
}

bool HasKeys(const ReportSection& section) {
  for (const ReportGroup& group : section.groups)
    if (group.showsKey) return true;
  return false;
}

/// Lays one section out as one table.
class SectionTable {
 public:
  SectionTable(const ReportSection& section, Table& table, std::vector<ReportLink>& links)
      : section_(section), table_(table), links_(links), hasKeys_(HasKeys(section)) {}

  void Fill() {
    AddHeadings();
    AddGroups(section_.groups);
    AddTotal(section_.totals);
  }

  void AddHeadings() {
    if (!section_.showsHeadings) return;
    QStringList headings;
    for (const ReportColumn& column : section_.columns) headings += column.heading;
    table_.AddHeader(headings);
  }
  void AddGroups(const std::vector<ReportGroup>& groups) {
    for (const ReportGroup& group : groups) AddGroup(group);
  }
  void AddTotal(const std::vector<Value>& totals) {
    if (!totals.empty()) AddTotals(totals).RuleAbove();
  }

 private:
  int ColumnCount() const { return static_cast<int>(section_.columns.size()); }

  void AddGroup(const ReportGroup& group) {
    if (group.showsKey) table_.AddRow({group.key}).Bold().Span(0, ColumnCount()).KeepWithNext();
    for (const ReportRow& row : group.rows) AddRow(row, group.showsKey);
    if (group.totals.empty()) return;
    TableRow& totals = AddTotals(group.totals);
    if (group.rows.empty() && !group.showsKey) {
      totals.bold = false;  // a line of a summary
      return;
    }
    totals.RuleAbove();
    table_.AddRow({{}}).InFont(kGapFont);
  }

  void AddRow(const ReportRow& row, bool indented) {
    QStringList texts = TextsOf(section_, row.cells);
    if (indented && hasKeys_ && section_.columns.front().kind == CellKind::Text)
      texts.front().prepend(QLatin1String(kIndent));
    TableRow& laid = table_.AddRow(texts);
    laid.bold = row.strong;
    laid.ruleAbove = row.ruleAbove;
    if (row.strong) SpreadWords(laid, texts);
    if (row.link.to == ReportLink::To::Nothing) return;
    laid.link = static_cast<int>(links_.size());
    links_.push_back(row.link);
  }

  TableRow& AddTotals(const std::vector<Value>& totals) {
    const QStringList texts = TextsOf(section_, totals);
    TableRow& laid = table_.AddRow(texts).Bold();
    SpreadWords(laid, texts);
    return laid;
  }

  /// The words of a total take the empty columns behind them, since they are longer than a cell.
  static void SpreadWords(TableRow& row, const QStringList& texts) {
    qsizetype first = 0;
    while (first < texts.size() && texts[first].isEmpty()) ++first;
    qsizetype next = first + 1;
    while (next < texts.size() && texts[next].isEmpty()) ++next;
    if (first < texts.size() && next > first + 1)
      row.Span(static_cast<int>(first), static_cast<int>(next - first));
  }

  const ReportSection& section_;
  Table& table_;
  std::vector<ReportLink>& links_;
  bool hasKeys_;
};

void AddHead(Business& business, Report& pages, const ReportData& data) {
  if (!data.letterhead.isEmpty()) {
    pages.SetVSPrinterFontDefault();
    documents::PrintHeaderWord(pages, documents::SetHeaderVariable(business), data.letterhead);
    return;
  }
  pages.StoreSubHeading(data.title);
  for (const QString& line : data.scope) pages.StoreSubHeading(line);
  pages.StoreSubHeading(QStringLiteral("Print date: ") +
                        documents::PrintDateText(business.Today()));
  pages.StoreBreak();
}

void AddFoot(Report& pages, const ReportData& data) {
  if (data.letterhead.isEmpty()) pages.StoreBreak();
  for (const QString& note : data.notes) pages.Page().AddText(note);
  DrawChart(pages.Page(), data.chart);
}

}  // namespace

void AddReport(Business& business, Report& pages, const ReportData& data,
               std::vector<ReportLink>& links) {
  AddHead(business, pages, data);
  for (const ReportSection& section : data.OnPages()) {
    if (!section.title.isEmpty()) {
      pages.Page().AdvanceY(kGapBetweenSections);
      pages.StoreSubHeading(section.title);
    }
    Table& table = pages.StartTable(FormatOf(section));
    SectionTable(section, table, links).Fill();
    pages.EndTable();
  }
  AddFoot(pages, data);
}

namespace {

/// The parts with the numbers of their first pages.
ReportSection Contents(const ReportData& data, const std::vector<int>& pages) {
  ReportSection contents;
  contents.title = QStringLiteral("Contents");
  contents.columns = {{{}, "<+4in", CellKind::Text}, {{}, ">+1in", CellKind::Count}};
  contents.showsHeadings = false;
  ReportGroup& group = contents.groups.emplace_back();
  group.showsKey = false;
  for (size_t at = 0; at < data.parts.size(); ++at)
    group.rows.push_back(
        {.cells = {data.parts[at].title, at < pages.size() ? Value(pages[at]) : Value()}});
  return contents;
}

/// Lays the report and its parts out; `pages` is where the parts began when it was laid out before,
/// and says where they began now.
LaidReport LayOutOnce(Business& business, const ReportTarget& target, const ReportData& data,
                      std::vector<int>& pages, bool writesFile) {
  LaidReport laid;
  Report report(business, target.places);
  report.StartDocument(target.file, data.landscape);
  report.SetDocTitle(data.letterhead.isEmpty() ? data.title : data.letterhead);
  report.Page().SetFooter(QStringLiteral("Page %1 of %2"));
  if (data.parts.empty()) {
    AddReport(business, report, data, laid.links);
  } else {
    ReportData head = data;
    head.parts.clear();
    head.sections.insert(head.sections.begin(), Contents(data, pages));
    AddReport(business, report, head, laid.links);
  }
  pages.clear();
  for (const ReportData& part : data.parts) {
    report.Page().NewPage();
    pages.push_back(report.Page().PageCount());
    AddReport(business, report, part, laid.links);
  }
  laid.document = writesFile ? report.EndDocument() : report.EndWithoutFile();
  laid.document.troubles += data.troubles;
  return laid;
}

}  // namespace

LaidReport LayOutReport(Business& business, const ReportTarget& target, const ReportData& data) {
  if (data.rest) {
    constexpr int kWhole = std::numeric_limits<int>::max();
    GrowingReport growing(business, target, data);
    growing.Grow(kWhole);
    return {growing.Document(), growing.Links()};
  }
  std::vector<int> pages;
  // Where the parts begin is known only when they have been laid out.
  if (!data.parts.empty()) LayOutOnce(business, target, data, pages, false);
  return LayOutOnce(business, target, data, pages, target.writesFile);
}

GrowingReport::GrowingReport(Business& business, const ReportTarget& target, ReportData data)
    : business_(business),
      data_(std::move(data)),
      writesFile_(target.writesFile),
      report_(std::make_unique<Report>(business, target.places)) {
  report_->StartLongDocument(target.file, data_.landscape);
  report_->SetDocTitle(data_.title);
  report_->Page().SetFooter(QStringLiteral("Page %1 of %2"));
  AddHead(business_, *report_, data_);
  const ReportSection& section = data_.sections.back();
  SectionTable(section, report_->StartTable(FormatOf(section)), links_).AddHeadings();
  AddPortion();
  if (!isDone_) document_ = report_->SoFar();
}

GrowingReport::~GrowingReport() = default;

void GrowingReport::Grow(int milliseconds) {
  QElapsedTimer timer;
  timer.start();
  while (!isDone_ && timer.elapsed() < milliseconds) AddPortion();
}

void GrowingReport::AddPortion() {
  ReportSection& section = data_.sections.back();
  auto groups = data_.rest->Next();
  if (!groups) return Finish();
  section.groups = std::move(*groups);
  SectionTable part(section, report_->EndPart(FormatOf(section)), links_);
  part.AddHeadings();
  part.AddGroups(section.groups);
}

void GrowingReport::Finish() {
  const ReportSection& section = data_.sections.back();
  SectionTable end(section, report_->EndPart(FormatOf(section)), links_);
  end.AddHeadings();
  end.AddTotal(data_.rest->Totals());
  report_->EndTable();
  AddFoot(*report_, data_);
  document_ = writesFile_ ? report_->EndDocument() : report_->EndWithoutFile();
  document_.troubles += data_.troubles;
  isDone_ = true;
}

}  // namespace quillary::reports
