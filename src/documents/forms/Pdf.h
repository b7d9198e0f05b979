#pragma once

#include "base/DateTime.h"
#include "documents/pages/Composer.h"

namespace quillary::documents {

/// Writes the pages as a PDF file, over an older one that stays whole until the new one is done.
/// Throws PDFError or StorageFailure when that fails. A picture that cannot be read is left out.
void WritePdf(const Composition& document, const QString& file, const DateTime& now);

}  // namespace quillary::documents
