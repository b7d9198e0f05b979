#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "setup/import/ClientImport.h"
#include "setup/sheets/Delimited.h"

#include <QFile>

namespace quillary::cli {
namespace {

setup::ClientList ReadList(const Call& call) {
  const QString& path = call.arguments.positional.at(1);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw CommandFailure(QStringLiteral("%1 cannot be read").arg(path));
  setup::ClientList list;
  ThrowIf(setup::ReadClientList(setup::TextOfExport(file.readAll()), list));
  for (const QString& mapping : call.arguments.All("map")) {
    const qsizetype equals = mapping.lastIndexOf(u'=');
    if (equals < 1) throw WrongUsage(QStringLiteral("--map takes HEADER=COLUMN"));
    ThrowIf(setup::MapColumn(list, mapping.left(equals), mapping.mid(equals + 1)));
  }
  return list;
}

/// Where each column goes, with what stands in the first row.
ResultTable MappingOf(const setup::ClientList& list) {
  ResultTable table({"header", "column", "first row"});
  for (size_t at = 0; at < list.columns.size(); ++at)
    table.AddRow({list.columns[at].header, list.columns[at].column,
                  list.rows.front().value(static_cast<qsizetype>(at))});
  return table;
}

/// Rows are numbered as in the file, whose first line holds the headers.
ResultTable TroublesOf(const setup::SheetOutcome& outcome) {
  ResultTable table({"row", "trouble"});
  for (const setup::SheetTrouble& trouble : outcome.troubles)
    table.AddRow({qint64{trouble.row} + 2, trouble.message});
  return table;
}

void RunImportClients(const Call& call) {
  const setup::ClientList list = ReadList(call);
  const bool writes = call.arguments.Has("yes");
  const auto business = OpenCurrentBusiness(call);
  setup::SheetOutcome outcome;
  ThrowIf(writes ? setup::ImportClients(*business, list, outcome)
                 : setup::PreviewClients(*business, list, outcome));
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"written\": " << (writes ? "true" : "false")
             << ", \"clients\": " << outcome.added << ", \"columns\": ";
    MappingOf(list).PrintJson(call.out);
    call.out << ", \"passed_over\": ";
    TroublesOf(outcome).PrintJson(call.out);
    call.out << "}\n";
    return;
  }
  MappingOf(list).PrintAligned(call.out);
  if (!outcome.troubles.empty()) TroublesOf(outcome).PrintAligned(call.out);
  call.out << QString::fromLatin1(writes
                                      ? "Imported %1 of %2 clients.\n"
                                      : "%1 of %2 clients would be imported; --yes imports them.\n")
                  .arg(outcome.added)
                  .arg(list.rows.size());
}

}  // namespace

std::vector<Command> ImportClientsCommands() {
  return {
      {"import-clients",
       "FILE CSV [--map HEADER=COLUMN] [--yes]",
       "Makes clients of the rows of a list, after its columns were matched by their headers; "
       "without --yes it says what it would do. What is not taken is told row by row.",
       {{"map", "HEADER=COLUMN", "where a column of the list goes; - for nowhere"}},
       2,
       2,
       RunImportClients},
  };
}

}  // namespace quillary::cli
