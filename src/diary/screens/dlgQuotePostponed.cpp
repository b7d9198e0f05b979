#include "diary/screens/dlgQuotePostponed.h"

#include "kit/DateField.h"
#include "kit/Dialog.h"
#include "kit/Layouts.h"

#include <QCalendarWidget>

namespace quillary::diary {

std::optional<QDate> dlgQuotePostponed::GetDate(Prompter& prompter, QDate today) {
  class Asking : public Dialog {
   public:
    Asking(Prompter& prompter, QDate today)
        : Dialog("dlgQuotePostponed", tr("Quote postponed"), prompter) {
      calDate = MakeCalendar("calDate", today.addDays(1), today);
      calDate->setAccessibleName(tr("Day of the quote"));
      calDate->setMinimumWidth(288);
      auto* column = new QVBoxLayout;
      column->setSpacing(12);
      column->addWidget(
          MakeLabel("lblQuestion", QStringLiteral("When are you going to do this quote?")));
      column->addWidget(calDate, 1);
      SetContent(column);
      auto* cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
      auto* cmdOK = MakeButton("cmdOK", tr("&OK"), ButtonKind::Main);
      AddActions({cmdCancel, cmdOK});
      connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
      connect(cmdOK, &QPushButton::clicked, this, [this] { Close(Accepted); });
      connect(calDate, &QCalendarWidget::activated, this, [this] { Close(Accepted); });
      calDate->setFocus();
    }
    QDate Day() const { return calDate->selectedDate(); }

   private:
    QCalendarWidget* calDate;
  };
  Asking dialog(prompter, today);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Day();
}

}  // namespace quillary::diary
