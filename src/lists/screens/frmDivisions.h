#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The group's lines of business.
RecordList DivisionsList(Business& business);

}  // namespace quillary::lists
