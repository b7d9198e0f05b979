#pragma once

#include "base/Money.h"
#include "kit/Dialog.h"

#include <vector>

class QLabel;
class QSpinBox;

namespace quillary::accounts {

/// Notes and coins, counted into an amount.
class dlgCountCash : public Dialog {
  Q_OBJECT

 public:
  explicit dlgCountCash(Prompter& prompter);

  Money Counted() const;

 private:
  QLayout* Column(bool coins);
  void ShowTotal();

  std::vector<QSpinBox*> counts_;
  QLabel* txtCounted;
};

}  // namespace quillary::accounts
