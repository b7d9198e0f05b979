#pragma once

#include "documents/pages/Composer.h"

namespace quillary::documents {

/// A place where a text was found.
struct PageHit {
  int page = 0;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// Every place of a text, without regard to case, page by page as they are read: from above, and on
/// one line from the left. Only within a line. None for a blank text.
std::vector<PageHit> FindOnPages(const Composition& document, const QString& text);

}  // namespace quillary::documents
