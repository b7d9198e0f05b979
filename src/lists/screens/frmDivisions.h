#pragma once

#include "kit/RecordList.h"

namespace quillary {

class Business;

/// The group's lines of business.
RecordList DivisionsList(Business& business);

}  // namespace quillary
