#pragma once

#include "base/Money.h"

#include <QLineEdit>

namespace quillary {

/// An amount of money, right-aligned. It takes its currency form when the user leaves it; blank
/// becomes 0, and what is no amount falls back to the one that stood there, which is announced. It
/// holds the cents that it shows and no more.
class CurrencyField : public QLineEdit {
  Q_OBJECT

 public:
  explicit CurrencyField(QWidget* parent = nullptr);

  Money Amount() const { return amount_; }
  void SetAmount(Money amount);

 signals:
  void amountChosen();
  /// What was typed is no amount; the one before stands there again.
  void amountRefused();

 private:
  void TakeTyped();

  Money amount_;
};

}  // namespace quillary
