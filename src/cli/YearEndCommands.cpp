#include "accounts/yearend/PreviousRecords.h"
#include "accounts/yearend/RevenueAccounts.h"
#include "accounts/yearend/SortOut.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "clients/BillingNames.h"

/// Bulk repairs. Without --yes each says what it would do, and does nothing.
namespace quillary::cli {
namespace {

void PrintCounts(const Call& call, const std::vector<accounts::RepairCount>& counts) {
  ResultTable table({"What", "Rows", "Amount"});
  for (const accounts::RepairCount& count : counts)
    table.AddRow({count.what, count.rows, count.amount ? Value(*count.amount) : Value()});
  PrintTable(call, table);
}

bool IsAllowed(const Call& call) {
  return call.arguments.Has("yes");
}

void RunDeleteFinancial(const Call& call) {
  const auto from = call.arguments.Date("from");
  const auto to = call.arguments.Date("to");
  if (!from || !to) throw WrongUsage(QStringLiteral("delete-financial needs --from and --to"));
  const DateRange days{*from, *to};
  if (!days.IsValid()) throw CommandFailure(QStringLiteral("--to is before --from"));
  const auto business = OpenCurrentBusiness(call);
  PrintCounts(call, accounts::CountPreviousRecords(*business, days));
  if (IsAllowed(call))
    accounts::DeletePreviousRecordsAfterAsking(*business, call.world.prompter, days);
  business->CloseConnection();
}

void RunSortOut(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  PrintCounts(call, IsAllowed(call) ? accounts::SortOutRecords(*business)
                                    : accounts::CountWhatToSortOut(*business));
  business->CloseConnection();
}

void RunRevenueAccounts(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  PrintCounts(
      call, {{QStringLiteral("services of paid jobs"), accounts::CountRevenueToUpdate(*business)}});
  if (IsAllowed(call)) accounts::UpdateRevenueAccountsAfterAsking(*business, call.world.prompter);
  business->CloseConnection();
}

void RunBillingNames(const Call& call) {
  using clients::NameOrder;
  const QString code = call.arguments.positional.at(1).toUpper();
  if (code != CodeOf(NameOrder::FirstNameFirst) && code != CodeOf(NameOrder::SurnameFirst))
    throw WrongUsage(QStringLiteral("the order of names is FS or SF"));
  const NameOrder order = code == CodeOf(NameOrder::FirstNameFirst) ? NameOrder::FirstNameFirst
                                                                    : NameOrder::SurnameFirst;
  const auto business = OpenCurrentBusiness(call);
  PrintCounts(call,
              {{QStringLiteral("billing names"), clients::CountBillingNames(*business, order)}});
  if (IsAllowed(call))
    clients::UpdateBillingNamesAfterAsking(*business, call.world.prompter, order);
  business->CloseConnection();
}

}  // namespace

std::vector<Command> YearEndCommands() {
  return {
      {"delete-financial",
       "FILE --from DATE --to DATE [--yes]",
       "Deletes jobs, payments, purchases, invoices and deposits of the days. Without --yes it "
       "only "
       "says how many there are.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"}, {"to", "DATE", "the last day"}},
       1,
       1,
       RunDeleteFinancial},
      {"sort-out",
       "FILE [--yes]",
       "Deletes what belongs to nothing or is worth nothing, and sums up the jobs by their lines. "
       "Without --yes it only says what it would do.",
       {},
       1,
       1,
       RunSortOut},
      {"revenue-accounts",
       "FILE [--yes]",
       "Gives the revenue of payments that has no account the default one of its services.",
       {},
       1,
       1,
       RunRevenueAccounts},
      {"billing-names",
       "FILE FS|SF [--yes]",
       "Writes the billing names of all clients as first name and surname, or as surname, first "
       "name. Without --yes it only says how many would change.",
       {},
       2,
       2,
       RunBillingNames},
  };
}

}  // namespace quillary::cli
