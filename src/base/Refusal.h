#pragma once

#include <QString>

namespace quillary {

/// What is wrong with an input, in the words for the user, and the control that the user has to
/// look at; no control when it is the choice in a list that is missing.
struct Refusal {
  QString message;
  QString field;
};

}  // namespace quillary
