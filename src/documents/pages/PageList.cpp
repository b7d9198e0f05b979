#include "documents/pages/PageList.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace quillary::documents {
namespace {

constexpr size_t kKeptAsTheyAre = 48;  // pages: most documents, whole
constexpr int kFastest = 1;            // of zlib's levels

}  // namespace

/// Pages as bytes. Fonts are few and stand beside.
class PagePacker {
 public:
  QByteArray Pack(const Page& page) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);  // a thousandth of a twip
    out << static_cast<quint32>(page.texts.size());
    for (const TextRun& run : page.texts)
      out << run.text.toUtf8() << PlaceOf(run.font) << run.x << run.baseline << run.width << run.top
          << run.height << static_cast<quint8>(run.align) << static_cast<qint32>(run.link);
    out << static_cast<quint32>(page.lines.size());
    for (const PageLine& line : page.lines)
      out << line.x1 << line.y1 << line.x2 << line.y2 << line.width
          << static_cast<qint32>(line.colour);
    out << static_cast<quint32>(page.pictures.size());
    for (const PagePicture& picture : page.pictures)
      out << picture.file << picture.x << picture.y << picture.width << picture.height;
    return qCompress(bytes, kFastest);
  }

  Page Unpack(const QByteArray& packed) const {
    const QByteArray bytes = qUncompress(packed);
    QDataStream in(bytes);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    Page page;
    quint32 count = 0;
    in >> count;
    page.texts.resize(count);
    for (TextRun& run : page.texts) {
      QByteArray text;
      quint16 font = 0;
      quint8 align = 0;
      qint32 link = -1;
      in >> text >> font >> run.x >> run.baseline >> run.width >> run.top >> run.height >> align >>
          link;
      run.text = QString::fromUtf8(text);
      run.font = fonts_.at(font);
      run.align = static_cast<Align>(align);
      run.link = link;
    }
    in >> count;
    page.lines.resize(count);
    for (PageLine& line : page.lines) {
      qint32 colour = 0;
      in >> line.x1 >> line.y1 >> line.x2 >> line.y2 >> line.width >> colour;
      line.colour = colour;
    }
    in >> count;
    page.pictures.resize(count);
    for (PagePicture& picture : page.pictures)
      in >> picture.file >> picture.x >> picture.y >> picture.width >> picture.height;
    return page;
  }

 private:
  quint16 PlaceOf(const PageFont& font) {
    const auto at = std::find(fonts_.begin(), fonts_.end(), font);
    if (at != fonts_.end()) return static_cast<quint16>(at - fonts_.begin());
    fonts_.push_back(font);
    return static_cast<quint16>(fonts_.size() - 1);
  }

  std::vector<PageFont> fonts_;
};

namespace {

int LinksOf(const Page& page) {
  int count = 0;
  for (const TextRun& run : page.texts) count = std::max(count, run.link + 1);
  return count;
}

}  // namespace

struct PageList::Pages {
  std::vector<Page> kept;
  std::vector<QByteArray> packed;
  std::optional<Page> last;
  std::vector<int> links;  // how many there are up to the end of each closed page
  Footer footer;
  PagePacker packer;
};

PageList::PageList() : pages_(std::make_shared<Pages>()) {}

size_t PageList::size() const {
  return pages_->kept.size() + pages_->packed.size() + (pages_->last ? 1 : 0);
}

Page PageList::operator[](size_t at) const {
  const size_t kept = pages_->kept.size();
  const size_t closed = kept + pages_->packed.size();
  Page page = at < kept     ? pages_->kept[at]
              : at < closed ? pages_->packer.Unpack(pages_->packed[at - kept])
                            : pages_->last.value();
  if (pages_->footer)
    page.texts.push_back(pages_->footer(static_cast<int>(at) + 1, static_cast<int>(size())));
  return page;
}

void PageList::Add() {
  if (pages_->last) {
    pages_->links.push_back(LinkCount());
    if (pages_->kept.size() < kKeptAsTheyAre)
      pages_->kept.push_back(std::move(*pages_->last));
    else
      pages_->packed.push_back(pages_->packer.Pack(*pages_->last));
  }
  pages_->last.emplace();
}

Page& PageList::Last() {
  return pages_->last.value();
}

void PageList::SetFooter(Footer footer) {
  pages_->footer = std::move(footer);
}

int PageList::LinkCount() const {
  const int closed = pages_->links.empty() ? 0 : pages_->links.back();
  return pages_->last ? std::max(closed, LinksOf(*pages_->last)) : closed;
}

size_t PageList::PageOfLink(int link) const {
  const auto& links = pages_->links;
  return static_cast<size_t>(std::upper_bound(links.begin(), links.end(), link) - links.begin());
}

}  // namespace quillary::documents
