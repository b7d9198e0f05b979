#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The countries a business can be in, with the names of their tax.
RecordList CountriesList(Business& business);

}  // namespace quillary::lists
