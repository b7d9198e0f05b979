#include "documents/reports/ReportOfList.h"

#include "base/CountryHabits.h"
#include "documents/pages/TableLayout.h"
#include "documents/reports/ReportFiles.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace quillary::documents {

namespace {

constexpr double kListTextSize = 8;
constexpr double kNarrowestList = 400;
constexpr double kMostSpare = 360;  // that a column is given beyond its need, in twips

size_t ColumnCount(const PrintList& list) {
  qsizetype count = list.headings.size();
  for (const QStringList& row : list.rows) count = std::max(count, row.size());
  return static_cast<size_t>(count);
}

/// Plain numbers may be post codes or the numbers of invoices; amounts show a sign or decimals.
bool IsMoney(const PrintList& list, size_t column) {
  if (column < list.isAmount.size()) return list.isAmount[column];
  bool isMoney = false;
  for (const QStringList& row : list.rows) {
    const QString cell = row.value(static_cast<qsizetype>(column)).trimmed();
    if (cell.isEmpty()) continue;
    if (!Money::Parse(cell)) return false;
    isMoney = isMoney || cell.contains(QChar(CurrentWriting().currencySign)) || cell.contains(u'.');
  }
  return isMoney;
}

std::vector<double> WantedWidths(const PrintList& list, const PageFonts& fonts) {
  const PageFont plain{.size = kListTextSize};
  const PageFont bold{.size = kListTextSize, .bold = true};
  std::vector<double> widths(ColumnCount(list), kNarrowestList);
  const auto take = [&](const QStringList& cells, const PageFont& font) {
    for (qsizetype i = 0; i < cells.size(); ++i) {
      double& width = widths[static_cast<size_t>(i)];
      for (const QString& line : cells[i].split(u'\n'))
        width = std::max(width, std::ceil(fonts.WidthOf(line, font)) + kCellGap);
    }
  };
  take(list.headings, bold);
  for (const QStringList& row : list.rows) take(row, plain);
  return widths;
}

double Sum(const std::vector<double>& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0.0);
}

/// Holds the widest columns to one common width, the largest with which all have room together.
void CutToRoom(std::vector<double>& widths, double room) {
  std::vector<double> sorted = widths;
  std::sort(sorted.begin(), sorted.end());
  double left = room;
  for (size_t i = 0; i < sorted.size(); ++i) {
    const double share = left / static_cast<double>(sorted.size() - i);
    if (sorted[i] > share) {
      for (double& width : widths) width = std::min(width, share);
      return;
    }
    left -= sorted[i];
  }
}

}  // namespace

ReportDocument ComposeList(Business& business, const ReportPlaces& places, const PrintList& list) {
  const PageFonts fonts(places.fontFolder);
  std::vector<double> widths = WantedWidths(list, fonts);
  PageSetup setup{.paper = places.paper};
  const auto room = [&] {
    return setup.Width() - setup.margins.left - setup.margins.right + kCellGap;
  };
  setup.landscape = Sum(widths) > room();
  if (Sum(widths) > room()) CutToRoom(widths, room());
  const double spare =
      (room() - Sum(widths)) / static_cast<double>(std::max<size_t>(1, widths.size()));
  for (double& width : widths) width += std::clamp(spare, 0.0, kMostSpare);

  Report report(business, places);
  const QString name = CleanFileName(list.title).trimmed();
  report.StartDocument((name.isEmpty() ? QStringLiteral("List") : name) + QStringLiteral(".doc"),
                       setup.landscape);
  report.SetDocTitle(list.title);
  report.Page().SetFooter(QStringLiteral("Page %1 of %2"));
  report.StoreHeadings(list.title, {});
  if (widths.empty()) return report.EndDocument();
  std::vector<TableColumn> columns;
  for (size_t i = 0; i < widths.size(); ++i)
    columns.push_back({IsMoney(list, i) ? Align::Right : Align::Left, widths[i]});
  Table table(std::move(columns));
  table.AddHeader(list.headings);
  for (const QStringList& row : list.rows) table.AddRow(row);
  report.Page().AddTable(table);
  report.StoreBreak();
  return report.EndDocument();
}

}  // namespace quillary::documents
