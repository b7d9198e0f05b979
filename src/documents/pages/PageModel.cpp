#include "documents/pages/PageModel.h"

#include <utility>

namespace quillary::documents {

namespace {

/// Upright, in twips.
std::pair<double, double> SizeOf(Paper paper) {
  switch (paper) {
    case Paper::A3:
      return {16838, 23811};
    case Paper::A5:
      return {8391, 11906};
    case Paper::Letter:
      return {12240, 15840};
    case Paper::Legal:
      return {12240, 20160};
    case Paper::A4:
      break;
  }
  return {11906, 16838};
}

}  // namespace

double PageSetup::Width() const {
  const auto [width, height] = SizeOf(paper);
  return landscape ? height : width;
}

double PageSetup::Height() const {
  const auto [width, height] = SizeOf(paper);
  return landscape ? width : height;
}

}  // namespace quillary::documents
