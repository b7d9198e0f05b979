#pragma once

#include "base/Money.h"
#include "diary/Jobs.h"

#include <vector>

/// The service lines of one job, and what follows from them for the job. All prices include tax.
namespace quillary::diary {

struct JobService {
  Id<EntryLine> line;
  std::optional<Id<Service>> service = {};
  QString serviceCode = {};
  Money price = {};
  QString accountName = {};  // of the revenue account, or a hint where to choose one
};

struct JobServices {
  std::vector<JobService> rows;  // by name of the service
  Money total;

  /// "Total = $55.00"
  QString TotalWords() const;
  /// The codes as a job's description: "LM, HT".
  QString Description() const;
};

JobServices LoadServices(Business& business, Id<Entry> entry);

/// The fields from which a line is stored.
struct JobServiceForm {
  std::optional<Id<EntryLine>> line;  // the line selected in the list
  std::optional<Id<Service>> service;
  Money price;
};

enum class SaveLine { AsNew, Selected };

/// Writes one line with the tax inside its price, and nothing that follows from it. Throws
/// WriteFailed when the selected one has gone.
void StoreServiceLine(Business& business, Id<Entry> entry, const JobServiceForm& form, SaveLine as);

/// Adds a line to the job, or changes the selected one, with the tax inside its price, and then the
/// job's totals. Refuses a form without service, and a change without a selected line. A new job is
/// saved first, so that the line has an entry; what SaveJob() refuses is refused here too.
std::optional<Refusal> SaveService(Business& business, Job& job, const JobServiceForm& form,
                                   SaveLine as);
/// Deletes the selected line and recomputes the job's totals. Refuses when none is selected.
std::optional<Refusal> RemoveService(Business& business, std::optional<Id<Entry>> entry,
                                     std::optional<Id<EntryLine>> line);

/// Sets the job's total price to the sum of its lines and its tax to the tax inside that sum, which
/// can differ by a cent from the sum of the lines' tax.
void UpdateTotalPriceAndGST(Business& business, Id<Entry> entry);

}  // namespace quillary::diary
