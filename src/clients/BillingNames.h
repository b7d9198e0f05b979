#pragma once

#include "data/Business.h"

namespace quillary::clients {

enum class NameOrder { FirstNameFirst, SurnameFirst };
/// "FS", "SF": as the settings hold it.
QString CodeOf(NameOrder order);

/// How many clients would be called otherwise.
int CountBillingNames(Business& business, NameOrder order);

/// Makes the order the user's, and writes the billing names of all clients anew by it: "Ann Abbott"
/// or "Abbott, Ann". A client without either name is left without a billing name. Throws
/// WriteFailed.
void RenameClients(Business& business, NameOrder order);

/// The menu command: asks, saying how many names change; updates; tells. False when declined.
bool UpdateBillingNamesAfterAsking(Business& business, Prompter& prompter, NameOrder order);

}  // namespace quillary::clients
