#pragma once

#include "data/Business.h"
#include "setup/sheets/Sheet.h"

/// A list of clients from a file: exported by another program, or by a spreadsheet.
namespace quillary::setup {

/// A column of the list and where it goes.
struct MappedColumn {
  QString header;
  QString column;  // of Clients; empty where it goes nowhere
};

struct ClientList {
  std::vector<MappedColumn> columns;
  std::vector<QStringList> rows;  // without the line of headers
};

/// Takes the text apart and guesses by the headers where each column goes. Refuses a text without
/// a header line and a row below it.
std::optional<Refusal> ReadClientList(const QString& text, ClientList& list);

/// Sends the column of that header (without regard to case) to a column of Clients, or nowhere when
/// that is empty or "-". Refuses what is neither.
std::optional<Refusal> MapColumn(ClientList& list, const QString& header, const QString& column);

/// Makes a client of each row, all in one transaction; what is refused, and a client of the same
/// name and street who is there already, is told by its row and left out. Refuses a list of which
/// no column gives a name. Throws WriteFailed.
std::optional<Refusal> ImportClients(Business& business, const ClientList& list,
                                     SheetOutcome& outcome);

/// What ImportClients() would do. Writes nothing.
std::optional<Refusal> PreviewClients(Business& business, const ClientList& list,
                                      SheetOutcome& outcome);

}  // namespace quillary::setup
