#pragma once

#include "documents/pages/PageModel.h"

#include <QHash>
#include <QImage>

class QPainter;

namespace quillary::documents {

/// Draws composed pages on a display or on paper. Pictures are kept, since a logo stands on every
/// page.
class PagePainter {
 public:
  /// The painter's origin is the upper left corner of the paper, its unit one twip.
  void Draw(QPainter& painter, const Page& page);
  void ForgetPictures() { pictures_.clear(); }

 private:
  QHash<QString, QImage> pictures_;
};

}  // namespace quillary::documents
