#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "maintenance/CheckBusiness.h"
#include "maintenance/Salvage.h"
#include "session/ProgramFolder.h"
#include "session/StartUp.h"

namespace quillary::cli {
namespace {

void RunCheck(const Call& call) {
  const std::vector<maintenance::Finding> findings =
      maintenance::CheckBusiness(call.world.Ports(), call.File());
  if (call.json) {
    ResultTable table({"table", "finding", "note"});
    for (const maintenance::Finding& finding : findings) {
      table.AddRow({finding.table, finding.what, finding.isNote});
    }
    PrintTable(call, table);
  } else {
    for (const maintenance::Finding& finding : findings) {
      call.out << (finding.isNote ? "note:  " : "wrong: ") << finding.table << ": "
               << OneLine(finding.what) << '\n';
    }
  }
  call.out.flush();
  if (maintenance::IsWrong(findings)) {
    const auto wrong =
        std::count_if(findings.begin(), findings.end(),
                      [](const maintenance::Finding& finding) { return !finding.isNote; });
    throw CommandFailure(
        QStringLiteral("%1: %2 findings").arg(call.File()).arg(static_cast<qint64>(wrong)));
  }
  if (!call.json) call.out << call.File() << ": in order\n";
}

void RunRepair(const Call& call) {
  const QString& target = call.arguments.positional.at(1);
  const maintenance::SalvageReceipt receipt = maintenance::SalvageFile(call.File(), target);
  const std::vector<maintenance::Finding> left =
      maintenance::CheckBusiness(call.world.Ports(), target);
  if (call.json) {
    ResultTable table({"table", "saved", "lost", "perhaps_more"});
    for (const maintenance::SalvagedTable& entry : receipt.tables) {
      table.AddRow({entry.table, entry.saved, entry.lost, entry.mayHaveLostMore});
    }
    PrintTable(call, table);
    return;
  }
  for (const QString& damage : receipt.damage) call.out << "damage: " << OneLine(damage) << '\n';
  for (const QString& line : maintenance::SalvageLines(receipt)) call.out << OneLine(line) << '\n';
  for (const maintenance::Finding& finding : left) {
    call.out << "in the new file: " << finding.table << ": " << OneLine(finding.what) << '\n';
  }
  call.out << target << (receipt.LostNothing() ? ": nothing was lost\n" : ": not all was saved\n");
}

qint64 VersionOf(Business& business) {
  return business.LookupField(QStringLiteral("infSystem.Database_Version")).ToLong();
}

void RunUpgrade(const Call& call) {
  const auto business = OpenAnyBusiness(call);
  const qint64 before = VersionOf(*business);
  session::UpgradeFile(*business, session::ProgramFolder());
  const qint64 after = VersionOf(*business);
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"from\": " << before << ", \"to\": " << after << "}\n";
  } else if (before == after) {
    call.out << call.File() << ": at version " << after << " already\n";
  } else {
    call.out << call.File() << ": from version " << before << " to " << after << '\n';
  }
}

}  // namespace

std::vector<Command> RepairCommands() {
  return {
      {"check",
       "FILE",
       "Checks pages, references and totals; fails when something is wrong. Notes do not fail it.",
       {},
       1,
       1,
       RunCheck},
      {"repair",
       "DAMAGED_FILE FILE",
       "Saves what can be read of a damaged file into a new one. The old one stays as it is.",
       {},
       2,
       2,
       RunRepair},
      {"upgrade",
       "FILE",
       "Brings a file of an older version up to the current one, keeping a copy in Archive.",
       {},
       1,
       1,
       RunUpgrade},
  };
}

}  // namespace quillary::cli
