#pragma once

#include "data/Business.h"

#include <QString>

/// The free text that is printed on invoices, statements and reminders.
namespace quillary::clients {

QString LoadGeneralNotes(Business& business);
/// An empty text clears it.
void SaveGeneralNotes(Business& business, const QString& notes);

}  // namespace quillary::clients
