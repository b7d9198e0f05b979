#pragma once

#include <QString>

namespace quillary {

/// What is wrong with an input, in the words for the user, and the field of the form that the user
/// has to look at; no field when it is the choice in a list that is missing. The screen knows which
/// control is for a field.
struct Refusal {
  QString message;
  QString field;
};

}  // namespace quillary
