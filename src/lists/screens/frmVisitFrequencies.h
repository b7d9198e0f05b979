#pragma once

#include "kit/RecordList.h"

namespace quillary {

class Business;

/// The numbers of days that the lists of frequencies offer, changed in their cells.
RecordList VisitFrequenciesList(Business& business);

}  // namespace quillary
