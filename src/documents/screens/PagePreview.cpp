#include "documents/screens/PagePreview.h"

#include "kit/Roles.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace quillary::documents {

namespace {

constexpr int kGap = 16;  // around pages
constexpr int kSmallestZoom = 25;
constexpr int kLargestZoom = 400;
constexpr int kWheelStep = 10;

}  // namespace

PagePreview::PagePreview(const char* name) {
  setObjectName(QLatin1StringView(name));
  setAccessibleName(tr("Pages of the report"));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setMouseTracking(true);
}

void PagePreview::ShowDocument(const Composition* document) {
  document_ = document;
  painter_.ForgetPictures();
  hits_.clear();
  currentHit_ = -1;
  shownPage_ = 0;
  CountLinks();
  ApplyFit();
  UpdateScrollBars();
  verticalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(0);
  emit pageChanged(0);
  viewport()->update();
}

void PagePreview::ShowMorePages() {
  linkCount_ = document_ == nullptr ? 0 : document_->pages.LinkCount();
  UpdateScrollBars();
  viewport()->update();
}

int PagePreview::PageCount() const {
  return document_ == nullptr ? 0 : static_cast<int>(document_->pages.size());
}

double PagePreview::PixelsPerTwip() const {
  return logicalDpiX() / kTwipsPerInch * zoom_ / 100;
}

QSize PagePreview::PageSize() const {
  if (document_ == nullptr) return {};
  return QSizeF(document_->setup.Width() * PixelsPerTwip(),
                document_->setup.Height() * PixelsPerTwip())
      .toSize();
}

int PagePreview::TopOf(int page) const {
  return kGap + page * (PageSize().height() + kGap);
}

int PagePreview::LeftOfPages() const {
  const int spare = viewport()->width() - PageSize().width();
  return spare >= 2 * kGap ? spare / 2 : kGap - horizontalScrollBar()->value();
}

void PagePreview::SetZoom(int percent) {
  fit_ = Fit::None;
  ChangeZoom(percent);
}

void PagePreview::ChangeZoom(int percent) {
  percent = std::clamp(percent, kSmallestZoom, kLargestZoom);
  if (percent == zoom_) return;
  // What is in the middle of the view stays there.
  const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  const double share = middle / std::max(1, TopOf(PageCount()));
  zoom_ = percent;
  UpdateScrollBars();
  verticalScrollBar()->setValue(
      static_cast<int>(share * TopOf(PageCount()) - viewport()->height() / 2.0));
  emit zoomChanged(zoom_);
  viewport()->update();
}

void PagePreview::SetFit(Fit fit) {
  fit_ = fit;
  ApplyFit();
}

void PagePreview::ApplyFit() {
  if (fit_ == Fit::None || document_ == nullptr) return;
  const double perPercent = logicalDpiX() / kTwipsPerInch / 100;
  const double room = viewport()->width() - 2 * kGap;
  double percent = room / (document_->setup.Width() * perPercent);
  if (fit_ == Fit::Page) {
    const double height = viewport()->height() - 2 * kGap;
    percent = std::min(percent, height / (document_->setup.Height() * perPercent));
  }
  const int page = CurrentPage();
  ChangeZoom(static_cast<int>(std::floor(percent)));
  if (fit_ == Fit::Page) GoToPage(page);
}

void PagePreview::UpdateScrollBars() {
  const QSize room = viewport()->size();
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setSingleStep(40);
  verticalScrollBar()->setRange(0, std::max(0, TopOf(PageCount()) - room.height()));
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setSingleStep(40);
  horizontalScrollBar()->setRange(0, std::max(0, PageSize().width() + 2 * kGap - room.width()));
}

int PagePreview::CurrentPage() const {
  if (PageCount() == 0) return 0;
  // The page that has the most of the upper half of the view.
  const int at = verticalScrollBar()->value() + viewport()->height() / 3;
  return std::clamp((at - kGap) / (PageSize().height() + kGap), 0, PageCount() - 1);
}

void PagePreview::GoToPage(int page) {
  page = std::clamp(page, 0, std::max(0, PageCount() - 1));
  verticalScrollBar()->setValue(TopOf(page) - kGap);
}

void PagePreview::ShowHits(std::vector<PageHit> hits, int current) {
  hits_ = std::move(hits);
  currentHit_ = current;
  if (current >= 0) BringIntoView(hits_[static_cast<size_t>(current)]);
  viewport()->update();
}

void PagePreview::BringIntoView(const PageHit& hit) {
  const double scale = PixelsPerTwip();
  const int top = TopOf(hit.page) + static_cast<int>(hit.y * scale);
  const int height = static_cast<int>(hit.height * scale);
  const int seen = verticalScrollBar()->value();
  if (top < seen + kGap || top + height > seen + viewport()->height() - kGap)
    verticalScrollBar()->setValue(top - viewport()->height() / 3);
  const int left = kGap + static_cast<int>(hit.x * scale);
  const int right = left + static_cast<int>(hit.width * scale);
  QScrollBar* across = horizontalScrollBar();
  if (left < across->value() || right > across->value() + viewport()->width())
    across->setValue(left - viewport()->width() / 3);
}

void PagePreview::PaintHits(QPainter& painter, int page) {
  const Roles& light = LightRoles();  // paper is white in either theme
  for (size_t i = 0; i < hits_.size(); ++i) {
    const PageHit& hit = hits_[i];
    if (hit.page != page) continue;
    const QRectF place(hit.x - 20, hit.y - 10, hit.width + 40, hit.height + 20);
    const bool isCurrent = static_cast<int>(i) == currentHit_;
    painter.fillRect(place, light.Of(Hue::Yellow).edge.lighter(isCurrent ? 100 : 120));
    if (!isCurrent) continue;
    painter.setPen(QPen(light.Of(Hue::Yellow).words, 20));
    painter.drawRect(place);
  }
}

