#pragma once

#include <QStringList>
#include <QTextStream>

namespace quillary::cli {

/// What went amiss while something was done all the same goes beside what the command prints, so
/// that a script reads a path and nothing else.
inline void TellOnError(const QStringList& troubles) {
  QTextStream err(stderr);
  for (const QString& trouble : troubles) err << trouble << '\n';
}

}  // namespace quillary::cli
