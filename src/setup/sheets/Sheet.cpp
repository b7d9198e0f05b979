#include "setup/sheets/Sheet.h"

namespace quillary::setup {
namespace {

constexpr size_t kMostTold = 12;

QString Counted(int count, const QString& one, const QString& many) {
  return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

}  // namespace

QString SheetOutcome::InWords(const QString& one, const QString& many) const {
  QStringList lines;
  QStringList done;
  if (added > 0) done += QStringLiteral("added %1").arg(Counted(added, one, many));
  if (changed > 0) done += QStringLiteral("changed %1").arg(Counted(changed, one, many));
  QString head = done.isEmpty() ? QStringLiteral("nothing was changed") : done.join(", ");
  head[0] = head[0].toUpper();
  lines += head + u'.';
  for (size_t at = 0; at < troubles.size() && at < kMostTold; ++at) {
    const SheetTrouble& trouble = troubles[at];
    lines += trouble.column.isEmpty()
                 ? QStringLiteral("Row %1: %2").arg(trouble.row + 1).arg(trouble.message)
                 : QStringLiteral("Row %1, %2: %3")
                       .arg(trouble.row + 1)
                       .arg(trouble.column, trouble.message);
  }
  if (troubles.size() > kMostTold)
    lines += QStringLiteral("... and %1 more.").arg(troubles.size() - kMostTold);
  return lines.join(u'\n');
}

}  // namespace quillary::setup
