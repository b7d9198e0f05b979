#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The numbers of days that the lists of frequencies offer, changed in their cells.
RecordList VisitFrequenciesList(Business& business);

}  // namespace quillary::lists
