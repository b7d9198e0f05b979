#pragma once

#include "documents/pages/PageSearch.h"
#include "documents/screens/PagePainter.h"

#include <QAbstractScrollArea>

#include <optional>

namespace quillary::documents {

/// The pages of a document below one another, as they will be printed.
class PagePreview : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class Fit { None, Width, Page };

  explicit PagePreview(const char* name);

  /// The document has to outlast its being shown; null shows none.
  void ShowDocument(const Composition* document);
  /// The document has grown.
  void ShowMorePages();

  /// In percent; 100 is the real size. Ends any fitting.
  void SetZoom(int percent);
  int Zoom() const { return zoom_; }
  /// Follows the size of the window.
  void SetFit(Fit fit);
  Fit CurrentFit() const { return fit_; }

  /// The page in view, counted from 0.
  int CurrentPage() const;
  void GoToPage(int page);

  /// Marks the places, one of them as the current one (-1 for none), and brings it into view.
  void ShowHits(std::vector<PageHit> hits, int current);

 signals:
  void pageChanged(int page);
  void zoomChanged(int percent);
  /// The user opened a row that leads somewhere: by a click, or by Enter on the row that Ctrl+Down
  /// and Ctrl+Up mark.
  void linkOpened(int link);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  int PageCount() const;
  double PixelsPerTwip() const;
  QSize PageSize() const;
  /// Of the page's upper left corner, from that of the first page's surroundings.
  int TopOf(int page) const;
  int LeftOfPages() const;
  void ApplyFit();
  void UpdateScrollBars();
  void ChangeZoom(int percent);
  void PaintHits(QPainter& painter, int page);
  void BringIntoView(const PageHit& hit);
  /// The link of the row at that place of the viewport; -1 for none.
  int LinkAt(const QPoint& at) const;
  /// Where a row of that link stands first; nothing when it is on no page.
  std::optional<PageHit> PlaceOfLink(int link) const;
  void CountLinks();
  void MarkLink(int step);
  void PaintMarkedRow(QPainter& painter, int page);

  const Composition* document_ = nullptr;
  PagePainter painter_;
  int zoom_ = 100;
  Fit fit_ = Fit::None;
  std::vector<PageHit> hits_;
  int currentHit_ = -1;
  int shownPage_ = 0;
  int linkCount_ = 0;
  int markedLink_ = -1;
};

}  // namespace quillary::documents
