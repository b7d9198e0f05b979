#pragma once

#include "documents/pages/Composer.h"

namespace quillary::documents {

/// A text as one field, in quotes where it needs them.
QByteArray CsvField(const QString& text);

/// The tables of a document as comma-separated values (RFC 4180), an empty line between two tables,
/// in UTF-8 behind the byte order mark by which spreadsheets know it. A text that a spreadsheet
/// would run as a formula gets an apostrophe in front.
QByteArray WriteCsv(const Composition& document);

}  // namespace quillary::documents
