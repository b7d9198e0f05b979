#pragma once

#include "documents/pages/Composer.h"

namespace quillary::documents {

/// The tables of a document as comma-separated values (RFC 4180), an empty line between two tables,
/// in UTF-8 behind the byte order mark by which spreadsheets know it. A text that a spreadsheet
/// would run as a formula gets an apostrophe in front.
QByteArray WriteCsv(const Composition& document);

}  // namespace quillary::documents
