#include "accounts/screens/dlgCountCash.h"

#include "accounts/banking/CashCount.h"
#include "kit/Layouts.h"

#include <QGridLayout>
#include <QSpinBox>

namespace quillary::accounts {

namespace {

constexpr int kMostOfOne = 99999;

}  // namespace

dlgCountCash::dlgCountCash(Prompter& prompter)
    : Dialog("dlgCountCash", tr("Count notes and coins"), prompter) {
  txtCounted = Named(MakeLabel("", {}, LabelRole::Figure), "txtCounted", tr("Counted"));
  for (const Denomination& denomination : Denominations()) {
    auto* count = new QSpinBox;
    count->setObjectName(
        QStringLiteral("spnCount%1").arg(denomination.worth.Units() / 100));  // in cents
    count->setAccessibleName(tr("Number of %1").arg(denomination.Words()));
    count->setRange(0, kMostOfOne);
    count->setAlignment(Qt::AlignRight);
    count->setButtonSymbols(QAbstractSpinBox::NoButtons);
    connect(count, &QSpinBox::valueChanged, this, &dlgCountCash::ShowTotal);
    counts_.push_back(count);
  }
  auto* sides = new QHBoxLayout;
  sides->setSpacing(32);
  sides->addLayout(Column(false));
  sides->addLayout(Column(true));
  auto* total = new QHBoxLayout;
  total->setSpacing(8);
  total->addStretch(1);
  total->addWidget(MakeLabel("lblCounted", tr("Counted"), LabelRole::Muted));
  total->addWidget(txtCounted);
  auto* column = new QVBoxLayout;
  column->setSpacing(16);
  column->addLayout(sides);
  column->addStretch(1);
  column->addLayout(total);
  SetContent(column);
  SetRoom({384, 528});
  QPushButton* cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  QPushButton* cmdOK = MakeButton("cmdOK", tr("&Use this amount"), ButtonKind::Main);
  AddActions({cmdCancel, cmdOK});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdOK, &QPushButton::clicked, this, [this] { Close(Accepted); });
  ShowTotal();
  counts_.front()->setFocus();
  counts_.front()->selectAll();
}

QLayout* dlgCountCash::Column(bool coins) {
  auto* rows = new QGridLayout;
  rows->setSpacing(8);
  rows->addWidget(MakeLabel("", coins ? tr("Coins") : tr("Notes"), LabelRole::Muted), 0, 0, 1, 2);
  int row = 1;
  for (size_t at = 0; at < counts_.size(); ++at) {
    const Denomination& denomination = Denominations()[at];
    if (denomination.isCoin != coins) continue;
    QLabel* label = MakeLabelFor(counts_[at], denomination.Words(), LabelRole::Plain);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows->addWidget(label, row, 0);
    rows->addWidget(counts_[at], row, 1);
    ++row;
  }
  rows->setRowStretch(row, 1);
  return rows;
}

Money dlgCountCash::Counted() const {
  std::vector<int> counts;
  for (const QSpinBox* count : counts_) counts.push_back(count->value());
  return WorthOf(counts);
}

void dlgCountCash::ShowTotal() {
  txtCounted->setText(Counted().ToCurrencyText());
}

}  // namespace quillary::accounts
