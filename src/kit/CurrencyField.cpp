#include "kit/CurrencyField.h"

#include "kit/Keys.h"

namespace quillary {

CurrencyField::CurrencyField(QWidget* parent) : QLineEdit(parent) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  SelectAllText(this);
  SetAmount({});
  connect(this, &QLineEdit::editingFinished, this, &CurrencyField::TakeTyped);
}

void CurrencyField::SetAmount(Money amount) {
  amount_ = amount.Rounded(2);
  setText(amount_.ToCurrencyText());
}

void CurrencyField::TakeTyped() {
  const Money before = amount_;
  const QString typed = text().trimmed();
  const std::optional<Money> amount = typed.isEmpty() ? Money() : Money::Parse(typed);
  SetAmount(amount.value_or(before));
  if (amount_ != before) emit amountChosen();
  if (!amount) emit amountRefused();
}

}  // namespace quillary
