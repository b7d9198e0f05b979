#pragma once

#include "data/Business.h"

namespace quillary {

/// Computes the tax of an entry's lines anew at the stored rate, and the tax of the entry as their
/// sum in cents. The rate counts in whole percents (0.125 as 13) and a line's tax is not rounded,
/// so that a job that was priced under an old rate can differ from one that is priced today. An
/// entry without lines stays as it is.
void RecalculateDiaryEntryGST(Business& business, qint64 diaryId);

}  // namespace quillary
