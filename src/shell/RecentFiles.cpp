#include "shell/RecentFiles.h"

namespace quillary::shell {

namespace {

constexpr int kMost = 4;
const QString kSection = QStringLiteral("MRUFiles");

}  // namespace

RecentFiles::RecentFiles(SettingsStore& settings) : settings_(settings) {
  for (int number = 1; number <= kMost; ++number) {
    const QString path = settings.Read(kSection, QString::number(number)).trimmed();
    if (!path.isEmpty()) paths_ += path;
  }
}

void RecentFiles::PutInFront(const QString& path) {
  paths_.removeIf([&](const QString& listed) { return listed.toUpper() == path.toUpper(); });
  paths_.prepend(path);
  while (paths_.size() > kMost) paths_.removeLast();
}

void RecentFiles::Save() {
  for (int number = 1; number <= kMost; ++number)
    settings_.Write(kSection, QString::number(number), paths_.value(number - 1));
}

}  // namespace quillary::shell