void PagePreview::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const Roles& roles = RolesOf(palette());
  painter.fillRect(event->rect(), roles.strip);
  const QSize size = PageSize();
  for (int page = 0; page < PageCount(); ++page) {
    const QRect sheet(QPoint(LeftOfPages(), TopOf(page) - verticalScrollBar()->value()), size);
    if (!sheet.adjusted(-2, -2, 2, 2).intersects(event->rect())) continue;
    painter.setPen(roles.line);
    painter.setBrush(Qt::white);
    painter.drawRect(sheet.adjusted(-1, -1, 0, 0));
    painter.save();
    painter.setClipRect(sheet);
    painter.translate(sheet.topLeft());
    painter.scale(PixelsPerTwip(), PixelsPerTwip());
    PaintMarkedRow(painter, page);
    PaintHits(painter, page);
    painter_.Draw(painter, document_->pages[static_cast<size_t>(page)]);
    painter.restore();
  }
}

void PagePreview::resizeEvent(QResizeEvent*) {
  ApplyFit();
  UpdateScrollBars();
}

void PagePreview::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  if (event->angleDelta().y() != 0)
    SetZoom(zoom_ + (event->angleDelta().y() > 0 ? kWheelStep : -kWheelStep));
  event->accept();
}

void PagePreview::CountLinks() {
  linkCount_ = 0;
  markedLink_ = -1;
  if (document_ == nullptr) return;
  linkCount_ = document_->pages.LinkCount();
}

int PagePreview::LinkAt(const QPoint& at) const {
  if (linkCount_ == 0) return -1;
  const int pageHeight = PageSize().height() + kGap;
  const int down = at.y() + verticalScrollBar()->value() - kGap;
  const int page = pageHeight > 0 ? down / pageHeight : -1;
  if (down < 0 || page >= PageCount()) return -1;
  const double x = (at.x() - LeftOfPages()) / PixelsPerTwip();
  const double y = (down - page * pageHeight) / PixelsPerTwip();
  constexpr double kReach = 40;  // twips around a text
  const Page shown = document_->pages[static_cast<size_t>(page)];
  for (const TextRun& run : shown.texts) {
    if (run.link >= 0 && x > run.x - kReach && x < run.x + run.width + kReach && y > run.top &&
        y < run.top + run.height)
      return run.link;
  }
  return -1;
}

std::optional<PageHit> PagePreview::PlaceOfLink(int link) const {
  const size_t number = document_->pages.PageOfLink(link);
  if (number >= document_->pages.size()) return std::nullopt;
  std::optional<QRectF> place;
  const Page page = document_->pages[number];
  for (const TextRun& run : page.texts) {
    if (run.link != link) continue;
    const QRectF text(run.x, run.top, run.width, run.height);
    place = place ? place->united(text) : text;
  }
  if (!place) return std::nullopt;
  return PageHit{static_cast<int>(number), place->x(), place->y(), place->width(), place->height()};
}

void PagePreview::MarkLink(int step) {
  if (linkCount_ == 0) return;
  markedLink_ = markedLink_ < 0 ? (step > 0 ? 0 : linkCount_ - 1)
                                : std::clamp(markedLink_ + step, 0, linkCount_ - 1);
  if (const auto place = PlaceOfLink(markedLink_)) BringIntoView(*place);
  viewport()->update();
}

void PagePreview::PaintMarkedRow(QPainter& painter, int page) {
  if (markedLink_ < 0) return;
  const auto place = PlaceOfLink(markedLink_);
  if (!place || place->page != page) return;
  painter.fillRect(QRectF(place->x - 60, place->y - 10, place->width + 120, place->height + 20),
                   LightRoles().Of(Hue::PaleBlue).tint);
}

void PagePreview::mouseMoveEvent(QMouseEvent* event) {
  viewport()->setCursor(LinkAt(event->pos()) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

bool PagePreview::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  if (LinkAt(help->pos()) >= 0)
    QToolTip::showText(help->globalPos(),
                       tr("A click shows what this is made of; so do Ctrl+Down and Enter."), this);
  else
    QToolTip::hideText();
  return true;
}

void PagePreview::mouseReleaseEvent(QMouseEvent* event) {
  const int link = event->button() == Qt::LeftButton ? LinkAt(event->pos()) : -1;
  if (link < 0) return;
  markedLink_ = link;
  viewport()->update();
  emit linkOpened(link);
}

void PagePreview::keyPressEvent(QKeyEvent* event) {
  QScrollBar* down = verticalScrollBar();
  if (event->modifiers() & Qt::ControlModifier) {
    if (event->key() == Qt::Key_Down) return MarkLink(1);
    if (event->key() == Qt::Key_Up) return MarkLink(-1);
  }
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (markedLink_ >= 0) emit linkOpened(markedLink_);
      return;
    case Qt::Key_Home:
      down->setValue(0);
      return;
    case Qt::Key_End:
      down->setValue(down->maximum());
      return;
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      down->triggerAction(QScrollBar::SliderPageStepAdd);
      return;
    case Qt::Key_PageUp:
      down->triggerAction(QScrollBar::SliderPageStepSub);
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PagePreview::scrollContentsBy(int, int) {
  viewport()->update();
  const int page = CurrentPage();
  if (page == shownPage_) return;
  shownPage_ = page;
  emit pageChanged(page);
}

}  // namespace quillary::documents
