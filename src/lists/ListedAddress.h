#pragma once

#include "data/store/Recordset.h"

#include <QString>

namespace quillary::lists {

/// The address of a client as the lists show it: suburb, post code, street, number.
QString ListedAddress(const Record& client);

}  // namespace quillary::lists
