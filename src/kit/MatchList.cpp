#include "kit/MatchList.h"

#include <QScreen>
#include <QStandardItemModel>

namespace quillary {

namespace {

constexpr int kMostRows = 10;
constexpr int kIndexRole = Qt::UserRole;

}  // namespace

MatchList::MatchList(QWidget* field)
    : QListView(field), field_(field), rows_(new QStandardItemModel(this)) {
  setObjectName(QStringLiteral("matches"));
  setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  setModel(rows_);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(this, &QListView::pressed, this,
          [this](const QModelIndex& at) { emit chosenByClick(at.data(kIndexRole).toInt()); });
}

void MatchList::ShowBelow(const std::vector<Match>& matches, int chosen) {
  rows_->clear();
  if (matches.empty()) {
    hide();
    return;
  }
  for (const Match& match : matches) {
    auto* item = new QStandardItem(match.words);
    item->setData(match.index, kIndexRole);
    rows_->appendRow(item);
    if (match.index == chosen) setCurrentIndex(item->index());
  }
  const int shown = qMin(kMostRows, rows_->rowCount());
  const int height = shown * sizeHintForRow(0) + 2 * frameWidth();
  const QRect screen = field_->screen()->availableGeometry();
  QPoint place = field_->mapToGlobal(QPoint(0, field_->height()));
  if (place.y() + height > screen.bottom()) place = field_->mapToGlobal(QPoint(0, -height));
  const int width = qMin(qMax(field_->width(), sizeHintForColumn(0) + 32), screen.width());
  setGeometry(QRect(place, QSize(width, height)));
  show();
  scrollTo(currentIndex());
}

int MatchList::Move(int by) {
  const int row = qBound(0, currentIndex().row() + by, rows_->rowCount() - 1);
  setCurrentIndex(rows_->index(row, 0));
  return Chosen();
}

int MatchList::Chosen() const {
  return currentIndex().isValid() ? currentIndex().data(kIndexRole).toInt() : -1;
}

}  // namespace quillary
