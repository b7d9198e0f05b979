#pragma once

#include "data/Business.h"
#include "reports/ListReport.h"

/// Whose rows a report lists.
namespace quillary::reports {

/// The client of a row with Client_ID and Display_Name, also of one who is gone.
GroupKey ClientOfRow(const Record& row);

/// The start of a join for a statement: `table` with the names of its clients, all rows for no
/// clients, else those of the clients given. These go into lstClientsToPrint, in place of what was
/// selected there before.
Sql ChosenClients(Business& business, const std::vector<Id<Client>>& clients, const char* table);

/// Conditions on the clients of diary entries, each for some of them, in the order of their names:
/// few at first, so that the first pages of a list come at once. The first is for entries whose
/// client is gone, where there are any. Each ends in " AND ".
std::vector<Sql> PortionsOfClients(Business& business);

/// "All employees", or the name; throws std::invalid_argument for one who is not there.
QString EmployeeWords(Business& business, const std::optional<Id<Employee>>& employee);

}  // namespace quillary::reports
