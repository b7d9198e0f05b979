#include "help/screens/ManualBrowser.h"

#include "kit/Roles.h"

#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>

namespace quillary::help {

namespace {

constexpr int kPictureWidth = 860;

QString PageStyle(const Roles& roles) {
  return QStringLiteral(
             "h1 { font-size: 20pt; font-weight: 600; margin-bottom: 8px; }"
             "h2 { font-size: 14pt; font-weight: 600; margin-top: 24px; margin-bottom: 6px; }"
             "h3 { font-size: 11pt; font-weight: 600; margin-top: 16px; margin-bottom: 4px; }"
             "p { margin-top: 6px; margin-bottom: 6px; line-height: 130%; }"
             ".picture { line-height: 100%; margin-top: 12px; margin-bottom: 12px; }"
             "li { margin-top: 3px; margin-bottom: 3px; line-height: 130%; }"
             "th { text-align: left; padding: 4px 16px 4px 0; color: %2; }"
             "td { padding: 4px 16px 4px 0; }"
             "code { color: %2; } a { color: %1; text-decoration: none; }")
      .arg(roles.accent.name(), roles.muted.name());
}

}  // namespace

ManualBrowser::ManualBrowser() {
  setObjectName(QStringLiteral("txtManual"));
  setAccessibleName(tr("The manual's page"));
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  document()->setDocumentMargin(24);
  // Once the user has settled on a size.
  later_.setSingleShot(true);
  later_.setInterval(100);
  connect(&later_, &QTimer::timeout, this, &ManualBrowser::ShowAnew);
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (link.isRelative() || link.isLocalFile())
      setSource(link);
    else
      emit leavesManual(link.toString());
  });
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::StyleSheetResource) return PageStyle(RolesOf(palette()));
  if (type == QTextDocument::ImageResource) return LoadPicture(name);
  return QTextBrowser::loadResource(type, name);
}

QVariant ManualBrowser::LoadPicture(const QUrl& name) {
  const QFileInfo plain((name.isRelative() ? source().resolved(name) : name).toLocalFile());
  const QFileInfo dark(plain.dir(), QStringLiteral("dark/") + plain.fileName());
  QPixmap picture(RolesOf(palette()).dark && dark.exists() ? dark.filePath() : plain.filePath());
  if (picture.isNull()) return {};
  // Drawn with all the dots that the display has.
  const qreal dots = devicePixelRatioF();
  const int width = qRound(qMin(pictureWidth_, picture.width()) * dots);
  picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(dots);
  return picture;
}

void ManualBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  pictureWidth_ = RoomForPictures();
  QTextBrowser::doSetSource(name, type);
  shown_ = source().resolved(name);
  if (name.hasFragment()) scrollToAnchor(name.fragment());
  emit shown();
}

void ManualBrowser::ShowAnew() {
  if (source().isEmpty()) return;
  const QScrollBar* bar = verticalScrollBar();
  const double place = bar->maximum() > 0 ? double(bar->value()) / bar->maximum() : 0;
  pictureWidth_ = RoomForPictures();
  reload();
  verticalScrollBar()->setValue(qRound(place * verticalScrollBar()->maximum()));
}

int ManualBrowser::RoomForPictures() const {
  const int room = viewport()->width() - 2 * int(document()->documentMargin()) - 2;
  return qBound(160, room, kPictureWidth);
}

void ManualBrowser::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (RoomForPictures() != pictureWidth_) later_.start();
}

void ManualBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) later_.start();
}

}  // namespace quillary::help
