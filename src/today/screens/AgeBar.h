#pragma once

#include "balances/DebtAges.h"

#include <QWidget>

namespace quillary::today {

/// What is owed as one bar, cut by age. A click opens the age under it.
class AgeBar : public QWidget {
  Q_OBJECT

 public:
  explicit AgeBar(const char* name);
  void ShowAges(const balances::AgedMoney& ages);

  QSize sizeHint() const override { return {240, 14}; }

 signals:
  void ageOpened(balances::DebtAge age);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// Where each age ends, in pixels from the left.
  std::array<double, balances::kDebtAges.size()> Ends() const;

  balances::AgedMoney ages_ = {};
};

QColor ColourOf(balances::DebtAge age, const QPalette& palette);

}  // namespace quillary::today
