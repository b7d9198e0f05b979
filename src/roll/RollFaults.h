#pragma once

#include "data/Business.h"

#include <QScopeGuard>

namespace quillary::roll {

/// The user wants the damaged file repaired. Thrown through the roll, so that it is undone before
/// the repair program gets the file.
struct RepairWanted {};

/// What happens to the failures of a roll: an unexpected one is reported and the roll goes on with
/// its next step; a failure of the store ends the roll, and when the file is damaged the user is
/// asked first whether to repair it. Going on after damage is no choice: SQLite writes nothing more
/// in a transaction that has met it.
class RollFaults {
 public:
  explicit RollFaults(Business& business) : business_(business) {}

  /// Throws RepairWanted, or the StorageFailure that ends the roll.
  template <typename Step>
  void Guard(Step&& step) {
    try {
      step();
    } catch (const StorageFailure& failure) {
      if (failure.Fault() == StorageFault::Damaged) OfferRepair();
      throw;
    } catch (const std::exception& error) {
      if (isTrial_) throw;
      Report(error);
    }
  }

  /// Runs `steps` to their end or to the first that fails, which is not reported: the caller undoes
  /// them and takes a more careful way. Tells whether all went well; throws as Guard() does.
  template <typename Steps>
  bool Try(Steps&& steps) {
    isTrial_ = true;
    const auto endOfTrial = qScopeGuard([this] { isTrial_ = false; });
    try {
      Guard(steps);
      return true;
    } catch (const StorageFailure&) {
      throw;
    } catch (const std::exception&) {
      return false;
    }
  }

 private:
  void OfferRepair();
  void Report(const std::exception& error);

  Business& business_;
  bool isTrial_ = false;
  bool declinedRepair_ = false;
};

/// Gives the file to the repair program that lies beside ours and ends the process; tells the user
/// when there is no such program. Returns only where ending the process does.
void HandOverToRepair(Business& business);

}  // namespace quillary::roll
