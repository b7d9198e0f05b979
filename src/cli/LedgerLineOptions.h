#pragma once

#include "billing/LedgerLines.h"
#include "cli/Command.h"

#include <vector>

namespace quillary::cli {

/// An amount in whole cents. Throws WrongUsage.
Money ParseAmount(const QString& text);
/// The amount of an option; throws WrongUsage when it is missing.
Money AmountOf(const Arguments& arguments, const char* option);

/// The values ACCOUNT_ID=AMOUNT of an option that may be given several times. Throws WrongUsage.
std::vector<billing::LedgerLineForm> LedgerLinesOf(const Arguments& arguments, const char* option);

}  // namespace quillary::cli
