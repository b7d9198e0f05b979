#include "pdf/PDFEscape.h"
#include "pdf/PDFWriter.h"
#include "pdf/WinAnsi.h"

#include <algorithm>
#include <cmath>

namespace quillary {
namespace {

constexpr std::size_t kMostLinkedPages = 1000;
constexpr std::size_t kMostLinksOnPage = 1000;

bool IsLinkKind(std::string_view kind) {
  return kind == "CELL" || kind == "IMAGE" || kind == "RECT" || kind == "RECTANGLE" ||
         kind == "ELLIPSE";
}

/// Who stands around a bookmark, as places in the list of all; none where nobody does.
struct Relatives {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t parent = kNone;
  std::size_t previous = kNone;
  std::size_t next = kNone;
  std::size_t first = kNone;
  std::size_t last = kNone;
};

}  // namespace

void PDFWriter::PDFLink(std::string_view kind, double x, double y, double width, double height,
                        const PDFTarget& target) {
  const bool isSound = std::isfinite(x) && std::isfinite(y) && std::isfinite(width) &&
                       std::isfinite(height) && !target.IsEmpty() && target.page >= 0;
  if (!isSound || !IsLinkKind(kind)) {
    const bool isImage = kind == "IMAGE";
    ShowMessage(isImage ? "Url Link Image - " : "Url Link - ",
                isImage ? "Unable to include URL image." : "Unable to include link.");
    return;
  }
  if (kind == "ELLIPSE") {
    x -= width;
    y -= height;
    width *= 2;
    height *= 2;
  }
  const auto page = static_cast<std::size_t>(pageCount_);
  if (page > kMostLinkedPages) throw PDFError("A PDF document can hold links on 1000 pages only");
  if (links_.size() < page) links_.resize(page);
  std::vector<Link>& links = links_[page - 1];
  if (links.size() >= kMostLinksOnPage) throw PDFError("A PDF page can hold 1000 links only");
  const auto [left, right] = std::minmax({AtX(x), AtX(x + width)});
  const auto [bottom, top] = std::minmax({AtY(y), AtY(y + height)});
  links.push_back({left, bottom, right, top, target});
}

void PDFWriter::WriteAnnotations(int page) {
  const auto index = static_cast<std::size_t>(page - 1);
  if (index >= links_.size() || links_[index].empty()) return;
  objectBuffer_.AddLine("/Annots [");
  for (const Link& link : links_[index]) {
    if (link.target.url.empty() && link.target.page > pageCount_) continue;  // it never came
    objectBuffer_.Append("<</Type /Annot /Subtype /Link /Rect [");
    for (const double edge : {link.left, link.bottom, link.right}) {
      objectBuffer_.Append(Decimal(edge));
      objectBuffer_.Append(" ");
    }
    objectBuffer_.Append(Decimal(link.top));
    objectBuffer_.Append("] /Border [0 0 0] ");
    if (link.target.url.empty()) {
      const Page& aim = pages_[static_cast<std::size_t>(link.target.page - 1)];
      objectBuffer_.AddLine("/Dest [", PageObject(link.target.page), " 0 R /XYZ 0 ",
                            Decimal(aim.height - link.target.y * scaleFactor_), " null]>>");
    } else {
      const std::string url = strict_ ? PercentForm(link.target.url) : ToWinAnsi(link.target.url);
      objectBuffer_.AddLine("/A <</S /URI /URI (", EscapeLiteral(url), ")>>>>");
    }
  }
  objectBuffer_.AddLine("]");
}

void PDFWriter::PDFSetBookmark(std::string title, int level, double y) {
  const int deepest = bookmarks_.empty() ? 0 : bookmarks_.back().level + 1;
  bookmarks_.push_back({std::move(title), std::clamp(level, 0, deepest), pageCount_, AtY(y)});
}

/// Writes the bookmarks and then their root, whose object number it returns.
int PDFWriter::PutBookmarks() {
  const int firstObject = objectNumber_ + 1;
  const int root = firstObject + static_cast<int>(bookmarks_.size());
  std::vector<Relatives> relatives(bookmarks_.size());
  std::vector<std::size_t> lastOfLevel;
  for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
    const auto level = static_cast<std::size_t>(bookmarks_[i].level);
    if (level < lastOfLevel.size()) {
      relatives[i].previous = lastOfLevel[level];
      relatives[lastOfLevel[level]].next = i;
    }
    lastOfLevel.resize(level + 1);
    lastOfLevel[level] = i;
    if (level == 0) continue;
    Relatives& parent = relatives[lastOfLevel[level - 1]];
    relatives[i].parent = lastOfLevel[level - 1];
    if (parent.first == Relatives::kNone) parent.first = i;
    parent.last = i;
  }

  const auto objectOf = [firstObject](std::size_t i) { return firstObject + static_cast<int>(i); };
  const auto addRelative = [&](std::string_view key, std::size_t relative) {
    if (relative != Relatives::kNone) objectBuffer_.AddLine(key, objectOf(relative), " 0 R");
  };
  for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
    const Bookmark& bookmark = bookmarks_[i];
    const Relatives& around = relatives[i];
    BeginObject();
    objectBuffer_.AddLine(
        "<</Title (",
        strict_ ? EscapeViewerText(bookmark.title) : EscapeLiteral(ToWinAnsi(bookmark.title)), ")");
    objectBuffer_.AddLine(
        "/Parent ", around.parent == Relatives::kNone ? root : objectOf(around.parent), " 0 R");
    addRelative("/Prev ", around.previous);
    addRelative("/Next ", around.next);
    addRelative("/First ", around.first);
    addRelative("/Last ", around.last);
    objectBuffer_.AddLine("/Dest [", PageObject(bookmark.page), " 0 R /XYZ 0 ", Decimal(bookmark.y),
                          " null]");
    objectBuffer_.AddLine("/Count 0>>");
    EndObject();
  }
  BeginObject();
  objectBuffer_.AddLine("<</Type /Outlines /First ", firstObject, " 0 R");
  objectBuffer_.AddLine("/Last ", objectOf(lastOfLevel.front()), " 0 R>>");
  EndObject();
  return root;
}

}  // namespace quillary
