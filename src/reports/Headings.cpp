#include "reports/Headings.h"

#include "base/ports/Prompter.h"
#include "documents/reports/Report.h"

namespace quillary::reports {

QString SystemName() {
  return SystemTitle();
}

QString TaxHeading(const Business& business) {
  return business.values.taxName + QStringLiteral(" inc.");
}

QString RangeWords(const DateRange& days) {
  return QStringLiteral("%1 to %2")
      .arg(documents::ReportDateText(days.from), documents::ReportDateText(days.to));
}

QString FromTo(const DateRange& days) {
  return QStringLiteral("From ") + RangeWords(days);
}

}  // namespace quillary::reports
