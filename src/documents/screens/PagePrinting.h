#pragma once

#include "documents/pages/Composer.h"

class QPrinter;

namespace quillary::documents {

/// Sets the printer's paper to that of the document.
void FitPrinter(QPrinter& printer, const Composition& document);

/// Prints the pages that the printer was told to print, all unless it was told. Pages that are
/// larger than its paper are made smaller. Throws std::runtime_error when the printer gives up.
void PrintPages(QPrinter& printer, const Composition& document);

}  // namespace quillary::documents
