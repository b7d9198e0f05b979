#include "base/Errors.h"

namespace quillary {

QString ErrorLine(const std::exception& error) {
  constexpr int kInvalidCall = 5;
  const auto* numbered = dynamic_cast<const ProgramError*>(&error);
  return QStringLiteral("Error: %1 - %2")
      .arg(numbered ? numbered->Number() : kInvalidCall)
      .arg(QString::fromUtf8(error.what()));
}

}  // namespace quillary
