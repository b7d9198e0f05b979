#pragma once

#include "documents/pages/Composer.h"

namespace quillary::documents {

/// A text within the RTF file: line ends as \line, everything that RTF would read as its own
/// escaped, what lies beyond ASCII as \u with a sign that old readers show instead.
QByteArray RtfText(const QString& text);

/// The document as an RTF file that lays itself out: texts, tables with repeating header rows,
/// rules, page breaks, raw RTF. Lines and pictures that have a place of their own are left out.
QByteArray WriteRtf(const Composition& document);

}  // namespace quillary::documents
