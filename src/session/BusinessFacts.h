#pragma once

#include "data/Business.h"

#include <QDate>
#include <QString>

namespace quillary::session {

/// What the frame says about the open business.
struct BusinessFacts {
  QString companyName;     // may be empty
  QDate scheduleFilledTo;  // invalid before the first roll
};

BusinessFacts ReadBusinessFacts(Business& business);

}  // namespace quillary::session
