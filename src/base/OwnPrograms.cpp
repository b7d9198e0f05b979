#include "base/OwnPrograms.h"

#include "base/Text.h"

#include <QFileInfo>

namespace quillary {

bool IsInstalled(const QString& programsFolder) {
  return programsFolder.endsWith(QStringLiteral("/lib/quillary"));
}

QString OwnProgram(const QString& name, const char* variable) {
  const QString folder = ParentFolder(QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget());
  const QString elsewhere = qEnvironmentVariable(variable);
  if (!elsewhere.isEmpty() && !IsInstalled(folder)) return elsewhere;
  return folder + u'/' + name;
}

}  // namespace quillary
