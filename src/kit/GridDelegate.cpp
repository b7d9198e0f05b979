#include "kit/GridDelegate.h"

#include "kit/GridModel.h"
#include "kit/Keys.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSortFilterProxyModel>

namespace quillary {

namespace {

constexpr int kMargin = 10;
constexpr int kChipHeight = 20;

void PaintChip(QPainter* painter, const QRect& cell, const QString& word, const HueColours& hue,
               QFont font) {
  font.setPointSizeF(font.pointSizeF() * 0.925);
  const QFontMetrics metrics(font);
  const int width = qMin(metrics.horizontalAdvance(word) + 2 * kMargin, cell.width() - kMargin);
  const QRectF chip(cell.left() + kMargin + 0.5, cell.center().y() - kChipHeight / 2 + 0.5, width,
                    kChipHeight);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(hue.edge);
  painter->setBrush(hue.fill);
  painter->drawRoundedRect(chip, kChipHeight / 2.0, kChipHeight / 2.0);
  painter->setFont(font);
  painter->setPen(hue.words);
  painter->drawText(chip, Qt::AlignCenter,
                    metrics.elidedText(word, Qt::ElideRight, width - kMargin));
}

void PaintWords(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                const QColor& colour, bool strong) {
  QFont font = option.font;
  if (strong) font.setWeight(QFont::DemiBold);
  painter->setFont(font);
  painter->setPen(colour);
  const QRect inner = option.rect.adjusted(kMargin, 0, -kMargin, 0);
  const QString words = QFontMetrics(font).elidedText(index.data().toString().simplified(),
                                                      Qt::ElideRight, inner.width());
  painter->drawText(inner, index.data(Qt::TextAlignmentRole).toInt(), words);
}

/// The bar is full at 1 and stays so beyond; the words say how far.
void PaintBar(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
              const Roles& roles, const HueColours& hue) {
  constexpr int kBarHeight = 8;
  constexpr int kWordsWidth = 56;
  const Value share = index.data(kValueRole).value<Value>();
  if (share.IsNull()) return;
  const QRectF whole(option.rect.left() + kMargin, option.rect.center().y() - kBarHeight / 2,
                     option.rect.width() - 2 * kMargin - kWordsWidth, kBarHeight);
  QRectF part = whole;
  part.setWidth(whole.width() * qBound(0.0, share.ToDouble(), 1.0));
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(roles.line);
  painter->drawRoundedRect(whole, kBarHeight / 2.0, kBarHeight / 2.0);
  painter->setBrush(index.data(kHueRole).toInt() == static_cast<int>(Hue::None) ? roles.accent
                                                                                : hue.bar);
  painter->drawRoundedRect(part, kBarHeight / 2.0, kBarHeight / 2.0);
  painter->setPen(roles.text);
  painter->setFont(option.font);
  painter->drawText(option.rect.adjusted(0, 0, -kMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                    index.data().toString());
}

/// The list of a cell. Moving through it by keys decides nothing: Enter, Tab or a click in the
/// opened list do.
class CellCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const auto moveTo = [this](int index) { setCurrentIndex(qBound(0, index, count() - 1)); };
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
      case Qt::Key_Down:
        return alt ? showPopup() : moveTo(currentIndex() + 1);
      case Qt::Key_Up:
        return moveTo(currentIndex() - 1);
      case Qt::Key_Home:
        return moveTo(0);
      case Qt::Key_End:
        return moveTo(count() - 1);
      default:
        break;
    }
    const QString letter = event->text();
    const bool typed = !alt && !letter.isEmpty() && letter.at(0).isLetterOrNumber();
    if (!typed) return QComboBox::keyPressEvent(event);
    for (int step = 1; step <= count(); ++step) {
      const int at = (qMax(currentIndex(), -1) + step + count()) % count();
      if (itemText(at).startsWith(letter, Qt::CaseInsensitive)) return moveTo(at);
    }
  }
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

const GridModel* ModelOf(const QModelIndex& index) {
  return qobject_cast<const GridModel*>(
      static_cast<const QSortFilterProxyModel*>(index.model())->sourceModel());
}

}  // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const Roles& roles = RolesOf(option.palette);
  const HueColours& hue = roles.Of(static_cast<Hue>(index.data(kHueRole).toInt()));
  const auto kind = static_cast<ColumnKind>(index.data(kKindRole).toInt());
  const bool selected = option.state.testFlag(QStyle::State_Selected);

  painter->save();
  painter->fillRect(option.rect, selected ? roles.selection : hue.tint);
  painter->setPen(roles.softLine);
  painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  if (kind == ColumnKind::Chip) {
    PaintChip(painter, option.rect, index.data().toString(), hue, option.font);
  } else if (kind == ColumnKind::Bar) {
    PaintBar(painter, option, index, roles, hue);
  } else if (kind == ColumnKind::Tick || kind == ColumnKind::Mark) {
    QStyleOptionViewItem box(option);
    box.rect = QRect(option.rect.left() + kMargin, option.rect.center().y() - 8, 16, 16);
    box.state &= ~QStyle::State_HasFocus;
    const bool on =
        kind == ColumnKind::Mark ? selected : index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state |= on ? QStyle::State_On : QStyle::State_Off;
    option.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter,
                                          option.widget);
  } else {
    PaintWords(painter, option, index, roles.text, kind == ColumnKind::StrongText);
  }
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(roles.accent);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -2));
  }
  painter->restore();
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const int width = option.fontMetrics.horizontalAdvance(index.data().toString());
  return {width + 3 * kMargin, 35};
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
  const std::vector<GridChoice>& choices = ModelOf(index)->Choices(index.column());
  if (!choices.empty()) {
    auto* combo = new CellCombo(parent);
    combo->setObjectName(QStringLiteral("editor"));
    for (const GridChoice& choice : choices)
      combo->addItem(choice.word, QVariant::fromValue(choice.key));
    // A choice is final: the list need not be left by another key.
    connect(combo, &QComboBox::activated, this, [this, combo] {
      auto* self = const_cast<GridDelegate*>(this);
      emit self->commitData(combo);
      emit self->closeEditor(combo);
    });
    return combo;
  }
  auto* line = new QLineEdit(parent);
  line->setObjectName(QStringLiteral("editor"));
  if (index.data(kKindRole).toInt() == static_cast<int>(ColumnKind::Number))
    new KeyFilter(line, KeyMode::Digits);
  return line;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* combo = qobject_cast<QComboBox*>(editor)) {
    const auto value = index.data(kValueRole).value<Value>();
    combo->setCurrentIndex(-1);  // what the list does not offer is not among its entries
    for (int item = 0; item < combo->count(); ++item)
      if (combo->itemData(item).value<Value>() == value) combo->setCurrentIndex(item);
    return;
  }
  auto* line = qobject_cast<QLineEdit*>(editor);
  line->setText(index.data(Qt::EditRole).toString());
  line->selectAll();
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
  const auto old = index.data(kValueRole).value<Value>();
  if (auto* combo = qobject_cast<QComboBox*>(editor)) {
    if (combo->currentIndex() < 0) return;
    const auto chosen = combo->currentData().value<Value>();
    if (!(chosen == old)) model->setData(index, QVariant::fromValue(chosen));
    return;
  }
  const QString typed = qobject_cast<QLineEdit*>(editor)->text();
  if (typed != old.ToText()) model->setData(index, typed);
}

