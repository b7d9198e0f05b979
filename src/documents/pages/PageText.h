#pragma once

#include <QStringList>

namespace quillary::documents {

/// The lines of a text as pages and files show them: split at its line ends, whatever their kind,
/// tabs as blanks, without signs that nothing can show. Never empty.
QStringList TextLines(const QString& text);

}  // namespace quillary::documents
