#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}

namespace quillary::setup {

/// Those who do the work.
RecordList EmployeesList(Business& business);

}  // namespace quillary::setup
