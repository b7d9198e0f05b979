#include "cli/LedgerLineOptions.h"

namespace quillary::cli {

Money ParseAmount(const QString& text) {
  const auto amount = Money::Parse(text);
  if (!amount) throw WrongUsage(QStringLiteral("\"%1\" is no amount").arg(text));
  if (*amount != amount->Rounded(2))
    throw WrongUsage(QStringLiteral("\"%1\" is no amount in whole cents").arg(text));
  return *amount;
}

Money AmountOf(const Arguments& arguments, const char* option) {
  if (!arguments.Has(option))
    throw WrongUsage(QStringLiteral("--%1 is missing").arg(QLatin1StringView(option)));
  return ParseAmount(arguments.options.value(QLatin1StringView(option)));
}

std::vector<billing::LedgerLineForm> LedgerLinesOf(const Arguments& arguments, const char* option) {
  std::vector<billing::LedgerLineForm> lines;
  for (const QString& word : arguments.All(option)) {
    if (!word.contains(u'='))
      throw WrongUsage(QStringLiteral("--%1 takes ACCOUNT_ID=AMOUNT, not \"%2\"")
                           .arg(QLatin1StringView(option), word));
    lines.push_back({.glAccountId = ParseId<Account>(word.section(u'=', 0, 0)),
                     .amount = ParseAmount(word.section(u'=', 1))});
  }
  return lines;
}

}  // namespace quillary::cli
