#include "documents/pages/PageSearch.h"

#include <algorithm>
#include <cmath>

namespace quillary::documents {

std::vector<PageHit> FindOnPages(const Composition& document, const QString& text) {
  std::vector<PageHit> hits;
  if (text.trimmed().isEmpty()) return hits;
  int number = 0;
  for (const Page& page : document.pages) {
    const auto firstOfPage = static_cast<std::ptrdiff_t>(hits.size());
    for (const TextRun& run : page.texts) {
      qsizetype at = 0;
      while ((at = run.text.indexOf(text, at, Qt::CaseInsensitive)) >= 0) {
        const QStringView line(run.text);
        const double before = document.fonts->WidthOf(line.first(at), run.font);
        const double width = document.fonts->WidthOf(line.sliced(at, text.size()), run.font);
        hits.push_back({number, run.x + before, run.top, width, run.height});
        at += text.size();
      }
    }
    std::stable_sort(hits.begin() + firstOfPage, hits.end(), [](const auto& a, const auto& b) {
      return a.y != b.y ? a.y < b.y : a.x < b.x;
    });
    ++number;
  }
  return hits;
}

}  // namespace quillary::documents
