#pragma once

#include "data/store/Sql.h"

#include <QDate>

namespace quillary {

/// Holds in a statement over Diary, and over Clients as Payers, for jobs that are done and should
/// have had their invoice by now: those billed with each job at once, those billed by the month
/// when their month is over. What was paid without an invoice needs none.
Sql IsDueForInvoice(QDate today);

}  // namespace quillary
