#include "kit/Controls.h"
#include "kit/Grid.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

/// What a grid offers on its rows beside the buttons of its screen.
namespace quillary {

void Grid::OfferCommands(std::vector<QPushButton*> commands) {
  offered_ = std::move(commands);
}

void Grid::OfferChoices(const QString& caption, std::function<std::vector<GridChoice>()> choices,
                        std::function<void(const Value&)> chosen) {
  offeredChoices_.push_back({caption, std::move(choices), std::move(chosen)});
}

bool Grid::IsMark(const QModelIndex& at) const {
  return at.isValid() && at.data(kKindRole).toInt() == static_cast<int>(ColumnKind::Mark);
}

void Grid::CopyMarked() const {
  const auto lineOf = [this](const auto& textOf) {
    QStringList cells;
    for (int column = 0; column < model_->columnCount(); ++column) {
      const ColumnKind kind = model_->Columns()[static_cast<size_t>(column)].kind;
      if (!isColumnHidden(column) && kind != ColumnKind::Mark && kind != ColumnKind::Tick)
        cells += textOf(column).simplified();
    }
    return cells.join(u'\t');
  };
  QStringList lines = {
      lineOf([this](int column) { return model_->Columns()[static_cast<size_t>(column)].title; })};
  for (const int row : MarkedRows())
    lines += lineOf(
        [&](int column) { return model_->index(row, column).data(Qt::DisplayRole).toString(); });
  if (lines.size() > 1) QGuiApplication::clipboard()->setText(lines.join(u'\n') + u'\n');
}

void Grid::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  if (!byKey && !indexAt(event->pos()).isValid()) return;
  if (MarkedRows().empty()) return;
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("mnuRow"));
  for (QPushButton* command : offered_)
    if (command->isEnabled() && command->isVisibleTo(window()))
      connect(menu.addAction(command->text()), &QAction::triggered, command, &QPushButton::click);
  for (const OfferedChoices& offered : offeredChoices_) {
    QMenu* choices = menu.addMenu(offered.caption);
    for (const GridChoice& choice : offered.choices())
      connect(choices->addAction(QString(choice.word).replace(u'&', QStringLiteral("&&"))),
              &QAction::triggered, this, [&, key = choice.key] { offered.chosen(key); });
  }
  if (!menu.isEmpty()) menu.addSeparator();
  connect(menu.addAction(tr("Copy with headings")), &QAction::triggered, this, &Grid::CopyMarked);
  menu.exec(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                  : event->globalPos());
}

}  // namespace quillary
