#include "reports/ReportKinds.h"

#include "reports/AccountantPack.h"
#include "reports/LedgerReport.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace quillary::reports {
namespace {

[[noreturn]] void Refuse(const QString& why) {
  throw std::invalid_argument(why.toStdString());
}

bool NeedsRange(Asks asks) {
  return asks == Asks::Days || asks == Asks::DaysAndClients || asks == Asks::DaysAndEmployee;
}

/// The first choice where nothing was chosen.
void Settle(QString& chosen, const std::vector<ReportChoice>& choices, const char* what) {
  if (choices.empty() && chosen.isEmpty()) return;
  if (chosen.isEmpty()) chosen = QString::fromLatin1(choices.front().name);
  QStringList names;
  for (const ReportChoice& choice : choices) names += QString::fromLatin1(choice.name);
  if (names.contains(chosen)) return;
  Refuse(names.isEmpty() ? QStringLiteral("This report has no %1s.").arg(QLatin1String(what))
                         : QStringLiteral("This report has no %1 \"%2\", but %3.")
                               .arg(QLatin1String(what), chosen, names.join(QStringLiteral(", "))));
}

}  // namespace

std::span<const ReportKind> ReportKinds() {
  static const std::vector<ReportKind> kinds = [] {
    std::vector<ReportKind> all;
    for (const auto& area : {SheetKinds(), BookReportKinds(), ClientReportKinds(), JobReportKinds(),
                             MoneyReportKinds(), LedgerReportKinds(), AccountantPackKinds()})
      all.insert(all.end(), area.begin(), area.end());
    return all;
  }();
  return kinds;
}

QString FileNameOf(const ReportKind& kind, const ReportData& data) {
  return data.fileName.isEmpty() ? QString::fromLatin1(kind.file) : data.fileName;
}

const ReportKind* FindReportKind(const QString& name) {
  const auto kinds = ReportKinds();
  const auto at = std::find_if(kinds.begin(), kinds.end(), [&](const ReportKind& kind) {
    return name == QLatin1String(kind.name);
  });
  return at == kinds.end() ? nullptr : &*at;
}

ReportData BeginReport(Business& business, const ReportKind& kind, ReportCriteria criteria) {
  if (NeedsRange(kind.asks) && !criteria.days.IsValid())
    Refuse(QStringLiteral("Please enter a valid date range."));
  Settle(criteria.sort, kind.sorts, "sort");
  Settle(criteria.option, kind.options, "option");
  return kind.collect(business, criteria);
}

ReportData CollectReport(Business& business, const ReportKind& kind, ReportCriteria criteria) {
  ReportData data = BeginReport(business, kind, std::move(criteria));
  if (const auto rest = std::exchange(data.rest, {})) {
    ReportSection& section = data.sections.back();
    while (auto groups = rest->Next())
      std::move(groups->begin(), groups->end(), std::back_inserter(section.groups));
    section.totals = rest->Totals();
  }
  return data;
}

}  // namespace quillary::reports
