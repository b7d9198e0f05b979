#include "kit/PageTabs.h"

#include "kit/Roles.h"

#include <QPainter>
#include <QScrollArea>
#include <QTabBar>

namespace quillary {

namespace {

constexpr int kTabMargin = 14;
constexpr int kTabHeight = 36;
constexpr int kUnderline = 2;

/// The words and the line under them. Their widths are those of the strong words, so that nothing
/// moves when another page is chosen.
class PageBar : public QTabBar {
 protected:
  QSize tabSizeHint(int index) const override {
    const int width =
        QFontMetrics(Strong()).size(Qt::TextShowMnemonic, tabText(index)).width() + 2 * kTabMargin;
    return {width, kTabHeight};
  }
  QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

  void paintEvent(QPaintEvent*) override {
    const Roles& roles = RolesOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), roles.surface);
    painter.fillRect(QRect(0, height() - 1, width(), 1), roles.line);
    for (int tab = 0; tab < count(); ++tab) PaintTab(&painter, roles, tab);
  }

 private:
  QFont Strong() const {
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    return strong;
  }

  void PaintTab(QPainter* painter, const Roles& roles, int tab) const {
    const QRect area = tabRect(tab);
    const bool shown = tab == currentIndex();
    if (shown && hasFocus()) {
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(Qt::NoPen);
      painter->setBrush(roles.selection);
      painter->drawRoundedRect(area.adjusted(2, 4, -2, -6), 5, 5);
      painter->setRenderHint(QPainter::Antialiasing, false);
    }
    painter->setFont(shown ? Strong() : font());
    painter->setPen(!isTabEnabled(tab) ? roles.faint : shown ? roles.text : roles.muted);
    painter->drawText(area, Qt::AlignCenter | Qt::TextShowMnemonic, tabText(tab));
    if (!shown) return;
    const QRect line(area.left(), area.bottom() - kUnderline + 1, area.width(), kUnderline);
    painter->fillRect(line, roles.accent);
  }
};

}  // namespace

PageTabs::PageTabs(const char* name, const QString& heardAs) {
  setObjectName(QLatin1StringView(name));
  setTabBar(new PageBar);
  setDocumentMode(true);
  tabBar()->setExpanding(false);
  tabBar()->setDrawBase(false);
  tabBar()->setUsesScrollButtons(true);
  tabBar()->setAccessibleName(heardAs);
}

void PageTabs::AddPage(QWidget* page, const QString& title) {
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(page);
  tabBar()->setTabData(addTab(scroll, title), title);
}

int PageTabs::IndexOf(const QWidget* page) const {
  for (int at = 0; at < count(); ++at)
    if (widget(at)->isAncestorOf(page)) return at;
  return -1;
}

void PageTabs::SetCount(const QWidget* page, size_t rows) {
  const int at = IndexOf(page);
  const QString title = tabBar()->tabData(at).toString();
  setTabText(at, rows == 0 ? title : QStringLiteral("%1 %2").arg(title).arg(rows));
}

void PageTabs::EnablePage(const QWidget* page, bool on) {
  setTabEnabled(IndexOf(page), on);
}

bool PageTabs::IsShown(const QWidget* page) const {
  return currentIndex() == IndexOf(page);
}

void PageTabs::ShowPage(const QWidget* page) {
  setCurrentIndex(IndexOf(page));
}

void PageTabs::paintEvent(QPaintEvent*) {
  const Roles& roles = RolesOf(palette());
  QPainter painter(this);
  painter.fillRect(rect(), roles.surface);
  painter.fillRect(QRect(0, tabBar()->geometry().bottom(), width(), 1), roles.line);
}

}  // namespace quillary
