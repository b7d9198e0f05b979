#pragma once

#include "base/ports/Prompter.h"

#include <QDate>

#include <optional>

namespace quillary::diary {

/// Asks until when a quote is put off, proposing tomorrow. Nothing when the user gives up.
class dlgQuotePostponed {
 public:
  static std::optional<QDate> GetDate(Prompter& prompter, QDate today);
};

}  // namespace quillary::diary
