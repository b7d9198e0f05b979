#include "kit/PeriodField.h"

#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Layouts.h"

#include <QComboBox>

#include <algorithm>

namespace quillary {

namespace {

constexpr int kDateWidth = 168;
constexpr int kPeriodWidth = 176;
const char* const kSection = "Report days";

}  // namespace

PeriodField::PeriodField(Business& business, const Names& names)
    : business_(business),
      remembered_(QString::fromLatin1(names.remembered)),
      periods_(ProposedPeriods(business)) {
  period_ = Named(new QComboBox, "cmbPeriod");
  period_->addItem(tr("Other days"));
  for (const NamedPeriod& period : periods_) period_->addItem(period.words);
  period_->setFixedWidth(kPeriodWidth);
  from_ = ForField("days", Named(new DateField(business.Today()), names.from));
  to_ = Named(new DateField(business.Today()), names.to);
  for (DateField* field : {from_, to_}) {
    field->setFixedWidth(kDateWidth);
    connect(field, &DateField::dateChosen, this, [this] {
      ShowPeriod();
      emit daysChosen();
    });
  }
  connect(period_, &QComboBox::activated, this, &PeriodField::TakePeriod);
  LayOut();
  BeginWithRemembered();
}

void PeriodField::LayOut() {
  auto* line = InLine({{LabelOver(from_, tr("&From")), 0},
                       {LabelOver(to_, tr("T&o")), 0},
                       {LabelOver(period_, tr("P&eriod")), 0}});
  line->setContentsMargins(0, 0, 0, 0);
  line->addStretch(1);
  setLayout(line);
}

DateRange PeriodField::Days() const {
  return {from_->Date(), to_->Date()};
}

void PeriodField::SetDays(const DateRange& days) {
  from_->SetDate(days.from);
  to_->SetDate(days.to);
  ShowPeriod();
}

void PeriodField::ShowPeriod() {
  const auto at =
      std::find_if(periods_.begin(), periods_.end(),
                   [days = Days()](const NamedPeriod& period) { return period.days == days; });
  period_->setCurrentIndex(at == periods_.end() ? 0 : static_cast<int>(at - periods_.begin()) + 1);
}

void PeriodField::TakePeriod(int index) {
  if (index > 0) {
    SetDays(periods_[static_cast<size_t>(index - 1)].days);
    emit daysChosen();
  } else {
    from_->setFocus();  // to type the other days
  }
}

void PeriodField::BeginWithRemembered() {
  SetDays(DateRange::MonthOf(business_.Today()));
  if (remembered_.isEmpty()) return;
  const QString chosen =
      business_.World().settings.Read(QString::fromLatin1(kSection), remembered_);
  for (const NamedPeriod& period : periods_)
    if (period.words == chosen) return SetDays(period.days);
  const DateRange days{QDate::fromString(chosen.section(u' ', 0, 0), Qt::ISODate),
                       QDate::fromString(chosen.section(u' ', 1, 1), Qt::ISODate)};
  if (days.IsValid()) SetDays(days);
}

void PeriodField::Remember() {
  if (remembered_.isEmpty() || !Days().IsValid()) return;
  const QString chosen = period_->currentIndex() > 0 ? period_->currentText()
                                                     : Days().from.toString(Qt::ISODate) + u' ' +
                                                           Days().to.toString(Qt::ISODate);
  business_.World().settings.Write(QString::fromLatin1(kSection), remembered_, chosen);
}

}  // namespace quillary