TitleHeader::TitleHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setFixedHeight(31);
  setMinimumSectionSize(32);
  setSectionsClickable(true);
  setStretchLastSection(true);
  setSortIndicatorClearable(true);
  setSortIndicator(-1, Qt::AscendingOrder);
}

void TitleHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
  const Roles& roles = RolesOf(palette());
  painter->fillRect(rect, roles.raised);
  painter->setPen(roles.line);
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  QFont titles = font();
  titles.setPointSizeF(titles.pointSizeF() * 0.925);
  titles.setWeight(QFont::DemiBold);
  painter->setFont(titles);
  painter->setPen(roles.muted);
  QString title = model()->headerData(column, orientation()).toString();
  if (isSortIndicatorShown() && sortIndicatorSection() == column)
    title +=
        sortIndicatorOrder() == Qt::AscendingOrder ? QStringLiteral(" ↑") : QStringLiteral(" ↓");
  const QRect inner = rect.adjusted(kMargin, 0, -kMargin, 0);
  const int alignment = model()->headerData(column, orientation(), Qt::TextAlignmentRole).toInt();
  painter->drawText(
      inner, alignment,
      QFontMetrics(titles).elidedText(title, Qt::ElideRight, inner.width() + kMargin));
}

HueHeader::HueHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionResizeMode(QHeaderView::Fixed);
  setDefaultSectionSize(35);
  setMinimumSectionSize(35);
  setFixedWidth(20);
  setSectionsClickable(false);
  setHighlightSections(false);
}

void HueHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
  const Roles& roles = RolesOf(palette());
  const Hue hue = static_cast<Hue>(model()->headerData(row, Qt::Vertical, kHueRole).toInt());
  painter->fillRect(rect, roles.softLine);
  const QColor bar = hue == Hue::None ? roles.surface : roles.Of(hue).bar;
  painter->fillRect(rect.adjusted(0, 0, 0, -1), bar);
}

}  // namespace quillary
