#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "data/access/ConvertAccessFile.h"
#include "data/access/ReceiptFile.h"
#include "data/schema/Schema.h"
#include "data/store/FileInTheMaking.h"
#include "setup/demo/DemoBusiness.h"

#include <limits>

namespace quillary::cli {
namespace {

void Say(const Call& call, const QString& text) {
  if (call.json) {
    call.out << "{\"file\": " << ToJson(call.File()) << "}\n";
  } else {
    call.out << text << '\n';
  }
}

void RunNew(const Call& call) {
  FileInTheMaking file(call.File());
  CreateEmptyBusiness(file.Path());
  file.TakeItsPlace();
  Say(call,
      QStringLiteral("%1: an empty business of version %2").arg(call.File()).arg(kSchemaVersion));
}

void RunDemo(const Call& call) {
  constexpr qint64 kMostClients = 100'000;
  constexpr qint64 kMostMonths = 1200;
  setup::DemoOptions options;
  const Arguments& given = call.arguments;
  options.clients =
      static_cast<int>(given.Number("clients", 1, kMostClients).value_or(options.clients));
  options.months =
      static_cast<int>(given.Number("months", 0, kMostMonths).value_or(options.months));
  options.seed = static_cast<quint32>(
      given.Number("seed", 0, std::numeric_limits<quint32>::max()).value_or(options.seed));

  FileInTheMaking file(call.File());
  CreateEmptyBusiness(file.Path());
  {
    Business business(call.world.Ports(), file.Path());
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, options);
    business.CloseConnection();
  }
  file.TakeItsPlace();
  Say(call, QStringLiteral("%1: an invented business of %2 clients and %3 months, seed %4")
                .arg(call.File())
                .arg(options.clients)
                .arg(options.months)
                .arg(options.seed));
}

ResultTable RowsPerTable(const ConversionReceipt& receipt) {
  ResultTable table({QStringLiteral("table"), QStringLiteral("read"), QStringLiteral("written"),
                     QStringLiteral("rejected")});
  for (const TableReceipt& entry : receipt.tables) {
    table.AddRow({entry.table, entry.read, entry.written, entry.rejected});
  }
  return table;
}

QString CodePageOf(const Call& call) {
  const QString name = call.arguments.options.value(QStringLiteral("code-page"));
  if (!call.arguments.Has("code-page")) return name;
  if (!IsCodePage(name)) throw WrongUsage(QStringLiteral("\"%1\" is no code page").arg(name));
  if (IsAccessFile(call.File()) && !NeedsCodePage(call.File())) {
    throw WrongUsage(
        QStringLiteral("the texts of %1 are Unicode and need no code page").arg(call.File()));
  }
  return name;
}

/// Converts, and lays the receipt beside the Access file whether it was accepted or not.
ConversionReceipt ConvertWithReceipt(const Call& call, const QString& target,
                                     const ConversionOptions& options, QString& receiptFile) {
  const DateTime now = call.world.clock.Now();
  try {
    const ConversionReceipt receipt = ConvertAccessFile(call.File(), target, options);
    receiptFile = KeepReceipt(receipt, call.File(), target, now,
                              receipt.IsClean() ? QStringLiteral("Everything was taken over.")
                                                : QStringLiteral("The differences were accepted."));
    return receipt;
  } catch (const ConversionRefused& refused) {
    KeepReceipt(refused.Receipt(), call.File(), target, now, QString::fromUtf8(refused.what()));
    throw;
  }
}

void RunConvert(const Call& call) {
  const QString& target = call.arguments.positional.at(1);
  ConversionOptions options;
  if (call.arguments.Has("accept")) options.accept = [](const auto&) { return true; };
  options.codePage = CodePageOf(call);
  QString receiptFile;
  const ConversionReceipt receipt = ConvertWithReceipt(call, target, options, receiptFile);
  if (call.json) {
    call.out << "{\"version\": " << receipt.version << ", \"tables\": ";
    RowsPerTable(receipt).PrintJson(call.out);
    call.out << "}\n";
    return;
  }
  RowsPerTable(receipt).PrintAligned(call.out);
  for (const QString& finding : receipt.Findings()) call.out << "not kept: " << finding << '\n';
  call.out << target << ": a business of version " << receipt.version << '\n';
  call.out << (receiptFile.isEmpty() ? QStringLiteral("the receipt could not be written")
                                     : QStringLiteral("receipt: ") + receiptFile)
           << '\n';
}

}  // namespace

std::vector<Command> FileCommands() {
  return {
      {"new",
       "FILE",
       "Writes an empty business. A file that is there already is never overwritten.",
       {},
       1,
       1,
       RunNew},
      {"demo",
       "FILE [--clients N] [--months M] [--seed S]",
       "Writes an invented business, the same for the same numbers and day.",
       {{"clients", "N", "how many clients"},
        {"months", "M", "how many months of work lie behind it"},
        {"seed", "S", "another number, another business"}},
       1,
       1,
       RunDemo},
      {"convert",
       "ACCESS_FILE FILE [--accept] [--code-page NAME]",
       "Makes a business file of an Access file and prints the rows read and written per table. A "
       "receipt with the money totals is laid beside the Access file.",
       {{"accept", nullptr, "keep the new file even if something could not be taken over"},
        {"code-page", "NAME", "of the texts in a file of Access 97 or before, as CP1250"}},
       2,
       2,
       RunConvert},
  };
}

}  // namespace quillary::cli
