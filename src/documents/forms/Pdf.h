#pragma once

#include "base/DateTime.h"
#include "documents/pages/Composer.h"

namespace quillary {
class PDFWriter;
}

namespace quillary::documents {

/// What has to be told of texts that no face could show.
QStringList TroublesOfTexts(const PDFWriter& pdf);

/// Writes the pages as a PDF file, over an older one that stays whole until the new one is done.
/// Throws PDFError or StorageFailure when that fails. A picture that cannot be read is left out.
/// Returns what the user has to be told: texts that cannot be shown.
QStringList WritePdf(const Composition& document, const QString& file, const DateTime& now);

}  // namespace quillary::documents
