#pragma once

#include "base/Errors.h"

#include <QString>

namespace quillary {

/// The one way in which an unexpected failure reaches the user.
class ErrorReporter {
 public:
  virtual ~ErrorReporter() = default;
  /// `form` is the screen or module, `errorLine` as ErrorLine() words it. Returns when the user
  /// chose to continue; the caller goes on with its next step.
  virtual void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                           const QString& furtherInformation = {}) = 0;

  /// A statement was refused and passed over in silence. Should that be why something fails later,
  /// the report of the failure can name it.
  virtual void NoteRefused(const RefusedStatement& /*refused*/) {}

  /// Reports what was thrown, with all that it tells of itself.
  void Report(const QString& form, const QString& procedure, const std::exception& error) {
    ReportError(form, ErrorLine(error), procedure, FurtherInformation(error));
  }
};

}  // namespace quillary
