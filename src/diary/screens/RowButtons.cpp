#include "diary/screens/RowButtons.h"

#include "kit/Controls.h"
#include "kit/Grid.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>

namespace quillary::diary {

namespace {
constexpr int kSetWidth = 312;
}

RowButtons::RowButtons(Grid* grid, std::vector<QPushButton*> commands)
    : grid_(grid), commands_(std::move(commands)) {
  grid->viewport()->installEventFilter(this);
  connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, this, &RowButtons::MoveButtons);
  connect(grid->horizontalScrollBar(), &QScrollBar::valueChanged, this, &RowButtons::MoveButtons);
  connect(grid->model(), &QAbstractItemModel::layoutChanged, this, &RowButtons::MoveButtons);
  connect(grid->model(), &QAbstractItemModel::rowsInserted, this, &RowButtons::MoveButtons);
  connect(grid->model(), &QAbstractItemModel::rowsRemoved, this, &RowButtons::MoveButtons);
}

QWidget* RowButtons::MakeSet() {
  auto* set = new QWidget(grid_->viewport());
  auto* line = new QHBoxLayout(set);
  line->setContentsMargins(4, 0, 4, 0);
  line->setSpacing(4);
  for (QPushButton* command : commands_) {
    QPushButton* copy =
        MakeButton("", PlainCaption(command->text()) +
                           (command->text().endsWith(u'.') ? QStringLiteral(".") : QString()));
    copy->setObjectName(command->objectName() + QStringLiteral("OnRow"));
    copy->setProperty("size", QStringLiteral("small"));
    copy->setFocusPolicy(Qt::NoFocus);  // by keys the command itself is nearer
    copy->setEnabled(command->isEnabled());
    connect(copy, &QPushButton::clicked, this, [this, set, command] {
      grid_->SelectKey(grid_->Key(set->property("row").toInt()));
      command->click();
    });
    line->addWidget(copy);
  }
  return set;
}

void RowButtons::MoveButtons() {
  size_t used = 0;
  const int rows = static_cast<int>(grid_->Rows().size());
  const int bottom = grid_->viewport()->height();
  for (int row = 0; row < rows; ++row) {
    const QRect at = grid_->RowRect(row);
    if (at.isEmpty() || at.bottom() < 0 || at.top() > bottom) continue;
    if (used == sets_.size()) sets_.push_back(MakeSet());
    QWidget* set = sets_[used++];
    set->setProperty("row", row);
    set->setGeometry(at.right() - kSetWidth, at.top(), kSetWidth, at.height() - 1);
    set->show();
  }
  while (sets_.size() > used) {
    sets_.back()->deleteLater();
    sets_.pop_back();
  }
}

bool RowButtons::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) MoveButtons();
  return false;
}

}  // namespace quillary::diary
