#pragma once

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
};

}  // namespace quillary
