#pragma once

#include <QString>
#include <QStringList>

namespace quillary {

/// The few things asked of the machine's desktop.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// False when nothing on the machine opens it.
  virtual bool OpenInBrowser(const QString& address) = 0;
  virtual void CopyToClipboard(const QString& text) = 0;
  /// Starts a helper program that lies beside ours, or one by its full path, without waiting for
  /// it; false when there is none of that name.
  virtual bool StartProgram(const QString& name, const QStringList& arguments = {}) = 0;
  /// Ends the process at once: no question, no backup.
  virtual void EndProcess(int exitCode) = 0;
};

}  // namespace quillary
