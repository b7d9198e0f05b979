#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "data/access/ReceiptFile.h"
#include "older/ImportOlder.h"
#include "session/ProgramFolder.h"

#include <QFileInfo>

/// Coming from the older product, for scripts.
namespace quillary::cli {
namespace {

void RunImportOlder(const Call& call) {
  const QString source = QFileInfo(call.arguments.positional.at(1)).absoluteFilePath();
  const auto business = OpenCurrentBusiness(call);
  if (!call.world.prompter.AllowsYes())
    throw CommandFailure(QStringLiteral("the import empties the business first; --yes allows it"));
  older::ImportReceipt receipt;
  try {
    receipt =
        older::ImportOlder(*business, source, session::ArchiveUnder(session::ProgramFolder()));
  } catch (const ProgramError& failure) {
    throw CommandFailure(QString::fromUtf8(failure.what()));
  }
  KeepReceipt(receipt.tables, source, business->DatabaseFile(), business->Now(), receipt.Words());
  business->CloseConnection();
  ResultTable table({"Table", "Read", "Written", "Passed_Over", "Why"});
  for (const TableReceipt& each : receipt.tables.tables)
    table.AddRow({each.table, each.read, each.written, each.rejected,
                  each.rejections.join(QStringLiteral("; "))});
  PrintTable(call, table);
  if (!call.json) call.out << receipt.Words() << '\n';
}

}  // namespace

std::vector<Command> OlderCommands() {
  return {{"import-older",
           "FILE OLDER_FILE",
           "Empties the business and fills it from a database of the older product. A copy as it "
           "was goes to Archive, and a receipt is laid beside the older file.",
           {},
           2,
           2,
           RunImportOlder}};
}

}  // namespace quillary::cli
