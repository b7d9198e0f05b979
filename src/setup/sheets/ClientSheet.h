#pragma once

#include "data/Business.h"
#include "setup/sheets/Sheet.h"

/// The clients as a sheet: one row each, with the checks of the screen of a client.
namespace quillary::setup {

const std::vector<SheetColumn>& ClientSheetColumns();
std::vector<SheetRow> LoadClientSheet(Business& business);  // by display name

/// Writes a block, each of its rows whole or not at all; a row of which nothing is written is told.
/// An empty cell empties its field. A new client is active and billed with each job unless the
/// block says otherwise, and is called by its names when it is called nothing. All of it is one
/// command. Throws WriteFailed.
SheetOutcome WriteClients(Business& business, const SheetBlock& block);

/// One client from cells under the names of their columns, as the sheet and imports make it.
/// Nothing is written when a cell or the whole is refused.
struct NamedCell {
  QString column;
  QString value;
};
std::optional<Refusal> StoreClientRow(Business& business, std::optional<Id<Client>>& client,
                                      const std::vector<NamedCell>& cells);

}  // namespace quillary::setup
