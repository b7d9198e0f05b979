#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The texts that invoices are given ready-made.
namespace quillary::billing {

/// Each different note of earlier invoices, in order, and the general note last.
QStringList ListInvoiceNotes(Business& business);
std::optional<Refusal> CheckNoteSelected(bool isSelected);

/// The terms printed on reminders and statements; "[AMOUNT]" in them stands for what is to be paid.
QString LoadTermsOfTrade(Business& business);
/// An empty text clears them.
void SaveTermsOfTrade(Business& business, const QString& terms);

}  // namespace quillary::billing
