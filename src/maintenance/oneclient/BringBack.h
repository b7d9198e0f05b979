#pragma once

#include "maintenance/oneclient/ClientComparison.h"

#include <QStringList>

namespace quillary::maintenance {

/// What came back.
struct BroughtBack {
  size_t pieces = 0;
  QString words;     // "Brought back for Abbott: 2 jobs, 1 payment"
  QStringList told;  // what could not come back as it was
};

/// Brings the rows at these places of the list back into the business, in one transaction:
/// - A row comes back under its number. When another row has been given it since, it gets a new
/// one,
///   and whatever comes back with it points there. No counter is ever lowered, and the number of an
///   invoice that comes back is never handed out again.
/// - A client that is gone comes back with the first of its rows, ticked or not.
/// - What a row points at and is gone is not made up: the row comes back without it.
/// - The open diary is made anew when services came back, and all balances that this touches are.
/// Throws WriteFailed and StorageFailure, with nothing changed.
BroughtBack BringBack(Business& business, const ClientComparison& comparison,
                      const std::vector<size_t>& places);

/// The command behind the screen: tells when nothing is ticked that can come back, asks, and tells
/// what could not come back as it was. False when nothing was done.
bool BringBackAfterAsking(Business& business, Prompter& prompter,
                          const ClientComparison& comparison, const std::vector<size_t>& places);

}  // namespace quillary::maintenance
