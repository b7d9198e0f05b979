#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"

namespace quillary::cli {
namespace {

void RunStatement(const Call& call) {
  const auto business = OpenAnyBusiness(call);
  std::optional<RefusedStatement> refused;
  business->OnRefusedStatement([&](const RefusedStatement& heard) { refused = heard; });
  const Recordset result = business->RunSQL(call.arguments.positional.at(1));
  if (refused) throw CommandFailure(QStringLiteral("refused: ") + refused->reason);
  const bool hasColumns = result.IsOpen() && !result.Columns().empty();
  if (call.json) {
    if (hasColumns) {
      ResultTable::FromRecordset(result).PrintJson(call.out);
    } else {
      call.out << "[]";
    }
    call.out << '\n';
  } else if (hasColumns) {
    ResultTable::FromRecordset(result).PrintAligned(call.out);
  } else {
    call.out << "done\n";
  }
  business->CloseConnection();
}

}  // namespace

std::vector<Command> StatementCommands() {
  return {{"sql",
           "FILE STATEMENT",
           "Runs one statement and prints its rows. A refused statement is told with its reason.",
           {},
           2,
           2,
           RunStatement}};
}

}  // namespace quillary::cli
