#pragma once

#include "base/ports/Desktop.h"

namespace quillary::shell {

/// The desktop we really run on.
class MachineDesktop : public Desktop {
 public:
  bool OpenInBrowser(const QString& address) override;
  void CopyToClipboard(const QString& text) override;
  bool StartProgram(const QString& name, const QStringList& arguments) override;
  [[noreturn]] void EndProcess(int exitCode) override;
};

}  // namespace quillary::shell
