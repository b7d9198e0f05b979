#pragma once

#include "base/Id.h"

#include <QObject>

#include <vector>

class QCheckBox;

namespace quillary {

class Grid;

/// Lets the rows of a table be ticked: by a click into the tick column, by the space bar wherever
/// the cursor stands in the row, and all at once by the box over the list. That box and every tick
/// made with it reach the rows that show; what a filter hides keeps its tick.
///
///   grdJobs->SetColumns({{"", ColumnKind::Tick, 40}, {"", ColumnKind::HiddenId}, ...});
///   ticks_ = new RowTicks(grdJobs, 0, chkTickUntickAll);
///   grdJobs->SetRows(rows);
///   ticks_->TakeRows();                  // after each load
///   AttachJobs(business, invoice, ticks_->TickedIds<Entry>());
class RowTicks : public QObject {
  Q_OBJECT

 public:
  /// The column is declared as not editable, since a tick is no edit of the business.
  RowTicks(Grid* grid, int column, QCheckBox* tickAll = nullptr);

  /// Starts from the ticks with which the rows were loaded.
  void TakeRows();
  /// Of the rows that show, in their order: no command may reach what a filter hides.
  std::vector<qint64> TickedKeys() const;
  /// Of all rows, hidden or not: for ticks that stand for what is stored.
  std::vector<qint64> AllTickedKeys() const;
  template <NumberedRow Row>
  std::vector<Id<Row>> TickedIds() const {
    return IdsFrom<Row>(TickedKeys());
  }
  void TickAll(bool on);

 signals:
  void ticksChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Toggle(int row);
  bool IsTicked(int row) const;
  bool IsShown(int row) const;
  /// Writes ticks into rows and shows them where they were.
  void Write(const std::vector<int>& rows, bool on);
  void ShowAll();

  Grid* grid_;
  int column_;
  QCheckBox* tickAll_;
};

/// The box over such a list, under its given words.
QCheckBox* MakeTickAllBox(const char* name = "chkTickUntickAll");

}  // namespace quillary
