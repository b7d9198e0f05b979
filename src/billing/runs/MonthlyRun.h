#pragma once

#include "billing/runs/InvoiceRun.h"

#include <QDate>
#include <QString>

#include <optional>

/// The run that bills, by one invoice each, the clients who are billed by the month.
namespace quillary::billing {

struct MonthlyPeriod {
  DateRange days;   // the last one whole
  QDate generated;  // the date on the invoices
};

/// "TAX INVOICE FOR MARCH" for a whole month, else "TAX INVOICE FOR 01-MAR-2026 TO 30-MAR-2026".
/// A longer period names its dates even when it consists of whole months.
QString MonthlyDescription(const DateRange& days);

/// Asks whether to run at all.
bool ConfirmMonthlyRun(Prompter& prompter);

/// Makes one invoice for each active client who is billed by the month, of the jobs that the client
/// and all who are billed to it had done in the period and that no invoice bills yet. Their status
/// stays. Where these come to 0 the invoice is taken back: the jobs keep its key, so that no later
/// run finds them, and the number stays spent. Records the end of the period. A second run finds
/// only what came in late.
InvoiceRunCount GenerateMonthlyInvoices(Business& business, const MonthlyPeriod& period,
                                        const RunProgress& progress = {});

}  // namespace quillary::billing
